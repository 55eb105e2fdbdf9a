// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/Selection.h"

#include <algorithm>

#include "editor/EditorState.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox {

void ToggleSelected(EditorState& state, int16_t k) {
    if (!state.CurrentFormat || k < 1 || k > state.CurrentFormat->NumObjects()) return;
    ObjectSelection selection = state.Selection();
    std::vector<int16_t>& others = selection.Others;
    if (!state.IsSelected(k)) {
        if (selection.Primary == 0) {
            selection.Primary = k;
        } else {
            others.push_back(k);
        }
    } else if (k == selection.Primary) {
        selection.Primary = others.empty() ? int16_t(0) : others.front();
        if (!others.empty()) others.erase(others.begin());
    } else {
        others.erase(std::remove(others.begin(), others.end(), k), others.end());
    }
    state.Select(selection);
}

void MakePrimary(EditorState& state, int16_t k) {
    if (!state.IsSelected(k)) {
        state.SelectOnly(k);
        return;
    }
    ObjectSelection selection = state.Selection();
    std::replace(selection.Others.begin(), selection.Others.end(), k, selection.Primary);
    selection.Primary = k;
    state.Select(selection);
}

void SelectAll(EditorState& state) {
    int16_t count = state.CurrentFormat ? state.CurrentFormat->NumObjects() : 0;
    ObjectSelection all{state.Selected() ? state.SelectedObject : int16_t(1), {}};
    for (int16_t k = 1; k <= count; ++k) {
        if (k != all.Primary) all.Others.push_back(k);
    }
    state.Select(all);
}

std::vector<int16_t> ObjectsTouching(const EditorState& state, const RectClass& band) {
    std::vector<int16_t> touched;
    if (!state.CurrentFormat) return touched;
    int16_t count = std::min(state.CurrentFormat->NumObjects(), state.Rects.ObjectCount());
    for (int16_t k = 1; k <= count; ++k) {
        if (!state.CurrentFormat->Object(k) || !state.Rects.IsPlaced(k)) continue;
        const RectClass& r = state.Rects.Object(k);
        if (r.Left() <= band.Right() && band.Left() <= r.Right() && r.Top() <= band.Bottom() &&
            band.Top() <= r.Bottom()) {
            touched.push_back(k);
        }
    }
    return touched;
}

void SelectTouching(EditorState& state, const RectClass& band, bool adding) {
    ObjectSelection selection = adding ? state.Selection() : ObjectSelection{};
    // Select drops the ones chosen twice.
    for (int16_t k : ObjectsTouching(state, band)) {
        if (selection.Primary == 0) {
            selection.Primary = k;
        } else {
            selection.Others.push_back(k);
        }
    }
    state.Select(selection);
}

std::optional<FractionBox> SelectionBox(const EditorState& state) {
    std::vector<int16_t> selected = state.SelectedObjects();
    if (selected.empty()) return std::nullopt;
    FractionBox box{1e30, 1e30, -1e30, -1e30};
    for (int16_t k : selected) {
        const PageObject& obj = *state.CurrentFormat->Object(k);
        box.Left = std::min(box.Left, double(obj.Origin(1)));
        box.Top = std::min(box.Top, double(obj.Origin(2)));
        box.Right = std::max(box.Right, double(obj.Origin(1)) + obj.Length(1));
        box.Bottom = std::max(box.Bottom, double(obj.Origin(2)) + obj.Length(2));
    }
    return box;
}

}  // namespace paginox
