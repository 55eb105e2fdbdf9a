// SPDX-License-Identifier: GPL-3.0-or-later
// Drawing a format of 100 mixed objects with labels, against two QPainter baselines: one
// filled shape and one text run per object, and every shape, line and text run the format
// drawing puts down, drawn straight with QPainter.

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <memory>

#include "BenchWorld.h"
#include "core/AnsiText.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "render/PageDraw.h"
#include "render/PreviewRefresh.h"
#include "render/QtSurface.h"

namespace paginox::bench {

namespace {

QImage& Frame() {
    static QImage image(kDrawWidth, kDrawHeight, QImage::Format_RGB32);
    return image;
}

void DrawFormatFrame(benchmark::State& state) {
    BenchWorld& w = World();
    PreviewRects rects;
    for (auto _ : state) {
        QtSurface surface(Frame());
        surface.SetBackColor(kPreviewBackColour);
        surface.Clear();
        DrawFormat(surface, nullptr, w.mixedCharts, *w.mixed, true, true, false, &rects);
    }
    state.SetItemsProcessed(state.iterations() * kDrawnObjects);
}

// One shape of the object's kind and one text run per object, in the same places, with the
// same pens, fills and smoothing the surface uses.
void QPainterFrame(benchmark::State& state) {
    BenchWorld& w = World();
    struct Item {
        int16_t shape;
        QRect rect;
        QString name;
    };
    std::vector<Item> items;
    RectClass all;
    all.InitTo(0, 0, kDrawWidth, kDrawHeight);
    RectClass margin = MarginRect(PageRect(all, *w.mixed, true), *w.mixed);
    for (int16_t k = 1; k <= w.mixed->NumObjects(); ++k) {
        const PageObject& obj = *w.mixed->Object(k);
        RectClass r = obj.GetRect(margin.Left(), margin.Top(), margin.Width(), margin.Height());
        items.push_back({obj.POClass().Shape(), QRect(r.Left(), r.Top(), r.Width(), r.Height()),
                         QString::fromStdString(Cp1252ToUtf8(obj.POClass().FullName()))});
    }
    QFont font("Sans Serif");
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(QtSurface::FontPixelSizeFor(all));
    for (auto _ : state) {
        QPainter p(&Frame());
        p.setFont(font);
        p.fillRect(0, 0, kDrawWidth, kDrawHeight, QColor(192, 192, 192));
        for (const Item& item : items) {
            p.setPen(QColor(128, 128, 128));
            p.setBrush(QColor(224, 224, 224));
            p.setRenderHint(QPainter::Antialiasing, item.shape != kShapeBox);
            if (item.shape == kShapeCircle) {
                int r = std::min(item.rect.width(), item.rect.height()) / 2;
                p.drawEllipse(item.rect.center(), r, r);
            } else if (item.shape == kShapeTriangle) {
                QPoint pts[] = {item.rect.topLeft(), item.rect.bottomLeft(),
                                item.rect.bottomRight()};
                p.drawPolygon(pts, 3);
            } else {
                p.drawRect(item.rect);
            }
            p.setRenderHint(QPainter::Antialiasing, false);
            p.setPen(QColor(0, 0, 255));
            p.drawText(item.rect.center(), item.name);
        }
    }
    state.SetItemsProcessed(state.iterations() * kDrawnObjects);
}

// What DrawFormat draws for the format, written down once as plain QPainter primitives, so
// that the second baseline draws exactly the same shapes and text with nothing in between.
struct Primitive {
    enum Kind { kLine, kRect, kFill, kEllipse, kPolygon, kText };
    Kind kind = kFill;
    QPen pen;
    QBrush brush;
    bool smooth = false;
    QRectF rect;
    QPolygonF polygon;
    QString text;
    QPointF at;
};

Primitive Make(Primitive::Kind kind, const QPen& pen, const QBrush& brush, bool smooth,
               const QRectF& rect = {}) {
    Primitive p;
    p.kind = kind;
    p.pen = pen;
    p.brush = brush;
    p.smooth = smooth;
    p.rect = rect;
    return p;
}

class PrimitiveRecorder : public DrawingSurface {
  public:
    explicit PrimitiveRecorder(const RectClass& scale) : scale_(scale) {
        font_.setFamily("Sans Serif");
        font_.setStyleHint(QFont::SansSerif);
        font_.setPixelSize(QtSurface::FontPixelSizeFor(scale));
        metrics_ = std::make_unique<QFontMetricsF>(font_);
    }
    std::vector<Primitive> list;
    const QFont& Font() const { return font_; }

