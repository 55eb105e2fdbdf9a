#include "editor/EditorHistory.h"

#include "editor/UndoManager.h"

namespace paginox {

void EditorHistory::Sync() {
    for (; knownPropertySteps_ < properties_.UndoCount(); ++knownPropertySteps_) {
        undo_.push_back(Step{});
        redo_.clear();
    }
    knownPropertySteps_ = properties_.UndoCount();
}

void EditorHistory::RecordStructural(const EditorSnapshot& before) {
    Sync();
    undo_.push_back(Step{before, EditorSnapshot(state_)});
    redo_.clear();
}

bool EditorHistory::CanUndo() {
    Sync();
    return !undo_.empty();
}

bool EditorHistory::CanRedo() {
    Sync();
    return !redo_.empty();
}

bool EditorHistory::Undo() {
    if (!CanUndo()) return false;
    Step step = undo_.back();
    undo_.pop_back();
    if (step.Before) {
        step.Before->RestorePage(state_);
    } else {
        properties_.Undo();
        knownPropertySteps_ = properties_.UndoCount();
    }
    redo_.push_back(step);
    return step.Before.has_value();
}

bool EditorHistory::Redo() {
    if (!CanRedo()) return false;
    Step step = redo_.back();
    redo_.pop_back();
    if (step.After) {
        step.After->RestorePage(state_);
    } else {
        properties_.Redo();
        knownPropertySteps_ = properties_.UndoCount();
    }
    undo_.push_back(step);
    return step.After.has_value();
}

void EditorHistory::Clear() {
    properties_.Clear();
    undo_.clear();
    redo_.clear();
    knownPropertySteps_ = 0;
}

}  // namespace paginox
