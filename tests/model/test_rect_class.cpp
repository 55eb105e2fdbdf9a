// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "model/ModelState.h"
#include "model/RectClass.h"
#include "model/ScreenTwips.h"

using namespace paginox;
using test::ErrorOf;
using test::Rect;

TEST(RectClass, EdgesCentresAndGrowth) {
    EXPECT_TRUE(RectClass().Contains(0, 0));
    RectClass r = Rect(10, 20, 100, 200);  // left first
    EXPECT_EQ(r.ToString(), "(10,20)-(110,220)");
    EXPECT_TRUE(r.Contains(110, 220));  // far edges are inside
    EXPECT_FALSE(r.Contains(111, 220));
    EXPECT_EQ(Rect(0, 0, -5, 0).CenterX(), -2);
    r = Rect(0, 0, 10, 10);
    r.GrowBy(-10);
    EXPECT_EQ(r.ToString(), "(10,10)-(11,11)");  // clamped, not re-centred
}

TEST(RectClass, OverflowAndZeroExtentAreRaised) {
    EXPECT_EQ(ErrorOf([] { Rect(1, 0, INT_MAX, 0).Contains(-1, 0); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { Rect(0, 0, 1, 1).GrowBy(INT_MAX / 2 + 1); }), kOverflow);
    RectClass r = Rect(0, INT_MAX, 0, 0);
    EXPECT_EQ(ErrorOf([&] { r.Move(4, 1); }), kOverflow);
    EXPECT_EQ(r.Left(), 4);  // the first assignment stays
    EXPECT_EQ(ErrorOf([] { Rect(10, 20, 40, 0).PropY(20); }), kDivisionByZero);
}

TEST(RectClass, ConvertToPixelsRoundsEachFieldHalvesToEven) {
    RectClass r = Rect(22, 0, 8, 0);
    r.ConvertToPixels(1);
    EXPECT_EQ(r.ToString(), "(1,0)-(2,0)");
    SetTwipsPerPixelSource([] { return TwipsPerPixel{12.0f, 20.0f}; });
    r = Rect(30, 30, 42, 50);
    r.ConvertToPixels(1);
    r.ConvertToPixels(0);
    SetTwipsPerPixelSource({});
    EXPECT_EQ(r.ToString(), "(2,2)-(6,4)");  // 2.5, 1.5, 3.5, 2.5
}

TEST(RectClass, HitTestByShape) {
    RectClass tall = Rect(0, 0, 10, 20);
    EXPECT_TRUE(tall.HitTestShape(kShapeCircle, 5, 14.9f));
    EXPECT_FALSE(tall.HitTestShape(kShapeCircle, 5, 15));  // on the circle: outside
    RectClass r = Rect(0, 0, 100, 100);
    EXPECT_TRUE(r.HitTestShape(kShapeTriangle, 10, 90));
    EXPECT_FALSE(r.HitTestShape(kShapeTriangle, 90, 10));
    EXPECT_TRUE(r.HitTestShape(kShapeTriangle, 50, 50));
    EXPECT_FALSE(r.HitTestShape(7, 50, 50));
    EXPECT_TRUE(r.HitTestShape(kShapeBox, 100.5f, 50));  // rounds to 100, halves to even
    EXPECT_FALSE(r.HitTestShape(kShapeBox, 101.5f, 50));
}
