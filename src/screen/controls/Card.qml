import QtQuick
import ZebTools

// A group of rows on a rounded card: CardRows stacked inside the border.
Rectangle {
    id: card

    default property alias rows: column.data

    function forceLayout() {
        column.forceLayout()
    }

    height: column.height + 2
    radius: Theme.cardRadius
    color: Theme.panel
    border.color: Theme.separator

    Column {
        id: column
        x: 1
        y: 1
        width: card.width - 2
    }
}