    RectClass Scale() const override { return scale_; }
    void Clear() override {
        list.push_back(Make(Primitive::kFill, {}, Colour(BackColor()), false,
                            QRectF(0, 0, scale_.Width(), scale_.Height())));
    }
    float TextWidth(const std::string& t) override {
        return float(metrics_->horizontalAdvance(QString::fromStdString(Cp1252ToUtf8(t))));
    }
    float TextHeight(const std::string&) override { return float(metrics_->height()); }
    void Print(const std::string& t) override {
        if (!t.empty()) {
            Primitive p = Make(Primitive::kText, QPen(Colour(ForeColor())), {}, false);
            p.text = QString::fromStdString(Cp1252ToUtf8(t));
            p.at = QPointF(CurrentX(), CurrentY() + metrics_->ascent());
            list.push_back(p);
        }
        SetCurrentX(0);
        SetCurrentY(CurrentY() + TextHeight(t));
    }
    void Line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t c) override {
        Primitive p = Make(Primitive::kLine, Pen(c), {}, false);
        p.rect = QRectF(QPointF(x1, y1), QPointF(x2, y2));
        list.push_back(p);
    }
    void DrawBox(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t c, BoxFill f) override {
        QRectF r(QPointF(std::min(x1, x2), std::min(y1, y2)),
                 QPointF(std::max(x1, x2), std::max(y1, y2)));
        if (f == BoxFill::Solid) {
            list.push_back(Make(Primitive::kFill, {}, Colour(c), false, r.adjusted(0, 0, 1, 1)));
        } else {
            list.push_back(Make(Primitive::kRect, Pen(c),
                                f == BoxFill::CurrentFill ? Brush() : QBrush(), false, r));
        }
    }
    void DrawCircle(int32_t cx, int32_t cy, double r, int32_t c, bool filled) override {
        list.push_back(Make(Primitive::kEllipse, Pen(c), filled ? Brush() : QBrush(), true,
                            QRectF(cx + 0.5 - r, cy + 0.5 - r, 2 * r, 2 * r)));
    }
    void Polygon(const std::vector<SurfacePoint>& points) override {
        Primitive p = Make(Primitive::kPolygon, Pen(ForeColor()), Brush(), true);
        for (const auto& pt : points) p.polygon << QPointF(pt.X + 0.5, pt.Y + 0.5);
        list.push_back(p);
    }
    void StretchImage(const QImage&, const RectClass&, int16_t) override {}

  private:
    static QColor Colour(int32_t c) { return QColor(RedOf(c), GreenOf(c), BlueOf(c)); }
    QPen Pen(int32_t c) const {
        QPen pen(Colour(c));
        pen.setStyle(DrawStyle() == kLineDot ? Qt::DotLine : Qt::SolidLine);
        return pen;
    }
    QBrush Brush() const {
        return FillStyle() == kFillSolid ? QBrush(Colour(FillColor())) : QBrush();
    }
    RectClass scale_;
    QFont font_;
    std::unique_ptr<QFontMetricsF> metrics_;
};

void SamePrimitivesQPainterFrame(benchmark::State& state) {
    BenchWorld& w = World();
    RectClass all;
    all.InitTo(0, 0, kDrawWidth, kDrawHeight);
    PrimitiveRecorder recorder(all);
    recorder.SetBackColor(kPreviewBackColour);
    recorder.Clear();
    DrawFormat(recorder, nullptr, w.mixedCharts, *w.mixed, true, true, false);
    for (auto _ : state) {
        QPainter p(&Frame());
        p.setFont(recorder.Font());
        for (const Primitive& prim : recorder.list) {
            if (prim.kind == Primitive::kFill) {
                p.fillRect(prim.rect, prim.brush.color());
                continue;
            }
            p.setRenderHint(QPainter::Antialiasing, prim.smooth);
            p.setPen(prim.pen);
            p.setBrush(prim.brush);
            switch (prim.kind) {
                case Primitive::kLine:
                    p.drawLine(prim.rect.topLeft(), prim.rect.bottomRight());
                    break;
                case Primitive::kRect:
                    p.drawRect(prim.rect);
                    break;
                case Primitive::kEllipse:
                    p.drawEllipse(prim.rect);
                    break;
                case Primitive::kPolygon:
                    p.drawPolygon(prim.polygon);
                    break;
                case Primitive::kText:
                    p.drawText(prim.at, prim.text);
                    break;
                default:
                    break;
            }
        }
    }
    state.counters["primitives"] = double(recorder.list.size());
    state.SetItemsProcessed(state.iterations() * kDrawnObjects);
}

}  // namespace

BENCHMARK(DrawFormatFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(QPainterFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(SamePrimitivesQPainterFrame)->Unit(benchmark::kMillisecond);

}  // namespace paginox::bench
