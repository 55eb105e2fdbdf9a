// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The handles shown on the selected object of the preview: one small square per edge (three
// for a triangle), each remembering which resize its pressing starts.

#include <cstdint>
#include <vector>

#include "model/RectClass.h"

namespace paginox {

class DrawingSurface;

// Which handle a mark is: the drag mode that pressing it starts (1 is moving the object).
enum HandleCode : int16_t {
    kHandleLeft = 2,
    kHandleRight = 3,
    kHandleTop = 4,
    kHandleBottom = 5,
    kHandleSlant = 6,         // triangle: the centre of the slanted side
    kHandleTriangleLeft = 7,  // triangle: the middle of the left edge
};

class SelectionMarkSet {
  public:
    int16_t Count() const { return static_cast<int16_t>(marks_.size()); }
    // i in 1..Count, else "Subscript out of range".
    int32_t X(int16_t i) const;
    int32_t Y(int16_t i) const;
    int16_t Pos(int16_t i) const;
    void Add(int32_t x, int32_t y, int16_t pos);
    void Clear() { marks_.clear(); }

    // Replaces the marks by the handles of an object drawn in rect with the class shape: a
    // triangle gets its left middle, bottom middle and slanted-side centre; any other shape
    // the middle of each edge, left, bottom, right, top.
    void PlaceFor(const RectClass& rect, int16_t shape);
    // Each mark as a five-pixel square centred on it, filled in the surface's foreground
    // colour, with solid lines.
    void Draw(DrawingSurface& surface) const;

  private:
    struct Mark {
        int32_t X;
        int32_t Y;
        int16_t Pos;
    };
    const Mark& At(int16_t i) const;
    std::vector<Mark> marks_;
};

}  // namespace paginox
