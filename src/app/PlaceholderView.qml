import QtQuick
import ZebTools

// The page of a tool that has no view of its own yet: its title only.
Item {
    property string title

    Text {
        anchors.centerIn: parent
        text: parent.title
        color: Theme.textDim
        font.pixelSize: 22
        font.family: Theme.fontFamily
    }
}
