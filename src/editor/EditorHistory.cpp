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

bool EditorHistory::Structural(const std::function<bool()>& change) {
    EditorSnapshot before(state_);
    if (!change()) return false;
    RecordStructural(before);
    return true;
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
    return Replay(undo_, redo_, false);
}

bool EditorHistory::Redo() {
    return Replay(redo_, undo_, true);
}

bool EditorHistory::Replay(std::vector<Step>& from, std::vector<Step>& to, bool forward) {
    Sync();
    if (from.empty()) return false;
    Step step = from.back();
    from.pop_back();
    const std::optional<EditorSnapshot>& page = forward ? step.After : step.Before;
    if (page) {
        page->RestorePage(state_);
    } else {
        forward ? properties_.Redo() : properties_.Undo();
        knownPropertySteps_ = properties_.UndoCount();
    }
    to.push_back(step);
    return page.has_value();
}

void EditorHistory::Clear() {
    properties_.Clear();
    undo_.clear();
    redo_.clear();
    knownPropertySteps_ = 0;
}

}  // namespace paginox
