// The top of the metronome settings table, above the presets: the
// first-beat accent switch, the five sound packs with a tick on the selected
// one, and the first row of the presets card, "Add new preset", which is its
// last row.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import ZebTools

Column {
    id: tableTop

    required property MetronomeSettings screen

    topPadding: 16

    Card {
        width: tableTop.width

        SwitchRow {
            objectName: "accentRow"
            switchName: "accentSwitch"
            title: tableTop.screen.accentTitle
            first: true
            last: true
            isOn: tableTop.screen.firstBeatEmphasis
            onFlipped: tableTop.screen.toggleAccent()
        }
    }

    SectionHeader {
        width: tableTop.width
        text: tableTop.screen.packHeader
    }

    Card {
        width: tableTop.width

        Repeater {
            id: packs

            model: tableTop.screen.packNames

            CardRow {
                required property string modelData
                required property int index

                objectName: "packRow" + (index + 1)
                title: modelData
                marked: index + 1 === tableTop.screen.packNumber
                first: index === 0
                last: index === packs.count - 1
                onClicked: tableTop.screen.choosePack(index + 1)
            }
        }
    }

    PracticeCard {
        width: tableTop.width
        practice: tableTop.screen.practice
    }

    SectionHeader {
        width: tableTop.width
        text: tableTop.screen.presetsHeader
    }

    ItemDelegate {
        id: addRow

        objectName: "addPresetRow"
        x: 1
        width: tableTop.width - 2
        height: Theme.rowHeight
        leftPadding: 16
        onClicked: tableTop.screen.addPresetRequested()
        background: RowBackground {
            down: addRow.down
            first: true
            last: tableTop.screen.presets.count === 0
        }
        contentItem: Row {
            spacing: 10

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 22
                height: 22
                radius: 11
                color: Theme.accent

                Text {
                    anchors.centerIn: parent
                    text: "+"
                    color: Theme.background
                    font.pixelSize: 18
                    font.bold: true
                }
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: tableTop.screen.addPresetTitle
                color: Theme.accent
                font.pixelSize: 16
            }
        }

        RowSeparator {
            visible: tableTop.screen.presets.count > 0
        }
    }
}
