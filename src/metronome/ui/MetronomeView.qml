pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The metronome: the tempo display (TempoDisplay), the tempo wheel between
// minus and plus (TempoWheel), the time signature, subdivision and tap
// buttons (ValueButtons) and start/stop. Everything shown comes from the
// Metronome object; touches and keys are forwarded to it. Keys: Space
// starts and stops, T taps, + and - step the tempo, Escape closes a panel.
//
// One column on a phone; a window wide enough for two phone-width columns
// shows the display and the buttons on the left, the wheel and start/stop
// on the right. The wheel takes whatever height is spare.
Rectangle {
    id: view

    required property Metronome screen

    readonly property bool landscape: width >= 600
    // Whole units, for the layered backgrounds (RoundedBox).
    readonly property real columnWidth: Math.floor(landscape ? Math.min((width - 30) / 2, 420)
                                                             : width - 20)
    readonly property real leftX: landscape ? (width - 2 * columnWidth - 10) / 2 : 10
    readonly property real rightX: landscape ? leftX + columnWidth + 10 : leftX
    // The rows under the display and the wheel.
    readonly property real buttonsHeight: 56
    readonly property real startHeight: 52

    color: Theme.background

    TempoDisplay {
        id: display
        screen: view.screen
        x: view.leftX
        y: 8
        width: view.columnWidth
        height: view.landscape ? view.height - 24 - view.buttonsHeight : 176
    }

    TempoWheel {
        id: wheel
        screen: view.screen
        x: view.rightX
        y: view.landscape ? 8 : display.y + display.height + 6
        width: view.columnWidth
        height: view.landscape ? display.height
                               : view.height - y - 18 - view.buttonsHeight - view.startHeight - 5
    }

    ValueButtons {
        id: values
        screen: view.screen
        x: view.leftX
        y: view.landscape ? display.y + display.height + 8 : wheel.y + wheel.height + 8
        width: view.columnWidth
        height: view.buttonsHeight
    }

    Button {
        id: startStop
        objectName: "startStopButton"
        x: view.rightX
        y: view.landscape ? values.y + (values.height - height) / 2 : values.y + values.height + 10
        width: view.columnWidth
        height: view.startHeight
        focusPolicy: Qt.TabFocus
        Accessible.name: view.screen.isPlaying ? "Stop" : "Start"
        onClicked: view.screen.startStop()
        contentItem: Item {
            Row {
                anchors.centerIn: parent
                spacing: 10
                MetronomeGlyph {
                    anchors.verticalCenter: parent.verticalCenter
                    width: 22
                    height: 22
                    shape: view.screen.isPlaying ? "stop" : "play"
                    color: view.screen.isPlaying ? Theme.accent : Theme.background
                }
                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: view.screen.isPlaying ? "STOP" : "START"
                    color: view.screen.isPlaying ? Theme.accent : Theme.background
                    font.bold: true
                    font.pixelSize: 18
                    font.letterSpacing: 2
                }
            }
        }
        background: RoundedBox {
            radius: height / 2
            color: view.screen.isPlaying ? Theme.panelLight : Theme.accent
            border.color: Theme.accent
            border.width: 2
            opacity: startStop.down ? 0.8 : 1
        }

        FocusRing { radius: height / 2 + 2 }
    }
}
