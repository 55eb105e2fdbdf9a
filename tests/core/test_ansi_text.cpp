// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/AnsiText.h"
#include "support/CaseLines.h"

using namespace paginox;
using namespace std::string_literals;

TEST(AnsiText, FixLengthCutsOrPadsAndTrimRemovesOnlySpaces) {
    EXPECT_EQ(FixLength("abc", 5) + FixLength("abcdef", 5) + FixLength("", 3), "abc  abcde   ");
    EXPECT_EQ(FixLength("abc", 0), "");
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(LTrim("  a "), "a ");
    EXPECT_EQ(RTrim("  a "), "  a");
    EXPECT_EQ(Trim("    "), "");
    // Long padding, skipped in runs of eight: the last kept character at every offset.
    for (size_t kept = 0; kept <= 20; ++kept) {
        std::string text = std::string(kept, 'x') + std::string(27 - kept, ' ');
        if (kept > 2) text[kept / 2] = ' ';  // a space inside stays
        std::string expected = text.substr(0, kept);
        EXPECT_EQ(RTrim(text), expected) << kept;
        EXPECT_EQ(Trim(" \t" + text), "\t" + expected) << kept;
    }
    std::string nul = std::string(16, ' ') + '\0';
    EXPECT_EQ(RTrim(nul + std::string(15, ' ')), nul);
}

TEST(AnsiText, TrimFixedCutsAtTheFirstNul) {
    for (auto [field, text] : {std::pair{"  Natal   "s, "Natal"},
                               {"\0Natal"s, ""},
                               {" Nat\0al  "s, "Nat"},
                               {std::string(8, '\0'), ""},
                               {""s, ""}}) {
        EXPECT_EQ(TrimFixed(field), text) << text;
    }
}

TEST(AnsiText, Windows1252RoundTripsThroughUtf8AndUnmappableCharactersBecomeQuestionMarks) {
    std::string all;
    for (int c = 1; c < 256; ++c) all += char(c);
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
    EXPECT_EQ(Cp1252ToUtf8("\xB0"), "\u00B0");  // degree mark
    EXPECT_EQ(Cp1252ToUtf8("\x80"), "\u20AC");  // euro sign
    EXPECT_EQ(Utf8ToCp1252("\u2019"), "\x92");
    EXPECT_EQ(Utf8ToCp1252("a\u263Ab"), "a?b");  // no Windows-1252 byte for it
    EXPECT_EQ(Utf8ToCp1252("\xFF\xFE"), "??");   // invalid UTF-8
    EXPECT_EQ(Utf8ToCp1252("\xC3"), "?");        // truncated sequence
}

TEST(AnsiText, WildcardsMatchAsAFileListingDoes) {
    test::ExpectOutcomes("core/cases.txt", "wildcards", [](const std::string& in) {
        const size_t gap = in.find("' '");
        return MatchesWildcard(in.substr(1, gap - 1), in.substr(gap + 3, in.size() - gap - 4))
                   ? "yes"
                   : "no";
    });
    // Many stars against a long non-match finishes at once.
    EXPECT_FALSE(MatchesWildcard(std::string(30, '*') + "b", std::string(5000, 'a')));
}
