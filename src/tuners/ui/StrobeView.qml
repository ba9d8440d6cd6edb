import QtQuick
import ZebTools

// The strobe band: three rows of stripes on a lit panel, drifting right when
// the note is sharp and left when it is flat, standing still when it is in
// tune; the top row moves four times as fast as the bottom one. Drawn at the
// display's refresh rate while on show. Under it, which way to turn.
Rectangle {
    id: strobe

    required property TunerChromatic screen
    required property real unit

    radius: Theme.cardRadius * unit
    color: Theme.accent
    border.color: Theme.separator
    border.width: Math.max(1, unit)
    clip: true

    StrobeBandItem {
        id: band

        objectName: "strobeBand"
        anchors.fill: parent
        anchors.margins: 6 * strobe.unit
        screen: strobe.screen
        rows: 3
        period: 32 * strobe.unit
        rowGap: 4 * strobe.unit
        color: Theme.background
    }

    FrameAnimation {
        running: strobe.visible
        onTriggered: band.update()
    }
}
