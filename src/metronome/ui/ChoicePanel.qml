pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The choice panel that slides over the tempo display: the numerators 1 to
// 16, the denominators 4 and 8 (the same panel in its second mode), or the
// six subdivision patterns, the current value shown active. It keeps
// showing its last mode while it slides away.
Item {
    id: panel

    required property Metronome screen
    // The mode on show; stays put while the panel closes.
    property int mode: Metronome.NumeratorPanel
    // The choices grow with a display taller than its 122 design units.
    readonly property real choiceScale: Math.max(1, Math.min(width / 300, height / 122, 1.5))

    RoundedBox {
        anchors.fill: parent
        color: Theme.panelLight
        radius: 14
        border.color: Theme.accent
        border.width: 1
    }

    Connections {
        target: panel.screen
        function onPanelChanged() {
            if (panel.screen.panel !== Metronome.NoPanel)
                panel.mode = panel.screen.panel
        }
    }

    component ChoiceButton: Button {
        id: choice

        property bool active: false

        focusPolicy: Qt.NoFocus
        opacity: enabled ? 1 : 0.28
        contentItem: Text {
            text: choice.text
            color: choice.active ? Theme.background : Theme.text
            font.bold: true
            font.pixelSize: 18
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        background: RoundedBox {
            radius: 8
            color: choice.active ? Theme.accent : (choice.down ? Theme.separator : Theme.panel)
            border.color: choice.active ? Theme.accent : Theme.separator
        }
    }

    Grid {
        objectName: "numeratorChoices"
        anchors.centerIn: parent
        scale: panel.choiceScale
        visible: panel.mode === Metronome.NumeratorPanel
        columns: 8
        spacing: 4

        Repeater {
            model: panel.screen.numeratorCount
            ChoiceButton {
                required property int index
                width: 32
                height: 46
                text: index + 1
                active: panel.screen.numerator === index + 1
                onClicked: panel.screen.chooseNumerator(index + 1)
            }
        }
    }

    Row {
        objectName: "denominatorChoices"
        anchors.centerIn: parent
        scale: panel.choiceScale
        visible: panel.mode === Metronome.DenominatorPanel
        spacing: 12

        Repeater {
            model: [{ value: 4, glyph: "\u2669", caption: "quarter-note beat" },
                    { value: 8, glyph: "\u266A", caption: "eighth-note beat" }]
            ChoiceButton {
                id: denominator
                required property var modelData
                width: 128
                height: 92
                active: panel.screen.denominator === modelData.value
                onClicked: panel.screen.chooseDenominator(modelData.value)
                contentItem: Column {
                    spacing: 2
                    Text {
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: denominator.modelData.value + "  " + denominator.modelData.glyph
                        color: denominator.active ? Theme.background : Theme.text
                        font.bold: true
                        font.pixelSize: 34
                    }
                    Text {
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: denominator.modelData.caption
                        color: denominator.active ? Theme.background : Theme.textDim
                        font.pixelSize: 11
                    }
                }
            }
        }
    }

    Grid {
        objectName: "patternChoices"
        anchors.centerIn: parent
        scale: panel.choiceScale
        visible: panel.mode === Metronome.PatternPanel
        columns: 3
        spacing: 6

        Repeater {
            model: panel.screen.patternOffered.length
            ChoiceButton {
                id: patternChoice
                required property int index
                readonly property int pattern: index + 1
                width: 88
                height: 48
                padding: 3
                enabled: panel.screen.patternOffered[index] === true
                active: panel.screen.pattern === pattern
                onClicked: panel.screen.choosePattern(pattern)
                contentItem: PatternGlyph {
                    pattern: patternChoice.pattern
                    color: patternChoice.active ? Theme.background : Theme.text
                }
            }
        }
    }
}
