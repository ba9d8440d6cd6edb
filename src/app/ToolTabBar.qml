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
            padding: 0
            // The title names the tab for a screen reader. The keyboard
            // chooses a tab with Ctrl+1 to Ctrl+4, so Tab passes the tab bar
            // by (a tab bar holds Tab in a ring of its own).
            text: modelData.title
            focusPolicy: Qt.NoFocus
            onClicked: bar.tools.selectTab(index)
            contentItem: Column {
                spacing: 0
                topPadding: 3
                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: button.modelData.glyph
                    font.pixelSize: 17
                    lineHeight: 0.9
                    color: bar.tools.currentTab === button.index ? Theme.accent : Theme.textDim
                }
                // The whole title in body-sized type, on two lines where
                // the tab is too narrow for one.
                Text {
                    width: button.width - 4
                    horizontalAlignment: Text.AlignHCenter
                    text: button.modelData.title
                    font.pixelSize: 11
                    lineHeight: 0.9
                    wrapMode: Text.WordWrap
                    maximumLineCount: 2
                    elide: Text.ElideRight
                    color: bar.tools.currentTab === button.index ? Theme.accent : Theme.textDim
                }
            }
            background: Rectangle { color: "transparent" }
        }
    }
}
