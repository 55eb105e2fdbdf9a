// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The editor's preview refresh, decided without the widget: the preview grey, the current
// format drawn interactively, and the selected object's marks.

#include <cstdint>
#include <string>
#include <vector>

#include "render/DrawingSurface.h"
#include "render/PageDraw.h"

namespace paginox {

class PageFormat;
class SelectionMarkSet;

inline constexpr int32_t kPreviewBackColour = Rgb(192, 192, 192);

// Draws nothing without a format. Otherwise clears the surface to the preview grey and draws
// the format interactively, leaving its rectangles in rects. The marks of selectedObject are
// placed and drawn only when 0 < selectedObject < NumObjects: the last object of a format
// gets no marks from a refresh, and the marks are left as they were. An object drawn nowhere
// gets no marks either.
struct PreviewDrawing {
    std::vector<DrawProblem> Problems;  // what could not be drawn (DrawFormat)
    bool MarksDrawn = false;
};
PreviewDrawing RefreshPreview(DrawingSurface& surface, int16_t pageNumCharts,
                              const PageFormat* format, bool labels, int16_t selectedObject,
                              PreviewRects& rects, SelectionMarkSet& marks);

// One line for the status bar about what a drawing could not show; empty when all was drawn.
std::string PreviewNote(const std::vector<DrawProblem>& problems);

}  // namespace paginox
