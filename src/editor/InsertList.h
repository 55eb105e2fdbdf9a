// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The insert dialog's list: the catalogue's classes grouped under headings and ordered for
// the user, and the insertion of a class's new object into the current format.

#include <cstdint>
#include <string>
#include <vector>

namespace paginox {

class EditorState;
class PageObjectClasses;

struct InsertRow {
    std::string Text;  // Windows-1252
    int16_t Tag = 0;   // the class's catalogue index; 0 for a heading
};

// Classes sorted by Order (equal Orders keep catalogue order); a heading "Group:-" wherever
// the group changes in that order; each class as four spaces and its FullName. Classes
// without a Group are left out.
std::vector<InsertRow> BuildInsertList(const PageObjectClasses& classes);

// "FullName", a line break and the Description of class tag.
std::string InsertDescription(const PageObjectClasses& classes, int16_t tag);

// Adds a new object of class tag at the end of the current format, grows the rectangle
// array, raises the page's chart count to the object's when that is higher and selects the
// new object. Errors propagate: the format keeps whatever was added before.
void InsertObject(EditorState& state, const PageObjectClasses& classes, int16_t tag);

// The text of the message an insertion that failed shows, for an error's description.
std::string InsertErrorText(const std::string& description);

}  // namespace paginox
