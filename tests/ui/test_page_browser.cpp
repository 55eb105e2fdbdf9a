#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <filesystem>

#include "library/PageCatalog.h"
#include "persist/Folders.h"
#include "support/GuiApplication.h"
#include "support/RecordingMessages.h"
#include "support/ScopedAppFolders.h"
#include "ui/PageBrowser.h"

using namespace paginox;

namespace {

struct BrowserTest : ::testing::Test {
    test::ScopedAppFolders folders;
    test::RecordingMessages messages;
    std::string pages;
    BrowserTest() {
        test::EnsureGuiApplication<QApplication>();
        pages = AppFolders().Path(kPagesFolder);
        std::filesystem::create_directories(pages);
        const std::string sample = std::string(PAGINOX_SAMPLE_DIR) + "/User Files/Pages/";
        for (const char* page : {"Birth Chart.pag", "Poster.pag"}) {
            std::filesystem::copy_file(sample + page, pages + page);
        }
        test::TempDir scratch;
        std::filesystem::copy_file(scratch.Write("b", "not a page"), pages + "Broken.pag");
    }
    static QStringList Names(QListWidget* list) {
        QStringList names;
        for (int i = 0; i < list->count(); ++i) names << list->item(i)->text();
        return names;
    }
};

TEST_F(BrowserTest, ShowsThumbnailsOpensAndRenamesThroughThePrompt) {
    PageBrowser browser(pages + "Poster.pag");
    browser.show();
    EXPECT_EQ(Names(browser.Categories()), QStringList{"Added Recently (3)"});
    EXPECT_EQ(Names(browser.Pages()), (QStringList{"Birth Chart", "Broken", "Poster"}));
    EXPECT_EQ(browser.Pages()->currentItem()->text(), "Poster");
    // Every page gets its thumbnail, the unreadable one a placeholder, without a message.
    QTRY_VERIFY_WITH_TIMEOUT(browser.findChild<QLabel*>("lblProgress")->text().isEmpty(), 10000);
    EXPECT_TRUE(messages.shown.empty());

    browser.Ask = [](const QString& title, const QString& prompt, const QString& proposal) {
        EXPECT_EQ(title, "Rename Page");
        EXPECT_EQ(proposal, "Poster");
        return std::optional<QString>("Wall Poster");
    };
    browser.RenamePage();
    EXPECT_TRUE(std::filesystem::exists(pages + "Wall Poster.pag"));
    EXPECT_EQ(browser.Pages()->currentItem()->text(), "Wall Poster");
    browser.OpenPage();
    EXPECT_EQ(browser.ChosenPath(), pages + "Wall Poster.pag");
    EXPECT_EQ(browser.result(), QDialog::Accepted);
}

}  // namespace
