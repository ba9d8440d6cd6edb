// The "Tunings" list: a header with the current tuning, a filter field, then
// one row per tuning (its name, and its notes on a line of their own) with a
// tick on the current one; the user's own tunings carry a "yours" tag and
// open in the editor from their pencil. Everything shown comes from the
// CommonSettings object; touches and keys are forwarded to it. The filter
// field keeps the keyboard: typing filters, the arrows, Page Up and Down,
// Home and End move through the rows, Enter picks, Escape clears the filter
// and then goes back. In a wide window the list keeps to a centred column.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: view

    required property CommonSettings screen

    // Brings the current tuning into view and onto the keyboard's row.
    function showCurrent() {
        list.currentIndex = Math.max(0, view.screen.currentRow)
        list.positionViewAtIndex(list.currentIndex, ListView.Contain)
    }
    function move(rows) {
        if (list.count === 0)
            return
        list.currentIndex = Math.max(0, Math.min(list.count - 1, list.currentIndex + rows))
        list.positionViewAtIndex(list.currentIndex, ListView.Contain)
    }
    function pick(row) {
        const rows = view.screen.rows
        if (row >= 0 && row < rows.length)
            view.screen.selectRow(rows[row].index + 1)
    }

    color: Theme.background
    onVisibleChanged: if (visible) filterField.forceActiveFocus()
    Component.onCompleted: {
        filterField.forceActiveFocus()
        showCurrent()
    }

    Connections {
        target: view.screen
        function onReloaded() {
            // Once the rows of a new filter are drawn.
            placing.restart()
        }
    }

    Timer {
        id: placing
        interval: 0
        onTriggered: view.showCurrent()
    }

    Item {
        id: column

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, Theme.columnWidth)
        height: parent.height

        Rectangle {
            id: header

            width: parent.width
            height: Theme.rowHeight
            color: Theme.panel

            Text {
                id: caption
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
                anchors.left: caption.right
                anchors.leftMargin: 12
                anchors.right: parent.right
                anchors.rightMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                horizontalAlignment: Text.AlignRight
                elide: Text.ElideRight
                text: view.screen.headerText
                color: Theme.accent
                font.bold: true
                font.pixelSize: 16
            }
        }

        Row {
            id: tools

            anchors.top: header.bottom
            anchors.topMargin: 6
            x: 8
            width: parent.width - 16
            spacing: 6

            TextField {
                id: filterField

                objectName: "tuningsFilter"
                width: parent.width - newButton.implicitWidth - parent.spacing
                height: 36
                placeholderText: "Filter: name or notes"
                text: view.screen.filter
                color: Theme.text
                placeholderTextColor: Theme.textDim
                font.pixelSize: 15
                Accessible.name: "Filter tunings"
                onTextEdited: view.screen.filter = text
                background: Rectangle {
                    radius: 6
                    color: Theme.panelLight
                    border.width: 2
                    border.color: filterField.activeFocus ? Theme.accent : Theme.separator
                }
                Keys.onPressed: event => {
                    const moves = {
                        [Qt.Key_Up]: -1,
                        [Qt.Key_Down]: 1,
                        [Qt.Key_PageUp]: -list.pageRows,
                        [Qt.Key_PageDown]: list.pageRows,
                        [Qt.Key_Home]: -list.count,
                        [Qt.Key_End]: list.count
                    }
                    if (moves[event.key] !== undefined) {
                        view.move(moves[event.key])
                    } else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
                        view.pick(list.currentIndex)
                    } else if (event.key === Qt.Key_Escape && text.length > 0) {
                        view.screen.filter = ""
                    } else {
                        return
                    }
                    event.accepted = true
                }
            }
            PillButton {
                id: newButton

                objectName: "newTuningButton"
                width: implicitWidth
                height: 36
                text: "+ New"
                Accessible.name: "New tuning"
                onClicked: editor.open(-1)
            }
        }

        ListView {
            id: list

            readonly property int pageRows: Math.max(1, Math.floor(height / Theme.rowHeight) - 1)

            objectName: "tuningsList"
            anchors.top: tools.bottom
            anchors.topMargin: 6
            anchors.bottom: parent.bottom
            width: parent.width
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: view.screen.rows
            highlightFollowsCurrentItem: false
            Accessible.role: Accessible.List
            Accessible.name: "Tunings"

            delegate: ItemDelegate {
                id: row

                required property var modelData
                required property int index
                // Names are compared, as the tick has always been given.
                readonly property bool ticked: modelData.name === view.screen.currentTuning

                width: ListView.view.width
                height: Theme.rowHeight
                focusPolicy: Qt.NoFocus
                Accessible.name: modelData.name + ", " + modelData.notes
                onClicked: {
                    list.currentIndex = row.index
                    view.pick(row.index)
                }

                background: Rectangle {
                    color: row.pressed ? Theme.panelLight : Theme.background
                    border.width: 2
                    border.color: row.ListView.isCurrentItem && filterField.activeFocus
                                  ? Theme.accent : "transparent"
                    RowSeparator {
                        inset: 0
                    }
                }

                topPadding: 0
                bottomPadding: 0
                contentItem: Item {
                    Column {
                        anchors.left: parent.left
                        anchors.right: parent.right
                        // The tag, the pencil and the tick stay clear of the text.
                        anchors.rightMargin: row.modelData.custom ? 100 : 28
                        anchors.verticalCenter: parent.verticalCenter

                        RowText {
                            width: parent.width
                            text: row.modelData.name
                            marked: row.ticked
                            font.bold: true
                            font.pixelSize: 15
                        }
                        Text {
                            width: parent.width
                            text: row.modelData.notes
                            elide: Text.ElideRight
                            color: Theme.textDim
                            font.bold: true
                            font.pixelSize: 13
                        }
                    }
                    Row {
                        anchors.right: parent.right
                        anchors.verticalCenter: parent.verticalCenter
                        spacing: 6

                        Text {
                            anchors.verticalCenter: parent.verticalCenter
                            visible: row.modelData.custom
                            text: "yours"
                            color: Theme.accent
                            font.pixelSize: 12
                        }
                        ToolButton {
                            objectName: "editTuning"
                            width: 32
                            visible: row.modelData.custom
                            text: "\u270E"
                            focusPolicy: Qt.NoFocus
                            palette.buttonText: Theme.accent
                            background: Item {}
                            Accessible.name: "Edit " + row.modelData.name
                            onClicked: editor.open(row.modelData.index)
                        }
                        CheckMark {
                            anchors.verticalCenter: parent.verticalCenter
                            width: 20
                            horizontalAlignment: Text.AlignHCenter
                            opacity: row.ticked ? 1 : 0
                            font.pixelSize: 18
                        }
                    }
                }
            }
        }
    }

    CustomTuningEditor {
        id: editor

        screen: view.screen
        anchors.fill: parent
        onClosed: filterField.forceActiveFocus()
    }
}
