// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/Manipulation.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "core/Checked.h"
#include "core/Rounding.h"
#include "editor/EditStep.h"
#include "editor/EditorState.h"
#include "editor/Properties.h"
#include "editor/Snapping.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "render/SelectionMarkSet.h"

namespace paginox {

int16_t HitTestObjects(const EditorState& state, float x, float y) {
    if (!state.CurrentFormat) return 0;
    const PageFormat& format = *state.CurrentFormat;
    int16_t top = std::min(format.NumObjects(), state.Rects.ObjectCount());
    for (int16_t k = top; k >= 1; --k) {
        if (!format.Object(k) || !state.Rects.IsPlaced(k)) continue;
        if (state.Rects.Object(k).HitTestShape(format.POClass(k).Shape(), x, y)) return k;
    }
    return 0;
}

int16_t MarkAt(const SelectionMarkSet& marks, float x, float y) {
    for (int16_t i = 1; i <= marks.Count(); ++i) {
        if (std::fabs(x - marks.X(i)) <= kMarkTolerance &&
            std::fabs(y - marks.Y(i)) <= kMarkTolerance) {
            return marks.Pos(i);
        }
    }
    return kDragNone;
}

int16_t PointerFor(int16_t dragMode) {
    switch (dragMode) {
        case kDragMove:
            return kPointerSizeAll;
        case kHandleLeft:
        case kHandleRight:
        case kHandleTriangleLeft:
            return kPointerSizeWE;
        case kHandleTop:
        case kHandleBottom:
            return kPointerSizeNS;
        case kHandleSlant:
            return kPointerSizeNESW;
        default:
            return kPointerDefault;
    }
}

bool IsClick(float dx, float dy) {
    return std::fabs(dx) <= kClickTolerance && std::fabs(dy) <= kClickTolerance;
}

namespace {

// One side's edges after dragging the low or the high one: swapped when the dragged edge
// crossed the other, and never closer than kMinObjectSide, so the object can still be
// caught.
std::pair<int32_t, int32_t> DraggedSpan(int32_t low, int32_t high, int32_t dLow, int32_t dHigh) {
    if (dLow == 0 && dHigh == 0) return {low, high};
    int32_t fixed = dLow != 0 ? high : low;
    int32_t moving = dLow != 0 ? CheckedAdd(low, dLow) : CheckedAdd(high, dHigh);
    if (std::abs(CheckedSub(moving, fixed)) < kMinObjectSide) {
        // Kept on the side it is on; an edge dropped on the other stays on its own side.
        bool below = moving == fixed ? dLow != 0 : moving < fixed;
        moving = below ? CheckedSub(fixed, kMinObjectSide) : CheckedAdd(fixed, kMinObjectSide);
    }
    return {std::min(fixed, moving), std::max(fixed, moving)};
}

}  // namespace

RectClass DraggedRect(const RectClass& rect, int16_t shape, int16_t dragMode, int32_t dx,
                      int32_t dy) {
    RectClass r = rect.Clone();
    if (dragMode == kDragMove) {
        r.Move(dx, dy);
        return r;
    }
    // How far each edge moves; outward is the positive direction for right and bottom.
    int32_t dLeft = 0, dRight = 0, dTop = 0, dBottom = 0;
    switch (dragMode) {
        case kHandleLeft:
        case kHandleTriangleLeft:
            dLeft = dx;
            break;
        case kHandleRight:
            dRight = dx;
            break;
        case kHandleTop:
            dTop = dy;
            break;
        case kHandleBottom:
            dBottom = dy;
            break;
        case kHandleSlant:
            dRight = CheckedMul(dx, 2);
            dTop = CheckedMul(dy, 2);
            break;
        default:
            return r;
    }
    if (shape == kShapeCircle) {
        // The last edge that moved says how far the wheel grows outwards.
        int32_t grow = 0;
        for (int32_t d : {CheckedSub(0, dLeft), dRight, CheckedSub(0, dTop), dBottom}) {
            if (d != 0) grow = d;
        }
        int32_t radius = std::abs(CheckedAdd(rect.CircleRadius(), grow));
        radius = std::max(radius, kMinWheelRadius);
        r.InitTo(CheckedSub(rect.CenterX(), radius), CheckedSub(rect.CenterY(), radius),
                 CheckedMul(radius, 2), CheckedMul(radius, 2));
        return r;
    }
    auto [left, right] = DraggedSpan(rect.Left(), rect.Right(), dLeft, dRight);
    auto [top, bottom] = DraggedSpan(rect.Top(), rect.Bottom(), dTop, dBottom);
    r.InitTo(left, top, CheckedSub(right, left), CheckedSub(bottom, top));
    return r;
}

PageObject LandedObject(const EditorState& state, int16_t dragMode, float dx, float dy,
                        const DragSnap* snap) {
    std::shared_ptr<PageObject> obj = state.Selected();
    const RectClass& margin = state.Rects.Margin;
    RectClass moved = DraggedRect(state.Rects.Object(state.SelectedObject), obj->POClass().Shape(),
                                  dragMode, ToInt32(dx), ToInt32(dy));
    // The drawing places every shape by its top-left corner (Origin), a wheel included, so
    // that is the point a move or resize sets; a wheel's own centre would shift it by its
    // radius on every drag.
    // Where the drag would put the object, kept on the page: a move stops at the page's
    // edges, a resize at the edge it pulls (ForceInsideFrame then moves nothing).
    PageObject landed;
    for (int16_t axis = 1; axis <= 2; ++axis) landed.SetLength(axis, obj->Length(axis));
    landed.SetOrigin(1, margin.PropX(static_cast<float>(moved.Left())));
    landed.SetOrigin(2, margin.PropY(static_cast<float>(moved.Top())));
    if (dragMode != kDragMove) {
        landed.SetLength(1, static_cast<float>(CheckedFloatDiv(moved.Width(), margin.Width())));
        landed.SetLength(2, static_cast<float>(CheckedFloatDiv(moved.Height(), margin.Height())));
        for (int16_t axis = 1; axis <= 2; ++axis) {
            float origin = landed.Origin(axis);
            float length = landed.Length(axis);
            if (origin < 0) length += origin, origin = 0;
            if (origin + length > 1) length = 1 - origin;
            if (snap && snap->Axis[axis - 1].Snapped) {
                // The pulled edge on its line; the other edge where it was.
                double edge = snap->Axis[axis - 1].Fraction;
                double low = obj->Origin(axis);
                double high = low + obj->Length(axis);
                bool pulledLow = dragMode == kHandleLeft || dragMode == kHandleTop ||
                                 dragMode == kHandleTriangleLeft;
                origin = static_cast<float>(pulledLow ? edge : low);
                length = static_cast<float>(pulledLow ? high - edge : edge - low);
            }
            landed.SetOrigin(axis, origin);
            landed.SetLength(axis, length);
        }
    }
    landed.ForceInsideFrame();
    for (int16_t axis = 1; axis <= 2; ++axis) {
        // + 0.0f: no -0 in the file.
        landed.SetOrigin(axis, landed.Origin(axis) + 0.0f);
        landed.SetLength(axis, landed.Length(axis) + 0.0f);
    }
    return landed;
}

RectClass LandedOutline(const EditorState& state, int16_t dragMode, float dx, float dy,
                        const DragSnap* snap) {
    const RectClass& rect = state.Rects.Object(state.SelectedObject);
    int16_t shape = state.Selected()->POClass().Shape();
    PageObject landed = LandedObject(state, dragMode, dx, dy, snap);
    const RectClass& margin = state.Rects.Margin;
    RectClass outline = DraggedRect(rect, shape, dragMode, ToInt32(dx), ToInt32(dy));
    int32_t width = outline.Width();
    int32_t height = outline.Height();
    if (dragMode != kDragMove && shape != kShapeCircle) {
        width = ToInt32(landed.Length(1) * static_cast<float>(margin.Width()));
        height = ToInt32(landed.Length(2) * static_cast<float>(margin.Height()));
    }
    outline.InitTo(ToInt32(static_cast<float>(margin.Left()) +
                           landed.Origin(1) * static_cast<float>(margin.Width())),
                   ToInt32(static_cast<float>(margin.Top()) +
                           landed.Origin(2) * static_cast<float>(margin.Height())),
                   width, height);
    return outline;
}

namespace {

// Objects moving together stop together: the group is shifted back onto the page as a
// whole, then each object is kept on it as a lone object is.
void KeepOnPage(const PageFormat& format, std::vector<MovedObject>& moved) {
    for (int16_t axis = 1; axis <= 2; ++axis) {
        auto at = [axis](MovedObject& m) -> float& { return axis == 1 ? m.X : m.Y; };
        if (moved.size() >= 2) {
            float below = 0;
            float beyond = 0;
            for (MovedObject& m : moved) {
                float length = std::min(format.Object(m.Object)->Length(axis), 1.0f);
                below = std::max(below, -at(m));
                beyond = std::max(beyond, at(m) + length - 1);
            }
            float shift = below > 0 ? below : -beyond;
            for (MovedObject& m : moved) at(m) += shift;
        }
        for (MovedObject& m : moved) {
            PageObject kept;
            kept.SetLength(axis, format.Object(m.Object)->Length(axis));
            kept.SetOrigin(axis, at(m));
            kept.ForceInsideFrame();
            at(m) = kept.Origin(axis);
        }
    }
}

bool SetOrigins(EditorState& state, EditStep& step, const std::vector<MovedObject>& moved) {
    bool changed = false;
    // + 0.0f: no -0 in the file.
    for (const MovedObject& m : moved) {
        changed =
            step.Set(kPropOrigin, m.X + 0.0f, state.CurrentFormatIndex, m.Object, 1) || changed;
        changed =
            step.Set(kPropOrigin, m.Y + 0.0f, state.CurrentFormatIndex, m.Object, 2) || changed;
    }
    return changed;
}

}  // namespace

std::vector<MovedObject> MovedSelection(const EditorState& state, float dx, float dy,
                                        const DragSnap* snap) {
    std::vector<MovedObject> moved;
    const int16_t lead = state.SelectedObject;
    if (!state.Selected() || lead > state.Rects.ObjectCount() || !state.Rects.IsPlaced(lead)) {
        return moved;
    }
    // One shift for them all: the primary's corner lands where the pointer puts it on the
    // preview, and the others keep their exact places to it. An axis the pointer did not move
    // is left as it was.
    const RectClass& margin = state.Rects.Margin;
    const RectClass& rect = state.Rects.Object(lead);
    const int32_t by[2] = {ToInt32(dx), ToInt32(dy)};
    double shift[2] = {0, 0};
    for (int16_t axis = 1; axis <= 2; ++axis) {
        if (snap && snap->Axis[axis - 1].Snapped) {
            shift[axis - 1] = snap->Axis[axis - 1].Fraction;
        } else if (by[axis - 1] != 0) {
            float landed = axis == 1
                               ? margin.PropX(static_cast<float>(CheckedAdd(rect.Left(), by[0])))
                               : margin.PropY(static_cast<float>(CheckedAdd(rect.Top(), by[1])));
            shift[axis - 1] = double(landed) - state.Selected()->Origin(axis);
        }
    }
    for (int16_t k : state.SelectedObjects()) {
        if (k > state.Rects.ObjectCount() || !state.Rects.IsPlaced(k)) continue;
        const PageObject& obj = *state.CurrentFormat->Object(k);
        moved.push_back({k, static_cast<float>(obj.Origin(1) + shift[0]),
                         static_cast<float>(obj.Origin(2) + shift[1])});
    }
    KeepOnPage(*state.CurrentFormat, moved);
    return moved;
}

std::vector<RectClass> MovedOutlines(const EditorState& state,
                                     const std::vector<MovedObject>& moved) {
    std::vector<RectClass> outlines;
    const RectClass& margin = state.Rects.Margin;
    for (const MovedObject& m : moved) {
        RectClass r = state.Rects.Object(m.Object).Clone();
        r.InitTo(ToInt32(margin.Left() + double(m.X) * margin.Width()),
                 ToInt32(margin.Top() + double(m.Y) * margin.Height()), r.Width(), r.Height());
        outlines.push_back(r);
    }
    return outlines;
}

bool CommitDrag(EditorState& state, EditStep& step, int16_t dragMode, float dx, float dy,
                const DragSnap* snap) {
    std::shared_ptr<PageObject> obj = state.Selected();
    // A snapped drag may come to rest a pixel from where it started: it still lines up.
    bool snapped = snap && (snap->Axis[0].Snapped || snap->Axis[1].Snapped);
    if (!obj || dragMode == kDragNone || (!snapped && IsClick(dx, dy))) return false;
    if (dragMode == kDragMove) return SetOrigins(state, step, MovedSelection(state, dx, dy, snap));
    int16_t k = state.SelectedObject;
    int16_t f = state.CurrentFormatIndex;
    PageObject landed = LandedObject(state, dragMode, dx, dy, snap);
    bool changed = false;
    for (int16_t axis = 1; axis <= 2; ++axis) {
        float oldOrigin = obj->Origin(axis);
        float oldLength = obj->Length(axis);
        obj->SetOrigin(axis, landed.Origin(axis));
        obj->SetLength(axis, landed.Length(axis));
        step.Record(kPropOrigin, oldOrigin, landed.Origin(axis), f, k, axis);
        step.Record(kPropLength, oldLength, landed.Length(axis), f, k, axis);
        changed = changed || oldOrigin != landed.Origin(axis) || oldLength != landed.Length(axis);
    }
    return changed;
}

bool NudgeSelected(EditorState& state, EditStep& step, int32_t dx, int32_t dy) {
    const PageFormat* format = state.CurrentFormat.get();
    if (!state.Selected() || !format) return false;
    const int32_t by[2] = {dx, dy};
    std::vector<MovedObject> moved;
    for (int16_t k : state.SelectedObjects()) {
        const PageObject& obj = *format->Object(k);
        float to[2];
        for (int16_t axis = 1; axis <= 2; ++axis) {
            // Origins are fractions of the printable area.
            double area = format->PrintablePixels(axis);
            if (!(area > 0)) return false;
            to[axis - 1] = static_cast<float>(obj.Origin(axis) + by[axis - 1] / area);
        }
        moved.push_back({k, to[0], to[1]});
    }
    KeepOnPage(*format, moved);
    return SetOrigins(state, step, moved);
}

int16_t NeighbourObject(int16_t selected, int16_t count, bool forward) {
    if (count < 1) return 0;
    if (forward) return selected >= 1 && selected < count ? int16_t(selected + 1) : int16_t(1);
    return selected > 1 && selected <= count ? int16_t(selected - 1) : count;
}

}  // namespace paginox
