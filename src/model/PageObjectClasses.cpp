// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PageObjectClasses.h"

#include <map>
#include <mutex>
#include <string>
#include <utility>

#include "core/Checked.h"

namespace paginox {

void PageObjectClasses::SetCount(int16_t n) {
    if (n > 0) classes_.resize(static_cast<size_t>(n));
    count_ = n;
}

std::shared_ptr<PageObjectClass> PageObjectClasses::Class(int16_t index) const {
    CheckIndex(index, 1, count_);
    return classes_[index - 1];
}

void PageObjectClasses::SetClass(int16_t index, std::shared_ptr<PageObjectClass> c) {
    CheckIndex(index, 1, count_);
    classes_[index - 1] = std::move(c);
}

PageObjectClasses& ObjectClasses() {
    static PageObjectClasses catalogue;
    return catalogue;
}

bool IsKnownClass(int16_t classID) {
    const PageObjectClasses& all = ObjectClasses();
    return classID >= 1 && classID <= all.Count() && all.Class(classID) != nullptr;
}

const PageObjectClass& StandInClass(int16_t classID) {
    // Thumbnails are drawn on worker threads too.
    static std::mutex guard;
    static std::map<int16_t, PageObjectClass> standIns;
    std::lock_guard<std::mutex> lock(guard);
    auto [it, added] = standIns.try_emplace(classID);
    if (added) {
        PageObjectClass& cls = it->second;
        cls.SetClassID(classID);
        cls.SetFullName("Unknown class " + std::to_string(classID));
        cls.SetShape(kShapeBox);
        cls.SetDefaultHorizontalBlocks(1);
    }
    return it->second;
}

}  // namespace paginox
