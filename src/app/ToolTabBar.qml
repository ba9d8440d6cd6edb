pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The row of the four tools at the bottom of the window.
TabBar {
    id: bar
    required property Tools tools

    readonly property var labels: ["Metronome", "Chromatic", "Brain Tuner", "Chords"]
    readonly property var glyphs: ["\u2669", "\u266F", "\u266A", "\u266B"]

    implicitHeight: Theme.tabBarHeight
    currentIndex: tools.currentTab
    background: Rectangle {
        color: Theme.navBar
        Rectangle { width: parent.width; height: 1; color: Theme.separator }
    }

    Repeater {
        model: bar.labels.length
        TabButton {
            id: button
            required property int index
            objectName: "tab" + index
            height: Theme.tabBarHeight
            onClicked: bar.tools.selectTab(index)
            contentItem: Column {
                spacing: 1
                topPadding: 4
                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: bar.glyphs[button.index]
                    font.pixelSize: 20
                    color: bar.tools.currentTab === button.index ? Theme.accent : Theme.textDim
                }
                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: bar.labels[button.index]
                    font.pixelSize: 10
                    font.family: Theme.fontFamily
                    color: bar.tools.currentTab === button.index ? Theme.accent : Theme.textDim
                }
            }
            background: Rectangle { color: "transparent" }
        }
    }
}
