import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// One row of a Card: a title, the tick when it is the chosen row, the
// separator to the next row. Items given as children sit at its right end
// (a switch); `trailing` is the room they take.
ItemDelegate {
    id: row

    property string title
    property bool marked: false
    property bool first: false
    property bool last: false
    property real trailing: 0

    width: parent ? parent.width : 0
    height: Theme.rowHeight
    // The title is also the name a screen reader gives the row.
    text: title
    focusPolicy: Qt.TabFocus
    Keys.onSpacePressed: row.activate()
    Keys.onReturnPressed: row.activate()
    Keys.onEnterPressed: row.activate()

    // What a key does to the row that has the keyboard: what a click does.
    function activate() {
        clicked()
    }
    leftPadding: 16
    rightPadding: 14 + Math.max(row.trailing, check.visible ? check.width + 10 : 0)
    background: RowBackground {
        down: row.down
        first: row.first
        last: row.last
    }
    contentItem: RowText {
        text: row.title
        marked: row.marked
    }

    FocusRing {
        anchors.margins: 1
        radius: 4
    }

    CheckMark {
        id: check
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        visible: row.marked
    }

    RowSeparator {
        visible: !row.last
    }
}
