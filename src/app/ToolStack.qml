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

    // Catches up with the shell's stack at once: a stack made after screens
    // were pushed onto its tab starts with all of them, the top one on show.
    function showShellStack() {
        const keys = stack.tools.stack(stack.tab)
        for (let i = stack.depth; i < keys.length; ++i)
            stack.pushPage(keys[i], StackView.Immediate)
    }

    Connections {
        target: stack.tools
        function onTabBarReadyChanged() {
            stack.showShellStack()
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

    Component.onCompleted: showShellStack()
}
