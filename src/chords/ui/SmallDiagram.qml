pragma ComponentBehavior: Bound
import QtQuick
import ZebTools

// One fingering in the strip: four frets from `firstFret`, x and o over
// muted and open strings, a dot per fretted string, barres as bars, the
// first fret's number when it is not the nut, and "/E" under a shape with
// another note than the root in the bass. The drawing is 80 high and sits
// in the middle of the height given; the fret number and the caption are
// as large as the screen's body text, so that they read at a glance.
Item {
    id: diagram

    // A map of ChordsLibrary.diagrams.
    required property var shape
    property bool current: false
    // The capo's fret, 0 for none: drawn as a bar over the nut.
    property int capo: 0

    readonly property real gridLeft: 20
    readonly property real gridTop: Math.round((height - 80) / 2) + 18
    readonly property real spacing: 7.4
    readonly property real fretHeight: 11
    readonly property int firstFret: shape.firstFret
    readonly property int labelPixelSize: 14

    // Columns from the left, as the screen orders the strings (mirrored for
    // a left-handed player).
    function columnX(column) {
        return gridLeft + column * spacing
    }
    function fretY(fret) {
        return gridTop + (fret - firstFret + 0.5) * fretHeight
    }

    implicitWidth: 62
    implicitHeight: 84

    Rectangle {
        anchors.fill: parent
        anchors.margins: 2
        radius: 6
        color: diagram.current ? Theme.panelLight : "transparent"
        border.color: diagram.current ? Theme.accent : "transparent"
    }

    Text {
        objectName: "firstFretNumber"
        visible: diagram.firstFret > 1
        x: 0
        // Clear of a barre at that fret, which reaches 3 px past the string.
        width: diagram.gridLeft - 5
        y: diagram.gridTop + diagram.fretHeight / 2 - height / 2
        horizontalAlignment: Text.AlignRight
        text: diagram.firstFret
        color: Theme.text
        font.pixelSize: diagram.labelPixelSize
        font.bold: true
    }

    Repeater {
        model: 5

        Rectangle {
            required property int index
            x: diagram.gridLeft
            y: diagram.gridTop + index * diagram.fretHeight - (height - 1) / 2
            width: 5 * diagram.spacing + 1
            height: index === 0 && diagram.firstFret === 1 ? 3 : 1
            color: index === 0 && diagram.firstFret === 1 ? Theme.text : Theme.textDim
        }
    }
    Repeater {
        model: 6

        Rectangle {
            required property int index
            x: diagram.gridLeft + index * diagram.spacing
            y: diagram.gridTop
            width: 1
            height: 4 * diagram.fretHeight
            color: Theme.textDim
        }
    }
    Rectangle {
        objectName: "capoBar"
        visible: diagram.capo > 0 && diagram.firstFret === 1
        x: diagram.gridLeft - 3
        y: diagram.gridTop - 3
        width: 5 * diagram.spacing + 7
        height: 5
        radius: 2.5
        color: Theme.text
    }
    Repeater {
        model: diagram.shape.barres

        Rectangle {
            required property var modelData
            x: diagram.columnX(modelData.left) - 3
            y: diagram.fretY(modelData.fret) - 3
            width: diagram.columnX(modelData.right) - diagram.columnX(modelData.left) + 6
            height: 6
            radius: 3
            color: Theme.accent
        }
    }
    Repeater {
        model: diagram.shape.frets

        Item {
            id: cell

            required property int modelData
            required property int index
            readonly property real centre: diagram.columnX(index)

            Text {
                visible: cell.modelData <= 0
                x: cell.centre - width / 2
                y: diagram.gridTop - 2 - height
                width: 12
                horizontalAlignment: Text.AlignHCenter
                text: cell.modelData < 0 ? "\u00D7" : "\u25CB"
                color: Theme.textDim
                font.pixelSize: 11
            }
            Rectangle {
                visible: cell.modelData > 0
                x: cell.centre - 3
                y: diagram.fretY(cell.modelData) - 3
                width: 6
                height: 6
                radius: 3
                color: Theme.accent
            }
        }
    }

    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        y: diagram.gridTop + 4 * diagram.fretHeight + 2
        text: diagram.shape.caption
        color: Theme.accent
        font.pixelSize: diagram.labelPixelSize
        font.bold: true
    }
}
