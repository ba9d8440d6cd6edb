import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// A guitarist on the by-ear tuner of the real program, whose sound goes to
// a file (BrainSoundTest.cpp starts this and listens to the file): Drop D
// chosen through the gear, the settings and the tunings list, then the 6th
// string touched once, its highlight fading, and left to ring out; the 5th
// looped; then, with a capo at the 3rd fret, the 6th string once more. The
// recording holds those tones and nothing else.
Item {
    id: root
    width: 320
    height: 387

    ToolStack {
        id: stack
        anchors.fill: parent
        tools: App.tools
        tab: 2
    }

    TestCase {
        name: "BrainDropD"
        when: windowShown

        function find(name) {
            const item = findChild(stack.currentItem, name)
            verify(item, name + " is on screen")
            return item
        }

        function tap(item) {
            mouseClick(item, item.width / 2, item.height / 2)
        }

        function settle(depth) {
            tryCompare(stack, "depth", depth)
            tryVerify(() => !stack.busy)
        }

        function test_dropDSixthString() {
            tryVerify(() => !App.tools.loading, 10000, "the sound bank loads")
            App.tools.selectTab(2)
            tryVerify(() => stack.depth === 1 && findChild(stack.currentItem, "string6"))
            const brain = App.tools.screen("tunerBrain")
            compare(brain.noteNames[5], "E")

            tap(find("settingsButton"))
            settle(2)
            tap(find("tuningsRow"))
            settle(3)
            App.tools.screen("commonSettings").selectRow(28)
            App.tools.goBack(2)
            settle(2)
            compare(find("tuningName").text, "Drop D")
            App.tools.goBack(2)
            settle(1)
            compare(brain.noteNames[5], "D")

            tap(find("string6"))
            compare(brain.highlights[5], TunerBrain.Fading)
            // Lit, fading with an ease-in: three quarters at half time, out
            // at 2.2 s (give or take a busy machine's frames).
            const glow = find("glow6")
            wait(1100)
            verify(glow.opacity > 0.55 && glow.opacity < 0.9, "half way: " + glow.opacity)
            wait(1300)
            compare(glow.opacity, 0)
            // The low E recording, a tone lower, takes longer to ring out.
            wait(3600)

            // Loop on: the 5th string sounds until it is touched again,
            // longer than its recording lasts.
            tap(find("settingsButton"))
            settle(2)
            tap(find("loopSwitch"))
            verify(brain.loopSound)
            App.tools.goBack(2)
            settle(1)
            tap(find("string5"))
            verify(brain.highlights[4] === TunerBrain.Held && find("loopMark5").opacity === 1)
            wait(7000)
            tap(find("string5"))
            compare(brain.highlights[4], TunerBrain.Hidden)
            wait(1500)

            // A capo at the 3rd fret, the loop off: the 6th string sounds F2.
            tap(find("settingsButton"))
            settle(2)
            tap(find("loopSwitch"))
            for (let i = 0; i < 3; ++i)
                tap(find("capoPlus"))
            compare(find("capoValue").text, "3rd fret")
            App.tools.goBack(2)
            settle(1)
            compare(brain.noteNames[5], "F")
            tap(find("string6"))
            wait(4000)
        }
    }
}
