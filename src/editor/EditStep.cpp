// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditStep.h"

#include <cstring>
#include <exception>

#include "editor/EditorHistory.h"
#include "editor/EditorState.h"
#include "editor/RestoreBlock.h"

namespace paginox {

namespace {

// Values as the page file keeps them: -0 and 0 are different bytes there, so a change between
// them must be undone too; a NaN left as it was is no change.
bool SameValue(const PropertyValue& a, const PropertyValue& b) {
    if (a.index() != b.index()) return false;
    if (const float* x = std::get_if<float>(&a)) {
        return std::memcmp(x, &std::get<float>(b), sizeof(float)) == 0;
    }
    if (const double* x = std::get_if<double>(&a)) {
        return std::memcmp(x, &std::get<double>(b), sizeof(double)) == 0;
    }
    return a == b;
}

}  // namespace

EditStep::EditStep(EditorHistory& history)
    : history_(history),
      state_(history.State()),
      block_(std::make_unique<RestoreBlock>(history.Setter())),
      formatIndex_(state_.CurrentFormatIndex),
      selected_(state_.Selection()),
      exceptions_(std::uncaught_exceptions()) {}

EditStep::~EditStep() {
    if (std::uncaught_exceptions() > exceptions_) {
        // Left by an error: what the step had changed is taken back and forgotten.
        try {
            block_->Undo();
        } catch (...) {  // the caller's safety net puts the page back
        }
        return;
    }
    history_.RecordProperties(std::move(block_), formatIndex_, selected_);
}

bool EditStep::Set(int32_t id, const PropertyValue& value, int16_t formatIndex, int16_t objectIndex,
                   int16_t subIndex) {
    PropertyValue before = GetProperty(state_, id, formatIndex, objectIndex, subIndex);
    SetProperty(state_, id, value, formatIndex, objectIndex, subIndex);
    PropertyValue after = GetProperty(state_, id, formatIndex, objectIndex, subIndex);
    if (SameValue(after, before)) return false;
    block_->AddObject().SetValues(id, before, after, formatIndex, objectIndex, subIndex);
    return true;
}

void EditStep::Record(int32_t id, const PropertyValue& oldValue, const PropertyValue& newValue,
                      int16_t formatIndex, int16_t objectIndex, int16_t subIndex) {
    if (SameValue(oldValue, newValue)) return;
    block_->AddObject().SetValues(id, oldValue, newValue, formatIndex, objectIndex, subIndex);
}

bool EditStep::Changed() const {
    return block_->Count() > 0;
}

}  // namespace paginox
