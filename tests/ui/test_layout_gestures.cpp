// SPDX-License-Identifier: GPL-3.0-or-later
// Laying out several objects in the real window: Shift and Ctrl clicks, the band, Select All,
// moving them together, snapping with its guide, the grid, the Arrange menu, the clipboard and
// one layout on every page size.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>

#include "PageFormFixture.h"
#include "editor/ObjectClipboard.h"
#include "model/PageObjectClasses.h"
#include "persist/Folders.h"

using namespace paginox;
using test::PageFormFixture;

namespace {

QString Readout(PageFormFixture& fx) {
    return fx.Child<QLabel>("lblSelection")->text();
}

void ShiftClick(PageFormFixture& fx, int16_t k, Qt::KeyboardModifier key = Qt::ShiftModifier) {
    QTest::mouseClick(fx.Preview(), Qt::LeftButton, key, fx.Inside(k));
    QApplication::processEvents();
}

// Chooses objects a and b, a first.
void ChooseTwo(PageFormFixture& fx, int16_t a, int16_t b) {
    fx.Click(a);
    ShiftClick(fx, b);
    ASSERT_EQ(fx.state.SelectedObjects().size(), 2u);
}

// How many pixels of the preview, as shown now, have the colour.
int PixelsOf(PageFormFixture& fx, QColor colour) {
    QImage shown = fx.Preview()->grab().toImage();
    int count = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) count += shown.pixelColor(x, y) == colour;
    }
    return count;
}

TEST(LayoutGestures, ShiftCtrlBandAndSelectAllChooseSeveral) {
    PageFormFixture fx;
    const int16_t count = fx.state.CurrentFormat->NumObjects();
    fx.Click(2);
    ShiftClick(fx, 4);
    ShiftClick(fx, 1, Qt::ControlModifier);
    EXPECT_EQ(fx.state.SelectedObjects(), (std::vector<int16_t>{1, 2, 4}));
    EXPECT_EQ(fx.state.SelectedObject, 2);  // the property list keeps the first
    EXPECT_TRUE(Readout(fx).startsWith("3 objects selected at "));
    EXPECT_EQ(fx.Child("mnuPopupDelete")->text(), "&Delete Objects");
    // The others are framed in the lighter colour.
    EXPECT_GT(PixelsOf(fx, QColor(70, 130, 230)), 100);
    ShiftClick(fx, 4);  // out again
    EXPECT_EQ(fx.state.SelectedObjects(), (std::vector<int16_t>{1, 2}));
    // A plain click on one of them chooses it alone.
    fx.Click(1);
    EXPECT_EQ(fx.state.SelectedObjects(), (std::vector<int16_t>{1}));

    // A band from the page's top-left corner over the first object chooses what it touches.
    const RectClass& margin = fx.state.Rects.Margin;
    QPoint corner(margin.Left() + 1, margin.Top() + 1);
    fx.Drag(corner, fx.Inside(1));
    std::vector<int16_t> touched = fx.state.SelectedObjects();
    ASSERT_FALSE(touched.empty());
    EXPECT_EQ(touched.front(), 1);
    fx.Trigger("mnuEditSelectAll");
    EXPECT_EQ(fx.state.SelectedObjects().size(), size_t(count));
    // A click on the grey chooses nothing.
    fx.Click(0);
    EXPECT_TRUE(fx.state.SelectedObjects().empty());
}

