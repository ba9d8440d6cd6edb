pragma ComponentBehavior: Bound
import QtQuick
import ZebTools

// The neck, upright: the 6th string on the left, the nut at the top. Above
// the nut a row tells each string's fate (x muted, o open, or the open
// string's note in note mode); on the frets, a dot per finger with its
// number or note, barres as bars. A string lights while it is heard. The
// neck scrolls to the fingering's frets and numbers the first fret shown.
// Touches on it strum the strings: they are forwarded to the screen in this
// item's units (TouchView). With the finder on, the neck scrolls under a
// finger and a tap presses the string at that fret, or, above the nut,
// turns the string between muted and open (ChordsFinder). For a left-handed
// player all of it is mirrored, the 6th string on the right: where each
// string is drawn, and which string a tap lands on, come from the screen.
Item {
    id: neck

    required property ChordsLibrary screen
    readonly property bool finding: screen.finder.active

    // Units of the layout: the strings sit where TouchView puts them.
    readonly property real markersHeight: 26
    readonly property real nutHeight: 6
    readonly property real fretHeight: 62
    readonly property int fretCount: 15
    readonly property real boardLeft: Math.min(...screen.stringXs) - 16
    readonly property real boardRight: Math.max(...screen.stringXs) + 16

    function fretCentre(fret) {
        return nutHeight + (fret - 0.5) * fretHeight
    }
    // The string number under x, or 0 between strings' reach.
    function stringAt(x) {
        return screen.stringAt(x)
    }

    clip: true

    Repeater {
        model: neck.screen.neckStrings

        Text {
            required property var modelData
            x: modelData.x - width / 2
            y: 2
            width: 26
            height: neck.markersHeight - 4
            visible: modelData.muted || modelData.open
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            text: modelData.muted ? "\u00D7" : (modelData.text !== "" ? modelData.text : "\u25CB")
            color: modelData.muted ? Theme.textDim : Theme.text
            font.pixelSize: modelData.muted || modelData.text === "" ? 18 : 13
            font.bold: true
        }
    }

    TapHandler {
        objectName: "nutTaps"
        enabled: neck.finding
        target: null
        onTapped: point => {
            if (point.position.y < neck.markersHeight)
                neck.screen.finder.tapNut(neck.stringAt(point.position.x))
        }
    }

    Flickable {
        id: board

        objectName: "neckBoard"
        y: neck.markersHeight
        width: neck.width
        height: neck.height - y
        interactive: neck.finding
        boundsBehavior: Flickable.StopAtBounds
        contentWidth: width
        contentHeight: neck.nutHeight + neck.fretCount * neck.fretHeight
        contentY: neck.finding ? 0
                               : Math.max(0, Math.min((neck.screen.neckFirstFret - 1) * neck.fretHeight,
                                                      contentHeight - height))
        Behavior on contentY {
            NumberAnimation { duration: 250; easing.type: Easing.OutCubic }
        }

        Rectangle {
            x: neck.boardLeft
            width: neck.boardRight - neck.boardLeft
            height: board.contentHeight
            color: "#1F1A14"

            // A tap on the board presses a string at a fret (on the nut:
            // lets it ring open).
            TapHandler {
                objectName: "fretTaps"
                enabled: neck.finding
                onTapped: point => {
                    const string = neck.stringAt(point.position.x + neck.boardLeft)
                    const y = point.position.y
                    if (y < neck.nutHeight)
                        neck.screen.finder.tapNut(string)
                    else
                        neck.screen.finder.tapFret(string, Math.floor((y - neck.nutHeight) / neck.fretHeight) + 1)
                }
            }
        }
        Rectangle {
            x: neck.boardLeft
            width: neck.boardRight - neck.boardLeft
            height: neck.nutHeight
            color: "#E8E1D0"
        }
        Repeater {
            model: neck.fretCount

            Rectangle {
                required property int index
                x: neck.boardLeft
                y: neck.nutHeight + (index + 1) * neck.fretHeight - 1
                width: neck.boardRight - neck.boardLeft
                height: 2
                color: "#8C8C8C"
            }
        }
        // Fret numbers beside the board while finding.
        Repeater {
            model: neck.finding ? neck.fretCount : 0

            Text {
                required property int index
                x: 0
                width: neck.boardLeft - 4
                y: neck.fretCentre(index + 1) - height / 2
                horizontalAlignment: Text.AlignRight
                text: index + 1
                color: Theme.textDim
                font.pixelSize: 11
            }
        }
        // Inlays on frets 3, 5, 7, 9, 12 (two) and 15.
        Repeater {
            model: [[3, 0], [5, 0], [7, 0], [9, 0], [12, -1], [12, 1], [15, 0]]

            Rectangle {
                required property var modelData
                width: 12
                height: 12
                radius: 6
                x: (neck.boardLeft + neck.boardRight) / 2 - 6 + modelData[1] * 2 * 34
                y: neck.fretCentre(modelData[0]) - 6
                color: "#3A3228"
            }
        }
        // The strings; one lights while its note is heard (the screen says
        // when, from the sound itself).
        Repeater {
            model: 6

            Item {
                id: string

                required property int index
                readonly property bool lit: neck.screen.litStrings[5 - index] === true

                objectName: "string" + (6 - index)
                x: neck.screen.stringXs[5 - index]
                height: board.contentHeight

                Rectangle {
                    x: -width / 2
                    width: 11
                    height: parent.height
                    radius: width / 2
                    color: Theme.accent
                    opacity: string.lit ? 0.35 : 0
                }
                Rectangle {
                    x: -width / 2
                    width: (string.lit ? 4.5 : 3) - string.index * 0.35
                    height: parent.height
                    color: string.lit ? Theme.accent : "#D8D2C4"
                }
            }
        }
        NeckCapo {
            screen: neck.screen
            x: neck.boardLeft - 4
            width: neck.boardRight - neck.boardLeft + 8
        }
        Repeater {
            model: neck.screen.neckBarres

            Rectangle {
                required property var modelData
                x: modelData.fromX - 14
                y: neck.fretCentre(modelData.fret) - 13
                width: modelData.toX - modelData.fromX + 28
                height: 26
                radius: 13
                color: Theme.accent
                opacity: 0.9

                Text {
                    anchors.centerIn: parent
                    text: parent.modelData.text
                    color: Theme.background
                    font.pixelSize: 15
                    font.bold: true
                }
            }
        }
        Repeater {
            model: neck.screen.neckStrings

            Rectangle {
                required property var modelData
                visible: modelData.dot
                x: modelData.x - 13
                y: neck.fretCentre(Math.max(modelData.fret, 1)) - 13
                width: 26
                height: 26
                radius: 13
                color: Theme.accent
                border.color: Theme.background
                border.width: 1

                Text {
                    anchors.centerIn: parent
                    text: parent.modelData.text
                    color: Theme.background
                    font.pixelSize: text.length > 1 ? 11 : 15
                    font.bold: true
                }
            }
        }
    }

    Text {
        objectName: "firstFretLabel"
        visible: neck.screen.neckFirstFret > 1
        x: 2
        width: neck.boardLeft - 4
        y: board.y + neck.nutHeight + neck.fretHeight / 2 - height / 2
        horizontalAlignment: Text.AlignRight
        text: neck.screen.neckFirstFret + "fr"
        color: Theme.textDim
        font.pixelSize: 12
        font.bold: true
    }

    RoundedBox {
        visible: neck.screen.emptyNote !== ""
        anchors.centerIn: board
        width: Math.round(note.width + 24)
        height: Math.round(note.implicitHeight + 16)
        radius: 8
        color: Theme.panel
        border.color: Theme.separator

        Text {
            id: note
            objectName: "emptyNote"
            anchors.centerIn: parent
            width: Math.min(implicitWidth, neck.width - 48)
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            text: neck.screen.emptyNote
            color: Theme.text
            font.pixelSize: 14
        }
    }

    MultiPointTouchArea {
        id: strings

        // Fingers down on the strings; only one strums.
        property int down: 0

        objectName: "stringsTouchArea"
        anchors.fill: parent
        enabled: !neck.finding
        mouseEnabled: true
        onPressed: points => {
            strings.down += points.length
            neck.screen.touchBegan()
        }
        onReleased: points => strings.down = Math.max(0, strings.down - points.length)
        onCanceled: strings.down = 0
        onUpdated: points => {
            if (points.length > 0)
                neck.screen.touchMoved(points[0].x, strings.down)
        }
    }
}
