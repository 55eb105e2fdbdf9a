// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/UndoManager.h"

#include "core/Checked.h"
#include "core/RuntimeError.h"

namespace paginox {

namespace {
constexpr size_t kFirstUndoSlots = 20;
constexpr size_t kFirstRedoSlots = 10;
constexpr int16_t kGrowth = 10;

void GrowTo(std::vector<std::unique_ptr<RestoreBlock>>& stack, int16_t count) {
    stack.resize(static_cast<size_t>(CheckedAdd(count, kGrowth)));
}
}  // namespace

UndoManager::UndoManager(PropertySetter setter, MenuUpdate updateMenus)
    : setter_(std::move(setter)),
      updateMenus_(std::move(updateMenus)),
      undoStack_(kFirstUndoSlots),
      redoStack_(kFirstRedoSlots) {}

void UndoManager::Clear() {
    for (auto& slot : undoStack_) slot.reset();
    for (auto& slot : redoStack_) slot.reset();
    current_.reset();
    undoCount_ = 0;
    redoCount_ = 0;
    UpdateMenus();
}

void UndoManager::BeginRestoreBlock() {
    current_ = std::make_unique<RestoreBlock>(setter_);
}

void UndoManager::AddRestoreObject(int32_t id, const PropertyValue& oldValue,
                                   const PropertyValue& newValue, int16_t first, int16_t second,
                                   int16_t third) {
    if (!current_) Raise(kObjectNotSet);
    current_->AddObject().SetValues(id, oldValue, newValue, first, second, third);
}

void UndoManager::EndRestoreBlock() {
    if (!current_) return;
    if (current_->Count() == 0) {
        current_.reset();
        return;
    }
    if (undoCount_ >= UndoCapacity()) GrowTo(undoStack_, undoCount_);
    undoCount_ = CheckedAdd<int16_t>(undoCount_, 1);
    undoStack_[static_cast<size_t>(undoCount_ - 1)] = std::move(current_);
    UpdateMenus();
}

void UndoManager::Undo() {
    if (undoCount_ < 1) return;
    std::unique_ptr<RestoreBlock> block = Pop(undoStack_, undoCount_);
    block->Undo();
    Push(redoStack_, redoCount_, std::move(block));
    UpdateMenus();
}

void UndoManager::Redo() {
    if (redoCount_ < 1) return;
    std::unique_ptr<RestoreBlock> block = Pop(redoStack_, redoCount_);
    block->Redo();
    Push(undoStack_, undoCount_, std::move(block));
    UpdateMenus();
}

const RestoreBlock* UndoManager::TopOfUndo() const {
    return undoCount_ > 0 ? undoStack_[static_cast<size_t>(undoCount_ - 1)].get() : nullptr;
}

const RestoreBlock* UndoManager::TopOfRedo() const {
    return redoCount_ > 0 ? redoStack_[static_cast<size_t>(redoCount_ - 1)].get() : nullptr;
}

// Grows only when the count equals the stack's size (Undo and Redo; see the header).
void UndoManager::Push(Stack& stack, int16_t& count, std::unique_ptr<RestoreBlock> block) {
    if (count == static_cast<int16_t>(stack.size())) GrowTo(stack, count);
    count = CheckedAdd<int16_t>(count, 1);
    stack[static_cast<size_t>(count - 1)] = std::move(block);
}

std::unique_ptr<RestoreBlock> UndoManager::Pop(Stack& stack, int16_t& count) {
    std::unique_ptr<RestoreBlock> block = std::move(stack[static_cast<size_t>(count - 1)]);
    --count;
    return block;
}

void UndoManager::UpdateMenus() const {
    if (updateMenus_) updateMenus_(CanUndo(), CanRedo());
}

}  // namespace paginox
