// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/EditStep.h"
#include "editor/EditorFixture.h"
#include "editor/UndoManager.h"

using namespace paginox;

namespace {

using Calls = std::vector<std::string>;

// Records what the history hands back, as "id:value@indices", and the menus' last state.
struct Recorder {
    Calls calls;
    std::string menus = "none";
    UndoManager Manager() {
        return UndoManager(
            [this](int32_t id, const PropertyValue& v, int16_t a, int16_t b, int16_t c) {
                calls.push_back(std::to_string(id) + ":" + PropertyText(v) + "@" +
                                std::to_string(a) + std::to_string(b) + std::to_string(c));
            },
            [this](bool u, bool r) { menus = std::string(u ? "undo" : "") + (r ? "redo" : ""); });
    }
};

void Step(UndoManager& m, int32_t id, int oldValue, int newValue) {
    m.BeginRestoreBlock();
    m.AddRestoreObject(id, oldValue, newValue, 1, 2, 3);
    m.EndRestoreBlock();
}

TEST(UndoManager, EmptyBlocksAndTheOrderOfChanges) {
    Recorder rec;
    UndoManager m = rec.Manager();
    EXPECT_FALSE(m.CanUndo() || m.CanRedo());
    EXPECT_EQ(std::tuple(m.UndoCapacity(), m.RedoCapacity()), std::tuple(20, 10));
    m.BeginRestoreBlock();
    EXPECT_TRUE(m.InRestoreBlock());
    m.EndRestoreBlock();  // nothing in it: no trace, no menu update
    EXPECT_FALSE(m.InRestoreBlock());
    EXPECT_EQ(std::tuple(m.UndoCount(), rec.menus), std::tuple(0, std::string("none")));

    m.BeginRestoreBlock();
    for (int id : {13, 14, 17}) m.AddRestoreObject(id, id - 12, id - 11, 1, 2, 3);
    m.EndRestoreBlock();
    EXPECT_EQ(rec.menus, "undo");
    m.Undo();
    EXPECT_EQ(rec.calls, (Calls{"17:5@123", "14:2@123", "13:1@123"}));
    EXPECT_EQ(rec.menus, "redo");
    rec.calls.clear();
    m.Redo();
    EXPECT_EQ(rec.calls, (Calls{"13:2@123", "14:3@123", "17:6@123"}));
    EXPECT_FALSE(m.InUndo() || m.InRedo());

    // A block opened over another drops the first.
    m.BeginRestoreBlock();
    m.AddRestoreObject(1, 0, 1, 0, 0, 0);
    m.BeginRestoreBlock();
    m.EndRestoreBlock();
    EXPECT_EQ(m.UndoCount(), 1);
    m.Clear();
    EXPECT_FALSE(m.CanUndo() || m.CanRedo());
    EXPECT_EQ(rec.menus, "");
}

TEST(UndoManager, StacksGrowByTenAndKeepEverything) {
    Recorder rec;
    UndoManager m = rec.Manager();
    for (int i = 1; i <= 21; ++i) Step(m, 13, i - 1, i);
    EXPECT_EQ(std::tuple(m.UndoCount(), m.UndoCapacity()), std::tuple(21, 30));
    for (int i = 0; i < 11; ++i) m.Undo();
    // Grown when the count reached 10.
    EXPECT_EQ(std::tuple(m.RedoCount(), m.RedoCapacity()), std::tuple(11, 20));
    while (m.CanUndo()) m.Undo();
    // The very first step is still there.
    EXPECT_EQ(rec.calls.front() + " " + rec.calls.back(), "13:20@123 13:0@123");
}

TEST(UndoManager, ANewStepKeepsWhatCanBeRedone) {
    Recorder rec;
    UndoManager m = rec.Manager();
    Step(m, 13, 0, 1);
    m.Undo();
    Step(m, 14, 5, 6);
    rec.calls.clear();
    ASSERT_TRUE(m.CanRedo());
    m.Redo();
    EXPECT_EQ(rec.calls, Calls{"13:1@123"});
    EXPECT_EQ(m.UndoCount(), 2);
    EXPECT_EQ(test::ErrorOf([&] { m.AddRestoreObject(1, 0, 1, 0, 0, 0); }), kObjectNotSet);
}

}  // namespace
