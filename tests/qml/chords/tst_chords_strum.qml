import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// A guitarist on the chords tab of the real program, whose sound goes to a
// file (ChordsSoundTest.cpp starts this and listens to the file): A minor
// picked on the wheels, then a finger dragged slowly across the strings;
// then Drop D chosen from the tunings list, D major picked, and its open
// 6th string touched. The window is a wide one, where the wheels stay
// open beside the neck and show enough rows to turn by five. Between sounds the test waits until every string has
// died away, so that each stands alone in the recording:
//   A, Am (whole chords), the five strings of the drag one by one,
//   Dm, D (whole chords, Drop D), the 6th string of D.
Item {
    id: root
    width: 768
    height: 387

    ToolStack {
        id: stack
        anchors.fill: parent
        tools: App.tools
        tab: 3
    }

    TestCase {
        name: "ChordsStrum"
        when: windowShown

        // Long enough for a chord whose lowest string sounds D2 to die away.
        readonly property int ringOut: 4300
        readonly property int stringRingOut: 3500

        function find(name) {
            const item = findChild(stack.currentItem, name)
            verify(item, name + " is on screen")
            return item
        }

        function tap(item) {
            mouseClick(item, item.width / 2, item.height / 2, Qt.LeftButton, Qt.NoModifier, 450)
        }

        // Turns a wheel by `rows` (positive: toward later rows) as a finger
        // does, slowly, pausing before lifting so that it does not fling on.
        function turn(wheel, rows) {
            const step = wheel.height / wheel.visibleItemCount
            const x = wheel.width / 2
            const y = wheel.height / 2
            const distance = -rows * step
            const moves = 12 * Math.abs(rows)
            mousePress(wheel, x, y)
            for (let i = 1; i <= moves; ++i)
                mouseMove(wheel, x, y + distance * i / moves, 25, Qt.LeftButton)
            wait(250)
            mouseMove(wheel, x, y + distance, 25, Qt.LeftButton)
            mouseRelease(wheel, x, y + distance)
            tryVerify(() => !wheel.moving, 3000, "the wheel settles")
        }

        // One finger on the strings: down at the first position, then moved
        // to each next one, holding there for its time in milliseconds.
        function drag(steps) {
            const area = find("stringsTouchArea")
            const y = area.height * 0.7
            touchEvent(area).press(0, area, steps[0][0], y).commit()
            for (let i = 1; i < steps.length; ++i) {
                touchEvent(area).move(0, area, steps[i][0], y).commit()
                wait(steps[i][1])
            }
            touchEvent(area).release(0, area, steps[steps.length - 1][0], y).commit()
        }

        function test_strum() {
            tryVerify(() => !App.tools.loading, 10000, "the sound bank loads")
            App.tools.selectTab(3)
            tryVerify(() => stack.depth === 1 && findChild(stack.currentItem, "chordButton"))
            const chords = App.tools.screen("chordsLibrary")
            compare(chords.chordName, "C")

            turn(find("rootWheel"), -3)
            compare(chords.chordName, "A")
            wait(ringOut)
            turn(find("typeWheel"), 1)
            compare(chords.chordName, "Am")
            wait(ringOut)

            // From left of the 6th string (muted) to right of the 1st.
            drag([[5, 0], [30, 300], [80, stringRingOut], [115, stringRingOut],
                  [150, stringRingOut], [180, stringRingOut], [215, stringRingOut], [250, 0]])

            tap(find("settingsButton"))
            tryCompare(stack, "depth", 2)
            tryVerify(() => !stack.busy)
            tap(find("tuningsRow"))
            tryCompare(stack, "depth", 3)
            tryVerify(() => !stack.busy)
            App.tools.screen("commonSettings").selectRow(28)
            App.tools.goBack(3)
            tryCompare(stack, "depth", 2)
            tryVerify(() => !stack.busy)
            App.tools.goBack(3)
            tryCompare(stack, "depth", 1)
            tryVerify(() => !stack.busy)
            compare(chords.tuningName, "Drop D")

            turn(find("rootWheel"), 5)
            compare(chords.chordName, "Dm")
            wait(ringOut)
            turn(find("typeWheel"), -1)
            compare(chords.chordName, "D")
            compare(chords.neckStrings[0].fret, 0, "the first shape has the open 6th string")
            wait(ringOut)

            drag([[5, 0], [30, 1500], [5, 0]])
        }
    }
}
