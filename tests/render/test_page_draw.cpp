// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "model/ModelState.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "render/PageDraw.h"
#include "render/PreviewRefresh.h"
#include "support/Golden.h"
#include "support/RecordingSurface.h"

using namespace paginox;
using test::RecordingSurface;
using test::Rect;
using Lines = std::vector<std::string>;

namespace {

const std::string kGrey = "rgb(128,128,128)";

// The calls that render/page_draw.txt records for a drawing.
std::vector<std::string> Drawing(const std::string& name) {
    return test::GoldenLines("render/page_draw.txt", name);
}

struct Catalogue {
    test::ScopedModelState state;

    std::shared_ptr<PageObjectClass> Add(int16_t shape, const std::string& name, int16_t charts,
                                         int16_t frame = 1) {
        auto cls = state.AddClass();
        cls->SetShape(shape), cls->SetFullName(name), cls->SetNumCharts(charts);
        cls->SetDefaultFrameType(frame), cls->SetObjectType(1);
        return cls;
    }
};

// What drawing a format reported and left for the preview, an item a line: its problems (marked
// when the object was drawn all the same), the note under the preview, the page, margin and
// object rectangles, and the drawing's last call.
void ExpectReport(const std::string& section, const std::vector<DrawProblem>& problems,
                  const PreviewRects& rects, const RecordingSurface& s) {
    std::string text = "problems:";
    for (const DrawProblem& p : problems) {
        text +=
            " " + std::to_string(p.Object) + ": " + p.Description + (p.Drawn ? " (drawn);" : ";");
    }
    text += "\nnote: " + PreviewNote(problems) + "\npage " + rects.Page.ToString() + " margin " +
            rects.Margin.ToString() + "\nobjects:";
    for (int16_t k = 1; k <= rects.ObjectCount(); ++k) {
        text += " " + rects.Object(k).ToString() + (rects.IsPlaced(k) ? "" : " unplaced");
    }
    text += "\nlast call: " + (s.calls.empty() ? "none" : s.calls.back()) + "\n";
    EXPECT_EQ(text, test::GoldenText("render/preview_reports.txt", section));
}

std::shared_ptr<PageObject> Place(PageFormat& format, const PageObjectClass& cls, float x, float y,
                                  float w, float h) {
    auto obj = std::make_shared<PageObject>();
    obj->SetObjectClassID(cls.ClassID());
    obj->SetOrigin(1, x), obj->SetOrigin(2, y), obj->SetLength(1, w), obj->SetLength(2, h);
    format.AddObject(obj);
    return obj;
}

// The calls that drawing one object on an 800 x 600 format makes, on a surface in the state
// the format leaves it in (shapes filled grey); only those that start with prefix.
Lines Drawn(const PageObjectClass& cls, const PageObject* obj, RectClass r,
            const std::string& prefix = "") {
    RecordingSurface s;
    s.SetFillStyle(kFillSolid), s.SetFillColor(Rgb(224, 224, 224));
    s.calls.clear();
    DrawObject(s, 1, cls, obj, PageFormat(), &r, false, false);
    return s.Matching(prefix);
}

}  // namespace

TEST(PageDraw, WheelRingsFollowTheChartCountAndTrianglesAreDrawnTwice) {
    Catalogue cat;  // on 800 pixels a single frame is 2 pixels
    auto biWheel = cat.Add(kShapeCircle, "Bi-Wheel", 2);
    auto triWheel = cat.Add(kShapeCircle, "Tri-Wheel", 3);
    auto corner = cat.Add(kShapeTriangle, "Corner", 0, 2);
    PageObject obj;
    RectClass r = Rect(300, 200, 200, 241);  // R = 100 about (400, 320)
    EXPECT_EQ(Drawn(*biWheel, &obj, r), Drawing("bi-wheel"));
    obj.SetFrameType(0);
    EXPECT_EQ(Drawn(*triWheel, &obj, r, "Circle"), Drawing("tri-wheel without a frame"));
    EXPECT_EQ(Drawn(*corner, nullptr, Rect(100, 100, 200, 100), "Polygon"),
              Drawing("triangle of a class alone"));
}

