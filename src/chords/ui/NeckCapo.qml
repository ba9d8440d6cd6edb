import QtQuick
import ZebTools

// A capo clamped across the strings at the nut of the neck, its fret
// written on it ("Capo 2"): the frets below count from it. Hidden without
// a capo.
Rectangle {
    id: capo

    required property ChordsLibrary screen

    objectName: "capoBar"
    visible: screen.capo > 0
    y: 0
    height: 18
    radius: 5
    color: "#2B2B2B"
    border.color: "#9A9A9A"
    border.width: 1

    Text {
        objectName: "capoLabel"
        anchors.centerIn: parent
        text: capo.screen.capoLabel
        color: "#E8E1D0"
        font.pixelSize: 11
        font.bold: true
    }
}