TEST(LayoutGestures, TheChosenMoveDeleteAndUndoTogether) {
    PageFormFixture fx;
    ChooseTwo(fx, 2, 4);
    const float x2 = fx.Object(2).Origin(1), x4 = fx.Object(4).Origin(1);
    const RectClass r2 = fx.Rect(2), r4 = fx.Rect(4);
    fx.Drag(fx.Inside(4), fx.Inside(4) + QPoint(-12, -9), Qt::AltModifier);
    EXPECT_EQ(fx.Rect(2).Left(), r2.Left() - 12);
    EXPECT_EQ(fx.Rect(4).Left(), r4.Left() - 12);
    EXPECT_EQ(fx.Rect(4).Top(), r4.Top() - 9);
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.Object(2).Origin(1), x2);  // both back in one step
    EXPECT_EQ(fx.Object(4).Origin(1), x4);
    EXPECT_EQ(fx.state.SelectedObjects(), (std::vector<int16_t>{2, 4}));

    // Another button during a drag lets go of it: nothing moves, no menu.
    bool popup = false;
    fx.form->ShowPopup = [&](QMenu&, const QPoint&) { popup = true; };
    QTest::mousePress(fx.Preview(), Qt::LeftButton, {}, fx.Inside(4));
    fx.MoveHeld(fx.Inside(4) + QPoint(30, 0), {});
    QTest::mousePress(fx.Preview(), Qt::RightButton, {}, fx.Inside(4) + QPoint(30, 0));
    EXPECT_FALSE(fx.Preview()->MouseIsDown());
    QTest::mouseRelease(fx.Preview(), Qt::LeftButton, {}, fx.Inside(4) + QPoint(30, 0));
    EXPECT_FALSE(popup);
    EXPECT_EQ(fx.Object(4).Origin(1), x4);

    const int16_t count = fx.state.CurrentFormat->NumObjects();
    fx.Trigger("mnuPopupDelete");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), count - 2);
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), count);
}

TEST(LayoutGestures, ADragSnapsWithAGuideAndAltLetsGo) {
    PageFormFixture fx;
    // The chart data's right edge dragged to 3 pixels short of the wheel's.
    fx.Click(4);
    const int shortOf = fx.Rect(1).Right() - fx.Rect(4).Right() - 3;
    ASSERT_GT(shortOf, 10);
    QPoint from = fx.Inside(4);
    QPoint to = from + QPoint(shortOf, 0);
    QTest::mousePress(fx.Preview(), Qt::LeftButton, {}, from);
    fx.MoveHeld((from + to) / 2, {});
    fx.MoveHeld(to, {});
    EXPECT_GT(PixelsOf(fx, QColor(220, 0, 150)), 50);  // the guide
    // Alt pressed without moving lets go of the snap at once; let go, it snaps again.
    QTest::keyPress(fx.Preview(), Qt::Key_Alt, Qt::AltModifier);
    EXPECT_EQ(PixelsOf(fx, QColor(220, 0, 150)), 0);
    QTest::keyRelease(fx.Preview(), Qt::Key_Alt, Qt::NoModifier);
    EXPECT_GT(PixelsOf(fx, QColor(220, 0, 150)), 50);
    QTest::mouseRelease(fx.Preview(), Qt::LeftButton, {}, to);
    QApplication::processEvents();
    auto rightEdge = [&](int16_t k) { return fx.Object(k).Origin(1) + fx.Object(k).Length(1); };
    EXPECT_FLOAT_EQ(rightEdge(4), rightEdge(1));
    EXPECT_EQ(PixelsOf(fx, QColor(220, 0, 150)), 0);  // gone with the drag

    fx.Trigger("mnuUndo");
    fx.Drag(from, to, Qt::AltModifier);
    EXPECT_GT(std::fabs(rightEdge(4) - rightEdge(1)), 0.001f);
    // View > Snap to Objects off: no snapping without Alt either.
    fx.Trigger("mnuUndo");
    fx.Trigger("mnuViewSnapObjects");
    fx.Drag(from, to);
    EXPECT_GT(std::fabs(rightEdge(4) - rightEdge(1)), 0.001f);
}

