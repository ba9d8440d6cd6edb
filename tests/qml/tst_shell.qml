import QtQuick
import QtTest
import ZebTools
import ZebToolsTest

Item {
    id: root
    width: 320
    height: 480

    MouseArea {
        id: underneath
        anchors.fill: parent
        property int clicks: 0
        onClicked: clicks += 1
    }

    LoadingCover {
        id: cover
        anchors.fill: parent
    }

    ToolTabBar {
        id: bar
        y: 431
        width: 320
        tools: TestShell
    }

    TestCase {
        name: "Shell"
        when: windowShown

        function test_coverSwallowsTouches() {
            cover.visible = true
            mouseClick(root, 160, 240)
            compare(underneath.clicks, 0)
            cover.visible = false
            mouseClick(root, 160, 240)
            compare(underneath.clicks, 1)
        }

        function test_tabBarFollowsAndChoosesTheTool() {
            compare(bar.currentIndex, 0)
            const chords = findChild(bar, "tab3")
            verify(chords)
            mouseClick(chords)
            compare(TestShell.currentTab, 3)
            compare(bar.currentIndex, 3)
        }
    }
}
