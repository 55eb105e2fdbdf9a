// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The status bar's words about the preview: where the pointer is on the page and what is
// selected, in pixels of the current format, whatever the zoom.

#include <string>

namespace paginox {

class EditorState;

// "412, 230 px (0.3217, 0.2718)": format pixels from the page's top-left corner, then the
// fractions of the printable area a position has in the property list. Empty off the page.
std::string PointerReadout(const EditorState& state, float x, float y);

// "Object 2: Point List at 120, 80 px, 300 x 200 px": the selected object's caption, its
// top-left corner and its size (Anchor and Size) in format pixels; with several selected,
// "3 objects selected at ..." and the box round them. Empty with nothing selected.
std::string SelectionReadout(const EditorState& state);

}  // namespace paginox
