// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Objects on the clipboard, between page sizes, pages and running editors: our own form
// (CopiedObjects) with the JSON text of `paginox-tool dump` beside it for scripts. The
// clipboard itself is the window's.

#include <memory>
#include <string>
#include <vector>

#include "persist/CopiedObjects.h"

namespace paginox {

class EditorState;
class PageObject;

struct CopiedObjects {
    std::string Bytes;  // our own form, under kObjectsMimeType
    std::string Json;   // the text form
};

// The selected objects in drawing order; nothing without a selection.
CopiedObjects CopySelectedObjects(const EditorState& state);

// Puts copies of the objects in front on the current format, where they were as fractions
// of the page (kept on it) and with all their settings, and selects them. A class the catalogue
// lacks refuses the whole paste with a message naming it. False when nothing was pasted.
bool PasteObjects(EditorState& state, const std::vector<std::shared_ptr<PageObject>>& objects);

}  // namespace paginox
