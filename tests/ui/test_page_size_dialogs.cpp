// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <functional>

#include "ui/PageFormFixture.h"
#include "ui/PointListDialog.h"
#include "ui/UserInputSimple.h"

namespace paginox {
namespace {

using test::PageFormFixture;

// Runs act on the next modal dialog once it is up; a dialog act leaves open is cancelled, so
// a failing test never hangs.
void OnNextDialog(std::function<void(QDialog&)> act) {
    QTimer::singleShot(0, [act] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        act(*dialog);
        if (dialog->isVisible()) dialog->reject();
    });
}

template <class T>
T* Child(QDialog& d, const char* name) {
    T* w = d.findChild<T*>(name);
    EXPECT_TRUE(w) << name;
    return w;
}

TEST(SetupDialog, AddsASizeOrShowsTheEqualOne) {
    PageFormFixture fx;
    OnNextDialog([](QDialog& d) {
        EXPECT_TRUE(Child<QRadioButton>(d, "optShape2")->isChecked());  // 929 x 749 shown
        Child<QRadioButton>(d, "optShape12")->click();
        for (auto [box, text] : {std::pair{"txtPixels0", "700"}, {"txtPixels1", "500"}}) {
            EXPECT_TRUE(Child<QLineEdit>(d, box)->isEnabled());
            Child<QLineEdit>(d, box)->clear();
            QTest::keyClicks(Child<QLineEdit>(d, box), text);
        }
        Child<QPushButton>(d, "btnOK")->click();
    });
    fx.form->SizeList()->setCurrentRow(1);
    fx.Trigger("mnuPageAddSize");
    ASSERT_EQ(fx.state.Page->NumFormats(), 5);
    EXPECT_EQ(std::tuple(fx.state.CurrentFormatIndex, fx.form->SizeList()->currentRow()),
              std::tuple(5, 4));
    EXPECT_EQ(fx.form->SizeList()->item(4)->text(), "User\t(700x500)");
    EXPECT_TRUE(fx.state.PageChanged);

    // A size the page has: its row is shown instead.
    OnNextDialog([](QDialog& d) {
        Child<QRadioButton>(d, "optShape1")->click();
        EXPECT_FALSE(Child<QLineEdit>(d, "txtPixels0")->isEnabled());
        Child<QPushButton>(d, "btnOK")->click();
    });
    fx.Trigger("mnuPageAddSize");
    EXPECT_EQ(std::tuple(fx.state.Page->NumFormats(), fx.state.CurrentFormatIndex),
              std::tuple(5, 1));
}

TEST(PageForm, DeletingFormatOneOfTwoShowsTheOtherAndDisablesDelete) {
    PageFormFixture fx;
    fx.state.Page->DeleteFormat(4);
    fx.state.Page->DeleteFormat(3);
    fx.form->InitFormatList();
    fx.form->SizeList()->setCurrentRow(0);
    std::shared_ptr<PageFormat> second = fx.state.Page->GetFormat(2);
    fx.messages.Script({MsgAnswer::Ok});
    fx.Trigger("mnuPageDelSize");
    EXPECT_EQ(std::tuple(fx.state.Page->NumFormats(), fx.form->SizeList()->count()),
              std::tuple(1, 1));
    EXPECT_EQ(fx.state.CurrentFormat, second);
    emit fx.form->findChild<QMenu*>("mnuPage")->aboutToShow();
    EXPECT_FALSE(fx.form->findChild<QAction*>("mnuPageDelSize")->isEnabled());
}

TEST(PointListDialog, AppliesAsOneUndoStepAndOpensReadOnlyWithoutATable) {
    PageFormFixture fx;
    ReadPointListDefs(std::string(PAGINOX_SAMPLE_DIR) + "/System/plist.dfn");
    int16_t list = 2;  // the point list, columns 1 2 4
    QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, fx.Inside(list));
    OnNextDialog([](QDialog& d) {
        auto* chosen = Child<QListWidget>(d, "lstChosen");
        chosen->setCurrentRow(0);
        QTest::keyClick(chosen, Qt::Key_Delete);
        QTest::keyClick(chosen, Qt::Key_Down, Qt::ControlModifier);
        Child<QPushButton>(d, "btnOK")->click();
    });
    fx.Trigger("mnuPopupEditFlexible");
    PageObject& obj = fx.Object(list);
    auto columns = [&] {
        return std::tuple(obj.PL_Columns(1), obj.PL_Columns(2), obj.PL_Columns(3));
    };
    EXPECT_EQ(columns(), std::tuple(4, 2, 0));
    fx.Trigger("mnuUndo");  // one step
    EXPECT_EQ(columns(), std::tuple(1, 2, 4));

    Definitions().PointList.Entries.clear();
    OnNextDialog([](QDialog& d) {
        EXPECT_TRUE(Child<QLabel>(d, "lblNoTable"));
        EXPECT_FALSE(Child<QPushButton>(d, "btnOK")->isEnabled());
        EXPECT_EQ(Child<QListWidget>(d, "lstChosen")->item(0)->text(), "Column 1");
    });
    fx.Trigger("mnuPopupEditFlexible");
}

TEST(UserInputSimple, EnterAcceptsEscapeRestoresThenCancels) {
    test::EnsureGuiApplication<QApplication>();
    using Keys = std::function<void(UserInputSimple&, QLineEdit&)>;
    std::pair<Keys, bool> cases[] = {
        {[](auto&, QLineEdit& t) {
             QTest::keyClicks(&t, "Mine");
             QTest::keyClick(&t, Qt::Key_Return);
         },
         true},
        {[](UserInputSimple& d, QLineEdit& t) {  // the first Escape restores, the second cancels
             QTest::keyClicks(&t, "x");
             QTest::keyClick(&t, Qt::Key_Escape);
             EXPECT_EQ(t.text().toStdString(), "New Page");
             EXPECT_TRUE(d.isVisible());
             QTest::keyClick(&t, Qt::Key_Escape);
         },
         false},
    };
    for (const auto& [keys, accepted] : cases) {
        UserInputSimple dialog;
        QTimer::singleShot(0, [&] {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            // The proposal comes up wholly selected, so typing replaces it.
            EXPECT_EQ(dialog.TextBox()->selectedText().toStdString(), "New Page");
            keys(dialog, *dialog.TextBox());
            if (dialog.isVisible()) dialog.done(QDialog::Accepted);
        });
        QString value = "New Page";
        EXPECT_EQ(dialog.Run("Enter the new page name", value), accepted);
        EXPECT_EQ(value.toStdString(), accepted ? "Mine" : "New Page");
    }
}

}  // namespace
}  // namespace paginox
