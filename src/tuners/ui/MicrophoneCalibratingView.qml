// The microphone sensitivity: the live input level beside the threshold
// slider, the measurement's Start / Stop, and Cancel / OK. Everything shown
// comes from the MicrophoneCalibrating object and every touch is forwarded
// to it. In a wide window the controls keep to a centred column.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: view

    required property MicrophoneCalibrating screen

    color: Theme.background

    // A card holding one control, placed freely inside it.
    component Panel: RoundedBox {
        width: content.width
        radius: Theme.cardRadius
        color: Theme.panel
        border.color: Theme.separator
    }

    Column {
        id: content

        x: (view.width - width) / 2
        y: 0
        width: Math.min(view.width - 24, Theme.columnWidth)
        spacing: 8

        SectionHeader {
            width: content.width
            text: "Current volume level"
        }
        Panel {
            height: 44

            LevelMeter {
                objectName: "levelBar"
                anchors.centerIn: parent
                width: Math.round(parent.width - 32)
                height: 10
                level: view.screen.level
                mark: view.screen.thresholdMark
            }
        }

        SectionHeader {
            width: content.width
            text: "Current threshold"
        }
        Panel {
            height: 56

            Slider {
                id: slider

                objectName: "thresholdSlider"
                anchors.left: parent.left
                anchors.leftMargin: 12
                anchors.right: percent.left
                anchors.rightMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                from: 0
                to: 1
                value: view.screen.sliderValue
                onMoved: view.screen.sliderValue = value
                background: Rectangle {
                    x: slider.leftPadding
                    y: slider.topPadding + slider.availableHeight / 2 - height / 2
                    width: slider.availableWidth
                    height: 4
                    radius: 2
                    color: Theme.separator

                    Rectangle {
                        width: slider.visualPosition * parent.width
                        height: parent.height
                        radius: 2
                        color: Theme.accent
                    }
                }
                handle: Rectangle {
                    x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
                    y: slider.topPadding + slider.availableHeight / 2 - height / 2
                    width: 26
                    height: 26
                    radius: 13
                    color: slider.pressed ? "#E0E0E0" : "#FFFFFF"
                }
            }
            Text {
                id: percent

                objectName: "thresholdPercent"
                anchors.right: parent.right
                anchors.rightMargin: 14
                anchors.verticalCenter: parent.verticalCenter
                width: 44
                horizontalAlignment: Text.AlignRight
                text: Math.floor(view.screen.sliderValue * 100 + 1e-6) + " %"
                color: Theme.accent
                font.bold: true
                font.pixelSize: 16
            }
        }

        Item {
            width: 1
            height: 6
        }
        PillButton {
            objectName: view.screen.measuring ? "stopButton" : "startButton"
            width: content.width
            strong: !view.screen.measuring
            text: view.screen.measuring ? "Stop" : "Start"
            onClicked: view.screen.measuring ? view.screen.stopMeasuring()
                                             : view.screen.startMeasuring()
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

    MicrophoneAlert {
        shown: view.screen.alertShown
        title: view.screen.alertTitle
        message: view.screen.alertMessage
        onDismissed: view.screen.dismissAlert()
    }
}
