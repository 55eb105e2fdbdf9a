// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/SelectionMarkSet.h"

#include "core/Checked.h"
#include "render/DrawingSurface.h"

namespace paginox {

namespace {
constexpr int32_t kMarkHalfSize = 2;
// A one-pixel dark ring just outside each mark keeps it visible on grey outlines.
constexpr int32_t kRingHalfSize = kMarkHalfSize + 1;
constexpr int32_t kRingColour = Rgb(48, 48, 48);
}  // namespace

const SelectionMarkSet::Mark& SelectionMarkSet::At(int16_t i) const {
    CheckIndex(i, 1, Count());
    return marks_[static_cast<size_t>(i - 1)];
}

int32_t SelectionMarkSet::X(int16_t i) const {
    return At(i).X;
}
int32_t SelectionMarkSet::Y(int16_t i) const {
    return At(i).Y;
}
int16_t SelectionMarkSet::Pos(int16_t i) const {
    return At(i).Pos;
}

void SelectionMarkSet::Add(int32_t x, int32_t y, int16_t pos) {
    CheckedAdd<int16_t>(Count(), 1);  // the count is a 16-bit number
    marks_.push_back(Mark{x, y, pos});
}

void SelectionMarkSet::PlaceFor(const RectClass& rect, int16_t shape) {
    Clear();
    int32_t cx = rect.CenterX();
    int32_t cy = rect.CenterY();
    if (shape == kShapeTriangle) {
        Add(rect.Left(), cy, kHandleTriangleLeft);
        Add(cx, rect.Bottom(), kHandleBottom);
        Add(cx, cy, kHandleSlant);
        return;
    }
    Add(rect.Left(), cy, kHandleLeft);
    Add(cx, rect.Bottom(), kHandleBottom);
    Add(rect.Right(), cy, kHandleRight);
    Add(cx, rect.Top(), kHandleTop);
}

void SelectionMarkSet::Draw(DrawingSurface& surface) const {
    surface.SetDrawStyle(kLineSolid);
    for (const Mark& m : marks_) {
        surface.DrawBox(CheckedSub(m.X, kMarkHalfSize), CheckedSub(m.Y, kMarkHalfSize),
                        CheckedAdd(m.X, kMarkHalfSize), CheckedAdd(m.Y, kMarkHalfSize),
                        surface.ForeColor(), BoxFill::Solid);
        surface.DrawBox(CheckedSub(m.X, kRingHalfSize), CheckedSub(m.Y, kRingHalfSize),
                        CheckedAdd(m.X, kRingHalfSize), CheckedAdd(m.Y, kRingHalfSize), kRingColour,
                        BoxFill::Outline);
    }
}

}  // namespace paginox
