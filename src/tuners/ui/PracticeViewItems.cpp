#include "tuners/ui/PracticeViewItems.h"

#include <QQuickWindow>
#include <QSGRectangleNode>
#include <cmath>

namespace zt {

StrobeBandItem::StrobeBandItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &StrobeBandItem::changed, this, &QQuickItem::update);
}

void StrobeBandItem::layout(double phase, int rows, float width, float height, float period,
                            float gap, std::vector<StrobeBand::Stripe>& scratch,
                            std::vector<QRectF>& out) {
    out.clear();
    rows = std::max(rows, 1);
    const float rowHeight =
        (height - gap * static_cast<float>(rows - 1)) / static_cast<float>(rows);
    for (int row = 0; row < rows; ++row) {
        StrobeBand::stripes(phase, std::exp2(rows - 1 - row), width, period, scratch);
        const float top = static_cast<float>(row) * (rowHeight + gap);
        for (const auto& s : scratch)
            out.emplace_back(s.left, top, s.right - s.left, rowHeight);
    }
}

QSGNode* StrobeBandItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    QSGNode* root = old;
    if (!root) {
        root = new QSGNode;
        for (int i = 0; i < std::max(rows_, 1) * kStripesPerRow; ++i)
            root->appendChildNode(window()->createRectangleNode());
    }
    // Moved on to this frame while the screen's thread waits for the frame.
    const double phase = screen_ ? screen_->strobe().advance(screen_->clockSeconds()) : 0.0;
    layout(phase, rows_, static_cast<float>(width()), static_cast<float>(height()),
           static_cast<float>(period_), static_cast<float>(rowGap_), scratch_, rects_);
    syncRects<QSGRectangleNode>(*root, 0, rects_, color_);
    return root;
}

PitchTraceItem::PitchTraceItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    setClip(true);
    connect(this, &PitchTraceItem::changed, this, &QQuickItem::update);
}

void PitchTraceItem::layout(const std::vector<PitchTrace::Point>& pieces, float lineWidth,
                            std::vector<QRectF>& out) {
    out.clear();
    const float half = lineWidth / 2.0f;
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2) {
        const PitchTrace::Point a = pieces[i];
        const PitchTrace::Point b = pieces[i + 1];
        const float top = std::min(a.y, b.y) - half;
        const float bottom = std::max(a.y, b.y) + half;
        out.emplace_back(a.x, top, std::max(b.x - a.x, 1.0f), bottom - top);
    }
}

QSGNode* PitchTraceItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    const auto w = static_cast<float>(width());
    const auto h = static_cast<float>(height());
    QSGNode* root = old;
    if (!root) {
        root = new QSGNode;
        root->appendChildNode(window()->createRectangleNode());  // the in-tune band
        root->appendChildNode(window()->createRectangleNode());  // the note's line
        // A piece for each reading kept, at most.
        for (std::size_t i = 0; i < PitchTrace::kCapacity; ++i)
            root->appendChildNode(window()->createRectangleNode());
    }
    auto* band = static_cast<QSGRectangleNode*>(root->childAtIndex(0));
    auto* centre = static_cast<QSGRectangleNode*>(root->childAtIndex(1));
    const float top = PitchTrace::yFor(PitchTrace::kBandCents, h);
    const float bottom = PitchTrace::yFor(-PitchTrace::kBandCents, h);
    band->setRect(QRectF(0, top, w, bottom - top));
    band->setColor(bandColor_);
    centre->setRect(QRectF(0, h / 2 - 0.5f, w, 1));
    centre->setColor(color_.darker(200));
    if (screen_)
        screen_->trace().lines(screen_->clockSeconds(), w, h, pieces_);
    else
        pieces_.clear();
    layout(pieces_, static_cast<float>(lineWidth_), rects_);
    syncRects<QSGRectangleNode>(*root, 2, rects_, color_);
    return root;
}

}  // namespace zt
