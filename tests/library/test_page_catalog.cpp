// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "library/PageCatalog.h"
#include "model/PageClass.h"
#include "support/TempDir.h"

using namespace paginox;

namespace {

struct PageCatalogTest : ::testing::Test {
    test::TempDir dir;
    std::string folder = dir / "";
    PageCatalogTest() {
        // The desktop trash inside the test's folder: the folder must exist, or the trash
        // is made in the working folder.
        std::filesystem::create_directories(dir / "trash-home");
        setenv("XDG_DATA_HOME", (dir / "trash-home").c_str(), 1);
        for (const char* page : {"Natal.pag", "Solar.pag", "Lunar.pag"}) dir.Write(page, "x");
    }
    // "Category: page page | Category: ..." for the catalogue as loaded now.
    static std::string Shown(const PageCatalog& catalog) {
        std::string text;
        for (const CatalogCategory& c : catalog.Categories()) {
            text += (text.empty() ? "" : " | ") + c.Name + ":";
            for (const std::string& p : c.Pages) text += " " + p;
        }
        return text;
    }
};

TEST_F(PageCatalogTest, TheLegacyListIsImportedOnceAndUnfiledPagesAreAddedRecently) {
    const std::string legacy =
        "[Charts]\r\n1=Natal.pag\r\n2=C:\\Old\\Solar.pag\r\n3=Gone.pag\r\n"
        "[Empty]\r\n";
    dir.Write("pages.ini", legacy);
    PageCatalog catalog = PageCatalog::Load(folder);
    EXPECT_EQ(Shown(catalog), "Added Recently: Lunar.pag | Charts: Natal.pag Solar.pag | Empty:");
    EXPECT_EQ(test::ReadAll(dir / "PageCatalog.txt"),
              "# Paginox page catalogue: [Category] lines, then its page files.\n"
              "\n[Charts]\nNatal.pag\nSolar.pag\n\n[Empty]\n");

    dir.Write("pages.ini", "[Other]\r\n1=Lunar.pag\r\n");  // never read again
    dir.Write("Added.pag", "x");
    std::filesystem::remove(dir / "Solar.pag");
    catalog = PageCatalog::Load(folder);
    EXPECT_EQ(Shown(catalog), "Added Recently: Added.pag Lunar.pag | Charts: Natal.pag | Empty:");
    ASSERT_EQ(catalog.AddCategory("Later"), "");
    EXPECT_EQ(test::ReadAll(dir / "PageCatalog.txt").find("Solar"), std::string::npos);
}

TEST_F(PageCatalogTest, ADamagedCatalogueIsKeptAsideAndRebuiltWithNothingLost) {
    const std::string damaged = std::string("[Charts]\nNatal.pag\n\x01\x02 binary", 20);
    dir.Write("PageCatalog.txt", damaged);
    PageCatalog catalog = PageCatalog::Load(folder);
    EXPECT_EQ(Shown(catalog), "Added Recently: Lunar.pag Natal.pag Solar.pag");
    EXPECT_NE(catalog.Problem().find("could not be read"), std::string::npos);
    EXPECT_EQ(test::ReadAll(dir / "PageCatalog.bad.txt"), damaged);
    EXPECT_TRUE(PageCatalog::Load(folder).Problem().empty());  // told once
    // Damaged again: the first copy stays, the second is numbered; a reader writes none.
    dir.Write("PageCatalog.txt", "Natal.pag before any category\n");
    EXPECT_EQ(PageCatalog::Load(folder, false).Problem().find("A copy"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(dir / "PageCatalog.bad-2.txt"));
    EXPECT_NE(PageCatalog::Load(folder).Problem().find("kept as PageCatalog.bad-2.txt"),
              std::string::npos);
    EXPECT_EQ(test::ReadAll(dir / "PageCatalog.bad.txt"), damaged);
}

// Pages named in any script keep their real file names from the folder to every command and
// through the catalogue file; names Windows-1252 holds are stored as before.
TEST_F(PageCatalogTest, NamesInAnyScriptSurviveEveryCommandAndTheFile) {
    for (const char* page : {"日本.pag", "Ωmega chart.pag", "Звезда.pag", "Café.pag"})
        dir.Write(page, "x");
    PageCatalog catalog = PageCatalog::Load(folder);
    ASSERT_EQ(catalog.AddCategory("Étoiles ✶"), "");
    ASSERT_EQ(catalog.MovePage("Звезда.pag", "Étoiles ✶"), "");
    ASSERT_EQ(catalog.MovePage("Café.pag", "Étoiles ✶"), "");
    ASSERT_EQ(catalog.RenamePage("Ωmega chart.pag", "Ωmega 2"), "");
    ASSERT_EQ(catalog.CopyPage("日本.pag", "日本 copy"), "");
    PageClass blank;
    blank.InitNewPage();
    ASSERT_EQ(catalog.NewPage("Новая", blank), "");
    ASSERT_EQ(catalog.DeletePage("日本.pag"), "");
    // Names a line could mistake for a note or a mark keep their filing too.
    ASSERT_EQ(catalog.RenamePage("Café.pag", "#1 Café"), "");
    EXPECT_FALSE(std::filesystem::exists(dir / "日本.pag"));
    EXPECT_TRUE(std::filesystem::exists(dir / "Ωmega 2.pag"));
    EXPECT_TRUE(std::filesystem::exists(dir / "Новая.pag"));
    EXPECT_EQ(test::ReadAll(dir / "PageCatalog.txt"),
              "# Paginox page catalogue: [Category] lines, then its page files.\n"
              "\n[*Étoiles ✶]\n*Звезда.pag\n*#1 Café.pag\n");
    const std::string all =
        "Added Recently: Lunar.pag Natal.pag Solar.pag Ωmega 2.pag "
        "Новая.pag 日本 copy.pag | Étoiles ✶: Звезда.pag #1 Café.pag";
    EXPECT_EQ(Shown(catalog), all);
    EXPECT_EQ(Shown(PageCatalog::Load(folder)), all);
}

// What other programs do to the catalogue is kept: a Windows editor's byte order mark, CR LF,
// tabs and repeated sections, and a change made while the catalogue is open here.
TEST_F(PageCatalogTest, OtherProgramsFilingIsReadAndNeverOverwritten) {
    dir.Write("PageCatalog.txt",
              "\xEF\xBB\xBF[Charts]\r\n\tNatal.pag  \r\n[Ölçü]\r\n[charts]\r\nSolar.pag\r\n"
              "[added recently]\r\nLunar.pag\r\n");
    PageCatalog catalog = PageCatalog::Load(folder);
    EXPECT_TRUE(catalog.Problem().empty()) << catalog.Problem();
    EXPECT_EQ(Shown(catalog), "Added Recently: Lunar.pag | Charts: Natal.pag Solar.pag | Ölçü:");

    // Another program files Lunar while the catalogue is open here, then this one acts.
    PageCatalog other = PageCatalog::Load(folder);
    ASSERT_EQ(other.AddCategory("Moons"), "");
    ASSERT_EQ(other.MovePage("Lunar.pag", "moons"), "");
    ASSERT_EQ(catalog.AddCategory("Later"), "");
    EXPECT_EQ(Shown(PageCatalog::Load(folder)),
              "Added Recently: | Charts: Natal.pag Solar.pag | Ölçü: | Moons: Lunar.pag | Later:");

    // A save that fails leaves disk, memory and the answer in step: nothing changed.
    std::filesystem::permissions(dir / "PageCatalog.txt", std::filesystem::perms::owner_read);
    EXPECT_NE(catalog.RenamePage("Natal.pag", "Birth").find("nothing was changed"),
              std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(dir / "Natal.pag"));
    EXPECT_EQ(catalog.CategoryOf("Natal.pag"), "Charts");
}

// The legacy list in any form an old tool or an editor left it.
TEST_F(PageCatalogTest, ALegacyListInUtf16OrWithAnEmptySectionIsImportedWhole) {
    std::string utf16 = "\xFF\xFE";
    for (char c : std::string("[]\r\n1=Natal.pag\r\n[Sun]\r\n1=Solar.pag\r\n")) utf16 += {c, '\0'};
    dir.Write("pages.ini", utf16);
    PageCatalog catalog = PageCatalog::Load(folder);
    EXPECT_EQ(Shown(catalog), "Added Recently: Lunar.pag | Unnamed: Natal.pag | Sun: Solar.pag");
    EXPECT_NE(catalog.Problem().find("imported: 2 categories listing 2 pages"), std::string::npos);
    EXPECT_EQ(LegacyText("\xEF\xBB\xBF[A]"), "[A]");
    EXPECT_EQ(LegacyText("[Caf\xE9]"), "[Café]");
}

// paginox-tool library reads the catalogue without ever writing it.
TEST_F(PageCatalogTest, AReaderWritesNothing) {
    dir.Write("pages.ini", "[Charts]\r\n1=Natal.pag\r\n");
    EXPECT_EQ(Shown(PageCatalog::Load(folder, false)),
              "Added Recently: Lunar.pag Solar.pag | Charts: Natal.pag");
    EXPECT_FALSE(std::filesystem::exists(dir / "PageCatalog.txt"));
}

TEST_F(PageCatalogTest, PageCommandsKeepFilesAndCatalogueInStep) {
    PageCatalog catalog = PageCatalog::Load(folder);
    std::vector<std::string> gone;
    catalog.PageFileGone = [&](const std::string& path) { gone.push_back(path); };
    ASSERT_EQ(catalog.AddCategory("Charts"), "");
    ASSERT_EQ(catalog.MovePage("Natal.pag", "Charts"), "");
    ASSERT_EQ(catalog.RenamePage("Natal.pag", "Birth"), "");
    ASSERT_EQ(catalog.CopyPage("Birth.pag", "Birth copy"), "");
    PageClass blank;
    blank.InitNewPage();
    ASSERT_EQ(catalog.NewPage("Fresh", blank), "");
    ASSERT_EQ(catalog.DeletePage("Lunar.pag"), "");
    EXPECT_TRUE(std::filesystem::exists(dir / "trash-home/Trash/files/Lunar.pag"));
    EXPECT_EQ(Shown(catalog),
              "Added Recently: Birth copy.pag Fresh.pag Solar.pag | Charts: Birth.pag");
    EXPECT_EQ(Shown(PageCatalog::Load(folder)), Shown(catalog));
    EXPECT_FALSE(std::filesystem::exists(dir / "Lunar.pag"));
    EXPECT_EQ(test::ReadAll(dir / "Birth copy.pag"), "x");
    EXPECT_EQ(gone, (std::vector<std::string>{dir / "Natal.pag", dir / "Lunar.pag"}));

    const std::vector<std::pair<std::string, std::string>> badNames = {
        {"", "Please enter a name for the page."},
        {"a/b", "A name cannot contain any of these characters: \\ / : * ? \" < > |"},
        {"a:b", "A name cannot contain any of these characters: \\ / : * ? \" < > |"},
        {" Solar", "A page name cannot begin or end with a space, or end with a full stop."},
        {"Fresh", "There is already a page named Fresh."}};
    for (const auto& [name, message] : badNames) {
        SCOPED_TRACE(name);
        EXPECT_EQ(catalog.RenamePage("Solar.pag", name), message);
        EXPECT_EQ(catalog.NewPage(name, blank), message);
    }
    EXPECT_EQ(catalog.NewPage("solar", blank), "There is already a page named solar.");
    // Only the letter case of its own name: a rename like any other.
    EXPECT_EQ(catalog.RenamePage("Solar.pag", "SOLAR"), "");
    EXPECT_TRUE(std::filesystem::exists(dir / "SOLAR.pag"));
    EXPECT_FALSE(std::filesystem::exists(dir / "Solar.pag"));
}

TEST_F(PageCatalogTest, CategoriesAreAddedRenamedReorderedAndDeletedWithoutLosingPages) {
    PageCatalog catalog = PageCatalog::Load(folder);
    for (const char* name : {"A", "B", "C"}) ASSERT_EQ(catalog.AddCategory(name), "");
    ASSERT_EQ(catalog.MovePage("Natal.pag", "B"), "");
    EXPECT_EQ(catalog.AddCategory("b"), "There is already a category named b.");
    EXPECT_EQ(catalog.AddCategory("[x]"),
              "A category name cannot begin or end with a space, begin with # or contain [ or ].");
    EXPECT_NE(catalog.RenameCategory(PageCatalog::kAddedRecently, "X"), "");
    ASSERT_EQ(catalog.RenameCategory("B", "Births"), "");
    ASSERT_EQ(catalog.MoveCategory("C", 0), "");
    ASSERT_EQ(catalog.DeleteCategory("Births"), "");
    EXPECT_EQ(Shown(PageCatalog::Load(folder)),
              "Added Recently: Lunar.pag Natal.pag Solar.pag | C: | A:");
}

}  // namespace
