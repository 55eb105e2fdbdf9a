// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <optional>

#include "core/RuntimeError.h"
#include "editor/CommandGuard.h"
#include "editor/DocumentFlow.h"
#include "editor/EditorFixture.h"
#include "editor/RecoveryStore.h"
#include "model/PageClass.h"
#include "persist/FileIO_Page.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"

using namespace paginox;
namespace fs = std::filesystem;

namespace {

// A window whose dialogs answer from a script: a path, or nothing for Cancel.
struct FakeHost : DocumentHost {
    std::deque<std::optional<std::string>> answers;
    std::vector<std::string> dialogs;
    int formatLists = 0, replaced = 0;
    bool active = true;

    void Answer(const char* kind, std::string& fileName, bool& cancelled) {
        dialogs.push_back(kind + fileName);
        std::optional<std::string> a = answers.empty() ? std::nullopt : answers.front();
        if (!answers.empty()) answers.pop_front();
        cancelled = !a;
        if (a) fileName = *a;
    }
    void ShowOpenDialog(std::string& f, bool& c) override { Answer("open:", f, c); }
    void ShowSaveAsDialog(std::string& f, bool& c) override { Answer("save:", f, c); }
    void InitFormatList() override { ++formatLists; }
    void RefreshUI(bool) override {}
    bool WindowActive() override { return active; }
    int ScreenWidth() override { return 1024; }
    int ScreenHeight() override { return 768; }
    int ScreenLogPixels() override { return 96; }
    void PageReplaced() override { ++replaced; }
};

struct DocumentFlowTest : ::testing::Test {
    test::EditorFixture fx;
    test::RecordingMessages messages;
    test::TempDir dir;
    FakeHost host;
    DocumentFlow flow{fx.state, host};
    RecoveryStore store{dir / "Recovery/"};