TEST(PageDraw, BoxShowsItsFrameBlocksAndRows) {
    Catalogue cat;
    auto list = cat.Add(kShapeBox, "List", 1);
    list->SetDefaultFixedLines(2), list->SetDefaultTextLines(4), list->SetOCUFlags(kOCUTitleLine);
    PageObject obj;
    // The rows come from the class, not from the object's 50 lines.
    obj.SetObjectClassID(list->ClassID()), obj.SetHorzBlocks(3), obj.SetTextLines(50);
    RectClass r = Rect(100, 50, 206, 124);  // f = 2: inside 202 by 120
    EXPECT_EQ(Drawn(*list, &obj, r), Drawing("box with a title line and three blocks"));
    obj.SetTitleOn(false);
    EXPECT_EQ(Drawn(*list, &obj, r, "Line (100"), Drawing("box without its title line: the rows"));
    list->SetDefaultFixedLines(0), list->SetDefaultTextLines(1);
    obj.SetHorzBlocks(1), obj.SetFrameType(0);
    EXPECT_EQ(Drawn(*list, &obj, r), Drawing("box of one row and block without a frame"));
}

TEST(PageDraw, NamesAreCentredAndRaisedForChartLabels) {
    Catalogue cat;
    auto wheel = cat.Add(kShapeCircle, "Wheel", 2);      // 30 pixels wide
    auto corner = cat.Add(kShapeTriangle, "Corner", 0);  // frame 2 pixels
    auto caption = cat.Add(kShapeBox, "Caption", 0, 0);
    PageFormat format;
    // Origins and sizes that land on whole pixels of the 784 x 588 printable area at (8, 6).
    auto a = Place(format, *wheel, 0.25f, 0.25f, 0.5f, 0.5f);  // (204,153) 392 x 294
    a->SetNumCharts(2), a->SetChartNum(2, 3);
    Place(format, *corner, 0.0f, 0.0f, 0.25f, 0.25f);  // (8,6) 196 x 147
    Place(format, *caption, 0.5f, 0.75f, 0.25f, 0.25f)->SetNumCharts(0);
    RecordingSurface one, two, preview, bare;
    DrawFormat(one, nullptr, 1, format, true, false, false);
    EXPECT_EQ(one.Matching("Print"), Drawing("names on a page of one chart"));
    DrawFormat(two, nullptr, 2, format, true, false, false);
    EXPECT_EQ(two.Matching("Print"), Drawing("names on a page of two charts"));
    RectClass r = Rect(0, 0, 100, 50);
    DrawObject(preview, 2, *caption, nullptr, format, &r, true, false);
    EXPECT_EQ(preview.Matching("Print"), Drawing("name in the insert dialog's preview"));
    DrawFormat(bare, nullptr, 2, format, false, false, false);
    EXPECT_TRUE(bare.Matching("Print").empty());
}

TEST(PageDraw, PageAndMarginRectangles) {
    PageFormat format;  // ratio 0.75
    RectClass wide = Rect(10, 20, 1000, 500);
    EXPECT_EQ(PageRect(wide, format, true).ToString(), "(210,45)-(809,494)");
    EXPECT_EQ(PageRect(wide, format, false).ToString(), "(177,20)-(842,519)");
    EXPECT_EQ(PageRect(Rect(0, 0, 400, 1000), format, false).ToString(), "(0,350)-(399,649)");
    format.SetYRatio(0);  // no ratio: the available area itself
    EXPECT_EQ(PageRect(wide, format, true).ToString(), "(60,45)-(959,494)");
    format.SetMargin(1, 1, 0.1f), format.SetMargin(1, 2, 0.2f);
    format.SetMargin(2, 1, 0.05f), format.SetMargin(2, 2, 0.25f);
    EXPECT_EQ(MarginRect(Rect(100, 0, 1000, 400), format).ToString(), "(200,20)-(900,300)");
}

