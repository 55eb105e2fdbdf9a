#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>

#include "editor/EditorFixture.h"
#include "editor/Manipulation.h"
#include "persist/FileIO_Page.h"
#include "ui/InsertDialog.h"
#include "ui/PageFormFixture.h"
#include "ui/PropertyPanel.h"
#include "ui/StartUp.h"

namespace paginox {
namespace {

using test::PageFormFixture;

TEST(PageForm, OpensThePageAndSelectsByClicking) {
    PageFormFixture fx;
    EXPECT_EQ(fx.form->windowTitle().toStdString(), "Paginox - /tm.../birth chart.pag");
    EXPECT_EQ(fx.state.Page->NumFormats(), 4);
    ASSERT_GE(fx.state.CurrentFormatIndex, 1);
    EXPECT_EQ(fx.form->SizeList()->count(), 4);
    EXPECT_EQ(fx.form->findChild<QLabel*>("lblNumObjects")->text(),
              QString::number(fx.state.CurrentFormat->NumObjects()));
    ASSERT_EQ(fx.state.Rects.ObjectCount(), fx.state.CurrentFormat->NumObjects());

    auto* selector = fx.form->findChild<QComboBox*>("cmbObjects");
    for (int16_t k = 1; k <= fx.state.CurrentFormat->NumObjects(); ++k) {
        QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, fx.Inside(k));
        EXPECT_EQ(fx.state.SelectedObject, k);
        EXPECT_EQ(selector->currentIndex(), k);
        EXPECT_EQ(fx.form->Properties()->Rows().front().Label, "Anchor X");
        // Marks are on the selected object, each drawn in the preview's light grey.
        ASSERT_GE(fx.state.SelectionMarks.Count(), 3);
        QImage shown = fx.Preview()->PagePixmap().toImage();
        EXPECT_EQ(shown.pixelColor(fx.state.SelectionMarks.X(1), fx.state.SelectionMarks.Y(1)),
                  QColor(192, 192, 192));
        EXPECT_EQ(fx.state.SelectionMarks.Count(), fx.Class(k).Shape() == kShapeTriangle ? 3 : 4);
    }
    // A click on the grey around the page clears the selection; the page's rows come back.
    QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(fx.state.SelectedObject, 0);
    EXPECT_EQ(fx.Preview()->DragMode(), kDragNone);
    EXPECT_EQ(selector->currentIndex(), 0);
    EXPECT_EQ(fx.form->Properties()->Rows().front().Label, "List Abbrev");
}

TEST(PageForm, DragMovesUndoAndRedo) {
    PageFormFixture fx;
    int16_t k = fx.FirstOfShape(kShapeBox);
    ASSERT_GT(k, 0);
    RectClass before = fx.Rect(k);
    float origin1 = fx.Object(k).Origin(1);
    float origin2 = fx.Object(k).Origin(2);
    QPoint from = fx.Inside(k);
    fx.Drag(from, from + QPoint(-30, 20));
    const RectClass& margin = fx.state.Rects.Margin;
    EXPECT_FLOAT_EQ(fx.Object(k).Origin(1), margin.PropX(float(before.Left() - 30)));
    EXPECT_FLOAT_EQ(fx.Object(k).Origin(2), margin.PropY(float(before.Top() + 20)));
    EXPECT_EQ(fx.Rect(k).Left(), before.Left() - 30);  // drawn where it was dropped
    EXPECT_TRUE(fx.state.UpdatePageChanged());

    // A press and release a pixel apart is a click: nothing moves.
    QPoint now = fx.Inside(k);
    fx.Drag(now, now + QPoint(1, -1));
    EXPECT_EQ(fx.Rect(k).Left(), before.Left() - 30);

    auto* undo = fx.form->findChild<QAction*>("mnuUndo");
    auto* redo = fx.form->findChild<QAction*>("mnuRedo");
    EXPECT_TRUE(undo->isEnabled());
    EXPECT_FALSE(redo->isEnabled());
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.Object(k).Origin(1), origin1);
    EXPECT_EQ(fx.Object(k).Origin(2), origin2);
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_TRUE(redo->isEnabled());
    EXPECT_FALSE(fx.state.UpdatePageChanged());
    fx.Trigger("mnuRedo");
    EXPECT_EQ(fx.Rect(k).Left(), before.Left() - 30);

