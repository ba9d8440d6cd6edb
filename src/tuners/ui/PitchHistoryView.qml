import QtQuick
import ZebTools

// The pitch history: the last ten seconds of cents against the note heard,
// scrolling left, with the band of +-5 cents shaded. A gap where there was no
// note; a new line for each new note. Drawn at the display's refresh rate
// while on show.
Rectangle {
    id: history

    required property TunerChromatic screen
    required property real unit

    radius: Theme.cardRadius * unit
    color: Theme.panel
    border.color: Theme.separator
    border.width: Math.max(1, unit)

    PitchTraceItem {
        id: trace

        objectName: "pitchTrace"
        anchors.fill: parent
        anchors.margins: 4 * history.unit
        screen: history.screen
        color: Theme.accent
        bandColor: "#2E4A2A"
        lineWidth: 2 * history.unit
    }

    Text {
        anchors.left: parent.left
        anchors.top: parent.top
        anchors.margins: 6 * history.unit
        text: "+50"
        color: Theme.textDim
        font.pixelSize: 9 * history.unit
    }
    Text {
        anchors.left: parent.left
        anchors.bottom: parent.bottom
        anchors.margins: 6 * history.unit
        text: "\u221250"
        color: Theme.textDim
        font.pixelSize: 9 * history.unit
    }
    Text {
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 6 * history.unit
        text: "10 s"
        color: Theme.textDim
        font.pixelSize: 9 * history.unit
    }

    FrameAnimation {
        running: history.visible
        onTriggered: trace.update()
    }
}
