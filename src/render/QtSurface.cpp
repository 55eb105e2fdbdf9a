// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/QtSurface.h"

#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QPixmap>
#include <QPolygon>
#include <algorithm>
#include <cmath>

#include "render/TextRunCache.h"

namespace paginox {

namespace {

// One text line per this many pixels of the page's width (or of its height seen as a 4:3
// page), within readable bounds.
constexpr double kPixelsPerFontPixel = 60.0;
constexpr int kMinFontPixels = 7;
constexpr int kMaxFontPixels = 200;

QColor ToQColor(int32_t c) {
    return QColor(RedOf(c), GreenOf(c), BlueOf(c));
}

Qt::PenStyle PenStyleFor(int16_t drawStyle) {
    switch (drawStyle) {
        case kLineDash:
            return Qt::DashLine;
        case kLineDot:
            return Qt::DotLine;
        case kLineDashDot:
            return Qt::DashDotLine;
        case kLineDashDotDot:
            return Qt::DashDotDotLine;
        case kLineInvisible:
            return Qt::NoPen;
        default:
            return Qt::SolidLine;
    }
}

// The rectangle between two corners, both inside, whichever way round they come.
QRect Between(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    return QRect(QPoint(std::min(x1, x2), std::min(y1, y2)),
                 QPoint(std::max(x1, x2), std::max(y1, y2)));
}

// The device's size in logical pixels. Images and pixmaps count their pixels physically and
// carry a device pixel ratio; widgets and printers already measure logically.
QSizeF LogicalSize(QPaintDevice& device) {
    if (auto* image = dynamic_cast<QImage*>(&device)) return image->deviceIndependentSize();
    if (auto* pixmap = dynamic_cast<QPixmap*>(&device)) return pixmap->deviceIndependentSize();
    return QSizeF(device.width(), device.height());
}

}  // namespace

QtSurface::QtSurface(QPaintDevice& device) : own_(std::make_unique<QPainter>(&device)) {
    painter_ = own_.get();
    QSizeF logical = LogicalSize(device);
    scale_.InitTo(0, 0, static_cast<int32_t>(std::lround(logical.width())),
                  static_cast<int32_t>(std::lround(logical.height())));
    Init();
}

QtSurface::QtSurface(QPainter& painter, const RectClass& scale)
    : painter_(&painter), scale_(scale) {
    Init();
}

QtSurface::~QtSurface() = default;

void QtSurface::Init() {
    pixelRatio_ = painter_->device() ? painter_->device()->devicePixelRatioF() : 1.0;
    font_.setFamily("Sans Serif");
    font_.setStyleHint(QFont::SansSerif);
    SetFontPixelSize(FontPixelSizeFor(scale_));
    painter_->setRenderHint(QPainter::TextAntialiasing, true);
    painter_->setRenderHint(QPainter::Antialiasing, false);
}

int QtSurface::FontPixelSizeFor(const RectClass& scale) {
    double extent = std::min<double>(scale.Width(), scale.Height() * 4.0 / 3.0);
    int pixels = static_cast<int>(std::lround(extent / kPixelsPerFontPixel));
    return std::clamp(pixels, kMinFontPixels, kMaxFontPixels);
}

void QtSurface::SetFontPixelSize(int pixels) {
    font_.setPixelSize(std::max(pixels, 1));
    painter_->setFont(font_);
    metrics_ = std::make_unique<QFontMetricsF>(font_, painter_->device());
}

void QtSurface::UsePen(int32_t colour) {
    int16_t width = std::max<int16_t>(DrawWidth(), 1);
    if (penSet_ && colour == penColour_ && DrawStyle() == penStyle_ && width == penWidth_) return;
    QPen pen(ToQColor(colour));
    pen.setStyle(PenStyleFor(DrawStyle()));
    pen.setWidth(width);
    pen.setJoinStyle(Qt::MiterJoin);  // square box corners when a pixel is two device pixels
    painter_->setPen(pen);
    penSet_ = true;
    penColour_ = colour;
    penStyle_ = DrawStyle();
    penWidth_ = width;
}

void QtSurface::UseBrush(bool filled) {
    filled = filled && FillStyle() == kFillSolid;
    if (brushSet_ && filled == brushFilled_ && (!filled || FillColor() == brushColour_)) return;
    if (filled) {
        painter_->setBrush(ToQColor(FillColor()));
    } else {
        painter_->setBrush(Qt::NoBrush);
    }
    brushSet_ = true;
    brushFilled_ = filled;
    brushColour_ = FillColor();
}

double QtSurface::StrokeShift() const {
    return std::max<int16_t>(DrawWidth(), 1) % 2 == 1 ? 0.5 : 0.0;
}

void QtSurface::UseAntialiasing(bool on) {
    if (on == antialiased_) return;
    painter_->setRenderHint(QPainter::Antialiasing, on);
    antialiased_ = on;
}

void QtSurface::Clear() {
    disc_.Valid = false;
    painter_->fillRect(QRect(scale_.Left(), scale_.Top(), scale_.Width(), scale_.Height()),
                       ToQColor(BackColor()));
    SetCurrentX(static_cast<float>(scale_.Left()));
    SetCurrentY(static_cast<float>(scale_.Top()));
}

float QtSurface::TextWidth(const std::string& text) {
    return static_cast<float>(TextRunCache::Get(font_, pixelRatio_, text).Width);
}

float QtSurface::TextHeight(const std::string&) {
    return static_cast<float>(metrics_->height());
}

void QtSurface::Print(const std::string& text) {
    if (!text.empty()) {
        disc_.Valid = false;
        const TextRunCache::Run& run = TextRunCache::Get(font_, pixelRatio_, text);
        QPointF topLeft(CurrentX(), CurrentY());
        if (BackMode() == kBackOpaque) {
            painter_->fillRect(QRectF(topLeft, QSizeF(run.Width, metrics_->height())),
                               ToQColor(BackColor()));
        }
        UseAntialiasing(false);
        UsePen(ForeColor());
        painter_->drawStaticText(topLeft, run.Text);
    }
    float height = TextHeight(text);
    SetCurrentX(static_cast<float>(scale_.Left()));
    SetCurrentY(CurrentY() + height);
}

void QtSurface::Line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour) {
    disc_.Valid = false;
    // Most lines are a list's rows and columns: thin, solid and straight across or down.
    // Those are filled as the one-pixel rectangle the line would cover, which is the same
    // pixels at a fraction of the cost of stroking.
    bool thinSolid = DrawStyle() == kLineSolid && DrawWidth() <= 1;
    if (thinSolid && (x1 == x2 || y1 == y2)) {
        painter_->fillRect(Between(x1, y1, x2, y2), ToQColor(colour));
        return;
    }
    UseAntialiasing(false);
    UsePen(colour);
    double shift = StrokeShift();
    painter_->drawLine(QLineF(x1 + shift, y1 + shift, x2 + shift, y2 + shift));
}

