// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>

#include "FakeSpecialFolders.h"
#include "core/RuntimeError.h"
#include "persist/Folders.h"
#include "support/Golden.h"

using namespace paginox;
namespace fs = std::filesystem;

TEST(Folders, PathJoinLeavesExactlyOneSeparatorWithEitherSeparator) {
    for (char sep : {'\\', '/'}) {
        const std::string s(1, sep);
        EXPECT_EQ(PathJoin("C:" + s + "A" + s, "B", sep), "C:" + s + "A" + s + "B");
        EXPECT_EQ(PathJoin("C:" + s + "A", "B" + s, sep), "C:" + s + "A" + s + "B");
        EXPECT_EQ(PathJoin("x", sep), "x" + s);
        EXPECT_EQ(PathJoin("x" + s, sep), "x" + s);
        EXPECT_EQ(PathJoin("", sep), s);
    }
    EXPECT_EQ(PathJoin("a\\", "b", '/'), "a\\/b");  // the other one is just a character
}

TEST(Folders, TableFromSpecialFoldersWithoutHostSettings) {
    test::FakeSpecialFolders special("C:", '\\');  // its Windows folder does not exist here
    Folders f;
    f.FindFolders(2, special, '\\');
    std::string table;
    for (int16_t id = kSystemDataFolder; id <= kDatabasesFolder; ++id) {
        table += std::to_string(id) + " " + f.DisplayName(id) + ": " + f.Path(id) + "\n";
    }
    EXPECT_EQ(table, test::GoldenText("persist/folders.txt"));
    EXPECT_EQ(f.SettingsFile(), "C:\\Docs\\Veltrane User Files\\Settings\\Veltrane9.ini");
    EXPECT_THROW(f.Path(21), RuntimeError);
    // Without a host setting the system data folder comes from the mode, unless starting up.
    f.FindFolders(1, special, '\\');
    EXPECT_EQ(f.Path(kAsteroidFolder), "C:\\Programs\\Quillon\\Veltrane\\v9\\Asteroid\\");
    f.FindFolders(0, special, '\\');
    EXPECT_EQ(f.Path(kSystemDataFolder), "C:\\Bin\\");
    SetStartingUp(true);  // start-up always asks the host's settings
    f.FindFolders(1, special, '\\');
    SetStartingUp(false);
    EXPECT_EQ(f.Path(kSystemDataFolder), "\\");
}

TEST(Folders, HostSettingsDecideTheFoldersAndTheSettingsFileFollows) {
    test::TempDir dir;
    test::FakeSpecialFolders special(dir / "root", '/');
    fs::create_directories(special.WindowsFolder());
    // Windows-1252 in the file, UTF-8 in the table; a missing trailing separator is added.
    dir.Write("root/Windows/Veltrane9.ini",
              "[Veltrane]\r\nSystemDataPath= /opt/V\xE9ltrane \r\n"
              "UserFolder=" +
                  (dir / "Files") + "\r\n");
    AppFolders().FindFolders(2, special, '/');
    const Folders& f = AppFolders();
    EXPECT_EQ(f.Path(kSystemDataFolder), "/opt/V\xC3\xA9ltrane/");
    EXPECT_EQ(f.Path(kUserFolder), dir / "Files/");
    EXPECT_EQ(f.Path(kPagesFolder), dir / "Files/Pages/");

    ASSERT_TRUE(MakePath(f.Path(kSettingsFolder)));
    WriteIni("Page Browser", "WindowLeft", "120");
    WriteIni("Other", "Zoom", "2");
    EXPECT_EQ(ReadIni("page browser", "windowleft", "0"), "120");
    WriteIni("Page Browser", "", "ignored");  // an empty key clears the section
    EXPECT_EQ(ReadIni("Page Browser", "WindowLeft", " 0 "), "0");
    EXPECT_EQ(test::ReadAll(f.SettingsFile()), "[Other]\r\nZoom=2\r\n");
}

TEST(Folders, MakePathDirExistsAndFileListed) {
    test::TempDir dir;
    EXPECT_TRUE(MakePath(dir / "X/Y/Z") && fs::is_directory(dir / "X/Y/Z"));
    EXPECT_TRUE(MakePath(dir / "P/Q/"));  // a trailing separator names the folder before it
    EXPECT_TRUE(fs::is_directory(dir / "P/Q") && fs::is_empty(dir / "P/Q"));
    EXPECT_TRUE(MakePath(dir / "X/Y"));  // already there
    EXPECT_FALSE(MakePath("nofolder"));
    dir.Write("Page.PAG", "x");
    EXPECT_FALSE(MakePath(dir / "Page.PAG/sub/deeper"));
    // With backslashes only they split the path: each level is one name in the temp folder.
    EXPECT_TRUE(MakePath(dir.Folder() + "\\A\\B", '\\'));
    EXPECT_TRUE(fs::is_directory(dir / "\\A") && fs::is_directory(dir / "\\A\\B"));

    EXPECT_TRUE(DirExists(dir / "X") && DirExists(dir / "Page.PAG"));
    EXPECT_FALSE(DirExists(dir / "none") || DirExists(""));
    EXPECT_TRUE(FileListed(dir / "Page.PAG") && FileListed(dir / "*.pag") &&
                FileListed(dir / "P?ge.*"));
    EXPECT_FALSE(FileListed(dir / "X") || FileListed(dir / "*.xml") || FileListed(dir / "X*"));
}
