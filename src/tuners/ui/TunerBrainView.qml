pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The by-ear tuner: the tuning's name and notes with the settings button
// on a panel above, and the six strings of the tuning on a dark stage
// (BrainString), the 6th on the left as on a guitar facing you (on the
// right for a left-handed player: the screen gives the order). Everything
// shown comes from the TunerBrain object; touches on a string, and the keys
// 1 to 6, are forwarded to it.
//
// The stage keeps to a centred column in a wide window and grows in height;
// strings, discs and text grow with the window.
Rectangle {
    id: view

    required property TunerBrain screen

    readonly property real columnWidth: Math.floor(Math.min(width - 20, 520))
    // Design units of the 300 x 387 layout to window units; never below 1.
    readonly property real unit: Math.max(1, Math.min(columnWidth / 300, height / 387))
    // Light gauge (in thousandths of an inch), strings 1 to 6.
    readonly property var gauges: [10, 13, 17, 26, 36, 46]

    color: Theme.background

    // The panels are drawn under their contents, not around them: a
    // rounded box is a layer under the software renderer, and whatever it
    // holds would be drawn again with it.
    RoundedBox {
        anchors.fill: header
        radius: 14
        color: Theme.panel
        border.color: Theme.separator
    }

    Item {
        id: header
        x: Math.round((view.width - width) / 2)
        y: 10
        width: view.columnWidth
        height: Math.round(66 * view.unit)

        Column {
            x: 16
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - 16 - settingsButton.width - 8
            spacing: 2

            Text {
                objectName: "tuningName"
                width: parent.width
                elide: Text.ElideRight
                text: view.screen.tuningName
                color: Theme.text
                font.pixelSize: Math.round(20 * view.unit)
                font.bold: true
            }
            Text {
                objectName: "caption"
                width: parent.width
                elide: Text.ElideRight
                text: view.screen.caption
                color: view.screen.loopSound ? Theme.accent : Theme.textDim
                font.pixelSize: Math.round(12 * view.unit)
            }
        }

        Button {
            id: settingsButton
            objectName: "settingsButton"
            anchors.right: parent.right
            anchors.rightMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            width: 44
            height: 44
            padding: 11
            focusPolicy: Qt.TabFocus
            Accessible.name: "Settings"
            onClicked: view.screen.clickSettingsButton()
            contentItem: MetronomeGlyph {
                shape: "gear"
                color: settingsButton.down ? Theme.accent : Theme.textDim
            }
            background: Item {}

            FocusRing {}
        }
    }

    RoundedBox {
        anchors.fill: stage
        radius: 14
        color: "#0B0B0B"
        border.color: Theme.separator
    }

    Item {
        id: stage
        objectName: "stage"
        x: header.x
        y: header.y + header.height + 10
        width: view.columnWidth
        height: view.height - y - 10

        readonly property real nutY: Math.round(18 * view.unit)
        readonly property real stringWidth: (width - 16) / 6
        readonly property real disc: Math.round(Math.min(stringWidth * 0.72, 34 * view.unit))

        // The nut the strings leave from.
        Rectangle {
            x: 8
            y: stage.nutY - height
            width: stage.width - 16
            height: Math.round(6 * view.unit)
            radius: height / 2
            color: "#E8E0CC"
        }

        Repeater {
            model: 6

            BrainString {
                required property int index

                screen: view.screen
                number: view.screen.stringOrder[index]
                x: 8 + index * stage.stringWidth
                y: 0
                width: stage.stringWidth
                height: stage.height - 8
                nutY: stage.nutY
                disc: stage.disc
                thickness: Math.round((2 + view.gauges[number - 1] / 10) * view.unit)
            }
        }
    }
}
