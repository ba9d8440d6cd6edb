import QtQuick

// The metronome's small drawn symbols: "play", "stop" and "gear", in a
// square box.
Canvas {
    id: glyph

    property string shape: "play"
    property color color: "white"

    implicitWidth: 24
    implicitHeight: 24

    onShapeChanged: requestPaint()
    onColorChanged: requestPaint()
    onWidthChanged: requestPaint()
    onHeightChanged: requestPaint()

    onPaint: {
        const ctx = getContext("2d")
        ctx.reset()
        const s = Math.min(width, height)
        ctx.translate((width - s) / 2, (height - s) / 2)
        ctx.scale(s / 24, s / 24)
        ctx.fillStyle = glyph.color
        ctx.strokeStyle = glyph.color
        ctx.lineJoin = "round"
        if (glyph.shape === "play") {
            ctx.lineWidth = 2
            ctx.beginPath()
            ctx.moveTo(6, 3.5)
            ctx.lineTo(20.5, 12)
            ctx.lineTo(6, 20.5)
            ctx.closePath()
            ctx.fill()
            ctx.stroke()
        } else if (glyph.shape === "stop") {
            ctx.beginPath()
            ctx.roundedRect(4.5, 4.5, 15, 15, 2.5, 2.5)
            ctx.fill()
        } else if (glyph.shape === "gear") {
            ctx.translate(12, 12)
            for (let i = 0; i < 8; ++i) {
                ctx.rotate(Math.PI / 4)
                ctx.fillRect(-2, -11, 4, 5)
            }
            ctx.lineWidth = 3.2
            ctx.beginPath()
            ctx.arc(0, 0, 6.6, 0, 2 * Math.PI)
            ctx.stroke()
        }
    }
}
