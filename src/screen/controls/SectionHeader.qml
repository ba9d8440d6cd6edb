import QtQuick
import ZebTools

// The small upper-case caption above a card.
Text {
    height: 34
    leftPadding: 6
    verticalAlignment: Text.AlignBottom
    bottomPadding: 7
    color: Theme.textDim
    font.pixelSize: 12
    font.bold: true
    font.letterSpacing: 1
    font.capitalization: Font.AllUppercase
}
