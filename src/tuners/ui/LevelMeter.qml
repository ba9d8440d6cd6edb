pragma ComponentBehavior: Bound
// An input-level meter: a track filled to `level` and a tick at `mark`, both
// 0 to 1 on the one scale every level display shares. The fill is lit once
// it reaches the mark, where sound starts to count. A `centred` meter grows
// from its middle out to both ends, as the tuner's level bar always has, and
// so carries the tick on both sides; the share it covers is the same.
import QtQuick
import ZebTools

Rectangle {
    id: meter

    property real level: 0
    property real mark: 0
    property bool centred: false
    // The tick stands this far above and below the track.
    property real tickOverhang: 4

    color: Theme.separator
    radius: height / 2

    readonly property real shownMark: Math.max(0, Math.min(1, mark))

    Rectangle {
        objectName: "levelFill"
        x: meter.centred ? (meter.width - width) / 2 : 0
        width: meter.width * Math.max(0, Math.min(1, meter.level))
        height: meter.height
        radius: meter.radius
        color: meter.level > 0 && meter.level >= meter.mark ? Theme.accent : Theme.textDim
    }
    Repeater {
        model: meter.centred ? 2 : 1

        Rectangle {
            required property int index
            // From the middle: the right-hand tick first.
            readonly property real at: meter.centred
                ? meter.width / 2 + (index === 0 ? 1 : -1) * meter.width * meter.shownMark / 2
                : meter.width * meter.shownMark

            objectName: index === 0 ? "thresholdMark" : "mirroredThresholdMark"
            x: Math.round(at - width / 2)
            y: -meter.tickOverhang
            width: 2
            height: meter.height + 2 * meter.tickOverhang
            color: Theme.text
        }
    }
}
