#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>

#include "core/Checked.h"
#include "core/Rounding.h"
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

TEST(Rounding, HalvesGoToTheEvenNeighbourAndIntIsFloor) {
    for (auto [value, rounded] : {std::pair{0.5, 0},
                                  {1.5, 2},
                                  {2.5, 2},
                                  {-2.5, -2},
                                  {-3.5, -4},
                                  {2.500001, 3},
                                  {32767.4, 32767}}) {
        EXPECT_EQ(ToInt32(value), rounded) << value;
        EXPECT_EQ(ToInt16(value), rounded) << value;
    }
    EXPECT_EQ(Int(2.99), 2);
    EXPECT_EQ(Int(-0.01), -1);
    EXPECT_EQ(Int(-2.0), -2);
}

TEST(Rounding, ConversionOutOfRangeOverflows) {
    EXPECT_EQ(ErrorOf([] { ToInt16(32767.5); }), kOverflow);  // rounds to 32768
    EXPECT_EQ(ErrorOf([] { ToInt16(-32768.6); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(2147483647.5); }), kOverflow);
    EXPECT_EQ(ToInt32(-2147483648.4), -2147483647 - 1);
    EXPECT_EQ(ErrorOf([] { ToInt16(std::nan("")); }), kOverflow);
}

// (Descriptions and most errno numbers are checked with the messages that show them.)
TEST(RuntimeErrors, ErrnoNumbersNoMessageTestReaches) {
    EXPECT_EQ(ErrorNumberFromErrno(ENOSPC), kDiskFull);
    EXPECT_EQ(ErrorNumberFromErrno(EROFS), kPathFileAccessError);
}
