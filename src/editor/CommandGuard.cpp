// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/CommandGuard.h"

#include <exception>

#include "core/MessageService.h"
#include "editor/EditorState.h"
#include "model/PageClass.h"

namespace paginox {

EditorSnapshot::EditorSnapshot(const EditorState& state)
    : currentFile_(state.CurrentFile),
      page_(state.Page ? state.Page->Copy() : nullptr),
      savedPage_(state.SavedPage),
      formatIndex_(state.CurrentFormatIndex),
      selection_(state.Selection()),
      previousSelectedObject_(state.PreviousSelectedObject),
      pageChanged_(state.PageChanged),
      pendingReset_(state.PendingReset) {}

void EditorSnapshot::Restore(EditorState& state) const {
    state.CurrentFile = currentFile_;
    state.SavedPage = savedPage_;
    state.PageChanged = pageChanged_;
    state.PendingReset = pendingReset_;
    // A copy again, so that the snapshot can serve any number of times.
    state.Page = page_ ? page_->Copy() : nullptr;
    state.CurrentFormat = nullptr;
    state.CurrentFormatIndex = 0;
    if (state.Page && formatIndex_ >= 1 && formatIndex_ <= state.Page->NumFormats()) {
        state.SetCurrentFormat(formatIndex_);
    }
    state.Select(selection_);
    state.PreviousSelectedObject = previousSelectedObject_;
}

std::string CommandFailedText(const std::string& what, const std::string& description) {
    return what + " could not be completed." + kCrLf + kCrLf + description + kCrLf + kCrLf +
           "The page is as it was before.";
}

bool RunCommand(EditorState& state, const std::string& what, const std::function<void()>& command) {
    EditorSnapshot before(state);
    std::string description;
    try {
        command();
        return true;
    } catch (const std::exception& e) {
        description = e.what();
    }
    before.Restore(state);
    ShowMessage(CommandFailedText(what, description), "", MsgIcon::Exclamation);
    return false;
}

}  // namespace paginox
