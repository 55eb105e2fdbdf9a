#pragma once

// The editor's history of steps, for Undo and Redo. Property changes are kept, as always, by
// the UndoManager; what it cannot hold (objects copied, inserted, deleted or reordered, page
// sizes added or deleted) is kept here as the page before and after. One order of steps runs
// through both, and a new step drops the steps that were undone, as in every editor; the
// UndoManager's own redo stack is left as it keeps it, but never reached past that point.

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "editor/CommandGuard.h"

namespace paginox {

class EditorState;
class UndoManager;

class EditorHistory {
  public:
    EditorHistory(EditorState& state, UndoManager& properties)
        : state_(state), properties_(properties) {}

    // Records a change of the page's structure that the state has just gone through; before
    // was taken before it.
    void RecordStructural(const EditorSnapshot& before);
    // Runs change, which alters the page's structure, as one step; true when it changed.
    bool Structural(const std::function<bool()>& change);

    bool CanUndo();
    bool CanRedo();
    // Undo or redo the latest step. True when it was structural (the page was replaced: its
    // size list and selection must follow).
    bool Undo();
    bool Redo();
    void Clear();

  private:
    struct Step {
        std::optional<EditorSnapshot> Before;  // none for a property step
        std::optional<EditorSnapshot> After;
    };
    // Takes in the property steps the UndoManager closed since it was last asked.
    void Sync();
    // Takes the latest step of from back (or forward) and keeps it on to.
    bool Replay(std::vector<Step>& from, std::vector<Step>& to, bool forward);

    EditorState& state_;
    UndoManager& properties_;
    std::vector<Step> undo_;
    std::vector<Step> redo_;
    int16_t knownPropertySteps_ = 0;
};

}  // namespace paginox
