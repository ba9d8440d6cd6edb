import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// One tab's navigation stack. It mirrors the shell's stack for this tab:
// the shell decides what is pushed, this view animates it.
StackView {
    id: stack
    required property Tools tools
    required property int tab

    function pageFor(key) {
        return pageComponent.createObject(null, { tools: stack.tools, tab: stack.tab, key: key,
                                                  depth: stack.depth + 1 })
    }

    Component {
        id: pageComponent
        ScreenPage {}
    }

    Connections {
        target: stack.tools
        function onTabBarReadyChanged() {
            if (stack.tools.tabBarReady && stack.depth === 0)
                stack.push(stack.pageFor(stack.tools.stack(stack.tab)[0]), {}, StackView.Immediate)
        }
        function onPushed(tab, key) {
            if (tab === stack.tab)
                stack.push(stack.pageFor(key))
        }
        function onPopped(tab) {
            if (tab === stack.tab)
                stack.pop()
        }
    }

    Component.onCompleted: {
        if (tools.tabBarReady)
            push(pageFor(tools.stack(tab)[0]), {}, StackView.Immediate)
    }
}
