import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The on/off switch at the right end of a settings row, in the accent
// colour when on.
Switch {
    id: toggle

    anchors.right: parent.right
    anchors.rightMargin: 10
    anchors.verticalCenter: parent.verticalCenter
    padding: 0
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
