#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "model/ModelState.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "render/PageDraw.h"
#include "render/PreviewRefresh.h"
#include "support/RecordingSurface.h"

using namespace paginox;
using test::RecordingSurface;
using ::testing::ElementsAre;
using Lines = std::vector<std::string>;

namespace {

const std::string kGrey = "rgb(128,128,128)";
const std::string kFill = "filled rgb(224,224,224)";

RectClass Rect(int32_t left, int32_t top, int32_t width, int32_t height) {
    RectClass r;
    r.InitTo(left, top, width, height);
    return r;
}

struct Catalogue {
    test::ScopedModelState state;

    std::shared_ptr<PageObjectClass> Add(int16_t shape, const std::string& name, int16_t charts,
                                         int16_t frame = 1) {
        auto cls = state.AddClass();
        cls->SetShape(shape);
        cls->SetFullName(name);
        cls->SetNumCharts(charts);
        cls->SetDefaultFrameType(frame);
        cls->SetObjectType(1);
        return cls;
    }
};

std::shared_ptr<PageObject> Place(PageFormat& format, const PageObjectClass& cls, float x, float y,
                                  float w, float h) {
    auto obj = std::make_shared<PageObject>();
    obj->SetObjectClassID(cls.ClassID());
    obj->SetOrigin(1, x);
    obj->SetOrigin(2, y);
    obj->SetLength(1, w);
    obj->SetLength(2, h);
    format.AddObject(obj);
    return obj;
}

// A surface in the state a format leaves it in before its objects: shapes filled grey.
RecordingSurface FilledShapes() {
    RecordingSurface s;
    s.SetFillStyle(kFillSolid);
    s.SetFillColor(Rgb(224, 224, 224));
    s.calls.clear();
    return s;
}

}  // namespace

TEST(PageDraw, WheelRingsFollowTheChartCount) {
    Catalogue cat;
    PageFormat format;  // 800 x 600, margins 0.01: a single frame is 2 pixels on 800
    auto biWheel = cat.Add(kShapeCircle, "Bi-Wheel", 2);
    auto triWheel = cat.Add(kShapeCircle, "Tri-Wheel", 3);
    PageObject obj;
    RectClass r = Rect(300, 200, 200, 241);  // R = 100 about (400, 320)

    RecordingSurface s = FilledShapes();
    DrawObject(s, 1, *biWheel, &obj, format, &r, false, false);
    auto circle = [](const std::string& radius) {
        return "Circle (400,320) r" + radius + " " + kGrey + " " + kFill;
    };
    // R, R - f, then one ring per chart (0.65 R, 0.3 R) and the hub at 0.3 R again.
    EXPECT_EQ(s.calls, (Lines{"ForeColor " + kGrey, circle("100"), circle("98"), circle("65"),
                              circle("30"), circle("30")}));

    s.calls.clear();
    obj.SetFrameType(0);
    DrawObject(s, 1, *triWheel, &obj, format, &r, false, false);
    EXPECT_THAT(s.Matching("Circle"),
                ElementsAre(circle("100"), circle("100"), circle("76.66666667"),
                            circle("53.33333333"), circle("30"), circle("30")));
}

TEST(PageDraw, TriangleIsDrawnTwiceWithTheDoubledInset) {
    Catalogue cat;
    PageFormat format;
    auto corner = cat.Add(kShapeTriangle, "Corner", 0, 2);
    RectClass r = Rect(100, 100, 200, 100);
    RecordingSurface s = FilledShapes();
    // No object: the class's double frame, 4 pixels at 600 of 588 usable rows.
    DrawObject(s, 1, *corner, nullptr, format, &r, false, false);
    EXPECT_THAT(s.Matching("Polygon"),
                ElementsAre("Polygon (100,100) (100,200) (300,200) " + kGrey + " " + kFill,
                            "Polygon (104,108) (104,196) (292,196) " + kGrey + " " + kFill));
}

