// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/RectClass.h"

#include <algorithm>
#include <cmath>

#include "core/Checked.h"
#include "core/NumberFormat.h"
#include "core/Rounding.h"
#include "model/ScreenTwips.h"
#include "model/ShapeSurface.h"

namespace paginox {

int32_t RectClass::Right() const {
    return CheckedAdd(left_, width_);
}
int32_t RectClass::Bottom() const {
    return CheckedAdd(top_, height_);
}
int32_t RectClass::CenterX() const {
    return CheckedAdd(width_ / 2, left_);
}
int32_t RectClass::CenterY() const {
    return CheckedAdd(height_ / 2, top_);
}

void RectClass::InitTo(int32_t left, int32_t top, int32_t width, int32_t height) {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
}

RectClass RectClass::Clone() const {
    RectClass r;
    r.InitTo(left_, top_, width_, height_);
    return r;
}

void RectClass::Move(int32_t dx, int32_t dy) {
    left_ = CheckedAdd(left_, dx);
    top_ = CheckedAdd(top_, dy);
}

void RectClass::GrowBy(int32_t n) {
    left_ = CheckedSub(left_, n);
    top_ = CheckedSub(top_, n);
    int32_t twice = CheckedMul<int32_t>(2, n);
    width_ = CheckedAdd(width_, twice);
    height_ = CheckedAdd(height_, twice);
    if (width_ < 1) width_ = 1;
    if (height_ < 1) height_ = 1;
}

void RectClass::ConvertToPixels(int16_t mode) {
    if (mode != 1) return;
    // Asked afresh each time: the screen may have changed since the last conversion.
    TwipsPerPixel tpp = ScreenTwipsPerPixel();
    left_ = ToInt32(CheckedFloatDiv(left_, tpp.X));
    width_ = ToInt32(CheckedFloatDiv(width_, tpp.X));
    top_ = ToInt32(CheckedFloatDiv(top_, tpp.Y));
    height_ = ToInt32(CheckedFloatDiv(height_, tpp.Y));
}

std::string RectClass::ToString() const {
    return "(" + FormatZero(left_) + "," + FormatZero(top_) + ")-(" + FormatZero(Right()) + "," +
           FormatZero(Bottom()) + ")";
}

bool RectClass::Contains(int32_t x, int32_t y) const {
    // Both far edges are worked out first, so an overflow is raised whatever the point.
    int32_t right = Right();
    int32_t bottom = Bottom();
    return left_ <= x && x <= right && top_ <= y && y <= bottom;
}

float RectClass::PropX(float x) const {
    return static_cast<float>(CheckedFloatDiv(double(x) - left_, width_));
}

float RectClass::PropY(float y) const {
    return static_cast<float>(CheckedFloatDiv(double(y) - top_, height_));
}

int32_t RectClass::CircleRadius() const {
    return std::min(width_, height_) / 2;
}

void RectClass::DrawShape(ShapeSurface& surface, int16_t shape) const {
    constexpr int32_t kBlack = 0;
    switch (shape) {
        case kShapeBox:
            surface.Box(left_, top_, Right(), Bottom(), kBlack);
            break;
        case kShapeCircle:
            surface.Circle(CenterX(), CenterY(), CircleRadius(), kBlack);
            break;
        case kShapeTriangle:
            surface.Line(left_, top_, Right(), Bottom(), kBlack);
            surface.Line(Right(), Bottom(), left_, Bottom(), kBlack);
            surface.Line(left_, Bottom(), left_, top_, kBlack);
            break;
        default:
            break;
    }
}

bool RectClass::HitTestShape(int16_t shape, float x, float y) const {
    if (!Contains(ToInt32(x), ToInt32(y))) return false;
    switch (shape) {
        case kShapeBox:
            return true;
        case kShapeCircle: {
            double dx = double(x) - CenterX();
            double dy = double(y) - CenterY();
            float distance = static_cast<float>(std::sqrt(dy * dy + dx * dx));
            return distance < CircleRadius();  // a point on the circle is outside
        }
        case kShapeTriangle:
            return PropY(y) >= PropX(x);  // on or below the diagonal
        default:
            return false;
    }
}

}  // namespace paginox
