pragma ComponentBehavior: Bound
import QtQuick
import ZebTools

// The chromatic tuner's note panel: six letters, the note heard lit and
// glowing, the note the pitch pipe plays ringed. Touching a letter plays its
// note, or stops it; so does Space on a letter reached with Tab.
Rectangle {
    id: panel

    required property TunerChromatic screen
    required property real unit

    radius: Theme.cardRadius * panel.unit
    color: Theme.panel
    border.color: Theme.separator
    border.width: Math.max(1, panel.unit)

    Repeater {
        model: 6

        Item {
            id: slot

            required property int index
            readonly property bool lit: panel.screen.activeSlot === index

            objectName: "slot" + index
            // From the keyboard: Tab reaches each letter, Space or Enter
            // plays or stops its note as a touch does.
            activeFocusOnTab: letter.text !== ""
            Keys.onSpacePressed: panel.screen.touchSlot(slot.index)
            Keys.onReturnPressed: panel.screen.touchSlot(slot.index)
            Keys.onEnterPressed: panel.screen.touchSlot(slot.index)
            Accessible.role: Accessible.Button
            Accessible.name: letter.text + (sharp.visible ? " sharp" : "")
                             + (panel.screen.toneSlot === slot.index ? ", playing" : "")
            Accessible.onPressAction: panel.screen.touchSlot(slot.index)
            x: index * panel.width / 6
            width: panel.width / 6
            height: panel.height

            // The note the pitch pipe plays.
            Rectangle {
                anchors.centerIn: parent
                width: Math.min(parent.width, parent.height) - 6 * panel.unit
                height: width
                radius: width / 2
                color: "transparent"
                border.color: Theme.accent
                border.width: 2 * panel.unit
                visible: panel.screen.toneSlot === slot.index
            }
            MouseArea {
                objectName: "slotTouch" + slot.index
                anchors.fill: parent
                onClicked: panel.screen.touchSlot(slot.index)
            }

            Canvas {
                anchors.fill: parent
                visible: slot.lit
                onWidthChanged: requestPaint()
                onPaint: {
                    const ctx = getContext("2d")
                    ctx.reset()
                    const r = Math.min(width, height) / 2
                    const glow = ctx.createRadialGradient(width / 2, height / 2, 0,
                                                          width / 2, height / 2, r)
                    glow.addColorStop(0, Qt.rgba(0.96, 0.75, 0.05, 0.55))
                    glow.addColorStop(1, Qt.rgba(0.96, 0.75, 0.05, 0))
                    ctx.fillStyle = glow
                    ctx.fillRect(0, 0, width, height)
                }
            }
            Text {
                id: letter
                anchors.centerIn: parent
                anchors.horizontalCenterOffset: -(sharp.visible ? 4 * panel.unit : 0) - octave.shift
                text: panel.screen.slotLetters[slot.index] ?? ""
                color: slot.lit ? Theme.accent : Theme.textDim
                font.pixelSize: 30 * panel.unit
                font.bold: true
            }
            Text {
                id: sharp
                anchors.left: letter.right
                anchors.top: letter.top
                visible: panel.screen.slotSharps[slot.index] === true
                text: "#"
                color: letter.color
                font.pixelSize: 15 * panel.unit
                font.bold: true
            }
            Text {
                id: octave
                readonly property real shift: visible ? width / 2 : 0
                anchors.left: sharp.visible ? sharp.right : letter.right
                anchors.baseline: letter.baseline
                visible: slot.lit && text !== ""
                text: panel.screen.activeOctave
                color: letter.color
                font.pixelSize: 15 * panel.unit
                font.bold: true
            }
            FocusRing {
                shown: slot.activeFocus
                control: null
            }
        }
    }
}
