// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A safety net under every command: the editor state as it was before the command is put
// back when the command fails, so a damaged page or a failing disk never leaves a half-made
// change behind, and the user is told what could not be done and why.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "editor/EditorState.h"

namespace paginox {

class PageClass;

// What a command may change of the editor state, taken before it runs.
class EditorSnapshot {
  public:
    explicit EditorSnapshot(const EditorState& state);
    // Everything back as it was.
    void Restore(EditorState& state) const;

  private:
    std::string currentFile_;
    std::shared_ptr<PageClass> page_;  // a whole copy: the command changes the page in place
    std::shared_ptr<PageClass> savedPage_;
    int16_t formatIndex_ = 0;
    ObjectSelection selection_;
    int16_t previousSelectedObject_ = 0;
    bool pageChanged_ = false;
    bool pendingReset_ = false;
};

// Runs command. When it throws, the state is put back as it was before and the failure is
// shown with what was being done. True when the command ran to its end.
bool RunCommand(EditorState& state, const std::string& what, const std::function<void()>& command);

// The message for a command that failed: what was being done, and the error's description.
std::string CommandFailedText(const std::string& what, const std::string& description);

}  // namespace paginox
