#include <gtest/gtest.h>

#include <functional>

#include "core/RuntimeError.h"
#include "persist/DelimitedReader.h"

using namespace paginox;

namespace {
int ErrorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.Number();
    }
    return 0;
}
}  // namespace

TEST(DelimitedReader, RecordsSpanLinesAndShareThem) {
    DelimitedReader in("1,3,\"Point, main\",1\r\n2\n8\r\"Longitude\"\r\n0, 3 ,  plain text  ,1");
    EXPECT_EQ(in.ReadInt16(), 1);
    EXPECT_EQ(in.ReadInt16(), 3);
    EXPECT_EQ(in.ReadText(), "Point, main");
    EXPECT_EQ(in.ReadInt16(), 1);
    EXPECT_FALSE(in.AtEnd());
    EXPECT_EQ(in.ReadInt16(), 2);  // one field per line, LF and lone CR ends
    EXPECT_EQ(in.ReadInt16(), 8);
    EXPECT_EQ(in.ReadText(), "Longitude");
    EXPECT_EQ(in.ReadInt16(), 0);  // and the next record on the same line
    EXPECT_EQ(in.ReadInt16(), 3);
    EXPECT_EQ(in.ReadText(), "plain text");
    EXPECT_EQ(in.ReadInt16(), 1);
    EXPECT_TRUE(in.AtEnd());
}

TEST(DelimitedReader, FieldDetails) {
    DelimitedReader in("\"ab\"junk,,2.5,3.5,-3e1,1 2,\"7\",\"a\r\nb\",\r\n\r\n  9\r\n");
    EXPECT_EQ(in.ReadText(), "ab");  // text after the closing quote is ignored
    EXPECT_EQ(in.ReadInt16(), 0);    // an empty number field
    EXPECT_EQ(in.ReadInt16(), 2);    // halves to even
    EXPECT_EQ(in.ReadInt16(), 4);
    EXPECT_EQ(in.ReadNumber(), -30.0);
    EXPECT_EQ(in.ReadInt16(), 1);  // a blank ends a number
    EXPECT_EQ(in.ReadInt16(), 2);
    EXPECT_EQ(in.ReadInt16(), 7);
    EXPECT_EQ(in.ReadText(), "a\r\nb");  // quotes hold line breaks
    EXPECT_EQ(in.ReadInt32(), 9);        // blank lines before a field are skipped
    EXPECT_TRUE(in.AtEnd());
}

TEST(DelimitedReader, Errors) {
    EXPECT_EQ(ErrorOf([] { DelimitedReader("").ReadText(); }), kInputPastEndOfFile);
    EXPECT_EQ(ErrorOf([] { DelimitedReader(" \r\n").ReadInt16(); }), kInputPastEndOfFile);
    EXPECT_EQ(ErrorOf([] {
                  DelimitedReader in("1,");
                  in.ReadInt16();
                  in.ReadInt16();
              }),
              kInputPastEndOfFile);
    for (const char* bad : {"abc", "1x", "-", "1e", "\"x\"", "1.2.3"}) {
        EXPECT_EQ(ErrorOf([bad] { DelimitedReader(bad).ReadNumber(); }), kTypeMismatch) << bad;
    }
    EXPECT_EQ(ErrorOf([] { DelimitedReader("40000").ReadInt16(); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { DelimitedReader("1e999").ReadNumber(); }), kOverflow);
    // A failed number has been read past: the next field follows.
    DelimitedReader in("abc,5");
    EXPECT_EQ(ErrorOf([&in] { in.ReadInt16(); }), kTypeMismatch);
    EXPECT_EQ(in.ReadInt16(), 5);
}
