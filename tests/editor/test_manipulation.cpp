// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "editor/EditStep.h"
#include "editor/EditorFixture.h"
#include "editor/EditorHistory.h"
#include "editor/Manipulation.h"
#include "render/SelectionMarkSet.h"

using namespace paginox;

namespace {

TEST(Manipulation, HitTestFromTheTopObjectDownAndMarksWithinThreePixels) {
    test::EditorFixture fx;
    EXPECT_EQ(HitTestObjects(fx.state, 130, 70), 1);   // box only
    EXPECT_EQ(HitTestObjects(fx.state, 215, 135), 2);  // box and wheel: the wheel is on top
    EXPECT_EQ(HitTestObjects(fx.state, 201, 101), 1);  // wheel's corner is outside its circle
    EXPECT_EQ(HitTestObjects(fx.state, 360, 290), 3);  // lower-left half of the triangle
    EXPECT_EQ(HitTestObjects(fx.state, 440, 210), 0);  // upper-right half
    EXPECT_EQ(HitTestObjects(fx.state, 10, 10), 0);

    SelectionMarkSet marks;
    marks.Add(100, 100, 2);
    marks.Add(150, 100, 3);
    EXPECT_EQ(MarkAt(marks, 103, 97), 2);
    EXPECT_EQ(MarkAt(marks, 104, 100), kDragNone);
    EXPECT_EQ(MarkAt(marks, 148, 102), 3);
    const std::pair<int16_t, int16_t> pointers[] = {
        {2, kPointerSizeWE},   {7, kPointerSizeWE},          {4, kPointerSizeNS},
        {6, kPointerSizeNESW}, {kDragMove, kPointerSizeAll}, {kDragNone, kPointerDefault}};
    for (auto [drag, pointer] : pointers) EXPECT_EQ(PointerFor(drag), pointer) << drag;
    EXPECT_TRUE(IsClick(1, -1));
    EXPECT_FALSE(IsClick(0, 1.5f));
}

TEST(Manipulation, ResizingBoxesTrianglesAndWheels) {
    const RectClass box = test::Rect(100, 100, 50, 40);  // a wheel's centre is (125, 120)
    const struct {
        int16_t shape, drag;
        float dx, dy;
        const char* rect;
    } cases[] = {
        {kShapeBox, kDragMove, 5, -5, "(105,95)-(155,135)"},
        {kShapeBox, kHandleRight, 10, 99, "(100,100)-(160,140)"},
        {kShapeBox, kHandleTop, 99, -20, "(100,80)-(150,140)"},
        // The left edge dragged 70 pixels right passes the right edge: the edges swap.
        {kShapeBox, kHandleLeft, 70, 0, "(150,100)-(170,140)"},
        {kShapeBox, kHandleBottom, 0, -60, "(100,80)-(150,100)"},
        // An edge dragged onto the other keeps a side that can still be caught.
        {kShapeBox, kHandleLeft, 50, 0, "(144,100)-(150,140)"},
        {kShapeBox, kHandleBottom, 0, -38, "(100,100)-(150,106)"},
        // Triangle: the left handle is the left edge; the slant's centre follows the pointer.
        {kShapeTriangle, kHandleTriangleLeft, -10, 0, "(90,100)-(150,140)"},
        {kShapeTriangle, kHandleSlant, 5, -5, "(100,90)-(160,140)"},
        // A wheel keeps its centre and grows outwards from whichever edge was pulled.
        {kShapeCircle, kHandleLeft, -10, 0, "(95,90)-(155,150)"},
        {kShapeCircle, kHandleBottom, 0, 5, "(100,95)-(150,145)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(DraggedRect(box, c.shape, c.drag, c.dx, c.dy).ToString(), c.rect) << c.rect;
    }
    // Shrunk past its centre or below radius 10, it keeps a radius of at least 10.
    EXPECT_EQ(DraggedRect(box, kShapeCircle, kHandleRight, -26, 0).CircleRadius(), 10);
    EXPECT_EQ(DraggedRect(box, kShapeCircle, kHandleRight, -60, 0).CircleRadius(), 40);
    EXPECT_EQ(DraggedRect(box, kShapeCircle, kHandleTop, 0, 200).CircleRadius(), 180);
}

TEST(Manipulation, CommittingADragSetsFractionsOfTheMargin) {
    test::EditorFixture fx;
    EditorHistory history(fx.state);
    auto commit = [&](int16_t drag, float dx, float dy) {
        EditStep step(history);
        return CommitDrag(fx.state, step, drag, dx, dy);
    };
    fx.state.SelectedObject = 1;  // box at (120, 60) in a margin of 400 x 300 at (100, 50)
    // The outline drawn during a drag shows where the object will land: inside the margin.
    EXPECT_EQ(LandedOutline(fx.state, kDragMove, 10, 20).ToString(), "(130,80)-(230,160)");
    RectClass far = LandedOutline(fx.state, kDragMove, -500, 900);
    EXPECT_EQ(std::pair(far.Left(), far.Bottom() <= 350), std::pair(100, true));
    EXPECT_FALSE(commit(kDragMove, 1, -1));  // a click
    EXPECT_EQ(history.Count(), 0);
    EXPECT_TRUE(commit(kDragMove, 80, 40));
    EXPECT_FLOAT_EQ(fx.Object(1).Origin(1), 0.25f);        // (200 - 100) / 400
    EXPECT_FLOAT_EQ(fx.Object(1).Origin(2), 50.0f / 300);  // (100 - 50) / 300
    EXPECT_TRUE(commit(kHandleRight, 100, 0));
    EXPECT_FLOAT_EQ(fx.Object(1).Origin(1), 0.05f);  // the stored rectangle is unchanged
    EXPECT_FLOAT_EQ(fx.Object(1).Length(1), 0.5f);   // 200 / 400
    EXPECT_FLOAT_EQ(fx.Object(1).Length(2), 80.0f / 300);
    EXPECT_EQ(history.Count(), 2);
    history.Undo();
    history.Undo();
    EXPECT_TRUE(fx.state.Page->IsEqual(fx.state.SavedPage.get()));
    // Moves stop at the margin's edges, resizes at the edge they pull.
    EXPECT_TRUE(commit(kDragMove, -100, -100));
    EXPECT_EQ(std::pair(fx.Object(1).Origin(1), fx.Object(1).Origin(2)), std::pair(0.0f, 0.0f));
    EXPECT_TRUE(commit(kHandleRight, 500, 0));
    EXPECT_FLOAT_EQ(fx.Object(1).Origin(1) + fx.Object(1).Length(1), 1.0f);
}

}  // namespace
