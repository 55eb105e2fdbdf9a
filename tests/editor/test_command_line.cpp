// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "editor/CommandLine.h"
#include "editor/FileRoutines.h"

using namespace paginox;

namespace {

// What the command line gives, as "'file name' debug index".
std::string Parsed(const std::string& line, char sep = '/') {
    CommandLine c = ParseCommandLine(line, sep);
    return "'" + c.FileName + "' " + std::to_string(c.DebugMode) + " " +
           std::to_string(c.StartPageSizeIndex);
}

TEST(CommandLine, SwitchesAreCutOutAndTheRestIsTheFileName) {
    const std::pair<const char*, const char*> cases[] = {
        {"\"/home/me/My Pages/a.pag\" /debug /PageSizeIndex=3", "'/home/me/My Pages/a.pag' 1 3"},
        // An absolute path is not a switch where "/" separates folders.
        {"/tmp/x.pag", "'/tmp/x.pag' 0 0"},
        // No number, or one beyond 16 bits, leaves the index at 0.
        {"/PageSizeIndex=abc", "'' 0 0"},
        {"/PageSizeIndex=40000", "'' 0 0"},
        {"", "'' 0 0"},
        // Quotes around the file name: the closing one may be missing; "" is too short for it.
        {"  \"a b.pag\"  ", "'a b.pag' 0 0"},
        {"\"a b.pag", "'a b.pag' 0 0"},
        {"\"\"", "'\"' 0 0"},
    };
    for (auto [line, parsed] : cases) EXPECT_EQ(Parsed(line), parsed) << line;
    // Switches anywhere, unknown ones dropped, letter case ignored for both.
    EXPECT_EQ(Parsed("/pagesizeindex=12x /Other C:\\Pages\\b.pag /DEBUG", '\\'),
              "'C:\\Pages\\b.pag' 1 12");
    EXPECT_EQ(Parsed("/tmp/x.pag", '\\'), "'' 0 0");
}

TEST(CommandLine, ArgumentsAreTakenWholeQuotesAndSpacesIncluded) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"/tmp/My Pages/a.pag", "/Debug"}, "'/tmp/My Pages/a.pag' 1 0"},
        {{"/pagesizeindex=2", "/tmp/\"quoted\" name.pag"}, "'/tmp/\"quoted\" name.pag' 0 2"},
        {{"\"a b.pag\""}, "'\"a b.pag\"' 0 0"},
        {{"/tmp/x /Debug.pag", "second.pag"}, "'/tmp/x /Debug.pag' 0 0"},
        {{"", "/DEBUG"}, "'' 1 0"},
    };
    for (const auto& [args, parsed] : cases) {
        CommandLine c = ParseArguments(args);
        EXPECT_EQ("'" + c.FileName + "' " + std::to_string(c.DebugMode) + " " +
                      std::to_string(c.StartPageSizeIndex),
                  parsed);
    }
}

TEST(CommandLine, HelpAndVersionAreAskedForByName) {
    EXPECT_EQ(InformationAsked({"a.pag", "--version"}, "1.2").value_or(""), "paginox 1.2\n");
    EXPECT_EQ(InformationAsked({"-h"}, "1.2").value_or("").rfind("Usage: paginox", 0), 0u);
    EXPECT_FALSE(InformationAsked({"a.pag", "/Debug", "--versions"}, "1.2"));
}

TEST(ShortPath, LongPathsKeepTheirStartAndFileName) {
    EXPECT_EQ(ShortPath("C:\\Pages\\Twenty1.pag", '\\'), "c:\\pages\\twenty1.pag");  // 20
    EXPECT_EQ(ShortPath("C:\\Pages\\Twenty12.pag", '\\'), "c:\\...\\twenty12.pag");  // 21
    EXPECT_EQ(ShortPath("/home/me/Pages/Chart.pag", '/'), "/ho.../chart.pag");
    EXPECT_EQ(ShortPath("A_Very_Long_Name_Without_Folder.PAG", '/'),
              "a_very_long_name_without_folder.pag");
}

}  // namespace
