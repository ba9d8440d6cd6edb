import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// Both tools' settings pages, drawn by the one view on the program's own
// screen objects: only the switch flips the tool's value; the row it sits
// in leads nowhere.
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

    TestCase {
        name: "ToolSettings"
        when: windowShown

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
