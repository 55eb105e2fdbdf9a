// SPDX-License-Identifier: GPL-3.0-or-later
// Several objects at once, without a window: choosing them, lining them up, snapping, moving
// them together, the clipboard's form and one layout across page sizes.

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "core/RuntimeError.h"
#include "editor/Arrange.h"
#include "editor/EditStep.h"
#include "editor/EditorFixture.h"
#include "editor/EditorHistory.h"
#include "editor/LayoutTransfer.h"
#include "editor/Manipulation.h"
#include "editor/ObjectClipboard.h"
#include "editor/PreviewReadout.h"
#include "editor/Selection.h"
#include "editor/Snapping.h"
#include "render/SelectionMarkSet.h"
#include "support/RecordingMessages.h"

using namespace paginox;

namespace {

// The fixture's page with five objects at chosen places, drawn where their fractions say, on
// a printable area of 400 by 300 pixels at (100, 50).
struct Many : ::testing::Test {
    test::EditorFixture fx;
    EditorState& state = fx.state;
    EditorHistory history{fx.state};

    void SetUp() override {
        for (int i = 0; i < 2; ++i) {
            state.CurrentFormat->AddObject(fx.box->CreateInstance(state.CurrentFormat.get()));
        }
        Place(1, 0.10f, 0.10f, 0.20f, 0.20f);
        Place(2, 0.40f, 0.30f, 0.10f, 0.10f);  // the wheel
        Place(3, 0.70f, 0.60f, 0.25f, 0.30f);  // the triangle
        Place(4, 0.05f, 0.70f, 0.30f, 0.10f);
        Place(5, 0.50f, 0.05f, 0.15f, 0.40f);
    }
    void Place(int16_t k, float x, float y, float w, float h) {
        PageObject& obj = fx.Object(k);
        obj.SetOrigin(1, x), obj.SetOrigin(2, y), obj.SetLength(1, w), obj.SetLength(2, h);
        Draw();
    }
    // The rectangles the drawing would leave for the objects as they are now.
    void Draw() {
        const RectClass& m = state.Rects.Margin;
        state.Rects.Objects.clear();
        for (int16_t k = 1; k <= state.CurrentFormat->NumObjects(); ++k) {
            state.Rects.Objects.push_back(
                fx.Object(k).GetRect(m.Left(), m.Top(), m.Width(), m.Height()));
        }
    }
    std::vector<int16_t> Chosen() { return state.SelectedObjects(); }
    // Runs edit(state, step, args...) as one step of the history; what the edit said.
    template <class Edit, class... Args>
    bool InStep(Edit edit, Args... args) {
        EditStep step(history);
        return edit(state, step, args...);
    }
    float X(int16_t k) { return fx.Object(k).Origin(1); }
    float Y(int16_t k) { return fx.Object(k).Origin(2); }
};

TEST_F(Many, ChoosingByToggleBandAndAllKeepsTheFirstChosenPrimary) {
    ToggleSelected(state, 4);
    ToggleSelected(state, 2);
    ToggleSelected(state, 5);
    EXPECT_EQ(state.SelectedObject, 4);
    EXPECT_EQ(Chosen(), (std::vector<int16_t>{2, 4, 5}));
    ToggleSelected(state, 2);  // out again
    ToggleSelected(state, 4);  // the primary leaves: the next chosen takes its place
    EXPECT_EQ(state.SelectedObject, 5);
    EXPECT_EQ(Chosen(), (std::vector<int16_t>{5}));

    SelectAll(state);
    EXPECT_EQ(state.SelectedObject, 5);
    EXPECT_EQ(Chosen().size(), 5u);
    EXPECT_EQ(SelectionReadout(state).rfind("5 objects selected at ", 0), 0u);

    // A band over the left half touches objects 1, 2 and 4; Shift adds the triangle's.
    RectClass band = test::Rect(90, 40, 200, 300);
    SelectTouching(state, band, false);
    EXPECT_EQ(state.SelectedObject, 1);
    EXPECT_EQ(Chosen(), (std::vector<int16_t>{1, 2, 4}));
    SelectTouching(state, test::Rect(400, 280, 5, 5), true);
    EXPECT_EQ(Chosen(), (std::vector<int16_t>{1, 2, 3, 4}));
    SelectTouching(state, test::Rect(0, 0, 5, 5), false);
    EXPECT_TRUE(Chosen().empty());

    // The box round them, and a change of page size leaves only the primary chosen.
    SelectTouching(state, band, false);
    std::optional<FractionBox> box = SelectionBox(state);
    ASSERT_TRUE(box);
    EXPECT_FLOAT_EQ(box->Left, 0.05f);
    EXPECT_FLOAT_EQ(box->Bottom, 0.80f);
    state.SetCurrentFormat(1);
    EXPECT_EQ(Chosen(), (std::vector<int16_t>{1}));
}

TEST_F(Many, AligningDistributingAndMatchingSizesAreOneStepEach) {
    const struct {
        Alignment how;
        int16_t axis;
        float expected4;  // where object 4 goes, lined up with object 1 (0.1, 0.1, 0.2 x 0.2)
    } aligned[] = {
        {Alignment::Left, 1, 0.10f},   {Alignment::Right, 1, 0.00f},  // 0.3 - 0.3
        {Alignment::Centre, 1, 0.05f}, {Alignment::Top, 2, 0.10f},
        {Alignment::Bottom, 2, 0.20f}, {Alignment::Middle, 2, 0.15f},
    };
    for (const auto& c : aligned) {
        state.SelectOnly(1);
        ToggleSelected(state, 4);
        EXPECT_TRUE(InStep(AlignSelection, c.how));
        EXPECT_NEAR(fx.Object(4).Origin(c.axis), c.expected4, 1e-6) << int(c.how);
        EXPECT_FLOAT_EQ(fx.Object(1).Origin(c.axis), 0.10f);  // the primary stays
        ASSERT_TRUE(history.Undo());
        EXPECT_FLOAT_EQ(fx.Object(4).Origin(1), 0.05f);
        EXPECT_FLOAT_EQ(fx.Object(4).Origin(2), 0.70f);
    }
    // Lined up with a wide object near the far edge, a narrow one stays on the page.
    state.SelectOnly(3);
    ToggleSelected(state, 4);
    InStep(AlignSelection, Alignment::Left);
    EXPECT_FLOAT_EQ(X(4), 0.70f);
    Place(3, 0.80f, 0.6f, 0.2f, 0.3f);
    InStep(AlignSelection, Alignment::Centre);
    EXPECT_FLOAT_EQ(X(4), 0.70f);  // 0.75 would put its right edge at 1.05

    // Alone, an object lines up with the printable area.
    state.SelectOnly(2);
    InStep(AlignSelection, Alignment::Bottom);
    EXPECT_FLOAT_EQ(Y(2), 0.90f);

    // Spread across: 1 (0.1+0.2), 2 (0.4+0.1), 5 (0.5+0.15), 3 (0.8+0.2): the first and last stay.
    state.SelectOnly(1);
    for (int16_t k : {2, 5, 3}) ToggleSelected(state, k);
    EXPECT_TRUE(InStep(DistributeSelection, 1));
    const double gap = (1.0 - 0.1 - (0.2 + 0.1 + 0.15 + 0.2)) / 3;
    EXPECT_FLOAT_EQ(X(1), 0.10f);
    EXPECT_FLOAT_EQ(X(2), float(0.1 + 0.2 + gap));
    EXPECT_FLOAT_EQ(X(5), float(0.1 + 0.2 + gap + 0.1 + gap));
    EXPECT_FLOAT_EQ(X(3), 0.80f);
    state.SelectOnly(1);
    ToggleSelected(state, 2);
    EXPECT_FALSE(InStep(DistributeSelection, 2));  // two objects have one gap

    // Same sizes as the primary (object 1: 0.2 by 0.2), each kept on the page.
    ToggleSelected(state, 3);
    EXPECT_TRUE(InStep(MatchPrimarySize, SizeMatch::Width));
    EXPECT_FLOAT_EQ(fx.Object(2).Length(1), 0.2f);
    EXPECT_FLOAT_EQ(fx.Object(2).Length(2), 0.1f);
    EXPECT_TRUE(InStep(MatchPrimarySize, SizeMatch::Both));
    EXPECT_FLOAT_EQ(fx.Object(3).Length(2), 0.2f);
    EXPECT_FLOAT_EQ(fx.Object(2).Length(2), 0.2f);
    // Every arrangement was one step: undoing them all brings the first places back.
    while (history.Undo()) {
    }
    EXPECT_FLOAT_EQ(X(2), 0.40f);
    EXPECT_FLOAT_EQ(X(4), 0.05f);
    EXPECT_FLOAT_EQ(fx.Object(2).Length(1), 0.1f);
}

TEST_F(Many, SnappedEdgesLandExactlyOnTheirLines) {
    // Object 4's left edge (0.05) dragged towards object 1's left edge (0.1 = 40 px on).
    state.SelectOnly(4);
    SnapTargets targets(state);
    SnapSettings settings;
    DragSnap snap = SnapDrag(state, targets, settings, kDragMove, 22, 0);
    ASSERT_TRUE(snap.Axis[0].Snapped);
    EXPECT_EQ(snap.Dx, 20);
    ASSERT_TRUE(snap.Axis[0].Guide);
    EXPECT_NEAR(*snap.Axis[0].Guide, 140.0, 1e-3);
    EXPECT_EQ(snap.Dy, 0);  // its middle meets the triangle's where it is
    EXPECT_TRUE(InStep(CommitDrag, kDragMove, float(snap.Dx), float(snap.Dy), &snap));
    EXPECT_EQ(X(4), X(1));  // exactly, not merely on the same pixel
    // A pixel off the line, a drag towards it comes to rest a pixel away and still lines up.
    Place(4, X(1) + 1.0f / 400, Y(4), 0.27f, fx.Object(4).Length(2));  // its right edge near none
    snap = SnapDrag(state, SnapTargets(state), settings, kDragMove, -3, 0);
    ASSERT_TRUE(snap.Axis[0].Snapped);
    EXPECT_LE(std::abs(snap.Dx), 1);
    EXPECT_TRUE(InStep(CommitDrag, kDragMove, float(snap.Dx), float(snap.Dy), &snap));
    EXPECT_EQ(X(4), X(1));
    Place(4, X(1), Y(4), 0.3f, fx.Object(4).Length(2));  // as it was

    // Further than the tolerance from every line, or with Alt held, nothing snaps.
    snap = SnapDrag(state, SnapTargets(state), settings, kDragMove, 2 * kSnapTolerance, 0);
    EXPECT_FALSE(snap.Axis[0].Snapped);
    settings.Objects = false;
    snap = SnapDrag(state, SnapTargets(state), settings, kDragMove, 1, 0);
    EXPECT_FALSE(snap.Axis[0].Snapped);
    settings.Objects = true;

    // A snap that would carry an object off the page is not made: the triangle's top edge
    // meeting the middle of object 4 would put its bottom edge 0.05 past the page's.
    state.SelectOnly(3);
    snap = SnapDrag(state, SnapTargets(state), settings, kDragMove, 0, 40);
    EXPECT_FALSE(snap.Axis[1].Snapped);
    EXPECT_EQ(snap.Dy, 40);

    // A resize pulls the right edge onto object 5's left edge (0.5 = 300 px).
    state.SelectOnly(2);
    snap = SnapDrag(state, SnapTargets(state), settings, kHandleRight, 38, 0);  // wheel: never
    EXPECT_FALSE(snap.Axis[0].Snapped);
    state.SelectOnly(4);
    snap = SnapDrag(state, SnapTargets(state), settings, kHandleRight, 38, 0);
    ASSERT_TRUE(snap.Axis[0].Snapped);
    PageObject landed = LandedObject(state, kHandleRight, float(snap.Dx), 0, &snap);
    EXPECT_FLOAT_EQ(landed.Origin(1) + landed.Length(1), X(5));
    EXPECT_EQ(landed.Origin(1), X(4));

    // A resize pulls the primary object alone: the others chosen with it still give lines.
    ToggleSelected(state, 5);
    snap = SnapDrag(state, SnapTargets(state, kHandleRight), settings, kHandleRight, 98, 0);
    ASSERT_TRUE(snap.Axis[0].Snapped);
    EXPECT_DOUBLE_EQ(snap.Axis[0].Fraction, double(X(5)) + fx.Object(5).Length(1));
    state.SelectOnly(4);

    // The grid: 10 format pixels; a move lands the left edge on a line, with no guide.
    settings.ToGrid = true;
    settings.Objects = false;
    settings.GridSpacing = 10;
    snap = SnapDrag(state, SnapTargets(state), settings, kDragMove, 13, 7);
    ASSERT_TRUE(snap.Axis[0].Snapped && snap.Axis[1].Snapped);
    EXPECT_FALSE(snap.Axis[0].Guide);
    for (int16_t axis = 1; axis <= 2; ++axis) {
        double area = state.CurrentFormat->PrintablePixels(axis);
        double lines = (fx.Object(4).Origin(axis) + snap.Axis[axis - 1].Fraction) * area / 10;
        EXPECT_NEAR(lines, std::round(lines), 1e-4) << axis;
    }
    std::vector<double> grid = GridLines(state, 1, 10);
    ASSERT_GE(grid.size(), 2u);
    EXPECT_DOUBLE_EQ(grid.front(), 100.0);
    EXPECT_TRUE(GridLines(state, 1, 1).empty());  // too dense to draw
}

TEST_F(Many, ObjectsMovedTogetherStopTogether) {
    state.SelectOnly(1);
    ToggleSelected(state, 3);  // right edges at 0.3 and 0.95
    SnapSettings off;
    off.Objects = false;
    // 40 px right: object 3 would pass the edge by 0.05; both stop where it meets it.
    std::vector<MovedObject> moved = MovedSelection(state, 40, 0);
    ASSERT_EQ(moved.size(), 2u);
    EXPECT_FLOAT_EQ(moved[1].X + fx.Object(3).Length(1), 1.0f);
    EXPECT_NEAR(moved[1].X - moved[0].X, 0.6f, 1e-6);  // still 0.6 apart
    EXPECT_TRUE(InStep(CommitDrag, kDragMove, 40, 0, nullptr));
    EXPECT_NEAR(X(3) - X(1), 0.6f, 1e-6);
    EXPECT_TRUE(InStep(NudgeSelected, 0, -1000));
    EXPECT_FLOAT_EQ(Y(1), 0.0f);
    EXPECT_NEAR(Y(3) - Y(1), 0.5f, 1e-6);
    // Two steps, each taking both objects back.
    ASSERT_TRUE(history.Undo());
    ASSERT_TRUE(history.Undo());
    EXPECT_FLOAT_EQ(X(1), 0.10f);
    EXPECT_FLOAT_EQ(X(3), 0.70f);
    EXPECT_EQ(state.SelectedObjects(), (std::vector<int16_t>{1, 3}));  // shown as it was
    EXPECT_EQ(MovedOutlines(state, MovedSelection(state, 0, 0)).front().Left(),
              state.Rects.Object(1).Left());

    // Right edges lined up stay lined up when moved by pixels, whatever pixel each lies on.
    Place(1, 0.1013f, 0.1f, 0.2f, 0.2f);     // its left edge at 140.52 px
    Place(3, 0.1508f, 0.6f, 0.1505f, 0.3f);  // at 160.32 px
    auto apart = [&] { return (X(1) + fx.Object(1).Length(1)) - (X(3) + fx.Object(3).Length(1)); };
    const float before = apart();
    EXPECT_TRUE(InStep(CommitDrag, kDragMove, 13, 7, nullptr));
    EXPECT_NEAR(apart(), before, 1e-6);
    // A move straight down leaves the places across exactly as they were.
    const float x1 = X(1);
    Draw();
    EXPECT_TRUE(InStep(CommitDrag, kDragMove, 0, 9, nullptr));
    EXPECT_EQ(X(1), x1);
}

TEST_F(Many, TheClipboardFormCarriesObjectsExactlyAndRefusesAnythingElse) {
    test::RecordingMessages messages;
    fx.Object(4).SetOrigin(1, 0.1f + 1e-7f);  // a value with all its bits
    fx.Object(4).SetUserCaption("Caf\xe9");
    state.SelectOnly(4);
    ToggleSelected(state, 2);
    CopiedObjects copied = CopySelectedObjects(state);
    std::vector<std::shared_ptr<PageObject>> read = ReadCopiedObjects(copied.Bytes);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_TRUE(read[0]->IsEqual(fx.Object(2)));
    EXPECT_TRUE(read[1]->IsEqual(fx.Object(4)));
    QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(copied.Json)).object();
    EXPECT_EQ(json["NumObjects"].toInt(), 2);
    EXPECT_EQ(json["Objects"].toArray()[1].toObject()["UserCaption"].toString(), "Café");

