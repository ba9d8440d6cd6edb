import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// Both tools' settings pages, drawn by the one view on the program's own
// screen objects: only the switch flips the tool's value; the row it sits
// in leads nowhere. The capo row steps the tool's capo by its buttons, the
// wheel and the keys. The left-handed switch is one for both pages, flipped
// by its row, its switch or Space, and turns the by-ear strings round.
Item {
    id: root

    width: 320
    height: 480

    Component {
        id: page

        ToolSettingsView {
            anchors.fill: parent
        }
    }

    Component {
        id: brainPage

        TunerBrainView {
            width: 320
            height: 387
        }
    }

    TestCase {
        name: "ToolSettings"
        when: windowShown

        function test_leftHandedIsOneSwitchForBothTools() {
            const chords = App.tools.screen("chordsLibrarySettings")
            const byEar = App.tools.screen("tunerBrainSettings")
            // Under the page, which takes the clicks.
            const brain = createTemporaryObject(brainPage, root,
                                                {screen: App.tools.screen("tunerBrain")})
            const view = createTemporaryObject(page, root, {screen: chords})
            const row = findChild(view, "leftHandedRow")
            const toggle = findChild(view, "leftHandedSwitch")
            verify(row && toggle, "the row and its switch")
            compare(row.title, "Left-handed")
            verify(!chords.leftHanded && !byEar.leftHanded, "off at first")
            // Where the by-ear tuner draws its 6th string against its 1st.
            const sixthOnTheRight = () => findChild(brain, "string6").x > findChild(brain, "string1").x
            verify(!sixthOnTheRight())

            mouseClick(row, 30, row.height / 2, Qt.LeftButton, Qt.NoModifier, 450)
            verify(chords.leftHanded, "a click on the label flips it")
            verify(byEar.leftHanded, "the by-ear page shows it on too")
            compare(toggle.checked, true)
            tryVerify(sixthOnTheRight, 1000, "the by-ear strings turn round")

            mouseClick(toggle, toggle.width / 2, toggle.height / 2, Qt.LeftButton, Qt.NoModifier,
                       450)
            verify(!chords.leftHanded && !byEar.leftHanded, "the switch flips it back")
            compare(toggle.checked, false)

            row.forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Space)
            verify(byEar.leftHanded, "Space flips it")
            keyClick(Qt.Key_Space)
            verify(!byEar.leftHanded)
            tryVerify(() => !sixthOnTheRight(), 1000)
        }

        function test_onlyTheSwitchFlips_data() {
            return [
                {tag: "by-ear", key: "tunerBrainSettings", name: "loop", title: "Loop"},
                {tag: "chords", key: "chordsLibrarySettings", name: "showNotes",
                 title: "Show notes"},
            ]
        }

        function test_onlyTheSwitchFlips(data) {
            const screen = App.tools.screen(data.key)
            const view = createTemporaryObject(page, root, {screen: screen})
            const row = findChild(view, data.name + "Row")
            const toggle = findChild(view, data.name + "Switch")
            verify(row && toggle, "the row and its switch are named after the switch")
            compare(row.title, data.title)
            const before = screen.isOn
            compare(toggle.checked, before)

            mouseClick(row, 30, row.height / 2, Qt.LeftButton, Qt.NoModifier, 450)
            compare(screen.isOn, before, "a click on the label does not flip")
            compare(toggle.checked, before)

            mouseClick(toggle, toggle.width / 2, toggle.height / 2, Qt.LeftButton, Qt.NoModifier,
                       450)
            compare(screen.isOn, !before, "the switch flips")
            compare(toggle.checked, !before)
            mouseClick(toggle, toggle.width / 2, toggle.height / 2, Qt.LeftButton, Qt.NoModifier,
                       450)
            compare(toggle.checked, before, "and follows the screen after its own click")
        }

        function test_capoRowStepsTheToolsCapo_data() {
            return [
                {tag: "by-ear", key: "tunerBrainSettings", tool: "tunerBrain"},
                {tag: "chords", key: "chordsLibrarySettings", tool: "chordsLibrary"},
            ]
        }

        function test_capoRowStepsTheToolsCapo(data) {
            const screen = App.tools.screen(data.key)
            const tool = App.tools.screen(data.tool)
            const view = createTemporaryObject(page, root, {screen: screen})
            const row = findChild(view, "capoRow")
            const plus = findChild(view, "capoPlus")
            const minus = findChild(view, "capoMinus")
            const value = findChild(view, "capoValue")
            verify(row && plus && minus && value)
            verify(row.visible)
            compare(screen.capo, 0)
            compare(value.text, "none")
            verify(!minus.enabled, "no capo is as low as it goes")

            for (let i = 0; i < 3; ++i)
                mouseClick(plus)
            compare(screen.capo, 3)
            compare(tool.capo, 3, "the tool follows at once")
            compare(value.text, "3rd fret")
            mouseWheel(row, row.width / 2, row.height / 2, 0, -120)
            compare(tool.capo, 3, "the wheel scrolls past a row not clicked")

            mouseClick(row, 30, row.height / 2)
            verify(row.activeFocus, "a click gives the row the keys")
            mouseWheel(row, row.width / 2, row.height / 2, 0, -120)
            compare(tool.capo, 2, "a notch towards the user lowers it")
            keyClick(Qt.Key_Up)
            compare(tool.capo, 3)
            keyClick(Qt.Key_Home)
            compare(tool.capo, 0, "Home takes the capo off")
            compare(value.text, "none")
        }
    }
}
