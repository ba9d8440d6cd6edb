#pragma once
// The chromatic tuner's practice views: the strobe band and the pitch
// history, drawn from the TunerChromatic screen's StrobeBand and PitchTrace
// at the time of each frame. The views ask for a frame each time the display
// refreshes (a FrameAnimation in QML calls update()). The band is made of
// rectangle nodes and the history is painted, so that both draw with the
// software renderer too (no graphics card, or the screenshots); the static
// functions make a frame's rectangles and picture, which the benchmarks
// time.

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QPointer>
#include <QQuickItem>
#include <QQuickPaintedItem>
#include <QRectF>
#include <vector>

#include "tuners/PitchTrace.h"
#include "tuners/StrobeBand.h"
#include "tuners/ui/TunerChromatic.h"

class QPainter;

namespace zt {

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
class PitchTraceItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zt::TunerChromatic* screen MEMBER screen_ NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
    Q_PROPERTY(QColor bandColor MEMBER bandColor_ NOTIFY changed)
    Q_PROPERTY(qreal lineWidth MEMBER lineWidth_ NOTIFY changed)

public:
    explicit PitchTraceItem(QQuickItem* parent = nullptr);

    // The trace of `pieces` (PitchTrace::lines) in a box width x height.
    static void draw(QPainter& painter, const std::vector<PitchTrace::Point>& pieces, float width,
                     float height, const QColor& color, const QColor& band, float lineWidth);

    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    QPointer<TunerChromatic> screen_;
    QColor color_{Qt::white};
    QColor bandColor_{Qt::darkGreen};
    qreal lineWidth_ = 2;
    std::vector<PitchTrace::Point> pieces_;
};

}  // namespace zt
