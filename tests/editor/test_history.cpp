// SPDX-License-Identifier: GPL-3.0-or-later
// The editor's one history, walked as a user walks it: random sequences of every kind of edit
// on a sample page, with undos and redos in between, each undo and redo compared byte for byte
// with the page file the step left, and the page size it shows with the one it was made in.

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "editor/Arrange.h"
#include "editor/EditStep.h"
#include "editor/EditorFixture.h"
#include "editor/EditorHistory.h"
#include "editor/InsertList.h"
#include "editor/LayoutTransfer.h"
#include "editor/Manipulation.h"
#include "editor/ObjectClipboard.h"
#include "editor/ObjectCommands.h"
#include "editor/PageSizes.h"
#include "editor/Selection.h"
#include "editor/Snapping.h"
#include "persist/FileIO_OClass.h"
#include "persist/FileIO_Page.h"
#include "render/PreviewRefresh.h"
#include "support/RecordingSurface.h"

using namespace paginox;

namespace {

// The page as a whole at one point of the history: its file and the page size shown.
struct Point {
    std::string Bytes;
    int16_t Format = 0;
};

class RandomEditor {
  public:
    RandomEditor(EditorState& state, EditorHistory& history, uint32_t seed)
        : state_(state), history_(history), random_(seed) {}

    // One random edit, or a change of what is shown; true when the history gained a step.
    bool Act() {
        uint64_t recorded = history_.Now().Recorded;
        PickView();
        madeIn_ = state_.CurrentFormatIndex;
        try {
            Edit(Pick(19));
        } catch (const RuntimeError&) {
            // A refused edit changes nothing; the history stays as it was.
        }
        return history_.Now().Recorded != recorded;
    }
    // The page size shown when the last edit began.
    int16_t MadeIn() const { return madeIn_; }

  private:
    int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }
    float Fraction() { return std::uniform_real_distribution<float>(0.0f, 1.0f)(random_); }

    void PickView() {
        if (Pick(6) == 0) state_.SetCurrentFormat(int16_t(1 + Pick(state_.Page->NumFormats())));
        int16_t count = state_.CurrentFormat->NumObjects();
        if (Pick(3) == 0) state_.SelectOnly(int16_t(Pick(count + 1)));
        if (state_.SelectedObject > count) state_.SelectOnly(count);
        // Several objects: one more or one less, or all of them.
        if (count > 0 && Pick(3) == 0) ToggleSelected(state_, int16_t(1 + Pick(count)));
        if (Pick(12) == 0) SelectAll(state_);
    }

    void PlaceRects() {
        test::RecordingSurface surface(800, 600);
        RefreshPreview(surface, state_.Page->NumCharts(), state_.CurrentFormat.get(), true,
                       state_.SelectedObject, state_.Rects, state_.SelectionMarks);
    }

    void Edit(int kind) {
        int16_t obj = state_.SelectedObject;
        switch (kind) {
            case 0: {  // a property of the selected object, or of the page
                EditStep step(history_);
                if (obj) {
                    step.Set(kPropOrigin, Fraction() * 0.8f, 0, 0, int16_t(1 + Pick(2)));
                    if (Pick(2)) step.Set(kPropFontSize, int16_t(6 + Pick(30)), 0, 0, 0);
                } else {
                    step.Set(Pick(2) ? kPropDescription : kPropListAbbreviation,
                             std::string(1, char('A' + Pick(26))), 0, 0, 0);
                    step.Set(kPropNewMargin, double(Fraction() * 0.3f), 0, 0, int16_t(1 + Pick(4)));
                }
                return;
            }
            case 1: {  // a value that cannot be stored, after one that could
                EditStep step(history_);
                step.Set(kPropChartPlacementDesc, std::string("Kept?"), 0, 0, 1);
                step.Set(kPropFontSize, 1e9, 0, 0, 0);  // Overflow, or no object: refused
                return;
            }
            case 2:
            case 3: {  // a drag on the preview, snapped or not
                if (!obj) return;
                PlaceRects();
                EditStep step(history_);
                const int16_t modes[] = {kDragMove, kHandleLeft, kHandleRight, kHandleTop,
                                         kHandleBottom};
                int16_t mode = modes[Pick(5)];
                SnapSettings settings;
                settings.Objects = Pick(2);
                settings.ToGrid = Pick(2);
                settings.GridSpacing = 5 + Pick(50);
                DragSnap snap = SnapDrag(state_, SnapTargets(state_), settings, mode,
                                         Pick(301) - 150, Pick(301) - 150);
                CommitDrag(state_, step, mode, float(snap.Dx), float(snap.Dy), &snap);
                return;
            }
            case 4: {
                if (!obj) return;
                EditStep step(history_);
                if (Pick(2)) {
                    NudgeSelected(state_, step, Pick(21) - 10, Pick(21) - 10);
                } else {
                    AlignSelectedObject(state_, step, Alignment(Pick(6)));
                }
                return;
            }
            case 5:
                history_.Structural([&] { return CopySelectedObject(state_); });
                return;
            case 6:
                history_.Structural([&] {
                    return Pick(2) ? DeleteObject(state_, obj, false)
                                   : DeleteSelectedObjects(state_);
                });
                return;
            case 7:
                history_.Structural([&] {
                    return Pick(2) ? MoveSelectedToFront(state_) : MoveSelectedToBack(state_);
                });
                return;
            case 8:
                history_.Structural([&] {
                    InsertObject(state_, ObjectClasses(),
                                 int16_t(1 + Pick(ObjectClasses().Count())));
                    return true;
                });
                return;
            case 9:
                if (state_.Page->NumFormats() >= 6) return;
                history_.Structural([&] {
                    FormatSize size{int16_t(300 + Pick(2000)), int16_t(300 + Pick(2000))};
                    return AddPageSize(state_, *state_.CurrentFormat, size).Added;
                });
                return;
            case 10:
                if (state_.Page->NumFormats() < 2) return;
                history_.Structural([&] {
                    state_.Page->DeleteFormat(state_.CurrentFormatIndex);
                    state_.SetCurrentFormat(1);
                    state_.SelectOnly(0);
                    return true;
                });
                return;
            case 11: {  // lining several up
                if (!obj) return;
                EditStep step(history_);
                switch (Pick(3)) {
                    case 0:
                        AlignSelection(state_, step, Alignment(Pick(6)));
                        return;
                    case 1:
                        DistributeSelection(state_, step, int16_t(1 + Pick(2)));
                        return;
                    default:
                        MatchPrimarySize(state_, step, SizeMatch(Pick(3)));
                        return;
                }
            }
            case 12:
            case 13: {  // copied here, pasted on this or another page size
                CopiedObjects copied = CopySelectedObjects(state_);
                if (copied.Bytes.empty()) return;
                if (Pick(2)) state_.SetCurrentFormat(int16_t(1 + Pick(state_.Page->NumFormats())));
                madeIn_ = state_.CurrentFormatIndex;  // pasted where it is shown now
                auto objects = ReadCopiedObjects(copied.Bytes);
                history_.Structural([&] { return PasteObjects(state_, objects); });
                return;
            }
            case 14: {
                std::vector<int16_t> chosen = state_.SelectedObjects();
                history_.Structural([&] {
                    return !CopyObjectsToAllSizes(*state_.Page, state_.CurrentFormatIndex, chosen)
                                .empty();
                });
                return;
            }
            case 15: {
                int16_t from = int16_t(1 + Pick(state_.Page->NumFormats()));
                history_.Structural([&] {
                    state_.SelectOnly(0);
                    return CopyLayout(*state_.Page, state_.CurrentFormatIndex, from);
                });
                return;
            }
            default:
                return;  // nothing at all this time
        }
    }

