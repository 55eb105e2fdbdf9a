// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/PageDraw.h"

#include <algorithm>
#include <mutex>

#include "core/Checked.h"
#include "core/Rounding.h"
#include "core/RuntimeError.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "model/PageObjectClasses.h"
#include "persist/BinaryFile.h"
#include "render/ImageDraw.h"
#include "render/PictureCache.h"

namespace paginox {

namespace {

constexpr double kShadowShare = 0.02;  // of the surface's width the shadow is offset by

// A triangle's name is not centred on the rectangle (whose centre lies on the slanted side)
// but starts just inside the inner outline, where the triangle is widest at that height.
constexpr int32_t kTriangleNameInset = 2;

constexpr char kEllipsis[] = "\x85";  // in Windows-1252, like every model text

// The text, or when it is wider than width the longest start of it that fits with an
// ellipsis after it; nothing when not even the ellipsis fits.
std::string ElidedToWidth(DrawingSurface& surface, const std::string& text, float width) {
    if (surface.TextWidth(text) <= width) return text;
    auto fits = [&](size_t n) { return surface.TextWidth(text.substr(0, n) + kEllipsis) <= width; };
    if (!fits(0)) return std::string();
    size_t lo = 0, hi = text.size();  // a start of lo characters fits, one of hi does not
    while (hi - lo > 1) {
        size_t mid = (lo + hi) / 2;
        if (fits(mid)) {
            lo = mid;
        } else {
            hi = mid;
        }
    }
    std::string start = text.substr(0, lo);
    start.erase(start.find_last_not_of(' ') + 1);
    return start + kEllipsis;
}

int32_t FloorHalf(int32_t v) {
    return v >> 1;  // halves rounded down, also for negative extents
}

void DrawWheel(DrawingSurface& surface, const PageObjectClass& cls, const RectClass& r, int32_t cx,
               int32_t cy, int32_t f) {
    double radius = std::min(r.Width(), r.Height()) / 2.0;
    int32_t colour = surface.ForeColor();
    surface.DrawCircle(cx, cy, radius, colour, true);
    surface.DrawCircle(cx, cy, radius - f, colour, true);
    // One ring per chart from the outside in; the innermost coincides with the hub circle
    // drawn last.
    int16_t n = cls.NumCharts();
    for (int16_t k = n; k >= 1; --k) {
        surface.DrawCircle(cx, cy, radius * (0.3 + 0.7 * (k - 1) / n), colour, true);
    }
    surface.DrawCircle(cx, cy, 0.3 * radius, colour, true);
}

void DrawTriangle(DrawingSurface& surface, const RectClass& r, int32_t f) {
    int32_t left = r.Left();
    int32_t top = r.Top();
    int32_t right = r.Right();
    int32_t bottom = r.Bottom();
    surface.Polygon({{left, top}, {left, bottom}, {right, bottom}});
    // Inset by f at the left and bottom but by 2f at the top and right, on purpose: the
    // inner triangle then keeps the frame's width along the slanted side too.
    int32_t f2 = CheckedMul<int32_t>(2, f);
    surface.Polygon({{CheckedAdd(left, f), CheckedAdd(top, f2)},
                     {CheckedAdd(left, f), CheckedSub(bottom, f)},
                     {CheckedSub(right, f2), CheckedSub(bottom, f)}});
}

void DrawBlockBox(DrawingSurface& surface, const PageObjectClass& cls, const PageObject* obj,
                  const RectClass& r, int32_t f) {
    int32_t colour = surface.ForeColor();
    surface.DrawBox(r.Left(), r.Top(), r.Right(), r.Bottom(), colour, BoxFill::CurrentFill);
    // The frame shows as a second outline f inside the first, as the wheel's outer ring and
    // the triangle's inset do; a frame too wide for the box is left out.
    int32_t f2 = CheckedMul<int32_t>(2, f);
    if (f > 0 && r.Width() > f2 && r.Height() > f2) {
        surface.DrawBox(CheckedAdd(r.Left(), f), CheckedAdd(r.Top(), f), CheckedSub(r.Right(), f),
                        CheckedSub(r.Bottom(), f), colour, BoxFill::Outline);
    }
    // Columns for the blocks and rows for the lines, dividing the area inside the frame.
    int16_t blocks = obj ? obj->HorzBlocks() : cls.DefaultHorizontalBlocks();
    int16_t lines = obj ? CheckedAdd(obj->ActualFixedLines(cls), cls.DefaultTextLines())
                        : CheckedAdd(cls.DefaultFixedLines(), cls.DefaultTextLines());
    double innerWidth = double(r.Width()) - 2.0 * f;
    double innerHeight = double(r.Height()) - 2.0 * f;
    for (int16_t k = 2; k <= blocks; ++k) {
        int32_t x = ToInt32(r.Left() + f + (k - 1) * innerWidth / blocks);
        surface.Line(x, r.Top(), x, r.Bottom(), colour);
    }
    for (int16_t k = 2; k <= lines; ++k) {
        int32_t y = ToInt32(r.Top() + f + (k - 1) * innerHeight / lines);
        surface.Line(r.Left(), y, r.Right(), y, colour);
    }
}

// The opaque page is drawn over its shadow next, so only the strips it leaves showing at the
// right and at the bottom are filled: filling the whole shadow would paint most of a screen
// for nothing.
void DrawShadowBesidePage(DrawingSurface& surface, const RectClass& shadow, const RectClass& page) {
    int32_t rightFrom = std::max(shadow.Left(), CheckedAdd(page.Right(), 1));
    if (rightFrom <= shadow.Right()) {
        surface.DrawBox(rightFrom, shadow.Top(), shadow.Right(), shadow.Bottom(), kShadowColour,
                        BoxFill::Solid);
    }
    int32_t bottomFrom = std::max(shadow.Top(), CheckedAdd(page.Bottom(), 1));
    int32_t bottomTo = std::min(shadow.Right(), page.Right());
    if (bottomFrom <= shadow.Bottom() && shadow.Left() <= bottomTo) {
        surface.DrawBox(shadow.Left(), bottomFrom, bottomTo, shadow.Bottom(), kShadowColour,
                        BoxFill::Solid);
    }
}

// One object of a format in its rectangle, with the charts it shows below its name.
void DrawPlacedObject(DrawingSurface& surface, int16_t pageNumCharts, const PageObject& obj,
                      const PageFormat& format, const RectClass& r, bool labels, bool pictures) {
    DrawObject(surface, pageNumCharts, obj.POClass(), &obj, format, &r, labels, pictures);
    if (!labels) return;
    // Below the object's name, centred on where the name left the text position; an object
    // without a chart label still takes its (empty) line.
    std::string label = pageNumCharts >= 2 && obj.NumCharts() >= 1
                            ? ElidedToWidth(surface, ChartLabel(obj), float(r.Width()))
                            : std::string();
    surface.SetCurrentX(surface.CurrentX() - surface.TextWidth(label) / 2);
    surface.Print(label);
}

}  // namespace

const RectClass& PreviewRects::Object(int16_t k) const {
    CheckIndex(k, 1, ObjectCount());
    return Objects[k - 1];
}

bool PreviewRects::IsPlaced(int16_t k) const {
    return std::find(Unplaced.begin(), Unplaced.end(), k) == Unplaced.end();
}

RectClass PageRect(const RectClass& surfaceRect, const PageFormat& format, bool interactive) {
    // A rectangle covers both its edges, so the most a w-pixel area holds is w - 1 wide: the
    // page's right and bottom outline stay on the surface.
    int32_t areaWidth = std::max(CheckedSub(surfaceRect.Width(), 1), 0);
    int32_t areaHeight = std::max(CheckedSub(surfaceRect.Height(), 1), 0);
    double share = interactive ? kInteractiveShare : 1.0;
    double width = areaWidth * share;
    double height = areaHeight * share;
    double ratio = format.YRatio();
    // No usable ratio takes the available area's own proportions.
    if (ratio > 0) {
        if (width * ratio <= height) {
            height = width * ratio;
        } else {
            width = height / ratio;
        }
    }
    int32_t w = ToInt32(width);
    int32_t h = ToInt32(height);
    RectClass page;
    page.InitTo(CheckedAdd(surfaceRect.Left(), CheckedSub(areaWidth, w) / 2),
                CheckedAdd(surfaceRect.Top(), CheckedSub(areaHeight, h) / 2), w, h);
    return page;
}

RectClass MarginRect(const RectClass& pageRect, const PageFormat& format) {
    // Edges rounded one by one, so that neighbouring rectangles share their pixels.
    double left = pageRect.Left() + pageRect.Width() * double(format.Margin(1, 1));
    double right = pageRect.Left() + pageRect.Width() * (1.0 - format.Margin(1, 2));
    double top = pageRect.Top() + pageRect.Height() * double(format.Margin(2, 1));
    double bottom = pageRect.Top() + pageRect.Height() * (1.0 - format.Margin(2, 2));
    RectClass margin;
    int32_t l = ToInt32(left);
    int32_t t = ToInt32(top);
    margin.InitTo(l, t, CheckedSub(ToInt32(right), l), CheckedSub(ToInt32(bottom), t));
    return margin;
}

std::vector<DrawProblem> DrawFormat(DrawingSurface& surface, const RectClass* surfaceRect,
                                    int16_t pageNumCharts, const PageFormat& format, bool labels,
                                    bool interactive, bool pictures, PreviewRects* rects) {
    std::vector<DrawProblem> problems;
    RectClass area = surfaceRect ? *surfaceRect : surface.Scale();
    int16_t count = format.NumObjects();
    if (interactive && rects) {
        // Left as they were for a format without objects.
        if (count > 0) rects->Objects.assign(static_cast<size_t>(count), RectClass());
        rects->Unplaced.clear();
    }
    RectClass page;
    RectClass margin;
    try {
        // Frames are measured against the format's pixels: without any, nothing can be sized.
        if (format.XPixels() < 1 || format.YPixels() < 1) {
            throw RuntimeError(kDivisionByZero, "it is " + std::to_string(format.XPixels()) +
                                                    " x " + std::to_string(format.YPixels()) +
                                                    " pixels");
        }
        page = PageRect(area, format, interactive);
        margin = MarginRect(page, format);
    } catch (const RuntimeError& e) {
        problems.push_back({0, e.Description(), false});
        if (interactive && rects) {
            for (int16_t i = 1; i <= count; ++i) rects->Unplaced.push_back(i);
        }
        return problems;
    }
    if (interactive) {
        if (rects) {
            rects->Page = page;
            rects->Margin = margin;
        }
        int32_t d = ToInt32(surface.Scale().Width() * kShadowShare);
        RectClass shadow = page.Clone();
        shadow.Move(d, d);
        DrawShadowBesidePage(surface, shadow, page);
    }

    surface.SetFillColor(kPageColour);
    surface.SetFillStyle(kFillSolid);
    surface.SetForeColor(kPageOutlineColour);
    surface.DrawBox(page.Left(), page.Top(), page.Right(), page.Bottom(), surface.ForeColor(),
                    BoxFill::CurrentFill);
    surface.SetFillColor(kShapeFillColour);

    for (int16_t i = 1; i <= count; ++i) {
        std::shared_ptr<PageObject> obj = format.Object(i);
        if (!obj) continue;
        if (!IsKnownClass(obj->ObjectClassID())) {
            problems.push_back({i,
                                "class " + std::to_string(obj->ObjectClassID()) +
                                    " is not in the catalogue; drawn as a plain box",
                                true});
        }
        try {
            RectClass r =
                obj->GetRect(margin.Left(), margin.Top(), margin.Width(), margin.Height());
            if (interactive && rects) rects->Objects[i - 1] = r;
            DrawPlacedObject(surface, pageNumCharts, *obj, format, r, labels, pictures);
        } catch (const RuntimeError& e) {
            problems.push_back({i, "not drawn: " + e.Description(), false});
            if (interactive && rects) rects->Unplaced.push_back(i);
        }
    }

    if (interactive) {
        surface.SetDrawWidth(1);
        surface.SetDrawStyle(kLineDot);
        surface.SetForeColor(kMarginFrameColour);
        surface.SetFillStyle(kFillTransparent);
        surface.DrawBox(margin.Left(), margin.Top(), margin.Right(), margin.Bottom(),
                        surface.ForeColor(), BoxFill::CurrentFill);
    }
    return problems;
}

void DrawObject(DrawingSurface& surface, int16_t pageNumCharts, const PageObjectClass& cls,
                const PageObject* obj, const PageFormat& format, const RectClass* objRect,
                bool labels, bool pictures) {
    RectClass r = objRect ? *objRect : cls.GetObjectRect(surface.Scale(), obj);
    if (cls.ObjectType() == kGraphicObjectType && pictures && obj &&
        DrawGraphicObject(surface, *obj, r)) {
        return;
    }
    // The frame keeps its proportion to the page: measured against the surface drawn on.
    int32_t f = format.GetFrameSize(obj, &cls, surface.Scale(), false);
    int32_t cx = CheckedAdd(r.Left(), FloorHalf(r.Width()));
    int32_t cy = CheckedAdd(r.Top(), FloorHalf(r.Height()));
    surface.SetForeColor(kOutlineColour);
    switch (cls.Shape()) {
        case kShapeCircle:
            DrawWheel(surface, cls, r, cx, cy, f);
            break;
        case kShapeTriangle:
            DrawTriangle(surface, r, f);
            break;
        case kShapeBox:
            if (obj && !IsKnownClass(obj->ObjectClassID())) {
                surface.DrawBox(r.Left(), r.Top(), r.Right(), r.Bottom(), surface.ForeColor(),
                                BoxFill::Outline);
            } else {
                DrawBlockBox(surface, cls, obj, r, f);
            }
            break;
        default:
            break;
    }
    if (!labels) return;

    surface.SetForeColor(kLabelColour);
    // A name never runs off its object: cut to the room inside the rectangle.
    std::string name;
    float height = surface.TextHeight(cls.FullName());
    if (cls.Shape() == kShapeTriangle) {
        int32_t x = CheckedAdd(CheckedAdd(r.Left(), f), kTriangleNameInset);
        name = ElidedToWidth(surface, cls.FullName(), float(r.Left()) + r.Width() - x);
        surface.SetCurrentX(static_cast<float>(x));
    } else {
        name = ElidedToWidth(surface, cls.FullName(), float(r.Width()));
        surface.SetCurrentX(cx - surface.TextWidth(name) / 2);
    }
    // Raised on pages of several charts, so that the chart label fits on the next line.
    if (!obj || pageNumCharts < 2) {
        surface.SetCurrentY(cy - height / 2);
    } else {
        surface.SetCurrentY(cy - 0.8f * height - 1);
    }
    surface.Print(name);
    surface.SetCurrentX(static_cast<float>(cx));
}

bool DrawGraphicObject(DrawingSurface& surface, const PageObject& obj, const RectClass& objRect) {
    std::string file = PictureFilePath(obj.GenericFile());
    if (file.empty() || !FileExists(file) || objRect.IsEmpty()) return false;
    int32_t w = objRect.Width();
    int32_t h = objRect.Height();
    if (PictureCache* cache = InstalledPictureCache()) {
        // Thumbnails are drawn on a worker thread too: one conversion of a picture at a time.
        static std::mutex converting;
        std::lock_guard<std::mutex> lock(converting);
        if (!cache->Contains(file, w, h) && cache->PrepareForCaching()) {
            cache->CreateCache(file, w, h);
        }
        std::string cached = cache->GetCacheName(file, w, h);
        if (FileExists(cached) && DrawPictureFile(surface, kStretchHalftone, cached, objRect)) {
            return true;
        }
    }
    // No cache, or none could be made: the picture itself, converted once.
    return DrawPictureFile(surface, kStretchHalftone, file, objRect);
}

std::string ChartLabel(const PageObject& obj) {
    std::string label = "Chart ";
    // An object never feeds more charts than it has slots for.
    int16_t charts = std::min<int16_t>(obj.NumCharts(), PageObject::kMaxCharts);
    for (int16_t c = 1; c <= charts; ++c) {
        if (c > 1) label += ", ";
        label += std::to_string(obj.ChartNum(c));
    }
    return label;
}

}  // namespace paginox
