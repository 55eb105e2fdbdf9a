// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "persist/DelimitedReader.h"
#include "support/Errors.h"

using namespace paginox;

TEST(DelimitedReader, RecordsSpanLinesAndShareThem) {
    DelimitedReader in("1,\"Point, main\"junk\r\n2\n\r\n  plain  ,0, 3 ,2.5,-3e1 9,\"a\r\nb\"");
    EXPECT_EQ(in.ReadInt16(), 1);
    EXPECT_EQ(in.ReadText(), "Point, main");  // text after the closing quote is ignored
    EXPECT_EQ(in.ReadInt16(), 2);             // LF ends a field; the blank line is skipped
    EXPECT_EQ(in.ReadText(), "plain");
    EXPECT_EQ(in.ReadInt16(), 0);
    EXPECT_EQ(in.ReadInt16(), 3);  // the next record on the same line
    EXPECT_EQ(in.ReadInt16(), 2);  // halves to even
    EXPECT_EQ(in.ReadNumber(), -30.0);
    EXPECT_EQ(in.ReadInt32(), 9);  // a blank ends a number
    EXPECT_FALSE(in.AtEnd());
    EXPECT_EQ(in.ReadText(), "a\r\nb");  // quotes hold line breaks
    EXPECT_TRUE(in.AtEnd());
}

TEST(DelimitedReader, ErrorsAndEmptyFields) {
    auto error = [](const std::string& bytes, int numbers) {
        DelimitedReader in(bytes);
        return test::ErrorOf([&] {
            for (int i = 0; i < numbers; ++i) in.ReadInt16();
        });
    };
    EXPECT_EQ(error("", 1), kInputPastEndOfFile);
    EXPECT_EQ(error("1, \r\n", 2), kInputPastEndOfFile);
    EXPECT_EQ(error(",,", 2), 0);  // empty number fields are 0
    for (const char* bad : {"abc", "1x", "-", "1e", "\"x\"", "1.2.3"}) {
        EXPECT_EQ(error(bad, 1), kTypeMismatch) << bad;
    }
    EXPECT_EQ(error("40000", 1), kOverflow);
    EXPECT_EQ(error("1e999", 1), kOverflow);
    DelimitedReader in("abc,5");  // a failed number has been read past
    EXPECT_THROW(in.ReadInt16(), RuntimeError);
    EXPECT_EQ(in.ReadInt16(), 5);
}
