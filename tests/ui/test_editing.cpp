#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QStatusBar>
#include <QTableWidget>
#include <filesystem>

#include "editor/Manipulation.h"
#include "editor/RecoveryStore.h"
#include "persist/Folders.h"
#include "support/DamagedPage.h"
#include "ui/PageBrowser.h"
#include "ui/PageFormFixture.h"
#include "ui/PreviewWidget.h"

using namespace paginox;

namespace {

QString Note(test::PageFormFixture& fx) {
    auto* note = fx.form->findChild<QLabel*>("lblDrawNote");
    return note && note->isVisible() ? note->text() : QString();
}

// The mark of the selected object under which a drag would resize it, or none.
std::optional<QPoint> FirstMark(test::PageFormFixture& fx) {
    if (fx.state.SelectionMarks.Count() == 0) return std::nullopt;
    return QPoint(fx.state.SelectionMarks.X(1), fx.state.SelectionMarks.Y(1));
}

TEST(Editing, OnlyDrawnHandlesAnswerTheMouse) {
    test::PageFormFixture fx;
    fx.Click(1);
    std::optional<QPoint> mark = FirstMark(fx);
    ASSERT_TRUE(mark);
    fx.Trigger("mnuPopupCopy");  // the copy is the last object: the refresh draws no marks
    EXPECT_EQ(fx.state.SelectedObject, fx.state.CurrentFormat->NumObjects());
    fx.Hover(*mark);
    EXPECT_EQ(fx.Preview()->DragMode(), kDragNone);
    EXPECT_EQ(fx.Preview()->cursor().shape(), Qt::ArrowCursor);
}

TEST(Editing, CopyDeleteAndReorderAreEachOneUndoableStep) {
    test::PageFormFixture fx;
    const int16_t count = fx.state.CurrentFormat->NumObjects();
    const int16_t firstClass = fx.Object(1).ObjectClassID();
    fx.Click(1);
    fx.Trigger("mnuPopupCopy");
    fx.Click(2);
    fx.Trigger("mnuPopupDelete");
    fx.Click(1);
    fx.Trigger("mnuPopupMoveToFront");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), count);
    for (int i = 0; i < 3; ++i) fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), count);
    EXPECT_EQ(fx.Object(1).ObjectClassID(), firstClass);
    EXPECT_TRUE(fx.state.Page->IsEqual(fx.state.SavedPage.get()));
    EXPECT_FALSE(fx.form->findChild<QAction*>("mnuUndo")->isEnabled());
    fx.Trigger("mnuRedo");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), count + 1);
}

TEST(Editing, AChoiceOpensInOneClickAndTranslatingSaysWhere) {
    test::PageFormFixture fx;
    fx.Click(1);
    auto* list = fx.form->findChild<QTableWidget*>();
    ASSERT_TRUE(list);
    int choiceRow = -1;
    for (int r = 0; r < list->rowCount(); ++r) {
        if (list->item(r, 0)->text() == "Frame Type") choiceRow = r;
    }
    ASSERT_GE(choiceRow, 0);
    QRect cell = list->visualItemRect(list->item(choiceRow, 1));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell.center());
    test::SettleEvents();
    auto* combo = list->findChild<QComboBox*>("cmbProperty");
    ASSERT_TRUE(combo);
    EXPECT_TRUE(combo->view()->isVisible());
    combo->hidePopup();

    fx.Trigger("mnuTransXML");
    EXPECT_EQ(fx.form->statusBar()->currentMessage(),
              "Translated to " + QString::fromStdString(fx.folders.Dir() / "Birth Chart.xml"));
}

TEST(DamagedPages, OpenListAndRepairInsteadOfEndingTheProgram) {
    test::PageFormFixture fx;
    std::string damaged = fx.folders.Dir().Write("damaged.pag", test::DamagedPage(fx.page));
    fx.dialogs.Answers.push_back(damaged);
    fx.Trigger("mnuFileOpen");
    ASSERT_EQ(fx.state.CurrentFile, damaged);
    fx.form->SizeList()->setCurrentRow(0);
    test::SettleEvents();
    EXPECT_TRUE(fx.messages.shown.empty());
    EXPECT_EQ(Note(fx),
              "1 object cannot be placed: correct Anchor and Size. 1 object of an unknown class "
              "shown as plain boxes.");
    // The unknown object is drawn and can be grabbed; the unplaced one cannot.
    EXPECT_EQ(fx.Class(1).FullName(), "Unknown class 999");
    QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, fx.Inside(1));
    EXPECT_EQ(fx.state.SelectedObject, 1);
    EXPECT_FALSE(fx.state.Rects.IsPlaced(2));

    // A format that cannot be drawn shows its page empty and says so.
    fx.form->SizeList()->setCurrentRow(1);
    test::SettleEvents();
    EXPECT_EQ(fx.state.CurrentFormatIndex, 2);
    EXPECT_EQ(Note(fx).toStdString(), "This page size cannot be drawn (it is 0 x 749 pixels).");
    EXPECT_TRUE(fx.messages.shown.empty());
}

TEST(DamagedPages, AnEscapedErrorKeepsARecoveryCopyAndSaysWhere) {
    test::PageFormFixture fx;
    RecoveryStore store(fx.folders.Dir() / "Recovery/");
    fx.form->SetRecovery(&store);
    fx.form->OnUnexpectedError("Overflow");
    ASSERT_TRUE(std::filesystem::exists(store.CopyPath()));
    EXPECT_EQ(fx.messages.shown.back().text,
              "An unexpected error occurred: Overflow\r\n\r\nYour page has been kept in " +
                  store.CopyPath());
    store.Discard();
}

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
