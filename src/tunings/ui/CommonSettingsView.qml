// The "Tunings" table: a header row with the current tuning, then one row per
// tuning with its compact label and a tick on the current one. Everything
// shown comes from the CommonSettings object; touches are forwarded to it.
// The shell shows the title and tells the screen when it appears and leaves.
// In a wide window the table keeps to a centred column.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: view

    required property CommonSettings screen

    color: Theme.background

    Item {
        id: column

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, Theme.columnWidth)
        height: parent.height

        Rectangle {
            id: header

            width: parent.width
            height: Theme.rowHeight + 8
            color: Theme.panel

            Text {
                anchors.left: parent.left
                anchors.leftMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                text: "Tuning"
                color: Theme.text
                font.bold: true
                font.pixelSize: 18
            }
            Text {
                objectName: "currentTuningHeader"
                anchors.right: parent.right
                anchors.rightMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                text: view.screen.headerText
                color: Theme.accent
                font.bold: true
                font.pixelSize: 16
            }
            Rectangle {
                anchors.bottom: parent.bottom
                width: parent.width
                height: 1
                color: Theme.accent
            }
        }

        ListView {
            anchors.top: header.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: view.screen.rows

            delegate: ItemDelegate {
                id: row

                required property var modelData
                required property int index

                width: ListView.view.width
                height: Theme.rowHeight
                onClicked: view.screen.selectRow(row.index + 1)

                background: Rectangle {
                    color: row.pressed ? Theme.panelLight : Theme.background
                    RowSeparator {
                        inset: 0
                    }
                }

                contentItem: Row {
                    spacing: 8

                    RowText {
                        width: parent.width - 2 * parent.spacing - 110 - 20
                        anchors.verticalCenter: parent.verticalCenter
                        text: row.modelData.name
                        marked: row.modelData.ticked
                        font.bold: true
                    }
                    Text {
                        width: 110
                        anchors.verticalCenter: parent.verticalCenter
                        horizontalAlignment: Text.AlignRight
                        text: row.modelData.label
                        color: Theme.textDim
                        font.bold: true
                        font.pixelSize: 14
                    }
                    CheckMark {
                        width: 20
                        anchors.verticalCenter: parent.verticalCenter
                        horizontalAlignment: Text.AlignHCenter
                        visible: row.modelData.ticked
                        font.pixelSize: 18
                    }
                }
            }
        }
    }
}
