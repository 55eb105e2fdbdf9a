// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <iomanip>
#include <sstream>

#include "core/Checked.h"
#include "core/Rounding.h"
#include "support/CaseLines.h"
#include "support/Errors.h"

using namespace paginox;
using test::ErrorOf;

TEST(Checked, ArithmeticOverflowsAtTheEdgesOfSixteenAndThirtyTwoBits) {
    EXPECT_EQ(CheckedAdd<int16_t>(32766, 1), 32767);
    EXPECT_EQ(ErrorOf([] { CheckedAdd<int16_t>(32767, 1); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { CheckedSub<int16_t>(-32768, 1); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { CheckedMul<int16_t>(200, 200); }), kOverflow);
    EXPECT_EQ(CheckedNarrow<int16_t>(-32768), -32768);
    EXPECT_EQ(ErrorOf([] { CheckedNarrow<int16_t>(32768); }), kOverflow);
    EXPECT_EQ(CheckedAdd<int32_t>(2147483646, 1), 2147483647);
    EXPECT_EQ(ErrorOf([] { CheckedAdd<int32_t>(2147483647, 1); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { CheckedMul<int32_t>(2, 1073741824); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { CheckedDiv<int32_t>(1, 0); }), kDivisionByZero);
    EXPECT_EQ(CheckedDiv<int32_t>(-5, 2), -2);  // toward zero
    // An index outside its range is a subscript error.
    EXPECT_EQ(ErrorOf([] { CheckIndex(0, 1, 5); }), kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([] { CheckIndex(6, 1, 5); }), kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([] { CheckIndex(5, 1, 5); }), 0);
}

TEST(Rounding, HalvesGoToTheEvenNeighbourIntIsFloorAndOutOfRangeOverflows) {
    auto shown = [](auto convert) {
        std::string text;
        return ErrorOf([&] { text = std::to_string(convert()); }) == kOverflow ? "overflow" : text;
    };
    test::ExpectOutcomes("core/cases.txt", "rounding", [&](const std::string& in) {
        const double v = std::stod(in);
        std::ostringstream floor;
        floor << std::setprecision(17) << Int(v);
        return shown([&] { return ToInt32(v); }) + " " + shown([&] { return ToInt16(v); }) + " " +
               floor.str();
    });
    EXPECT_EQ(ErrorOf([] { ToInt16(std::nan("")); }), kOverflow);
}

// (Descriptions and most errno numbers are checked with the messages that show them.)
TEST(RuntimeErrors, ErrnoNumbersNoMessageTestReaches) {
    EXPECT_EQ(ErrorNumberFromErrno(ENOSPC), kDiskFull);
    EXPECT_EQ(ErrorNumberFromErrno(EROFS), kPathFileAccessError);
}
