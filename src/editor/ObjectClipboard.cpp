// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ObjectClipboard.h"

#include <algorithm>

#include "core/MessageService.h"
#include "editor/EditorState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClasses.h"
#include "persist/PageJson.h"

namespace paginox {

CopiedObjects CopySelectedObjects(const EditorState& state) {
    std::vector<std::shared_ptr<PageObject>> objects;
    for (int16_t k : state.SelectedObjects()) objects.push_back(state.CurrentFormat->Object(k));
    if (objects.empty()) return {};
    return {CopiedObjectsBytes(objects), ObjectsJson(objects)};
}

bool PasteObjects(EditorState& state, const std::vector<std::shared_ptr<PageObject>>& objects) {
    if (!state.CurrentFormat || !state.Page || objects.empty()) return false;
    for (const std::shared_ptr<PageObject>& obj : objects) {
        if (!IsKnownClass(obj->ObjectClassID())) {
            ShowMessage("The clipboard holds an object of class " +
                            std::to_string(obj->ObjectClassID()) +
                            ", which is not in this installation's object catalogue. Nothing "
                            "was pasted.",
                        "Paste", MsgIcon::Exclamation);
            return false;
        }
    }
    if (state.CurrentFormat->NumObjects() + objects.size() > size_t(INT16_MAX)) {
        ShowMessage("The page size cannot hold that many more objects. Nothing was pasted.",
                    "Paste", MsgIcon::Exclamation);
        return false;
    }
    ObjectSelection pasted;
    for (const std::shared_ptr<PageObject>& obj : objects) {
        std::shared_ptr<PageObject> copy = obj->Clone();
        copy->ForceInsideFrame();  // another program may have put anything there
        state.CurrentFormat->AddObject(copy);
        if (obj->NumCharts() > state.Page->NumCharts()) state.Page->SetNumCharts(obj->NumCharts());
        int16_t added = state.CurrentFormat->NumObjects();
        if (pasted.Primary == 0) {
            pasted.Primary = added;
        } else {
            pasted.Others.push_back(added);
        }
    }
    state.GrowObjectRects();
    state.Select(pasted);
    return true;
}

}  // namespace paginox
