pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The metronome: the tempo display (beat light, three big digits, the
// tempo's name, the settings button) under which the choice panels slide,
// the tempo wheel between minus and plus, the time signature, subdivision
// and tap buttons, and start/stop. Everything shown comes from the
// Metronome object; touches and keys are forwarded to it. Keys: Space
// starts and stops, T taps, + and - step the tempo, Escape closes a panel.
Rectangle {
    id: view

    required property Metronome screen

    color: Theme.background
    focus: true

    onVisibleChanged: if (visible) forceActiveFocus()
    Component.onCompleted: forceActiveFocus()

    Keys.onPressed: event => {
        switch (event.key) {
        case Qt.Key_Space: view.screen.startStop(); break
        case Qt.Key_T: view.screen.tap(); break
        case Qt.Key_Plus:
        case Qt.Key_Equal: view.screen.plus(); break
        case Qt.Key_Minus:
        case Qt.Key_Underscore: view.screen.minus(); break
        case Qt.Key_Escape: view.screen.closePanel(); break
        default: return
        }
        event.accepted = true
    }

    component RoundButton: Button {
        id: round

        property color fill: Theme.panel
        property color ink: Theme.text

        focusPolicy: Qt.NoFocus
        contentItem: Text {
            text: round.text
            color: round.ink
            font.family: Theme.fontFamily
            font.bold: true
            font.pixelSize: 30
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle {
            radius: height / 2
            color: round.down ? Theme.panelLight : round.fill
            border.color: round.down ? Theme.accent : Theme.separator
        }
    }

    // Tempo display, with the choice panel sliding in from the right.
    Item {
        id: display
        x: 10
        y: 8
        width: parent.width - 20
        height: 122
        clip: true

        Rectangle {
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
            color: view.screen.beatAccented ? Theme.accent : Theme.text
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
                target: view.screen
                function onBeatCountChanged() { flash.restart() }
            }
        }

        Text {
            x: 36
            y: 14
            text: view.screen.numerator + "/" + view.screen.denominator
            color: Theme.textDim
            font.family: Theme.fontFamily
            font.pixelSize: 12
        }

        Row {
            objectName: "tempoDigits"
            anchors.horizontalCenter: parent.horizontalCenter
            y: 4
            Repeater {
                model: view.screen.tempoDigits
                Text {
                    required property string modelData
                    width: 58
                    horizontalAlignment: Text.AlignHCenter
                    text: modelData
                    color: Theme.text
                    font.family: Theme.fontFamily
                    font.bold: true
                    font.pixelSize: 86
                }
            }
        }

        Text {
            objectName: "tempoName"
            anchors.horizontalCenter: parent.horizontalCenter
            y: 92
            text: view.screen.tempoName
            color: Theme.accent
            font.family: Theme.fontFamily
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
            font.family: Theme.fontFamily
            font.pixelSize: 11
        }

        Button {
            id: settings
            objectName: "settingsButton"
            anchors.right: parent.right
            anchors.top: parent.top
            width: 44
            height: 44
            focusPolicy: Qt.NoFocus
            onClicked: view.screen.openSettings()
            contentItem: MetronomeGlyph {
                shape: "gear"
                color: settings.down ? Theme.accent : Theme.textDim
            }
            background: Item {}
            padding: 12
        }

        ChoicePanel {
            id: choices
            objectName: "choicePanel"
            screen: view.screen
            y: 0
            width: parent.width
            height: parent.height
            x: view.screen.panel === Metronome.NoPanel ? parent.width + 2 : 0
            visible: x < parent.width
            Behavior on x {
                NumberAnimation { duration: 200; easing.type: Easing.InQuad }
            }
        }
    }

    // Tempo wheel between minus and plus.
    Item {
        id: wheelRow
        y: display.y + display.height + 6
        width: parent.width
        height: 120

        RoundButton {
            objectName: "minusButton"
            anchors.verticalCenter: parent.verticalCenter
            x: 22
            width: 60
            height: 60
            text: "\u2212"
            onClicked: view.screen.minus()
            autoRepeat: true
        }

        Rectangle {
            anchors.fill: wheel
            radius: 12
            color: Theme.panel
            border.color: Theme.separator
        }
        Rectangle {
            anchors.horizontalCenter: wheel.horizontalCenter
            anchors.verticalCenter: wheel.verticalCenter
            width: wheel.width - 8
            height: 28
            radius: 6
            color: Theme.panelLight
            border.color: Theme.accent
        }

        Tumbler {
            id: wheel
            objectName: "tempoWheel"
            anchors.centerIn: parent
            width: 110
            height: parent.height
            focusPolicy: Qt.NoFocus
            wrap: false
            visibleItemCount: 5
            model: view.screen.wheelLabels
            currentIndex: view.screen.row

            onCurrentIndexChanged: if (moving) view.screen.showWheelRow(currentIndex)
            onMovingChanged: {
                if (!moving && currentIndex !== view.screen.row)
                    view.screen.selectRow(currentIndex)
            }
            Connections {
                target: view.screen
                function onRowChanged() {
                    if (wheel.moving)
                        return
                    // Straight to the row, as the digits do, without
                    // scrolling through every row between.
                    wheel.currentIndex = view.screen.row
                    wheel.positionViewAtIndex(view.screen.row, Tumbler.Center)
                }
            }

            delegate: Text {
                required property string modelData
                required property int index
                readonly property real distance: Math.abs(Tumbler.displacement)
                text: modelData
                color: distance < 0.5 ? Theme.text : Theme.textDim
                opacity: 1.0 - Math.min(distance, 2.5) / 3.2
                font.family: Theme.fontFamily
                font.bold: distance < 0.5
                font.pixelSize: distance < 0.5 ? 20 : 16
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }

        RoundButton {
            objectName: "plusButton"
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: 22
            width: 60
            height: 60
            text: "+"
            onClicked: view.screen.plus()
            autoRepeat: true
        }
    }

    // Time signature, subdivision and tap.
    Row {
        id: values
        x: 10
        y: wheelRow.y + wheelRow.height + 8
        width: parent.width - 20
        spacing: 8
        height: 56

        // The three buttons share the row, however wide the window is.
        readonly property real buttonWidth: (width - 2 * spacing) / 3

        Rectangle {
            objectName: "timeSignatureButton"
            width: values.buttonWidth
            height: parent.height
            radius: 10
            color: Theme.panel
            border.color: view.screen.panel === Metronome.NumeratorPanel
                          || view.screen.panel === Metronome.DenominatorPanel
                          ? Theme.accent : Theme.separator

            Column {
                anchors.fill: parent
                Repeater {
                    model: [Metronome.NumeratorPanel, Metronome.DenominatorPanel]
                    Button {
                        id: half
                        required property int modelData
                        required property int index
                        width: parent.width
                        height: 28
                        focusPolicy: Qt.NoFocus
                        onClicked: view.screen.openPanel(modelData)
                        contentItem: Text {
                            text: half.index === 0 ? view.screen.numerator : view.screen.denominator
                            color: view.screen.panel === half.modelData ? Theme.accent : Theme.text
                            font.family: Theme.fontFamily
                            font.bold: true
                            font.pixelSize: 19
                            horizontalAlignment: Text.AlignHCenter
                            verticalAlignment: Text.AlignVCenter
                        }
                        background: Rectangle {
                            radius: 10
                            color: half.down ? Theme.panelLight : "transparent"
                        }
                        padding: 0
                    }
                }
            }
            Rectangle {
                anchors.centerIn: parent
                width: 26
                height: 2
                color: Theme.textDim
            }
        }

        Button {
            id: patternButton
            objectName: "patternButton"
            width: values.buttonWidth
            height: parent.height
            focusPolicy: Qt.NoFocus
            onClicked: view.screen.openPanel(Metronome.PatternPanel)
            padding: 6
            contentItem: PatternGlyph {
                pattern: view.screen.pattern
                color: view.screen.panel === Metronome.PatternPanel ? Theme.accent : Theme.text
            }
            background: Rectangle {
                radius: 10
                color: patternButton.down ? Theme.panelLight : Theme.panel
                border.color: view.screen.panel === Metronome.PatternPanel ? Theme.accent
                                                                          : Theme.separator
            }
        }

        Button {
            id: tapButton
            objectName: "tapButton"
            width: values.buttonWidth
            height: parent.height
            focusPolicy: Qt.NoFocus
            onPressed: view.screen.tap()
            contentItem: Text {
                text: "TAP"
                color: tapButton.down ? Theme.accent : Theme.text
                font.family: Theme.fontFamily
                font.bold: true
                font.pixelSize: 18
                font.letterSpacing: 2
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
            background: Rectangle {
                radius: 10
                color: tapButton.down ? Theme.panelLight : Theme.panel
                border.color: tapButton.down ? Theme.accent : Theme.separator
            }
        }
    }

    Button {
        id: startStop
        objectName: "startStopButton"
        x: 10
        y: values.y + values.height + 10
        width: parent.width - 20
        height: 52
        focusPolicy: Qt.NoFocus
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
                    font.family: Theme.fontFamily
                    font.bold: true
                    font.pixelSize: 18
                    font.letterSpacing: 2
                }
            }
        }
        background: Rectangle {
            radius: height / 2
            color: view.screen.isPlaying ? Theme.panelLight : Theme.accent
            border.color: Theme.accent
            border.width: 2
            opacity: startStop.down ? 0.8 : 1
        }
    }
}
