import QtQuick
import ZebTools

// The keyboard on a desktop: Ctrl+1 to Ctrl+4 choose a tool exactly as a
// tap on its tab does, and the desktop's quit key ends the application the
// way closing the window does, so that what is on show is saved.
Item {
    id: keys
    required property Tools tools

    // Keys wait, as touches do, until the sounds have loaded.
    readonly property bool ready: keys.tools.tabBarReady && !keys.tools.loading

    Shortcut {
        id: quitKey
        // StandardKey comes with QtQuick; this qmllint does not know it.
        sequence: StandardKey.Quit // qmllint disable unqualified
        context: Qt.ApplicationShortcut
        onActivated: Qt.quit()
    }
    // Platforms whose theme names no quit key (the offscreen one) get the
    // Linux desktops' own.
    Shortcut {
        sequence: "Ctrl+Q"
        enabled: quitKey.nativeText === ""
        context: Qt.ApplicationShortcut
        onActivated: Qt.quit()
    }

    Shortcut { sequence: "Ctrl+1"; enabled: keys.ready; onActivated: keys.tools.selectTab(0) }
    Shortcut { sequence: "Ctrl+2"; enabled: keys.ready; onActivated: keys.tools.selectTab(1) }
    Shortcut { sequence: "Ctrl+3"; enabled: keys.ready; onActivated: keys.tools.selectTab(2) }
    Shortcut { sequence: "Ctrl+4"; enabled: keys.ready; onActivated: keys.tools.selectTab(3) }
}
