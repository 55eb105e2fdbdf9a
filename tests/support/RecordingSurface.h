// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A drawing surface that draws nothing and writes down every call with its arguments, one
// line each, so that tests pin geometry exactly. Text is measured as 6 pixels a character
// and 10 pixels a line, the same everywhere.

#include <QImage>
#include <sstream>
#include <string>
#include <vector>

#include "render/DrawingSurface.h"

namespace paginox::test {

class RecordingSurface : public DrawingSurface {
  public:
    static constexpr float kCharWidth = 6;
    static constexpr float kLineHeight = 10;

    explicit RecordingSurface(int32_t width = 800, int32_t height = 600) {
        scale_.InitTo(0, 0, width, height);
    }

    std::vector<std::string> calls;

    // The calls whose line starts with prefix ("Circle", "Print", "Box"...).
    std::vector<std::string> Matching(const std::string& prefix) const {
        std::vector<std::string> out;
        for (const auto& c : calls) {
            if (c.rfind(prefix, 0) == 0) out.push_back(c);
        }
        return out;
    }

    RectClass Scale() const override { return scale_; }

    // Each setter writes down its name and value, then sets it.
#define PAGINOX_RECORDED_SETTER(Name, Type, Shown) \
    void Set##Name(Type v) override {              \
        Add(#Name " " + Shown(v));                 \
        DrawingSurface::Set##Name(v);              \
    }
    PAGINOX_RECORDED_SETTER(BackColor, int32_t, Colour)
    PAGINOX_RECORDED_SETTER(ForeColor, int32_t, Colour)
    PAGINOX_RECORDED_SETTER(FillColor, int32_t, Colour)
    PAGINOX_RECORDED_SETTER(FillStyle, int16_t, Num)
    PAGINOX_RECORDED_SETTER(DrawStyle, int16_t, Num)
    PAGINOX_RECORDED_SETTER(DrawWidth, int16_t, Num)
    PAGINOX_RECORDED_SETTER(BackMode, int16_t, Num)
    PAGINOX_RECORDED_SETTER(CurrentX, float, Num)
    PAGINOX_RECORDED_SETTER(CurrentY, float, Num)
#undef PAGINOX_RECORDED_SETTER

    void Clear() override {
        Add("Clear " + Colour(BackColor()));
        DrawingSurface::SetCurrentX(0);
        DrawingSurface::SetCurrentY(0);
    }
    float TextWidth(const std::string& text) override {
        return kCharWidth * static_cast<float>(text.size());
    }
    float TextHeight(const std::string&) override {
        return kLineHeight;
    }
    void Print(const std::string& text) override {
        Add("Print '" + text + "' at " + Num(CurrentX()) + "," + Num(CurrentY()) + " " +
            Colour(ForeColor()));
        DrawingSurface::SetCurrentX(static_cast<float>(scale_.Left()));
        DrawingSurface::SetCurrentY(CurrentY() + kLineHeight);
    }
    void Line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour) override {
        Add("Line " + Pt(x1, y1) + "-" + Pt(x2, y2) + " " + Colour(colour));
    }
    void DrawBox(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour,
                 BoxFill fill) override {
        std::string how = "outline";
        if (fill == BoxFill::Solid) how = "solid";
        if (fill == BoxFill::CurrentFill) {
            how = FillStyle() == kFillSolid ? "filled " + Colour(FillColor()) : "unfilled";
        }
        Add("Box " + Pt(x1, y1) + "-" + Pt(x2, y2) + " " + Colour(colour) + " " + how);
    }
    void DrawCircle(int32_t cx, int32_t cy, double r, int32_t colour, bool filled) override {
        Add("Circle " + Pt(cx, cy) + " r" + Num(r) + " " + Colour(colour) +
            (filled && FillStyle() == kFillSolid ? " filled " + Colour(FillColor()) : ""));
    }
    void Polygon(const std::vector<SurfacePoint>& points) override {
        std::string s = "Polygon";
        for (const auto& p : points) s += " " + Pt(p.X, p.Y);
        Add(s + " " + Colour(ForeColor()) +
            (FillStyle() == kFillSolid ? " filled " + Colour(FillColor()) : ""));
    }
    void StretchImage(const QImage& image, const RectClass& dest, int16_t mode) override {
        Add("Image " + Num(image.width()) + "x" + Num(image.height()) + " into " + dest.ToString() +
            " mode " + Num(mode));
    }

    static std::string Colour(int32_t c) {
        return "rgb(" + Num(RedOf(c)) + "," + Num(GreenOf(c)) + "," + Num(BlueOf(c)) + ")";
    }
    static std::string Num(double v) {
        std::ostringstream out;
        out.precision(10);
        out << v;
        return out.str();
    }
    static std::string Pt(double x, double y) {
        return "(" + Num(x) + "," + Num(y) + ")";
    }

  private:
    void Add(std::string s) {
        calls.push_back(std::move(s));
    }
    RectClass scale_;
};

}  // namespace paginox::test
