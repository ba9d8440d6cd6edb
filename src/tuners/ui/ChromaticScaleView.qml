import QtQuick
import ZebTools

// The scale behind the needle: amber ticks every 10 cents from -200 to +200
// (long at each 100, medium at each 50, short between) at the angles of the
// screen's needle law, so the scale follows the chosen law, on a faint arc
// about the needle's hub. Drawn in design points, scaled by `unit`.
Canvas {
    id: scale

    required property TunerChromatic screen
    property real unit: 1
    // The hub and the ticks' outer radius, in design points.
    property real pivotX: 160
    property real pivotY: 306
    property real radius: 205

    onUnitChanged: requestPaint()
    onWidthChanged: requestPaint()
    onHeightChanged: requestPaint()
    Connections {
        target: scale.screen
        function onScaleChanged() { scale.requestPaint() }
    }

    onPaint: {
        const ctx = getContext("2d")
        ctx.reset()
        ctx.scale(unit, unit)
        const full = screen.convertAngle(200)
        ctx.strokeStyle = Qt.rgba(1, 1, 1, 0.12)
        ctx.lineWidth = 1
        ctx.beginPath()
        ctx.arc(pivotX, pivotY, radius + 2, -Math.PI / 2 - full, -Math.PI / 2 + full, false)
        ctx.stroke()

        ctx.strokeStyle = Theme.accent
        ctx.lineWidth = 2
        ctx.lineCap = "round"
        const ticks = screen.scaleTicks
        for (let i = 0; i < ticks.length; ++i) {
            const a = ticks[i].angle
            const inner = radius - ticks[i].length
            const sx = Math.sin(a), cy = Math.cos(a)
            ctx.beginPath()
            ctx.moveTo(pivotX + inner * sx, pivotY - inner * cy)
            ctx.lineTo(pivotX + radius * sx, pivotY - radius * cy)
            ctx.stroke()
        }
    }
}