TEST(PageDraw, ThumbnailAndPreviewAndTheRectanglesTheyLeave) {
    Catalogue cat;
    auto box = cat.Add(kShapeBox, "Box", 1, 0);
    PageFormat format;
    PreviewRects rects;
    rects.Objects.resize(3, Rect(9, 9, 9, 9));

    // No objects: shadow, page and margin frame only; the object rectangles stay as they were.
    RecordingSurface empty;
    ExpectReport("empty page", DrawFormat(empty, nullptr, 1, format, true, true, true, &rects),
                 rects, empty);
    EXPECT_EQ(empty.calls, Drawing("preview of an empty page"));

    Place(format, *box, 0.5f, 0.5f, 0.25f, 0.25f);
    format.AddObject(nullptr);  // an empty slot is skipped but keeps its place
    Place(format, *box, 0.0f, 0.0f, 0.5f, 0.5f);
    RecordingSurface s;
    ExpectReport("two boxes and an empty slot",
                 DrawFormat(s, nullptr, 1, format, false, true, true, &rects), rects, s);

    // A thumbnail uses the whole surface and leaves the rectangles alone.
    PageFormat one;
    Place(one, *box, 0.3f, 0.3f, 0.4f, 0.4f);
    rects.Page = Rect(1, 2, 3, 4);
    RecordingSurface thumb;
    ExpectReport("thumbnail", DrawFormat(thumb, nullptr, 1, one, false, false, true, &rects), rects,
                 thumb);
    EXPECT_EQ(thumb.calls, Drawing("thumbnail of one box"));
}

TEST(PageDraw, NamesAndChartLabelsAreCutToTheirObjectsWidth) {
    Catalogue cat;
    auto corner = cat.Add(kShapeTriangle, "Corner Ornament", 0);  // frame 2 pixels
    auto caption = cat.Add(kShapeBox, "Caption", 2, 0);
    PageFormat format;  // 784 pixels across the printable area; 6 pixels a character
    Place(format, *caption, 0, 0, 0.05f, 0.1f)->SetNumCharts(2);  // 39 pixels
    Place(format, *caption, 0, 0, 0.005f, 0.1f);                  // 4: not even the ellipsis
    Place(format, *corner, 0, 0, 0.07f, 0.1f);  // 55, the name starting 4 pixels in
    RecordingSurface s;
    DrawFormat(s, nullptr, 2, format, true, false, false);
    EXPECT_EQ(s.Matching("Print"), Drawing("names cut to their objects' width"));
}

TEST(PageDraw, DamagedObjectsAreReportedAndNeverStopTheDrawing) {
    Catalogue cat;
    auto box = cat.Add(kShapeBox, "Box", 1, 0);
    PageFormat format;
    Place(format, *box, 0.1f, 0.1f, 0.2f, 0.2f);
    Place(format, *box, std::nanf(""), 0.1f, 0.2f, 0.2f)->SetObjectClassID(1);
    Place(format, *box, 0.1f, 0.1f, 1e30f, 0.2f);
    Place(format, *box, 0.5f, 0.5f, 0.2f, 0.2f)->SetObjectClassID(42);
    PreviewRects rects;
    RecordingSurface s;
    ExpectReport("damaged objects", DrawFormat(s, nullptr, 1, format, true, true, true, &rects),
                 rects, s);
    // The unknown object: one plain outline, no grid or frame, labelled with its number.
    EXPECT_EQ(s.Matching("Box (400,300)"), Lines{"Box (400,300)-(541,406) " + kGrey + " outline"});
    EXPECT_EQ(s.Matching("Print 'Unknown class 42'").size(), 1u);
}

TEST(PageDraw, AFormatThatCannotBePlacedIsLeftEmpty) {
    Catalogue cat;
    auto box = cat.Add(kShapeBox, "Box", 1, 1);
    PageFormat format;
    Place(format, *box, 0.1f, 0.1f, 0.2f, 0.2f);
    format.SetMargin(1, 1, std::numeric_limits<float>::infinity());
    PreviewRects rects;
    RecordingSurface s;
    ExpectReport("infinite margin", DrawFormat(s, nullptr, 1, format, true, true, true, &rects),
                 rects, s);
    // A format of no pixels cannot size any frame.
    format.SetMargin(1, 1, 0.0f);
    format.SetXPixels(0);
    ExpectReport("no pixels", DrawFormat(s, nullptr, 1, format, true, true, true, &rects), rects,
                 s);
}

TEST(PageDraw, OutlineOfEachShape) {
    RecordingSurface s;
    for (int16_t shape : {0, 1, 2, 3}) Rect(10, 20, 30, 40).DrawShape(s, shape);
    EXPECT_EQ(s.calls, Drawing("outline of each shape"));
}
