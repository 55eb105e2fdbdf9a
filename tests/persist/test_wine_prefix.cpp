// SPDX-License-Identifier: GPL-3.0-or-later
// The host under Wine, on prefixes laid out in a temporary folder: drives through dosdevices,
// paths found without letter case both ways, the registry's shell folders, the folder table
// from the prefix, and the search for an installation.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "persist/Folders.h"
#include "persist/HostInstallation.h"
#include "persist/WinePrefix.h"
#include "support/TempDir.h"

using namespace paginox;
namespace fs = std::filesystem;

namespace {

// A prefix as wineboot leaves it, with the host installed in Program Files (x86) and its user
// files on an extra drive D:.
std::string MakePrefix(const test::TempDir& dir, const std::string& name) {
    const fs::path root = fs::path(dir.Folder()) / name;
    fs::create_directories(root / "drive_c/windows");
    fs::create_directories(root / "drive_c/users/me/Documents");
    fs::create_directories(root / "drive_c/users/me/AppData/Local/Temp");
    fs::create_directories(root / "drive_c/Program Files (x86)/Quillon/Veltrane/v9");
    fs::create_directories(root / "drive_c/users/me/Pictures");
    fs::create_directories(root / "dosdevices");
    fs::create_directories(fs::path(dir.Folder()) / "astro/Pages");
    fs::create_symlink("../drive_c", root / "dosdevices/c:");
    fs::create_symlink("/", root / "dosdevices/z:");
    fs::create_symlink(fs::path(dir.Folder()) / "astro", root / "dosdevices/d:");
    dir.Write(name + "/drive_c/users/me/Pictures/sunburst.bmp", "BM");
    dir.Write(
        name + "/user.reg",
        "WINE REGISTRY Version 2\n\n"
        "[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\Explorer\\\\Shell Folders] 1\n"
        "\"Personal\"=\"C:\\\\users\\\\me\\\\Documents\"\n\n"
        "[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\Explorer\\\\User Shell "
        "Folders] 1\n"
        "#time=1\n"
        "\"AppData\"=str(2):\"%USERPROFILE%\\\\AppData\\\\Roaming\"\n"
        "\"Local AppData\"=str(2):\"%USERPROFILE%\\\\AppData\\\\Local\"\n");
    dir.Write(name + "/drive_c/windows/Veltrane9.ini",
              "[Veltrane]\r\nSystemDataPath=C:\\Program Files (x86)\\Quillon\\Veltrane\\v9\\\r\n"
              "UserFolder=d:\\\r\n");
    return root.string();
}

}  // namespace

TEST(WinePrefix, WindowsPathsBothWaysWithoutLetterCase) {
    test::TempDir dir;
    setenv("USER", "me", 1);
    WinePrefix prefix(MakePrefix(dir, "prefix"));
    const std::string c = prefix.Root() + "/dosdevices/c:";
    const std::pair<const char*, std::string> toUnix[] = {
        {"C:\\users\\ME\\pictures\\SUNBURST.BMP", c + "/users/me/Pictures/sunburst.bmp"},
        {"c:/Users/me/./Documents/../Pictures/", c + "/users/me/Pictures"},
        {"C:\\Program Files (x86)\\QUILLON\\", c + "/Program Files (x86)/Quillon"},
        {"D:\\pages\\New Page.pag", prefix.Root() + "/dosdevices/d:/Pages/New Page.pag"},
        {"Z:\\tmp", prefix.Root() + "/dosdevices/z:/tmp"},
    };
    for (const auto& [windows, unix] : toUnix) {
        EXPECT_EQ(prefix.ToUnix(windows).value_or("none"), unix) << windows;
    }
    EXPECT_FALSE(prefix.ToUnix("Q:\\nothing"));
    EXPECT_FALSE(prefix.ToUnix("relative\\name.bmp"));

    // Back as winepath -w names them: the drive that holds a file most closely.
    EXPECT_EQ(prefix.ToWindows(prefix.Root() + "/drive_c/users/me/Pictures/sunburst.bmp"),
              "C:\\users\\me\\Pictures\\sunburst.bmp");
    EXPECT_EQ(prefix.ToWindows(dir / "astro/Pages"), "D:\\Pages");
    EXPECT_EQ(prefix.ToWindows("/usr/share"), "Z:\\usr\\share");
    // A file no drive holds is named \\?\unix\... and found again.
    fs::remove(prefix.Root() + "/dosdevices/z:");
    EXPECT_EQ(prefix.ToWindows("/usr/share"), "\\\\?\\unix\\usr\\share");
    EXPECT_EQ(prefix.ToUnix("\\\\?\\unix\\usr\\share").value_or(""), "/usr/share");

    EXPECT_EQ(prefix.ShellFolder("personal").value_or(""), "C:\\users\\me\\Documents");
    EXPECT_EQ(prefix.ShellFolder("Local AppData").value_or(""), "C:\\users\\me\\AppData\\Local");
}