void QtSurface::DrawBox(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour,
                        BoxFill fill) {
    disc_.Valid = false;
    QRect area = Between(x1, y1, x2, y2);
    if (fill == BoxFill::Solid) {
        painter_->fillRect(area, ToQColor(colour));
        return;
    }
    UseAntialiasing(false);
    UsePen(colour);
    UseBrush(fill == BoxFill::CurrentFill);
    // An outline w wide covers w + 1 pixels: both corners inside.
    double shift = StrokeShift();
    painter_->drawRect(
        QRectF(area.left() + shift, area.top() + shift, area.width() - 1, area.height() - 1));
}

void QtSurface::DrawCircle(int32_t cx, int32_t cy, double r, int32_t colour, bool filled) {
    if (r < 0) return;
    double halfPen = std::max<int16_t>(DrawWidth(), 1) / 2.0;
    bool concentric = disc_.Valid && disc_.CX == cx && disc_.CY == cy;
    bool solid = filled && FillStyle() == kFillSolid;
    // A wheel's rings lie one inside the other on a disc of the same fill: filling them again
    // would paint the colour already there, so only their outline is drawn. The ring's
    // smoothed edge must clear every outline drawn on the disc so far for that to hold.
    bool alreadyFilled =
        solid && concentric && FillColor() == disc_.Fill && r + 1 <= disc_.ClearInside;
    UseAntialiasing(true);
    UsePen(colour);
    UseBrush(solid && !alreadyFilled);
    double shift = StrokeShift();
    painter_->drawEllipse(QPointF(cx + shift, cy + shift), r, r);

    double clearInside = r - halfPen - 1;
    if (solid && !alreadyFilled) {
        disc_ = FilledDisc{true, cx, cy, FillColor(), clearInside};
    } else if (concentric) {
        disc_.ClearInside = std::min(disc_.ClearInside, clearInside);
    } else {
        disc_.Valid = false;
    }
}

void QtSurface::Polygon(const std::vector<SurfacePoint>& points) {
    disc_.Valid = false;
    UseAntialiasing(true);
    UsePen(ForeColor());
    UseBrush(true);
    double shift = StrokeShift();
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const SurfacePoint& p : points) polygon << QPointF(p.X + shift, p.Y + shift);
    painter_->drawPolygon(polygon);
}

void QtSurface::StretchImage(const QImage& image, const RectClass& dest, int16_t stretchMode) {
    if (image.isNull() || dest.IsEmpty()) return;
    disc_.Valid = false;
    painter_->setRenderHint(QPainter::SmoothPixmapTransform, stretchMode == kStretchHalftone);
    painter_->drawImage(QRect(dest.Left(), dest.Top(), dest.Width(), dest.Height()), image);
}

}  // namespace paginox