    // Escape abandons a drag under way.
    now = fx.Inside(k);
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
        ASSERT_GT(k, 0) << shape;
        QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, fx.Inside(k));
        ASSERT_EQ(fx.state.SelectedObject, k);
        int16_t marks = fx.state.SelectionMarks.Count();
        for (int16_t i = 1; i <= marks; ++i) {
            QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, fx.Inside(k));
            RectClass before = fx.Rect(k);
            int16_t pos = fx.state.SelectionMarks.Pos(i);
            QPoint mark(fx.state.SelectionMarks.X(i), fx.state.SelectionMarks.Y(i));
            // Within three pixels the pointer shows the handle's resize shape.
            fx.Hover(mark + QPoint(3, -3));
            EXPECT_EQ(fx.Preview()->DragMode(), pos);
            EXPECT_NE(fx.Preview()->cursor().shape(), Qt::ArrowCursor);
            // Outwards by 12 pixels: left and top handles pull left and up.
            QPoint out(pos == kHandleLeft || pos == kHandleTriangleLeft ? -12
                       : pos == kHandleRight || pos == kHandleSlant     ? 6
                                                                        : 0,
                       pos == kHandleTop || pos == kHandleSlant ? -6
                       : pos == kHandleBottom                   ? 12
                                                                : 0);
            fx.Drag(mark, mark + out);
            RectClass expected = DraggedRect(before, shape, pos, out.x(), out.y());
            const RectClass& after = fx.Rect(k);
            SCOPED_TRACE("shape " + std::to_string(shape) + " mark " + std::to_string(pos));
            EXPECT_NEAR(after.Left(), expected.Left(), 1);
            EXPECT_NEAR(after.Top(), expected.Top(), 1);
            EXPECT_NEAR(after.Width(), expected.Width(), 1);
            EXPECT_NEAR(after.Height(), expected.Height(), 1);
            EXPECT_GT(after.Width() + after.Height(), before.Width() + before.Height());
        }
        fx.Hover(QPoint(2, 2));
        EXPECT_EQ(fx.Preview()->DragMode(), kDragNone);
        EXPECT_EQ(fx.Preview()->cursor().shape(), Qt::ArrowCursor);
    }
}

// The row of the list with that label, as its index.
int RowOf(PageFormFixture& fx, const std::string& label) {
    const auto& rows = fx.form->Properties()->Rows();
    for (size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].Label == label) return static_cast<int>(i);
    }
    ADD_FAILURE() << "no row " << label;
    return 0;
}

// Types text into the value cell of the row and presses Enter.
void TypeInto(PageFormFixture& fx, const std::string& label, const QString& text) {
    QTableWidget* list = fx.form->findChild<QTableWidget*>("PropertyList");
    int row = RowOf(fx, label);
    list->setCurrentCell(row, 1);
    list->editItem(list->item(row, 1));
    auto* edit = list->findChild<QLineEdit*>("txtProperty");
    ASSERT_TRUE(edit) << label;
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    test::SettleEvents();
}

