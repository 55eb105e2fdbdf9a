#include <gtest/gtest.h>

#include "editor/CommandLine.h"
#include "editor/FileRoutines.h"

using namespace paginox;

namespace {

TEST(CommandLine, SwitchesAreCutOutAndTheRestIsTheFileName) {
    CommandLine c = ParseCommandLine("\"/home/me/My Pages/a.pag\" /debug /PageSizeIndex=3", '/');
    EXPECT_EQ(c.FileName, "/home/me/My Pages/a.pag");
    EXPECT_TRUE(c.DebugMode);
    EXPECT_EQ(c.StartPageSizeIndex, 3);

    // Switches anywhere, unknown ones dropped, letter case ignored for both.
    c = ParseCommandLine("/pagesizeindex=12x /Other C:\\Pages\\b.pag /DEBUG", '\\');
    EXPECT_EQ(c.FileName, "C:\\Pages\\b.pag");
    EXPECT_TRUE(c.DebugMode);
    EXPECT_EQ(c.StartPageSizeIndex, 12);

    // An absolute path is not a switch where "/" separates folders.
    c = ParseCommandLine("/tmp/x.pag", '/');
    EXPECT_EQ(c.FileName, "/tmp/x.pag");
    EXPECT_FALSE(c.DebugMode);
    EXPECT_EQ(ParseCommandLine("/tmp/x.pag", '\\').FileName, "");

    // No number, or one beyond 16 bits, leaves the index at 0.
    EXPECT_EQ(ParseCommandLine("/PageSizeIndex=abc", '/').StartPageSizeIndex, 0);
    EXPECT_EQ(ParseCommandLine("/PageSizeIndex=40000", '/').StartPageSizeIndex, 0);
    EXPECT_EQ(ParseCommandLine("", '/').FileName, "");
}

TEST(CommandLine, QuotesAroundTheFileName) {
    EXPECT_EQ(ParseCommandLine("  \"a b.pag\"  ", '/').FileName, "a b.pag");
    EXPECT_EQ(ParseCommandLine("\"a b.pag", '/').FileName, "a b.pag");  // no closing quote
    EXPECT_EQ(ParseCommandLine("\"\"", '/').FileName, "\"");  // too short for the closing one
    EXPECT_EQ(JoinArguments({"My Pages/a.pag", "/Debug"}), "\"My Pages/a.pag\" /Debug");
    EXPECT_EQ(ParseCommandLine(JoinArguments({"/tmp/My Pages/a.pag", "/Debug"}), '/').FileName,
              "/tmp/My Pages/a.pag");
}

TEST(ShortPath, LongPathsKeepTheirStartAndFileName) {
    EXPECT_EQ(ShortPath("C:\\Pages\\Twenty1.pag", '\\'), "c:\\pages\\twenty1.pag");  // 20
    EXPECT_EQ(ShortPath("C:\\Pages\\Twenty12.pag", '\\'), "c:\\...\\twenty12.pag");  // 21
    EXPECT_EQ(ShortPath("/home/me/Pages/Chart.pag", '/'), "/ho.../chart.pag");
    EXPECT_EQ(ShortPath("A_Very_Long_Name_Without_Folder.PAG", '/'),
              "a_very_long_name_without_folder.pag");
}

}  // namespace
