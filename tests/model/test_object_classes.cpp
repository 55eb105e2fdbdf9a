// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "model/ModelState.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

using namespace paginox;
using test::ErrorOf;
using Codes = std::vector<int>;

namespace {
ColumnDef Column(int16_t code, bool on) {
    return ColumnDef{code, 0, "Lon", int16_t(on)};
}

Codes Columns(const PageObject& obj) {
    Codes codes;
    for (int16_t k = 1; k <= 64 && obj.PL_Columns(k) != 0; ++k) codes.push_back(obj.PL_Columns(k));
    return codes;
}

PageObjectClass OfType(int16_t type) {
    PageObjectClass c;
    c.SetObjectType(type);
    return c;
}
}  // namespace

TEST(ObjectClass, FlagsAndBlockLines) {
    PageObjectClass c;
    c.SetOCUFlags(5);
    EXPECT_TRUE(c.OCUFlag(0) && !c.OCUFlag(7) && c.ContainsAnyOCUFlag(6));
    EXPECT_FALSE(c.ContainsAnyOCUFlag(0));
    c.SetOCUFlags(INT_MIN | 1);
    EXPECT_FALSE(c.ContainsAnyOCUFlag(INT_MIN));  // only bit 31 in common: negative
    c.SetDefaultFixedLines(2), c.SetDefaultTextLines(10);
    EXPECT_EQ(c.DefaultBlockLines(), 2 + 1 + 9);  // no blocks count as one
    c.SetDefaultHorizontalBlocks(3);
    EXPECT_EQ(c.DefaultBlockLines(), 2 + 4);
    c.SetDefaultTextLines(0);
    EXPECT_EQ(c.DefaultBlockLines(), 2);
}

TEST(ObjectClasses, IndexIsCheckedAndNonPositiveCountKeepsStorage) {
    PageObjectClasses all;
    all.SetCount(3);
    auto first = std::make_shared<PageObjectClass>();
    all.SetClass(1, first);
    EXPECT_EQ(ErrorOf([&] { all.Class(4); }), kSubscriptOutOfRange);
    all.SetCount(-4);
    EXPECT_EQ(ErrorOf([&] { all.Class(1); }), kSubscriptOutOfRange);
    all.SetCount(5);
    EXPECT_EQ(all.Class(1), first);  // the old entry comes back
    EXPECT_EQ(all.Class(5), nullptr);
}

TEST(CreateInstance, ClassDefaultsSizeAndPlacement) {
    PageObjectClass c;
    c.SetClassID(4), c.SetShape(kShapeCircle), c.SetNumCharts(2);
    c.SetDefaultYRatio(1.0f), c.SetDefaultHorizontalBlocks(3);
    PageFormat format;  // 800 x 600
    auto obj = c.CreateInstance(&format);
    EXPECT_EQ(std::tuple(obj->ObjectClassID(), obj->ChartNum(2), obj->HorzBlocks()),
              std::tuple(4, 2, 3));
    // 240 pixels square, centred like every shape.
    EXPECT_EQ(obj->GetRect(0, 0, 800, 600).ToString(), "(280,180)-(520,420)");
    c.SetShape(kShapeBox);
    c.SetDefaultYRatio(0.25f);  // wide: 40% across, a quarter of that high, centred
    EXPECT_EQ(c.CreateInstance(&format)->GetRect(0, 0, 800, 600).ToString(), "(240,260)-(560,340)");
    EXPECT_EQ(c.CreateInstance(nullptr)->GetRect(0, 0, 100, 100).ToString(), "(30,30)-(70,70)");
    c.SetNumCharts(6);
    EXPECT_EQ(ErrorOf([&] { c.CreateInstance(nullptr); }), kSubscriptOutOfRange);
}

TEST(CreateInstance, ListsTakeSwitchedOnCodesAndTheirProportions) {
    test::ScopedModelState state;
    Definitions().PointList.Entries = {
        Column(1, true), Column(2, false), Column(300, true), {4, 0, "Latitude", 1}};
    PageObjectClass c = OfType(10);
    c.SetDefaultFixedLines(1), c.SetDefaultTextLines(12), c.SetDefaultHorizontalBlocks(2);
    auto obj = c.CreateInstance(nullptr);
    EXPECT_EQ(Columns(*obj), (Codes{1, 4}));  // 300 is no byte: skipped
    // 13 lines of 1.25 sizes over 8 + 4 + 9 characters of half a size, for one block: the
    // blocks are set after the proportions.
    EXPECT_FLOAT_EQ(obj->YRatio(), 13 * 1.25f / (21 * 0.5f));
    for (int16_t code = 1; code <= 70; ++code) {
        Definitions().AspectList.Entries.push_back(Column(code, true));
    }
    EXPECT_EQ(OfType(27).CreateInstance(nullptr)->PL_Columns(64), 64);
}

TEST(CreateInstance, ListFileNamesPointTablePositionsSkippingBadItems) {
    test::ScopedModelState state;
    Definitions().PointList.Entries = {Column(11, true), Column(22, false), Column(-3, false)};
    Definitions().DefinitionsFolder = "/defs/";
    std::string asked;
    std::vector<int32_t> items = {2, 99, 3, 70000, 1};
    Definitions().ReadNumberList = [&](const std::string& path) {
        asked = path;
        return items;
    };
    EXPECT_EQ(Columns(*OfType(61).CreateInstance(nullptr)), (Codes{22, 11}));
    EXPECT_EQ(asked, "/defs/partlist.dfn");
    items = {99, 3};  // nothing usable: as for a plain point list
    EXPECT_EQ(Columns(*OfType(62).CreateInstance(nullptr)), Codes{11});
    // A single-point object starts on the first shown point and keeps its class ratio.
    PageObjectClass single = OfType(82);
    single.SetDefaultYRatio(0.25f);
    auto obj = single.CreateInstance(nullptr);
    EXPECT_EQ(Columns(*obj), Codes{11});
    EXPECT_FLOAT_EQ(obj->YRatio(), 0.25f);
}

TEST(ObjectClass, ObjectRectFollowsTheRatioInsideTheFrame) {
    PageObjectClass c;
    const RectClass frame = test::Rect(0, 0, 100, 200);
    c.SetDefaultYRatio(0.5f);
    EXPECT_EQ(c.GetObjectRect(frame).ToString(), "(10,80)-(90,120)");
    PageObject obj;
    obj.SetYRatio(4.0f);  // the object's own ratio wins: limited by the height
    EXPECT_EQ(c.GetObjectRect(frame, &obj).ToString(), "(30,20)-(70,180)");
    c.SetShape(kShapeCircle);
    EXPECT_EQ(c.GetObjectRect(frame, &obj).ToString(), "(10,60)-(90,140)");
}