TEST(PageDraw, BoxShowsItsFrameBlocksAndRows) {
    Catalogue cat;
    PageFormat format;
    auto list = cat.Add(kShapeBox, "List", 1);
    list->SetDefaultFixedLines(2);
    list->SetDefaultTextLines(4);
    list->SetOCUFlags(kOCUTitleLine);
    PageObject obj;
    obj.SetObjectClassID(list->ClassID());
    obj.SetHorzBlocks(3);
    obj.SetTextLines(50);                   // the rows come from the class, not from the object
    RectClass r = Rect(100, 50, 206, 124);  // f = 2: inside 202 by 120

    RecordingSurface s = FilledShapes();
    DrawObject(s, 1, *list, &obj, format, &r, false, false);
    EXPECT_EQ(
        s.calls,
        (Lines{"ForeColor " + kGrey, "Box (100,50)-(306,174) " + kGrey + " " + kFill,
               "Box (102,52)-(304,172) " + kGrey + " outline", "Line (169,50)-(169,174) " + kGrey,
               "Line (237,50)-(237,174) " + kGrey, "Line (100,72)-(306,72) " + kGrey,
               "Line (100,92)-(306,92) " + kGrey, "Line (100,112)-(306,112) " + kGrey,
               "Line (100,132)-(306,132) " + kGrey, "Line (100,152)-(306,152) " + kGrey}));

    // Without its title line the object has five rows; one block and no frame draw no lines.
    s.calls.clear();
    obj.SetTitleOn(false);
    DrawObject(s, 1, *list, &obj, format, &r, false, false);
    EXPECT_THAT(
        s.Matching("Line (100"),
        ElementsAre("Line (100,76)-(306,76) " + kGrey, "Line (100,100)-(306,100) " + kGrey,
                    "Line (100,124)-(306,124) " + kGrey, "Line (100,148)-(306,148) " + kGrey));
    s.calls.clear();
    list->SetDefaultFixedLines(0);
    list->SetDefaultTextLines(1);
    obj.SetHorzBlocks(1);
    obj.SetFrameType(0);
    DrawObject(s, 1, *list, &obj, format, &r, false, false);
    EXPECT_EQ(s.calls,
              (Lines{"ForeColor " + kGrey, "Box (100,50)-(306,174) " + kGrey + " " + kFill}));
}

TEST(PageDraw, NamesAreCentredAndRaisedForChartLabels) {
    Catalogue cat;
    auto wheel = cat.Add(kShapeCircle, "Wheel", 2);      // 30 pixels wide
    auto corner = cat.Add(kShapeTriangle, "Corner", 0);  // frame 2 pixels
    auto caption = cat.Add(kShapeBox, "Caption", 0, 0);
    PageFormat format;
    // Origins and sizes that land on whole pixels of the 784 x 588 printable area at (8, 6).
    auto a = Place(format, *wheel, 0.25f, 0.25f, 0.5f, 0.5f);  // (204,153) 392 x 294
    a->SetNumCharts(2);
    a->SetChartNum(2, 3);
    Place(format, *corner, 0.0f, 0.0f, 0.25f, 0.25f);  // (8,6) 196 x 147
    Place(format, *caption, 0.5f, 0.75f, 0.25f, 0.25f)->SetNumCharts(0);

    // One chart: names centred both ways, and an empty line where a chart label would go.
    RecordingSurface one;
    DrawFormat(one, nullptr, 1, format, true, false, false);
    EXPECT_THAT(
        one.Matching("Print"),
        ElementsAre("Print 'Wheel' at 385,295 rgb(0,0,255)", "Print '' at 400,305 rgb(0,0,255)",
                    "Print 'Corner' at 12,74 rgb(0,0,255)", "Print '' at 106,84 rgb(0,0,255)",
                    "Print 'Caption' at 477,514 rgb(0,0,255)", "Print '' at 498,524 rgb(0,0,255)"));

    // Two charts: every object's name is raised 0.8 of a line and one pixel, and a chart
    // label centred under it where the object shows charts.
    RecordingSurface two;
    DrawFormat(two, nullptr, 2, format, true, false, false);
    EXPECT_THAT(
        two.Matching("Print"),
        ElementsAre("Print 'Wheel' at 385,291 rgb(0,0,255)",
                    "Print 'Chart 1, 3' at 370,301 rgb(0,0,255)",
                    "Print 'Corner' at 12,70 rgb(0,0,255)", "Print 'Chart 1' at 85,80 rgb(0,0,255)",
                    "Print 'Caption' at 477,510 rgb(0,0,255)", "Print '' at 498,520 rgb(0,0,255)"));

    // The insert dialog's preview has no object: the name is centred even on two charts.
    RecordingSurface preview;
    RectClass r = Rect(0, 0, 100, 50);
    DrawObject(preview, 2, *caption, nullptr, format, &r, true, false);
    EXPECT_THAT(preview.Matching("Print"), ElementsAre("Print 'Caption' at 29,20 rgb(0,0,255)"));

    RecordingSurface bare;
    DrawFormat(bare, nullptr, 2, format, false, false, false);
    EXPECT_TRUE(bare.Matching("Print").empty());
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
    Lines texts;
    for (auto& p : s.Matching("Print")) texts.push_back(p.substr(7, p.find("' at") - 7));
    EXPECT_EQ(texts, (Lines{"Capti\x85", "Chart\x85", "", "", "Corner\x85", "Chart 1"}));
}

