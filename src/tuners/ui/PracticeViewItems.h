#pragma once
// The chromatic tuner's practice views: the strobe band and the pitch
// history, drawn from the TunerChromatic screen's StrobeBand and PitchTrace
// at the time of each frame. The views ask for a frame each time the display
// refreshes (a FrameAnimation in QML calls update()). Both are made of
// rectangle nodes, kept from frame to frame, so that they draw with the
// software renderer too (no graphics card, or the screenshots) and cost no
// picture to paint and upload; the static functions make a frame's
// rectangles, which the benchmarks time with syncRects.

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QPointer>
#include <QQuickItem>
#include <QRectF>
#include <QSGNode>
#include <vector>

#include "tuners/PitchTrace.h"
#include "tuners/StrobeBand.h"
#include "tuners/ui/TunerChromatic.h"

namespace zt {

// Sets `root`'s children from the `first` on to the rectangles `rects` in
// `color`, one node each; the children beyond are left empty. The nodes are
// all made with the root (see the items): the software renderer draws a
// node added to a root already on show without the item's position.
// Rectangles beyond the nodes there are are left out.
template <class Node>
void syncRects(QSGNode& root, int first, const std::vector<QRectF>& rects, const QColor& color) {
    QSGNode* child = root.childAtIndex(first);
    for (const QRectF& r : rects) {
        if (!child)
            return;
        auto* node = static_cast<Node*>(child);
        node->setRect(r);
        if (node->color() != color)
            node->setColor(color);
        child = child->nextSibling();
    }
    for (; child; child = child->nextSibling()) {
        auto* node = static_cast<Node*>(child);
        if (!node->rect().isEmpty())
            node->setRect(QRectF());
    }
}

// Rows of dark stripes, each row twice as fast as the one under it, so the
// top row shows the smallest drift first.
class StrobeBandItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zt::TunerChromatic* screen MEMBER screen_ NOTIFY changed)
    Q_PROPERTY(int rows MEMBER rows_ NOTIFY changed)
    // One dark and one light stripe, in the item's units.
    Q_PROPERTY(qreal period MEMBER period_ NOTIFY changed)
    Q_PROPERTY(qreal rowGap MEMBER rowGap_ NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)

public:
    // Stripes a row can hold: 64, enough for a period down to a 60th of
    // the band's width.
    static constexpr int kStripesPerRow = 64;

    explicit StrobeBandItem(QQuickItem* parent = nullptr);

    // The stripes of `rows` rows filling width x height, with `gap` between
    // rows, at the band's `phase`. Replaces out's contents.
    static void layout(double phase, int rows, float width, float height, float period, float gap,
                       std::vector<StrobeBand::Stripe>& scratch, std::vector<QRectF>& out);

signals:
    void changed();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData*) override;

private:
    QPointer<TunerChromatic> screen_;
    int rows_ = 3;
    qreal period_ = 32;
    qreal rowGap_ = 4;
    QColor color_{Qt::black};
    std::vector<StrobeBand::Stripe> scratch_;
    std::vector<QRectF> rects_;
};

// The last ten seconds of cents, newest at the right edge, with the band of
// +-5 cents shaded and the note's line across the middle.
class PitchTraceItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zt::TunerChromatic* screen MEMBER screen_ NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
    Q_PROPERTY(QColor bandColor MEMBER bandColor_ NOTIFY changed)
    Q_PROPERTY(qreal lineWidth MEMBER lineWidth_ NOTIFY changed)

public:
    explicit PitchTraceItem(QQuickItem* parent = nullptr);

    // The trace of `pieces` (PitchTrace::lines), `lineWidth` thick: each
    // piece spans a reading's step of a few pixels, so it is drawn as the
    // rectangle around it, its ends widened by half the line's width.
    // Replaces out's contents.
    static void layout(const std::vector<PitchTrace::Point>& pieces, float lineWidth,
                       std::vector<QRectF>& out);

signals:
    void changed();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData*) override;

private:
    QPointer<TunerChromatic> screen_;
    QColor color_{Qt::white};
    QColor bandColor_{Qt::darkGreen};
    qreal lineWidth_ = 2;
    std::vector<PitchTrace::Point> pieces_;
    std::vector<QRectF> rects_;
};

}  // namespace zt
