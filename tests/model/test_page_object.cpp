// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "model/ModelState.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClasses.h"

using namespace paginox;
using test::ErrorOf;

TEST(PageObject, PlacementDefaultsAndFittingInsideTheFrame) {
    PageObject o;
    EXPECT_EQ(o.GetRect(10, 20, 800, 600).ToString(), "(250,200)-(570,440)");  // 0.3 / 0.4
    EXPECT_EQ(ErrorOf([&] { o.PL_Columns(65); }), kSubscriptOutOfRange);
    o.SetOrigin(1, -0.2f), o.SetOrigin(2, 0.9f), o.SetLength(1, 1.5f), o.SetLength(2, 0.3f);
    PageObject fitted = o;
    o.ForceInsideFrame();
    EXPECT_EQ(o.GetRect(0, 0, 100, 100).ToString(), "(0,70)-(100,100)");
    fitted.FitObjectOnPage();  // keeps its proportions
    EXPECT_EQ(fitted.GetRect(0, 0, 100, 100).ToString(), "(0,80)-(100,100)");
}

TEST(PageObject, LineCountsUseTheClassAndTheTitleBit) {
    test::ScopedModelState state;
    auto cls = state.AddClass(kOCUTitleLine);
    cls->SetDefaultFixedLines(3), cls->SetDefaultTextLines(12);
    PageObject o;
    o.SetObjectClassID(1), o.SetTitleOn(false), o.SetTextLines(10);
    EXPECT_EQ(o.TotalLines(), 2 + 12);  // the class's text lines, not the object's
    o.SetHorzBlocks(3);
    EXPECT_EQ(o.BlockLines(), 2 + 4);
    o.SetHorzBlocks(0);
    EXPECT_EQ(o.BlockLines(), 2 + 10);
}

TEST(PageObject, ClassesTheCatalogueLacksGetOneStandInEach) {
    test::ScopedModelState state;
    state.AddClass(0);
    ObjectClasses().SetCount(2);  // slot 2 never filled
    PageObject o;
    for (int16_t id : {int16_t(0), int16_t(2), int16_t(3), int16_t(-7)}) {
        SCOPED_TRACE(id);
        o.SetObjectClassID(id);
        const PageObjectClass& cls = o.POClass();
        EXPECT_FALSE(IsKnownClass(id));
        EXPECT_EQ(&cls, &StandInClass(id));
        EXPECT_EQ(std::tuple(cls.FullName(), cls.Shape(), cls.OCUFlags(), o.TotalLines()),
                  std::tuple("Unknown class " + std::to_string(id), kShapeBox, 0, 0));
    }
    o.SetObjectClassID(1);
    EXPECT_TRUE(IsKnownClass(1));
    EXPECT_EQ(&o.POClass(), ObjectClasses().Class(1).get());
}

TEST(PageObject, ListBoxWidthsUseColumnLabelsFontAndFrame) {
    test::ScopedModelState state;
    Definitions().PointList.Entries = {{1, 0, "Lon", 1}};
    Definitions().AspectList.Entries = {{1, 0, "Orb", 1}};
    PageFormat format;  // 96 dpi: a 9 point character is 6 pixels, a single frame 2
    PageObject o;
    o.SetPL_Columns(1, 1), o.SetPL_Columns(2, 99);  // 99 is not in the table
    EXPECT_EQ(o.GetPLBoxWidth(format), (8 + 4 + 6) * 6 + 6);
    EXPECT_EQ(o.GetALBoxWidth(format), (12 + 4 + 6) * 6 + 6);
    o.SetHorzBlocks(2), o.SetFrameType(0);
    EXPECT_EQ(o.GetPLBoxWidth(format), 2 * 18 * 6 + 2);
}
