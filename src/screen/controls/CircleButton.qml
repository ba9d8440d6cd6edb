import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// A round button with a large symbol (the metronome's minus and plus).
Button {
    id: round

    property color fill: Theme.panel
    property color ink: Theme.text

    // Tab reaches it for the keyboard; a click leaves the keys with the
    // screen, where Space and the digits mean something.
    focusPolicy: Qt.TabFocus
    contentItem: Text {
        text: round.text
        color: round.ink
        font.bold: true
        font.pixelSize: 30
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    FocusRing { radius: height / 2 + 2 }
    background: RoundedBox {
        radius: height / 2
        color: round.down ? Theme.panelLight : round.fill
        border.color: round.down ? Theme.accent : Theme.separator
    }
}
