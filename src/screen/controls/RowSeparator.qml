import QtQuick
import ZebTools

// The hairline under a row; `inset` leaves the row's left margin free.
Rectangle {
    property real inset: 16

    anchors.bottom: parent ? parent.bottom : undefined
    x: inset
    width: (parent ? parent.width : 0) - inset
    height: 1
    color: Theme.separator
}
