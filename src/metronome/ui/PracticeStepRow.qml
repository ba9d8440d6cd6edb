pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// A practice value in a settings card: its name, then minus, the value and
// plus. The buttons and, once the row is clicked, the mouse wheel and the
// arrow keys (Page Up and Page Down by ten) step it through the screen. Till
// then the wheel scrolls the page, which must not change values it passes.
CardRow {
    id: row

    required property PracticeSettings practice
    required property int field

    readonly property int value: practice.values[field]

    objectName: "practiceRow" + field
    title: practice.title(field)
    trailing: stepper.width
    focusPolicy: Qt.StrongFocus
    onClicked: row.forceActiveFocus()

    WheelSteps {
        enabled: row.activeFocus
        onStepped: notches => row.practice.step(row.field, notches)
    }

    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_Up]: 1, [Qt.Key_Right]: 1, [Qt.Key_Plus]: 1,
            [Qt.Key_Down]: -1, [Qt.Key_Left]: -1, [Qt.Key_Minus]: -1,
            [Qt.Key_PageUp]: 10, [Qt.Key_PageDown]: -10
        }
        if (steps[event.key] === undefined)
            return
        row.practice.step(row.field, steps[event.key])
        event.accepted = true
    }

    component StepButton: Button {
        id: stepButton

        required property int delta

        objectName: "step" + (delta < 0 ? "Minus" : "Plus") + row.field
        width: 34
        height: 34
        focusPolicy: Qt.NoFocus
        autoRepeat: true
        onClicked: row.practice.step(row.field, delta)
        contentItem: Text {
            text: stepButton.delta < 0 ? "\u2212" : "+"
            color: stepButton.down ? Theme.background : Theme.accent
            font.pixelSize: 20
            font.bold: true
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle {
            radius: 17
            color: stepButton.down ? Theme.accent : "transparent"
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

        StepButton {
            delta: -1
        }
        Text {
            objectName: "practiceValue" + row.field
            anchors.verticalCenter: parent.verticalCenter
            width: 40
            horizontalAlignment: Text.AlignHCenter
            text: row.value
            color: row.activeFocus ? Theme.accent : Theme.text
            font.pixelSize: 17
            font.bold: true
        }
        StepButton {
            delta: 1
        }
    }
}
