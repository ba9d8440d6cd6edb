pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The chords tool: the chord's name (a touch opens the wheels), the
// Notes/Fingers switch and the settings button above the neck (NeckView)
// and the strip of small diagrams (DiagramStrip). Everything shown comes
// from the ChordsLibrary object; touches are forwarded to it.
//
// The Find button turns the finder on: the neck then takes taps, the
// header names the shape held and a list under the neck gives every name
// that fits, best first (FinderNames).
//
// On a phone the wheels (ChordPicker) drop down over the neck and hide
// when the strings are touched; a window wide enough keeps them open in a
// column on the left. The neck takes whatever height there is.
Rectangle {
    id: view

    required property ChordsLibrary screen

    readonly property bool wide: width >= 600
    readonly property bool finding: screen.finder.active
    readonly property real headerHeight: 62
    // The finder's names go under the neck on a phone, beside it when wide.
    readonly property real namesHeight: finding && !wide ? Math.min(150, Math.round(height * 0.3))
                                                         : 0
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

        // The chord's name; a touch, or Space from the keyboard, opens or
        // closes the wheels.
        Item {
            id: chordButton

            readonly property bool opensPicker: !view.wide && !view.finding

            objectName: "chordButton"
            x: 6
            width: finderButton.x - x - 4
            height: view.headerHeight - 16
            activeFocusOnTab: opensPicker
            Keys.onSpacePressed: view.screen.togglePicker()
            Keys.onReturnPressed: view.screen.togglePicker()
            Keys.onEnterPressed: view.screen.togglePicker()
            Accessible.role: Accessible.Button
            Accessible.name: "Chord " + nameText.text + (view.finding ? "" : view.screen.bassText)
            Accessible.onPressAction: if (opensPicker) view.screen.togglePicker()

            TapHandler {
                enabled: chordButton.opensPicker
                onTapped: view.screen.togglePicker()
            }
            FocusRing {
                shown: chordButton.activeFocus
                control: null
            }

            Column {
                anchors.verticalCenter: parent.verticalCenter

                Row {
                    spacing: 3

                    Text {
                        id: nameText

                        objectName: "chordName"
                        text: view.finding ? view.screen.finder.bestName : view.screen.chordName
                        color: Theme.accent
                        font.pixelSize: 24
                        font.bold: true
                    }
                    Text {
                        anchors.baseline: nameText.baseline
                        visible: !view.finding
                        text: view.screen.bassText
                        color: Theme.accent
                        font.pixelSize: 16
                        font.bold: true
                    }
                    Text {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: !view.wide && !view.finding
                        text: view.screen.pickerVisible ? "\u25B4" : "\u25BE"
                        color: Theme.textDim
                        font.pixelSize: 14
                    }
                }
                Text {
                    width: chordButton.width
                    elide: Text.ElideRight
                    text: view.screen.tuningName
                          + (view.screen.variationText !== "" && !view.finding
                             ? "  \u00B7  " + view.screen.variationText : "")
                    color: Theme.textDim
                    font.pixelSize: 11
                }
            }
        }

        // The chord's notes and formula, or what the finder holds.
        Text {
            objectName: "chordTones"
            x: 6
            y: chordButton.height
            width: instrument.width - 12
            height: 14
            elide: Text.ElideRight
            text: view.finding ? view.screen.finder.heldText
                               : (view.screen.shapeText !== "" ? view.screen.shapeText + "  \u00B7  " : "")
                                 + view.screen.chordNotes + "  \u00B7  " + view.screen.chordFormula
            color: Theme.text
            font.pixelSize: 11
        }

        Button {
            id: finderButton

            objectName: "finderButton"
            Accessible.name: "Name a shape"
            x: modeSwitch.x - width - 4
            anchors.verticalCenter: chordButton.verticalCenter
            width: 40
            height: 28
            focusPolicy: Qt.TabFocus
            onClicked: view.screen.finder.active = !view.screen.finder.active
            contentItem: Text {
                text: "Find"
                color: view.finding ? Theme.background : Theme.textDim
                font.pixelSize: 12
                font.bold: true
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
            background: RoundedBox {
                radius: 6
                color: view.finding ? Theme.accent : Theme.panel
                border.color: view.finding ? Theme.accent : Theme.separator
            }

            FocusRing {}
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
                    enabled: !view.finding
                    opacity: enabled ? 1 : 0.4
                    width: 54
                    height: 28
                    focusPolicy: Qt.TabFocus
                    text: modelData ? view.screen.notesTitle : view.screen.fingersTitle
                    Accessible.name: text.trim()
                    onClicked: view.screen.flag = modelData
                    contentItem: Text {
                        text: segment.text
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

                    FocusRing {}
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
            focusPolicy: Qt.TabFocus
            Accessible.name: "Settings"
            onClicked: view.screen.openSettings()
            contentItem: MetronomeGlyph {
                shape: "gear"
                color: settingsButton.down ? Theme.accent : Theme.textDim
            }
            background: Item {}

            FocusRing {}
        }

        NeckView {
            objectName: "neck"
            screen: view.screen
            y: view.headerHeight
            width: 257
            height: instrument.height - y - view.namesHeight
        }

        Rectangle {
            x: 257
            y: view.headerHeight
            width: 1
            height: instrument.height - y
            color: Theme.separator
            visible: !view.finding
        }

        DiagramStrip {
            screen: view.screen
            visible: !view.finding
            x: 258
            y: view.headerHeight
            width: instrument.width - x
            height: instrument.height - y
        }

    }

    FinderNames {
        finder: view.screen.finder
        framed: view.wide
        visible: view.finding
        x: view.wide ? Math.max(12, instrument.x - 16 - 340) : instrument.x
        y: view.wide ? 12 : view.height - height
        width: view.wide ? instrument.x - 16 - x : instrument.width
        height: view.wide ? Math.min(view.height - 24, 420) : view.namesHeight
    }

    ChordPicker {
        objectName: "chordPicker"
        screen: view.screen
        x: view.wide ? instrument.x - view.pickerWidth - 16 : instrument.x + 6
        y: view.wide ? 12 : view.headerHeight
        width: view.wide ? view.pickerWidth : instrument.width - 12
        height: view.wide ? Math.min(view.height - 24, 330) : 196
        // Put away while the finder names what the neck holds.
        visible: (view.wide || view.screen.pickerVisible) && !view.finding
    }
}
