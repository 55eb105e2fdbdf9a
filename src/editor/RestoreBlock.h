// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The property changes that make one user step, undone last to first and redone first to
// last.

#include <cstdint>
#include <memory>
#include <vector>

#include "editor/RestoreObject.h"

namespace paginox {

class RestoreBlock {
  public:
    explicit RestoreBlock(PropertySetter setter) : setter_(std::move(setter)) {}

    int16_t Count() const { return static_cast<int16_t>(changes_.size()); }
    // Appends an empty change for the caller to fill with SetValues.
    RestoreObject& AddObject();
    const RestoreObject& Change(int16_t k) const;  // 1..Count
    void Undo() const;
    void Redo() const;

  private:
    PropertySetter setter_;
    std::vector<std::unique_ptr<RestoreObject>> changes_;
};

}  // namespace paginox
