#pragma once

// One user step: every property it changes goes through SetProperty (or is written by the
// caller and reported with Record) and lands in one undo block, closed when the step ends.

#include <cstdint>

#include "editor/Properties.h"

namespace paginox {

class EditorState;
class UndoManager;

class EditStep {
  public:
    EditStep(EditorState& state, UndoManager& undo);
    ~EditStep();  // closes the block; a step that changed nothing leaves no trace
    EditStep(const EditStep&) = delete;
    EditStep& operator=(const EditStep&) = delete;

    // SetProperty with the indices filled in; a change is recorded with the indices it
    // reached, so undoing it later finds the same object whatever is selected then. True
    // when the value changed.
    bool Set(int32_t id, const PropertyValue& value, int16_t formatIndex, int16_t objectIndex,
             int16_t subIndex);
    // A change the caller made directly.
    void Record(int32_t id, const PropertyValue& oldValue, const PropertyValue& newValue,
                int16_t formatIndex, int16_t objectIndex, int16_t subIndex);

  private:
    EditorState& state_;
    UndoManager& undo_;
};

}  // namespace paginox
