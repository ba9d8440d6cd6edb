pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The tempo display: the beat light and time signature, the three big
// digits with the tempo's name, and the settings button; the choice panel
// slides in over it from the right. Taller than its 122 design units (a
// wide window), the digits grow with it.
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

    Rectangle {
        id: beatLight
        objectName: "beatLight"
        x: 16
        y: 16
        width: 14
        height: 14
        radius: 7
        color: display.screen.beatAccented ? Theme.accent : Theme.text
        opacity: 0.12

        SequentialAnimation {
            id: flash
            PropertyAction { target: beatLight; property: "opacity"; value: 1 }
            NumberAnimation {
                target: beatLight
                property: "opacity"
                to: 0.12
                duration: 180
                easing.type: Easing.OutQuad
            }
        }
        Connections {
            target: display.screen
            function onBeatCountChanged() { flash.restart() }
        }
    }

    Text {
        x: 36
        y: 14
        text: display.screen.numerator + "/" + display.screen.denominator
        color: Theme.textDim
        font.pixelSize: 12
    }

    // The digits, the name and "BPM", laid out for a 300 x 122 display.
    Item {
        id: readOut
        anchors.centerIn: parent
        width: 300
        height: 122
        scale: Math.max(1, Math.min(display.width / 300, display.height / 122, 1.5))

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
            font.pixelSize: 11
        }
    }

    Button {
        id: settings
        objectName: "settingsButton"
        anchors.right: parent.right
        anchors.top: parent.top
        width: 44
        height: 44
        focusPolicy: Qt.NoFocus
        onClicked: display.screen.openSettings()
        contentItem: MetronomeGlyph {
            shape: "gear"
            color: settings.down ? Theme.accent : Theme.textDim
        }
        background: Item {}
        padding: 12
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
