import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// The metronome with a mouse and a keyboard: the tempo wheel and the value
// buttons under the mouse wheel, keys and clicks, the beats of the bar, and
// the presets renamed, updated and deleted with their dialogs answering
// Return, Enter and Escape.
Item {
    id: root
    width: 320
    height: 387

    // Keys no control takes go to the screen on show, as in the window.
    focus: true
    Keys.onPressed: event => event.accepted = App.tools.keyPressed(event.key)

    ToolStack {
        id: stack
        anchors.fill: parent
        tools: App.tools
        tab: 0
    }

    TestCase {
        name: "MetronomeDesktop"
        when: windowShown

        property var metronome: null

        function find(name) {
            const item = findChild(stack.currentItem, name)
            verify(item, name + " is on screen")
            return item
        }

        function click(item, x, y) {
            mouseClick(item, x === undefined ? item.width / 2 : x,
                       y === undefined ? item.height / 2 : y, Qt.LeftButton, Qt.NoModifier, 450)
        }

        function initTestCase() {
            tryVerify(() => !App.tools.loading, 10000, "the sound bank loads")
            tryVerify(() => stack.depth === 1 && findChild(stack.currentItem, "tempoWheel"))
            metronome = App.tools.screen("metronome")
        }

        // The practice rows, before any preset exists: a switch leaves the
        // page where it was, a value shows its step at once, and the wheel
        // scrolls past a row until the row is clicked.
        function test_0_practiceRows() {
            const settings = openSettings()
            const practice = settings.practice
            verify(!practice.trainerOn && settings.presets.count === 0)
            const list = find("settingsList")
            settle(list)
            list.contentY = list.originY + list.contentHeight - list.height
            const fromTop = list.contentY - list.originY
            verify(fromTop > 0, "the page scrolls at this size")
            click(find("trainerSwitch"))
            verify(practice.trainerOn)
            wait(50)
            compare(list.contentY - list.originY, fromTop, "the page stays where it was")

            list.contentY = list.originY + list.contentHeight - list.height
            const field = PracticeSettings.TrainerBars
            const value = find("practiceValue" + field)
            const row = find("practiceRow" + field)
            compare(value.text, "4")
            click(find("stepPlus" + field))
            compare(value.text, "5", "the step shows at once")
            mouseWheel(row, 30, row.height / 2, 0, 120)
            compare(value.text, "5", "the wheel scrolls past a row not clicked")
            click(row, 30)
            verify(row.activeFocus)
            mouseWheel(row, 30, row.height / 2, 0, 120)
            compare(value.text, "6")
            keyClick(Qt.Key_Down)
            compare(value.text, "5")
            practice.step(field, -1)
            compare(value.text, "4")

            click(find("trainerSwitch"))
            verify(!practice.trainerOn)
            App.tools.goBack(0)
            tryCompare(stack, "depth", 1)
            tryVerify(() => !stack.busy)
            root.forceActiveFocus()
        }

        function test_1_tempoWheel() {
            const wheel = find("tempoWheel")
            metronome.selectRow(100)
            const steps = [
                { act: () => mouseWheel(wheel, wheel.width / 2, wheel.height / 2, 0, -120), row: 101 },
                { act: () => mouseWheel(wheel, wheel.width / 2, wheel.height / 2, 0, 240), row: 99 },
                // Half notches add up.
                { act: () => { mouseWheel(wheel, 10, 10, 0, -60); mouseWheel(wheel, 10, 10, 0, -60) },
                  row: 100 },
                // A click on the row below the middle one.
                { act: () => click(wheel, wheel.width / 2,
                                   wheel.height / 2 + wheel.height / wheel.visibleItemCount),
                  row: 101 },
                { act: () => keyClick(Qt.Key_Down), row: 102 },
                { act: () => keyClick(Qt.Key_Up), row: 101 },
                { act: () => keyClick(Qt.Key_PageDown), row: 101 + wheel.visibleItemCount },
                { act: () => keyClick(Qt.Key_PageUp), row: 101 },
                { act: () => keyClick(Qt.Key_End), row: 220 },
                { act: () => keyClick(Qt.Key_Down), row: 220 },
            ]
            for (let i = 0; i < steps.length; ++i) {
                steps[i].act()
                compare(metronome.row, steps[i].row, "step " + i)
                tryCompare(wheel, "currentIndex", steps[i].row)
            }
            verify(wheel.activeFocus, "a click gives the wheel the keys")
            verify(findChild(wheel, "focusFrame").visible, "and its focus shows")
            compare(metronome.tempoDigits.join(""), "240")
            metronome.selectRow(60)
            root.forceActiveFocus()
        }

        // A finger's slow drag of the wheel by `rows` (positive: toward later
        // rows), held before lifting so that it does not fling on. The wheel
        // follows the finger only once it has gone the drag distance.
        function drag(wheel, rows) {
            const distance = rows * wheel.height / wheel.visibleItemCount
                             + Qt.styleHints.startDragDistance
            const x = wheel.width / 2
            const y = wheel.height / 2
            mousePress(wheel, x, y)
            for (let i = 1; i <= 12 * rows; ++i)
                mouseMove(wheel, x, y - distance * i / (12 * rows), 25, Qt.LeftButton)
            wait(250)
            mouseRelease(wheel, x, y - distance)
            tryVerify(() => !wheel.moving, 3000, "the wheel settles")
        }

        // The keys, the mouse wheel and the clicks must leave a finger's drag
        // to the wheel's rows.
        function test_1b_tempoWheelDrags() {
            const wheel = find("tempoWheel")
            metronome.selectRow(100)
            tryCompare(wheel, "currentIndex", 100)
            drag(wheel, 2)
            // The rows here are a few pixels high: the drag's direction and
            // rough length are what a finger can be held to.
            verify(metronome.row > 100 && metronome.row <= 103, "dragged to " + metronome.row)
            metronome.selectRow(60)
        }

        function test_2_valueButtonsAndPanels() {
            metronome.chooseNumerator(4)
            metronome.chooseDenominator(4)
            const numerator = find("numeratorButton")
            mouseWheel(numerator, numerator.width / 2, numerator.height / 2, 0, 120)
            compare(metronome.numerator, 5)
            compare(findChild(stack.currentItem, "beatMarks").children.length - 1, 5,
                    "a mark for each beat of the bar")

            click(numerator)
            compare(metronome.panel, Metronome.NumeratorPanel)
            keyClick(Qt.Key_Right)
            keyClick(Qt.Key_PageDown)
            compare(metronome.numerator, 14)
            compare(metronome.panel, Metronome.NumeratorPanel, "stepping keeps the panel open")
            keyClick(Qt.Key_Return)
            compare(metronome.panel, Metronome.NoPanel)
            click(find("denominatorButton"))
            keyClick(Qt.Key_Down)
            compare(metronome.denominator, 8)
            keyClick(Qt.Key_Escape)
            compare(metronome.panel, Metronome.NoPanel)
            metronome.chooseDenominator(4)
            metronome.chooseNumerator(3)
        }

        function test_3_beatsLightAsTheyAreHeard() {
            compare(metronome.numerator, 3)
            click(find("startStopButton"))
            verify(metronome.isPlaying)
            // The bar from its downbeat, lit in the accent colour, to its
            // last beat and round again.
            const downbeat = find("beatMark1")
            tryCompare(metronome, "currentBeat", 1, 3000)
            verify(Qt.colorEqual(downbeat.color, Theme.accent))
            tryCompare(metronome, "currentBeat", 2, 3000)
            verify(!Qt.colorEqual(downbeat.color, Theme.accent))
            verify(Qt.colorEqual(find("beatMark2").color, Theme.text))
            tryCompare(metronome, "currentBeat", 3, 3000)
            tryCompare(metronome, "currentBeat", 1, 3000)
            click(find("startStopButton"))
            verify(!metronome.isPlaying)
            compare(metronome.currentBeat, 0)
        }

        function openSettings() {
            click(find("settingsButton"))
            tryCompare(stack, "depth", 2)
            tryVerify(() => !stack.busy)
            return App.tools.screen("metronomeSettings")
        }

        // Waits for the list to come to rest: the settings bring a new
        // preset into view with a slide of their own (a quarter second),
        // and a click aimed before it ends lands where the row was.
        function settle(list) {
            let last = NaN
            let since = 0
            tryVerify(() => {
                if (list.contentY !== last)
                    since = Date.now()
                last = list.contentY
                return Date.now() - since > 400
            }, 3000)
        }

        function addPreset(settings, title) {
            settings.addPresetRequested()
            const field = find("presetTitleField")
            tryVerify(() => field.activeFocus)
            field.text = title
            keyClick(Qt.Key_Enter)
            tryVerify(() => !settings.addDialogOpen)
        }

        function test_4_presets() {
            metronome.selectRow(100)
            const settings = openSettings()
            addPreset(settings, "Other")
            const before = settings.presets.count
            addPreset(settings, "Desk one")
            compare(settings.presets.count, before + 1, "Enter saves")
            const row = settings.presets.count
            const list = find("settingsList")
            settle(list)
            list.positionViewAtEnd()
            const presetRow = find("presetRow" + row)
            compare(findChild(presetRow, "presetSummary").text, "120 BPM  3/4")

            // Rename: the field holds the name; Escape cancels, Return saves.
            click(find("renamePreset" + row))
            const field = find("presetTitleField")
            tryVerify(() => field.activeFocus)
            compare(field.text, "Desk one")
            keyClick(Qt.Key_Escape)
            tryVerify(() => !settings.addDialogOpen)
            click(find("renamePreset" + row))
            tryVerify(() => field.activeFocus)
            field.text = ""
            keyClick(Qt.Key_Return)
            compare(settings.message, "Please enter a Preset title.")
            const message = find("presetMessage")
            tryVerify(() => message.activeFocus)
            keyClick(Qt.Key_Return)
            compare(settings.message, "", "Return is the message's OK")
            tryVerify(() => field.activeFocus)
            field.text = "desk ONE"
            keyClick(Qt.Key_Enter)
            compare(settings.message, "", "its own name in other letters")
            tryVerify(() => !settings.addDialogOpen)
            click(find("renamePreset" + row))
            tryVerify(() => field.activeFocus)
            field.text = "oTHER"
            keyClick(Qt.Key_Return)
            compare(settings.message, "You allready have preset with same name.")
            tryVerify(() => message.activeFocus)
            keyClick(Qt.Key_Escape)
            compare(settings.message, "", "Escape is the message's OK too")
            tryVerify(() => field.activeFocus)
            compare(field.text, "oTHER", "the field keeps the name")
            field.text = "Desk two"
            keyClick(Qt.Key_Return)
            tryVerify(() => !settings.addDialogOpen)
            compare(presetRow.name, "Desk two")
            verify(App.readDataFile("presetsList.plist").indexOf("Desk two") >= 0)

            // Update to the current settings, and undo it.
            metronome.selectRow(120)
            click(find("updatePreset" + row))
            compare(findChild(presetRow, "presetSummary").text, "140 BPM  3/4")
            verify(find("undoBar").visible)
            click(find("undoButton"))
            compare(findChild(presetRow, "presetSummary").text, "120 BPM  3/4")
            verify(!find("undoBar").visible)

            // Delete asks nothing; Undo puts the row back.
            click(find("deletePreset" + row))
            compare(settings.presets.count, before)
            compare(settings.addDialogOpen, false)
            verify(find("undoBar").visible)
            click(find("undoButton"))
            compare(settings.presets.count, before + 1)
            list.positionViewAtEnd()
            tryCompare(find("presetRow" + row), "name", "Desk two")

            // The main screen names the preset in use.
            settings.choosePreset(row)
            App.tools.goBack(0)
            tryCompare(stack, "depth", 1)
            tryVerify(() => !stack.busy)
            compare(find("presetName").text, "Preset: Desk two")
            click(find("plusButton"))
            compare(find("presetName").text, "")
        }
    }
}
