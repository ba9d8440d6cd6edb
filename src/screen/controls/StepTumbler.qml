import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// A Tumbler for a pointer and a keyboard as well as a finger: a mouse-wheel
// notch or an arrow key moves one row, Page Up and Page Down a page (the rows
// in view), Home and End go to the ends. A click on a row is the delegate's
// to take, with a TapHandler calling stepBy: the wheel's view filters its
// rows' presses and still drags, whereas a handler over the rows or on the
// Tumbler would either stop the drag or never see the press. Each step
// moves the wheel and emits chosen(index); dragging stays the Tumbler's own.
// With the keyboard's focus it is framed in the accent colour.
Tumbler {
    id: tumbler

    signal chosen(int index)

    property real focusRadius: 12

    // Moves by rows (wrapping when the Tumbler wraps) and emits chosen.
    function stepBy(rows: int) {
        if (tumbler.count <= 0 || rows === 0)
            return
        let target = tumbler.currentIndex + rows
        if (tumbler.wrap)
            target = ((target % tumbler.count) + tumbler.count) % tumbler.count
        else
            target = Math.max(0, Math.min(tumbler.count - 1, target))
        if (target === tumbler.currentIndex)
            return
        tumbler.currentIndex = target
        tumbler.chosen(target)
    }

    focusPolicy: Qt.StrongFocus

    Keys.onPressed: event => {
        let rows = 0
        switch (event.key) {
        case Qt.Key_Up: rows = -1; break
        case Qt.Key_Down: rows = 1; break
        case Qt.Key_PageUp: rows = -tumbler.visibleItemCount; break
        case Qt.Key_PageDown: rows = tumbler.visibleItemCount; break
        case Qt.Key_Home: rows = -tumbler.currentIndex; break
        case Qt.Key_End: rows = tumbler.count - 1 - tumbler.currentIndex; break
        default: return
        }
        event.accepted = true
        tumbler.stepBy(rows)
    }

    // Over the rows, which would otherwise take the wheel first.
    Item {
        anchors.fill: parent
        z: 3

        WheelSteps {
            onStepped: notches => tumbler.stepBy(-notches)
        }
    }

    // Shown however the wheel took the keys: a touch on a row gives them too.
    FocusRing {
        objectName: "focusFrame"
        anchors.margins: 0
        z: 2
        radius: tumbler.focusRadius
        shown: tumbler.activeFocus
        control: null
    }
}
