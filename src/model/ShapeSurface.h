// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The little a rectangle needs to outline an object's shape on something drawable. The
// rendering layer implements it over its real drawing surface; tests record the calls.

#include <cstdint>

namespace paginox {

class ShapeSurface {
  public:
    virtual ~ShapeSurface() = default;
    // Colours are 24-bit red-green-blue values; coordinates are the surface's units.
    virtual void Line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour) = 0;
    // An unfilled box outline between two corners.
    virtual void Box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour) = 0;
    virtual void Circle(int32_t cx, int32_t cy, int32_t r, int32_t colour) = 0;
};

}  // namespace paginox
