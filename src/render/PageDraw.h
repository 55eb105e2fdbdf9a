// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Draws one format of a page as a schematic: a white page, and on it every object as its
// outline shape filled light grey, with its class's name and the charts it shows. Graphic
// objects may show their picture instead. The same drawing serves the editor's preview
// (interactive: a shadow, a margin frame, and rectangles left for the mouse), the page
// browser's thumbnails and the insert dialog's object preview.

#include <cstdint>
#include <string>
#include <vector>

#include "model/RectClass.h"
#include "render/DrawingSurface.h"

namespace paginox {

class PageFormat;
class PageObject;
class PageObjectClass;

// Colours of the schematic.
inline constexpr int32_t kShadowColour = Rgb(128, 128, 128);
inline constexpr int32_t kPageColour = Rgb(255, 255, 255);
inline constexpr int32_t kPageOutlineColour = Rgb(0, 0, 0);
inline constexpr int32_t kShapeFillColour = Rgb(224, 224, 224);
inline constexpr int32_t kOutlineColour = Rgb(128, 128, 128);  // shapes and their line marks
inline constexpr int32_t kLabelColour = Rgb(0, 0, 255);
inline constexpr int32_t kMarginFrameColour = Rgb(192, 192, 192);

// The object type that can show a picture file.
inline constexpr int16_t kGraphicObjectType = 18;

// What interactive drawing leaves for the mouse handling of the preview, kept by the caller.
struct PreviewRects {
    RectClass Page;                  // the page on the preview, in pixels
    RectClass Margin;                // the printable area inside the page's margins
    std::vector<RectClass> Objects;  // one per object of the format, indexed from 1 by Object
    // Objects whose place could not be worked out: drawn nowhere, so nothing to grab.
    std::vector<int16_t> Unplaced;

    int16_t ObjectCount() const { return static_cast<int16_t>(Objects.size()); }
    // k in 1..ObjectCount, else "Subscript out of range".
    const RectClass& Object(int16_t k) const;
    bool IsPlaced(int16_t k) const;
};

// What kept an object (Object >= 1) or the whole format (Object 0) from being drawn as it
// should: Drawn tells whether something was drawn in its place all the same.
struct DrawProblem {
    int16_t Object = 0;
    std::string Description;
    bool Drawn = false;
};

// The page on a surface rectangle: the largest rectangle of the format's proportions
// (YRatio, height over width) centred in the rectangle, shrunk to kInteractiveShare of it
// when interactive so that the shadow and dragging have room.
inline constexpr double kInteractiveShare = 0.9;
RectClass PageRect(const RectClass& surfaceRect, const PageFormat& format, bool interactive);
// The printable area: the page less the format's four margins.
RectClass MarginRect(const RectClass& pageRect, const PageFormat& format);

// Draws a format. Without a surface rectangle the surface's whole scale is used. Interactive
// drawing adds the shadow and the dotted margin frame and, when rects is given, leaves the
// page, margin and object rectangles in it. A damaged page never stops the drawing: an
// object of a class the catalogue lacks is drawn as a plain box, one whose place or frame
// cannot be worked out is left out, a format whose page cannot be placed is left empty; each
// such case is returned.
std::vector<DrawProblem> DrawFormat(DrawingSurface& surface, const RectClass* surfaceRect,
                                    int16_t pageNumCharts, const PageFormat& format, bool labels,
                                    bool interactive, bool pictures, PreviewRects* rects = nullptr);

// Draws one object in objRect, or, with no rectangle, in the class's default place on the
// surface (the insert dialog previews a class without an object).
void DrawObject(DrawingSurface& surface, int16_t pageNumCharts, const PageObjectClass& cls,
                const PageObject* obj, const PageFormat& format, const RectClass* objRect,
                bool labels, bool pictures);

// Draws the object's picture file into its rectangle through the installed picture cache;
// false (and nothing drawn) when the file is missing or cannot be read.
bool DrawGraphicObject(DrawingSurface& surface, const PageObject& obj, const RectClass& objRect);

// "Chart 1", "Chart 1, 2"...: the page charts the object shows.
std::string ChartLabel(const PageObject& obj);

}  // namespace paginox
