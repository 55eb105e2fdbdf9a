// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The drawing surface over a QPainter: on a QImage, QPixmap, widget or printer. Coordinates
// are logical pixels, so an image with a device pixel ratio of 2 is drawn at twice the detail
// with the same geometry. Text is a sans-serif font whose size follows the surface.

#include <QFont>
#include <QFontMetricsF>
#include <memory>

#include "render/DrawingSurface.h"

class QPaintDevice;
class QPainter;

namespace paginox {

class QtSurface : public DrawingSurface {
  public:
    // Paints on the device with a painter of its own, over the device's whole logical area.
    explicit QtSurface(QPaintDevice& device);
    // Paints with the caller's painter (a widget's paint event, a printer page) over scale.
    QtSurface(QPainter& painter, const RectClass& scale);
    ~QtSurface() override;
    QtSurface(const QtSurface&) = delete;
    QtSurface& operator=(const QtSurface&) = delete;

    // The text size in pixels for a surface: a fixed share of the page so that labels keep
    // their proportion to the objects from a thumbnail to a full screen, and never so small
    // that a thumbnail's labels become specks.
    static int FontPixelSizeFor(const RectClass& scale);
    // Overrides the size that follows the surface (the editor may want a steady size).
    void SetFontPixelSize(int pixels);
    const QFont& Font() const { return font_; }

    RectClass Scale() const override { return scale_; }
    void Clear() override;
    float TextWidth(const std::string& text) override;
    float TextHeight(const std::string& text) override;
    void Print(const std::string& text) override;
    void Line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour) override;
    void DrawBox(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour,
                 BoxFill fill) override;
    void DrawCircle(int32_t cx, int32_t cy, double r, int32_t colour, bool filled) override;
    void Polygon(const std::vector<SurfacePoint>& points) override;
    void StretchImage(const QImage& image, const RectClass& dest, int16_t stretchMode) override;

  private:
    // A disc filled in one colour and the innermost edge of the rings drawn on it since:
    // inside that edge the disc is nothing but its fill.
    struct FilledDisc {
        bool Valid = false;
        int32_t CX = 0;
        int32_t CY = 0;
        int32_t Fill = 0;
        double ClearInside = 0;
    };

    void Init();
    // Painter state is set only when it changes: switching pens and brushes costs more than
    // most of the lines drawn with them.
    void UsePen(int32_t colour);
    void UseBrush(bool filled);
    void UseAntialiasing(bool on);
    // A pen of odd width is centred on the middle of the pixels it is to cover, so that a
    // one-pixel line covers exactly the pixel (x, y) names at any device pixel ratio, the
    // pixels a filled box or mark covers, rather than straddling two.
    double StrokeShift() const;

    std::unique_ptr<QPainter> own_;
    QPainter* painter_ = nullptr;
    RectClass scale_;
    QFont font_;
    std::unique_ptr<QFontMetricsF> metrics_;
    double pixelRatio_ = 1;
    bool penSet_ = false;
    int32_t penColour_ = 0;
    int16_t penStyle_ = 0;
    int16_t penWidth_ = 0;
    bool brushSet_ = false;
    bool brushFilled_ = false;
    int32_t brushColour_ = 0;
    bool antialiased_ = false;
    FilledDisc disc_;
};

}  // namespace paginox
