// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "model/ModelState.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "render/PageDraw.h"
#include "render/PreviewRefresh.h"
#include "render/SelectionMarkSet.h"
#include "support/Golden.h"
#include "support/RecordingSurface.h"

using namespace paginox;
using test::RecordingSurface;

namespace {
std::string Marks(const SelectionMarkSet& m) {
    std::string s;
    for (int16_t i = 1; i <= m.Count(); ++i) {
        s += "(" + std::to_string(m.X(i)) + "," + std::to_string(m.Y(i)) + ")" +
             std::to_string(m.Pos(i)) + " ";
    }
    return s;
}
}  // namespace

TEST(SelectionMarks, HandlesPerShape) {
    SelectionMarkSet marks;
    marks.PlaceFor(test::Rect(10, 20, 101, 51), kShapeTriangle);  // centre (60, 45)
    EXPECT_EQ(Marks(marks), "(10,45)7 (60,71)5 (60,45)6 ");
    marks.PlaceFor(test::Rect(10, 20, 101, 51), kShapeCircle);
    EXPECT_EQ(Marks(marks), "(10,45)2 (60,71)5 (111,45)3 (60,20)4 ");
    EXPECT_THROW(marks.X(5), RuntimeError);
    EXPECT_THROW(marks.Pos(0), RuntimeError);
}

TEST(SelectionMarks, RefreshDrawsMarksOnlyBelowTheLastObject) {
    test::ScopedModelState state;
    auto box = state.AddClass();
    PageFormat format;
    for (int k = 0; k < 3; ++k) format.AddObject(box->CreateInstance(nullptr));
    PreviewRects rects;
    SelectionMarkSet marks;
    auto refresh = [&](int16_t selected) {
        RecordingSurface s;
        RefreshPreview(s, 1, &format, false, selected, rects, marks);
        return s.calls;
    };
    EXPECT_EQ(refresh(1),
              test::GoldenLines("render/page_draw.txt", "refresh, the first of three selected"));
    EXPECT_EQ(marks.Count(), 4);

    marks.Clear();
    marks.Add(1, 1, kHandleTop);
    for (int16_t selected : {0, 3}) {  // none, and the last object: strict on purpose
        EXPECT_EQ(refresh(selected).back(), "Box (47,35)-(752,564) rgb(192,192,192) unfilled");
        EXPECT_EQ(Marks(marks), "(1,1)4 ");
    }
    RecordingSurface none;
    RefreshPreview(none, 1, nullptr, true, 1, rects, marks);
    EXPECT_TRUE(none.calls.empty());
}
