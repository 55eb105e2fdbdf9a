#include <gtest/gtest.h>

#include <QComboBox>
#include <QStatusBar>
#include <QTableWidget>

#include "editor/Manipulation.h"
#include "ui/PageFormFixture.h"
#include "ui/PreviewWidget.h"

using namespace paginox;

namespace {

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

TEST(Editing, DragsStopAtThePageEdge) {
    test::PageFormFixture fx;
    int16_t k = fx.FirstOfShape(kShapeBox);
    fx.Click(k);
    QPoint from = fx.Inside(k);
    fx.Drag(from, from + QPoint(-2000, -2000));
    EXPECT_EQ(fx.Object(k).Origin(1), 0.0f);
    EXPECT_EQ(fx.Object(k).Origin(2), 0.0f);
    fx.Drag(fx.Inside(k), fx.Inside(k) + QPoint(4000, 4000));
    EXPECT_FLOAT_EQ(fx.Object(k).Origin(1) + fx.Object(k).Length(1), 1.0f);
    EXPECT_FLOAT_EQ(fx.Object(k).Origin(2) + fx.Object(k).Length(2), 1.0f);
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

}  // namespace
