// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>
#include <deque>
#include <filesystem>
#include <fstream>

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

// Copy, Delete and Move to Front are each one step; a copy (the last object) gets no marks
// from the refresh, and the marks it does not draw do not answer the mouse.
TEST(Editing, CopyDeleteAndReorderAreEachOneUndoableStepAndHiddenHandlesAreDead) {
    test::PageFormFixture fx;
    const int16_t count = fx.state.CurrentFormat->NumObjects();
    const int16_t firstClass = fx.Object(1).ObjectClassID();
    fx.Click(1);
    ASSERT_GT(fx.state.SelectionMarks.Count(), 0);
    const QPoint mark(fx.state.SelectionMarks.X(1), fx.state.SelectionMarks.Y(1));
    fx.Trigger("mnuPopupCopy");
    EXPECT_EQ(fx.state.SelectedObject, count + 1);
    fx.Hover(mark);
    EXPECT_EQ(fx.Preview()->DragMode(), kDragNone);
    EXPECT_EQ(fx.Preview()->cursor().shape(), Qt::ArrowCursor);
    fx.Click(2);
    fx.Trigger("mnuPopupDelete");
    fx.Click(1);
    fx.Trigger("mnuPopupMoveToFront");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), count);
    for (int i = 0; i < 3; ++i) fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.Object(1).ObjectClassID(), firstClass);
    EXPECT_TRUE(fx.state.Page->IsEqual(fx.state.SavedPage.get()));
    EXPECT_FALSE(fx.Child("mnuUndo")->isEnabled());
    fx.Trigger("mnuRedo");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), count + 1);
}

TEST(Editing, AChoiceOpensInOneClickAndTranslatingSaysWhere) {
    test::PageFormFixture fx;
    fx.Click(1);
    auto* list = fx.form->findChild<QTableWidget*>();
    ASSERT_TRUE(list);
    int row = list->findItems("Frame Type", Qt::MatchExactly).value(0)->row();
    QRect cell = list->visualItemRect(list->item(row, 1));
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

    // An error that escapes every command keeps a recovery copy and says where.
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
        std::ofstream(pages + "Broken.pag") << "not a page";
    }
    static QStringList Names(QListWidget* list) {
        QStringList names;
        for (int i = 0; i < list->count(); ++i) {
            if (!list->item(i)->isHidden()) names << list->item(i)->text();  // as shown
        }
        return names;
    }
};

