import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// One tab's navigation stack. It mirrors the shell's stack for this tab:
// the shell decides what is pushed, this view animates it. The stack makes
// its pages and destroys them when they are popped or the window closes.
StackView {
    id: stack
    required property Tools tools
    required property int tab

    function pushPage(key, operation) {
        push(pageComponent, { tools: stack.tools, tab: stack.tab, key: key, depth: stack.depth + 1 },
             operation)
    }

    Component {
        id: pageComponent
        ScreenPage {}
    }

    Connections {
        target: stack.tools
        function onTabBarReadyChanged() {
            if (stack.tools.tabBarReady && stack.depth === 0)
                stack.pushPage(stack.tools.stack(stack.tab)[0], StackView.Immediate)
        }
        function onPushed(tab, key) {
            if (tab === stack.tab)
                stack.pushPage(key, StackView.PushTransition)
        }
        function onPopped(tab) {
            if (tab === stack.tab)
                stack.pop()
        }
    }

    Component.onCompleted: {
        if (tools.tabBarReady)
            pushPage(tools.stack(tab)[0], StackView.Immediate)
    }
}