    void Change() { fx.Object(1).SetFontSize(15); }
    bool Prompt() {
        bool cancel = false;
        flow.SaveChangesPrompt(cancel);
        return cancel;
    }
    // The messages shown match that section of editor/messages.txt.
    void ExpectShown(const char* section) {
        EXPECT_EQ(messages.Transcript({{store.CopyPath(), "$COPY"}, {dir.Folder(), "$DIR/"}}),
                  test::GoldenText("editor/messages.txt", section));
    }
    bool SavedAsIs(const std::string& file) {
        auto read = ReadPage(file, -1, false);
        return read && read->IsEqual(fx.state.Page.get());
    }
};

TEST_F(DocumentFlowTest, SavePromptAnswers) {
    EXPECT_FALSE(Prompt());  // nothing changed: no question
    Change();
    messages.Script({MsgAnswer::Cancel, MsgAnswer::No, MsgAnswer::Yes, MsgAnswer::Yes});
    host.answers = {std::nullopt, dir / "Saved.pag"};
    EXPECT_TRUE(Prompt());
    EXPECT_FALSE(Prompt());
    EXPECT_TRUE(fx.state.PageChanged);
    // Yes on a page without a name asks for one; cancelling that cancels the whole prompt.
    EXPECT_TRUE(Prompt());
    EXPECT_TRUE(fx.state.CurrentFile.empty());
    EXPECT_FALSE(Prompt());
    EXPECT_EQ(fx.state.CurrentFile, dir / "Saved.pag");
    EXPECT_FALSE(fx.state.PageChanged);
    EXPECT_TRUE(SavedAsIs(fx.state.CurrentFile));
    ExpectShown("save prompt four times");
}

TEST_F(DocumentFlowTest, SavingAndSaveAs) {
    // Save on a page without a name is Save As; cancelling it leaves the page changed.
    Change();
    flow.FileSave();
    EXPECT_TRUE(fx.state.UpdatePageChanged());
    host.answers = {dir / "A.pag"};
    flow.FileSave();
    EXPECT_EQ(fx.state.CurrentFile, dir / "A.pag");
    EXPECT_FALSE(fx.state.UpdatePageChanged());
    // With a name, Save writes straight away; Save As starts from the current name.
    fx.Object(1).SetFontSize(20);
    flow.FileSave();
    EXPECT_TRUE(SavedAsIs(dir / "A.pag"));
    flow.FileSaveAs();
    EXPECT_EQ(host.dialogs,
              (std::vector<std::string>{"save:", "save:", "save:" + (dir / "A.pag")}));
}

TEST_F(DocumentFlowTest, AFileThatFailedToOpenIsNeverReplacedWithoutANewChoice) {
    const std::string damaged = dir.Write("Damaged.pag", "not a page at all");
    fx.state.CurrentFile = damaged;
    flow.OpenWorkFile();
    EXPECT_EQ(fx.state.CurrentFile, damaged);  // shown under its name, as a new page
    fx.state.Page->SetDescription("Begun again");
    flow.FileSave();  // cancelled: the damaged file keeps every byte
    EXPECT_EQ(test::ReadAll(damaged), "not a page at all");
    messages.Script({MsgAnswer::Yes});  // the closing question, Yes: still asks for a name
    flow.Closing();
    EXPECT_EQ(test::ReadAll(damaged), "not a page at all");
    host.answers = {dir / "Mended.pag"};
    flow.FileSave();
    EXPECT_TRUE(SavedAsIs(dir / "Mended.pag"));
    EXPECT_EQ(host.dialogs,
              (std::vector<std::string>{"save:" + damaged, "save:" + damaged, "save:" + damaged}));
    // Chosen again in Save As, the name may be used.
    host.answers = {damaged};
    flow.FileSaveAs();
    EXPECT_TRUE(SavedAsIs(damaged));
}

TEST_F(DocumentFlowTest, NewOpenAndClose) {
    Change();
    messages.Script({MsgAnswer::No});
    flow.FileNew();
    EXPECT_TRUE(fx.state.CurrentFile.empty());
    const PageFormat& f = *fx.state.CurrentFormat;
    EXPECT_EQ(std::tuple(f.NumObjects(), f.XPixels(), f.YPixels()),
              std::tuple(0, 1024 - 95, 768 - 19));
    EXPECT_FALSE(fx.state.UpdatePageChanged());
    EXPECT_EQ(std::pair(host.replaced, host.formatLists), std::pair(1, 1));

    // Made while no window is active, the page waits for the window to finish it.
    host.active = false;
    flow.NewPage();
    EXPECT_TRUE(fx.state.PendingReset);
    EXPECT_EQ(fx.state.CurrentFormat->XPixels(), 800);
    flow.ResetNewPage();
    EXPECT_FALSE(fx.state.PendingReset);

    // A file that cannot be read gives a new page under the chosen name; the size list picks
    // its format.
    host.answers = {dir / "Nothing.pag"};
    flow.FileOpen();
    EXPECT_EQ(fx.state.CurrentFile, dir / "Nothing.pag");
    EXPECT_EQ(std::tuple(fx.state.Page->NumFormats(), fx.state.CurrentFormatIndex, host.replaced),
              std::tuple(1, 0, 3));

    // Closing asks once; Cancel saves nothing.
    fx.state.SetCurrentFormat(1);
    fx.state.Page->SetDescription("Changed");
    messages.Script({MsgAnswer::Cancel});
    flow.Closing();
    EXPECT_TRUE(test::ReadAll(dir / "Nothing.pag").empty());
    ExpectShown("new, then closing");
}

// Two editors on one page: the later save must not silently undo the earlier one.
TEST_F(DocumentFlowTest, SavingOverAFileChangedByAnotherProgramAsksFirst) {
    const std::string file = dir / "A.pag";
    ASSERT_TRUE(SavePage(file, *fx.state.Page));
    fx.state.CurrentFile = file;
    flow.OpenWorkFile();
    dir.Write("A.pag", "another editor's page");
    fx.state.Page->SetDescription("Mine");
    messages.Script({MsgAnswer::No, MsgAnswer::Yes});
    EXPECT_FALSE(flow.Save());
    EXPECT_EQ(test::ReadAll(file), "another editor's page");
    EXPECT_TRUE(fx.state.UpdatePageChanged());
    EXPECT_TRUE(flow.Save());
    EXPECT_TRUE(SavedAsIs(file));
    fx.state.Page->SetDescription("Mine again");
    EXPECT_TRUE(flow.Save());  // our own save is no reason to ask
    ExpectShown("file changed by another program, twice");
}

TEST_F(DocumentFlowTest, RecoveryCopiesFollowUnsavedChangesAndGoOnSave) {
    flow.SetRecovery(&store);
    flow.KeepRecoveryCopy();  // nothing changed: nothing kept
    EXPECT_TRUE(store.CopyPath().empty());
    Change();
    flow.KeepRecoveryCopy();
    std::string copy = store.CopyPath();
    EXPECT_EQ(copy.rfind(dir / "Recovery/New Page ~", 0), 0u);
    EXPECT_TRUE(SavedAsIs(copy));
    fx.state.CurrentFile = dir / "saved.pag";
    ASSERT_TRUE(flow.Save());
    EXPECT_FALSE(fs::exists(copy));
    EXPECT_TRUE(store.CopyPath().empty());
}

TEST_F(DocumentFlowTest, ClosingKeepsWhatASaveCouldNotWriteAndDropsWhatTheUserGaveUp) {
    flow.SetRecovery(&store);
    Change();
    fx.state.CurrentFile = dir / "no/such/folder/page.pag";
    messages.Script({MsgAnswer::Yes});  // the save fails
    flow.Closing();
    std::string copy = store.CopyPath();
    EXPECT_TRUE(SavedAsIs(copy));
    ExpectShown("closing after a failed save");
    messages.Script({MsgAnswer::No});
    flow.Closing();
    EXPECT_FALSE(fs::exists(copy));
}

TEST_F(DocumentFlowTest, RecoveredPagesOfEndedRunsAreOfferedUntilOneIsOpened) {
    flow.SetRecovery(&store);
    fs::create_directories(dir / "Recovery");
    // pid 0 and names without a pid are not ours; a pid no process has is an ended run.
    for (const char* name : {"A ~99999999-1.pag", "B ~99999998-1.pag", "notes.pag", "C.txt"}) {
        WritePageFile(dir / (std::string("Recovery/") + name), *fx.state.Page);
    }
    messages.Script({MsgAnswer::No, MsgAnswer::Yes});
    flow.OfferRecoveredPages();
    EXPECT_EQ(messages.shown.at(1).text.rfind("Open recovered page ", 0), 0u);  // two offers
    EXPECT_TRUE(fx.state.CurrentFile.empty());
    EXPECT_TRUE(fx.state.PageChanged);  // closing will ask where to keep it
    EXPECT_FALSE(store.CopyPath().empty());
    EXPECT_EQ(store.Leftovers().size(), 1u);  // the declined one stays
}

TEST_F(DocumentFlowTest, AFailedCommandPutsThePageBackAndSaysWhat) {
    fx.state.SelectedObject = 2;
    EXPECT_FALSE(RunCommand(fx.state, "Delete Object", [&] {
        fx.state.CurrentFormat->DeleteObject(2);
        fx.state.SelectedObject = 0;
        throw RuntimeError(kOverflow);
    }));
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), 3);
    EXPECT_EQ(fx.state.SelectedObject, 2);
    EXPECT_FALSE(fx.state.UpdatePageChanged());
    EXPECT_TRUE(RunCommand(fx.state, "Nothing", [] {}));
    ExpectShown("failed command");
}

TEST_F(DocumentFlowTest, NewAndOpenKeepThePageWhenItsSaveFails) {
    Change();
    fx.state.CurrentFile = dir / "no/such/folder/page.pag";
    auto page = fx.state.Page;
    messages.Script({MsgAnswer::Yes, MsgAnswer::Ok, MsgAnswer::Yes, MsgAnswer::Ok});
    flow.FileNew();
    flow.FileOpen();
    EXPECT_EQ(fx.state.Page, page);
    EXPECT_TRUE(host.dialogs.empty());  // Open never asked for a file
    ExpectShown("new and open after failed saves");
}

}  // namespace
