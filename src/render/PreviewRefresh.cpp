#include "render/PreviewRefresh.h"

#include "model/PageFormat.h"
#include "model/PageObjectClass.h"
#include "render/DrawingSurface.h"
#include "render/PageDraw.h"
#include "render/SelectionMarkSet.h"

namespace paginox {

void RefreshPreview(DrawingSurface& surface, int16_t pageNumCharts, const PageFormat* format,
                    bool labels, int16_t selectedObject, PreviewRects& rects,
                    SelectionMarkSet& marks) {
    if (!format) return;
    surface.SetBackColor(kPreviewBackColour);
    surface.Clear();
    DrawFormat(surface, nullptr, pageNumCharts, *format, labels, true, true, &rects);
    // Strict at the top on purpose: the last object of a format shows no marks here.
    if (selectedObject > 0 && selectedObject < format->NumObjects()) {
        marks.PlaceFor(rects.Object(selectedObject), format->POClass(selectedObject).Shape());
        marks.Draw(surface);
    }
}

}  // namespace paginox
