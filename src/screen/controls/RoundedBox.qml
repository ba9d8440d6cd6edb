import QtQuick

// A rounded rectangle with nothing inside it (a button's background). The
// software renderer of headless runs and screenshots pieces rounded
// rectangles together from corners and strips, whose edges leave dark seams
// once the window scales them; there this one is drawn whole in a layer.
// Give it a whole width: the layer loses the right edge of a fractional one.
Rectangle {
    layer.enabled: GraphicsInfo.api === GraphicsInfo.Software
    layer.smooth: true
}
