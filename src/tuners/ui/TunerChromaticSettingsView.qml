// The chromatic tuner's settings: the "Linear scale" and "All notes"
// switches, the four ways to the tunings, tapering functions, microphone
// sensitivity and orchestra tuning screens, each with its current value,
// then "Classic detection", with more than one capture device the input
// device, and the display (the needle or the strobe, and the pitch
// history). Everything shown comes from the TunerChromaticSettings object and
// every touch is forwarded to it. In a wide window the cards keep to a
// centred column.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: view

    required property TunerChromaticSettings screen

    color: Theme.background

    Flickable {
        id: flick

        anchors.fill: parent
        contentWidth: width
        contentHeight: content.y + content.height + 16
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        ScrollIndicator.vertical: ScrollIndicator {}

        Column {
            id: content

            x: (flick.width - width) / 2
            y: 0
            width: Math.min(flick.width - 24, Theme.columnWidth)

            Item {
                width: 1
                height: 12
            }

            Card {
                width: content.width

                SwitchRow {
                    objectName: "linearScaleRow"
                    switchName: "linearScaleSwitch"
                    title: "Linear scale"
                    first: true
                    isOn: view.screen.linearScale
                    onFlipped: view.screen.switcherLSAction()
                }
                SwitchRow {
                    objectName: "allNotesRow"
                    switchName: "allNotesSwitch"
                    title: "All notes"
                    last: true
                    isOn: view.screen.allNotes
                    onFlipped: view.screen.switcherANAction()
                }
            }

            Item {
                width: 1
                height: 12
            }

            Card {
                width: content.width

                Repeater {
                    model: view.screen.settingsNames

                    CardRow {
                        id: entry

                        required property string modelData
                        required property int index

                        objectName: "entryRow" + (index + 3)
                        title: modelData
                        first: index === 0
                        last: index === view.screen.settingsNames.length - 1
                        trailing: entryValue.implicitWidth + 20
                        onClicked: view.screen.selectRow(index + 3)

                        Text {
                            id: entryValue

                            objectName: "entryValue" + (entry.index + 3)
                            anchors.right: parent.right
                            anchors.rightMargin: 26
                            anchors.verticalCenter: parent.verticalCenter
                            text: view.screen.entryValues[entry.index] ?? ""
                            color: Theme.textDim
                            font.pixelSize: 14
                        }
                        Text {
                            anchors.right: parent.right
                            anchors.rightMargin: 12
                            anchors.verticalCenter: parent.verticalCenter
                            text: "\u203A"
                            color: Theme.textDim
                            font.pixelSize: 22
                        }
                    }
                }
            }

            SectionHeader {
                width: content.width
                text: "Detection"
            }

            Card {
                width: content.width

                SwitchRow {
                    objectName: "classicDetectionRow"
                    switchName: "classicDetectionSwitch"
                    title: "Classic detection"
                    first: true
                    last: true
                    isOn: view.screen.classicDetection
                    onFlipped: view.screen.toggleClassicDetection()
                }
            }

            SectionHeader {
                visible: view.screen.offersInputChoice
                width: content.width
                text: "Input device"
            }

            Card {
                visible: view.screen.offersInputChoice
                width: content.width

                Repeater {
                    model: view.screen.offersInputChoice ? view.screen.inputChoices : []

                    CardRow {
                        required property string modelData
                        required property int index

                        objectName: "inputRow" + index
                        title: modelData
                        marked: index === view.screen.inputChoice
                        first: index === 0
                        last: index === view.screen.inputChoices.length - 1
                        onClicked: view.screen.chooseInput(index)
                    }
                }
            }

            SectionHeader {
                width: content.width
                text: "Display"
            }

            Card {
                width: content.width

                Repeater {
                    model: ["Needle", "Strobe"]

                    CardRow {
                        required property string modelData
                        required property int index

                        objectName: "displayRow" + index
                        title: modelData
                        marked: (index === 1) === view.screen.strobeView
                        first: index === 0
                        onClicked: view.screen.chooseStrobeView(index === 1)
                    }
                }
                SwitchRow {
                    objectName: "pitchHistoryRow"
                    switchName: "pitchHistorySwitch"
                    title: "Pitch history"
                    last: true
                    isOn: view.screen.pitchHistory
                    onFlipped: view.screen.togglePitchHistory()
                }
            }
        }
    }
}
