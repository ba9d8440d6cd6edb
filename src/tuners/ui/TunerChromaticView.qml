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
//
// Chosen on the settings screen: the strobe band in place of the scale and
// the needle, and the pitch history over the needle's lower half. Touching a
// slot's letter plays its note until touched again.
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

        NotePanelView {
            screen: view.screen
            unit: view.unit
            x: 8 * view.unit
            y: 8 * view.unit
            width: 304 * view.unit
            height: 56 * view.unit
        }

        ChromaticScaleView {
            visible: !view.screen.strobeView
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
                visible: index === 0 || !view.screen.strobeView
                x: (view.pivotX + radius * Math.sin(angle)) * view.unit - width / 2
                y: (view.pivotY - radius * Math.cos(angle)) * view.unit - height / 2
                rotation: angle * 180 / Math.PI
                text: view.screen.referenceTexts[index] ?? ""
                color: index === 0 ? Theme.text : Theme.textDim
                font.pixelSize: (index === 0 ? 15 : 13) * view.unit
                font.bold: index === 0
            }
        }

        // The volume bar, 100 points wide under the dial, growing from its
        // middle, on the same scale as the microphone sensitivity meter, with
        // the threshold marked.
        LevelMeter {
            objectName: "volumeBar"
            centred: true
            x: 110 * view.unit
            y: 196 * view.unit
            width: 100 * view.unit
            height: 8 * view.unit
            tickOverhang: 4 * view.unit
            level: view.screen.level
            mark: view.screen.thresholdMark
        }

        // With the pitch history on show the needle shows above it only.
        Item {
            width: stage.width
            height: view.screen.pitchHistory ? 218 * view.unit : stage.height
            clip: view.screen.pitchHistory

            ArrowView {
                id: needle

                // The angle on show, in degrees clockwise.
                property real angle: 0

                objectName: "needle"
                visible: !view.screen.strobeView
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
        }

        // The needle's hub.
        Rectangle {
            visible: !view.screen.strobeView && !view.screen.pitchHistory
            x: (view.pivotX - 13) * view.unit
            y: (view.pivotY - 13) * view.unit
            width: 26 * view.unit
            height: width
            radius: width / 2
            color: Theme.panelLight
            border.color: Theme.accent
            border.width: 2 * view.unit
        }

        StrobeView {
            objectName: "strobe"
            visible: view.screen.strobeView
            screen: view.screen
            unit: view.unit
            x: 16 * view.unit
            y: 86 * view.unit
            width: 288 * view.unit
            height: 96 * view.unit
        }

        PitchHistoryView {
            objectName: "pitchHistory"
            visible: view.screen.pitchHistory
            screen: view.screen
            unit: view.unit
            x: 8 * view.unit
            y: 218 * view.unit
            width: 304 * view.unit
            height: 102 * view.unit
        }

        // The frequency, its right edge a little right of the centre, and
        // the cents beside it, so that neither moves as the other changes.
        Text {
            id: frequencyLabel

            objectName: "frequency"
            anchors.right: parent.left
            anchors.rightMargin: -196 * view.unit
            y: 328 * view.unit
            text: view.screen.toneSlot >= 0 ? view.screen.toneText : view.screen.frequencyText
            color: view.screen.frequencyAmber || view.screen.toneSlot >= 0 ? Theme.accent
                                                                          : Theme.text
            font.pixelSize: 28 * view.unit
            font.bold: true
        }

        Text {
            id: centsLabel

            objectName: "cents"
            x: 206 * view.unit
            anchors.baseline: frequencyLabel.baseline
            text: view.screen.toneSlot >= 0 ? "\u266A" : view.screen.centsText
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
