// The metronome settings table: the first-beat accent switch, the five sound
// packs with a tick on the selected one, and the custom presets (PresetRow)
// with a tick on the one matching the metronome's settings. Everything
// shown comes from the MetronomeSettings object and every touch is
// forwarded to it; the add-preset dialog is PresetDialogs. The shell draws
// the navigation bar. In a wide window the cards keep to a centred column.
//
// The whole table is one ListView over the presets, the other cards being
// its header: only the preset rows on screen exist, however many presets
// there are.
// Not "pragma ComponentBehavior: Bound": Qt 6.4 cannot create a bound
// component as a ListView's header.

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: view

    required property MetronomeSettings screen
    readonly property real columnWidth: Math.min(width - 24, Theme.columnWidth)

    color: Theme.background

    ListView {
        id: list

        objectName: "settingsList"
        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: view.screen.presets
        ScrollIndicator.vertical: ScrollIndicator {}

        header: Column {
            id: tableTop

            // Where the presets card begins, in the header.
            readonly property real cardTop: addRow.y

            x: (list.width - width) / 2
            width: view.columnWidth
            topPadding: 16

            Card {
                width: tableTop.width

                CardRow {
                    objectName: "accentRow"
                    title: view.screen.accentTitle
                    first: true
                    last: true
                    trailing: accentSwitch.width + 6
                    onClicked: view.screen.toggleAccent()

                    Switch {
                        id: accentSwitch

                        objectName: "accentSwitch"
                        anchors.right: parent.right
                        anchors.rightMargin: 10
                        anchors.verticalCenter: parent.verticalCenter
                        padding: 0
                        checked: view.screen.firstBeatEmphasis
                        onToggled: view.screen.toggleAccent()
                        indicator: Rectangle {
                            implicitWidth: 50
                            implicitHeight: 30
                            radius: 15
                            color: accentSwitch.checked ? Theme.accent : Theme.separator
                            Behavior on color { ColorAnimation { duration: 150 } }

                            Rectangle {
                                x: accentSwitch.checked ? parent.width - width - 2 : 2
                                y: 2
                                width: 26
                                height: 26
                                radius: 13
                                color: accentSwitch.down ? "#E0E0E0" : "#FFFFFF"
                                Behavior on x { NumberAnimation { duration: 150 } }
                            }
                        }
                    }
                }
            }

            SectionHeader {
                width: tableTop.width
                text: view.screen.packHeader
            }

            Card {
                width: tableTop.width

                Repeater {
                    model: view.screen.packNames

                    CardRow {
                        required property string modelData
                        required property int index

                        objectName: "packRow" + (index + 1)
                        title: modelData
                        marked: index + 1 === view.screen.packNumber
                        first: index === 0
                        last: index === view.screen.packNames.length - 1
                        onClicked: view.screen.choosePack(index + 1)
                    }
                }
            }

            SectionHeader {
                width: tableTop.width
                text: view.screen.presetsHeader
            }

            ItemDelegate {
                id: addRow

                objectName: "addPresetRow"
                x: 1
                width: tableTop.width - 2
                height: Theme.rowHeight
                leftPadding: 16
                onClicked: view.screen.addPresetRequested()
                background: RowBackground {
                    down: addRow.down
                    first: true
                    last: view.screen.presets.count === 0
                }
                contentItem: Row {
                    spacing: 10

                    Rectangle {
                        anchors.verticalCenter: parent.verticalCenter
                        width: 22
                        height: 22
                        radius: 11
                        color: Theme.accent

                        Text {
                            anchors.centerIn: parent
                            text: "+"
                            color: Theme.background
                            font.pixelSize: 18
                            font.bold: true
                        }
                    }
                    Text {
                        anchors.verticalCenter: parent.verticalCenter
                        text: view.screen.addPresetTitle
                        color: Theme.accent
                        font.pixelSize: 16
                    }
                }

                RowSeparator {
                    visible: view.screen.presets.count > 0
                }
            }
        }

        delegate: PresetRow {
            required property int index

            screen: view.screen
            row: index + 1
            x: (list.width - view.columnWidth) / 2 + 1
            width: view.columnWidth - 2
        }

        footer: Item {
            width: list.width
            height: 17
        }

        // The presets card's frame, behind the rows: from the top of the
        // add row to the last preset.
        Rectangle {
            parent: list.contentItem
            z: -1
            x: (list.width - width) / 2
            y: list.headerItem ? list.headerItem.y + list.headerItem.cardTop - 1 : 0
            width: view.columnWidth
            height: (list.footerItem ? list.footerItem.y + 1 : list.contentHeight) - y
            radius: Theme.cardRadius
            color: Theme.panel
            border.color: Theme.separator
        }
    }

    NumberAnimation {
        id: scrollAnimation

        target: list
        property: "contentY"
        duration: 250
        easing.type: Easing.OutCubic
    }

    // A new list (each time the screen appears) starts at the top of the
    // table; the view itself would start at the first preset.
    Connections {
        target: view.screen.presets

        function onModelReset() {
            Qt.callLater(list.positionViewAtBeginning)
        }
    }

    Connections {
        target: view.screen

        // Brings the new preset into view at the bottom, smoothly: the view
        // finds where that is, then slides there from where it was.
        function onScrollToPreset(row: int) {
            Qt.callLater(() => {
                const from = list.contentY
                list.positionViewAtIndex(row - 1, ListView.End)
                scrollAnimation.to = list.contentY
                list.contentY = from
                scrollAnimation.restart()
            })
        }
    }


    PresetDialogs {
        anchors.fill: parent
        screen: view.screen
    }
}
