// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/InsertList.h"

#include "core/MessageService.h"
#include "editor/EditorState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClasses.h"

namespace paginox {

std::vector<InsertRow> BuildInsertList(const PageObjectClasses& classes) {
    int16_t n = classes.Count();
    std::vector<int16_t> order;
    std::vector<int16_t> keys;
    for (int16_t i = 1; i <= n; ++i) {
        order.push_back(i);
        keys.push_back(classes.Class(i) ? classes.Class(i)->Order() : 0);
    }
    // Insertion sort: each entry goes in front of the first earlier one with a greater key,
    // so equal keys keep catalogue order.
    for (size_t i = 1; i < order.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            if (keys[j] > keys[i]) {
                int16_t index = order[i];
                int16_t key = keys[i];
                order.erase(order.begin() + static_cast<long>(i));
                keys.erase(keys.begin() + static_cast<long>(i));
                order.insert(order.begin() + static_cast<long>(j), index);
                keys.insert(keys.begin() + static_cast<long>(j), key);
                break;
            }
        }
    }

    std::vector<InsertRow> rows;
    std::string group = ".";
    for (int16_t index : order) {
        auto cls = classes.Class(index);
        if (!cls || cls->Group().empty()) continue;
        if (cls->Group() != group) {
            group = cls->Group();
            rows.push_back({group + ":-", 0});
        }
        rows.push_back({"    " + cls->FullName(), index});
    }
    return rows;
}

std::string InsertDescription(const PageObjectClasses& classes, int16_t tag) {
    auto cls = classes.Class(tag);
    return cls ? cls->FullName() + kCrLf + cls->Description() : std::string();
}

void InsertObject(EditorState& state, const PageObjectClasses& classes, int16_t tag) {
    auto cls = classes.Class(tag);
    if (!cls || !state.CurrentFormat || !state.Page) return;
    std::shared_ptr<PageObject> obj = cls->CreateInstance(state.CurrentFormat.get());
    state.CurrentFormat->AddObject(obj);
    state.GrowObjectRects();
    if (obj->NumCharts() > state.Page->NumCharts()) state.Page->SetNumCharts(obj->NumCharts());
    state.SelectOnly(state.CurrentFormat->NumObjects());
}

std::string InsertErrorText(const std::string& description) {
    return "Unable to insert object: " + description;
}

}  // namespace paginox
