pragma ComponentBehavior: Bound
import QtQuick
import ZebTools

// The beats of the bar as large numbered marks, to be read from a music
// stand: the beat counted now is lit. An accented beat is ringed and lit in
// the accent colour, a normal one plain, a silent one hollow and struck
// (it still lights when counted). A tap on a mark cycles its beat Accented
// -> Normal -> Silent. Up to eight marks share a row; more take two rows.
// The marks fill the item's height and grow with it.
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
                readonly property string kind: marks.screen.beatKinds[index] ?? "N"
                readonly property bool downbeat: kind === "A"
                readonly property bool silent: kind === "S"

                objectName: "beatMark" + beat
                // From the keyboard: Tab reaches each mark, Space or Enter cycles it.
                activeFocusOnTab: true
                Keys.onSpacePressed: marks.screen.cycleBeat(beat)
                Keys.onReturnPressed: marks.screen.cycleBeat(beat)
                Keys.onEnterPressed: marks.screen.cycleBeat(beat)
                Accessible.role: Accessible.Button
                Accessible.name: "Beat " + beat + (downbeat ? ", accented" : silent ? ", silent" : "")
                                 + (lit ? ", counted" : "")
                Accessible.onPressAction: marks.screen.cycleBeat(beat)
                width: marks.markWidth
                height: marks.markHeight
                radius: Math.min(width, height) * 0.3
                color: lit ? (downbeat ? Theme.accent : silent ? Theme.textDim : Theme.text)
                           : (silent ? "transparent" : Theme.panelLight)
                border.color: downbeat ? Theme.accent : silent ? Theme.textDim : Theme.separator
                border.width: downbeat ? Math.max(2, height * 0.07) : silent ? 2 : 1

                TapHandler {
                    onTapped: marks.screen.cycleBeat(mark.beat)
                }

                // A silent beat: a slash across the hollow mark.
                Rectangle {
                    visible: mark.silent
                    anchors.centerIn: parent
                    width: Math.hypot(parent.width, parent.height) * 0.6
                    height: 2
                    rotation: -Math.atan2(parent.height, parent.width) * 180 / Math.PI
                    color: mark.lit ? Theme.background : Theme.textDim
                }

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

                FocusRing {
                    shown: mark.activeFocus
                    control: null
                }
            }
        }
    }
}
