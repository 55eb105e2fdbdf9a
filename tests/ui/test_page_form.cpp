#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>

#include "editor/Manipulation.h"
#include "persist/FileIO_Page.h"
#include "ui/InsertDialog.h"
#include "ui/PageFormFixture.h"
#include "ui/PropertyPanel.h"
#include "ui/StartUp.h"

using namespace paginox;

namespace {

using test::PageFormFixture;

TEST(PageForm, OpensThePageAndSelectsByClicking) {
    PageFormFixture fx;
    EXPECT_EQ(fx.form->windowTitle().toStdString(), "Paginox - /tm.../birth chart.pag");
    EXPECT_EQ(fx.form->SizeList()->count(), fx.state.Page->NumFormats());
    const int16_t objects = fx.state.CurrentFormat->NumObjects();
    EXPECT_EQ(fx.Child<QLabel>("lblNumObjects")->text(), QString::number(objects));
    ASSERT_EQ(fx.state.Rects.ObjectCount(), objects);
    auto* selector = fx.Child<QComboBox>("cmbObjects");
    for (int16_t k = 1; k <= objects; ++k) {
        fx.Click(k);
        EXPECT_EQ(fx.state.SelectedObject, k);
        EXPECT_EQ(selector->currentIndex(), k);
        EXPECT_EQ(fx.form->Properties()->Rows().front().Label, "Anchor X");
        // Marks are on the selected object, drawn in the preview's light grey.
        const SelectionMarkSet& marks = fx.state.SelectionMarks;
        ASSERT_GE(marks.Count(), 3);
        EXPECT_EQ(fx.Preview()->PagePixmap().toImage().pixelColor(marks.X(1), marks.Y(1)),
                  QColor(192, 192, 192));
    }
    // A click on the grey around the page clears the selection; the page's rows come back.
    fx.Click(0);
    EXPECT_EQ(fx.state.SelectedObject, 0);
    EXPECT_EQ(fx.Preview()->DragMode(), kDragNone);
    EXPECT_EQ(selector->currentIndex(), 0);
    EXPECT_EQ(fx.form->Properties()->Rows().front().Label, "List Abbrev");
}

TEST(PageForm, DragMovesUndoAndRedo) {
    PageFormFixture fx;
    int16_t k = fx.FirstOfShape(kShapeBox);
    ASSERT_GT(k, 0);
    const RectClass before = fx.Rect(k);
    const float origin1 = fx.Object(k).Origin(1);
    fx.Drag(fx.Inside(k), fx.Inside(k) + QPoint(-30, 20));
    EXPECT_FLOAT_EQ(fx.Object(k).Origin(2), fx.state.Rects.Margin.PropY(before.Top() + 20.0f));
    EXPECT_EQ(fx.Rect(k).Left(), before.Left() - 30);  // drawn where it was dropped
    EXPECT_TRUE(fx.state.UpdatePageChanged());
    fx.Drag(fx.Inside(k), fx.Inside(k) + QPoint(1, -1));  // a click: nothing moves
    EXPECT_EQ(fx.Rect(k).Left(), before.Left() - 30);

    EXPECT_TRUE(fx.Child("mnuUndo")->isEnabled() && !fx.Child("mnuRedo")->isEnabled());
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.Object(k).Origin(1), origin1);
    EXPECT_TRUE(!fx.Child("mnuUndo")->isEnabled() && fx.Child("mnuRedo")->isEnabled());
    EXPECT_FALSE(fx.state.UpdatePageChanged());
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
        ASSERT_GT(k, 0) << shape;
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
            // Outwards: left and top handles pull left and up.
            const bool left = pos == kHandleLeft || pos == kHandleTriangleLeft;
            const bool up = pos == kHandleTop || pos == kHandleSlant;
            const bool right = pos == kHandleRight || pos == kHandleSlant;
            QPoint out(left ? -12 : right ? 6 : 0, up ? -6 : pos == kHandleBottom ? 12 : 0);
            fx.Drag(mark, mark + out);
            // Where the handle was pulled to, but never past the page's printable area.
            RectClass pulled = DraggedRect(before, shape, pos, out.x(), out.y());
            const RectClass& m = fx.state.Rects.Margin;
            const int l = std::max(pulled.Left(), m.Left()), t = std::max(pulled.Top(), m.Top());
            const int r = std::min(pulled.Right(), m.Right());
            const int b = std::min(pulled.Bottom(), m.Bottom());
            const RectClass& after = fx.Rect(k);
            EXPECT_NEAR(after.Left(), l, 1);
            EXPECT_NEAR(after.Top(), t, 1);
            EXPECT_NEAR(after.Right(), r, 1);
            EXPECT_NEAR(after.Bottom(), b, 1);
            EXPECT_GT(after.Width() + after.Height(), before.Width() + before.Height());
        }
        fx.Hover(QPoint(2, 2));
        EXPECT_EQ(fx.Preview()->DragMode(), kDragNone);
        EXPECT_EQ(fx.Preview()->cursor().shape(), Qt::ArrowCursor);
    }
}

