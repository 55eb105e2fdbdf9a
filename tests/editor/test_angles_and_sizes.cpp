// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "editor/AngleParser.h"
#include "editor/PageSizes.h"
#include "model/PageFormat.h"

using namespace paginox;

namespace {

TEST(AngleParser, TheFormsAUserTypes) {
    // Degree and acute marks, sign abbreviations and names, minutes and seconds.
    // clang-format off
    for (auto [text, degrees] : {std::pair{"22.5", 22.5},
             {"10 11'59\"", 10 + 11 / 60.0 + 59 / 3600.0}, {"10\xB0" "30\xB4", 10.5},
             {"16Ar25", 16 + 25 / 60.0}, {"27 PISCES", 357.0}, {"0 Cn 12'30\"", 90 + 12.5 / 60},
             {"5 sag", 245.0}, {"45\xB0", 45.0}}) {
        // clang-format on
        ASSERT_TRUE(ParseAngle(text).has_value()) << text;
        EXPECT_DOUBLE_EQ(*ParseAngle(text), degrees) << text;
    }
    for (const char* bad :
         {"", "abc", "30Ar", "10 60", "10 Ca", "1.5 30", "10 11'59\" x", "--1", "10 '"}) {
        EXPECT_FALSE(ParseAngle(bad).has_value()) << bad;
    }
    EXPECT_EQ(AngleErrorText(),
              "The format of the angle is not recognised.\r\nExamples of valid angles are "
              "10 11'59\"; 16Ar25; 27 PISCES; etc... Please re-enter the angle.");
}

TEST(PageSizes, DisplayNamesCompareOnlyTheWidth) {
    PageFormat f;
    f.SetXPixels(929);
    f.SetYPixels(749);
    EXPECT_EQ(FormatDisplayName(f), "Screen\t(1024x768)");
    f.SetXPixels(930);
    EXPECT_EQ(FormatDisplayName(f), "User\t(930x749)");
    f.SetXPixels(1505);  // the first entry 1600 wide, whatever the height
    f.SetYPixels(5);
    EXPECT_EQ(FormatDisplayName(f), "Screen\t(1600x1200)");
    f.SetForPrinter(true);
    EXPECT_EQ(FormatDisplayName(f), "Printer\t(1505x5)");
}

TEST(PageSizes, NewPageFormatFollowsTheScreen) {
    PageFormat f;
    SizeFormatForScreen(f, 1920, 1200, 96);
    EXPECT_EQ(f.XPixels(), 1825);
    EXPECT_EQ(f.YPixels(), 1181);
    EXPECT_FLOAT_EQ(f.YRatio(), 1181.0f / 1825.0f);
    EXPECT_EQ(FormatDisplayName(f), "Screen\t(1920x1200)");
    EXPECT_TRUE(FormatFitsScreen(f, 1920, 1200));
    EXPECT_FALSE(FormatFitsScreen(f, 1600, 1200));
}

}  // namespace