TEST(PageForm, PropertyListEditsAreCheckedAndUndoable) {
    PageFormFixture fx;
    int16_t k = fx.FirstOfShape(kShapeBox);
    QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, fx.Inside(k));
    ASSERT_EQ(fx.state.SelectedObject, k);
    QTableWidget* list = fx.form->findChild<QTableWidget*>("PropertyList");
    auto* help = fx.form->findChild<QLabel*>("lblPropHelp");

    TypeInto(fx, "Anchor X", "0.125");
    EXPECT_EQ(fx.Object(k).Origin(1), 0.125f);
    EXPECT_EQ(list->item(RowOf(fx, "Anchor X"), 1)->text(), "0.125");
    EXPECT_EQ(help->text().toStdString(),
              "Anchor position from left of page relative to page width. Must be in range 0 to 1.");

    TypeInto(fx, "Width", "1.5");
    EXPECT_EQ(fx.messages.shown.back().text, "Width must be a number in the range 0 to 1.");
    EXPECT_EQ(fx.messages.shown.back().title, "Invalid Value");
    EXPECT_NE(fx.Object(k).Length(1), 1.5f);

    // A Boolean row offers True and False in its list.
    int titleRow = RowOf(fx, "Title Line");
    list->setCurrentCell(titleRow, 1);
    list->editItem(list->item(titleRow, 1));
    auto* choices = list->findChild<QComboBox*>("cmbProperty");
    ASSERT_TRUE(choices);
    EXPECT_EQ(choices->count(), 2);
    EXPECT_EQ(choices->itemText(0), "True");
    bool wasOn = fx.Object(k).TitleOn();
    choices->setCurrentIndex(wasOn ? 1 : 0);
    emit choices->activated(choices->currentIndex());
    test::SettleEvents();
    EXPECT_EQ(fx.Object(k).TitleOn(), !wasOn);

    // Each edit is its own step.
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.Object(k).TitleOn(), wasOn);
    fx.Trigger("mnuUndo");
    EXPECT_NE(fx.Object(k).Origin(1), 0.125f);
    EXPECT_FALSE(fx.state.UpdatePageChanged());

    // The > button picks a points file by its bare name.
    if (fx.Class(k).OCUFlag(kOCUPointsFile)) {
        list->setCurrentCell(RowOf(fx, "Points File 1"), 1);
        fx.dialogs.Answers = {std::string("/data/Points/Major Points.pts")};
        QTest::mouseClick(fx.form->findChild<QPushButton*>("btnMore"), Qt::LeftButton);
        EXPECT_EQ(fx.dialogs.Shown.back().Title, "Select Points File");
        EXPECT_EQ(fx.Object(k).PointsFile(1), "Major Points");
    }

    // The page's own rows when nothing is selected; the description box edits the page.
    QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, QPoint(3, 3));
    TypeInto(fx, "MarginLeft", "0.5");
    EXPECT_EQ(fx.messages.shown.back().text, "MarginLeft must be a number in the range 0 to 0.4.");
    auto* desc = fx.form->findChild<QLineEdit*>("txtDesc");
    fx.Trigger("mnuEditDesc");
    desc->selectAll();
    QTest::keyClicks(desc, "Renamed");
    QTest::keyClick(desc, Qt::Key_Return);
    EXPECT_EQ(fx.state.Page->Description(), "Renamed");
}

TEST(PageForm, SavePromptAndClosing) {
    PageFormFixture fx;
    // Unchanged: New asks nothing.
    fx.Trigger("mnuFileNew");
    EXPECT_TRUE(fx.messages.shown.empty());
    EXPECT_EQ(fx.form->windowTitle(), "Paginox - New Page");
    EXPECT_FALSE(fx.form->findChild<QAction*>("mnuUndo")->isEnabled());

    // Changed: Cancel keeps the page, No drops it.
    fx.dialogs.Answers = {fx.page};
    fx.Trigger("mnuFileOpen");
    EXPECT_EQ(fx.dialogs.Shown.back().Title, "Open Page Layout File");
    int16_t objects = fx.state.CurrentFormat->NumObjects();
    // Delete needs a selection: without one the command is off.
    EXPECT_FALSE(fx.form->findChild<QAction*>("mnuPopupDelete")->isEnabled());
    QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, fx.Inside(1));
    fx.Trigger("mnuPopupDelete");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), objects - 1);
    fx.messages.Script({MsgAnswer::Cancel});
    fx.Trigger("mnuFileNew");
    ASSERT_EQ(fx.messages.shown.size(), 1u);
    EXPECT_EQ(fx.messages.shown.back().title, "Save Changes?");
    EXPECT_EQ(fx.state.CurrentFile, fx.page);

    // Closing: Yes saves, and the file reads back as the page was.
    fx.messages.Script({MsgAnswer::Yes});
    fx.form->close();
    auto saved = ReadPage(fx.page, -1, true);
    ASSERT_TRUE(saved);
    EXPECT_TRUE(saved->IsEqual(fx.state.Page.get()));
    EXPECT_EQ(saved->GetFormat(fx.state.CurrentFormatIndex)->NumObjects(), objects - 1);
}

