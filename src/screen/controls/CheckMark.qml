import QtQuick
import ZebTools

// The tick of the chosen row.
Text {
    text: "\u2713"
    color: Theme.accent
    font.pixelSize: 19
    font.bold: true
}
