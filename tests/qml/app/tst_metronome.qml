import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// A user session on the metronome tab: start, change the tempo, open the
// settings, add a preset, come back; the saved files must show it.
Item {
    id: root
    width: 320
    height: 387

    ToolStack {
        id: stack
        anchors.fill: parent
        tools: App.tools
        tab: 0
    }

    TestCase {
        name: "MetronomeSession"
        when: windowShown

        function find(name) {
            const item = findChild(stack.currentItem, name)
            verify(item, name + " is on screen")
            return item
        }

        // A touch on a control, far enough in time from the previous one that
        // the test's synthetic events are not taken for a double click.
        function tap(item) {
            mouseClick(item, item.width / 2, item.height / 2, Qt.LeftButton, Qt.NoModifier, 450)
        }

        function savedRow() {
            const match = App.readDataFile("saveState.plist")
                .match(/<key>BPM<\/key>\s*<integer>(\d+)<\/integer>/)
            return match ? Number(match[1]) : -1
        }

        function test_session() {
            tryVerify(() => !App.tools.loading, 10000, "the sound bank loads")
            tryVerify(() => stack.depth === 1 && findChild(stack.currentItem, "startStopButton"))
            const metronome = App.tools.screen("metronome")

            tap(find("startStopButton"))
            verify(metronome.isPlaying)

            tap(find("plusButton"))
            tap(find("plusButton"))
            compare(metronome.row, 62)
            verify(metronome.isPlaying, "a tempo change restarts, it does not stop")

            tap(find("settingsButton"))
            tryCompare(stack, "depth", 2)
            tryVerify(() => !stack.busy)
            compare(savedRow(), 62, "leaving the metronome saves its settings")

            // The presets are below the packs: scroll down to them as a user would.
            const addRow = find("addPresetRow")
            let list = addRow.parent
            while (list && list.contentY === undefined)
                list = list.parent
            verify(list, "the settings scroll")
            list.contentY = list.originY + Math.max(0, list.contentHeight - list.height)
            tap(addRow)
            const field = find("presetTitleField")
            tryVerify(() => field.visible)
            field.text = "Warm-up & \"fast\""
            tap(find("saveButton"))
            tryVerify(() => App.readDataFile("presetsList.plist").indexOf("Warm-up &amp; \"fast\"") >= 0,
                      3000, "the preset is written to its file")
            compare(App.tools.screen("metronomeSettings").presetNumber, 1)

            App.tools.goBack(0)
            tryCompare(stack, "depth", 1)
            tryVerify(() => !stack.busy)
            tap(find("startStopButton"))
            verify(!metronome.isPlaying)
            compare(savedRow(), 62)
        }
    }
}