TEST(WinePrefix, TheFolderTableComesFromThePrefix) {
    test::TempDir dir;
    setenv("USER", "me", 1);
    auto system = std::make_shared<SystemSpecialFolders>();
    WineSpecialFolders wine(WinePrefix(MakePrefix(dir, "prefix")), system);
    Folders f;
    f.FindFolders(2, wine, '/');
    const std::string c = dir / "prefix/dosdevices/c:";
    EXPECT_EQ(f.Path(kSystemDataFolder), c + "/Program Files (x86)/Quillon/Veltrane/v9/");
    EXPECT_EQ(f.Path(kPagesFolder), dir / "prefix/dosdevices/d:/Pages/");
    EXPECT_EQ(f.Path(kLocalDataFolder), c + "/users/me/AppData/Local/Quillon/Veltrane/v9/");
    EXPECT_EQ(f.Path(kTemporaryFolder), c + "/users/me/AppData/Local/Temp/");
    EXPECT_EQ(wine.WindowsFolder(), c + "/windows");
    // A picked file is stored as the host sees it.
    EXPECT_EQ(wine.HostPath(dir / "prefix/drive_c/users/me/Pictures/sunburst.bmp"),
              "C:\\users\\me\\Pictures\\sunburst.bmp");
}

TEST(WinePrefix, InstallationsAreLookedForInOrder) {
    test::TempDir dir;
    setenv("USER", "me", 1);
    const std::string home = dir / "home";
    fs::create_directories(home + "/.config");
    auto system = std::make_shared<SystemSpecialFolders>();
    unsetenv("WINEPREFIX");
    EXPECT_TRUE(FindHostInstallations(system, "", home).empty() ||
                FindHostInstallations(system, "", home).front().Kind == "native");

    MakePrefix(dir, "home/.PlayOnLinux/wineprefix/Veltrane");
    MakePrefix(dir, "home/.wine");
    std::string custom = MakePrefix(dir, "custom");
    setenv("WINEPREFIX", custom.c_str(), 1);
    std::vector<HostInstallation> found = FindHostInstallations(system, dir / "gone", home);
    std::vector<std::string> kinds;
    for (const HostInstallation& h : found) kinds.push_back(h.Kind);
    // A choice that is gone is passed over; the rest come in their order.
    auto at = [&](const std::string& k) {
        return std::find(kinds.begin(), kinds.end(), k) - kinds.begin();
    };
    EXPECT_LT(at("WINEPREFIX"), at("~/.wine"));
    EXPECT_LT(at("~/.wine"), at("PlayOnLinux"));
    EXPECT_EQ(found[size_t(at("WINEPREFIX"))].Folder, custom);
    EXPECT_EQ(FindHostInstallations(system, dir / "home/.wine", home).front().Kind, "chosen");
    unsetenv("WINEPREFIX");
}
