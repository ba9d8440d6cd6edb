pragma ComponentBehavior: Bound
import QtQuick
import ZebTools

// The chromatic tuner: the note panel at the top, the scale with the needle,
// the reference frequencies on the scale, the volume bar and the measured
// frequency under the needle's hub. Everything shown comes from the
// TunerChromatic object, in points of its 320 x 387 design stage (the
// screen between the navigation and tab bars), scaled here to fill the view
// whatever its size; the drawings render at the scaled size, so they stay
// sharp in a large window.
Rectangle {
    id: view

    required property TunerChromatic screen

    readonly property real designWidth: 320
    readonly property real designHeight: 387
    // Screen points per design point.
    readonly property real unit: Math.min(width / designWidth, height / designHeight)
    readonly property real pivotX: 160
    readonly property real pivotY: 306

    color: Theme.background

    Item {
        id: stage
        width: view.designWidth * view.unit
        height: view.designHeight * view.unit
        anchors.centerIn: parent

        // The note panel: six letters, the note heard lit and glowing.
        Rectangle {
            id: panel
            x: 8 * view.unit
            y: 8 * view.unit
            width: 304 * view.unit
            height: 56 * view.unit
            radius: Theme.cardRadius * view.unit
            color: Theme.panel
            border.color: Theme.separator
            border.width: Math.max(1, view.unit)

            Repeater {
                model: 6

                Item {
                    id: slot

                    required property int index
                    readonly property bool lit: view.screen.activeSlot === index

                    objectName: "slot" + index
                    x: index * panel.width / 6
                    width: panel.width / 6
                    height: panel.height

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
                        anchors.horizontalCenterOffset: -(sharp.visible ? 4 * view.unit : 0) - octave.shift
                        text: view.screen.slotLetters[slot.index] ?? ""
                        color: slot.lit ? Theme.accent : Theme.textDim
                        font.pixelSize: 30 * view.unit
                        font.bold: true
                    }
                    Text {
                        id: sharp
                        anchors.left: letter.right
                        anchors.top: letter.top
                        visible: view.screen.slotSharps[slot.index] === true
                        text: "#"
                        color: letter.color
                        font.pixelSize: 15 * view.unit
                        font.bold: true
                    }
                    Text {
                        id: octave
                        readonly property real shift: visible ? width / 2 : 0
                        anchors.left: sharp.visible ? sharp.right : letter.right
                        anchors.baseline: letter.baseline
                        visible: slot.lit && text !== ""
                        text: view.screen.activeOctave
                        color: letter.color
                        font.pixelSize: 15 * view.unit
                        font.bold: true
                    }
                }
            }
        }

        ChromaticScaleView {
            screen: view.screen
            unit: view.unit
            pivotX: view.pivotX
            pivotY: view.pivotY
            anchors.fill: parent
        }

        // The reference frequencies: the note's at the top, one semitone
        // either way where the needle shows +-100 cents, both outside the
        // scale; two semitones inside it, under its ends.
        Repeater {
            model: 5

            Text {
                required property int index
                readonly property real angle: index === 0 ? 0
                    : (index % 2 === 1 ? 1 : -1)
                      * (index <= 2 ? view.screen.referenceAngle : view.screen.convertAngle(200))
                readonly property real radius: index <= 2 ? 230 : 152

                objectName: "reference" + index
                x: (view.pivotX + radius * Math.sin(angle)) * view.unit - width / 2
                y: (view.pivotY - radius * Math.cos(angle)) * view.unit - height / 2
                rotation: angle * 180 / Math.PI
                text: view.screen.referenceTexts[index] ?? ""
                color: index === 0 ? Theme.text : Theme.textDim
                font.pixelSize: (index === 0 ? 15 : 13) * view.unit
                font.bold: index === 0
            }
        }

        // The volume bar: a centre segment and nine on each side, 6 points
        // apart, so that every level from 1 to 10 lights one more on each
        // side of the centre; lit where the screen's frame covers them.
        Repeater {
            model: 19

            Rectangle {
                required property int index
                // Steps from the centre: 0 for the centre segment.
                readonly property int step: Math.abs(index - 9)
                readonly property real segmentX: index === 9 ? 156
                    : (index < 9 ? 156 - 6 * step : 160 + 6 * step)
                readonly property real segmentWidth: index === 9 ? 8 : 4
                readonly property bool lit: view.screen.volumeShown > 0
                    && segmentX >= view.screen.volumeX - 0.5
                    && segmentX + segmentWidth <= view.screen.volumeX + view.screen.volumeWidth + 0.5

                objectName: "volumeSegment" + index
                x: segmentX * view.unit
                y: 190 * view.unit
                width: segmentWidth * view.unit
                height: 20 * view.unit
                radius: 1.5 * view.unit
                color: lit ? (step >= 8 ? Theme.accent : "#7ED957") : Theme.panelLight
            }
        }

        ArrowView {
            id: needle

            // The angle on show, in degrees clockwise.
            property real angle: 0

            objectName: "needle"
            unit: view.unit
            x: (view.pivotX - bladeWidth / 2) * view.unit
            y: (view.pivotY - bladeLength) * view.unit
            transform: Rotation {
                origin.x: needle.bladeWidth / 2 * view.unit
                origin.y: needle.bladeLength * view.unit
                angle: needle.angle
            }

            NumberAnimation {
                id: swing
                target: needle
                property: "angle"
                easing.type: Easing.Linear
            }
            Connections {
                target: view.screen
                function onNeedleMoved() {
                    swing.stop()
                    const to = view.screen.needleAngle * 180 / Math.PI
                    const ms = Math.round(view.screen.needleSeconds * 1000)
                    if (ms <= 0) {
                        needle.angle = to
                        return
                    }
                    swing.from = needle.angle
                    swing.to = to
                    swing.duration = ms
                    swing.start()
                }
            }
        }

        // The needle's hub.
        Rectangle {
            x: (view.pivotX - 13) * view.unit
            y: (view.pivotY - 13) * view.unit
            width: 26 * view.unit
            height: width
            radius: width / 2
            color: Theme.panelLight
            border.color: Theme.accent
            border.width: 2 * view.unit
        }

        // The frequency, its right edge a little right of the centre, and
        // the cents beside it, so that neither moves as the other changes.
        Text {
            id: frequencyLabel

            objectName: "frequency"
            anchors.right: parent.left
            anchors.rightMargin: -196 * view.unit
            y: 328 * view.unit
            text: view.screen.frequencyText
            color: view.screen.frequencyAmber ? Theme.accent : Theme.text
            font.pixelSize: 28 * view.unit
            font.bold: true
        }

        Text {
            id: centsLabel

            objectName: "cents"
            x: 206 * view.unit
            anchors.baseline: frequencyLabel.baseline
            text: view.screen.centsText
            color: view.screen.frequencyAmber ? Theme.accent : Theme.textDim
            font.pixelSize: 18 * view.unit
            font.bold: true
        }
    }

    MicrophoneAlert {
        shown: view.screen.microphoneAlert
        title: view.screen.alertTitle
        message: view.screen.alertMessage
        button: view.screen.alertButton
        onDismissed: view.screen.dismissMicrophoneAlert()
    }
}
