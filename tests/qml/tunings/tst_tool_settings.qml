import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// Both tools' settings pages, drawn by the one view on the program's own
// screen objects: only the switch flips the tool's value; the row it sits
// in leads nowhere. The left-handed switch is one for both pages, flipped
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
    }
}
