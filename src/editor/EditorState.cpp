// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditorState.h"

#include <algorithm>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox {

void EditorState::SetCurrentFormat(int16_t index) {
    CurrentFormatIndex = index;
    CurrentFormat = Page ? Page->GetFormat(index) : nullptr;
    AlsoSelected.clear();
}

std::vector<int16_t> EditorState::SelectedObjects() const {
    std::vector<int16_t> all;
    if (!Selected()) return all;
    int16_t count = CurrentFormat->NumObjects();
    all.push_back(SelectedObject);
    for (int16_t k : AlsoSelected) {
        if (k >= 1 && k <= count && CurrentFormat->Object(k)) all.push_back(k);
    }
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

bool EditorState::IsSelected(int16_t k) const {
    if (k < 1) return false;
    return k == SelectedObject ||
           (SelectedObject >= 1 &&
            std::find(AlsoSelected.begin(), AlsoSelected.end(), k) != AlsoSelected.end());
}

void EditorState::SelectOnly(int16_t k) {
    SelectedObject = k;
    AlsoSelected.clear();
}

void EditorState::Select(const ObjectSelection& selection) {
    int16_t count = CurrentFormat ? CurrentFormat->NumObjects() : 0;
    auto exists = [count](int16_t k) { return k >= 1 && k <= count; };
    SelectOnly(exists(selection.Primary) ? selection.Primary : 0);
    if (SelectedObject == 0) return;
    std::vector<bool> taken(size_t(count) + 1);  // each once, in linear time for thousands
    taken[size_t(SelectedObject)] = true;
    for (int16_t k : selection.Others) {
        if (!exists(k) || taken[size_t(k)]) continue;
        taken[size_t(k)] = true;
        AlsoSelected.push_back(k);
    }
}

std::shared_ptr<PageObject> EditorState::Selected() const {
    if (!CurrentFormat || SelectedObject < 1 || SelectedObject > CurrentFormat->NumObjects()) {
        return nullptr;
    }
    return CurrentFormat->Object(SelectedObject);
}

void EditorState::GrowObjectRects() {
    if (!CurrentFormat) return;
    size_t n = static_cast<size_t>(CurrentFormat->NumObjects());
    if (Rects.Objects.size() < n) Rects.Objects.resize(n);
}

bool EditorState::UpdatePageChanged() {
    PageChanged = !(Page && Page->IsEqual(SavedPage.get()));
    return PageChanged;
}

void EditorState::MarkSaved() {
    SavedPage = Page ? Page->Clone() : nullptr;
    PageChanged = false;
}

}  // namespace paginox
