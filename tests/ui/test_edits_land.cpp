// SPDX-License-Identifier: GPL-3.0-or-later
// Edits land on the object they were made for, commands see what is being typed, and the
// first drag of any object moves it.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>

#include "editor/EditorState.h"
#include "persist/FileIO_Page.h"
#include "ui/PageFormFixture.h"
#include "ui/PropertyPanel.h"

using namespace paginox;

namespace {

struct EditsLand : ::testing::Test {
    test::PageFormFixture fx;
    QTableWidget* list = fx.form->Properties()->List();

    int16_t Find(const std::string& fullName) {
        for (int16_t k = 1; k <= fx.state.CurrentFormat->NumObjects(); ++k) {
            if (fx.Class(k).FullName() == fullName) return k;
        }
        ADD_FAILURE() << "no " << fullName;
        return 0;
    }
    QTableWidgetItem* Value(const char* label) {
        QList<QTableWidgetItem*> found = list->findItems(label, Qt::MatchExactly);
        return found.isEmpty() ? nullptr : list->item(found.front()->row(), 1);
    }
    // Opens the value of row label and types text, without Enter.
    void TypeInto(const char* label, const QString& text) {
        QTableWidgetItem* item = Value(label);
        ASSERT_TRUE(item) << label;
        list->setCurrentItem(item);
        list->editItem(item);
        QLineEdit* edit = nullptr;  // an editor closed before may not have gone yet
        for (auto* e : list->findChildren<QLineEdit*>("txtProperty")) {
            if (e->isVisible()) edit = e;
        }
        ASSERT_TRUE(edit);
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
};

TEST_F(EditsLand, ATypedValueStaysWithItsObjectWhateverIsClickedNext) {
    const int16_t points = Find("Point List");
    const int16_t grid = Find("Aspect Grid");
    const float gridX = fx.Object(grid).Origin(1);
    fx.Click(points);
    TypeInto("Anchor X", "0.1");
    fx.Click(grid);
    test::SettleEvents();
    EXPECT_FLOAT_EQ(fx.Object(points).Origin(1), 0.1f);
    EXPECT_FLOAT_EQ(fx.Object(grid).Origin(1), gridX);
    EXPECT_EQ(fx.state.SelectedObject, grid);

    const std::string abbreviation = fx.state.Page->ListAbbreviation();
    const float gridHeight = fx.Object(grid).Length(2);
    TypeInto("Height", "0.2");
    fx.Click(0);  // the grey around the page: the page's rows follow
    test::SettleEvents();
    EXPECT_FLOAT_EQ(fx.Object(grid).Length(2), 0.2f);
    EXPECT_NE(gridHeight, 0.2f);
    EXPECT_EQ(fx.state.Page->ListAbbreviation(), abbreviation);
    EXPECT_EQ(fx.state.SelectedObject, 0);

    // Chosen in the object selector instead of on the preview: the same.
    fx.Click(points);
    TypeInto("Anchor Y", "0.3");
    fx.form->Properties()->ObjectSelector()->setCurrentIndex(grid);
    test::SettleEvents();
    EXPECT_FLOAT_EQ(fx.Object(points).Origin(2), 0.3f);
    EXPECT_NE(fx.Object(grid).Origin(2), 0.3f);
}

TEST_F(EditsLand, CommandsStoreWhatIsBeingTypedFirst) {
    fx.Click(Find("Point List"));
    TypeInto("Anchor X", "0.15");
    fx.Trigger("mnuFileSave");
    auto saved = ReadPage(fx.page, -1, false);
    ASSERT_TRUE(saved);
    EXPECT_FLOAT_EQ(
        saved->GetFormat(fx.state.CurrentFormatIndex)->Object(Find("Point List"))->Origin(1),
        0.15f);

    auto* description = fx.form->findChild<QLineEdit*>("txtDesc");
    description->setFocus();
    description->selectAll();
    QTest::keyClicks(description, "Typed, not entered");
    fx.Trigger("mnuFileSave");
    EXPECT_EQ(ReadPage(fx.page, -1, false)->Description(), "Typed, not entered");
    EXPECT_EQ(description->text(), "Typed, not entered");

    // Closing sees an edit still open, and asks.
    fx.Click(Find("Point List"));
    TypeInto("Anchor X", "0.25");
    fx.messages.Script({MsgAnswer::Cancel});
    fx.form->close();
    ASSERT_FALSE(fx.messages.shown.empty());
    EXPECT_EQ(fx.messages.shown.back().title, "Save Changes?");
}

TEST_F(EditsLand, UndoShowsThePageSizeWhereTheStepWasMade) {
    fx.form->SizeList()->setCurrentRow(1);
    test::SettleEvents();
    const int16_t grid = Find("Aspect Grid");
    const float x = fx.Object(grid).Origin(1);
    fx.Click(grid);
    TypeInto("Anchor X", "0.05");
    fx.form->SizeList()->setCurrentRow(0);
    test::SettleEvents();
    ASSERT_EQ(fx.state.CurrentFormatIndex, 1);
    fx.Trigger("mnuUndo");
    EXPECT_EQ(fx.state.CurrentFormatIndex, 2);
    EXPECT_EQ(fx.form->SizeList()->currentRow(), 1);
    EXPECT_EQ(fx.state.SelectedObject, grid);
    EXPECT_FLOAT_EQ(fx.Object(grid).Origin(1), x);
    fx.Trigger("mnuRedo");
    EXPECT_FLOAT_EQ(fx.Object(grid).Origin(1), 0.05f);
}

TEST_F(EditsLand, TheFirstDragOfTheTopObjectMovesIt) {
    const int16_t last = fx.state.CurrentFormat->NumObjects();
    fx.Click(2);
    const float x = fx.Object(last).Origin(1);
    const QPoint from = fx.Inside(last);
    fx.Drag(from, from + QPoint(-30, 0));
    EXPECT_EQ(fx.state.SelectedObject, last);
    EXPECT_LT(fx.Object(last).Origin(1), x);
}

TEST_F(EditsLand, AChoiceOutsideItsListSurvivesALookAtTheList) {
    const int16_t points = Find("Point List");
    fx.Object(points).SetFrameType(3);  // as a file may hold it
    fx.Click(points);
    QTableWidgetItem* item = Value("Frame Type");
    ASSERT_TRUE(item);
    EXPECT_EQ(item->text(), "3");
    list->setCurrentItem(item);
    list->editItem(item);
    auto* combo = list->findChild<QComboBox*>("cmbProperty");
    ASSERT_TRUE(combo);
    EXPECT_EQ(combo->currentText(), "3");
    combo->hidePopup();
    fx.Click(Find("Aspect Grid"));  // the list closes as the focus leaves it
    test::SettleEvents();
    EXPECT_EQ(fx.Object(points).FrameType(), 3);
}

}  // namespace