    const std::string damaged[] = {
        "",
        copied.Bytes.substr(0, copied.Bytes.size() - 1),
        copied.Bytes + "x",
        "Other" + copied.Bytes.substr(5),
        copied.Bytes.substr(0, 16) + std::string("\0\0", 2),
        copied.Bytes.substr(0, 16) + std::string("\xff\xff", 2) + copied.Bytes.substr(18),
        // The first object's Origin across (12 bytes into its record) a NaN.
        copied.Bytes.substr(0, 30) + std::string("\0\0\xc0\x7f", 4) + copied.Bytes.substr(34),
    };
    for (const std::string& bytes : damaged) {
        try {
            ReadCopiedObjects(bytes);
            ADD_FAILURE() << "read " << bytes.size() << " bytes";
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.Description().rfind("The objects on the clipboard cannot be read", 0), 0u);
        }
    }

    // Pasted on another page size: in front, at the same fractions, chosen.
    state.Page->AddFormat(state.Page->GetFormat(1)->Clone());
    state.SetCurrentFormat(2);
    int16_t before = state.CurrentFormat->NumObjects();
    ASSERT_TRUE(history.Structural([&] { return PasteObjects(state, read); }));
    EXPECT_EQ(state.SelectedObjects(),
              (std::vector<int16_t>{int16_t(before + 1), int16_t(before + 2)}));
    EXPECT_EQ(state.CurrentFormat->Object(before + 2)->Origin(1), 0.1f + 1e-7f);
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(state.CurrentFormat->NumObjects(), before);

    // A class this catalogue lacks refuses the whole paste.
    read[1]->SetObjectClassID(999);
    EXPECT_FALSE(PasteObjects(state, read));
    EXPECT_EQ(state.CurrentFormat->NumObjects(), before);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_NE(messages.shown[0].text.find("class 999"), std::string::npos);
}

