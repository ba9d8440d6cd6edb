// The tapering function choice: the five windows on one card, the current
// one ticked. Everything shown comes from the TunerChromaticTaper object and
// every touch is forwarded to it. In a wide window the card keeps to a
// centred column.
pragma ComponentBehavior: Bound

import QtQuick
import ZebTools

Rectangle {
    id: view

    required property TunerChromaticTaper screen

    color: Theme.background

    Column {
        id: content

        x: (view.width - width) / 2
        width: Math.min(view.width - 24, Theme.columnWidth)

        SectionHeader {
            width: content.width
            text: view.screen.header
        }

        Card {
            width: content.width

            Repeater {
                model: view.screen.taperNames

                CardRow {
                    required property string modelData
                    required property int index

                    objectName: "taperRow" + (index + 1)
                    title: modelData
                    marked: index === view.screen.taperMode
                    first: index === 0
                    last: index === view.screen.taperNames.length - 1
                    onClicked: view.screen.selectRow(index + 1)
                }
            }
        }
    }
}
