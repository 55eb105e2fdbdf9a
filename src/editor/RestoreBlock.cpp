// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/RestoreBlock.h"

#include "core/Checked.h"

namespace paginox {

RestoreObject& RestoreBlock::AddObject() {
    CheckedAdd<int16_t>(Count(), 1);
    changes_.push_back(std::make_unique<RestoreObject>(setter_));
    return *changes_.back();
}

const RestoreObject& RestoreBlock::Change(int16_t k) const {
    CheckIndex(k, 1, Count());
    return *changes_[static_cast<size_t>(k - 1)];
}

void RestoreBlock::Undo() const {
    for (auto it = changes_.rbegin(); it != changes_.rend(); ++it) (*it)->Undo();
}

void RestoreBlock::Redo() const {
    for (const auto& change : changes_) change->Redo();
}

}  // namespace paginox
