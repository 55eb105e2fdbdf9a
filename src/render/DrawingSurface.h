// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Anything a page can be drawn on: the preview, an off-screen image, a thumbnail, the printer.
// It keeps the classic picture-box drawing state (colours, fill, line style and width, text
// position) and offers the few operations page drawing needs, all in pixels of the surface.
// It is also the model's ShapeSurface, so RectClass::DrawShape draws through it.

#include <cstdint>
#include <string>
#include <vector>

#include "model/RectClass.h"
#include "model/ShapeSurface.h"

class QImage;

namespace paginox {

// Colours are 24-bit values with red in the low byte, as the host program stores them.
constexpr int32_t Rgb(int32_t r, int32_t g, int32_t b) {
    return r | (g << 8) | (b << 16);
}
constexpr int32_t RedOf(int32_t c) {
    return c & 0xFF;
}
constexpr int32_t GreenOf(int32_t c) {
    return (c >> 8) & 0xFF;
}
constexpr int32_t BlueOf(int32_t c) {
    return (c >> 16) & 0xFF;
}

enum FillStyleCode : int16_t { kFillSolid = 0, kFillTransparent = 1 };
enum DrawStyleCode : int16_t {
    kLineSolid = 0,
    kLineDash = 1,
    kLineDot = 2,
    kLineDashDot = 3,
    kLineDashDotDot = 4,
    kLineInvisible = 5,
    kLineInsideSolid = 6,
};
// Background modes of text and styled lines (the numbers the system call takes).
enum BackModeCode : int16_t { kBackTransparent = 1, kBackOpaque = 2 };
// Stretch modes for pictures; only halftone smooths, the others pick pixels.
enum StretchModeCode : int16_t {
    kStretchBlackOnWhite = 1,
    kStretchWhiteOnBlack = 2,
    kStretchColorOnColor = 3,
    kStretchHalftone = 4,
};

// How a box is drawn: its outline only; its outline and the current fill (nothing inside
// when the fill style is transparent); or filled solid in the given colour.
enum class BoxFill { Outline, CurrentFill, Solid };

struct SurfacePoint {
    int32_t X = 0;
    int32_t Y = 0;
    bool operator==(const SurfacePoint&) const = default;
};

class DrawingSurface : public ShapeSurface {
  public:
    // The coordinate range of the surface: left, top, width and height in pixels.
    virtual RectClass Scale() const = 0;

    int32_t BackColor() const { return backColor_; }
    virtual void SetBackColor(int32_t c) { backColor_ = c; }
    int32_t ForeColor() const { return foreColor_; }
    virtual void SetForeColor(int32_t c) { foreColor_ = c; }
    int32_t FillColor() const { return fillColor_; }
    virtual void SetFillColor(int32_t c) { fillColor_ = c; }
    int16_t FillStyle() const { return fillStyle_; }
    virtual void SetFillStyle(int16_t s) { fillStyle_ = s; }
    int16_t DrawStyle() const { return drawStyle_; }
    virtual void SetDrawStyle(int16_t s) { drawStyle_ = s; }
    int16_t DrawWidth() const { return drawWidth_; }
    virtual void SetDrawWidth(int16_t w) { drawWidth_ = w; }
    int16_t BackMode() const { return backMode_; }
    virtual void SetBackMode(int16_t m) { backMode_ = m; }

    // Where the next Print puts the top-left corner of its text.
    float CurrentX() const { return currentX_; }
    virtual void SetCurrentX(float x) { currentX_ = x; }
    float CurrentY() const { return currentY_; }
    virtual void SetCurrentY(float y) { currentY_ = y; }

    // Fills the whole surface with the background colour; the text position goes home.
    virtual void Clear() = 0;

    // Text is Windows-1252, like every model string; measured in pixels of the surface.
    virtual float TextWidth(const std::string& text) = 0;
    virtual float TextHeight(const std::string& text) = 0;
    // Draws text in the foreground colour at the text position, then moves the position to
    // the start of the next line, at the left edge of the scale.
    virtual void Print(const std::string& text) = 0;

    // Boxes and lines cover both end points, so a box from (0,0) to (4,4) is five pixels wide.
    void Line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour) override = 0;
    virtual void DrawBox(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour,
                         BoxFill fill) = 0;
    // The outline in colour; with filled, the inside in the current fill.
    virtual void DrawCircle(int32_t cx, int32_t cy, double r, int32_t colour, bool filled) = 0;
    // Outlined in the foreground colour with the current line style and width, and filled
    // with the current fill.
    virtual void Polygon(const std::vector<SurfacePoint>& points) = 0;
    // The image stretched into the rectangle (Width by Height pixels from Left, Top).
    virtual void StretchImage(const QImage& image, const RectClass& dest, int16_t stretchMode) = 0;

    // What a rectangle's outline needs: never filled, whatever the fill style.
    void Box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour) override {
        DrawBox(x1, y1, x2, y2, colour, BoxFill::Outline);
    }
    void Circle(int32_t cx, int32_t cy, int32_t r, int32_t colour) override {
        DrawCircle(cx, cy, r, colour, false);
    }

  private:
    int32_t backColor_ = Rgb(255, 255, 255);
    int32_t foreColor_ = 0;
    int32_t fillColor_ = 0;
    int16_t fillStyle_ = kFillTransparent;
    int16_t drawStyle_ = kLineSolid;
    int16_t drawWidth_ = 1;
    int16_t backMode_ = kBackTransparent;
    float currentX_ = 0;
    float currentY_ = 0;
};

}  // namespace paginox
