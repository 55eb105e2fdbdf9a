// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/PreviewReadout.h"

#include <cmath>

#include "editor/EditorState.h"
#include "editor/ObjectCommands.h"
#include "editor/PropertyRows.h"
#include "editor/Selection.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox {

namespace {

// Surface pixels to format pixels, along one side of the page as drawn.
struct PageScale {
    double X = 0;
    double Y = 0;
    bool Usable() const { return X > 0 && Y > 0 && std::isfinite(X) && std::isfinite(Y); }
};

PageScale ScaleOf(const EditorState& state) {
    const PageFormat* format = state.CurrentFormat.get();
    const RectClass& page = state.Rects.Page;
    if (!format || page.Width() <= 0 || page.Height() <= 0) return {};
    return PageScale{double(format->XPixels()) / page.Width(),
                     double(format->YPixels()) / page.Height()};
}

std::string Pixels(double v) {
    return std::to_string(std::lround(v));
}

}  // namespace

std::string PointerReadout(const EditorState& state, float x, float y) {
    PageScale scale = ScaleOf(state);
    const RectClass& page = state.Rects.Page;
    if (!scale.Usable() || x < page.Left() || y < page.Top() || x > page.Left() + page.Width() ||
        y > page.Top() + page.Height()) {
        return "";
    }
    const RectClass& margin = state.Rects.Margin;
    return Pixels((x - page.Left()) * scale.X) + ", " + Pixels((y - page.Top()) * scale.Y) +
           " px (" + ShownNumber(margin.PropX(x)) + ", " + ShownNumber(margin.PropY(y)) + ")";
}

std::string SelectionReadout(const EditorState& state) {
    std::shared_ptr<PageObject> obj = state.Selected();
    if (!obj) return "";
    size_t count = state.SelectedObjects().size();
    std::optional<FractionBox> box = SelectionBox(state);
    std::string caption = count >= 2 ? std::to_string(count) + " objects selected"
                                     : ObjectCaption(state, state.SelectedObject);
    const PageFormat* format = state.CurrentFormat.get();
    if (!format || !box) return caption;
    // From the model, not the drawing, so that a nudge of one pixel shows as one.
    std::string corner, extent;
    for (int16_t axis = 1; axis <= 2; ++axis) {
        double area = format->PrintablePixels(axis);
        double low = axis == 1 ? box->Left : box->Top;
        double high = axis == 1 ? box->Right : box->Bottom;
        double start = format->AxisPixels(axis) * format->Margin(axis, 1) + area * low;
        double length = area * (high - low);
        if (!std::isfinite(start) || !std::isfinite(length)) return caption;
        corner += (axis == 1 ? "" : ", ") + Pixels(start);
        extent += (axis == 1 ? "" : " x ") + Pixels(length);
    }
    return caption + " at " + corner + " px, " + extent + " px";
}

}  // namespace paginox
