// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The editor's message service: a modal message box with the exact texts, title, buttons
// and icon, on top of the active window.

#include "core/MessageService.h"

namespace paginox {

class QtMessages : public MessageService {
  public:
    MsgAnswer Show(const std::string& text, const std::string& title, MsgButtons buttons,
                   MsgIcon icon) override;
};

// The program's title, used for boxes without a title of their own.
inline constexpr const char* kProgramTitle = "Paginox";

}  // namespace paginox
