// SPDX-License-Identifier: GPL-3.0-or-later
// The window as a desktop editor: zoom with exact hit-tests, keys on the selection, files
// dropped, recent and exported, and the help window.

#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTextBrowser>
#include <QUrl>
#include <cmath>

#include "persist/BinaryFile.h"
#include "persist/Folders.h"
#include "support/Golden.h"
#include "ui/PageFormFixture.h"

using namespace paginox;

namespace {

QString Readout(test::PageFormFixture& fx, const char* name) {
    return fx.form->findChild<QLabel*>(name)->text();
}

// Format pixels of object k's top-left corner, as the selection readout shows them.
QString Corner(test::PageFormFixture& fx) {
    return Readout(fx, "lblSelection").section(" at ", 1).section(" px", 0, 0);
}

}  // namespace

TEST(View, ZoomKeepsHitTestsAndDragsExact) {
    test::PageFormFixture fx;
    QScrollArea* scroll = fx.form->PreviewScroller();
    const double fit = fx.form->ShownZoom();
    fx.Trigger("mnuViewActual");
    EXPECT_NEAR(fx.form->ShownZoom(), 1.0, 0.01);
    EXPECT_EQ(Readout(fx, "lblZoom"), "100%");
    for (const char* step : {"mnuViewZoomIn", "mnuViewZoomIn", "mnuViewZoomOut"}) fx.Trigger(step);
    EXPECT_NEAR(fx.form->ShownZoom(), 1.25, 0.01);
    EXPECT_TRUE(scroll->horizontalScrollBar()->maximum() > 0);

    // Scrolled to the aspect grid, a click there selects it, and a drag of 25 screen pixels
    // (Alt held: unsnapped) moves it by 20 format pixels.
    int16_t grid = fx.FirstOfShape(kShapeTriangle);
    scroll->ensureVisible(fx.Inside(grid).x(), fx.Inside(grid).y(), 80, 80);
    test::SettleEvents();
    fx.Click(grid);
    ASSERT_EQ(fx.state.SelectedObject, grid);
    QString before = Corner(fx);
    fx.Drag(fx.Inside(grid), fx.Inside(grid) + QPoint(25, 0), Qt::AltModifier);
    EXPECT_EQ(Corner(fx).section(", ", 0, 0).toInt() - before.section(", ", 0, 0).toInt(), 20);

    // Ctrl+wheel zooms about the pointer: the page point under it stays put.
    QPoint at = fx.Inside(grid);
    QPoint inView = fx.Preview()->mapTo(scroll->viewport(), at);
    const RectClass page = fx.state.Rects.Page;
    double u = double(at.x() - page.Left()) / page.Width();
    QWheelEvent wheel(at, fx.Preview()->mapToGlobal(at), {}, {0, 120}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(fx.Preview(), &wheel);
    EXPECT_NEAR(fx.form->ShownZoom(), 1.5, 0.01);
    QPoint now = fx.Preview()->mapFrom(scroll->viewport(), inView);
    EXPECT_NEAR(double(now.x() - fx.state.Rects.Page.Left()) / fx.state.Rects.Page.Width(), u,
                2.0 / fx.state.Rects.Page.Width());

    // Dragging with the middle button pans the view by as much as the pointer moved.
    QScrollBar* across = scroll->horizontalScrollBar();
    across->setValue(across->maximum() / 2);
    const int panned = across->value();
    QTest::mousePress(fx.Preview(), Qt::MiddleButton, {}, at);
    QTest::mouseMove(fx.Preview(), at - QPoint(30, 0));
    QTest::mouseRelease(fx.Preview(), Qt::MiddleButton, {}, at - QPoint(30, 0));
    EXPECT_EQ(across->value(), panned + 30);

    fx.Trigger("mnuViewFit");
    EXPECT_NEAR(fx.form->ShownZoom(), fit, 0.001);
    EXPECT_EQ(scroll->horizontalScrollBar()->maximum(), 0);
    fx.form->SizeList()->setCurrentRow(3);  // the printer size: a smaller figure fits
    test::SettleEvents();
    EXPECT_LT(fx.form->ShownZoom(), fit / 2);
    EXPECT_EQ(Readout(fx, "lblZoom"),
              QString("Fit (%1%)").arg(std::lround(fx.form->ShownZoom() * 100)));
}

TEST(View, ArrowRunsAreOneUndoStepAndTabStepsThroughObjects) {
    test::PageFormFixture fx;
    fx.Preview()->setFocus();
    QTest::keyClick(fx.Preview(), Qt::Key_Tab);
    EXPECT_EQ(fx.state.SelectedObject, 1);
    QTest::keyClick(fx.Preview(), Qt::Key_Backtab);
    EXPECT_EQ(fx.state.SelectedObject, fx.state.CurrentFormat->NumObjects());
    QTest::keyClick(fx.Preview(), Qt::Key_Tab);
    EXPECT_EQ(fx.state.SelectedObject, 1);

    QString start = Corner(fx);
    const float origin[2] = {fx.Object(1).Origin(1), fx.Object(1).Origin(2)};
    for (int i = 0; i < 3; ++i) QTest::keyClick(fx.Preview(), Qt::Key_Right);
    QTest::keyClick(fx.Preview(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Corner(fx).section(", ", 0, 0).toInt(), start.section(", ", 0, 0).toInt() + 3);
    EXPECT_EQ(Corner(fx).section(", ", 1).toInt(), start.section(", ", 1).toInt() + 10);
    // The run is still open: Undo is offered and takes all four presses back at once.
    EXPECT_TRUE(fx.Child("mnuUndo")->isEnabled());
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.Object(1).Origin(1), origin[0]);
    EXPECT_EQ(fx.Object(1).Origin(2), origin[1]);
    EXPECT_FALSE(fx.Child("mnuUndo")->isEnabled());
}

TEST(View, DroppedAndRecentPagesOpenAfterTheSaveQuestion) {
    test::PageFormFixture fx;
    std::filesystem::create_directories(AppFolders().Path(kSettingsFolder));  // recent pages
    std::string other = fx.folders.Dir().Write("Other.pag", test::ReadAll(fx.page));
    fx.state.Page->SetDescription("changed");
    fx.messages.Script({MsgAnswer::No});
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(other))});
    QDragEnterEvent enter({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(fx.form.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(fx.form.get(), &drop);
    test::SettleEvents();
    EXPECT_EQ(fx.messages.Transcript(),
              "Save Changes? [YesNoCancel Exclamation]: Changes have been made. Do you wish to "
              "save these changes?\n");
    EXPECT_EQ(fx.state.CurrentFile, other);

    // Open Recent lists it; gone by the time it is chosen, it is said and dropped.
    QMenu* recent = fx.Child<QMenu>("mnuFileRecent");
    emit recent->aboutToShow();
    ASSERT_EQ(recent->actions().value(0)->text(), "&1 Other");
    std::filesystem::remove(other);
    recent->actions()[0]->trigger();
    EXPECT_EQ(fx.messages.Last(), "Open Recent: " + other +
                                      " is no longer there, so it has been taken off Open Recent.");
    emit recent->aboutToShow();
    EXPECT_EQ(recent->actions().value(0)->text(), "No recent pages");
    // Gone before the menu opens, it is left out with a note.
    std::string third = fx.folders.Dir().Write("Third.pag", test::ReadAll(fx.page));
    fx.dialogs.Answers = {third};
    fx.Trigger("mnuFileOpen");
    std::filesystem::remove(third);
    emit recent->aboutToShow();
    EXPECT_EQ(fx.form->statusBar()->currentMessage(),
              "No longer there, so left out of Open Recent: Third.pag");
}

TEST(View, ExportWritesTheFormatAtItsOwnSizeAndHelpShowsTheGuide) {
    test::PageFormFixture fx;
    std::string png = fx.folders.Dir() / "page.png";
    std::string pdf = fx.folders.Dir() / "page.pdf";
    fx.dialogs.Answers = {png, pdf};
    fx.Trigger("mnuFileExport");
    EXPECT_EQ(QImage(QString::fromStdString(png)).size(),
              QSize(fx.state.CurrentFormat->XPixels(), fx.state.CurrentFormat->YPixels()));
    fx.Trigger("mnuFileExport");
    EXPECT_EQ(test::ReadAll(pdf).substr(0, 5), "%PDF-");
    EXPECT_EQ(fx.form->statusBar()->currentMessage(), "Exported to " + QString::fromStdString(pdf));

    fx.Trigger("mnuHelpContents");
    ASSERT_TRUE(fx.form->Help());
    EXPECT_TRUE(fx.form->Help()->isVisible());
    EXPECT_TRUE(fx.form->Help()->Browser()->toPlainText().contains("Page Browser"));
    EXPECT_TRUE(fx.messages.shown.empty());
}

TEST(View, UnderADarkPaletteTheChromeFollowsAndThePageStaysWhite) {
    const QPalette saved = QApplication::palette();
    QPalette dark;
    for (auto [role, colour] : {std::pair{QPalette::Window, QColor(45, 45, 48)},
                                {QPalette::Base, QColor(30, 30, 30)},
                                {QPalette::Button, QColor(60, 60, 64)},
                                {QPalette::WindowText, QColor(230, 230, 230)},
                                {QPalette::Text, QColor(230, 230, 230)},
                                {QPalette::ButtonText, QColor(230, 230, 230)}}) {
        dark.setColor(role, colour);
    }
    QApplication::setPalette(dark);
    {
        test::PageFormFixture fx;
        QImage window = fx.form->grab().toImage();
        const double ratio = window.devicePixelRatio();
        auto at = [&](QPoint p) { return window.pixelColor((QPointF(p) * ratio).toPoint()); };
        EXPECT_EQ(at({fx.form->width() - 3, fx.form->height() / 2}), QColor(45, 45, 48));
        const RectClass& page = fx.state.Rects.Page;
        EXPECT_EQ(at(fx.Preview()->mapTo(fx.form.get(), QPoint(page.Left() + 2, page.Top() + 2))),
                  QColor(Qt::white));
    }
    QApplication::setPalette(saved);
}
