// The metronome settings table: the first-beat accent switch, the five sound
// packs with a tick on the selected one, and the custom presets (PresetRow)
// with a tick on the one matching the metronome's settings. Everything
// shown comes from the MetronomeSettings object and every touch is
// forwarded to it; the add-preset dialog is PresetDialogs. The shell draws
// the navigation bar. In a wide window the cards keep to a centred column.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: view

    required property MetronomeSettings screen

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
            y: 16
            width: Math.min(flick.width - 24, Theme.columnWidth)

            Card {
                width: content.width

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
                width: content.width
                text: view.screen.packHeader
            }

            Card {
                width: content.width

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
                width: content.width
                text: view.screen.presetsHeader
            }

            Card {
                id: presetsCard

                width: content.width

                ItemDelegate {
                    id: addRow

                    objectName: "addPresetRow"
                    width: parent.width
                    height: Theme.rowHeight
                    leftPadding: 16
                    onClicked: view.screen.addPresetRequested()
                    background: RowBackground {
                        down: addRow.down
                        first: true
                        last: view.screen.presetNames.length === 0
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
                        visible: view.screen.presetNames.length > 0
                    }
                }

                Repeater {
                    model: view.screen.presetNames

                    PresetRow {
                        required property string modelData
                        required property int index

                        screen: view.screen
                        row: index + 1
                        name: modelData
                    }
                }
            }
        }
    }

    Timer {
        id: scrollTimer

        interval: 0
        onTriggered: {
            presetsCard.forceLayout()
            content.forceLayout()
            scrollAnimation.to = Math.max(0, flick.contentHeight - flick.height)
            scrollAnimation.restart()
        }
    }

    NumberAnimation {
        id: scrollAnimation

        target: flick
        property: "contentY"
        duration: 250
        easing.type: Easing.OutCubic
    }

    Connections {
        target: view.screen

        // The new preset is the last row: bring the bottom of the table into
        // view once the rows are laid out.
        function onScrollToPreset() {
            scrollTimer.restart()
        }
    }

    PresetDialogs {
        anchors.fill: parent
        screen: view.screen
    }
}
