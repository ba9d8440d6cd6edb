pragma Singleton
import QtQuick

// Colours and sizes shared by every view, in design units of the 320 x 480
// layout. The font is the application's (set once at start).
QtObject {
    readonly property color background: "#121212"
    readonly property color panel: "#1E1E1E"
    readonly property color panelLight: "#2A2A2A"
    readonly property color separator: "#333333"
    readonly property color text: "#FFFFFF"
    readonly property color textDim: "#9A9A9A"
    readonly property color accent: "#F5C00E"
    readonly property color danger: "#E5484D"
    readonly property color navBar: "#050505"
    readonly property int navBarHeight: 44
    readonly property int tabBarHeight: 49
    readonly property int rowHeight: 44
    readonly property int cardRadius: 10
    // Lists and settings stay this wide however wide the window is.
    readonly property int columnWidth: 460
}
