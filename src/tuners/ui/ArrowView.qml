import QtQuick
import ZebTools

// The needle: a blade from its hub to the tip, filled with a two-colour
// gradient, drawn in design points and scaled by `unit`. The item's own
// rotation is the angle on show; TunerChromaticView turns it about the hub.
Canvas {
    id: arrow

    property real unit: 1
    // Design size of the blade: its length above the hub and the tail below.
    readonly property real bladeLength: 190
    readonly property real tail: 24
    readonly property real bladeWidth: 10
    property color tipColor: Theme.accent
    property color baseColor: "#E4572E"

    width: bladeWidth * unit
    height: (bladeLength + tail) * unit
    onUnitChanged: requestPaint()

    onPaint: {
        const ctx = getContext("2d")
        ctx.reset()
        ctx.scale(unit, unit)
        // Clipped to the item's bounds, so that nothing is drawn outside.
        ctx.beginPath()
        ctx.rect(0, 0, bladeWidth, bladeLength + tail)
        ctx.clip()
        const gradient = ctx.createLinearGradient(0, 0, 0, bladeLength + tail)
        gradient.addColorStop(0, tipColor)
        gradient.addColorStop(1, baseColor)
        ctx.fillStyle = gradient
        const mid = bladeWidth / 2
        ctx.beginPath()
        ctx.moveTo(mid, 0)
        ctx.lineTo(mid + 1.5, 4)
        ctx.lineTo(bladeWidth, bladeLength)
        ctx.lineTo(mid + 2.5, bladeLength + tail)
        ctx.lineTo(mid - 2.5, bladeLength + tail)
        ctx.lineTo(0, bladeLength)
        ctx.lineTo(mid - 1.5, 4)
        ctx.closePath()
        ctx.fill()
    }
}
