import QtQuick

// A subdivision pattern in music notation, drawn on a 56 x 44 box scaled to
// fit: 1 a quarter note, 2 two eighths, 3 an eighth-note triplet, 4 four
// sixteenths, 5 a dotted eighth and a sixteenth, 6 the triplet shuffle
// (a quarter and an eighth under a 3).
Canvas {
    id: glyph

    property int pattern: 1
    property color color: "white"

    implicitWidth: 56
    implicitHeight: 44

    onPatternChanged: requestPaint()
    onColorChanged: requestPaint()
    onWidthChanged: requestPaint()
    onHeightChanged: requestPaint()

    onPaint: {
        const ctx = getContext("2d")
        ctx.reset()
        const s = Math.min(width / 56, height / 44)
        ctx.translate((width - 56 * s) / 2, (height - 44 * s) / 2)
        ctx.scale(s, s)
        ctx.fillStyle = glyph.color
        ctx.strokeStyle = glyph.color

        const notes = {
            1: [28], 2: [18, 38], 3: [12, 27, 42], 4: [9, 21, 33, 45], 5: [16, 40], 6: [16, 40]
        }[glyph.pattern] || [28]
        const headY = 36
        const stemTop = 13
        const rx = 4.6
        const stem = x => x + rx - 0.8

        for (const x of notes) {
            ctx.save()
            ctx.translate(x, headY)
            ctx.rotate(-0.35)
            ctx.scale(1, 0.72)
            ctx.beginPath()
            ctx.arc(0, 0, rx, 0, 2 * Math.PI)
            ctx.fill()
            ctx.restore()
            ctx.fillRect(stem(x) - 0.8, stemTop, 1.6, headY - stemTop - 1)
        }

        const first = stem(notes[0]) - 0.8
        const last = stem(notes[notes.length - 1]) + 0.8
        if (glyph.pattern >= 2 && glyph.pattern <= 5)
            ctx.fillRect(first, stemTop, last - first, 3.6)
        if (glyph.pattern === 4)
            ctx.fillRect(first, stemTop + 6, last - first, 3.6)
        if (glyph.pattern === 5) {
            // The sixteenth's second beam and the dot of the dotted eighth.
            ctx.fillRect(last - 8, stemTop + 6, 8, 3.6)
            ctx.beginPath()
            ctx.arc(notes[0] + rx + 4, headY - 1, 1.6, 0, 2 * Math.PI)
            ctx.fill()
        }
        if (glyph.pattern === 6) {
            // The eighth's flag.
            ctx.beginPath()
            ctx.moveTo(last - 1.6, stemTop)
            ctx.bezierCurveTo(last + 1, stemTop + 6, last + 8, stemTop + 8, last + 4, stemTop + 16)
            ctx.bezierCurveTo(last + 5, stemTop + 10, last + 1, stemTop + 8, last - 1.6, stemTop + 7)
            ctx.closePath()
            ctx.fill()
        }
        if (glyph.pattern === 3 || glyph.pattern === 6) {
            ctx.font = "bold 9px sans-serif"
            ctx.textAlign = "center"
            ctx.fillText("3", (first + last) / 2, stemTop - 3)
            if (glyph.pattern === 6) {
                // Bracket around the 3: there is no beam to carry it.
                const mid = (first + last) / 2
                ctx.lineWidth = 1
                ctx.beginPath()
                ctx.moveTo(first, stemTop - 2)
                ctx.lineTo(first, stemTop - 6)
                ctx.lineTo(mid - 5, stemTop - 6)
                ctx.moveTo(mid + 5, stemTop - 6)
                ctx.lineTo(last, stemTop - 6)
                ctx.lineTo(last, stemTop - 2)
                ctx.stroke()
            }
        }
    }
}