TEST(LayoutGestures, TheGridIsShownSnappedToAndRemembered) {
    PageFormFixture fx;
    std::filesystem::create_directories(AppFolders().Path(kSettingsFolder));
    const int before = PixelsOf(fx, QColor(200, 208, 230));
    fx.Trigger("mnuViewGrid");
    EXPECT_TRUE(fx.Child("mnuViewGrid")->isChecked());
    EXPECT_GT(PixelsOf(fx, QColor(200, 208, 230)), before + 200);
    fx.Trigger("mnuViewSnapGrid");
    fx.Preview()->Snapping().Objects = false;  // the grid alone decides
    EXPECT_EQ(ReadIni("Editor Grid", "Snap", ""), "True");
    fx.Click(4);
    fx.Drag(fx.Inside(4), fx.Inside(4) + QPoint(17, 23));
    const PageFormat& format = *fx.state.CurrentFormat;
    for (int16_t axis = 1; axis <= 2; ++axis) {
        double lines = fx.Object(4).Origin(axis) * format.PrintablePixels(axis) /
                       fx.Preview()->Snapping().GridSpacing;
        EXPECT_NEAR(lines, std::round(lines), 1e-3) << axis;
    }
    fx.dialogs.Choices = {50};
    fx.Trigger("mnuViewGridSpacing");
    EXPECT_EQ(fx.Preview()->Snapping().GridSpacing, 50);
    // A new window starts with the grid as it was left.
    PageForm again(fx.state, fx.dialogs);
    EXPECT_TRUE(again.findChild<QAction*>("mnuViewGrid")->isChecked());
    EXPECT_TRUE(again.Preview()->Snapping().ToGrid);
    EXPECT_EQ(again.Preview()->Snapping().GridSpacing, 50);
}

TEST(LayoutGestures, ArrangeCommandsAreOneStepAndOfferedWhenTheyApply) {
    PageFormFixture fx;
    std::vector<QString> shown;
    fx.form->ShowPopup = [&](QMenu& menu, const QPoint&) {
        for (QAction* a : menu.actions()) shown.push_back(a->objectName());
    };
    ChooseTwo(fx, 2, 4);           // the point list's left edge is not the chart data's
    fx.Click(4, Qt::RightButton);  // the menu of a chosen object keeps the choice, led by it
    EXPECT_EQ(fx.state.SelectedObjects().size(), 2u);
    EXPECT_EQ(fx.state.SelectedObject, 4);
    EXPECT_NE(std::find(shown.begin(), shown.end(), "mnuEditCopy"), shown.end());
    EXPECT_NE(std::find(shown.begin(), shown.end(), "mnuArrange"), shown.end());
    EXPECT_TRUE(fx.Child("mnuAlignLeft")->isEnabled());
    EXPECT_TRUE(fx.Child("mnuSameWidth")->isEnabled());
    EXPECT_FALSE(fx.Child("mnuDistributeAcross")->isEnabled());  // two have one gap

    auto rightEdge = [&](int16_t k) { return fx.Object(k).Origin(1) + fx.Object(k).Length(1); };
    fx.Trigger("mnuAlignRight");
    EXPECT_FLOAT_EQ(rightEdge(4), rightEdge(2));
    fx.Trigger("mnuSameSize");
    EXPECT_EQ(fx.Object(4).Length(1), fx.Object(2).Length(1));
    EXPECT_EQ(fx.Object(4).Length(2), fx.Object(2).Length(2));
    EXPECT_LE(fx.Object(2).Origin(2) + fx.Object(2).Length(2), 1.0f);  // still on the page
    fx.Trigger("mnuUndo");
    fx.Trigger("mnuUndo");
    EXPECT_GT(std::fabs(rightEdge(4) - rightEdge(2)), 0.1f);
}