TEST_F(BrowserTest, ShowsThumbnailsOpensAndRenamesThroughThePrompt) {
    PageBrowser browser(pages + "Poster.pag");
    browser.show();
    EXPECT_EQ(Names(browser.Categories()), (QStringList{"All Pages (3)", "Added Recently (3)"}));
    EXPECT_EQ(Names(browser.Pages()), (QStringList{"Birth Chart", "Broken", "Poster"}));
    EXPECT_EQ(browser.Pages()->currentItem()->text(), "Poster");
    // Every page gets its thumbnail, the unreadable one a placeholder, without a message.
    QTRY_VERIFY_WITH_TIMEOUT(browser.findChild<QLabel*>("lblProgress")->text().isEmpty(), 10000);
    EXPECT_TRUE(messages.shown.empty());

    browser.Ask = [](const QString& title, const QString&, const QString& proposal) {
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

// The browser as people use others: pages dragged onto a category, several at once, sorted,
// searched in every category with counts, keys, and buttons that say what can be done.
TEST_F(BrowserTest, DragSelectSortSearchAndKeys) {
    PageBrowser browser(pages + "Poster.pag");
    browser.show();
    browser.Ask = [](const QString&, const QString&, const QString&) {
        return std::optional<QString>("Charts");
    };
    browser.NewCategory();
    auto row = [&](const QString& name) {
        return browser.Pages()->findItems(name, Qt::MatchExactly).value(0);
    };
    auto select = [&](std::initializer_list<const char*> names) {
        browser.Pages()->clearSelection();
        for (const char* n : names) row(n)->setSelected(true);
        browser.Pages()->setCurrentItem(row(*names.begin()), QItemSelectionModel::NoUpdate);
    };

    // Dragged onto "Charts": the list drags the selected pages' names, the category takes them.
    browser.Categories()->setCurrentRow(0);  // All Pages
    select({"Birth Chart", "Broken"});
    EXPECT_TRUE(browser.Pages()->dragEnabled());
    std::unique_ptr<QMimeData> dragged(browser.SelectedPagesMime());
    QRect target = browser.Categories()->visualItemRect(browser.Categories()->item(2));
    QWidget* viewport = browser.Categories()->viewport();
    QDragEnterEvent enter(target.center(), Qt::MoveAction, dragged.get(), Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(target.center()), Qt::MoveAction, dragged.get(), Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &drop);
    EXPECT_EQ(browser.Catalog().CategoryOf("Broken.pag"), "Charts");
    EXPECT_EQ(Names(browser.Categories()),
              (QStringList{"All Pages (3)", "Added Recently (1)", "Charts (2)"}));

    // A filter searches every category and says how many match where.
    browser.Filter()->setText("OSTE");
    EXPECT_EQ(Names(browser.Categories()),
              (QStringList{"All Pages (1 of 3)", "Added Recently (1 of 1)", "Charts (0 of 2)"}));
    EXPECT_EQ(Names(browser.Pages()), (QStringList{"Poster"}));
    QTest::keyClick(&browser, Qt::Key_Escape);  // clears the filter, keeps the window
    EXPECT_TRUE(browser.Filter()->text().isEmpty());
    EXPECT_TRUE(browser.isVisible());

    browser.Order()->setCurrentIndex(int(PageOrder::Name));
    EXPECT_EQ(Names(browser.Pages()), (QStringList{"Birth Chart", "Broken", "Poster"}));
    select({"Birth Chart", "Poster"});
    EXPECT_FALSE(browser.findChild<QPushButton*>("btnRename")->isEnabled());  // one at a time
    EXPECT_TRUE(browser.findChild<QPushButton*>("btnDelete")->isEnabled());
    browser.CopyPage();  // several: named for themselves
    EXPECT_TRUE(std::filesystem::exists(pages + "Birth Chart copy.pag"));
    EXPECT_TRUE(std::filesystem::exists(pages + "Poster copy.pag"));

    // Delete and F2 on the list; an empty category says so.
    browser.Categories()->setCurrentRow(1);  // Added Recently: the two copies and Poster
    select({"Birth Chart copy", "Poster copy"});
    messages.Script({MsgAnswer::Ok});
    QTest::keyClick(browser.Pages(), Qt::Key_Delete);
    EXPECT_FALSE(std::filesystem::exists(pages + "Poster copy.pag"));
    EXPECT_EQ(messages.shown.back().text.rfind("Delete these 2 pages?", 0), 0u);
    browser.Ask = [](const QString&, const QString&, const QString&) {
        return std::optional<QString>("Empty");
    };
    browser.NewCategory();
    EXPECT_NE(browser.findChild<QLabel*>("lblEmpty")->text().indexOf("no pages"), -1);
    EXPECT_FALSE(browser.findChild<QPushButton*>("btnOpen")->isEnabled());
}

// The page open in the editor: a rename is told so the editor follows it, a delete refused.
// A refused name comes back in the prompt as typed; New Page proposes "New Page".
TEST_F(BrowserTest, ThePageOpenInTheEditorIsFollowedAndNeverDeleted) {
    PageBrowser browser(pages + "Poster.pag");
    std::string followed;
    browser.OpenPageRenamed = [&](const std::string& path) { followed = path; };
    std::vector<QString> proposals;
    std::deque<QString> typed = {"Birth Chart", "Ωmega poster"};
    browser.Ask = [&](const QString&, const QString&, const QString& proposal) {
        proposals.push_back(proposal);
        QString name = typed.front();
        typed.pop_front();
        return std::optional<QString>(name);
    };
    browser.RenamePage();
    EXPECT_EQ(followed, pages + "Ωmega poster.pag");
    EXPECT_EQ(proposals, (std::vector<QString>{"Poster", "Birth Chart"}));
    EXPECT_EQ(messages.Last(), "Page Browser: There is already a page named Birth Chart.");
    browser.DeletePage();
    EXPECT_TRUE(std::filesystem::exists(pages + "Ωmega poster.pag"));
    EXPECT_NE(messages.Last().find("is open in the editor"), std::string::npos);

    browser.Ask = [&](const QString&, const QString&, const QString& proposal) {
        proposals.push_back(proposal);
        return std::optional<QString>();
    };
    browser.NewPage();
    EXPECT_EQ(proposals.back(), "New Page");
}

}  // namespace
