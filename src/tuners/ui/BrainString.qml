pragma ComponentBehavior: Bound
import QtQuick
import ZebTools

// One string of the by-ear tuner, drawn upright in its own column: the
// string from the nut down to its note, as thick as its gauge (the wound
// strings bronze, the plain ones steel), the note's name in a disc, and the
// highlight over both: lit while the tone plays, fading over the tone's
// time when it plays once, held with a loop mark while it repeats. The
// whole column is the string's button.
Item {
    id: string

    objectName: "string" + number

    required property TunerBrain screen
    // 1 (highest) to 6.
    required property int number
    // The string's line and the disc's size, in window units.
    required property real thickness
    required property real disc
    required property real nutY

    readonly property int light: string.screen.highlights[number - 1]
    readonly property int fades: string.screen.fadeCounts[number - 1]
    readonly property bool wound: number >= 4
    readonly property string noteName: string.screen.noteNames[string.number - 1] ?? ""

    // From the keyboard: Tab reaches each string, Space or Enter plays it.
    activeFocusOnTab: true
    Keys.onSpacePressed: string.screen.pressed(string.number)
    Keys.onReturnPressed: string.screen.pressed(string.number)
    Keys.onEnterPressed: string.screen.pressed(string.number)
    Accessible.role: Accessible.Button
    Accessible.name: "String " + number + ", " + noteName
    Accessible.onPressAction: string.screen.pressed(string.number)

    function showLight() {
        if (light === TunerBrain.Fading) {
            fade.restart()
        } else {
            fade.stop()
            glow.opacity = light === TunerBrain.Held ? 1 : 0
        }
    }
    onLightChanged: showLight()
    onFadesChanged: showLight()

    NumberAnimation {
        id: fade
        target: glow
        property: "opacity"
        from: 1
        to: 0
        duration: string.screen.fadeMilliseconds
        easing.type: Easing.InQuad
    }

    // The string itself: solid, so that the thinnest stays visible however
    // the window is scaled.
    Rectangle {
        id: line
        x: Math.round((string.width - width) / 2)
        y: string.nutY
        width: string.thickness
        height: discItem.y - y + string.disc / 2
        color: string.wound ? "#C9AE7E" : "#E4E4E4"
    }

    Item {
        id: glow
        objectName: "glow" + string.number
        anchors.fill: parent
        opacity: 0

        Rectangle {
            x: (string.width - width) / 2
            y: string.nutY
            width: string.thickness + 8
            height: line.height
            radius: width / 2
            color: Theme.accent
            opacity: 0.35
        }
        Rectangle {
            x: (string.width - width) / 2
            y: string.nutY
            width: string.thickness + 2
            height: line.height
            radius: width / 2
            color: Theme.accent
        }
    }

    Rectangle {
        id: discItem
        objectName: "note" + string.number
        x: (string.width - width) / 2
        y: string.height - height - loopMark.height - 6
        width: string.disc
        height: string.disc
        radius: width / 2
        color: Theme.panelLight
        border.color: Theme.separator
        border.width: 1

        Rectangle {
            anchors.fill: parent
            radius: width / 2
            color: Theme.accent
            opacity: glow.opacity
        }
        Text {
            anchors.centerIn: parent
            text: string.noteName
            color: glow.opacity > 0.5 ? Theme.background : Theme.text
            font.pixelSize: Math.round(string.disc * 0.42)
            font.bold: true
        }
    }

    Text {
        id: loopMark
        objectName: "loopMark" + string.number
        anchors.horizontalCenter: parent.horizontalCenter
        y: string.height - height
        text: "\u21BB loop"
        color: Theme.accent
        font.pixelSize: Math.max(11, Math.round(string.disc * 0.28))
        font.bold: true
        opacity: string.light === TunerBrain.Held ? 1 : 0
    }

    FocusRing {
        shown: string.activeFocus
        control: null
    }

    TapHandler {
        gesturePolicy: TapHandler.WithinBounds
        onPressedChanged: if (pressed) string.screen.pressed(string.number)
    }
}