TEST(PageDraw, PageAndMarginRectangles) {
    PageFormat format;  // ratio 0.75
    RectClass wide = Rect(10, 20, 1000, 500);
    EXPECT_EQ(PageRect(wide, format, true).ToString(), "(210,45)-(809,494)");
    EXPECT_EQ(PageRect(wide, format, false).ToString(), "(177,20)-(842,519)");
    EXPECT_EQ(PageRect(Rect(0, 0, 400, 1000), format, false).ToString(), "(0,350)-(399,649)");
    format.SetYRatio(0);  // no ratio: the available area itself
    EXPECT_EQ(PageRect(wide, format, true).ToString(), "(60,45)-(959,494)");

    format.SetMargin(1, 1, 0.1f);
    format.SetMargin(1, 2, 0.2f);
    format.SetMargin(2, 1, 0.05f);
    format.SetMargin(2, 2, 0.25f);
    EXPECT_EQ(MarginRect(Rect(100, 0, 1000, 400), format).ToString(), "(200,20)-(900,300)");
}

TEST(PageDraw, ThumbnailUsesTheWholeSurfaceAndLeavesNoRectangles) {
    Catalogue cat;
    auto box = cat.Add(kShapeBox, "Box", 1, 0);
    PageFormat format;
    Place(format, *box, 0.3f, 0.3f, 0.4f, 0.4f);
    PreviewRects rects;
    rects.Page = Rect(1, 2, 3, 4);
    rects.Objects.resize(5);

    RecordingSurface s;
    DrawFormat(s, nullptr, 1, format, false, false, true, &rects);
    EXPECT_THAT(s.calls,
                ElementsAre("FillColor rgb(255,255,255)", "FillStyle 0", "ForeColor rgb(0,0,0)",
                            "Box (0,0)-(799,599) rgb(0,0,0) filled rgb(255,255,255)",
                            "FillColor rgb(224,224,224)", "ForeColor " + kGrey,
                            "Box (243,182)-(556,417) " + kGrey + " " + kFill,
                            "Box (245,184)-(554,415) " + kGrey + " outline"));
    EXPECT_EQ(rects.Page.ToString(), "(1,2)-(4,6)");
    EXPECT_EQ(rects.ObjectCount(), 5);
}

