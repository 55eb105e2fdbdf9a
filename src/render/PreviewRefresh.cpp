// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/PreviewRefresh.h"

#include "model/PageFormat.h"
#include "model/PageObjectClass.h"
#include "render/DrawingSurface.h"
#include "render/PageDraw.h"
#include "render/SelectionMarkSet.h"

namespace paginox {

PreviewDrawing RefreshPreview(DrawingSurface& surface, int16_t pageNumCharts,
                              const PageFormat* format, bool labels, int16_t selectedObject,
                              PreviewRects& rects, SelectionMarkSet& marks) {
    if (!format) return {};
    surface.SetBackColor(kPreviewBackColour);
    surface.Clear();
    PreviewDrawing drawing;
    drawing.Problems =
        DrawFormat(surface, nullptr, pageNumCharts, *format, labels, true, true, &rects);
    // Strict at the top on purpose: the last object of a format shows no marks here.
    if (selectedObject > 0 && selectedObject < format->NumObjects() &&
        rects.IsPlaced(selectedObject)) {
        marks.PlaceFor(rects.Object(selectedObject), format->POClass(selectedObject).Shape());
        marks.Draw(surface);
        drawing.MarksDrawn = true;
    }
    return drawing;
}

std::string PreviewNote(const std::vector<DrawProblem>& problems) {
    auto count = [](size_t n) { return std::to_string(n) + (n == 1 ? " object" : " objects"); };
    size_t unplaced = 0;
    size_t unknown = 0;
    for (const DrawProblem& p : problems) {
        if (p.Object == 0) return "This page size cannot be drawn (" + p.Description + ").";
        ++(p.Drawn ? unknown : unplaced);
    }
    std::string note;
    if (unplaced > 0) note = count(unplaced) + " cannot be placed: correct Anchor and Size.";
    if (unknown > 0) {
        if (!note.empty()) note += " ";
        note += count(unknown) + " of an unknown class shown as plain boxes.";
    }
    return note;
}

}  // namespace paginox
