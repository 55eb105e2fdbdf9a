#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "FakeSpecialFolders.h"
#include "core/RuntimeError.h"
#include "persist/Folders.h"
#include "support/TempDir.h"

using namespace paginox;
namespace fs = std::filesystem;

namespace {
void Put(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}
}  // namespace

TEST(Folders, PathJoinLeavesExactlyOneSeparatorWithEitherSeparator) {
    for (char sep : {'\\', '/'}) {
        const std::string s(1, sep);
        EXPECT_EQ(PathJoin("C:" + s + "A" + s, "B", sep), "C:" + s + "A" + s + "B");
        EXPECT_EQ(PathJoin("C:" + s + "A", "B" + s, sep), "C:" + s + "A" + s + "B");
        EXPECT_EQ(PathJoin("x", sep), "x" + s);
        EXPECT_EQ(PathJoin("x" + s, sep), "x" + s);
        EXPECT_EQ(PathJoin("", sep), s);
    }
    // The other separator is just a character of the name.
    EXPECT_EQ(PathJoin("a\\", "b", '/'), "a\\/b");
}

TEST(Folders, TableFromSpecialFoldersWithoutHostSettings) {
    test::FakeSpecialFolders special("C:", '\\');  // its Windows folder does not exist here
    Folders f;
    f.FindFolders(2, special, '\\');
    EXPECT_EQ(f.Path(kSystemDataFolder), "\\");  // no host setting: a lone separator
    EXPECT_EQ(f.Path(kSwissEphFolder), "C:\\Common\\Quillon\\SwissEph\\");
    EXPECT_EQ(f.Path(kAsteroidFolder), "\\Asteroid\\");
    EXPECT_EQ(f.Path(kRoamingDataFolder), "C:\\Roaming\\Quillon\\Veltrane\\v9\\");
    EXPECT_EQ(f.Path(kLocalDataFolder), "C:\\Local\\Quillon\\Veltrane\\v9\\");
    EXPECT_EQ(f.Path(kUserFolder), "C:\\Docs\\Veltrane User Files\\");
    EXPECT_EQ(f.Path(kTemporaryFolder), "C:\\Temp\\");
    EXPECT_EQ(f.Path(kPointsFolder), "C:\\Docs\\Veltrane User Files\\Points & Colors\\");
    EXPECT_EQ(f.Path(kUserRootFolder), f.Path(kUserFolder));
    EXPECT_EQ(f.Path(kDatabasesFolder), "C:\\Docs\\Veltrane User Files\\Databases\\");
    EXPECT_EQ(f.SettingsFile(), "C:\\Docs\\Veltrane User Files\\Settings\\Veltrane9.ini");
    EXPECT_EQ(f.DisplayName(kSystemDataFolder), "Program Files");
    EXPECT_EQ(f.DisplayName(kRoamingDataFolder), "AppData Roaming");
    EXPECT_EQ(f.DisplayName(kWheelsFolder), "Wheels & Dials");
    EXPECT_EQ(f.DisplayName(kUserRootFolder), "");
    EXPECT_THROW(f.Path(21), RuntimeError);

    f.FindFolders(1, special, '\\');
    EXPECT_EQ(f.Path(kSystemDataFolder), "C:\\Programs\\Quillon\\Veltrane\\v9\\");
    f.FindFolders(0, special, '\\');
    EXPECT_EQ(f.Path(kSystemDataFolder), "C:\\Bin\\");
    SetStartingUp(true);  // start-up always asks the host's settings
    f.FindFolders(1, special, '\\');
    SetStartingUp(false);
    EXPECT_EQ(f.Path(kSystemDataFolder), "\\");
}

TEST(Folders, HostSettingsDecideTheSystemAndUserFolders) {
    test::TempDir dir;
    test::FakeSpecialFolders special(dir / "root", '/');
    fs::create_directories(special.WindowsFolder());
    const std::string ini = special.WindowsFolder() + "/Veltrane9.ini";
    Folders f;
    // Windows-1252 in the file, UTF-8 in the table; a missing trailing separator is added.
    Put(ini, "[Veltrane]\r\nSystemDataPath= /opt/V\xE9ltrane \r\n"
                              "UserFolder=/home/u/Files\r\n");
    f.FindFolders(2, special, '/');
    EXPECT_EQ(f.Path(kSystemDataFolder), "/opt/V\xC3\xA9ltrane/");
    EXPECT_EQ(f.Path(kUserFolder), "/home/u/Files/");
    EXPECT_EQ(f.Path(kPagesFolder), "/home/u/Files/Pages/");
    EXPECT_EQ(f.Path(kUserRootFolder), "/home/u/Files/");
    Put(ini, "[Veltrane]\r\nUserFolder=/home/u/Files/\r\n");
    f.FindFolders(2, special, '/');
    EXPECT_EQ(f.Path(kUserFolder), "/home/u/Files/");
    EXPECT_EQ(f.Path(kSystemDataFolder), "/");
    EXPECT_EQ(ReadHostIni("veltrane", "userfolder", "", "Veltrane9.ini", special, '/'),
              "/home/u/Files/");
}

