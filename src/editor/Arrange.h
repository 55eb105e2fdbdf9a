// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Lining up several selected objects: aligning them with the primary one, spreading them
// with equal gaps and giving them its size. All of it works on Origin and Length, the
// fractions of the printable area the drawing places objects by, so that what lines up on
// the preview lines up exactly in the file and on every device.

#include <cstdint>

#include "editor/ObjectCommands.h"

namespace paginox {

class EditStep;
class EditorState;

// Lines the selected objects up with the primary one: their left edges, right edges, centres
// across (Centre), top edges, bottom edges or centres down (Middle). With one object selected
// it is lined up with the printable area instead. Nothing leaves the printable area. False
// when nothing moved.
bool AlignSelection(EditorState& state, EditStep& step, Alignment how);

// Spreads three or more selected objects along an axis (1 across, 2 down) so that the gaps
// between neighbours are equal; the first and the last stay where they are.
bool DistributeSelection(EditorState& state, EditStep& step, int16_t axis);

// Gives the selected objects the primary one's width, height or both.
enum class SizeMatch { Width, Height, Both };
bool MatchPrimarySize(EditorState& state, EditStep& step, SizeMatch what);

// Where an object with this length lies on an axis when kept inside the printable area.
float KeptInside(float origin, float length);

}  // namespace paginox
