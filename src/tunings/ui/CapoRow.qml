pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The capo in a tool's settings card: "Capo", then minus, the fret ("none",
// "3rd fret") and plus. The buttons and, once the row is clicked, the mouse
// wheel and the arrow keys (Home: no capo) move it through the screen, which
// keeps it between none and the 12th fret. Till then the wheel scrolls the
// page, which must not move the capo as it passes.
CardRow {
    id: row

    required property ToolSettings screen

    objectName: "capoRow"
    title: screen.capoTitle
    trailing: stepper.width
    focusPolicy: Qt.StrongFocus
    Accessible.name: screen.capoTitle + ": " + screen.capoText
    onClicked: row.forceActiveFocus()

    WheelSteps {
        enabled: row.activeFocus
        onStepped: notches => row.screen.stepCapo(notches)
    }

    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_Up]: 1, [Qt.Key_Right]: 1, [Qt.Key_Plus]: 1,
            [Qt.Key_Down]: -1, [Qt.Key_Left]: -1, [Qt.Key_Minus]: -1,
            [Qt.Key_Home]: -row.screen.capo
        }
        if (steps[event.key] === undefined)
            return
        row.screen.stepCapo(steps[event.key])
        event.accepted = true
    }

    component CapoButton: Button {
        id: capoButton

        required property int delta

        objectName: "capo" + (delta < 0 ? "Minus" : "Plus")
        width: 34
        height: 34
        focusPolicy: Qt.NoFocus
        enabled: delta < 0 ? row.screen.capo > 0 : row.screen.capo < 12
        opacity: enabled ? 1 : 0.35
        onClicked: row.screen.stepCapo(delta)
        contentItem: Text {
            text: capoButton.delta < 0 ? "\u2212" : "+"
            color: capoButton.down ? Theme.background : Theme.accent
            font.pixelSize: 20
            font.bold: true
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle {
            radius: 17
            color: capoButton.down ? Theme.accent : "transparent"
            border.color: Theme.accent
            border.width: 1
        }
    }

    Row {
        id: stepper

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        CapoButton {
            delta: -1
        }
        Text {
            objectName: "capoValue"
            anchors.verticalCenter: parent.verticalCenter
            width: 84
            horizontalAlignment: Text.AlignHCenter
            text: row.screen.capoText
            color: row.activeFocus ? Theme.accent : Theme.text
            font.pixelSize: 16
            font.bold: row.screen.capo > 0
        }
        CapoButton {
            delta: 1
        }
    }
}
