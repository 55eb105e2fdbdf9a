// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One user step: every property it changes goes through SetProperty (or is written by the
// caller and reported with Record) and lands in one block of changes, handed to the history
// when the step ends. A step left by an error puts back what it had changed, so the page is
// as it was before the step.

#include <cstdint>
#include <memory>

#include "editor/EditorState.h"
#include "editor/RestoreBlock.h"

namespace paginox {

class EditorHistory;

class EditStep {
  public:
    explicit EditStep(EditorHistory& history);
    ~EditStep();  // a step that changed nothing leaves no trace
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
    // Whether anything has changed so far.
    bool Changed() const;

  private:
    EditorHistory& history_;
    EditorState& state_;
    std::unique_ptr<RestoreBlock> block_;
    int16_t formatIndex_;  // where the step was made
    ObjectSelection selected_;
    int exceptions_;  // uncaught when the step began
};

}  // namespace paginox
