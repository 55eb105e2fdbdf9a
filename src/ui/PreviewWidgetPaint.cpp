// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PreviewWidget.h"

// What the preview paints over the drawn page: the grid, the outlines of the objects selected
// beside the primary one, the band being drawn, where dragged objects would land and the
// guides they snapped to.

#include <QPainter>
#include <QPen>

#include "editor/EditorState.h"
#include "render/DrawingSurface.h"
#include "render/QtSurface.h"

namespace paginox {

namespace {

const QColor kGridColour(200, 208, 230);
const QColor kAlsoSelectedColour(70, 130, 230);
const QColor kBandColour(40, 110, 220);
const QColor kGuideColour(220, 0, 150);
constexpr int32_t kDragOutlineColour = Rgb(0, 0, 0);
// Up to this many moving objects are outlined in their own shapes.
constexpr size_t kShapedOutlines = 100;

QRectF ToQt(const RectClass& r) {
    return QRectF(r.Left(), r.Top(), r.Width(), r.Height());
}

}  // namespace

void PreviewWidget::paintEvent(QPaintEvent*) {
    // The view may have grown since the last drawing (scroll bars gone, say): draw what it shows.
    if (QRect(pageOrigin_, page_.deviceIndependentSize().toSize()) != InView()) DrawPage();
    QPainter painter(this);
    painter.drawPixmap(pageOrigin_, page_);
    PaintOverlay(painter);
}

void PreviewWidget::PaintOverlay(QPainter& painter) {
    const RectClass& margin = state_.Rects.Margin;
    if (snapping_.ShowGrid && state_.CurrentFormat) {
        painter.setPen(QPen(kGridColour, 0, Qt::DotLine));
        for (double x : GridLines(state_, 1, snapping_.GridSpacing)) {
            painter.drawLine(QPointF(x, margin.Top()), QPointF(x, margin.Bottom()));
        }
        for (double y : GridLines(state_, 2, snapping_.GridSpacing)) {
            painter.drawLine(QPointF(margin.Left(), y), QPointF(margin.Right(), y));
        }
    }
    // The others of a selection: a lighter frame just outside each, the primary keeps its marks.
    QVector<QRectF> others;
    for (int16_t k : state_.SelectedObjects()) {
        if (k == state_.SelectedObject || k > state_.Rects.ObjectCount() ||
            !state_.Rects.IsPlaced(k)) {
            continue;
        }
        others.append(ToQt(state_.Rects.Object(k)).adjusted(-2, -2, 2, 2));
    }
    painter.setPen(QPen(kAlsoSelectedColour, 1, Qt::SolidLine));
    painter.drawRects(others);
    if (band_) {
        QColor fill = kBandColour;
        fill.setAlpha(40);
        painter.setPen(QPen(kBandColour, 1, Qt::DashLine));
        painter.setBrush(fill);
        painter.drawRect(ToQt(*band_));
        painter.setBrush(Qt::NoBrush);
    }
    if (outline_ || !moveOutlines_.empty()) {
        QtSurface surface(painter, WidgetScale());
        surface.SetDrawWidth(1);
        surface.SetDrawStyle(kLineDash);
        surface.SetFillStyle(kFillTransparent);
        surface.SetForeColor(kDragOutlineColour);
        if (outline_) outline_->DrawShape(surface, outlineShape_);
        if (moveOutlines_.size() <= kShapedOutlines) {
            for (const auto& [rect, shape] : moveOutlines_) rect.DrawShape(surface, shape);
        } else {
            // Many objects on the move: their boxes in one call keep each step of the drag quick.
            QVector<QRect> boxes;
            boxes.reserve(qsizetype(moveOutlines_.size()));
            for (const auto& [rect, shape] : moveOutlines_) {
                boxes.append(QRect(rect.Left(), rect.Top(), rect.Width(), rect.Height()));
            }
            painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
            painter.setRenderHint(QPainter::Antialiasing, false);
            painter.drawRects(boxes);
        }
        painter.setPen(QPen(kGuideColour, 1, Qt::SolidLine));
        for (int16_t axis = 1; axis <= 2; ++axis) {
            const std::optional<double>& guide = snap_.Axis[axis - 1].Guide;
            if (!guide || !snap_.Axis[axis - 1].Snapped) continue;
            if (axis == 1) {
                painter.drawLine(QPointF(*guide, 0), QPointF(*guide, height()));
            } else {
                painter.drawLine(QPointF(0, *guide), QPointF(width(), *guide));
            }
        }
    }
}

}  // namespace paginox
