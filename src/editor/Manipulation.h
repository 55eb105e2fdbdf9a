// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the mouse does to objects on the preview, decided without a widget: which object is
// under the pointer, which handle, and where a drag leaves the object. The preview widget
// turns events into these calls and draws the feedback.

#include <cstdint>
#include <vector>

#include "model/PageObject.h"
#include "model/RectClass.h"

namespace paginox {

class EditStep;
class EditorState;
class SelectionMarkSet;
struct DragSnap;

// What a press on the preview started: nothing, moving the selected object, or resizing it
// by the handle of that code (HandleCode of SelectionMarkSet, 2 to 7).
enum DragMode : int16_t { kDragNone = 0, kDragMove = 1 };

// A handle counts as under the pointer within this many pixels each way, a little more than
// the drawn mark, so it is easy to catch.
inline constexpr int32_t kMarkTolerance = 3;
// A release within this many pixels of the press, each way, is a click and changes nothing.
inline constexpr float kClickTolerance = 1.0f;
// No wheel is resized below this radius in pixels.
inline constexpr int32_t kMinWheelRadius = 10;
// Nor any other shape below this side in pixels: it could no longer be clicked.
inline constexpr int32_t kMinObjectSide = 6;

// Pointer shapes by number: the default arrow and the sizing pointers.
enum PointerShape : int16_t {
    kPointerDefault = 0,
    kPointerSizeAll = 5,
    kPointerSizeNESW = 6,
    kPointerSizeNS = 7,
    kPointerSizeWE = 9,
};

// The object whose shape contains the point, testing from the top (last drawn) down; 0 when
// none does.
int16_t HitTestObjects(const EditorState& state, float x, float y);

// The code of the first mark within kMarkTolerance of the point, or kDragNone.
int16_t MarkAt(const SelectionMarkSet& marks, float x, float y);

// The pointer over a handle of that code (kDragMove: size-all); 0 for none.
int16_t PointerFor(int16_t dragMode);

bool IsClick(float dx, float dy);

// Where the object's rectangle lies after dragging by (dx, dy) in the given mode: moved
// whole, or, for a resize, the pressed edge following the pointer. A wheel keeps its centre
// and takes the radius its pressed edge gives, at least kMinWheelRadius, in a square
// rectangle. Other shapes swap edges that have crossed, and keep sides of at least
// kMinObjectSide. The triangle's slanted-side handle
// moves the right and top edges so that the side's centre follows the pointer; its left-edge
// handle acts like the left edge.
RectClass DraggedRect(const RectClass& rect, int16_t shape, int16_t dragMode, int32_t dx,
                      int32_t dy);

// Where a drag of the selected object by (dx, dy) leaves it: its Origin and Length as
// fractions of the margin rectangle, kept on the page. A snapped resize puts the pulled edge
// exactly on its line.
PageObject LandedObject(const EditorState& state, int16_t dragMode, float dx, float dy,
                        const DragSnap* snap = nullptr);
// The same place in pixels of the preview, where the drag outline is drawn.
RectClass LandedOutline(const EditorState& state, int16_t dragMode, float dx, float dy,
                        const DragSnap* snap = nullptr);

// Where a move by (dx, dy) leaves each selected object: its new Origin. The primary object's
// corner goes where the offset puts it on the preview (or its snapped edge exactly on its
// line), and the others move by the same fraction, so that what was lined up stays lined up;
// the objects stop together at the page's edges.
struct MovedObject {
    int16_t Object = 0;
    float X = 0;
    float Y = 0;
};
std::vector<MovedObject> MovedSelection(const EditorState& state, float dx, float dy,
                                        const DragSnap* snap = nullptr);
// Their outlines on the preview.
std::vector<RectClass> MovedOutlines(const EditorState& state,
                                     const std::vector<MovedObject>& moved);

// Commits a drag as one step. A move takes every selected object along and sets Origin
// through SetProperty, once per axis and object; a resize of the selected object writes
// Origin and Length directly and records them in the step. Positions and sizes are fractions
// of the margin rectangle. A click changes nothing, unless it snapped; false when nothing
// changed.
bool CommitDrag(EditorState& state, EditStep& step, int16_t dragMode, float dx, float dy,
                const DragSnap* snap = nullptr);

// Moves the selected objects by (dx, dy) pixels of the current format, kept on the page as a
// move is; the keyboard's nudge. False when nothing moved.
bool NudgeSelected(EditorState& state, EditStep& step, int32_t dx, int32_t dy);

// The object after (or before) selected among count, wrapping round; the first (or last)
// when none is selected, 0 when there are none.
int16_t NeighbourObject(int16_t selected, int16_t count, bool forward);

}  // namespace paginox
