// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The one rectangle of the program: integer Top/Left/Width/Height in the units of the surface
// at hand (pixels, or twips before ConvertToPixels). Every sum is overflow-checked.

#include <cstdint>
#include <string>

namespace paginox {

class ShapeSurface;

// Outline shape codes of an object class.
enum ShapeCode : int16_t { kShapeBox = 0, kShapeCircle = 1, kShapeTriangle = 2 };

class RectClass {
  public:
    int32_t Top() const { return top_; }
    void SetTop(int32_t v) { top_ = v; }
    int32_t Left() const { return left_; }
    void SetLeft(int32_t v) { left_ = v; }
    int32_t Width() const { return width_; }
    void SetWidth(int32_t v) { width_ = v; }
    int32_t Height() const { return height_; }
    void SetHeight(int32_t v) { height_ = v; }

    int32_t Right() const;
    int32_t Bottom() const;
    bool IsEmpty() const { return height_ < 1 || width_ < 1; }
    int32_t CenterX() const;
    int32_t CenterY() const;

    // Left before top, unlike the order the fields are kept in.
    void InitTo(int32_t left, int32_t top, int32_t width, int32_t height);
    RectClass Clone() const;
    void Move(int32_t dx, int32_t dy);
    // Grows by n on every side; never below 1 by 1, and then not re-centred.
    void GrowBy(int32_t n);
    // Mode 1 takes the rectangle as twips and turns it into screen pixels; others do nothing.
    void ConvertToPixels(int16_t mode);
    std::string ToString() const;  // "(left,top)-(right,bottom)"

    // Both far edges count as inside.
    bool Contains(int32_t x, int32_t y) const;
    // Position as a fraction of the rectangle; a zero extent is a division by zero.
    float PropX(float x) const;
    float PropY(float y) const;
    int32_t CircleRadius() const;

    void DrawShape(ShapeSurface& surface, int16_t shape) const;
    bool HitTestShape(int16_t shape, float x, float y) const;

  private:
    int32_t top_ = 0;
    int32_t left_ = 0;
    int32_t width_ = 0;
    int32_t height_ = 0;
};

}  // namespace paginox
