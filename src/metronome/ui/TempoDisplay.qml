pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The tempo display: the beats of the bar (BeatMarks), the three big
// digits with the tempo's name, the speed trainer's tempo and bars to its
// next step while it plays, the preset in use and the settings button;
// the choice panel slides in over it from the right. The beats and the
// digits grow with the display.
Item {
    id: display

    required property Metronome screen

    clip: true

    RoundedBox {
        anchors.fill: parent
        radius: 14
        color: Theme.panel
        border.color: Theme.separator
    }

    BeatMarks {
        id: beats
        objectName: "beatDisplay"
        screen: display.screen
        x: 12
        y: 10
        width: parent.width - x - 48
        height: Math.round(Math.min(Math.max(30, display.height * 0.2), 84))
    }

    // Below the beats, above the preset's name.
    Item {
        id: readOutArea
        y: beats.y + beats.height
        width: parent.width
        height: trainerLabel.y - y
    }

    // The digits, the name and "BPM", laid out for a 300 x 122 display.
    Item {
        id: readOut
        anchors.centerIn: readOutArea
        width: 300
        height: 122
        scale: Math.min(readOutArea.width / 300, readOutArea.height / 122, 1.5)

        Row {
            objectName: "tempoDigits"
            anchors.horizontalCenter: parent.horizontalCenter
            y: 4
            Repeater {
                model: display.screen.tempoDigits
                Text {
                    required property string modelData
                    width: 58
                    horizontalAlignment: Text.AlignHCenter
                    text: modelData
                    color: Theme.text
                    font.bold: true
                    font.pixelSize: 86
                }
            }
        }

        Text {
            objectName: "tempoName"
            anchors.horizontalCenter: parent.horizontalCenter
            y: 92
            text: display.screen.tempoName
            color: Theme.accent
            font.bold: true
            font.pixelSize: 15
            font.letterSpacing: 3
        }

        Text {
            anchors.right: parent.right
            anchors.rightMargin: 14
            y: 76
            text: "BPM"
            color: Theme.textDim
            font.pixelSize: 12
        }
    }

    Text {
        id: trainerLabel
        objectName: "trainerStatus"
        x: 14
        y: presetLabel.y - height
        width: parent.width - 28
        // From the font, not from the text's own layout, which would
        // follow the height back.
        height: display.screen.trainerStatus === "" ? 0 : Math.ceil(trainerMetrics.height)
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideRight
        text: display.screen.trainerStatus === "" ? "" : "Trainer: " + display.screen.trainerStatus
        color: Theme.accent
        font.bold: true
        font.pixelSize: Math.round(Math.max(12, Math.min(display.height * 0.055, 20)))
    }

    FontMetrics {
        id: trainerMetrics
        font: trainerLabel.font
    }

    Text {
        id: presetLabel
        objectName: "presetName"
        x: 14
        y: parent.height - height - 6
        width: parent.width - 28
        height: display.screen.presetName === "" ? 0 : implicitHeight
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: display.screen.presetName === "" ? "" : "Preset: " + display.screen.presetName
        color: Theme.textDim
        font.pixelSize: Math.round(Math.max(12, Math.min(display.height * 0.05, 18)))
    }

    Button {
        id: settings
        objectName: "settingsButton"
        anchors.right: parent.right
        anchors.top: parent.top
        width: 44
        height: 44
        focusPolicy: Qt.TabFocus
        Accessible.name: "Settings"
        onClicked: display.screen.openSettings()
        contentItem: MetronomeGlyph {
            shape: "gear"
            color: settings.down ? Theme.accent : Theme.textDim
        }
        background: Item {}
        padding: 12

        FocusRing {}
    }

    ChoicePanel {
        objectName: "choicePanel"
        screen: display.screen
        y: 0
        width: parent.width
        height: parent.height
        x: display.screen.panel === Metronome.NoPanel ? parent.width + 2 : 0
        visible: x < parent.width
        Behavior on x {
            NumberAnimation { duration: 200; easing.type: Easing.InQuad }
        }
    }
}
