pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The row of the four tools at the bottom of the window.
TabBar {
    id: bar
    required property Tools tools

    implicitHeight: Theme.tabBarHeight
    currentIndex: tools.currentTab
    background: Rectangle {
        color: Theme.navBar
        Rectangle { width: parent.width; height: 1; color: Theme.separator }
    }

    Repeater {
        model: bar.tools.tabs
        TabButton {
            id: button
            required property int index
            required property var modelData
            objectName: "tab" + index
            height: Theme.tabBarHeight
            onClicked: bar.tools.selectTab(index)
            contentItem: Column {
                spacing: 1
                topPadding: 4
                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: button.modelData.glyph
                    font.pixelSize: 20
                    color: bar.tools.currentTab === button.index ? Theme.accent : Theme.textDim
                }
                // The whole title, made smaller where the tab is narrow.
                Text {
                    width: button.width - 4
                    horizontalAlignment: Text.AlignHCenter
                    text: button.modelData.title
                    font.pixelSize: 10
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 7
                    color: bar.tools.currentTab === button.index ? Theme.accent : Theme.textDim
                }
            }
            background: Rectangle { color: "transparent" }
        }
    }
}
