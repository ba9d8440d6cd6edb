import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// The tunings list on the program's own screen object, from a keyboard and a
// mouse: typing filters, the arrows and Enter pick, the wheel scrolls, a
// click picks without moving the list, and the user's tunings are made and
// deleted in the editor, their notes typed or picked string by string.
Item {
    id: root

    // Escapes the list leaves to the window, which takes them as "back".
    property int escapesPassedOn: 0

    width: 320
    height: 480
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Escape)
            ++escapesPassedOn
    }

    CommonSettingsView {
        id: view
        anchors.fill: parent
        screen: App.tools.screen("commonSettings")
    }

    TestCase {
        name: "TuningsList"
        when: windowShown

        function find(name) {
            const item = findChild(view, name)
            verify(item, name + " is on screen")
            return item
        }
        function type(text) {
            for (const c of text)
                keyClick(c === " " ? Qt.Key_Space : c)
        }
        function rowOnShow(list, index) {
            const item = list.itemAtIndex(index)
            return item !== null && item.y >= list.contentY - 1
                    && item.y + item.height <= list.contentY + list.height + 1
        }

        // Waits for a wheel's turn to come to rest, its row in the middle.
        function settle(wheel) {
            tryVerify(() => wheel.currentItem && Math.abs(wheel.currentItem.mapToItem(
                          wheel, 0, wheel.currentItem.height / 2).y - wheel.height / 2) < 1)
        }

        function init() {
            // An editor a failed test left open would hide the list.
            const name = findChild(view, "tuningName")
            if (name && name.visible) {
                name.forceActiveFocus()
                keyClick(Qt.Key_Escape)
            }
            view.screen.filter = ""
            view.screen.selectRow(1)
            find("tuningsFilter").forceActiveFocus()
            // The list comes back to the current tuning once the choice is drawn.
            wait(20)
        }

        function test_typingFiltersAndTheKeysPick() {
            const list = find("tuningsList")
            const filter = find("tuningsFilter")
            verify(filter.activeFocus, "the filter has the keyboard")
            type("drop d")
            compare(view.screen.filter, "drop d")
            compare(list.count, 2)
            keyClick(Qt.Key_Down)
            compare(list.currentIndex, 1)
            keyClick(Qt.Key_Return)
            compare(view.screen.currentTuning, "Drop D")
            tryCompare(list, "currentIndex", 1)

            keyClick(Qt.Key_Escape)
            compare(view.screen.filter, "")
            compare(filter.text, "")
            compare(list.count, 53)
            tryCompare(list, "currentIndex", 27)
            tryVerify(() => rowOnShow(list, 27), 1000, "Drop D is in view and ticked")
            compare(root.escapesPassedOn, 0, "the first Escape only emptied the filter")
            keyClick(Qt.Key_Escape)
            compare(root.escapesPassedOn, 1, "the next one goes back")
        }

        function test_pagesHomeAndEndMoveTheKeyboardRow() {
            const list = find("tuningsList")
            tryCompare(list, "currentIndex", 0)
            keyClick(Qt.Key_End)
            compare(list.currentIndex, 52)
            tryVerify(() => rowOnShow(list, 52))
            keyClick(Qt.Key_PageUp)
            compare(list.currentIndex, 52 - list.pageRows)
            keyClick(Qt.Key_Up)
            compare(list.currentIndex, 51 - list.pageRows)
            keyClick(Qt.Key_Home)
            compare(list.currentIndex, 0)
            keyClick(Qt.Key_PageDown)
            compare(list.currentIndex, list.pageRows)
            compare(view.screen.currentTuning, "Standard", "moving picks nothing")
        }

        function test_theWheelScrollsAndAClickPicksWhereTheListIs() {
            const list = find("tuningsList")
            tryCompare(list, "contentY", 0)
            for (let notch = 0; notch < 4; ++notch)
                mouseWheel(list, list.width / 2, list.height / 2, 0, -120)
            tryVerify(() => list.contentY > 100, 2000, "the wheel scrolls the list: " + list.contentY)
            const scrolled = list.contentY
            const index = list.indexAt(10, list.contentY + list.height / 2)
            verify(index > 3)
            const row = list.itemAtIndex(index)
            mouseClick(row, 40, row.height / 2)
            compare(view.screen.currentTuning, view.screen.tuningNames[index])
            wait(50)
            verify(Math.abs(list.contentY - scrolled) < 1, "the list stays where it was")
        }

        function test_theEditorMakesRefusesAndDeletesATuning() {
            const list = find("tuningsList")
            mouseClick(find("newTuningButton"))
            const name = find("tuningName")
            const notes = find("tuningNotes")
            const error = find("tuningError")
            verify(name.activeFocus)
            compare(notes.text, "E2 A2 D3 G3 B3 E4", "it starts from the current tuning")
            type("Low C")
            notes.text = "H2 A2 D3 G3 B3 E4"
            keyClick(Qt.Key_Return)
            verify(error.visible)
            verify(error.text.indexOf("\"H2\" is not a note") >= 0, error.text)
            compare(list.count, 53, "nothing was stored")

            notes.text = "C2 G2 C3 G3 C4 E4"
            keyClick(Qt.Key_Return)
            verify(!error.visible)
            compare(list.count, 54)
            const made = list.itemAtIndex(53) || (list.positionViewAtEnd(), list.itemAtIndex(53))
            verify(made)
            compare(view.screen.rows[53].custom, true)
            compare(view.screen.rows[53].notes, "C G C G C E")

            view.screen.filter = "low c"
            compare(list.count, 1)
            const edit = findChild(list.itemAtIndex(0), "editTuning")
            verify(edit && edit.visible, "the user's own row can be edited")
            mouseClick(edit)
            compare(name.text, "Low C")
            keyClick(Qt.Key_Escape)
            verify(!name.visible, "Escape closes the editor")
            mouseClick(edit)
            // Delete shows only for the user's own tuning; its row places it
            // when it is next laid out, before anything is drawn.
            const remove = find("deleteTuning")
            tryVerify(() => !isPolishScheduled(remove.parent))
            mouseClick(remove)
            compare(list.count, 0)
            view.screen.filter = ""
            compare(list.count, 53)
        }

        function test_theStringWheelsAndTheTypedNotesFollowEachOther() {
            const list = find("tuningsList")
            mouseClick(find("newTuningButton"))
            const notes = find("tuningNotes")
            const sixth = find("stringWheel6")
            const first = find("stringWheel1")
            compare(sixth.currentItem.text, "E2")
            compare(first.count, 25, "an octave either side of E4")

            keyClick(Qt.Key_Tab)
            verify(notes.activeFocus)
            keyClick(Qt.Key_Tab)
            verify(sixth.activeFocus, "Tab goes on from the notes to the sixth string")
            keyClick(Qt.Key_Up)
            keyClick(Qt.Key_Up)
            compare(notes.text, "D2 A2 D3 G3 B3 E4")

            mouseWheel(first, first.width / 2, first.height / 2, 0, -120)
            compare(notes.text, "D2 A2 D3 G3 B3 F4", "a notch down the list goes a semitone up")
            settle(first)
            mouseClick(first, first.width / 2, first.height / 6)
            compare(notes.text, "D2 A2 D3 G3 B3 E4", "a click on the row above picks it")
            keyClick(Qt.Key_End)
            compare(notes.text, "D2 A2 D3 G3 B3 E5", "End goes up an octave")
            keyClick(Qt.Key_Home)
            compare(notes.text, "D2 A2 D3 G3 B3 E3")
            keyClick(Qt.Key_Tab)
            verify(find("tuningName").activeFocus, "Tab goes round from the first string")

            notes.forceActiveFocus()
            notes.selectAll()
            type("Eb2 Ab2 Db3 Gb3 Bb3 Eb4")
            tryVerify(() => sixth.currentItem && sixth.currentItem.text === "Eb2")
            compare(first.currentItem.text, "Eb4", "the lists spell as the field does")
            compare(first.currentIndex, 11)
            notes.selectAll()
            type("H2 Ab2 Db3 Gb3 Bb3 Eb4")
            compare(sixth.currentItem.text, "Eb2", "a word that is no note leaves the list")
            find("tuningName").text = "Picked"
            keyClick(Qt.Key_Return)
            const error = find("tuningError")
            verify(error.text.indexOf("String 6: \"H2\" is not a note") >= 0, error.text)
            compare(list.count, 53)

            settle(sixth)
            mouseClick(sixth, sixth.width / 2, sixth.height * 5 / 6)
            compare(notes.text, "E2 Ab2 Db3 Gb3 Bb3 Eb4")
            keyClick(Qt.Key_Down)
            compare(notes.text, "F2 Ab2 Db3 Gb3 Bb3 Eb4")
            keyClick(Qt.Key_Return)
            compare(error.text, "")
            compare(list.count, 54)
            compare(view.screen.rows[53].notes, "F Ab Db Gb Bb Eb")
            compare(view.screen.typedNotes(53), "F2 Ab2 Db3 Gb3 Bb3 Eb4")
            view.screen.removeCustom(53)
            compare(list.count, 53)
        }
    }
}
