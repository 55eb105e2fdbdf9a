// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Objects on the clipboard, between page sizes, pages and running editors. Our own form
// carries each object's page-file record, so a paste is exact to the last bit; the JSON text
// of `paginox-tool dump` goes with it for scripts. The clipboard itself is the window's.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace paginox {

class EditorState;
class PageObject;

inline constexpr const char* kObjectsMimeType = "application/x-paginox-objects";

struct CopiedObjects {
    std::string Bytes;  // our own form, under kObjectsMimeType
    std::string Json;   // the text form
};

// The selected objects in drawing order; nothing without a selection.
CopiedObjects CopySelectedObjects(const EditorState& state);

// The objects of our own form. Anything else, cut short or too long, raises a RuntimeError
// that says the clipboard's objects cannot be read.
std::vector<std::shared_ptr<PageObject>> ReadCopiedObjects(std::string_view bytes);

// Puts copies of the objects in front on the current format, where they were as fractions
// of the page and with all their settings, and selects them. A class the catalogue lacks
// refuses the whole paste with a message naming it. False when nothing was pasted.
bool PasteObjects(EditorState& state, const std::vector<std::shared_ptr<PageObject>>& objects);

}  // namespace paginox
