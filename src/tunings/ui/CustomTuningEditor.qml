// The editor of the user's own tunings, over the tunings list: a name and
// six notes with their octaves, lowest string first, typed in the field or
// picked string by string on the wheels under it; each follows the other.
// What is wrong is said under the fields and nothing is stored until it is
// right. Enter stores, Escape closes without storing.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: editor

    required property CommonSettings screen
    // The tuning edited; -1 while a new one is made.
    property int index: -1
    property string error: ""

    signal closed

    NotesPicker {
        id: notes

        onTextChanged: notesField.text = text
    }

    function open(tuning) {
        index = tuning
        error = ""
        const from = tuning >= 0 ? tuning : editor.screen.tuning
        nameField.text = tuning >= 0 ? editor.screen.tuningNames[tuning] : ""
        notesField.text = editor.screen.typedNotes(from)
        visible = true
        nameField.forceActiveFocus()
        nameField.selectAll()
    }
    function close() {
        visible = false
        closed()
    }
    function store() {
        error = editor.screen.storeCustom(index, nameField.text, notes.text)
        if (error === "")
            close()
    }

    visible: false
    color: "#CC000000"

    // Keeps touches and the wheel off the list below.
    MouseArea {
        anchors.fill: parent
        onWheel: wheel => wheel.accepted = true
    }

    Keys.onPressed: event => {
        if (event.key === Qt.Key_Escape) {
            editor.close()
        } else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
            editor.store()
        } else {
            return
        }
        event.accepted = true
    }

    Rectangle {
        id: card

        anchors.centerIn: parent
        width: Math.min(parent.width - 24, 420)
        height: content.implicitHeight + 28
        radius: Theme.cardRadius
        color: Theme.panel
        border.color: Theme.separator

        Column {
            id: content

            x: 14
            y: 14
            width: parent.width - 28
            spacing: 8

            Text {
                text: editor.index >= 0 ? "Edit your tuning" : "New tuning"
                color: Theme.text
                font.bold: true
                font.pixelSize: 18
            }
            TextField {
                id: nameField
                objectName: "tuningName"
                width: parent.width
                placeholderText: "Name"
                color: Theme.text
                placeholderTextColor: Theme.textDim
                font.pixelSize: 15
                Accessible.name: "Tuning name"
                KeyNavigation.tab: notesField
                background: Rectangle {
                    radius: 6
                    color: Theme.panelLight
                    border.width: 2
                    border.color: nameField.activeFocus ? Theme.accent : Theme.separator
                }
            }
            TextField {
                id: notesField
                objectName: "tuningNotes"
                width: parent.width
                // Set from either side, so held in step by hand, not bound.
                onTextChanged: notes.text = text
                placeholderText: "D2 A2 D3 G3 A3 D4"
                color: Theme.text
                placeholderTextColor: Theme.textDim
                font.pixelSize: 15
                Accessible.name: "Notes, lowest string first"
                KeyNavigation.tab: wheels.count > 0 ? wheels.itemAt(0) : nameField
                background: Rectangle {
                    radius: 6
                    color: Theme.panelLight
                    border.width: 2
                    border.color: notesField.activeFocus ? Theme.accent : Theme.separator
                }
            }
            // The strings by number over their wheels, sixth first.
            Row {
                width: parent.width

                Repeater {
                    model: 6
                    delegate: Text {
                        required property int index

                        width: parent.width / 6
                        horizontalAlignment: Text.AlignHCenter
                        text: 6 - index
                        color: notes.known[index] ? Theme.textDim : Theme.danger
                        font.pixelSize: 12
                    }
                }
            }
            Item {
                width: parent.width
                height: strings.height

                // The band of the notes picked, behind the middle rows.
                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    width: parent.width
                    height: parent.height / 3
                    radius: 6
                    color: Theme.panelLight
                }
                Row {
                    id: strings

                    width: parent.width

                    Repeater {
                        id: wheels

                        // By count, so that a new spelling keeps the wheels.
                        model: 6
                        delegate: KeyWheel {
                            id: wheel

                            required property int index
                            readonly property bool known: notes.known[index]

                            objectName: "stringWheel" + (6 - index)
                            width: strings.width / 6
                            height: 84
                            wrap: false
                            clip: true
                            visibleItemCount: 3
                            model: notes.choices[index]
                            selectedRow: notes.rows[index]
                            rowPixelSize: 13
                            middlePixelSize: 16
                            middleColor: known ? Theme.text : Theme.textDim
                            Accessible.name: "String " + (6 - index)
                            // Round the six strings, then back to the name.
                            KeyNavigation.tab: index < 5 && wheels.count === 6
                                               ? wheels.itemAt(index + 1) : nameField
                            // Spelled afresh, the list goes back to its first row once
                            // the change is through; it is put straight back on the
                            // string's note rather than turned there through the others.
                            onModelChanged: refollow.restart()
                            onChosen: row => notes.pick(wheel.index, row)

                            Timer {
                                id: refollow
                                interval: 0
                                onTriggered: {
                                    wheel.currentIndex = wheel.selectedRow
                                    wheel.positionViewAtIndex(wheel.selectedRow, Tumbler.Center)
                                }
                            }
                        }
                    }
                }
            }
            Text {
                width: parent.width
                text: "Six notes with their octaves, lowest string first: type them, or "
                      + "turn each string's wheel."
                wrapMode: Text.WordWrap
                color: Theme.textDim
                font.pixelSize: 12
            }
            Text {
                objectName: "tuningError"
                width: parent.width
                visible: editor.error !== ""
                text: editor.error
                wrapMode: Text.WordWrap
                color: Theme.danger
                font.pixelSize: 13
            }
            Row {
                spacing: 8
                anchors.right: parent.right

                PillButton {
                    objectName: "deleteTuning"
                    visible: editor.index >= 0
                    text: "Delete"
                    Accessible.name: "Delete tuning"
                    onClicked: {
                        editor.screen.removeCustom(editor.index)
                        editor.close()
                    }
                }
                PillButton {
                    text: "Cancel"
                    onClicked: editor.close()
                }
                PillButton {
                    objectName: "saveTuning"
                    strong: true
                    text: "Save"
                    onClicked: editor.store()
                }
            }
        }
    }
}
