// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Snapping while objects are dragged: the moving edges and centre land on the other objects'
// edges and centres, on the printable area's edges and centre, or on the grid. A snapped
// edge lands exactly on the line's fraction of the printable area, not merely on its pixel
// of the preview, so that what meets on the screen meets in the file at every page size.

#include <cstdint>
#include <optional>
#include <vector>

#include "editor/Manipulation.h"

namespace paginox {

class EditorState;

// Within this many pixels of the preview (screen pixels, at any zoom) an edge snaps.
inline constexpr int32_t kSnapTolerance = 5;
// Grid spacing in format pixels when none was chosen, and the range one may choose.
inline constexpr int32_t kDefaultGridSpacing = 20;
inline constexpr int32_t kMinGridSpacing = 2;
inline constexpr int32_t kMaxGridSpacing = 1000;

struct SnapSettings {
    bool Objects = true;  // View > Snap to Objects; off while Alt is held
    bool ShowGrid = false;
    bool ToGrid = false;
    int32_t GridSpacing = kDefaultGridSpacing;
};

// A line something may snap to: where it is drawn on the preview, and exactly where it is as
// a fraction of the printable area.
struct SnapLine {
    double Pixel = 0;
    double Fraction = 0;
};

// The lines of one drag, gathered when it starts: every edge and centre of the objects not
// being dragged (a resize drags the primary object alone), and the printable area's edges and
// centre; per axis (1 across, 2 down), sorted, so that each step of the drag looks a line up
// in logarithmic time.
class SnapTargets {
  public:
    SnapTargets() = default;
    explicit SnapTargets(const EditorState& state, int16_t dragMode = kDragMove);
    // The line nearest to pixel within tolerance along the axis.
    std::optional<SnapLine> Nearest(int16_t axis, double pixel, double tolerance) const;
    size_t Count(int16_t axis) const { return lines_[axis - 1].size(); }

  private:
    std::vector<SnapLine> lines_[2];
};

// How one axis of a drag snapped.
struct AxisSnap {
    bool Snapped = false;
    // A move: the fraction added to each dragged object's origin. A resize: the fraction the
    // pulled edge lands on.
    double Fraction = 0;
    // Where the guide is drawn, across the preview; none for the grid, which is drawn itself.
    std::optional<double> Guide;
};

struct DragSnap {
    int32_t Dx = 0;  // the drag's offset in preview pixels once snapped
    int32_t Dy = 0;
    AxisSnap Axis[2];
};

// Snaps a drag by (dx, dy) preview pixels of the selection (kDragMove) or of the primary
// object's handle dragMode. Nothing snaps that would carry an object outside the printable
// area; a wheel's size and the triangle's slanted side are not snapped.
DragSnap SnapDrag(const EditorState& state, const SnapTargets& targets,
                  const SnapSettings& settings, int16_t dragMode, int32_t dx, int32_t dy);

// The grid's lines across the preview along an axis, in preview pixels: every spacing format
// pixels from the printable area's corner, over the whole printable area. Empty when they
// would be closer than a few pixels apart.
std::vector<double> GridLines(const EditorState& state, int16_t axis, int32_t spacing);

}  // namespace paginox
