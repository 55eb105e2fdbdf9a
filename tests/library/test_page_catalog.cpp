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
        {"solar", "There is already a page named solar."},
        {"Fresh", "There is already a page named Fresh."}};
    for (const auto& [name, message] : badNames) {
        SCOPED_TRACE(name);
        EXPECT_EQ(catalog.RenamePage("Solar.pag", name), message);
        EXPECT_EQ(catalog.NewPage(name, blank), message);
    }
    EXPECT_TRUE(std::filesystem::exists(dir / "Solar.pag"));
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