TEST_F(Many, OneLayoutGoesToEveryPageSize) {
    PageClass& page = *state.Page;
    page.AddFormat(page.GetFormat(1)->Clone());
    page.AddFormat(std::make_shared<PageFormat>());
    page.GetFormat(3)->AddObject(fx.box->CreateInstance(page.GetFormat(3).get()));
    EXPECT_EQ(CopyObjectsToAllSizes(page, 1, {2, 4}), (std::vector<int16_t>{2, 3}));
    EXPECT_EQ(page.GetFormat(2)->NumObjects(), 7);
    EXPECT_EQ(page.GetFormat(3)->NumObjects(), 3);
    EXPECT_TRUE(page.GetFormat(3)->Object(3)->IsEqual(fx.Object(4)));
    EXPECT_NE(page.GetFormat(3)->Object(3), state.CurrentFormat->Object(4));  // a copy
    EXPECT_TRUE(CopyObjectsToAllSizes(page, 1, {}).empty());

    ASSERT_TRUE(CopyLayout(page, 3, 1));
    ASSERT_EQ(page.GetFormat(3)->NumObjects(), 5);
    for (int16_t k = 1; k <= 5; ++k) {
        EXPECT_TRUE(page.GetFormat(3)->Object(k)->IsEqual(fx.Object(k))) << k;
    }
    EXPECT_FALSE(CopyLayout(page, 3, 1));  // it has that layout already
    EXPECT_FALSE(CopyLayout(page, 2, 2));
    EXPECT_FALSE(CopyLayout(page, 4, 1));
}

}  // namespace
