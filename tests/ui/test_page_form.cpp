// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <csignal>
#include <filesystem>

#include "editor/Manipulation.h"
#include "editor/RecoveryStore.h"
#include "persist/FileIO_Page.h"
#include "persist/Folders.h"
#include "persist/HostInstallation.h"
#include "support/TempDir.h"
#include "ui/InsertDialog.h"
#include "ui/InstallationDialog.h"
#include "ui/PageFormFixture.h"
#include "ui/PropertyPanel.h"
#include "ui/StartUp.h"
#include "ui/TerminationSignal.h"

using namespace paginox;

namespace {

using test::PageFormFixture;

// What the window shows of the selection: the selected object, the selector's entry and the
// first row of the property list.
std::string Selection(PageFormFixture& fx) {
    return std::to_string(fx.state.SelectedObject) + " " +
           std::to_string(fx.Child<QComboBox>("cmbObjects")->currentIndex()) + " " +
           fx.form->Properties()->Rows().front().Label;
}

TEST(PageForm, OpensThePageAndSelectsByClicking) {
    PageFormFixture fx;
    EXPECT_EQ(fx.form->windowTitle().toStdString(), "Paginox - /tm.../birth chart.pag");
    const int16_t objects = fx.state.CurrentFormat->NumObjects();
    EXPECT_EQ(fx.Child<QLabel>("lblNumObjects")->text(), QString::number(objects));
    for (int16_t k = 1; k <= objects; ++k) {
        fx.Click(k);
        EXPECT_EQ(Selection(fx), std::to_string(k) + " " + std::to_string(k) + " Anchor X");
    }
    // A click on the grey around the page clears the selection; the page's rows come back.
    fx.Click(0);
    EXPECT_EQ(Selection(fx), "0 0 List Abbrev");
    EXPECT_EQ(fx.Preview()->DragMode(), kDragNone);
}

TEST(PageForm, DragMovesUndoAndRedo) {
    PageFormFixture fx;
    int16_t k = fx.FirstOfShape(kShapeBox);
    const RectClass before = fx.Rect(k);
    const float origin1 = fx.Object(k).Origin(1);
    // Alt held: the move's own arithmetic, nothing snapped.
    fx.Drag(fx.Inside(k), fx.Inside(k) + QPoint(-30, 20), Qt::AltModifier);
    EXPECT_FLOAT_EQ(fx.Object(k).Origin(2), fx.state.Rects.Margin.PropY(before.Top() + 20.0f));
    EXPECT_EQ(fx.Rect(k).Left(), before.Left() - 30);  // drawn where it was dropped
    auto menus = [&] {
        return std::pair(fx.Child("mnuUndo")->isEnabled(), fx.Child("mnuRedo")->isEnabled());
    };
    EXPECT_EQ(menus(), std::pair(true, false));
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.Object(k).Origin(1), origin1);
    EXPECT_EQ(menus(), std::pair(false, true));
    fx.Trigger("mnuRedo");
    EXPECT_EQ(fx.Rect(k).Left(), before.Left() - 30);

    // Escape abandons a drag under way.
    QPoint now = fx.Inside(k);
    QTest::mousePress(fx.Preview(), Qt::LeftButton, {}, now);
    QTest::mouseMove(fx.Preview(), now + QPoint(50, 50));
    QTest::keyClick(fx.form.get(), Qt::Key_Escape);
    QTest::mouseRelease(fx.Preview(), Qt::LeftButton, {}, now + QPoint(50, 50));
    EXPECT_EQ(fx.Rect(k).Left(), before.Left() - 30);
    EXPECT_EQ(fx.Preview()->cursor().shape(), Qt::ArrowCursor);
}

