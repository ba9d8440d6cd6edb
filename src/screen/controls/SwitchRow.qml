import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// A settings row with an on/off switch at its right end, in the accent
// colour when on. A click anywhere on the row flips it as a click on the
// switch does: either way `flipped` asks the screen, and `isOn` shows
// what the screen holds. With `rowFlips` off only the switch flips it.
CardRow {
    id: row

    property bool isOn: false
    property bool rowFlips: true
    property alias switchName: toggle.objectName

    signal flipped

    // From the keyboard the row always flips, as its switch would.
    function activate() {
        flipped()
    }

    trailing: toggle.width + 6
    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: row.isOn
    onClicked: {
        if (row.rowFlips)
            row.flipped()
    }

    Switch {
        id: toggle

        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        padding: 0
        // The row takes the keyboard for it.
        focusPolicy: Qt.NoFocus
        checked: row.isOn
        // The switch flips itself on a click, which would cut it loose from
        // the screen's value: bind it again once the screen has been told.
        onToggled: {
            row.flipped()
            checked = Qt.binding(() => row.isOn)
        }
        indicator: Rectangle {
            implicitWidth: 50
            implicitHeight: 30
            radius: 15
            color: toggle.checked ? Theme.accent : Theme.separator
            Behavior on color { ColorAnimation { duration: 150 } }

            Rectangle {
                x: toggle.checked ? parent.width - width - 2 : 2
                y: 2
                width: 26
                height: 26
                radius: 13
                color: toggle.down ? "#E0E0E0" : "#FFFFFF"
                Behavior on x { NumberAnimation { duration: 150 } }
            }
        }
    }
}
