// A tool's settings page: the tool's switch, and the way to the tunings
// list with the current tuning's name; below, the left-handed switch. Everything shown comes from the
// ToolSettings object and every touch is forwarded to it. In a wide window
// the card keeps to a centred column.
pragma ComponentBehavior: Bound

import QtQuick
import ZebTools

Rectangle {
    id: view

    required property ToolSettings screen

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

            SwitchRow {
                objectName: view.screen.switchName + "Row"
                switchName: view.screen.switchName + "Switch"
                title: view.screen.switchTitle
                first: true
                // Only the switch itself flips; the row leads nowhere.
                rowFlips: false
                isOn: view.screen.isOn
                onClicked: view.screen.selectRow(1)
                onFlipped: view.screen.switcherAction()
            }

            CapoRow {
                screen: view.screen
                visible: view.screen.hasCapo
                height: visible ? Theme.rowHeight : 0
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

        // Shared by the tools: flipped here, it is flipped for them all.
        Item {
            width: content.width
            height: 16
        }
        Card {
            width: content.width

            SwitchRow {
                objectName: "leftHandedRow"
                switchName: "leftHandedSwitch"
                title: view.screen.leftHandedTitle
                first: true
                last: true
                isOn: view.screen.leftHanded
                onFlipped: view.screen.flipLeftHanded()
            }
        }
    }
}
