import QtQuick
import ZebTools

// The page of a screen that has no view of its own yet: its title only.
Item {
    id: view

    required property PlaceholderScreen screen

    Text {
        anchors.centerIn: parent
        text: view.screen.title
        color: Theme.textDim
        font.pixelSize: 22
    }
}
