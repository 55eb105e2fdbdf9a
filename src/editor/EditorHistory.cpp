// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditorHistory.h"

#include <algorithm>

#include "editor/EditorState.h"
#include "editor/Properties.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"

namespace paginox {

PropertySetter EditorHistory::Setter() {
    return [this](int32_t id, const PropertyValue& v, int16_t f, int16_t o, int16_t s) {
        SetProperty(state_, id, v, f, o, s);
    };
}

void EditorHistory::Add(Step step) {
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(done_), steps_.end());
    steps_.push_back(std::move(step));
    done_ = steps_.size();
    ++recorded_;
}

void EditorHistory::RecordProperties(std::unique_ptr<RestoreBlock> block, int16_t formatIndex,
                                     const ObjectSelection& selected) {
    if (!block || block->Count() == 0) return;
    Step step;
    step.Changes = std::move(block);
    step.FormatBefore = step.FormatAfter = formatIndex;
    step.SelectedBefore = step.SelectedAfter = selected;
    Add(std::move(step));
}

bool EditorHistory::Structural(const std::function<bool()>& change) {
    Step step;
    step.Before = state_.Page ? state_.Page->Copy() : nullptr;
    step.FormatBefore = state_.CurrentFormatIndex;
    step.SelectedBefore = state_.Selection();
    if (!change()) return false;
    step.After = state_.Page ? state_.Page->Copy() : nullptr;
    step.FormatAfter = state_.CurrentFormatIndex;
    step.SelectedAfter = state_.Selection();
    Add(std::move(step));
    return true;
}

bool EditorHistory::Undo() {
    if (!CanUndo()) return false;
    Replay(steps_[done_ - 1], false);
    --done_;
    return true;
}

bool EditorHistory::Redo() {
    if (!CanRedo()) return false;
    Replay(steps_[done_], true);
    ++done_;
    return true;
}

void EditorHistory::Replay(const Step& step, bool forward) {
    if (step.Changes) {
        // The changes name their format and object: the view follows them there.
        Show(step.FormatBefore, step.SelectedBefore);
        forward ? step.Changes->Redo() : step.Changes->Undo();
        return;
    }
    const std::shared_ptr<const PageClass>& page = forward ? step.After : step.Before;
    // A copy again, so that the step can be replayed any number of times.
    state_.Page = page ? page->Copy() : nullptr;
    state_.CurrentFormat = nullptr;
    state_.CurrentFormatIndex = 0;
    Show(forward ? step.FormatAfter : step.FormatBefore,
         forward ? step.SelectedAfter : step.SelectedBefore);
}

void EditorHistory::Show(int16_t formatIndex, const ObjectSelection& selected) {
    if (!state_.Page) return;
    if (formatIndex < 1 || formatIndex > state_.Page->NumFormats()) formatIndex = 1;
    if (formatIndex != state_.CurrentFormatIndex) state_.SetCurrentFormat(formatIndex);
    state_.Select(selected);
    state_.PreviousSelectedObject = 0;  // the property list is shown afresh
}

void EditorHistory::Clear() {
    steps_.clear();
    done_ = 0;
    ++recorded_;
}

void EditorHistory::ReturnTo(const Position& before) {
    if (recorded_ != before.Recorded) {
        // The failed command made a step of its own: the page is as it was before that step.
        size_t keep = std::min(before.Done, done_);
        steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(keep), steps_.end());
        recorded_ = before.Recorded;
    }
    done_ = std::min(before.Done, steps_.size());
}

}  // namespace paginox
