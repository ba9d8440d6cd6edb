// The base frequency calibration: the note (a wheel opens over the screen to
// pick it), its reference and adjusted frequencies with the distance in
// cents, the microphone measurement, the four steps, and Cancel / OK.
// Everything shown comes from the OrchestraControl object and every touch is
// forwarded to it. In a wide window the controls keep to a centred column.
pragma ComponentBehavior: Bound

import QtQuick
import ZebTools

Rectangle {
    id: view

    required property OrchestraControl screen

    color: Theme.background

    component Caption: Text {
        width: parent ? parent.width : 0
        leftPadding: 6
        wrapMode: Text.WordWrap
        color: Theme.textDim
        font.pixelSize: 12
        font.bold: true
    }

    component ValueRow: Item {
        id: valueRow

        property string label
        property string value
        property bool last: false

        width: parent ? parent.width : 0
        height: 33

        Text {
            anchors.left: parent.left
            anchors.leftMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            text: valueRow.label
            color: Theme.text
            font.pixelSize: 15
        }
        Text {
            anchors.right: parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            text: valueRow.value
            color: Theme.accent
            font.bold: true
            font.pixelSize: 17
        }
        RowSeparator {
            visible: !valueRow.last
        }
    }

    Flickable {
        id: flick

        anchors.fill: parent
        contentWidth: width
        contentHeight: content.y + content.height + 12
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Column {
            id: content

            x: (flick.width - width) / 2
            y: 10
            width: Math.min(flick.width - 24, Theme.columnWidth)
            spacing: 7

            Card {
                width: content.width

                CardRow {
                    objectName: "noteRow"
                    title: "Note"
                    first: true
                    last: true
                    trailing: 44
                    onClicked: view.screen.showNoteIndexPicker()

                    Text {
                        objectName: "noteName"
                        anchors.right: parent.right
                        anchors.rightMargin: 30
                        anchors.verticalCenter: parent.verticalCenter
                        text: view.screen.noteNames[view.screen.noteIndex]
                        color: Theme.accent
                        font.bold: true
                        font.pixelSize: 18
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

            Card {
                width: content.width

                ValueRow {
                    objectName: "defaultValue"
                    label: "Default value (Hz):"
                    value: view.screen.defaultValueText
                }
                ValueRow {
                    objectName: "customValue"
                    label: "Adjusted value (Hz):"
                    value: view.screen.customValueText
                }
                ValueRow {
                    objectName: "centsValue"
                    label: "Distance (cents)"
                    value: view.screen.centsValueText
                    last: true
                }
            }

            Caption {
                text: "Record/tune new value using the microphone"
            }
            PillButton {
                objectName: view.screen.measuring ? "stopButton" : "startButton"
                width: content.width
                strong: !view.screen.measuring
                text: view.screen.measuring ? "Stop" : "Start"
                onClicked: view.screen.measuring ? view.screen.stopMeasuring()
                                                 : view.screen.startMeasuring()
            }

            Caption {
                text: "Adjust new value manually"
            }
            Row {
                id: steps

                width: content.width
                spacing: 8

                Repeater {
                    model: [{ "tag": -10, "text": "\u22121" }, { "tag": -1, "text": "\u22120.1" },
                            { "tag": 1, "text": "+0.1" }, { "tag": 10, "text": "+1" }]

                    PillButton {
                        required property var modelData

                        objectName: "step" + modelData.tag
                        width: Math.floor((steps.width - 3 * steps.spacing) / 4)
                        text: modelData.text
                        onClicked: view.screen.manualIncrementor(modelData.tag)
                    }
                }
            }

            Row {
                id: answers

                width: content.width
                spacing: 12

                PillButton {
                    objectName: "cancelButton"
                    width: Math.floor((answers.width - answers.spacing) / 2)
                    text: "Cancel"
                    onClicked: view.screen.cancel()
                }
                PillButton {
                    objectName: "okButton"
                    width: Math.floor((answers.width - answers.spacing) / 2)
                    strong: true
                    text: "OK"
                    onClicked: view.screen.ok()
                }
            }
        }
    }

    // The note wheel, over everything, sliding up from the bottom edge over
    // 0.25 s as it opens; a touch beside it closes it.
    Rectangle {
        objectName: "notePicker"
        anchors.fill: parent
        visible: view.screen.pickerOpen
        color: "#99000000"
        clip: true
        onVisibleChanged: {
            if (visible)
                slideIn.restart()
        }

        TapHandler {
            onTapped: view.screen.hideNoteIndexPicker()
        }

        NumberAnimation {
            id: slideIn

            target: wheelPanel
            property: "slideOffset"
            from: wheelPanel.height
            to: 0
            duration: 250
            easing.type: Easing.OutCubic
        }

        Rectangle {
            id: wheelPanel

            // How far below its place the wheel still is.
            property real slideOffset: 0

            objectName: "notePickerPanel"
            transform: Translate { y: wheelPanel.slideOffset }
            anchors.bottom: parent.bottom
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, Theme.columnWidth)
            height: 200
            color: Theme.panel
            border.color: Theme.separator

            TapHandler {}

            KeyWheel {
                id: wheel

                objectName: "noteWheel"
                anchors.fill: parent
                anchors.margins: 8
                model: view.screen.noteNames
                visibleItemCount: 5
                selectedRow: view.screen.noteIndex
                rowPixelSize: 22
                middlePixelSize: 22
                rowColor: Theme.text
                middleColor: Theme.accent
                Accessible.name: "Note"
                onChosen: row => view.screen.pickNote(row)
                // Open, it takes the keys; Escape, Enter or Return close it.
                onVisibleChanged: if (visible) forceActiveFocus()
                Keys.onEscapePressed: view.screen.hideNoteIndexPicker()
                Keys.onReturnPressed: view.screen.hideNoteIndexPicker()
                Keys.onEnterPressed: view.screen.hideNoteIndexPicker()
            }
        }
    }

    MicrophoneAlert {
        shown: view.screen.alertShown
        title: view.screen.alertTitle
        message: view.screen.alertMessage
        onDismissed: view.screen.dismissAlert()
    }
}
