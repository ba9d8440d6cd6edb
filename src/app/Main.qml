pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import ZebTools

// The window: the four tools behind a tab bar, drawn in a design space of at
// least 320 x 480 that is scaled to fill any window, with the loading cover on
// top.
ApplicationWindow {
    id: window
    required property Tools tools

    width: 320
    height: 480
    minimumWidth: 240
    minimumHeight: 360
    title: "ZebTools"
    color: Theme.background

    // A window bigger than the design grows the text and controls at half the
    // rate it grows, up to one and a half times, and gives the rest to the
    // design space: a big window shows more rows of a list in comfortably
    // large type instead of the same rows ever larger. A smaller window
    // shrinks everything alike.
    readonly property real fitScale: Math.min(width / 320, height / 480)
    readonly property real designScale: fitScale <= 1 ? fitScale
                                                      : Math.min(1 + (fitScale - 1) / 2, 1.5)

    Item {
        id: design
        width: window.width / window.designScale
        height: window.height / window.designScale
        scale: window.designScale
        transformOrigin: Item.TopLeft

        // Keys not taken by a control (a text field) go to the screen on
        // show, and to no other. Ctrl and Alt chords are shortcuts.
        focus: true
        Keys.onPressed: event => {
            const chord = Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier
            if ((event.modifiers & chord) === 0 && window.tools.keyPressed(event.key))
                event.accepted = true
        }

        ColumnLayout {
            anchors.fill: parent
            spacing: 0
            visible: window.tools.tabBarReady

            StackLayout {
                id: stacks
                Layout.fillWidth: true
                Layout.fillHeight: true
                currentIndex: window.tools.currentTab

                // A tab's stack and views are made the first time the tab is
                // shown and kept from then on, so that a start makes only the
                // views on show. Their screens live in the shell from the
                // start and hear everything meant for them while hidden, and
                // a stack made late shows the shell's stack as it stands, so
                // a tab looks the same whenever its views were made.
                Repeater {
                    model: window.tools.tabs.length
                    Loader {
                        id: tabView
                        required property int index
                        readonly property bool onShow: window.tools.tabBarReady
                                                       && window.tools.currentTab === index
                        objectName: "tabView" + index

                        function make() {
                            if (onShow && !item)
                                setSource("ToolStack.qml", { tools: window.tools, tab: index })
                        }
                        onOnShowChanged: make()
                        Component.onCompleted: make()
                    }
                }
            }

            ToolTabBar {
                id: tabBar
                Layout.fillWidth: true
                tools: window.tools
            }
        }

        // Above the tab bar, where it hides neither the navigation bar nor
        // the tabs.
        NoticeBanner {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: 8
            anchors.bottomMargin: tabBar.height + 8
            tools: window.tools
        }

        LoadingCover {
            anchors.fill: parent
            visible: window.tools.loading
        }
    }

    // The keys come back to the screen on show when what had them goes away
    // (a control on a page that was closed), so that Escape, Space and the
    // digits never fall into nothing.
    onActiveFocusItemChanged: {
        if (activeFocusItem === null || activeFocusItem === contentItem)
            refocus.start()
    }
    // Once the change is over, not inside it.
    Timer {
        id: refocus
        interval: 0
        onTriggered: design.forceActiveFocus()
    }

    DesktopShortcuts {
        tools: window.tools
    }
}
