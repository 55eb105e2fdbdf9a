// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The object commands of the main window's Object menu and the preview's pop-up menu, on the
// editor state. Each leaves the refresh to the window.

#include <cstdint>
#include <string>

namespace paginox {

class EditStep;
class EditorState;

// Copies of the selected objects, in front, placed as they were to one another with their
// group's corner at the page's top-left corner, and selected. False without a selection.
bool CopySelectedObject(EditorState& state);

// Deletes object index of the current format, asking first when confirm is set. An index
// outside the format shows "You must select an object before it can be deleted.". The page's
// chart count follows the charts still in use. True when the object was deleted.
bool DeleteObject(EditorState& state, int16_t index, bool confirm);
// Deletes every selected object, without asking; with one selected, as DeleteObject.
bool DeleteSelectedObjects(EditorState& state);

// Moves the selected objects to the front (drawn last) or the back (drawn first), keeping
// their order among themselves; the selection follows them. False without a selection.
bool MoveSelectedToFront(EditorState& state);
bool MoveSelectedToBack(EditorState& state);

// Where the selected object can be lined up with the page's printable area.
enum class Alignment { Left, Centre, Right, Top, Middle, Bottom };

// Moves the selected object against an edge or the centre line of the printable area, as one
// step through SetProperty. False without a selection or when it was there already.
bool AlignSelectedObject(EditorState& state, EditStep& step, Alignment how);

// The text of a row of the object selector for object k: "Object k: FullName".
std::string ObjectCaption(const EditorState& state, int16_t k);

}  // namespace paginox
