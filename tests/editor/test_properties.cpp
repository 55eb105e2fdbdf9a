#include <gtest/gtest.h>

#include <functional>

#include "core/RuntimeError.h"
#include "editor/EditorFixture.h"
#include "editor/Properties.h"

namespace paginox {
namespace {

TEST(Properties, DefaultIndicesAreFilledInAndVisibleToTheCaller) {
    test::EditorFixture fx;
    fx.state.SelectedObject = 2;
    int16_t f = 0, o = 0;
    SetProperty(fx.state, kPropOrigin, 0.25, f, o, 1);
    EXPECT_EQ(f, 1);
    EXPECT_EQ(o, 2);
    EXPECT_EQ(fx.Object(2).Origin(1), 0.25f);

    // Page properties leave both indices alone; format ones fill only the format.
    f = 0, o = 0;
    SetProperty(fx.state, kPropListAbbreviation, std::string("Abc"), f, o, 0);
    EXPECT_EQ(f, 0);
    EXPECT_EQ(fx.state.Page->ListAbbreviation(), "Abc");
    SetProperty(fx.state, kPropNewMargin, 0.1, f, o, 3);
    EXPECT_EQ(f, 1);
    EXPECT_EQ(o, 0);
    EXPECT_EQ(fx.state.CurrentFormat->Margin(1, 2), 0.1f);

    // An explicit object index wins over the selection.
    f = 1, o = 3;
    SetProperty(fx.state, kPropFontSize, 12, f, o, 0);
    EXPECT_EQ(fx.Object(3).FontSize(), 12.0f);
    EXPECT_NE(fx.Object(2).FontSize(), 12.0f);
}

TEST(Properties, EveryIdentifierReachesItsMember) {
    test::EditorFixture fx;
    fx.state.SelectedObject = 1;
    PageClass& page = *fx.state.Page;
    PageFormat& format = *fx.state.CurrentFormat;
    PageObject& obj = fx.Object(1);
    struct Case {
        int32_t id;
        int16_t sub;
        PropertyValue value;
        std::function<bool()> stored;
    };
    const std::vector<Case> cases = {
        {0, 0, std::string("D"), [&] { return page.Description() == "D"; }},
        {1, 0, std::string("L"), [&] { return page.ListAbbreviation() == "L"; }},
        {2, 0, 3, [&] { return page.NumCharts() == 3; }},
        {3, 2, std::string("Top"), [&] { return page.ChartPlacementDesc(2) == "Top"; }},
        {4, 0, 0.5, [&] { return format.YRatio() == 0.5f; }},
        {5, 0, 0.6, [&] { return format.NoTextYRatio() == 0.6f; }},
        {6, 4, 0.2, [&] { return format.Margin(2, 2) == 0.2f; }},
        {7, 0, 1024, [&] { return format.XPixels() == 1024; }},
        {8, 0, 700, [&] { return format.YPixels() == 700; }},
        {9, 0, 120, [&] { return format.LogPixels() == 120; }},
        {10, 0, true, [&] { return format.ForPrinter(); }},
        {11, 0, 2, [&] { return obj.ObjectClassID() == 2; }},
        {12, 0, 2, [&] { return obj.NumCharts() == 2; }},
        {13, 2, 0.1, [&] { return obj.Origin(2) == 0.1f; }},
        {14, 1, 0.7, [&] { return obj.Length(1) == 0.7f; }},
        {15, 0, 2, [&] { return obj.TextJustify() == 2; }},
        {16, 0, true, [&] { return obj.TextBottomUp() == -1; }},
        {17, 0, 30, [&] { return obj.TextLines() == 30; }},
        {18, 0, 3, [&] { return obj.HorzBlocks() == 3; }},
        {19, 0, 1.5, [&] { return obj.YRatio() == 1.5f; }},
        {20, 0, 2, [&] { return obj.FrameType() == 2; }},
        {21, 5, 200, [&] { return obj.PL_Columns(5) == 200; }},
        {22, 0, 2, [&] { return obj.Rulerships() == 2; }},
        {23, 0, 45.0, [&] { return obj.Modulus() == 45.0f; }},
        {24, 0, 8.0, [&] { return obj.Orb() == 8.0f; }},
        {25, 0, 11.0, [&] { return obj.FontSize() == 11.0f; }},
        {26, 0, std::string("True"), [&] { return obj.Weighted(); }},
        {27, 0, false, [&] { return !obj.TitleOn(); }},
        {28, 0, std::string("Cap"), [&] { return obj.UserCaption() == "Cap"; }},
        {29, 0, -1, [&] { return obj.AnchorBottom(); }},
        {30, 0, 2, [&] { return obj.Zodiac() == 2; }},
        {31, 0, 1, [&] { return obj.ForceLineColor() == 1; }},
        {32, 0, std::string("W"), [&] { return obj.WheelFile() == "W"; }},
        {33, 0, std::string("G"), [&] { return obj.GenericFile() == "G"; }},
        {34, 0, std::string("A"), [&] { return obj.AspectsFile() == "A"; }},
        {35, 3, 7, [&] { return obj.ChartNum(3) == 7; }},
        {36, 5, std::string("P"), [&] { return obj.PointsFile(5) == "P"; }},
    };
    for (const Case& c : cases) {
        int16_t f = 0, o = 0;
        SetProperty(fx.state, c.id, c.value, f, o, c.sub);
        EXPECT_TRUE(c.stored()) << "id " << c.id;
        f = 0, o = 0;
        EXPECT_EQ(GetProperty(fx.state, c.id, f, o, c.sub), ConvertForProperty(c.id, c.value))
            << "id " << c.id;
    }
}

TEST(Properties, ConversionsAndIdsOutOfRange) {
    test::EditorFixture fx;
    fx.state.SelectedObject = 1;
    int16_t f = 0, o = 0;
    EXPECT_EQ(test::ErrorOf([&] { SetProperty(fx.state, kPropTextLines, 40000, f, o, 0); }),
              kOverflow);
    EXPECT_EQ(
        test::ErrorOf([&] { SetProperty(fx.state, kPropTextLines, std::string("many"), f, o, 0); }),
        kTypeMismatch);
    EXPECT_EQ(test::ErrorOf([&] { SetProperty(fx.state, kPropPLColumns, 256, f, o, 1); }),
              kOverflow);
    // Numbers become text and text numbers; 2.5 rounds to the even 2.
    SetProperty(fx.state, kPropTextLines, std::string(" 12 "), f, o, 0);
    EXPECT_EQ(fx.Object(1).TextLines(), 12);
    SetProperty(fx.state, kPropHorzBlocks, 2.5, f, o, 0);
    EXPECT_EQ(fx.Object(1).HorzBlocks(), 2);
    SetProperty(fx.state, kPropUserCaption, 0.5f, f, o, 0);
    EXPECT_EQ(fx.Object(1).UserCaption(), "0.5");

    // Ids beyond 36 change nothing, whatever the value.
    auto before = fx.state.Page->Clone();
    SetProperty(fx.state, 37, std::string("x"), f, o, 0);
    SetProperty(fx.state, -1, 5, f, o, 0);
    EXPECT_TRUE(fx.state.Page->IsEqual(before.get()));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(GetProperty(fx.state, 37, f, o, 0)));

    // No selection and no object index: the object is missing.
    fx.state.SelectedObject = 0;
    f = 0, o = 0;
    EXPECT_EQ(test::ErrorOf([&] { GetProperty(fx.state, kPropOrigin, f, o, 1); }),
              kSubscriptOutOfRange);
}

}  // namespace
}  // namespace paginox
