// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditorState.h"

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox {

void EditorState::SetCurrentFormat(int16_t index) {
    CurrentFormatIndex = index;
    CurrentFormat = Page ? Page->GetFormat(index) : nullptr;
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
