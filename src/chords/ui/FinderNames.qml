pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The names the finder gives the shape held, best first: the name, its
// notes, its formula and what it leaves out or adds; a line saying why when
// nothing fits; and a button that opens every string again. Under the
// neck on a phone; a panel of its own beside it in a wide window, with room
// for longer names.
Rectangle {
    id: names

    required property ChordsFinder finder
    property bool framed: false

    color: Theme.panel
    radius: framed ? 14 : 0
    border.color: framed ? Theme.separator : "transparent"

    Rectangle {
        visible: !names.framed
        width: parent.width
        height: 1
        color: Theme.separator
    }

    Button {
        id: clearButton

        objectName: "finderClear"
        x: names.width - width - 6
        y: 6
        width: 56
        height: 24
        focusPolicy: Qt.TabFocus
        text: "Open all"
        onClicked: names.finder.clear()
        contentItem: Text {
            text: clearButton.text
            color: Theme.textDim
            font.pixelSize: 11
            font.bold: true
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        background: RoundedBox {
            radius: 6
            color: Theme.panelLight
            border.color: Theme.separator
        }

        FocusRing {}
    }

    Text {
        objectName: "finderEmpty"
        x: 10
        y: 10
        visible: names.finder.emptyText !== ""
        text: names.finder.emptyText
        color: Theme.textDim
        font.pixelSize: 13
    }

    ListView {
        id: list

        objectName: "finderNames"
        x: 10
        // Beside the button under the neck; below it in a panel of its own.
        y: names.framed ? clearButton.y + clearButton.height + 8 : 6
        width: names.framed ? names.width - 2 * x : clearButton.x - x - 4
        height: names.height - y - 4
        clip: true
        model: names.finder.names
        boundsBehavior: Flickable.StopAtBounds

        delegate: Item {
            id: row

            required property var modelData
            required property int index

            width: ListView.view.width
            height: 34

            Text {
                id: nameText
                width: names.framed ? 100 : 68
                elide: Text.ElideRight
                text: row.modelData.name
                color: row.index === 0 ? Theme.accent : Theme.text
                font.pixelSize: 15
                font.bold: true
            }
            Text {
                x: nameText.width + 6
                anchors.baseline: nameText.baseline
                width: row.width - x
                elide: Text.ElideRight
                text: row.modelData.notes
                color: Theme.text
                font.pixelSize: 12
            }
            Text {
                x: nameText.width + 6
                y: 18
                width: row.width - x
                elide: Text.ElideRight
                text: row.modelData.formula
                      + (row.modelData.remark !== "" ? "  \u00B7  " + row.modelData.remark : "")
                color: Theme.textDim
                font.pixelSize: 11
            }
        }
    }
}
