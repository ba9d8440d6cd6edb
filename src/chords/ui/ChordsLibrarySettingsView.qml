// The chords settings: the "Show notes" switch, and the way to the tunings
// list with the current tuning's name. Everything shown comes from the
// ChordsLibrarySettings object and every touch is forwarded to it. In a
// wide window the card keeps to a centred column.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: view

    required property ChordsLibrarySettings screen

    color: Theme.background

    Column {
        id: content

        x: (view.width - width) / 2
        y: 0
        width: Math.min(view.width - 24, Theme.columnWidth)

        SectionHeader {
            objectName: "titleRow"
            width: content.width
            text: view.screen.titleRow

            TapHandler {
                onTapped: view.screen.selectRow(0)
            }
        }

        Card {
            width: content.width

            CardRow {
                objectName: "showNotesRow"
                title: view.screen.showNotesTitle
                first: true
                trailing: notesSwitch.width + 6
                onClicked: view.screen.selectRow(1)

                Switch {
                    id: notesSwitch

                    objectName: "showNotesSwitch"
                    anchors.right: parent.right
                    anchors.rightMargin: 10
                    anchors.verticalCenter: parent.verticalCenter
                    padding: 0
                    checked: view.screen.isShowNotes
                    onToggled: view.screen.switcherNotesAction()
                    indicator: Rectangle {
                        implicitWidth: 50
                        implicitHeight: 30
                        radius: 15
                        color: notesSwitch.checked ? Theme.accent : Theme.separator
                        Behavior on color { ColorAnimation { duration: 150 } }

                        Rectangle {
                            x: notesSwitch.checked ? parent.width - width - 2 : 2
                            y: 2
                            width: 26
                            height: 26
                            radius: 13
                            color: notesSwitch.down ? "#E0E0E0" : "#FFFFFF"
                            Behavior on x { NumberAnimation { duration: 150 } }
                        }
                    }
                }
            }

            CardRow {
                objectName: "tuningsRow"
                title: view.screen.tuningsTitle
                last: true
                trailing: tuningName.implicitWidth + 26
                onClicked: view.screen.selectRow(2)

                Text {
                    id: tuningName

                    objectName: "tuningName"
                    anchors.right: parent.right
                    anchors.rightMargin: 30
                    anchors.verticalCenter: parent.verticalCenter
                    text: view.screen.nameOfTuning
                    color: Theme.textDim
                    font.pixelSize: 15
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
}