// Opens the editor of the row with that label in the property list.
template <class Editor = QLineEdit>
Editor* EditRow(PageFormFixture& fx, const std::string& label) {
    const auto& rows = fx.form->Properties()->Rows();
    int row = 0;
    while (row < int(rows.size()) && rows[size_t(row)].Label != label) ++row;
    EXPECT_LT(row, int(rows.size())) << label;
    auto* list = fx.Child<QTableWidget>("PropertyList");
    list->setCurrentCell(row, 1);
    list->editItem(list->item(row, 1));
    return list->findChild<Editor*>(std::is_same_v<Editor, QLineEdit> ? "txtProperty"
                                                                      : "cmbProperty");
}

// Types text into the value cell of the row and presses Enter.
void TypeInto(PageFormFixture& fx, const std::string& label, const QString& text) {
    QLineEdit* edit = EditRow(fx, label);
    ASSERT_TRUE(edit) << label;
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    test::SettleEvents();
}

TEST(PageForm, PropertyListEditsAreCheckedAndUndoable) {
    PageFormFixture fx;
    int16_t k = fx.FirstOfShape(kShapeBox);
    fx.Click(k);
    ASSERT_EQ(fx.state.SelectedObject, k);
    TypeInto(fx, "Anchor X", "0.125");
    EXPECT_EQ(fx.Object(k).Origin(1), 0.125f);
    auto* list = fx.Child<QTableWidget>("PropertyList");
    EXPECT_EQ(list->item(list->currentRow(), 1)->text(), "0.125");
    EXPECT_EQ(fx.Child<QLabel>("lblPropHelp")->text().toStdString(),
              "Anchor position from left of page relative to page width. Must be in range 0 to 1.");
    TypeInto(fx, "Width", "1.5");
    EXPECT_EQ(fx.messages.Last(), "Invalid Value: Width must be a number in the range 0 to 1.");
    EXPECT_NE(fx.Object(k).Length(1), 1.5f);

    // A Boolean row offers True and False in its list.
    auto* choices = EditRow<QComboBox>(fx, "Title Line");
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
    ASSERT_TRUE(fx.Class(k).OCUFlag(kOCUPointsFile));
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

TEST(PageForm, SavePromptAndClosing) {
    PageFormFixture fx;
    fx.Trigger("mnuFileNew");  // unchanged: New asks nothing
    EXPECT_TRUE(fx.messages.shown.empty());
    EXPECT_EQ(fx.form->windowTitle(), "Paginox - New Page");
    EXPECT_FALSE(fx.Child("mnuUndo")->isEnabled());

    fx.dialogs.Answers = {fx.page};
    fx.Trigger("mnuFileOpen");
    EXPECT_EQ(fx.dialogs.Shown.back().Title, "Open Page Layout File");
    int16_t objects = fx.state.CurrentFormat->NumObjects();
    EXPECT_FALSE(fx.Child("mnuPopupDelete")->isEnabled());  // nothing selected
    fx.Click(1);
    fx.Trigger("mnuPopupDelete");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), objects - 1);
    fx.messages.Script({MsgAnswer::Cancel});  // changed: Cancel keeps the page
    fx.Trigger("mnuFileNew");
    EXPECT_EQ(fx.messages.shown.size(), 1u);
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
    fx.Click(1);
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
        EXPECT_TRUE(fx.Child<QMenu>("mnuDebug")->menuAction()->isVisible());
        fx.dialogs.Answers = {fx.page};  // reopening does not use the switch again
        fx.Trigger("mnuFileOpen");
        EXPECT_NE(fx.state.CurrentFormatIndex, 3);
    }
    {
        PageFormFixture fx("/PageSizeIndex=9");  // beyond the page's formats: ignored
        EXPECT_NE(fx.state.CurrentFormatIndex, 9);
        EXPECT_FALSE(fx.Child<QMenu>("mnuDebug")->menuAction()->isVisible());
    }
    PageFormFixture fx("\"/no/such/page.pag\"", false);
    EXPECT_EQ(fx.form->windowTitle(), "Paginox - New Page");
    EXPECT_EQ(fx.state.Page->NumFormats(), 1);
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
    ASSERT_GT(list, 0);
    fx.Click(list, Qt::RightButton);
    EXPECT_EQ(fx.state.SelectedObject, list);
    EXPECT_TRUE(shown.contains("mnuPopupEditFlexible"));
    shown.clear();
    fx.Click(fx.FirstOfShape(kShapeCircle), Qt::RightButton);
    EXPECT_FALSE(shown.contains("mnuPopupEditFlexible"));
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
    emit fx.Child<QMenu>("mnuPage")->aboutToShow();
    EXPECT_TRUE(fx.Child("mnuPageDelSize")->isEnabled());
    fx.messages.Script({MsgAnswer::Ok});
    fx.Trigger("mnuPageDelSize");
    EXPECT_EQ(fx.messages.shown.back().title, "Confirm Deletion");
    EXPECT_EQ(fx.state.Page->NumFormats(), 3);
    EXPECT_EQ(fx.state.CurrentFormatIndex, 1);
    EXPECT_EQ(fx.form->SizeList()->count(), 3);
}