TEST(PageDraw, PreviewDrawsShadowAndMarginFrameAndKeepsRectangles) {
    Catalogue cat;
    auto box = cat.Add(kShapeBox, "Box", 1, 0);
    PageFormat format;
    PreviewRects rects;
    rects.Objects.resize(3, Rect(9, 9, 9, 9));

    // No objects: shadow, page and margin frame only; the object rectangles stay as they were.
    RecordingSurface empty;
    DrawFormat(empty, nullptr, 1, format, true, true, true, &rects);
    EXPECT_THAT(empty.calls,
                ElementsAre("Box (760,46)-(775,585) rgb(128,128,128) solid",  // shadow strips
                            "Box (56,570)-(759,585) rgb(128,128,128) solid",
                            "FillColor rgb(255,255,255)", "FillStyle 0", "ForeColor rgb(0,0,0)",
                            "Box (40,30)-(759,569) rgb(0,0,0) filled rgb(255,255,255)",
                            "FillColor rgb(224,224,224)", "DrawWidth 1", "DrawStyle 2",
                            "ForeColor rgb(192,192,192)", "FillStyle 1",
                            "Box (47,35)-(752,564) rgb(192,192,192) unfilled"));
    EXPECT_EQ(rects.Page.ToString(), "(40,30)-(759,569)");
    EXPECT_EQ(rects.Margin.ToString(), "(47,35)-(752,564)");
    EXPECT_EQ(rects.ObjectCount(), 3);

    Place(format, *box, 0.5f, 0.5f, 0.25f, 0.25f);
    format.AddObject(nullptr);  // an empty slot is skipped but keeps its place
    Place(format, *box, 0.0f, 0.0f, 0.5f, 0.5f);
    RecordingSurface s;
    DrawFormat(s, nullptr, 1, format, false, true, true, &rects);
    ASSERT_EQ(rects.ObjectCount(), 3);
    EXPECT_EQ(rects.Object(1).ToString(), "(400,300)-(576,432)");
    EXPECT_EQ(rects.Object(2).ToString(), "(0,0)-(0,0)");
    EXPECT_EQ(rects.Object(3).ToString(), "(47,35)-(399,299)");
    EXPECT_EQ(s.calls.back(), "Box (47,35)-(752,564) rgb(192,192,192) unfilled");
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
    std::vector<DrawProblem> problems = DrawFormat(s, nullptr, 1, format, true, true, true, &rects);
    ASSERT_EQ(problems.size(), 3u);
    EXPECT_EQ(problems[0].Object, 2);
    EXPECT_EQ(problems[0].Description, "not drawn: Overflow");
    EXPECT_FALSE(problems[0].Drawn);
    EXPECT_EQ(problems[1].Object, 3);
    EXPECT_EQ(problems[2].Object, 4);
    EXPECT_TRUE(problems[2].Drawn);
    EXPECT_THAT(rects.Unplaced, ElementsAre(2, 3));
    EXPECT_TRUE(rects.IsPlaced(1));
    EXPECT_TRUE(rects.IsPlaced(4));
    // The unknown object: one plain outline, no grid or frame, labelled with its number.
    EXPECT_THAT(s.Matching("Box (400,300)"),
                ElementsAre("Box (400,300)-(541,406) " + kGrey + " outline"));
    EXPECT_EQ(s.Matching("Print 'Unknown class 42'").size(), 1u);
    EXPECT_EQ(s.calls.back(), "Box (47,35)-(752,564) rgb(192,192,192) unfilled");
}

TEST(PageDraw, AFormatThatCannotBePlacedIsLeftEmpty) {
    Catalogue cat;
    auto box = cat.Add(kShapeBox, "Box", 1, 1);
    PageFormat format;
    Place(format, *box, 0.1f, 0.1f, 0.2f, 0.2f);
    format.SetMargin(1, 1, std::numeric_limits<float>::infinity());
    PreviewRects rects;
    RecordingSurface s;
    std::vector<DrawProblem> problems = DrawFormat(s, nullptr, 1, format, true, true, true, &rects);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].Object, 0);
    EXPECT_THAT(s.calls, ::testing::IsEmpty());
    EXPECT_THAT(rects.Unplaced, ElementsAre(1));

    // A format of no pixels cannot size any frame.
    format.SetMargin(1, 1, 0.0f);
    format.SetXPixels(0);
    problems = DrawFormat(s, nullptr, 1, format, true, true, true, &rects);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].Object, 0);
    EXPECT_EQ(problems[0].Description, "it is 0 x 600 pixels");
}

TEST(PageDraw, PreviewNoteSaysWhatIsMissing) {
    const std::vector<std::pair<std::vector<DrawProblem>, std::string>> cases = {
        {{}, ""},
        {{{0, "Overflow", false}}, "This page size cannot be drawn (Overflow)."},
        {{{2, "x", false}, {3, "x", false}, {4, "x", true}},
         "2 objects cannot be placed: correct Anchor and Size. 1 object of an unknown class "
         "shown as plain boxes."},
    };
    for (const auto& [problems, note] : cases) EXPECT_EQ(PreviewNote(problems), note);
}
