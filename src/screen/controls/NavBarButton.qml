import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// A text button of the navigation bar, in the accent colour.
Button {
    id: button

    flat: true
    // Tab reaches it for the keyboard; a click leaves the keys with the
    // screen, where Space and the digits mean something.
    focusPolicy: Qt.TabFocus
    contentItem: Text {
        text: button.text
        color: button.down ? Theme.textDim : Theme.accent
        font.pixelSize: 15
        verticalAlignment: Text.AlignVCenter
    }
    background: Item {}

    FocusRing {}
}
