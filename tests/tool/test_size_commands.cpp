// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "persist/FileIO_Page.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"
#include "support/ToolRun.h"

namespace paginox {
namespace {

// The exit status and the output of a command line, with the sample data.
std::pair<int, std::string> Tool(const std::vector<std::string>& args) {
    std::string line;
    for (const std::string& a : args) line += a + " ";
    test::ToolRun r = test::Tool(line, true);
    return {r.status, r.out};
}

// Formats 929 x 749 (a screen), 800 x 600 (no screen is 895 wide) and a printer page.
std::string ThreeFormatPage(const test::TempDir& dir) {
    PageClass page;
    page.InitNewPage();
    page.SetNumFormats(3, true);
    page.GetFormat(1)->SetXPixels(929);
    page.GetFormat(1)->SetYPixels(749);
    page.GetFormat(3)->SetForPrinter(true);
    std::string path = dir / "sizes.pag";
    EXPECT_TRUE(SavePage(path, page));
    return path;
}

TEST(ToolSizes, AddSizeAddsShowsTheEqualOneOrRefusesAndFormatsNamesThem) {
    test::RecordingMessages messages;
    struct Case {
        std::vector<std::string> args;
        int status;
        std::string out;
        std::string lastFormat;  // empty: the page is left as it was
    } cases[] = {
        {{"--screen", "2"}, kExitOk, "1\n", ""},
        {{"--user", "800X600", "--from", "3"}, kExitOk, "2\n", ""},
        {{"--user", "700x500", "--from", "3"}, kExitOk, "4\n", "User\t(700x500)"},
        {{"--printer", "2480x3508", "--dpi", "300"}, kExitOk, "4\n", "Printer\t(2480x3508)"},
        {{"--screen", "10"}, kExitOk, "4\n", "Screen\t(1920x1200)"},
        {{"--user", "7x"}, kExitUsage, "", ""},
        {{"--screen", "11"}, kExitUsage, "", ""},
        {{"--user", "5x5", "--screen", "1"}, kExitUsage, "", ""},
        {{"--user", "5x5", "--dpi", "300"}, kExitUsage, "", ""},
        {{"--user", "5x5", "--from", "4"}, kExitUsage, "", ""},
    };
    for (const Case& c : cases) {
        test::TempDir dir;
        std::string page = ThreeFormatPage(dir);
        std::string before = test::ReadAll(page);
        std::vector<std::string> args = {"add-size", page};
        args.insert(args.end(), c.args.begin(), c.args.end());
        auto [status, out] = Tool(args);
        std::string what = c.args[0] + " " + c.args[1];
        EXPECT_EQ(status, c.status) << what;
        EXPECT_EQ(out, c.out) << what;
        if (c.lastFormat.empty()) {
            EXPECT_EQ(test::ReadAll(page), before) << what;
        } else {
            std::string formats = Tool({"formats", page}).second;
            EXPECT_EQ(std::count(formats.begin(), formats.end(), '\n'), 4) << what;
            EXPECT_TRUE(formats.ends_with("\n" + c.lastFormat + "\n")) << formats;
        }
    }
    // formats names each size as the size list does.
    test::TempDir dir;
    std::string page = ThreeFormatPage(dir), out = dir / "o.pag";
    EXPECT_EQ(Tool({"formats", page}).second,
              "Screen\t(1024x768)\nUser\t(800x600)\nPrinter\t(800x600)\n");
    // The printer's resolution travels with its format; -o leaves the page alone.
    EXPECT_EQ(Tool({"add-size", page, "--printer", "85x110", "--dpi", "10", "-o", out}).second,
              "4\n");
    EXPECT_EQ(ReadPage(out, -1, false)->GetFormat(4)->LogPixels(), 10);
    EXPECT_EQ(ReadPage(page, -1, false)->NumFormats(), 3);

    EXPECT_EQ(Tool({"add-size", dir / "none.pag", "--screen", "1"}).first, kExitFailure);
    EXPECT_EQ(Tool({"add-size", page, "--screen", "1", "-o", dir / "no/x.pag"}).first,
              kExitFailure);
    EXPECT_EQ(messages.shown.back().title, "Save Error");
}

}  // namespace
}  // namespace paginox
