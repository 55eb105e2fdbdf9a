// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "editor/EditorFixture.h"
#include "editor/Properties.h"
#include "persist/PageText.h"
#include "support/Golden.h"

using namespace paginox;

namespace {

using test::ErrorOf;

TEST(Properties, DefaultIndicesAreFilledInAndVisibleToTheCaller) {
    test::EditorFixture fx;
    fx.state.SelectedObject = 2;
    // Object properties fill both indices, format ones only the format, page ones neither.
    for (auto [id, value, format, object] : {std::tuple{kPropOrigin, 0.25, 1, 2},
                                             {kPropNewMargin, 0.1, 1, 0},
                                             {kPropPageNumCharts, 3.0, 0, 0}}) {
        int16_t f = 0, o = 0;
        SetProperty(fx.state, id, value, f, o, 1);
        EXPECT_EQ(f, format) << id;
        EXPECT_EQ(o, object) << id;
    }
    EXPECT_EQ(fx.Object(2).Origin(1), 0.25f);
    EXPECT_EQ(fx.state.CurrentFormat->Margin(1, 1), 0.1f);
    // An explicit object index wins over the selection.
    int16_t f = 1, o = 3;
    SetProperty(fx.state, kPropFontSize, 12, f, o, 0);
    EXPECT_EQ(fx.Object(3).FontSize(), 12.0f);
    EXPECT_NE(fx.Object(2).FontSize(), 12.0f);
}

TEST(Properties, EveryIdentifierReachesItsMember) {
    test::EditorFixture fx;
    fx.state.SelectedObject = 1;
    // Identifier, index within the member, value; editor/every_property.txt shows where each
    // value landed.
    auto text = [](const char* t) { return PropertyValue(std::string(t)); };
    // clang-format off
    const std::vector<std::tuple<int32_t, int16_t, PropertyValue>> cases = {
        {0, 0, text("D")}, {1, 0, text("L")}, {2, 0, 3}, {3, 2, text("Top")}, {4, 0, 0.5},
        {5, 0, 0.6}, {6, 4, 0.2}, {7, 0, 1024}, {8, 0, 700}, {9, 0, 120}, {10, 0, true},
        {11, 0, 2}, {12, 0, 2}, {13, 2, 0.1}, {14, 1, 0.7}, {15, 0, 2}, {16, 0, true}, {17, 0, 30},
        {18, 0, 3}, {19, 0, 1.5}, {20, 0, 2}, {21, 5, 200}, {22, 0, 2}, {23, 0, 45.0}, {24, 0, 8.0},
        {25, 0, 11.0}, {26, 0, text("True")}, {27, 0, false}, {28, 0, text("Cap")}, {29, 0, -1},
        {30, 0, 2}, {31, 0, 1}, {32, 0, text("W")}, {33, 0, text("G")}, {34, 0, text("A")},
        {35, 3, 7}, {36, 5, text("P")}};
    // clang-format on
    for (const auto& [id, sub, value] : cases) {
        int16_t f = 0, o = 0;
        SetProperty(fx.state, id, value, f, o, sub);
        f = 0, o = 0;
        EXPECT_EQ(GetProperty(fx.state, id, f, o, sub), ConvertForProperty(id, value)) << id;
    }
    EXPECT_EQ(test::PageText(*fx.state.Page), test::GoldenText("editor/every_property.txt"));
}

TEST(Properties, ConversionsAndIdsOutOfRange) {
    test::EditorFixture fx;
    fx.state.SelectedObject = 1;
    int16_t f = 0, o = 0;
    auto set = [&](int32_t id, const PropertyValue& v, int16_t sub = 0) {
        return ErrorOf([&] { SetProperty(fx.state, id, v, f, o, sub); });
    };
    EXPECT_EQ(set(kPropTextLines, 40000), kOverflow);
    EXPECT_EQ(set(kPropTextLines, std::string("many")), kTypeMismatch);
    EXPECT_EQ(set(kPropPLColumns, 256, 1), kOverflow);
    // Numbers become text and text numbers; 2.5 rounds to the even 2.
    set(kPropTextLines, std::string(" 12 "));
    set(kPropHorzBlocks, 2.5);
    set(kPropUserCaption, 0.5f);
    EXPECT_EQ(fx.Object(1).TextLines(), 12);
    EXPECT_EQ(fx.Object(1).HorzBlocks(), 2);
    EXPECT_EQ(fx.Object(1).UserCaption(), "0.5");

    // Ids beyond 36 change nothing, whatever the value.
    auto before = fx.state.Page->Clone();
    set(37, std::string("x"));
    set(-1, 5);
    EXPECT_TRUE(fx.state.Page->IsEqual(before.get()));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(GetProperty(fx.state, 37, f, o, 0)));
    // No selection and no object index: the object is missing.
    fx.state.SelectedObject = 0;
    f = 0, o = 0;
    EXPECT_EQ(ErrorOf([&] { GetProperty(fx.state, kPropOrigin, f, o, 1); }), kSubscriptOutOfRange);
}

}  // namespace
