// A row of the custom presets card: the preset's name over its tempo and
// time signature, the tick when the metronome's settings are the preset's,
// buttons to rename it, update it to the current settings and delete it,
// and swiping the row left to delete it.
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
    required property string summary
    readonly property bool marked: row === screen.presetNumber
    readonly property bool last: row === screen.presets.count

    // A small round button of the row, named by its tool tip.
    component RowButton: ToolButton {
        id: rowButton

        property string tip
        property string symbol
        property color hot: Theme.accent

        width: 32
        height: 34
        hoverEnabled: true
        focusPolicy: Qt.NoFocus
        ToolTip.visible: hovered
        ToolTip.delay: 600
        ToolTip.text: tip
        Accessible.name: tip
        contentItem: Text {
            text: rowButton.symbol
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: rowButton.hovered || rowButton.down ? rowButton.hot : Theme.textDim
            font.pixelSize: 15
        }
        background: Rectangle {
            radius: width / 2
            color: rowButton.down ? Theme.panelLight : "transparent"
        }
    }

    objectName: "presetRow" + row
    width: parent ? parent.width : 0
    height: Theme.rowHeight + 6
    leftPadding: 16
    rightPadding: 6
    topPadding: 2
    bottomPadding: 2
    clip: true
    onClicked: screen.choosePreset(row)
    // Opaque: it slides over the delete button with the row.
    background: RowBackground {
        down: presetRow.down
        last: presetRow.last
        base: Theme.panel
    }
    // The row's three buttons, at its right end.
    readonly property real buttonsWidth: 3 * 32

    // Slides with the swipe, so the tick and the buttons are part of it.
    contentItem: Item {
        Column {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.rightMargin: presetRow.buttonsWidth + 26
            anchors.verticalCenter: parent.verticalCenter

            RowText {
                width: parent.width
                text: presetRow.name
                marked: presetRow.marked
            }
            Text {
                objectName: "presetSummary"
                width: parent.width
                text: presetRow.summary
                elide: Text.ElideRight
                color: Theme.textDim
                font.pixelSize: 12
            }
        }
        CheckMark {
            anchors.right: parent.right
            anchors.rightMargin: presetRow.buttonsWidth + 4
            anchors.verticalCenter: parent.verticalCenter
            visible: presetRow.marked
        }
        Row {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter

            RowButton {
                objectName: "renamePreset" + presetRow.row
                tip: presetRow.screen.renameText
                symbol: "\u270E"
                onClicked: presetRow.screen.renamePresetRequested(presetRow.row)
            }
            RowButton {
                objectName: "updatePreset" + presetRow.row
                tip: presetRow.screen.updateText
                symbol: "\u21BB"
                onClicked: presetRow.screen.updatePreset(presetRow.row)
            }
            RowButton {
                objectName: "deletePreset" + presetRow.row
                tip: presetRow.screen.deleteText
                symbol: "\u2715"
                hot: Theme.danger
                onClicked: presetRow.screen.deletePreset(presetRow.row)
            }
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
