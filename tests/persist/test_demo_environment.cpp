// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>

#include "FakeSpecialFolders.h"
#include "model/DefinitionTables.h"
#include "persist/DefinitionReaders.h"
#include "persist/DemoEnvironment.h"
#include "persist/Folders.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;
namespace fs = std::filesystem;

namespace {

// A sample folder laid out as the build generates it, its page read-only as installed.
std::string MakeSample(const test::TempDir& dir) {
    fs::copy(test::GoldenPath("demo_sample"), dir / "sample", fs::copy_options::recursive);
    fs::permissions(dir / "sample/User Files/Pages/Sample.pag", fs::perms::owner_read);
    return dir / "sample";
}

}  // namespace

TEST(DemoEnvironment, SeedsOnceAndRunsThroughTheUsualFolderRules) {
    test::TempDir dir;
    const std::string sample = MakeSample(dir);
    auto real = std::make_shared<test::FakeSpecialFolders>(dir / "home", '/');

    FolderEnvironment env = PrepareFolderEnvironment(real, sample);
    ASSERT_TRUE(env.UsingDemoData);
    EXPECT_EQ(env.DemoRoot, dir / "home/Local/Paginox/Demo/");

    Folders f;
    f.FindFolders(2, *env.Special, '/');
    EXPECT_EQ(f.Path(kSystemDataFolder), env.DemoRoot + "Program Files/Quillon/Veltrane/v9/");
    EXPECT_TRUE(fs::is_directory(f.Path(kSettingsFolder)));
    const std::string page = f.Path(kPagesFolder) + "Sample.pag";
    ASSERT_TRUE(fs::exists(page));
    EXPECT_NE(fs::status(page).permissions() & fs::perms::owner_write, fs::perms::none);

    {
        // Start-up's loading: rulerships, then the object classes, then the column lists.
        Definitions() = DefinitionTables();
        test::RecordingMessages rec;
        std::string seen;
        LoadDefinitions(f, [&](const std::string& path) {
            seen = path + " after " + std::to_string(Definitions().Rulerships.size()) + " sets, " +
                   std::to_string(Definitions().AspectList.Entries.size()) + " aspect columns";
        });
        EXPECT_EQ(seen, f.Path(kSystemDataFolder) + "objects.dfn after 1 sets, 0 aspect columns");
        EXPECT_EQ(Definitions().PointList.Count(), 1);
        EXPECT_TRUE(rec.shown.empty());
    }

    // Seeded once: a later run keeps the user's edits, deletions and permissions, and
    // brings nothing back.
    dir.Write("home/Local/Paginox/Demo/LocalAppData/Quillon/Veltrane/v9/plist.dfn", "edited");
    dir.Write("sample/User Files/Pages/Added.pag", "new page");
    fs::remove(page);
    fs::permissions(f.Path(kSystemDataFolder) + "rulers2.fil", fs::perms::owner_read);
    env = PrepareFolderEnvironment(real, sample);
    EXPECT_EQ(test::ReadAll(f.Path(kLocalDataFolder) + "plist.dfn"), "edited");
    EXPECT_FALSE(fs::exists(f.Path(kPagesFolder) + "Added.pag"));
    EXPECT_FALSE(fs::exists(page));
    EXPECT_EQ(fs::status(f.Path(kSystemDataFolder) + "rulers2.fil").permissions() &
                  fs::perms::owner_write,
              fs::perms::none);

    // Nor does it need the sample any more.
    env = PrepareFolderEnvironment(real, dir / "gone");
    EXPECT_TRUE(env.UsingDemoData);

    // A home copied elsewhere goes on with its own copy, system and user folders alike.
    fs::permissions(f.Path(kSystemDataFolder) + "rulers2.fil", fs::perms::owner_all);
    fs::rename(dir / "home", dir / "moved");
    auto moved = std::make_shared<test::FakeSpecialFolders>(dir / "moved", '/');
    env = PrepareFolderEnvironment(moved, dir / "gone");
    Folders g;
    g.FindFolders(2, *env.Special, '/');
    EXPECT_EQ(g.Path(kSystemDataFolder).rfind(dir / "moved/", 0), 0u);
    EXPECT_EQ(g.Path(kPagesFolder).rfind(dir / "moved/", 0), 0u);
}

TEST(DemoEnvironment, ReadingWithoutSeedingMakesNothing) {
    test::TempDir dir;
    const std::string sample = MakeSample(dir);
    auto real = std::make_shared<test::FakeSpecialFolders>(dir / "home", '/');
    FolderEnvironment env = PrepareFolderEnvironment(real, sample, false);
    EXPECT_FALSE(env.UsingDemoData);
    EXPECT_FALSE(fs::exists(dir / "home"));
    env = PrepareFolderEnvironment(real, sample);
    EXPECT_TRUE(PrepareFolderEnvironment(real, sample, false).UsingDemoData);  // once made
}

TEST(DemoEnvironment, HostInstallationOrNoSampleKeepsTheRealFolders) {
    test::TempDir dir;
    auto real = std::make_shared<test::FakeSpecialFolders>(dir / "home", '/');
    FolderEnvironment env = PrepareFolderEnvironment(real, dir / "nosample");
    EXPECT_FALSE(env.UsingDemoData);
    EXPECT_EQ(env.Special, real);
    EXPECT_FALSE(fs::exists(dir / "home/Local/Paginox"));

    const std::string sample = MakeSample(dir);
    fs::create_directories(real->WindowsFolder());
    dir.Write("home/Windows/Veltrane9.ini", "[Veltrane]\r\n");
    env = PrepareFolderEnvironment(real, sample);
    EXPECT_FALSE(env.UsingDemoData);
    EXPECT_EQ(env.Special, real);
}
