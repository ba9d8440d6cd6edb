import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// The chromatic tuner's settings on the program's own screen object: a
// click on a switch row's label flips the switch as a click on the switch
// itself does.
Item {
    width: 320
    height: 480

    TunerChromaticSettingsView {
        id: view
        anchors.fill: parent
        screen: App.tools.screen("tunerChromaticSettings")
    }

    TestCase {
        name: "ChromaticSettings"
        when: windowShown

        function find(name) {
            const item = findChild(view, name)
            verify(item, name + " is on screen")
            return item
        }

        // Apart in time so that two clicks are not taken for a double click.
        function clickAt(item, x) {
            mouseClick(item, x, item.height / 2, Qt.LeftButton, Qt.NoModifier, 450)
        }

        function test_aClickOnTheLabelFlipsTheSwitch_data() {
            return [
                {tag: "Linear scale", row: "linearScaleRow", toggle: "linearScaleSwitch",
                 value: "linearScale"},
                {tag: "All notes", row: "allNotesRow", toggle: "allNotesSwitch", value: "allNotes"},
                {tag: "Classic detection", row: "classicDetectionRow",
                 toggle: "classicDetectionSwitch", value: "classicDetection"},
            ]
        }

        function test_aClickOnTheLabelFlipsTheSwitch(data) {
            const row = find(data.row)
            const toggle = find(data.toggle)
            const before = view.screen[data.value]
            compare(toggle.checked, before)

            clickAt(row, 30)
            compare(view.screen[data.value], !before, "the label's click reaches the screen")
            compare(toggle.checked, !before)

            clickAt(toggle, toggle.width / 2)
            compare(view.screen[data.value], before, "the switch itself still works")
            compare(toggle.checked, before)

            clickAt(row, 30)
            compare(toggle.checked, !before, "the switch still follows after its own click")
            clickAt(row, row.width / 2)
            compare(toggle.checked, before)
        }
    }
}
