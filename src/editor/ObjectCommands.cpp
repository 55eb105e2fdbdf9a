// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ObjectCommands.h"

#include "core/MessageService.h"
#include "core/NumberFormat.h"
#include "editor/EditStep.h"
#include "editor/EditorState.h"
#include "editor/Properties.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"

namespace paginox {

bool CopySelectedObject(EditorState& state) {
    std::shared_ptr<PageObject> source = state.Selected();
    if (!source) return false;
    std::shared_ptr<PageObject> copy = source->Clone();
    state.CurrentFormat->AddObject(copy);
    state.GrowObjectRects();
    copy->SetOrigin(1, 0);
    copy->SetOrigin(2, 0);
    state.SelectedObject = state.CurrentFormat->NumObjects();
    return true;
}

std::string ObjectCaption(const EditorState& state, int16_t k) {
    std::string name;
    if (state.CurrentFormat && state.CurrentFormat->Object(k)) {
        name = state.CurrentFormat->POClass(k).FullName();
    }
    return "Object " + FormatZero(k) + ": " + name;
}

bool DeleteObject(EditorState& state, int16_t index, bool confirm) {
    if (!state.CurrentFormat || index < 1 || index > state.CurrentFormat->NumObjects()) {
        ShowMessage("You must select an object before it can be deleted.");
        return false;
    }
    if (confirm) {
        std::string text = std::string("Do you wish to delete the currently selected object?") +
                           kCrLf + kCrLf + ObjectCaption(state, index);
        if (Messages().Show(text, "Confirm deletion", MsgButtons::OkCancel, MsgIcon::None) !=
            MsgAnswer::Ok) {
            return false;
        }
    }
    state.CurrentFormat->DeleteObject(index);
    state.SelectedObject = 0;
    state.Page->SetNumCharts(state.Page->MaxNumCharts());
    return true;
}

namespace {
bool MoveSelectedTo(EditorState& state, bool front) {
    if (!state.Selected()) return false;
    int16_t to = front ? state.CurrentFormat->NumObjects() : 1;
    state.CurrentFormat->MoveObject(state.SelectedObject, to);
    state.SelectedObject = to;
    return true;
}
}  // namespace

bool MoveSelectedToFront(EditorState& state) {
    return MoveSelectedTo(state, true);
}
bool MoveSelectedToBack(EditorState& state) {
    return MoveSelectedTo(state, false);
}

bool AlignSelectedObject(EditorState& state, EditStep& step, Alignment how) {
    std::shared_ptr<PageObject> obj = state.Selected();
    if (!obj) return false;
    int16_t axis =
        how == Alignment::Left || how == Alignment::Centre || how == Alignment::Right ? 1 : 2;
    float length = obj->Length(axis);
    float origin = 0;
    switch (how) {
        case Alignment::Left:
        case Alignment::Top:
            origin = 0;
            break;
        case Alignment::Centre:
        case Alignment::Middle:
            origin = (1 - length) / 2;
            break;
        case Alignment::Right:
        case Alignment::Bottom:
            origin = 1 - length;
            break;
    }
    return step.Set(kPropOrigin, origin, state.CurrentFormatIndex, state.SelectedObject, axis);
}

}  // namespace paginox
