import QtQuick
import ZebTools

// A card row's background, darker while pressed. The first and last rows of
// a card follow the card's rounded corners and keep their other corners
// square.
Rectangle {
    id: background

    required property bool down
    property bool first: false
    property bool last: false
    property color base: "transparent"

    color: down ? Theme.panelLight : base
    radius: first || last ? Theme.cardRadius - 1 : 0

    Rectangle {
        visible: !background.first
        width: background.width
        height: background.radius
        color: background.color
    }
    Rectangle {
        visible: !background.last
        y: background.height - height
        width: background.width
        height: background.radius
        color: background.color
    }
}
