#include "editor/EditStep.h"

#include "editor/UndoManager.h"

namespace paginox {

EditStep::EditStep(EditorState& state, UndoManager& undo) : state_(state), undo_(undo) {
    undo_.BeginRestoreBlock();
}

EditStep::~EditStep() {
    undo_.EndRestoreBlock();
}

bool EditStep::Set(int32_t id, const PropertyValue& value, int16_t formatIndex, int16_t objectIndex,
                   int16_t subIndex) {
    PropertyValue before = GetProperty(state_, id, formatIndex, objectIndex, subIndex);
    SetProperty(state_, id, value, formatIndex, objectIndex, subIndex);
    PropertyValue after = GetProperty(state_, id, formatIndex, objectIndex, subIndex);
    if (after == before) return false;
    undo_.AddRestoreObject(id, before, after, formatIndex, objectIndex, subIndex);
    return true;
}

void EditStep::Record(int32_t id, const PropertyValue& oldValue, const PropertyValue& newValue,
                      int16_t formatIndex, int16_t objectIndex, int16_t subIndex) {
    if (oldValue == newValue) return;
    undo_.AddRestoreObject(id, oldValue, newValue, formatIndex, objectIndex, subIndex);
}

}  // namespace paginox
