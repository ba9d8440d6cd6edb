// A row of the custom presets card: the preset's name, the tick when the
// metronome's settings are the preset's, and two ways to delete it: swiping
// the row left, or its delete button for a pointer.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

SwipeDelegate {
    id: presetRow

    required property MetronomeSettings screen
    // 1 to n.
    required property int row
    required property string name
    readonly property bool marked: row === screen.presetNumber
    readonly property bool last: row === screen.presets.count

    // The delete button, for a pointer without swiping.
    component DeleteButton: ToolButton {
        id: deleteButton

        width: 34
        height: 34
        hoverEnabled: true
        ToolTip.visible: hovered
        ToolTip.delay: 600
        ToolTip.text: presetRow.screen.deleteText
        contentItem: Text {
            text: "\u2715"
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: deleteButton.hovered || deleteButton.down ? Theme.danger : Theme.textDim
            font.pixelSize: 14
        }
        background: Rectangle {
            radius: width / 2
            color: deleteButton.down ? Theme.panelLight : "transparent"
        }
    }

    objectName: "presetRow" + row
    width: parent ? parent.width : 0
    height: Theme.rowHeight
    leftPadding: 16
    rightPadding: 6
    clip: true
    onClicked: screen.choosePreset(row)
    // Opaque: it slides over the delete button with the row.
    background: RowBackground {
        down: presetRow.down
        last: presetRow.last
        base: Theme.panel
    }
    // Slides with the swipe, so the tick and the delete button are part of it.
    contentItem: Item {
        RowText {
            anchors.fill: parent
            rightPadding: 70
            text: presetRow.name
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
            onClicked: presetRow.screen.deletePreset(presetRow.row)
        }
    }

    swipe.right: Rectangle {
        id: swipeDelete

        x: presetRow.width - width
        width: 88
        height: presetRow.height
        color: swipeDelete.SwipeDelegate.pressed ? Qt.darker(Theme.danger, 1.2) : Theme.danger
        radius: presetRow.last ? Theme.cardRadius - 1 : 0
        SwipeDelegate.onClicked: presetRow.screen.deletePreset(presetRow.row)

        // Only the card's corner is round.
        Rectangle {
            width: swipeDelete.width
            height: swipeDelete.radius
            color: swipeDelete.color
        }
        Rectangle {
            width: swipeDelete.radius
            height: swipeDelete.height
            color: swipeDelete.color
        }

        Text {
            anchors.centerIn: parent
            text: presetRow.screen.deleteText
            color: Theme.text
            font.pixelSize: 15
            font.bold: true
        }
    }

    RowSeparator {
        visible: !presetRow.last
    }
}
