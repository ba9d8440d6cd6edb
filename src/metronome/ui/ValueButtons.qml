pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The time signature (numerator over denominator, each opening its choice
// panel), the subdivision pattern and tap tempo, sharing the row equally.
// The mouse wheel over a value steps it without opening its panel. Tab
// reaches each button and Space works it; a click leaves the keys with the
// screen, where Space starts and T taps.
Row {
    id: values

    required property Metronome screen

    spacing: 8

    // Whole units: a fractional width would cut the edge of a layered background.
    readonly property real buttonWidth: Math.floor((width - 2 * spacing) / 3)

    Item {
        objectName: "timeSignatureButton"
        width: values.buttonWidth
        height: parent.height

        RoundedBox {
            anchors.fill: parent
            radius: 10
            color: Theme.panel
            border.color: values.screen.panel === Metronome.NumeratorPanel
                          || values.screen.panel === Metronome.DenominatorPanel
                          ? Theme.accent : Theme.separator
        }

        Column {
            anchors.fill: parent
            Repeater {
                model: [Metronome.NumeratorPanel, Metronome.DenominatorPanel]
                Button {
                    id: half
                    required property int modelData
                    required property int index
                    objectName: index === 0 ? "numeratorButton" : "denominatorButton"
                    width: parent.width
                    height: parent.height / 2
                    focusPolicy: Qt.TabFocus
                    Accessible.name: half.index === 0
                                     ? "Beats in a bar, " + values.screen.numerator
                                     : "Beat value, " + values.screen.denominator
                    onClicked: values.screen.openPanel(modelData)
                    WheelSteps {
                        onStepped: notches => values.screen.stepChoice(half.modelData, notches)
                    }
                    contentItem: Text {
                        text: half.index === 0 ? values.screen.numerator
                                               : values.screen.denominator
                        color: values.screen.panel === half.modelData ? Theme.accent : Theme.text
                        font.bold: true
                        font.pixelSize: 19
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                    }
                    background: RoundedBox {
                        radius: 10
                        color: half.down ? Theme.panelLight : "transparent"
                    }
                    padding: 0

                    FocusRing {}
                }
            }
        }
        Rectangle {
            anchors.centerIn: parent
            width: 26
            height: 2
            color: Theme.textDim
        }
    }

    Button {
        id: patternButton
        objectName: "patternButton"
        width: values.buttonWidth
        height: parent.height
        focusPolicy: Qt.TabFocus
        Accessible.name: "Subdivision"
        onClicked: values.screen.openPanel(Metronome.PatternPanel)
        padding: 6
        WheelSteps {
            onStepped: notches => values.screen.stepChoice(Metronome.PatternPanel, notches)
        }
        contentItem: PatternGlyph {
            pattern: values.screen.pattern
            color: values.screen.panel === Metronome.PatternPanel ? Theme.accent : Theme.text
        }
        background: RoundedBox {
            radius: 10
            color: patternButton.down ? Theme.panelLight : Theme.panel
            border.color: values.screen.panel === Metronome.PatternPanel ? Theme.accent
                                                                        : Theme.separator
        }

        FocusRing {}
    }

    Button {
        id: tapButton
        objectName: "tapButton"
        width: values.buttonWidth
        height: parent.height
        focusPolicy: Qt.TabFocus
        Accessible.name: "Tap tempo"
        onPressed: values.screen.tap()
        contentItem: Text {
            text: "TAP"
            color: tapButton.down ? Theme.accent : Theme.text
            font.bold: true
            font.pixelSize: 18
            font.letterSpacing: 2
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        background: RoundedBox {
            radius: 10
            color: tapButton.down ? Theme.panelLight : Theme.panel
            border.color: tapButton.down ? Theme.accent : Theme.separator
        }

        FocusRing {}
    }
}
