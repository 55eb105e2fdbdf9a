#include "editor/PreviewReadout.h"

#include <cmath>

#include "editor/EditorState.h"
#include "editor/ObjectCommands.h"
#include "editor/PropertyRows.h"
#include "model/PageFormat.h"

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
    if (!state.Selected()) return "";
    std::string caption = ObjectCaption(state, state.SelectedObject);
    PageScale scale = ScaleOf(state);
    int16_t k = state.SelectedObject;
    if (!scale.Usable() || k > state.Rects.ObjectCount() || !state.Rects.IsPlaced(k)) {
        return caption;
    }
    const RectClass& r = state.Rects.Object(k);
    const RectClass& page = state.Rects.Page;
    return caption + ": " + Pixels((r.Left() - page.Left()) * scale.X) + ", " +
           Pixels((r.Top() - page.Top()) * scale.Y) + " px, " + Pixels(r.Width() * scale.X) +
           " x " + Pixels(r.Height() * scale.Y) + " px";
}

}  // namespace paginox