TEST(LayoutGestures, ObjectsGoThroughTheClipboardToAnotherPageSize) {
    PageFormFixture fx;
    ChooseTwo(fx, 2, 3);
    fx.Trigger("mnuEditCopy");
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    ASSERT_TRUE(data && data->hasFormat(kObjectsMimeType));
    EXPECT_TRUE(data->text().contains("\"NumObjects\": 2"));
    const PageObject copied = *fx.state.CurrentFormat->Object(3);

    // On the next page size, in front and chosen, at the same fractions.
    QListWidget* sizes = fx.form->SizeList();
    sizes->setCurrentRow(sizes->currentRow() == 0 ? 1 : 0);
    QApplication::processEvents();
    const int16_t count = fx.state.CurrentFormat->NumObjects();
    ASSERT_TRUE(fx.Child("mnuEditPaste")->isEnabled());
    fx.Trigger("mnuEditPaste");
    ASSERT_EQ(fx.state.CurrentFormat->NumObjects(), count + 2);
    EXPECT_TRUE(fx.state.CurrentFormat->Object(count + 2)->IsEqual(copied));
    EXPECT_EQ(fx.state.SelectedObjects().size(), 2u);
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), count);

    // Cut takes them away; damaged clipboard data and a class not here are refused.
    fx.Trigger("mnuEditSelectAll");
    fx.Trigger("mnuEditCut");
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), 0);
    auto* damaged = new QMimeData;
    damaged->setData(kObjectsMimeType, "PaginoxObjects1\n\x01");
    QGuiApplication::clipboard()->setMimeData(damaged);
    fx.Trigger("mnuEditPaste");
    EXPECT_NE(fx.messages.Last().find("cannot be read"), std::string::npos);
    CopiedObjects alien = CopySelectedObjects(fx.state);  // nothing chosen now
    EXPECT_TRUE(alien.Bytes.empty());
    fx.Trigger("mnuUndo");  // the cut objects back
    fx.Click(1);
    fx.Object(1).SetObjectClassID(999);
    fx.Trigger("mnuEditCopy");
    fx.Trigger("mnuEditPaste");
    EXPECT_NE(fx.messages.Last().find("class 999"), std::string::npos);
}

TEST(LayoutGestures, OneLayoutOnEveryPageSizeAfterAPreview) {
    PageFormFixture fx;
    const int16_t formats = fx.state.Page->NumFormats();
    ASSERT_GE(formats, 3);
    const int16_t here = fx.state.CurrentFormatIndex;
    fx.Click(1);
    auto objectsOn = [&](int16_t k) { return fx.state.Page->GetFormat(k)->NumObjects(); };
    const int16_t other = here == 1 ? 2 : 1;
    const int16_t before = objectsOn(other);

    fx.dialogs.ApproveLayouts = false;  // shown, then cancelled: nothing changes
    fx.Trigger("mnuCopyToAllSizes");
    EXPECT_EQ(fx.dialogs.LayoutShown.size(), size_t(formats - 1));
    EXPECT_FALSE(fx.dialogs.LayoutShown[0].After.isNull());
    EXPECT_NE(fx.dialogs.LayoutShown[0].Before, fx.dialogs.LayoutShown[0].After);
    EXPECT_EQ(objectsOn(other), before);

    fx.dialogs.ApproveLayouts = true;
    fx.Trigger("mnuCopyToAllSizes");
    EXPECT_EQ(objectsOn(other), before + 1);
    EXPECT_TRUE(fx.state.Page->GetFormat(other)->Object(before + 1)->IsEqual(fx.Object(1)));
    fx.Trigger("mnuUndo");  // every page size in one step
    EXPECT_EQ(objectsOn(other), before);

    // Copy Layout From: the page size chosen first in the list gives this one its objects.
    fx.dialogs.Choices = {0};
    fx.Trigger("mnuPageCopyLayout");
    ASSERT_EQ(fx.dialogs.LayoutShown.size(), 1u);
    const PageFormat& source = *fx.state.Page->GetFormat(other);
    ASSERT_EQ(fx.state.CurrentFormat->NumObjects(), source.NumObjects());
    for (int16_t k = 1; k <= source.NumObjects(); ++k) {
        EXPECT_TRUE(fx.state.CurrentFormat->Object(k)->IsEqual(*source.Object(k))) << k;
    }
}

}  // namespace