TEST(Folders, MakePathCreatesEachMissingLevel) {
    test::TempDir dir;
    EXPECT_TRUE(MakePath(dir / "X/Y/Z"));
    EXPECT_TRUE(fs::is_directory(dir / "X/Y/Z"));
    EXPECT_TRUE(MakePath(dir / "P/Q/"));  // a trailing separator names the folder before it
    EXPECT_TRUE(fs::is_directory(dir / "P/Q"));
    EXPECT_TRUE(fs::is_empty(dir / "P/Q"));
    EXPECT_TRUE(MakePath(dir / "X/Y"));  // already there
    EXPECT_FALSE(MakePath("nofolder"));
    Put(dir / "file", "x");
    EXPECT_FALSE(MakePath(dir / "file/sub/deeper"));
    EXPECT_FALSE(fs::exists(dir / "file/sub"));
    // With backslashes, only they split the path: each level is one name in the temp folder.
    EXPECT_TRUE(MakePath(dir.Folder() + "\\A\\B\\C", '\\'));
    EXPECT_TRUE(fs::is_directory(dir / "\\A"));
    EXPECT_TRUE(fs::is_directory(dir / "\\A\\B\\C"));
}

TEST(Folders, DirExistsAndFileListed) {
    test::TempDir dir;
    Put(dir / "Page.PAG", "x");
    fs::create_directory(dir / "Sub");
    EXPECT_TRUE(DirExists(dir / "Sub"));
    EXPECT_TRUE(DirExists(dir / "Page.PAG"));
    EXPECT_FALSE(DirExists(dir / "none"));
    EXPECT_FALSE(DirExists(""));
    EXPECT_TRUE(FileListed(dir / "Page.PAG"));
    EXPECT_FALSE(FileListed(dir / "Sub"));
    EXPECT_TRUE(FileListed(dir / "*.pag"));
    EXPECT_TRUE(FileListed(dir / "P?ge.*"));
    EXPECT_FALSE(FileListed(dir / "*.xml"));
    EXPECT_FALSE(FileListed(dir / "S*"));  // only a folder matches
}

TEST(Folders, SettingsFileOfTheProcessTable) {
    test::TempDir dir;
    test::FakeSpecialFolders special(dir / "root", '/');
    AppFolders().FindFolders(2, special);
    ASSERT_TRUE(MakePath(AppFolders().Path(kSettingsFolder)));
    WriteIni("Page Browser", "WindowLeft", "120");
    WriteIni("Page Browser", "Show_Images", "1");
    WriteIni("Other", "Zoom", "2");
    EXPECT_EQ(ReadIni("page browser", "windowleft", "0"), "120");
    WriteIni("Page Browser", "", "ignored");  // an empty key clears the section
    EXPECT_EQ(ReadIni("Page Browser", "Show_Images", " 0 "), "0");
    EXPECT_EQ(test::ReadAll(AppFolders().SettingsFile()), "[Other]\r\nZoom=2\r\n");
}

TEST(Folders, SystemFoldersFollowTheDesktopSettings) {
    test::TempDir dir;
    auto keep = [](const char* n) {
        const char* v = std::getenv(n);
        return v ? std::string(v) : "\x01";  // marks an unset variable
    };
    const char* names[] = {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DOCUMENTS_DIR",
                           "TMPDIR"};
    std::vector<std::string> saved;
    for (const char* n : names) saved.push_back(keep(n));

    setenv("HOME", (dir / "home").c_str(), 1);
    setenv("XDG_CONFIG_HOME", "relative/ignored", 1);
    setenv("XDG_DATA_HOME", (dir / "data/").c_str(), 1);
    unsetenv("XDG_DOCUMENTS_DIR");
    unsetenv("TMPDIR");
    fs::create_directories(dir / "home/.config");
    Put(dir / "home/.config/user-dirs.dirs",
                         "# comment\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
    SystemSpecialFolders sys;
    EXPECT_EQ(sys.Folder(kAppDataFolderId), dir / "home/.config");
    EXPECT_EQ(sys.WindowsFolder(), dir / "home/.config");
    EXPECT_EQ(sys.Folder(kLocalAppDataFolderId), dir / "data");
    EXPECT_EQ(sys.Folder(kDocumentsFolderId), dir / "home/Dokumente");
    EXPECT_EQ(sys.TemporaryFolder(), "/tmp");
    EXPECT_EQ(GetSpecialFolder(kProgramFilesFolderId, sys), "/opt");
    EXPECT_EQ(GetSpecialFolder(kCommonFilesFolderId, sys), "/usr/share");
    fs::remove(dir / "home/.config/user-dirs.dirs");
    EXPECT_EQ(sys.Folder(kDocumentsFolderId), dir / "home/Documents");

    for (size_t i = 0; i < saved.size(); ++i) {
        if (saved[i] == "\x01") unsetenv(names[i]);
        else setenv(names[i], saved[i].c_str(), 1);
    }
}

TEST(Folders, SpecialFolderFallbacks) {
    struct Nothing : test::FakeSpecialFolders {
        Nothing() : FakeSpecialFolders("", '/') {}
        std::string Folder(int32_t) const override { return ""; }
    } none;
    EXPECT_EQ(GetSpecialFolder(kCommonFilesFolderId, none), "/usr/share");
    EXPECT_EQ(GetSpecialFolder(kLocalAppDataFolderId, none), "/var/tmp");
    EXPECT_EQ(GetSpecialFolder(kDocumentsFolderId, none), "");
}
