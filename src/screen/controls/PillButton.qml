import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// A rounded text button of the calibration screens; `strong` fills it with
// the accent colour (OK, Start).
Button {
    id: pill

    property bool strong: false

    implicitHeight: 40
    // Tab reaches it for the keyboard; a click leaves the keys with the
    // screen, where Space and the digits mean something.
    focusPolicy: Qt.TabFocus
    contentItem: Text {
        text: pill.text
        color: pill.strong ? Theme.background : Theme.text
        font.bold: true
        font.pixelSize: 16
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    FocusRing { radius: height / 2 + 2 }
    background: RoundedBox {
        radius: height / 2
        color: pill.strong ? (pill.down ? Qt.darker(Theme.accent, 1.2) : Theme.accent)
                           : (pill.down ? Theme.panelLight : Theme.panel)
        border.color: pill.strong ? Theme.accent : Theme.separator
    }
}
