#include "tuners/ui/PracticeViewItems.h"

#include <QPainter>
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
    QSGNode* root = old ? old : new QSGNode;
    // Moved on to this frame while the screen's thread waits for the frame.
    const double phase = screen_ ? screen_->strobe().advance(screen_->clockSeconds()) : 0.0;
    layout(phase, rows_, static_cast<float>(width()), static_cast<float>(height()),
           static_cast<float>(period_), static_cast<float>(rowGap_), scratch_, rects_);
    // One rectangle node per stripe, kept from frame to frame.
    const int wanted = static_cast<int>(rects_.size());
    while (root->childCount() < wanted)
        root->appendChildNode(window()->createRectangleNode());
    while (root->childCount() > wanted) {
        QSGNode* last = root->lastChild();
        root->removeChildNode(last);
        delete last;
    }
    QSGNode* child = root->firstChild();
    for (const QRectF& r : rects_) {
        auto* node = static_cast<QSGRectangleNode*>(child);
        node->setRect(r);
        node->setColor(color_);
        child = child->nextSibling();
    }
    return root;
}

PitchTraceItem::PitchTraceItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &PitchTraceItem::changed, this, [this] { update(); });
}

void PitchTraceItem::draw(QPainter& painter, const std::vector<PitchTrace::Point>& pieces,
                          float width, float height, const QColor& color, const QColor& band,
                          float lineWidth) {
    const float top = PitchTrace::yFor(PitchTrace::kBandCents, height);
    const float bottom = PitchTrace::yFor(-PitchTrace::kBandCents, height);
    painter.fillRect(QRectF(0, top, width, bottom - top), band);
    painter.fillRect(QRectF(0, height / 2 - 0.5f, width, 1), color.darker(200));
    painter.setClipRect(QRectF(0, 0, width, height));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2)
        painter.drawLine(QPointF(pieces[i].x, pieces[i].y),
                         QPointF(pieces[i + 1].x, pieces[i + 1].y));
}

void PitchTraceItem::paint(QPainter* painter) {
    const auto w = static_cast<float>(width());
    const auto h = static_cast<float>(height());
    if (screen_)
        screen_->trace().lines(screen_->clockSeconds(), w, h, pieces_);
    else
        pieces_.clear();
    draw(*painter, pieces_, w, h, color_, bandColor_, static_cast<float>(lineWidth_));
}

}  // namespace zt
