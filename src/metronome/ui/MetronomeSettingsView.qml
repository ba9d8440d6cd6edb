// The metronome settings table: the first-beat accent switch, the five sound
// packs with a check on the selected one, and the custom presets with a check
// on the one matching the metronome's settings. A preset row is deleted by
// swiping it left or with its delete button. Everything shown comes from the
// MetronomeSettings object and every touch is forwarded to it; the add-preset
// dialog is PresetDialogs. The shell draws the navigation bar.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Rectangle {
    id: view

    required property MetronomeSettings screen

    readonly property int margin: 12
    readonly property int radius: 10
    readonly property color danger: "#E5484D"

    color: Theme.background

    // A group of rows on a rounded card.
    component Card: Rectangle {
        default property alias rows: cardColumn.data

        function forceLayout() {
            cardColumn.forceLayout()
        }

        x: view.margin
        width: view.width - 2 * view.margin
        height: cardColumn.height + 2
        radius: view.radius
        color: Theme.panel
        border.color: Theme.separator

        // Inside the border.
        Column {
            id: cardColumn
            x: 1
            y: 1
            width: parent.width - 2
        }
    }

    component SectionHeader: Text {
        x: view.margin + 6
        width: view.width - 2 * x
        height: 34
        verticalAlignment: Text.AlignBottom
        bottomPadding: 7
        color: Theme.textDim
        font.family: Theme.fontFamily
        font.pixelSize: 12
        font.bold: true
        font.letterSpacing: 1
        font.capitalization: Font.AllUppercase
    }

    // The hairline between two rows of a card.
    component RowSeparator: Rectangle {
        x: 16
        width: parent.width - x
        height: 1
        color: Theme.separator
    }

    // A row's title; a marked row's is bold in the accent colour.
    component RowText: Text {
        property bool marked: false

        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        color: marked ? Theme.accent : Theme.text
        font.family: Theme.fontFamily
        font.pixelSize: 16
        font.bold: marked
    }

    // The delete button of a preset row, for a pointer without swiping.
    component DeleteButton: ToolButton {
        id: deleteButton

        width: 34
        height: 34
        hoverEnabled: true
        ToolTip.visible: hovered
        ToolTip.delay: 600
        ToolTip.text: view.screen.deleteText
        contentItem: Text {
            text: "\u2715"
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: deleteButton.hovered || deleteButton.down ? view.danger : Theme.textDim
            font.pixelSize: 14
        }
        background: Rectangle {
            radius: width / 2
            color: deleteButton.down ? Theme.panelLight : "transparent"
        }
    }

    component CheckMark: Text {
        text: "\u2713"
        color: Theme.accent
        font.pixelSize: 19
        font.bold: true
    }

    // A row's background, darker while pressed. The first and last rows of a
    // card round the card's corners and keep their other corners square.
    component RowBackground: Rectangle {
        required property bool down
        property bool first: false
        property bool last: false
        property color base: "transparent"

        color: down ? Theme.panelLight : base
        radius: first || last ? view.radius - 1 : 0

        Rectangle {
            visible: !parent.first
            width: parent.width
            height: parent.radius
            color: parent.color
        }
        Rectangle {
            visible: !parent.last
            y: parent.height - height
            width: parent.width
            height: parent.radius
            color: parent.color
        }
    }

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

            y: 16
            width: flick.width

            Card {
                ItemDelegate {
                    id: accentRow

                    objectName: "accentRow"
                    width: parent.width
                    height: Theme.rowHeight
                    leftPadding: 16
                    rightPadding: accentSwitch.width + 20
                    onClicked: view.screen.toggleAccent()
                    background: RowBackground {
                        down: accentRow.down
                        first: true
                        last: true
                    }
                    contentItem: RowText { text: view.screen.accentTitle }

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
                text: view.screen.packHeader
            }

            Card {
                Repeater {
                    model: view.screen.packNames

                    ItemDelegate {
                        id: packRow

                        required property string modelData
                        required property int index
                        readonly property bool marked: index + 1 === view.screen.packNumber

                        objectName: "packRow" + (index + 1)
                        width: parent.width
                        height: Theme.rowHeight
                        leftPadding: 16
                        rightPadding: 14
                        onClicked: view.screen.choosePack(index + 1)
                        background: RowBackground {
                            down: packRow.down
                            first: packRow.index === 0
                            last: packRow.index === view.screen.packNames.length - 1
                        }
                        contentItem: RowText {
                            rightPadding: 30
                            text: packRow.modelData
                            marked: packRow.marked
                        }

                        CheckMark {
                            anchors.right: parent.right
                            anchors.rightMargin: 14
                            anchors.verticalCenter: parent.verticalCenter
                            visible: packRow.marked
                        }

                        RowSeparator {
                            anchors.bottom: parent.bottom
                            visible: packRow.index < view.screen.packNames.length - 1
                        }
                    }
                }
            }

            SectionHeader {
                text: view.screen.presetsHeader
            }

            Card {
                id: presetsCard

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
                            font.family: Theme.fontFamily
                            font.pixelSize: 16
                        }
                    }

                    RowSeparator {
                        anchors.bottom: parent.bottom
                        visible: view.screen.presetNames.length > 0
                    }
                }

                Repeater {
                    model: view.screen.presetNames

                    SwipeDelegate {
                        id: presetRow

                        required property string modelData
                        required property int index
                        readonly property int row: index + 1
                        readonly property bool marked: row === view.screen.presetNumber

                        objectName: "presetRow" + row
                        width: parent.width
                        height: Theme.rowHeight
                        leftPadding: 16
                        rightPadding: 6
                        clip: true
                        onClicked: view.screen.choosePreset(row)
                        // Opaque: it slides over the delete button with the row.
                        background: RowBackground {
                            down: presetRow.down
                            last: presetRow.row === view.screen.presetNames.length
                            base: Theme.panel
                        }
                        // Slides with the swipe, so the mark and the delete button
                        // are part of it.
                        contentItem: Item {
                            RowText {
                                anchors.fill: parent
                                rightPadding: 70
                                text: presetRow.modelData
                                marked: presetRow.marked
                            }
                            CheckMark {
                                anchors.right: parent.right
                                anchors.rightMargin: 40
                                anchors.verticalCenter: parent.verticalCenter
                                visible: presetRow.marked
                            }
                            DeleteButton {
                                objectName: "deletePreset" + presetRow.row
                                anchors.right: parent.right
                                anchors.verticalCenter: parent.verticalCenter
                                onClicked: view.screen.deletePreset(presetRow.row)
                            }
                        }

                        swipe.right: Rectangle {
                            id: swipeDelete

                            x: presetRow.width - width
                            width: 88
                            height: presetRow.height
                            color: swipeDelete.SwipeDelegate.pressed ? Qt.darker(view.danger, 1.2)
                                                                     : view.danger
                            radius: presetRow.row === view.screen.presetNames.length ? view.radius - 1
                                                                                     : 0
                            SwipeDelegate.onClicked: view.screen.deletePreset(presetRow.row)

                            // Only the card's corner is round.
                            Rectangle {
                                width: parent.width
                                height: parent.radius
                                color: parent.color
                            }
                            Rectangle {
                                width: parent.radius
                                height: parent.height
                                color: parent.color
                            }

                            Text {
                                anchors.centerIn: parent
                                text: view.screen.deleteText
                                color: Theme.text
                                font.family: Theme.fontFamily
                                font.pixelSize: 15
                                font.bold: true
                            }
                        }

                        RowSeparator {
                            anchors.bottom: parent.bottom
                            visible: presetRow.row < view.screen.presetNames.length
                        }
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