TEST(PageForm, ResizesByEachHandle) {
    PageFormFixture fx;
    for (int16_t shape : {kShapeBox, kShapeTriangle, kShapeCircle}) {
        int16_t k = fx.FirstOfShape(shape);
        fx.Click(k);
        for (int16_t i = 1; i <= fx.state.SelectionMarks.Count(); ++i) {
            fx.Click(k);
            const RectClass before = fx.Rect(k);
            const int16_t pos = fx.state.SelectionMarks.Pos(i);
            const QPoint mark(fx.state.SelectionMarks.X(i), fx.state.SelectionMarks.Y(i));
            SCOPED_TRACE("shape " + std::to_string(shape) + " mark " + std::to_string(pos));
            // Within three pixels the pointer shows the handle's resize shape.
            fx.Hover(mark + QPoint(3, -3));
            EXPECT_EQ(fx.Preview()->DragMode(), pos);
            EXPECT_NE(fx.Preview()->cursor().shape(), Qt::ArrowCursor);
            fx.Drag(mark, mark + QPoint(-8, 8));
            // Where the handle was pulled to, but never past the page's printable area.
            RectClass pulled = DraggedRect(before, shape, pos, -8, 8), after = fx.Rect(k);
            const RectClass& m = fx.state.Rects.Margin;
            EXPECT_NEAR(after.Left(), std::max(pulled.Left(), m.Left()), 1);  // fractions round
            EXPECT_NEAR(after.Top(), std::max(pulled.Top(), m.Top()), 1);
            EXPECT_NEAR(after.Right(), std::min(pulled.Right(), m.Right()), 1);
            EXPECT_NEAR(after.Bottom(), std::min(pulled.Bottom(), m.Bottom()), 1);
        }
    }
    fx.Hover(QPoint(2, 2));
    EXPECT_EQ(fx.Preview()->DragMode(), kDragNone);
    EXPECT_EQ(fx.Preview()->cursor().shape(), Qt::ArrowCursor);
}

// Opens the editor of the row with that label in the property list.
template <class Editor = QLineEdit>
Editor* EditRow(PageFormFixture& fx, const std::string& label) {
    const auto& rows = fx.form->Properties()->Rows();
    int row = 0;
    while (row < int(rows.size()) && rows[size_t(row)].Label != label) ++row;
    auto* list = fx.Child<QTableWidget>("PropertyList");
    list->setCurrentCell(row, 1);
    list->editItem(list->item(row, 1));
    Editor* editor =
        list->findChild<Editor*>(std::is_same_v<Editor, QLineEdit> ? "txtProperty" : "cmbProperty");
    EXPECT_TRUE(editor) << label;
    return editor;
}

// Types text into the value cell of the row and presses Enter.
void TypeInto(PageFormFixture& fx, const std::string& label, const QString& text) {
    QLineEdit* edit = EditRow(fx, label);
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    test::SettleEvents();
}

TEST(PageForm, PropertyListEditsAreCheckedAndUndoable) {
    PageFormFixture fx;
    int16_t k = fx.FirstOfShape(kShapeBox);
    fx.Click(k);
    TypeInto(fx, "Anchor X", "0.125");
    EXPECT_EQ(fx.Object(k).Origin(1), 0.125f);
    auto* list = fx.Child<QTableWidget>("PropertyList");
    EXPECT_EQ(list->item(list->currentRow(), 1)->text(), "0.125");
    TypeInto(fx, "Width", "1.5");
    EXPECT_EQ(fx.messages.Last(), "Invalid Value: Width must be a number in the range 0 to 1.");
    EXPECT_NE(fx.Object(k).Length(1), 1.5f);

    // A Boolean row offers True and False in its list.
    auto* choices = EditRow<QComboBox>(fx, "Title Line");
    EXPECT_EQ(std::pair(choices->count(), choices->itemText(0)), std::pair(2, QString("True")));
    bool wasOn = fx.Object(k).TitleOn();
    choices->setCurrentIndex(wasOn ? 1 : 0);
    emit choices->activated(choices->currentIndex());
    test::SettleEvents();
    EXPECT_EQ(fx.Object(k).TitleOn(), !wasOn);

    // Each edit is its own step.
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.Object(k).TitleOn(), wasOn);
    fx.Trigger("mnuUndo");
    EXPECT_FALSE(fx.state.UpdatePageChanged());

    // The > button picks a points file by its bare name.
    EditRow(fx, "Points File 1");
    fx.dialogs.Answers = {std::string("/data/Points/Major Points.pts")};
    QTest::mouseClick(fx.Child<QPushButton>("btnMore"), Qt::LeftButton);
    EXPECT_EQ(fx.dialogs.Shown.back().Title, "Select Points File");
    EXPECT_EQ(fx.Object(k).PointsFile(1), "Major Points");

    // The description box edits the page.
    auto* desc = fx.Child<QLineEdit>("txtDesc");
    fx.Trigger("mnuEditDesc");
    desc->selectAll();
    QTest::keyClicks(desc, "Renamed");
    QTest::keyClick(desc, Qt::Key_Return);
    EXPECT_EQ(fx.state.Page->Description(), "Renamed");
}

