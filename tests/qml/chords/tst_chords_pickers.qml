import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// The chords tab and the base frequency's note wheel of the real program,
// from a desktop: mouse wheel, arrow and page keys, clicks on rows, letters,
// the play button and Space; the strip paged by whole diagrams.
Item {
    id: root
    width: 320
    height: 387

    // Keys no control takes go to the screen on show, as in the window.
    focus: true
    Keys.onPressed: event => {
        if (App.tools.keyPressed(event.key))
            event.accepted = true
    }

    ToolStack {
        id: stack
        anchors.fill: parent
        tools: App.tools
        tab: 3
    }

    Component {
        id: orchestraView
        OrchestraControlView {
            width: root.width
            height: root.height
            screen: App.tools.screen("orchestraControl")
        }
    }

    TestCase {
        name: "ChordsPickers"
        when: windowShown

        readonly property ChordsLibrary chords: App.tools.screen("chordsLibrary")

        function find(name) {
            const item = findChild(stack.currentItem, name)
            verify(item, name + " is on screen")
            return item
        }
        function rowHeight(wheel) {
            return wheel.availableHeight / wheel.visibleItemCount
        }
        // The row's item under a point `dy` below the wheel's middle.
        function rowAt(wheel, dy) {
            let item = wheel.contentItem
            while (item && item.index === undefined) {
                const at = item.mapFromItem(wheel, wheel.width / 2, wheel.height / 2 + dy)
                item = item.childAt(at.x, at.y)
            }
            return item
        }
        // Until the wheel has come to rest with its current row in the middle.
        function settle(wheel) {
            tryVerify(() => {
                const row = rowAt(wheel, 0)
                return !wheel.moving && row && row.index === wheel.currentIndex
                       && Math.abs(wheel.mapFromItem(row, 0, row.height / 2).y - wheel.height / 2) < 0.5
            }, 2000)
        }
        // The wheels open, C major chosen, keys back with the screen.
        function init() {
            tryVerify(() => !App.tools.loading, 10000, "the sound bank loads")
            tryVerify(() => findChild(stack.currentItem, "rootWheel"))
            App.tools.selectTab(3)
            if (!chords.pickerVisible)
                chords.togglePicker()
            chords.selectRow(0, 0)
            chords.selectRow(0, 1)
            root.forceActiveFocus()
            settle(find("rootWheel"))
            settle(find("typeWheel"))
        }

        function test_mouseWheelTurnsOneRowANotch() {
            const wheel = find("rootWheel")
            mouseWheel(wheel, wheel.width / 2, wheel.height / 2, 0, -120)
            compare(chords.pickerComponent0Row, 1)
            compare(chords.chordName, "C\u266F")
            mouseWheel(wheel, wheel.width / 2, wheel.height / 2, 0, 240)
            compare(chords.pickerComponent0Row, 11, "two notches up go round to B")
            mouseWheel(wheel, wheel.width / 2, wheel.height / 2, 0, -60)
            compare(chords.pickerComponent0Row, 11, "half a notch is not a row")
            mouseWheel(wheel, wheel.width / 2, wheel.height / 2, 0, -60)
            compare(chords.pickerComponent0Row, 0, "the second half is")
        }

        function test_keysTurnRowsAndPagesWithTheFocusShown() {
            const roots = find("rootWheel")
            const types = find("typeWheel")
            roots.forceActiveFocus(Qt.TabFocusReason)
            compare(roots.background.border.color, Theme.accent)
            compare(types.background.border.color, Qt.rgba(0, 0, 0, 0))
            keyClick(Qt.Key_Down)
            compare(chords.pickerComponent0Row, 1)
            keyClick(Qt.Key_Up)
            keyClick(Qt.Key_Up)
            compare(chords.pickerComponent0Row, 11)
            keyClick(Qt.Key_PageDown)
            compare(chords.pickerComponent0Row, (11 + roots.pageRows) % 12)
            keyClick(Qt.Key_Right)
            verify(types.activeFocus, "right goes to the type wheel")
            keyClick(Qt.Key_Down)
            compare(chords.pickerComponent1Row, 1)
            keyClick(Qt.Key_PageDown)
            compare(chords.pickerComponent1Row, 1 + types.pageRows)
            keyClick(Qt.Key_Home)
            compare(chords.chordName.indexOf("m"), -1, "Home is major")
            // The chord picked sounds and dies away first.
            tryVerify(() => chords.litStrings.some(lit => lit), 2000)
            tryVerify(() => chords.litStrings.every(lit => !lit), 3000)
            keyClick(Qt.Key_Space)
            tryVerify(() => chords.litStrings.some(lit => lit), 2000, "Space plays past a wheel")
        }

        function test_aClickOnARowChoosesIt() {
            const wheel = find("typeWheel")
            mouseClick(wheel, wheel.width / 2, wheel.height / 2 + 2 * rowHeight(wheel))
            compare(chords.pickerComponent1Row, 2)
            settle(wheel)
            mouseClick(wheel, wheel.width / 2, wheel.height / 2 - rowHeight(wheel), Qt.LeftButton,
                       Qt.NoModifier, 450)
            compare(chords.pickerComponent1Row, 1)
            compare(chords.chordName, "Cm")
            verify(wheel.activeFocus, "a clicked wheel takes the keys")
        }

        function test_aLetterJumpsToItsRoot() {
            keyClick(Qt.Key_A)
            compare(chords.chordName, "A")
            tryCompare(find("rootWheel"), "currentIndex", 9)
            find("typeWheel").forceActiveFocus()
            keyClick(Qt.Key_F)
            compare(chords.chordName, "F", "a letter reaches the screen past a wheel")
            keyClick(Qt.Key_F)
            compare(chords.chordName, "F\u266F")
        }

        function test_thePlayButtonAndSpaceLightTheStringsAsHeard() {
            const neck = find("neck")
            tryVerify(() => chords.litStrings.every(lit => !lit), 3000)
            mouseClick(find("playButton"))
            tryVerify(() => findChild(neck, "string5").lit, 2000, "the 5th string lights first")
            verify(!findChild(neck, "string6").lit, "C major's 6th string is muted")
            tryVerify(() => findChild(neck, "string1").lit, 2000)
            tryVerify(() => !findChild(neck, "string1").lit, 2000, "and goes out")
            keyClick(Qt.Key_Space)
            tryVerify(() => findChild(neck, "string5").lit, 2000)
        }

        function test_theStripPagesByWholeDiagrams() {
            chords.hidePicker()
            const list = find("diagramStrip")
            const item = list.itemAtIndex(0)
            verify(list.count > 6)
            fuzzyCompare(list.height / item.height, Math.round(list.height / item.height), 1e-6)
            const number = findChild(list, "firstFretNumber")
            verify(number.font.pixelSize >= 14, "fret numbers as large as body text")
            const lower = find("lowerArrow")
            verify(lower.y >= list.y + list.height, "the arrow is below the diagrams")
            for (let page = 0; page < list.count; ++page) {
                mouseClick(lower, lower.width / 2, lower.height / 2, Qt.LeftButton, Qt.NoModifier, 450)
                tryVerify(() => !list.moving && !list.flicking, 2000)
                wait(300)
                const top = (list.contentY - list.originY) / item.height
                fuzzyCompare(top, Math.round(top), 1e-6)
            }
            fuzzyCompare(list.contentY - list.originY + list.height, list.contentHeight, 1e-6)
        }

        function test_theNoteWheelAnswersKeysWheelAndClicks() {
            const view = createTemporaryObject(orchestraView, root)
            const screen = view.screen
            screen.pickNote(0)
            screen.showNoteIndexPicker()
            const wheel = findChild(view, "noteWheel")
            tryVerify(() => wheel.activeFocus, 1000, "the open wheel takes the keys")
            tryCompare(findChild(view, "notePickerPanel"), "slideOffset", 0)
            keyClick(Qt.Key_Down)
            compare(screen.noteIndex, 1)
            mouseWheel(wheel, wheel.width / 2, wheel.height / 2, 0, -120)
            compare(screen.noteIndex, 2)
            keyClick(Qt.Key_End)
            compare(screen.noteIndex, 11)
            settle(wheel)
            mouseClick(wheel, wheel.width / 2, wheel.height / 2 - 2 * rowHeight(wheel))
            compare(screen.noteIndex, 9)
            keyClick(Qt.Key_Escape)
            verify(!screen.pickerOpen)
        }
    }
}
