#include "tuners/ui/PracticeViewItems.h"

#include <QSGFlatColorMaterial>
#include <QSGGeometryNode>
#include <QSGSimpleRectNode>
#include <cmath>

namespace zt {

namespace {

QSGGeometryNode* trianglesNode(const QColor& color) {
    auto* node = new QSGGeometryNode;
    auto* geometry = new QSGGeometry(QSGGeometry::defaultAttributes_Point2D(), 0);
    geometry->setDrawingMode(QSGGeometry::DrawTriangles);
    node->setGeometry(geometry);
    node->setFlag(QSGNode::OwnsGeometry);
    auto* material = new QSGFlatColorMaterial;
    material->setColor(color);
    node->setMaterial(material);
    node->setFlag(QSGNode::OwnsMaterial);
    return node;
}

void setColor(QSGGeometryNode* node, const QColor& color) {
    auto* material = static_cast<QSGFlatColorMaterial*>(node->material());
    if (material->color() != color) {
        material->setColor(color);
        node->markDirty(QSGNode::DirtyMaterial);
    }
}

void quad(QSGGeometry::Point2D*& v, float x0, float y0, float x1, float y1, float x2, float y2,
          float x3, float y3) {
    *v++ = {x0, y0};
    *v++ = {x1, y1};
    *v++ = {x2, y2};
    *v++ = {x0, y0};
    *v++ = {x2, y2};
    *v++ = {x3, y3};
}

}  // namespace

StrobeBandItem::StrobeBandItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &StrobeBandItem::changed, this, &QQuickItem::update);
}

void StrobeBandItem::fill(QSGGeometry& geometry, double phase, int rows, float width, float height,
                          float period, float gap, std::vector<StrobeBand::Stripe>& scratch) {
    rows = std::max(rows, 1);
    const float rowHeight =
        (height - gap * static_cast<float>(rows - 1)) / static_cast<float>(rows);
    int count = 0;
    // Two passes: count, then write, so the geometry is sized once.
    for (int pass = 0; pass < 2; ++pass) {
        if (pass == 1)
            geometry.allocate(count * 6);
        auto* v = geometry.vertexDataAsPoint2D();
        for (int row = 0; row < rows; ++row) {
            const double factor = std::exp2(rows - 1 - row);
            StrobeBand::stripes(phase, factor, width, period, scratch);
            if (pass == 0) {
                count += static_cast<int>(scratch.size());
                continue;
            }
            const float top = static_cast<float>(row) * (rowHeight + gap);
            const float bottom = top + rowHeight;
            for (const auto& s : scratch)
                quad(v, s.left, top, s.right, top, s.right, bottom, s.left, bottom);
        }
    }
}

QSGNode* StrobeBandItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGGeometryNode*>(old);
    if (!node)
        node = trianglesNode(color_);
    setColor(node, color_);
    // Moved on to this frame while the screen's thread waits for the frame.
    const double phase = screen_ ? screen_->strobe().advance(screen_->clockSeconds()) : 0.0;
    fill(*node->geometry(), phase, rows_, static_cast<float>(width()), static_cast<float>(height()),
         static_cast<float>(period_), static_cast<float>(rowGap_), scratch_);
    node->markDirty(QSGNode::DirtyGeometry);
    return node;
}

PitchTraceItem::PitchTraceItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    setClip(true);
    connect(this, &PitchTraceItem::changed, this, &QQuickItem::update);
}

void PitchTraceItem::fill(QSGGeometry& geometry, const std::vector<PitchTrace::Point>& pieces,
                          float lineWidth) {
    geometry.allocate(static_cast<int>(pieces.size() / 2 * 6));
    auto* v = geometry.vertexDataAsPoint2D();
    const float half = lineWidth / 2.0f;
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2) {
        const PitchTrace::Point a = pieces[i];
        const PitchTrace::Point b = pieces[i + 1];
        const float dx = b.x - a.x;
        const float dy = b.y - a.y;
        const float length = std::hypot(dx, dy);
        // Across the piece, and along it by half the width at each end so
        // that pieces meet without notches.
        const float nx = length > 0 ? -dy / length * half : 0.0f;
        const float ny = length > 0 ? dx / length * half : half;
        const float ex = length > 0 ? dx / length * half : half;
        const float ey = length > 0 ? dy / length * half : 0.0f;
        quad(v, a.x - ex + nx, a.y - ey + ny, b.x + ex + nx, b.y + ey + ny, b.x + ex - nx,
             b.y + ey - ny, a.x - ex - nx, a.y - ey - ny);
    }
}

QSGNode* PitchTraceItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    const auto w = static_cast<float>(width());
    const auto h = static_cast<float>(height());
    auto* root = old;
    if (!root) {
        root = new QSGNode;
        root->appendChildNode(new QSGSimpleRectNode);  // the in-tune band
        root->appendChildNode(new QSGSimpleRectNode);  // the note's line
        root->appendChildNode(trianglesNode(color_));
    }
    auto* band = static_cast<QSGSimpleRectNode*>(root->childAtIndex(0));
    auto* centre = static_cast<QSGSimpleRectNode*>(root->childAtIndex(1));
    auto* trace = static_cast<QSGGeometryNode*>(root->childAtIndex(2));
    const float top = PitchTrace::yFor(PitchTrace::kBandCents, h);
    const float bottom = PitchTrace::yFor(-PitchTrace::kBandCents, h);
    band->setRect(0, top, w, bottom - top);
    band->setColor(bandColor_);
    centre->setRect(0, h / 2 - 0.5f, w, 1);
    centre->setColor(color_.darker(200));
    setColor(trace, color_);
    if (screen_)
        screen_->trace().lines(screen_->clockSeconds(), w, h, pieces_);
    else
        pieces_.clear();
    fill(*trace->geometry(), pieces_, static_cast<float>(lineWidth_));
    trace->markDirty(QSGNode::DirtyGeometry);
    return root;
}

}  // namespace zt
