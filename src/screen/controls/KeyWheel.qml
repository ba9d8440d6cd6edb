pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// A wheel of text rows (a Tumbler of strings) that answers a desktop as well
// as a finger: the mouse wheel and the arrow keys turn it one row, Page Up
// and Page Down a page, Home and End to either end, and a click on a row
// turns it there. Each of these, and a drag that comes to rest on another
// row, ends in `chosen` with the row now in the middle. The owner binds
// `selectedRow` to what its screen holds; the wheel follows it when it
// changes elsewhere. A ring shows while the wheel has the keyboard.
Tumbler {
    id: wheel

    // The row the screen holds as chosen.
    property int selectedRow: 0
    // Rows a Page Up or Page Down turns: the rows on show, less than a
    // whole turn of a wheel that goes round.
    property int pageRows: wrap ? Math.max(1, Math.min(visibleItemCount, Math.floor(count / 2)))
                                : Math.max(1, visibleItemCount)
    // Looks of the rows: the middle one, and the others fading away.
    property int rowPixelSize: 16
    property int middlePixelSize: 19
    property color rowColor: Theme.textDim
    property color middleColor: Theme.text

    // The row last told to the owner, so that a wheel settling where it was
    // sent says nothing more.
    property int settledRow: selectedRow

    signal chosen(int row)

    // Turns the wheel `rows` rows down (negative: up) and tells the owner.
    function turn(rows) {
        if (count === 0 || rows === 0)
            return
        const target = wrap ? ((currentIndex + rows) % count + count) % count
                            : Math.max(0, Math.min(count - 1, currentIndex + rows))
        choose(target)
    }
    // Turns the wheel to `row` and tells the owner.
    function choose(row) {
        if (row < 0 || row >= count || row === settledRow)
            return
        settledRow = row
        currentIndex = row
        chosen(row)
    }

    focusPolicy: Qt.StrongFocus
    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.description: currentIndex >= 0 && model ? String(model[currentIndex]) : ""

    Component.onCompleted: currentIndex = selectedRow
    onSelectedRowChanged: {
        if (moving)
            return
        settledRow = selectedRow
        currentIndex = selectedRow
    }
    onMovingChanged: {
        if (!moving && currentIndex !== settledRow) {
            settledRow = currentIndex
            chosen(currentIndex)
        }
    }

    Keys.onPressed: event => {
        const moves = {
            [Qt.Key_Up]: -1,
            [Qt.Key_Down]: 1,
            [Qt.Key_PageUp]: -wheel.pageRows,
            [Qt.Key_PageDown]: wheel.pageRows
        }
        if (moves[event.key] !== undefined) {
            wheel.turn(moves[event.key])
        } else if (event.key === Qt.Key_Home) {
            wheel.choose(0)
        } else if (event.key === Qt.Key_End) {
            wheel.choose(wheel.count - 1)
        } else {
            return
        }
        event.accepted = true
    }

    // One row per notch of a mouse wheel, over the rows: a wheel that does
    // not go round has a list under them that would scroll freely instead.
    Item {
        anchors.fill: parent
        z: 3

        WheelSteps {
            onStepped: notches => wheel.turn(-notches)
        }
    }

    background: Rectangle {
        color: "transparent"
        radius: 6
        border.width: 2
        border.color: wheel.activeFocus ? Theme.accent : "transparent"
    }

    delegate: Text {
        id: row

        required property var modelData
        required property int index
        readonly property real distance: Math.abs(Tumbler.displacement)

        text: modelData
        color: distance < 0.5 ? wheel.middleColor : wheel.rowColor
        opacity: 1.0 - Math.min(distance, 2.5) / 3.2
        font.bold: distance < 0.5
        font.pixelSize: distance < 0.5 ? wheel.middlePixelSize : wheel.rowPixelSize
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter

        TapHandler {
            onTapped: {
                wheel.forceActiveFocus(Qt.MouseFocusReason)
                wheel.choose(row.index)
            }
        }
    }
}
