// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ObjectCommands.h"

#include <algorithm>
#include <vector>

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
    std::vector<int16_t> selected = state.SelectedObjects();
    if (selected.empty()) return false;
    PageFormat& format = *state.CurrentFormat;
    // The copies keep their places to one another, the group's corner at the page's.
    float corner[2] = {1, 1};
    for (int16_t k : selected) {
        for (int16_t axis = 1; axis <= 2; ++axis) {
            corner[axis - 1] = std::min(corner[axis - 1], format.Object(k)->Origin(axis));
        }
    }
    ObjectSelection copies;
    for (int16_t k : selected) {
        std::shared_ptr<PageObject> copy = format.Object(k)->Clone();
        for (int16_t axis = 1; axis <= 2; ++axis) {
            copy->SetOrigin(axis, copy->Origin(axis) - corner[axis - 1]);
        }
        format.AddObject(copy);
        int16_t added = format.NumObjects();
        if (k == state.SelectedObject) {
            copies.Primary = added;
        } else {
            copies.Others.push_back(added);
        }
    }
    state.GrowObjectRects();
    state.Select(copies);
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
    state.SelectOnly(0);
    state.Page->SetNumCharts(state.Page->MaxNumCharts());
    return true;
}

bool DeleteSelectedObjects(EditorState& state) {
    std::vector<int16_t> selected = state.SelectedObjects();
    if (selected.size() < 2) return DeleteObject(state, state.SelectedObject, false);
    // From the top down, so that the indices still to go stay where they were.
    for (auto k = selected.rbegin(); k != selected.rend(); ++k) {
        state.CurrentFormat->DeleteObject(*k);
    }
    state.SelectOnly(0);
    state.Page->SetNumCharts(state.Page->MaxNumCharts());
    return true;
}

namespace {
// The selected objects, in their own order, go in front of the others or behind them.
bool MoveSelectedTo(EditorState& state, bool front) {
    std::vector<int16_t> selected = state.SelectedObjects();
    if (selected.empty()) return false;
    PageFormat& format = *state.CurrentFormat;
    std::vector<bool> isChosen(size_t(format.NumObjects()) + 1);
    for (int16_t k : selected) isChosen[size_t(k)] = true;
    std::vector<std::shared_ptr<PageObject>> chosen, rest;
    for (int16_t k = 1; k <= format.NumObjects(); ++k) {
        (isChosen[size_t(k)] ? chosen : rest).push_back(format.Object(k));
    }
    std::vector<std::shared_ptr<PageObject>>& first = front ? rest : chosen;
    std::vector<std::shared_ptr<PageObject>>& second = front ? chosen : rest;
    ObjectSelection moved;
    std::shared_ptr<PageObject> primary = state.Selected();
    int16_t k = 0;
    for (auto* group : {&first, &second}) {
        for (std::shared_ptr<PageObject>& obj : *group) {
            format.SetObject(++k, obj);
            if (group != &chosen) continue;
            if (obj == primary) {
                moved.Primary = k;
            } else {
                moved.Others.push_back(k);
            }
        }
    }
    state.Select(moved);
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
