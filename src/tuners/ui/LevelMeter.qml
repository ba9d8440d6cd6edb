// An input-level meter: a track filled from the left to `level` and a tick
// at `mark`, both 0 to 1 on the one scale every level display shares. The
// fill is lit once it reaches the mark, where sound starts to count.
import QtQuick
import ZebTools

Rectangle {
    id: meter

    property real level: 0
    property real mark: 0
    // The tick stands this far above and below the track.
    property real tickOverhang: 4

    color: Theme.separator
    radius: height / 2

    Rectangle {
        objectName: "levelFill"
        width: meter.width * Math.max(0, Math.min(1, meter.level))
        height: meter.height
        radius: meter.radius
        color: meter.level > 0 && meter.level >= meter.mark ? Theme.accent : Theme.textDim
    }
    Rectangle {
        objectName: "thresholdMark"
        x: Math.round(meter.width * Math.max(0, Math.min(1, meter.mark)) - width / 2)
        y: -meter.tickOverhang
        width: 2
        height: meter.height + 2 * meter.tickOverhang
        color: Theme.text
    }
}
