// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>

#include "editor/EditStep.h"
#include "editor/EditorFixture.h"
#include "editor/EditorHistory.h"
#include "editor/Manipulation.h"
#include "editor/PreviewReadout.h"
#include "editor/PreviewZoom.h"
#include "editor/RecentFiles.h"
#include "editor/WindowPlacement.h"
#include "model/PageFormat.h"
#include "persist/Folders.h"
#include "support/ScopedAppFolders.h"

using namespace paginox;

TEST(PreviewZoom, StepsThroughTheLadderAndSizesTheSurfaceForTheFactor) {
    PreviewZoom zoom;
    PageFormat format;
    format.SetXPixels(705), format.SetYPixels(581), format.SetYRatio(581.0f / 705);
    EXPECT_EQ(zoom.Surface(format, {800, 600}).Width, 800);  // fitted: the window's size
    const std::tuple<double, bool, double> steps[] = {
        {0.72, true, 0.75}, {0.745, true, 1.0}, {1.0, true, 1.25}, {8.0, true, 8.0},
        {1.0, false, 0.75}, {0.3, false, 0.25}, {0.1, false, 0.1}};
    for (auto [shown, in, next] : steps) {
        in ? zoom.StepIn(shown) : zoom.StepOut(shown);
        EXPECT_NEAR(ShownFactor(format, zoom.Surface(format, {800, 600})), next, 0.003)
            << shown << (in ? " in" : " out");
    }
    format.SetXPixels(0);
    EXPECT_EQ(zoom.Surface(format, {800, 600}).Height, 600);  // a format without pixels
}

TEST(Manipulation, NudgesMoveByFormatPixelsWithinThePageAndTabWraps) {
    test::EditorFixture fx;
    fx.state.CurrentFormat->SetXPixels(1010), fx.state.CurrentFormat->SetYPixels(510);
    EditorHistory history(fx.state);
    fx.state.SelectedObject = 1;
    const float x = fx.Object(1).Origin(1);
    {
        EditStep run(history);
        EXPECT_TRUE(NudgeSelected(fx.state, run, 3, 0));
        EXPECT_TRUE(NudgeSelected(fx.state, run, 7, 0));
    }
    // Inside margins of 1% each side the printable area is 989.8 of the 1010 pixels.
    EXPECT_NEAR(fx.Object(1).Origin(1) - x, 10 / 989.8, 1e-6);
    EXPECT_EQ(history.Count(), 1);
    EditStep step(history);
    NudgeSelected(fx.state, step, -5000, -5000);
    EXPECT_EQ(std::pair(fx.Object(1).Origin(1), fx.Object(1).Origin(2)), std::pair(0.0f, 0.0f));
    EXPECT_EQ(SelectionReadout(fx.state), "Object 1: Point List at 10, 5 px, 396 x 200 px");

    const std::tuple<int16_t, bool, int16_t> neighbours[] = {
        {0, true, 1}, {3, true, 1}, {1, true, 2}, {0, false, 3}, {1, false, 3}, {9, false, 3}};
    for (auto [from, forward, to] : neighbours) EXPECT_EQ(NeighbourObject(from, 3, forward), to);
    EXPECT_EQ(NeighbourObject(1, 0, true), 0);
}

TEST(RecentFiles, KeepsTheLastEightNewestFirstInTheSettingsFile) {
    test::ScopedAppFolders folders;
    std::filesystem::create_directories(AppFolders().Path(kSettingsFolder));
    RecentFiles recent;
    for (int i = 1; i <= 10; ++i) recent.Add(folders.Dir().Write(std::to_string(i) + ".pag", ""));
    recent.Add(folders.Dir() / "5.pag");
    std::vector<std::string> kept = RecentFiles::Load().Files();
    ASSERT_EQ(kept.size(), 8u);
    EXPECT_EQ(kept.front(), folders.Dir() / "5.pag");
    EXPECT_EQ(kept[1], folders.Dir() / "10.pag");
    EXPECT_EQ(kept.back(), folders.Dir() / "3.pag");
    std::filesystem::remove(folders.Dir() / "10.pag");
    RecentFiles loaded = RecentFiles::Load();
    EXPECT_EQ(loaded.DropMissing(), std::vector<std::string>{folders.Dir() / "10.pag"});
    EXPECT_EQ(RecentFiles::Load().Files().size(), 7u);

    // Kept whole; two pages of one name are told apart by their folders.
    const std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(folders.Dir().Folder());
    loaded.Clear();
    loaded.Add("b/Chart.pag");
    loaded.Add("a/Chart.pag");
    loaded.Add("c/x/Chart.pag");
    loaded.Add("d/x/Chart.pag");
    loaded.Add("Solo.pag");
    std::filesystem::current_path(here);
    EXPECT_EQ(loaded.Files()[1], folders.Dir() / "d/x/Chart.pag");
    EXPECT_EQ(loaded.Labels(), (std::vector<std::string>{"Solo", "Chart (" + folders.Dir() / "d/x)",
                                                         "Chart (" + folders.Dir() / "c/x)",
                                                         "Chart (a)", "Chart (b)"}));
}

TEST(WindowPlace, FitsTheScreenUnlessLeftSomewhereStillVisible) {
    const QRect laptop(0, 0, 1366, 738), wide(1366, 0, 1920, 1160);
    const std::vector<QRect> screens{laptop, wide};
    EXPECT_EQ(WindowPlace(laptop, screens, std::nullopt, {1180, 820}), QRect(93, 30, 1180, 678));
    EXPECT_EQ(WindowPlace(wide, screens, std::nullopt, {1180, 820}), QRect(1736, 170, 1180, 820));
    const QRect left(1500, 100, 900, 700);
    EXPECT_EQ(WindowPlace(laptop, screens, left, {1180, 820}), left);
    // Left on a screen that is gone, or barely on one: placed afresh.
    EXPECT_EQ(WindowPlace(laptop, screens, QRect(4000, 0, 800, 600), {1180, 820}).topLeft(),
              QPoint(93, 30));
    EXPECT_EQ(WindowPlace(laptop, screens, QRect(-750, 0, 800, 600), {1180, 820}).topLeft(),
              QPoint(93, 30));
}
