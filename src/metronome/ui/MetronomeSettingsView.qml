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
//
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
        // The last rows can scroll clear of the undo bar.
        bottomMargin: undoBar.visible ? undoBar.height + 12 : 0
        model: view.screen.presets
        ScrollIndicator.vertical: ScrollIndicator {}

        // The header grows and shrinks (the practice rows come and go with
        // their switches), which moves the list's origin, and the list
        // went back to its top (seen with no preset yet). Put what was on
        // screen back where it was, once the list has moved.
        property real fromTop: 0
        property bool keepingPlace: false
        onContentYChanged: if (!keepingPlace && !placeKeeper.running) fromTop = contentY - originY
        onOriginYChanged: placeKeeper.restart()

        Timer {
            id: placeKeeper
            interval: 0
            onTriggered: {
                list.keepingPlace = true
                list.contentY = list.originY + Math.max(0, Math.min(list.fromTop,
                    list.contentHeight + list.bottomMargin - list.height))
                list.keepingPlace = false
            }
        }

        // The views' ids are reached from the header and the rows, which
        // cannot be bound components here (see the top of the file).
        // qmllint disable unqualified
        header: MetronomeSettingsTop {
            screen: view.screen
            x: (list.width - width) / 2
            width: view.columnWidth
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
        // qmllint enable unqualified

        // The presets card's frame, behind the rows: from the top of the
        // add row (the header's last row) to the last preset.
        Rectangle {
            parent: list.contentItem
            z: -1
            x: (list.width - width) / 2
            y: list.headerItem ? list.headerItem.y + list.headerItem.height - Theme.rowHeight - 1 : 0
            width: view.columnWidth
            height: (list.footerItem ? list.footerItem.y + 1 : list.contentHeight) - y
            radius: Theme.cardRadius
            color: Theme.panel
            border.color: Theme.separator
        }
    }

    // Brings a new preset into view at the bottom, smoothly, once its row is
    // laid out: the view finds where that is, then slides there from where
    // it was.
    Timer {
        id: scrollTimer

        property int row: 0

        interval: 0
        onTriggered: {
            const from = list.contentY
            list.positionViewAtIndex(scrollTimer.row - 1, ListView.End)
            scrollAnimation.to = list.contentY
            list.contentY = from
            scrollAnimation.restart()
        }
    }

    NumberAnimation {
        id: scrollAnimation

        target: list
        property: "contentY"
        duration: 250
        easing.type: Easing.OutCubic
    }

    Connections {
        target: view.screen

        function onScrollToPreset(row: int) {
            scrollTimer.row = row
            scrollTimer.restart()
        }
    }

    // What a delete or an update did, with the way to take it back, for a
    // few seconds (the screen says how long).
    Rectangle {
        id: undoBar

        objectName: "undoBar"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 12
        width: view.columnWidth
        height: 48
        radius: Theme.cardRadius
        visible: view.screen.undoMessage !== ""
        color: Theme.panelLight
        Accessible.role: Accessible.AlertMessage
        Accessible.name: view.screen.undoMessage
        border.color: Theme.separator

        Text {
            objectName: "undoMessage"
            anchors.left: parent.left
            anchors.leftMargin: 16
            anchors.right: undoButton.left
            anchors.verticalCenter: parent.verticalCenter
            text: view.screen.undoMessage
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: 15
        }
        Button {
            id: undoButton

            objectName: "undoButton"
            anchors.right: parent.right
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            height: 40
            flat: true
            text: view.screen.undoText
            onClicked: view.screen.undo()
            contentItem: Text {
                text: undoButton.text
                verticalAlignment: Text.AlignVCenter
                color: Theme.accent
                font.pixelSize: 16
                font.bold: true
            }
            background: Rectangle {
                radius: 8
                color: undoButton.down ? Theme.separator : "transparent"
            }
        }
    }

    PresetDialogs {
        anchors.fill: parent
        screen: view.screen
    }
}