TEST(PageForm, ClosingWithCancelStillEndsWithoutSaving) {
    PageFormFixture fx;
    QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, fx.Inside(1));
    fx.Trigger("mnuPopupCopy");
    auto before = ReadPage(fx.page, -1, true);
    fx.messages.Script({MsgAnswer::Cancel});
    fx.form->close();
    EXPECT_FALSE(fx.form->isVisible());
    EXPECT_EQ(fx.messages.shown.size(), 1u);
    EXPECT_TRUE(ReadPage(fx.page, -1, true)->IsEqual(before.get()));
}

TEST(PageForm, CommandLine) {
    {
        PageFormFixture fx("/PageSizeIndex=3 /Debug");
        EXPECT_EQ(fx.state.CurrentFormatIndex, 3);
        EXPECT_EQ(fx.form->SizeList()->currentRow(), 2);
        EXPECT_TRUE(fx.form->findChild<QMenu*>("mnuDebug")->menuAction()->isVisible());
        // Reopening does not use the switch again.
        fx.dialogs.Answers = {fx.page};
        fx.Trigger("mnuFileOpen");
        EXPECT_NE(fx.state.CurrentFormatIndex, 3);
    }
    {
        PageFormFixture fx("/PageSizeIndex=9");  // beyond the page's formats: ignored
        EXPECT_NE(fx.state.CurrentFormatIndex, 9);
        EXPECT_FALSE(fx.form->findChild<QMenu*>("mnuDebug")->menuAction()->isVisible());
    }
    {
        PageFormFixture fx("\"/no/such/page.pag\"", false);
        EXPECT_EQ(fx.form->windowTitle(), "Paginox - New Page");
        EXPECT_TRUE(fx.state.CurrentFile.empty() || fx.state.CurrentFile == "/no/such/page.pag");
        EXPECT_EQ(fx.state.Page->NumFormats(), 1);
    }
}

TEST(PageForm, PopupMenuAndObjectMenu) {
    PageFormFixture fx;
    std::vector<QString> shown;
    fx.form->ShowPopup = [&](QMenu& menu, const QPoint&) {
        for (QAction* a : menu.actions()) shown.push_back(a->objectName());
    };
    QTest::mouseClick(fx.Preview(), Qt::RightButton, {}, QPoint(3, 3));
    EXPECT_TRUE(shown.empty());  // nothing under the pointer: no menu
    EXPECT_EQ(fx.state.SelectedObject, 0);

    int16_t list = 0;
    for (int16_t k = 1; k <= fx.state.CurrentFormat->NumObjects(); ++k) {
        if (fx.Class(k).HasFlexibleListColumns()) list = k;
    }
    ASSERT_GT(list, 0);
    QTest::mouseClick(fx.Preview(), Qt::RightButton, {}, fx.Inside(list));
    EXPECT_EQ(fx.state.SelectedObject, list);
    EXPECT_NE(std::find(shown.begin(), shown.end(), "mnuPopupEditFlexible"), shown.end());
    shown.clear();
    int16_t wheel = fx.FirstOfShape(kShapeCircle);
    QTest::mouseClick(fx.Preview(), Qt::RightButton, {}, fx.Inside(wheel));
    EXPECT_EQ(std::find(shown.begin(), shown.end(), "mnuPopupEditFlexible"), shown.end());
    EXPECT_EQ(shown.front(), "mnuPopupCopy");

    // Front and back: the selection follows the object.
    int16_t count = fx.state.CurrentFormat->NumObjects();
    fx.Trigger("mnuPopupMoveToFront");
    EXPECT_EQ(fx.state.SelectedObject, count);
    EXPECT_EQ(fx.Class(count).Shape(), kShapeCircle);
    fx.Trigger("mnuPopupMoveToBack");
    EXPECT_EQ(fx.state.SelectedObject, 1);

    // Alignment is one undoable step.
    fx.dialogs.Choices = {2};  // right edge
    fx.Trigger("mnuPopupAlign");
    EXPECT_FLOAT_EQ(fx.Object(1).Origin(1) + fx.Object(1).Length(1), 1.0f);
    fx.Trigger("mnuUndo");
    EXPECT_LT(fx.Object(1).Origin(1) + fx.Object(1).Length(1), 0.99f);

    // Deleting a size: only with two or more, after confirmation.
    auto* del = fx.form->findChild<QAction*>("mnuPageDelSize");
    emit fx.form->findChild<QMenu*>("mnuPage")->aboutToShow();
    EXPECT_TRUE(del->isEnabled());
    fx.messages.Script({MsgAnswer::Ok});
    fx.Trigger("mnuPageDelSize");
    EXPECT_EQ(fx.messages.shown.back().title, "Confirm Deletion");
    EXPECT_EQ(fx.state.Page->NumFormats(), 3);
    EXPECT_EQ(fx.state.CurrentFormatIndex, 1);
    EXPECT_EQ(fx.form->SizeList()->count(), 3);
}

}  // namespace
}  // namespace paginox