    EditorState& state_;
    EditorHistory& history_;
    std::mt19937 random_;
    int16_t madeIn_ = 0;
};

struct HistoryWalk : ::testing::Test {
    test::ScopedModelState model;
    EditorState state;
    EditorHistory history{state};

    void SetUp() override {
        const std::string sample = PAGINOX_SAMPLE_DIR;
        LoadObjectClasses(sample + "/System/objects.dfn", ObjectClasses());
        original = ReadPage(sample + "/User Files/Pages/Birth Chart.pag", -1, false);
        ASSERT_TRUE(original);
        original->SetTitle("A title the history must keep");
    }
    void Start() {
        state.Page = original->Copy();
        state.SetCurrentFormat(1);
        state.SelectOnly(0);
        state.MarkSaved();
        history.Clear();
    }
    Point Here() { return {PageFileBytes(*state.Page), state.CurrentFormatIndex}; }

    std::shared_ptr<PageClass> original;
};

// How many random sequences a run walks: PAGINOX_HISTORY_SEQUENCES sets more by hand.
int Sequences() {
    const char* wanted = std::getenv("PAGINOX_HISTORY_SEQUENCES");
    return wanted ? std::atoi(wanted) : 1500;
}

TEST_F(HistoryWalk, RandomEditsUndoToTheStartAndRedoToTheEnd) {
    const int sequences = Sequences();
    for (int n = 0; n < sequences; ++n) {
        const uint32_t seed = 1000u + uint32_t(n);
        SCOPED_TRACE("seed " + std::to_string(seed));
        Start();
        RandomEditor editor(state, history, seed);
        std::mt19937 walk(seed * 7u);
        // points[k] is the page after k steps; before[k] and after[k] the sizes step k showed.
        std::vector<Point> points{Here()};
        std::vector<int16_t> before{0}, after{0};
        size_t done = 0;
        for (int i = 0; i < 40; ++i) {
            int choice = int(walk() % 10);
            if (choice < 2 && history.CanUndo()) {
                ASSERT_TRUE(history.Undo());
                --done;
                ASSERT_EQ(state.CurrentFormatIndex, before[done + 1]) << "undo at " << i;
            } else if (choice < 3 && history.CanRedo()) {
                ASSERT_TRUE(history.Redo());
                ++done;
                ASSERT_EQ(state.CurrentFormatIndex, after[done]) << "redo at " << i;
            } else {
                if (!editor.Act()) {
                    ASSERT_EQ(Here().Bytes, points[done].Bytes) << "a refused edit at " << i;
                    continue;
                }
                points.resize(done + 1), before.resize(done + 1), after.resize(done + 1);
                points.push_back(Here());
                before.push_back(editor.MadeIn());
                after.push_back(state.CurrentFormatIndex);
                ++done;
            }
            ASSERT_EQ(history.Done(), done);
            ASSERT_EQ(history.Count(), points.size() - 1);
            ASSERT_EQ(Here().Bytes, points[done].Bytes) << "after action " << i;
        }
        while (history.Undo()) {
        }
        ASSERT_EQ(Here().Bytes, points.front().Bytes) << "undone to the start";
        ASSERT_EQ(PageFileBytes(*state.Page), PageFileBytes(*original));
        while (history.Redo()) {
        }
        ASSERT_EQ(Here().Bytes, points.back().Bytes) << "redone to the end";
    }
}

}  // namespace