TEST(InsertDialog, GroupedListDescriptionPreviewAndInsert) {
    PageFormFixture fx;
    InsertDialog dialog(fx.state, ObjectClasses(), fx.form.get());
    dialog.show();
    auto* list = dialog.findChild<QListWidget*>("Objects");
    auto* desc = dialog.findChild<QLabel*>("lblDesc");
    auto* preview = dialog.findChild<QLabel*>("picPreview");
    ASSERT_TRUE(list && desc && preview);
    EXPECT_EQ(list->item(1)->text(), "    Single Chart Wheel");
    list->setCurrentRow(0);  // a heading shows nothing and inserts nothing
    EXPECT_EQ(list->currentItem()->text(), "Wheels:-");
    EXPECT_TRUE(desc->text().isEmpty());
    EXPECT_FALSE(dialog.InsertSelected());

    int16_t before = fx.state.CurrentFormat->NumObjects();
    list->setCurrentItem(list->findItems("    Bi-Wheel", Qt::MatchExactly).value(0));
    EXPECT_TRUE(desc->text().startsWith("Bi-Wheel\n"));
    QImage shape = preview->pixmap().toImage();
    ASSERT_FALSE(shape.isNull());
    EXPECT_EQ(shape.pixelColor(shape.width() / 2, shape.height() / 2 + 30), QColor(224, 224, 224));
    QTest::mouseClick(dialog.findChild<QPushButton*>("btnInsert"), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(fx.state.SelectedObject, before + 1);
    EXPECT_EQ(fx.state.Rects.ObjectCount(), before + 1);

    // A double-click inserts as well.
    InsertDialog again(fx.state, ObjectClasses(), fx.form.get());
    again.show();
    auto* list2 = again.findChild<QListWidget*>("Objects");
    list2->setCurrentRow(1);
    QPoint row = list2->visualItemRect(list2->item(1)).center();
    QTest::mouseClick(list2->viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(list2->viewport(), Qt::LeftButton, {}, row);
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), before + 2);
}

TEST(StartUp, SecondCopyQuestion) {
    test::RecordingMessages messages;
    messages.Script({MsgAnswer::No, MsgAnswer::Yes});
    EXPECT_FALSE(ConfirmSecondCopy());
    EXPECT_TRUE(ConfirmSecondCopy());
    EXPECT_EQ(messages.Last(),
              "Paginox: A copy of Paginox is already running.\r\n\r\nAre you sure that you want "
              "to start another copy?");
    EXPECT_EQ(messages.shown[0].buttons, MsgButtons::YesNo);
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::Question);
}

}  // namespace