namespace paginox {
namespace {

TEST(InsertDialog, GroupedListDescriptionPreviewAndInsert) {
    test::PageFormFixture fx;
    InsertDialog dialog(fx.state, ObjectClasses(), fx.form.get());
    dialog.show();
    QListWidget* list = dialog.findChild<QListWidget*>("Objects");
    auto* desc = dialog.findChild<QLabel*>("lblDesc");
    auto* preview = dialog.findChild<QLabel*>("picPreview");
    ASSERT_TRUE(list && desc && preview);
    EXPECT_EQ(list->item(0)->text(), "Wheels:-");
    EXPECT_EQ(list->item(1)->text(), "    Single Chart Wheel");
    EXPECT_TRUE(list->findItems("Blank Space", Qt::MatchContains).isEmpty());  // no group

    // A heading shows nothing and inserts nothing.
    list->setCurrentRow(0);
    EXPECT_TRUE(desc->text().isEmpty());
    EXPECT_FALSE(dialog.InsertSelected());

    int16_t before = fx.state.CurrentFormat->NumObjects();
    ASSERT_EQ(fx.state.Page->NumCharts(), 1);
    QListWidgetItem* biWheel = list->findItems("    Bi-Wheel", Qt::MatchExactly).value(0);
    ASSERT_TRUE(biWheel);
    list->setCurrentItem(biWheel);
    EXPECT_TRUE(desc->text().startsWith("Bi-Wheel\n"));
    QImage shape = preview->pixmap().toImage();
    ASSERT_FALSE(shape.isNull());
    EXPECT_EQ(shape.pixelColor(shape.width() / 2, shape.height() / 2 + 30), QColor(224, 224, 224));

    QTest::mouseClick(dialog.findChild<QPushButton*>("btnInsert"), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), before + 1);
    EXPECT_EQ(fx.state.SelectedObject, before + 1);
    EXPECT_EQ(fx.state.Page->NumCharts(), 2);  // raised for the two-chart wheel
    EXPECT_EQ(fx.state.Rects.ObjectCount(), before + 1);

    // A double-click inserts as well.
    InsertDialog again(fx.state, ObjectClasses(), fx.form.get());
    again.show();
    QListWidget* list2 = again.findChild<QListWidget*>("Objects");
    list2->setCurrentRow(1);
    QRect row = list2->visualItemRect(list2->item(1));
    QTest::mouseClick(list2->viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(list2->viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), before + 2);
}

TEST(StartUp, SecondCopyQuestion) {
    test::RecordingMessages messages;
    messages.Script({MsgAnswer::No, MsgAnswer::Yes});
    EXPECT_FALSE(ConfirmSecondCopy());
    EXPECT_TRUE(ConfirmSecondCopy());
    EXPECT_EQ(messages.shown[0].text,
              "A copy of Paginox is already running.\r\n\r\nAre you sure that you want to start "
              "another copy?");
    EXPECT_EQ(messages.shown[0].buttons, MsgButtons::YesNo);
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::Question);
}

}  // namespace
}  // namespace paginox