TEST(PageForm, FileMenuAndClosingWithCancelWhichStillEnds) {
    PageFormFixture fx;
    fx.Trigger("mnuFileNew");  // unchanged: New asks nothing
    EXPECT_EQ(fx.form->windowTitle(), "Paginox - New Page");
    EXPECT_FALSE(fx.Child("mnuUndo")->isEnabled());
    fx.dialogs.Answers = {fx.page};
    fx.Trigger("mnuFileOpen");
    int16_t objects = fx.state.CurrentFormat->NumObjects();
    EXPECT_FALSE(fx.Child("mnuPopupDelete")->isEnabled());  // nothing selected
    fx.Click(1);
    fx.Trigger("mnuPopupDelete");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), objects - 1);
    fx.messages.Script({MsgAnswer::Cancel});
    fx.form->close();
    EXPECT_FALSE(fx.form->isVisible());
    EXPECT_EQ(fx.messages.shown.size(), 1u);  // the save question
    EXPECT_EQ(ReadPage(fx.page, -1, true)->GetFormat(1)->NumObjects(), objects);
}

TEST(PageForm, CommandLine) {
    {
        PageFormFixture fx("/PageSizeIndex=3 /Debug");
        EXPECT_EQ(fx.state.CurrentFormatIndex, 3);
        EXPECT_EQ(fx.form->SizeList()->currentRow(), 2);
        EXPECT_TRUE(fx.Child<QMenu>("mnuDebug")->menuAction()->isVisible());
    }
    PageFormFixture fx("\"/no/such/page.pag\"", false);
    EXPECT_EQ(fx.form->windowTitle(), "Paginox - New Page");
}

TEST(PageForm, PopupMenuAndObjectMenu) {
    PageFormFixture fx;
    QStringList shown;
    fx.form->ShowPopup = [&](QMenu& menu, const QPoint&) {
        for (QAction* a : menu.actions()) shown.push_back(a->objectName());
    };
    fx.Click(0, Qt::RightButton);
    EXPECT_TRUE(shown.empty());  // nothing under the pointer: no menu
    int16_t list = 0;
    for (int16_t k = 1; k <= fx.state.CurrentFormat->NumObjects(); ++k) {
        if (fx.Class(k).HasFlexibleListColumns()) list = k;
    }
    fx.Click(list, Qt::RightButton);
    EXPECT_EQ(fx.state.SelectedObject, list);
    EXPECT_TRUE(shown.contains("mnuPopupEditFlexible"));
    shown.clear();
    fx.Click(fx.FirstOfShape(kShapeCircle), Qt::RightButton);
    EXPECT_FALSE(shown.contains("mnuPopupEditFlexible"));
    EXPECT_EQ(shown.front(), "mnuPopupCopy");
    fx.Trigger("mnuPopupMoveToBack");  // the selection follows it to the back

    // Alignment is one undoable step.
    fx.dialogs.Choices = {2};  // right edge
    fx.Trigger("mnuPopupAlign");
    EXPECT_FLOAT_EQ(fx.Object(1).Origin(1) + fx.Object(1).Length(1), 1.0f);
    fx.Trigger("mnuUndo");
    EXPECT_LT(fx.Object(1).Origin(1) + fx.Object(1).Length(1), 0.99f);
}

