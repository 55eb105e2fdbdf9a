// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "editor/EditorFixture.h"
#include "editor/InsertList.h"
#include "editor/ObjectCommands.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"

using namespace paginox;

namespace {

TEST(InsertList, GroupedInOrderWithHeadings) {
    test::ScopedModelState model;
    for (auto [name, group, order] : {std::tuple{"Wheel B", "Wheels", 2},
                                      {"List", "Lists", 1},
                                      {"Wheel A", "Wheels", 1},  // same Order as List: after it
                                      {"Hidden", "", 0},         // no group: never listed
                                      {"Grid", "Lists", 3}}) {
        auto c = model.AddClass();
        c->SetFullName(name), c->SetGroup(group), c->SetOrder(int16_t(order));
    }
    std::string rows;
    for (const InsertRow& r : BuildInsertList(ObjectClasses())) {
        rows += std::to_string(r.Tag) + " " + r.Text + "|";
    }
    // Lists splits around the Wheels and gets a second heading.
    EXPECT_EQ(rows,
              "0 Lists:-|2     List|0 Wheels:-|3     Wheel A|1     Wheel B|0 Lists:-|5     Grid|");
}

TEST(InsertList, InsertingRaisesThePageChartCount) {
    test::EditorFixture fx;
    fx.state.Page->SetNumCharts(1);
    InsertObject(fx.state, ObjectClasses(), fx.wheel->ClassID());  // a two-chart wheel
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), 4);
    EXPECT_EQ(fx.state.SelectedObject, 4);
    EXPECT_EQ(fx.state.Rects.ObjectCount(), 4);
    EXPECT_EQ(fx.state.Page->NumCharts(), 2);
    InsertObject(fx.state, ObjectClasses(), fx.box->ClassID());  // never lowered
    EXPECT_EQ(fx.state.Page->NumCharts(), 2);
    EXPECT_EQ(InsertDescription(ObjectClasses(), fx.box->ClassID()), "Point List\r\n");
}

TEST(ObjectCommands, CopyDeleteAndOrder) {
    test::EditorFixture fx;
    test::RecordingMessages messages;
    EXPECT_FALSE(CopySelectedObject(fx.state));
    fx.state.SelectedObject = 2;
    ASSERT_TRUE(CopySelectedObject(fx.state));
    EXPECT_EQ(fx.state.SelectedObject, 4);
    EXPECT_EQ(fx.Object(4).Origin(1) + fx.Object(4).Origin(2), 0.0f);
    EXPECT_EQ(fx.Object(4).ObjectClassID(), fx.wheel->ClassID());

    EXPECT_FALSE(DeleteObject(fx.state, 5, false));
    messages.Script({MsgAnswer::Cancel});
    EXPECT_FALSE(DeleteObject(fx.state, 4, true));
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), 4);
    EXPECT_EQ(messages.Transcript(), test::GoldenText("editor/messages.txt", "deleting"));

    // With both wheels gone the page needs one chart only.
    ASSERT_TRUE(DeleteObject(fx.state, 4, false));
    ASSERT_TRUE(DeleteObject(fx.state, 2, false));
    EXPECT_EQ(fx.state.SelectedObject, 0);
    EXPECT_EQ(fx.state.Page->NumCharts(), 1);

    fx.state.SelectedObject = 1;
    ASSERT_TRUE(MoveSelectedToFront(fx.state));
    EXPECT_EQ(fx.state.SelectedObject, 2);
    EXPECT_EQ(fx.Object(2).ObjectClassID(), fx.box->ClassID());
    ASSERT_TRUE(MoveSelectedToBack(fx.state));
    EXPECT_EQ(fx.state.SelectedObject, 1);
    EXPECT_EQ(fx.Object(1).ObjectClassID(), fx.box->ClassID());
}

}  // namespace
