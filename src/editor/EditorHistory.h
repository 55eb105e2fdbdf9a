// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The editor's one history of steps, for Undo and Redo, in the order they were made. A step
// is either property changes (a RestoreBlock, put back through SetProperty) or a change of the
// page's structure (objects copied, inserted, deleted or reordered, page sizes added or
// deleted), kept as the whole page before and after. Each step remembers the page size and
// selection it was made in, so that undoing or redoing it shows the change. A new step drops
// the steps that were undone, as in every editor.

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "editor/EditorState.h"
#include "editor/RestoreBlock.h"

namespace paginox {

class PageClass;

class EditorHistory {
  public:
    explicit EditorHistory(EditorState& state) : state_(state) {}

    EditorState& State() { return state_; }
    // How a stored value is put back: SetProperty on this editor's state.
    PropertySetter Setter();

    // Keeps block as one step, made while formatIndex and selected were shown; a block
    // without changes leaves no trace.
    void RecordProperties(std::unique_ptr<RestoreBlock> block, int16_t formatIndex,
                          const ObjectSelection& selected);
    // Runs change, which alters the page's structure, as one step; true when it changed.
    bool Structural(const std::function<bool()>& change);

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }
    // Takes back (or does again) the latest step and shows its page size. False when there
    // was none. A step that fails half way stays where it was.
    bool Undo();
    bool Redo();
    void Clear();

    size_t Count() const { return steps_.size(); }
    size_t Done() const { return done_; }

    // Where the history stands, taken before a command; after the command failed and the
    // page was put back as it was then, ReturnTo brings the history back in line with it.
    struct Position {
        size_t Done = 0;
        uint64_t Recorded = 0;
    };
    Position Now() const { return {done_, recorded_}; }
    void ReturnTo(const Position& before);

  private:
    struct Step {
        std::unique_ptr<RestoreBlock> Changes;    // a property step
        std::shared_ptr<const PageClass> Before;  // a structural step: the page before
        std::shared_ptr<const PageClass> After;   // and after
        int16_t FormatBefore = 0;
        int16_t FormatAfter = 0;
        ObjectSelection SelectedBefore;
        ObjectSelection SelectedAfter;
    };
    void Add(Step step);
    void Replay(const Step& step, bool forward);
    // Shows format index (when the page has it) with what of selected exists chosen.
    void Show(int16_t formatIndex, const ObjectSelection& selected);

    EditorState& state_;
    std::vector<Step> steps_;
    size_t done_ = 0;  // steps_[0, done_) are done; the rest can be redone
    uint64_t recorded_ = 0;
};

}  // namespace paginox