TEST(InsertDialog, DescriptionPreviewAndInsertByButtonOrDoubleClick) {
    PageFormFixture fx;
    InsertDialog dialog(fx.state, ObjectClasses(), fx.form.get());
    dialog.show();
    auto* list = dialog.findChild<QListWidget*>("Objects");
    auto* desc = dialog.findChild<QLabel*>("lblDesc");
    list->setCurrentRow(0);  // a heading shows nothing and inserts nothing
    EXPECT_TRUE(desc->text().isEmpty());
    EXPECT_FALSE(dialog.InsertSelected());

    int16_t before = fx.state.CurrentFormat->NumObjects();
    list->setCurrentItem(list->findItems("    Bi-Wheel", Qt::MatchExactly).value(0));
    EXPECT_TRUE(desc->text().startsWith("Bi-Wheel\n"));
    QImage shape = dialog.findChild<QLabel*>("picPreview")->pixmap().toImage();
    EXPECT_EQ(shape.pixelColor(shape.width() / 2, shape.height() / 2 + 30), QColor(224, 224, 224));
    QTest::mouseClick(dialog.findChild<QPushButton*>("btnInsert"), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), before + 1);
}

TEST(PageForm, AboutSaysTheVersionAndTheLicence) {
    test::PageFormFixture fx;
    fx.Trigger("mnuHelpAbout");
    EXPECT_NE(fx.messages.Last().find("Paginox 0.1.0"), std::string::npos);
    EXPECT_NE(fx.messages.Last().find("GPL-3.0-or-later"), std::string::npos);
}

// File > Veltrane Installation: what was found, the folders it gives, and the choice kept in
// Paginox's own settings.
TEST(PageForm, InstallationDialogListsPrefixesAndRemembersTheChoice) {
    test::EnsureGuiApplication<QApplication>();
    test::TempDir dir;
    const std::string prefix = dir / "prefix";
    std::filesystem::create_directories(prefix + "/drive_c/windows");
    std::filesystem::create_directories(prefix + "/dosdevices");
    std::filesystem::create_symlink("../drive_c", prefix + "/dosdevices/c:");
    dir.Write("prefix/drive_c/windows/Veltrane9.ini", "[Veltrane]\r\nUserFolder=C:\\Astro\r\n");
    setenv("WINEPREFIX", prefix.c_str(), 1);
    setenv("XDG_CONFIG_HOME", (dir / "config").c_str(), 1);
    InstallationDialog dialog;
    ASSERT_GE(dialog.Found()->count(), 1);
    EXPECT_TRUE(
        dialog.Found()->item(0)->text().endsWith("WINEPREFIX: " + QString::fromStdString(prefix)));
    EXPECT_EQ(dialog.Table()->item(kPagesFolder, 1)->text(),
              QString::fromStdString(prefix + "/dosdevices/c:/Astro/Pages/"));
    dialog.UseChosen();
    EXPECT_EQ(SavedHostChoice(), prefix);
    dialog.UseSearch();
    EXPECT_EQ(SavedHostChoice(), "");
    unsetenv("WINEPREFIX");
    unsetenv("XDG_CONFIG_HOME");
}

TEST(StartUp, SecondCopyQuestion) {
    test::RecordingMessages messages;
    messages.Script({MsgAnswer::No, MsgAnswer::Yes});
    EXPECT_FALSE(ConfirmSecondCopy());
    EXPECT_TRUE(ConfirmSecondCopy());
    const std::string asked =
        "Paginox [YesNo Question]: A copy of Paginox is already running."
        "\\r\\n\\r\\nAre you sure that you want to start another copy?\n";
    EXPECT_EQ(messages.Transcript(), asked + asked);
}

}  // namespace

// Logout or shutdown (SIGTERM) with unsaved changes: a recovery copy first, as closing keeps
// one, then the end; the window's place is remembered for the next start.
TEST(PageForm, TerminationKeepsUnsavedChangesAndTheWindowsPlace) {
    test::PageFormFixture fx;
    RecoveryStore store(fx.folders.Dir() / "Recovery/");
    fx.form->SetRecovery(&store);
    fx.Object(1).SetFontSize(17);
    std::filesystem::create_directories(AppFolders().Path(kSettingsFolder));
    bool signalled = false;
    {
        TerminationSignal termination([&] { fx.form->OnTerminate(), signalled = true; });
        std::raise(SIGTERM);
        QTRY_VERIFY_WITH_TIMEOUT(signalled, 2000);
    }
    EXPECT_TRUE(std::filesystem::exists(store.CopyPath()));
    EXPECT_EQ(ReadIni("Editor Window", "WindowWidth", ""),
              std::to_string(fx.form->normalGeometry().width()));
    store.Discard();
}
