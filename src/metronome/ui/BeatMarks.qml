pragma ComponentBehavior: Bound
import QtQuick
import ZebTools

// The beats of the bar as large numbered marks, to be read from a music
// stand: the beat sounding now is lit, the downbeat is ringed and lit in the
// accent colour. Up to eight marks share a row; more take two rows. The
// marks fill the item's height and grow with it.
Item {
    id: marks

    required property Metronome screen

    readonly property int count: screen.numerator
    readonly property int rows: count > 8 ? 2 : 1
    readonly property int columns: Math.ceil(count / rows)
    readonly property real gap: Math.max(3, Math.round(height * 0.08))
    readonly property real rowHeight: (height - (rows - 1) * gap) / rows
    readonly property real markWidth: Math.min((width - (columns - 1) * gap) / columns,
                                               rowHeight * 1.6)
    readonly property real markHeight: Math.min(rowHeight, markWidth)

    Grid {
        objectName: "beatMarks"
        anchors.centerIn: parent
        columns: marks.columns
        spacing: marks.gap

        Repeater {
            model: marks.count

            Rectangle {
                id: mark

                required property int index
                readonly property int beat: index + 1
                readonly property bool lit: marks.screen.currentBeat === beat
                readonly property bool downbeat: beat === 1

                objectName: "beatMark" + beat
                Accessible.role: Accessible.Indicator
                Accessible.name: "Beat " + beat + (lit ? ", sounding" : "")
                width: marks.markWidth
                height: marks.markHeight
                radius: Math.min(width, height) * 0.3
                color: lit ? (downbeat ? Theme.accent : Theme.text) : Theme.panelLight
                border.color: downbeat ? Theme.accent : Theme.separator
                border.width: downbeat ? Math.max(2, height * 0.07) : 1

                Text {
                    anchors.centerIn: parent
                    // A number too small to read is left out; the light says enough.
                    visible: font.pixelSize >= 11
                    text: mark.beat
                    color: mark.lit ? Theme.background
                                    : (mark.downbeat ? Theme.accent : Theme.textDim)
                    font.bold: true
                    font.pixelSize: Math.round(mark.height * 0.55)
                }
            }
        }
    }
}
