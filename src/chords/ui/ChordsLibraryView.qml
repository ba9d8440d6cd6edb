pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The chords tool: the chord's name (a touch opens the wheels), the
// Notes/Fingers switch and the settings button above the neck (NeckView)
// and the strip of small diagrams (DiagramStrip). Everything shown comes
// from the ChordsLibrary object; touches are forwarded to it.
//
// On a phone the wheels (ChordPicker) drop down over the neck and hide
// when the strings are touched; a window wide enough keeps them open in a
// column on the left. The neck takes whatever height there is.
Rectangle {
    id: view

    required property ChordsLibrary screen

    readonly property bool wide: width >= 600
    readonly property real headerHeight: 48
    readonly property real pickerWidth: 250
    // The neck and the strip keep their phone width.
    readonly property real instrumentWidth: 320
    readonly property real instrumentX: wide ? (width - pickerWidth - 16 - instrumentWidth) / 2
                                               + pickerWidth + 16
                                             : (width - instrumentWidth) / 2

    color: Theme.background

    Item {
        id: instrument

        x: view.instrumentX
        width: view.instrumentWidth
        height: view.height

        // The chord's name; a touch opens or closes the wheels.
        Item {
            id: chordButton

            objectName: "chordButton"
            x: 6
            width: 140
            height: view.headerHeight

            TapHandler {
                enabled: !view.wide
                onTapped: view.screen.togglePicker()
            }

            Column {
                anchors.verticalCenter: parent.verticalCenter

                Row {
                    spacing: 3

                    Text {
                        id: nameText

                        objectName: "chordName"
                        text: view.screen.chordName
                        color: Theme.accent
                        font.pixelSize: 24
                        font.bold: true
                    }
                    Text {
                        anchors.baseline: nameText.baseline
                        text: view.screen.bassText
                        color: Theme.accent
                        font.pixelSize: 16
                        font.bold: true
                    }
                    Text {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: !view.wide
                        text: view.screen.pickerVisible ? "\u25B4" : "\u25BE"
                        color: Theme.textDim
                        font.pixelSize: 14
                    }
                }
                Text {
                    width: chordButton.width
                    elide: Text.ElideRight
                    text: view.screen.tuningName
                          + (view.screen.variationText !== "" ? "  \u00B7  " + view.screen.variationText : "")
                    color: Theme.textDim
                    font.pixelSize: 11
                }
            }
        }

        Row {
            id: modeSwitch

            x: settingsButton.x - width - 4
            anchors.verticalCenter: chordButton.verticalCenter

            Repeater {
                model: [true, false]

                Button {
                    id: segment

                    required property bool modelData
                    required property int index
                    readonly property bool chosen: view.screen.flag === modelData

                    objectName: modelData ? "notesButton" : "fingersButton"
                    width: 62
                    height: 28
                    focusPolicy: Qt.NoFocus
                    onClicked: view.screen.flag = modelData
                    contentItem: Text {
                        text: segment.modelData ? view.screen.notesTitle : view.screen.fingersTitle
                        color: segment.chosen ? Theme.background : Theme.textDim
                        font.pixelSize: 12
                        font.bold: true
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                    }
                    background: RoundedBox {
                        radius: 6
                        color: segment.chosen ? Theme.accent : Theme.panel
                        border.color: segment.chosen ? Theme.accent : Theme.separator
                    }
                }
            }
        }

        Button {
            id: settingsButton

            objectName: "settingsButton"
            x: instrument.width - width - 2
            anchors.verticalCenter: chordButton.verticalCenter
            width: 40
            height: 40
            padding: 9
            focusPolicy: Qt.NoFocus
            onClicked: view.screen.openSettings()
            contentItem: MetronomeGlyph {
                shape: "gear"
                color: settingsButton.down ? Theme.accent : Theme.textDim
            }
            background: Item {}
        }

        NeckView {
            objectName: "neck"
            screen: view.screen
            y: view.headerHeight
            width: 257
            height: instrument.height - y
        }

        Rectangle {
            x: 257
            y: view.headerHeight
            width: 1
            height: instrument.height - y
            color: Theme.separator
        }

        DiagramStrip {
            screen: view.screen
            x: 258
            y: view.headerHeight
            width: instrument.width - x
            height: instrument.height - y
        }
    }

    ChordPicker {
        objectName: "chordPicker"
        screen: view.screen
        x: view.wide ? instrument.x - view.pickerWidth - 16 : instrument.x + 6
        y: view.wide ? 12 : view.headerHeight
        width: view.wide ? view.pickerWidth : instrument.width - 12
        height: view.wide ? Math.min(view.height - 24, 330) : 196
        visible: view.wide || view.screen.pickerVisible
    }
}
