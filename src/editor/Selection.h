// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Choosing several objects: adding and removing one with Shift or Ctrl, a band drawn over the
// page, all of them; and what the status bar says of the choice.

#include <cstdint>
#include <optional>
#include <vector>

#include "model/RectClass.h"

namespace paginox {

class EditorState;

// k joins the selection, or leaves it when it was in it. The first object chosen stays the
// primary one; when it leaves, the next chosen takes its place.
void ToggleSelected(EditorState& state, int16_t k);

// k becomes the primary object: of the selection it is in, or alone when it was not selected.
void MakePrimary(EditorState& state, int16_t k);

// Every object of the format; the primary one stays primary, else the first becomes it.
void SelectAll(EditorState& state);

// The objects whose rectangles on the preview the band touches, in drawing order.
std::vector<int16_t> ObjectsTouching(const EditorState& state, const RectClass& band);
// Selects what the band touches, added to what was selected when adding.
void SelectTouching(EditorState& state, const RectClass& band, bool adding);

// The box round every selected object as fractions of the printable area.
struct FractionBox {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
};
std::optional<FractionBox> SelectionBox(const EditorState& state);

}  // namespace paginox
