import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

// The finder on the chords tab of the real program at phone size: the Find
// button turns it on, the 6th string is muted at the nut, an open C is
// fretted by clicks on the neck and named, with its notes and formula; a
// fret clicked twice lifts the finger; Find again gives the neck back to
// the fingering and the strum. Left-handed, the same clicks on the strings
// as drawn, the 6th on the right, hold the same chord.
Item {
    id: root
    width: 320
    height: 480

    ToolStack {
        id: stack
        anchors.fill: parent
        tools: App.tools
        tab: 3
    }

    TestCase {
        name: "ChordsFinder"
        when: windowShown

        readonly property ChordsLibrary chords: App.tools.screen("chordsLibrary")
        property bool leftHanded: false

        function find(name) {
            const item = findChild(stack.currentItem, name)
            verify(item, name + " is on screen")
            return item
        }
        // The neck's geometry, as NeckView lays it out, mirrored left-handed.
        function stringX(number) {
            const x = 43.5 + 34 * (6 - number)
            return leftHanded ? 257 - x : x
        }
        function hand(left) {
            leftHanded = left
            if (chords.leftHanded !== left)
                App.tools.screen("chordsLibrarySettings").flipLeftHanded()
            compare(chords.leftHanded, left)
        }
        function cleanup() {
            hand(false)
        }
        function fretY(fret) {
            return 26 + 6 + (fret - 0.5) * 62
        }

        function initTestCase() {
            tryVerify(() => !App.tools.loading, 10000, "the sound bank loads")
            App.tools.selectTab(3)
            tryVerify(() => stack.depth === 1 && findChild(stack.currentItem, "chordButton"))
        }

        function test_clickedFretsAreNamed_data() {
            return [{tag: "right-handed", left: false}, {tag: "left-handed", left: true}]
        }

        function test_clickedFretsAreNamed(data) {
            hand(data.left)
            const neck = find("neck")
            const button = find("finderButton")
            verify(!chords.finder.active, "off at first")
            compare(find("chordTones").text, "C E G  \u00B7  1 3 5")
            mouseClick(button)
            tryVerify(() => chords.finder.active)
            verify(!find("stringsTouchArea").enabled, "no strum while finding")

            mouseClick(neck, stringX(6), 13)
            mouseClick(neck, stringX(5), fretY(3))
            mouseClick(neck, stringX(4), fretY(2))
            mouseClick(neck, stringX(2), fretY(1))
            compare(chords.finder.heldText, "x 3 2 0 1 0  \u00B7  C E G C E")
            compare(chords.finder.bestName, "C")
            compare(find("chordName").text, "C")
            compare(find("chordTones").text, "x 3 2 0 1 0  \u00B7  C E G C E")
            const names = find("finderNames")
            compare(names.count, 1)
            // The dots say their notes.
            compare(chords.neckStrings[1].text, "C")

            mouseClick(neck, stringX(2), fretY(1))
            compare(chords.finder.bestName, "Cmaj7", "the same fret again lifts the finger")
            compare(names.count, 2)

            mouseClick(find("finderClear"))
            compare(chords.finder.heldText, "0 0 0 0 0 0  \u00B7  E A D G B E")

            mouseClick(button)
            tryVerify(() => !chords.finder.active)
            verify(find("stringsTouchArea").enabled)
            compare(find("chordName").text, chords.chordName)
        }
    }
}
