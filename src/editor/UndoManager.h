// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The undo and redo stacks of user steps. A step is recorded as BeginRestoreBlock, one
// AddRestoreObject per changed property, EndRestoreBlock.
//
// Kept as the history has always behaved: the stacks start with 20 and 10 slots and grow by
// 10, never dropping old steps; closing a step grows the undo stack when the count has
// reached its size, while Undo and Redo grow the other stack only when the count equals it;
// and a new step leaves the redo stack as it is, so undone steps can still be redone.

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "editor/RestoreBlock.h"

namespace paginox {

class UndoManager {
  public:
    // Told whether Undo and Redo are available each time the menus are to follow.
    using MenuUpdate = std::function<void(bool canUndo, bool canRedo)>;

    explicit UndoManager(PropertySetter setter, MenuUpdate updateMenus = {});

    // Never set by any operation: both read false always.
    bool InUndo() const { return false; }
    bool InRedo() const { return false; }
    bool InRestoreBlock() const { return current_ != nullptr; }

    void Clear();
    void BeginRestoreBlock();
    // Requires an open block ("Object variable not set" otherwise).
    void AddRestoreObject(int32_t id, const PropertyValue& oldValue, const PropertyValue& newValue,
                          int16_t first, int16_t second, int16_t third);
    void EndRestoreBlock();
    bool CanUndo() const { return undoCount_ >= 1; }
    bool CanRedo() const { return redoCount_ >= 1; }
    void Undo();
    void Redo();

    int16_t UndoCount() const { return undoCount_; }
    int16_t RedoCount() const { return redoCount_; }
    // Slots of storage of each stack.
    int16_t UndoCapacity() const { return static_cast<int16_t>(undoStack_.size()); }
    int16_t RedoCapacity() const { return static_cast<int16_t>(redoStack_.size()); }
    // The block on top of a stack, or nullptr.
    const RestoreBlock* TopOfUndo() const;
    const RestoreBlock* TopOfRedo() const;

  private:
    using Stack = std::vector<std::unique_ptr<RestoreBlock>>;  // slot i is [i - 1]
    static void Push(Stack& stack, int16_t& count, std::unique_ptr<RestoreBlock> block);
    static std::unique_ptr<RestoreBlock> Pop(Stack& stack, int16_t& count);
    void UpdateMenus() const;

    PropertySetter setter_;
    MenuUpdate updateMenus_;
    Stack undoStack_;
    Stack redoStack_;
    int16_t undoCount_ = 0;
    int16_t redoCount_ = 0;
    std::unique_ptr<RestoreBlock> current_;
};

}  // namespace paginox
