#include <gtest/gtest.h>

#include "editor/EditStep.h"
#include "editor/EditorFixture.h"
#include "editor/EditorHistory.h"
#include "editor/ObjectCommands.h"
#include "editor/UndoManager.h"

using namespace paginox;

namespace {

struct HistoryTest : ::testing::Test {
    test::EditorFixture fx;
    UndoManager properties{[this](int32_t id, const PropertyValue& v, int16_t f, int16_t o,
                                  int16_t s) { SetProperty(fx.state, id, v, f, o, s); }};
    EditorHistory history{fx.state, properties};

    void MoveSelected(float x) {
        EditStep step(fx.state, properties);
        step.Set(kPropOrigin, x, 0, 0, 1);
    }
    int16_t Count() { return fx.state.CurrentFormat->NumObjects(); }
    float X(int16_t k) { return fx.Object(k).Origin(1); }
};

TEST_F(HistoryTest, PropertyAndStructuralStepsUndoAndRedoInOneOrder) {
    fx.state.SelectedObject = 3;
    MoveSelected(0.1f);
    ASSERT_TRUE(history.Structural([&] { return DeleteObject(fx.state, 1, false); }));
    fx.state.SelectedObject = 2;  // the former third object
    MoveSelected(0.2f);
    ASSERT_TRUE(history.Structural([&] { return CopySelectedObject(fx.state); }));
    EXPECT_EQ(Count(), 3);

    ASSERT_TRUE(history.Undo());  // the copy
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(fx.state.SelectedObject, 2);
    EXPECT_FALSE(history.Undo());  // the second move
    EXPECT_FLOAT_EQ(X(2), 0.1f);
    ASSERT_TRUE(history.Undo());  // the deletion
    EXPECT_EQ(Count(), 3);
    EXPECT_FLOAT_EQ(X(3), 0.1f);
    EXPECT_FALSE(history.Undo());  // the first move
    EXPECT_FLOAT_EQ(X(3), 0.3f);
    EXPECT_FALSE(history.CanUndo());
}

TEST_F(HistoryTest, ANewStepMakesTheUndoneStepsUnavailable) {
    fx.state.SelectedObject = 1;
    MoveSelected(0.1f);
    MoveSelected(0.2f);
    history.Undo();
    EXPECT_TRUE(history.CanRedo());
    fx.state.SelectedObject = 2;
    MoveSelected(0.05f);
    EXPECT_FALSE(history.CanRedo());
    EXPECT_FALSE(history.Redo());
    EXPECT_FLOAT_EQ(X(1), 0.1f);  // the undone move stays undone
    history.Undo();
    EXPECT_FLOAT_EQ(X(2), 0.3f);
    history.Redo();
    EXPECT_FLOAT_EQ(X(2), 0.05f);
}

}  // namespace
