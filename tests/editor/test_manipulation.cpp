#include <gtest/gtest.h>

#include "editor/EditStep.h"
#include "editor/EditorFixture.h"
#include "editor/Manipulation.h"
#include "editor/UndoManager.h"
#include "render/SelectionMarkSet.h"

namespace paginox {
namespace {

using test::Rect;

TEST(Manipulation, HitTestFromTheTopObjectDown) {
    test::EditorFixture fx;
    EXPECT_EQ(HitTestObjects(fx.state, 130, 70), 1);   // box only
    EXPECT_EQ(HitTestObjects(fx.state, 215, 135), 2);  // box and wheel: the wheel is on top
    EXPECT_EQ(HitTestObjects(fx.state, 201, 101), 1);  // wheel's corner is outside its circle
    EXPECT_EQ(HitTestObjects(fx.state, 360, 290), 3);  // lower-left half of the triangle
    EXPECT_EQ(HitTestObjects(fx.state, 440, 210), 0);  // upper-right half
    EXPECT_EQ(HitTestObjects(fx.state, 10, 10), 0);
}

TEST(Manipulation, MarksAreCaughtWithinThreePixels) {
    SelectionMarkSet marks;
    marks.Add(100, 100, 2);
    marks.Add(150, 100, 3);
    EXPECT_EQ(MarkAt(marks, 103, 97), 2);
    EXPECT_EQ(MarkAt(marks, 104, 100), kDragNone);
    EXPECT_EQ(MarkAt(marks, 148, 102), 3);
    EXPECT_EQ(PointerFor(2), kPointerSizeWE);
    EXPECT_EQ(PointerFor(7), kPointerSizeWE);
    EXPECT_EQ(PointerFor(4), kPointerSizeNS);
    EXPECT_EQ(PointerFor(6), kPointerSizeNESW);
    EXPECT_EQ(PointerFor(kDragMove), kPointerSizeAll);
    EXPECT_EQ(PointerFor(kDragNone), kPointerDefault);
    EXPECT_TRUE(IsClick(1, -1));
    EXPECT_FALSE(IsClick(0, 1.5f));
}

TEST(Manipulation, ResizingBoxesTrianglesAndWheels) {
    RectClass box = Rect(100, 100, 50, 40);
    EXPECT_EQ(DraggedRect(box, kShapeBox, kDragMove, 5, -5).ToString(), "(105,95)-(155,135)");
    EXPECT_EQ(DraggedRect(box, kShapeBox, kHandleRight, 10, 99).ToString(), "(100,100)-(160,140)");
    EXPECT_EQ(DraggedRect(box, kShapeBox, kHandleTop, 99, -20).ToString(), "(100,80)-(150,140)");
    // The left edge dragged 70 pixels right passes the right edge: the edges swap.
    EXPECT_EQ(DraggedRect(box, kShapeBox, kHandleLeft, 70, 0).ToString(), "(150,100)-(170,140)");
    EXPECT_EQ(DraggedRect(box, kShapeBox, kHandleBottom, 0, -60).ToString(), "(100,80)-(150,100)");
    // Triangle: the left handle is the left edge; the slanted side's centre follows the pointer.
    EXPECT_EQ(DraggedRect(box, kShapeTriangle, kHandleTriangleLeft, -10, 0).ToString(),
              "(90,100)-(150,140)");
    EXPECT_EQ(DraggedRect(box, kShapeTriangle, kHandleSlant, 5, -5).ToString(),
              "(100,90)-(160,140)");

    // A wheel keeps its centre (125, 120) and grows outwards from whichever edge was pulled.
    EXPECT_EQ(DraggedRect(box, kShapeCircle, kHandleLeft, -10, 0).ToString(), "(95,90)-(155,150)");
    EXPECT_EQ(DraggedRect(box, kShapeCircle, kHandleBottom, 0, 5).ToString(), "(100,95)-(150,145)");
    // Shrunk past its centre or below radius 10, it keeps a radius of at least 10.
    EXPECT_EQ(DraggedRect(box, kShapeCircle, kHandleRight, -26, 0).CircleRadius(), 10);
    EXPECT_EQ(DraggedRect(box, kShapeCircle, kHandleRight, -60, 0).CircleRadius(), 40);
    EXPECT_EQ(DraggedRect(box, kShapeCircle, kHandleTop, 0, 200).CircleRadius(), 180);
}

TEST(Manipulation, CommittingADragSetsFractionsOfTheMargin) {
    test::EditorFixture fx;
    UndoManager undo([&](int32_t id, const PropertyValue& v, int16_t f, int16_t o, int16_t s) {
        SetProperty(fx.state, id, v, f, o, s);
    });
    fx.state.SelectedObject = 1;  // box at (120, 60) in a margin of 400 x 300 at (100, 50)
    {
        EditStep step(fx.state, undo);
        EXPECT_FALSE(CommitDrag(fx.state, step, kDragMove, 1, -1));  // a click
    }
    EXPECT_EQ(undo.UndoCount(), 0);
    {
        EditStep step(fx.state, undo);
        EXPECT_TRUE(CommitDrag(fx.state, step, kDragMove, 80, 40));
    }
    EXPECT_FLOAT_EQ(fx.Object(1).Origin(1), 0.25f);        // (200 - 100) / 400
    EXPECT_FLOAT_EQ(fx.Object(1).Origin(2), 50.0f / 300);  // (100 - 50) / 300
    {
        EditStep step(fx.state, undo);
        EXPECT_TRUE(CommitDrag(fx.state, step, kHandleRight, 100, 0));
    }
    EXPECT_FLOAT_EQ(fx.Object(1).Origin(1), 0.05f);  // the stored rectangle is unchanged
    EXPECT_FLOAT_EQ(fx.Object(1).Length(1), 0.5f);   // 200 / 400
    EXPECT_FLOAT_EQ(fx.Object(1).Length(2), 80.0f / 300);
    EXPECT_EQ(undo.UndoCount(), 2);
    undo.Undo();
    undo.Undo();
    EXPECT_TRUE(fx.state.Page->IsEqual(fx.state.SavedPage.get()));
}

}  // namespace
}  // namespace paginox
