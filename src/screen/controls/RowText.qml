import QtQuick
import ZebTools

// A row's title; the chosen row's is bold in the accent colour.
Text {
    property bool marked: false

    verticalAlignment: Text.AlignVCenter
    elide: Text.ElideRight
    textFormat: Text.PlainText
    color: marked ? Theme.accent : Theme.text
    font.pixelSize: 16
    font.bold: marked
}
