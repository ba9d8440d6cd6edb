// The by-ear tuner's settings: the "Loop" switch, and the way to the
// tunings list with the current tuning's name. Everything shown comes from
// the TunerBrainSettings object and every touch is forwarded to it. In a
// wide window the card keeps to a centred column.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: view

    required property TunerBrainSettings screen

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
        }

        Card {
            width: content.width

            CardRow {
                objectName: "loopRow"
                title: view.screen.loopTitle
                first: true
                trailing: loopSwitch.width + 6
                onClicked: view.screen.selectRow(1)

                Switch {
                    id: loopSwitch

                    objectName: "loopSwitch"
                    anchors.right: parent.right
                    anchors.rightMargin: 10
                    anchors.verticalCenter: parent.verticalCenter
                    padding: 0
                    checked: view.screen.loopSound
                    onToggled: view.screen.switcherLoopAction()
                    indicator: Rectangle {
                        implicitWidth: 50
                        implicitHeight: 30
                        radius: 15
                        color: loopSwitch.checked ? Theme.accent : Theme.separator
                        Behavior on color { ColorAnimation { duration: 150 } }

                        Rectangle {
                            x: loopSwitch.checked ? parent.width - width - 2 : 2
                            y: 2
                            width: 26
                            height: 26
                            radius: 13
                            color: loopSwitch.down ? "#E0E0E0" : "#FFFFFF"
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
