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
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;

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

    void Change() { fx.Object(1).SetFontSize(15); }
    bool Prompt() {
        bool cancel = false;
        flow.SaveChangesPrompt(cancel);
        return cancel;
    }
};

TEST_F(DocumentFlowTest, SavePromptAnswers) {
    EXPECT_FALSE(Prompt());  // nothing changed: no question
    EXPECT_TRUE(messages.shown.empty());
    Change();
    messages.Script({MsgAnswer::Cancel, MsgAnswer::No});
    EXPECT_TRUE(Prompt());
    EXPECT_EQ(messages.Last(),
              "Save Changes?: Changes have been made. Do you wish to save these changes?");
    EXPECT_EQ(messages.shown[0].buttons, MsgButtons::YesNoCancel);
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::Exclamation);
    EXPECT_FALSE(Prompt());
    EXPECT_TRUE(fx.state.PageChanged);

    // Yes on a page without a name asks for one; cancelling that cancels the whole prompt.
    messages.Script({MsgAnswer::Yes, MsgAnswer::Yes});
    host.answers = {std::nullopt, dir / "Saved.pag"};
    EXPECT_TRUE(Prompt());
    EXPECT_TRUE(fx.state.CurrentFile.empty());
    EXPECT_FALSE(Prompt());
    EXPECT_EQ(fx.state.CurrentFile, dir / "Saved.pag");
    EXPECT_FALSE(fx.state.PageChanged);
    auto read = ReadPage(fx.state.CurrentFile, -1, true);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->IsEqual(fx.state.Page.get()));
}

TEST_F(DocumentFlowTest, SavingAndSaveAs) {
    // Save on a page without a name is Save As; cancelling it leaves the page changed.
    Change();
    flow.FileSave();
    EXPECT_EQ(host.dialogs, (std::vector<std::string>{"save:"}));
    EXPECT_TRUE(fx.state.UpdatePageChanged());
    host.answers = {dir / "A.pag"};
    flow.FileSave();
    EXPECT_EQ(fx.state.CurrentFile, dir / "A.pag");
    EXPECT_FALSE(fx.state.UpdatePageChanged());

    // With a name, Save writes straight away; Save As starts from the current name.
    fx.Object(1).SetFontSize(20);
    flow.FileSave();
    EXPECT_EQ(host.dialogs.size(), 2u);
    EXPECT_EQ(ReadPage(dir / "A.pag", -1, true)->GetFormat(1)->Object(1)->FontSize(), 20.0f);
    flow.FileSaveAs();
    EXPECT_EQ(host.dialogs.back(), "save:" + (dir / "A.pag"));

    // A save that fails keeps the page changed.
    Change();
    fx.state.CurrentFile = dir / "missing-folder/B.pag";
    EXPECT_FALSE(flow.Save());
    EXPECT_TRUE(fx.state.UpdatePageChanged());
    EXPECT_EQ(messages.shown.back().title, "Save Error");
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
    EXPECT_EQ(host.replaced, 1);
    EXPECT_EQ(host.formatLists, 1);

    // Made while no window is active, the page waits for the window to finish it.
    host.active = false;
    flow.NewPage();
    EXPECT_TRUE(fx.state.PendingReset);
    EXPECT_EQ(fx.state.CurrentFormat->XPixels(), 800);
    flow.ResetNewPage();
    EXPECT_FALSE(fx.state.PendingReset);

    // A file that cannot be read gives a new page under the chosen name.
    host.answers = {dir / "Nothing.pag"};
    flow.FileOpen();
    EXPECT_EQ(fx.state.CurrentFile, dir / "Nothing.pag");
    EXPECT_EQ(fx.state.Page->NumFormats(), 1);
    EXPECT_EQ(fx.state.CurrentFormatIndex, 0);  // the size list picks the format
    EXPECT_EQ(host.replaced, 3);

    // Closing asks once; Cancel saves nothing.
    fx.state.SetCurrentFormat(1);
    fx.state.Page->SetDescription("Changed");
    size_t before = messages.shown.size();
    messages.Script({MsgAnswer::Cancel});
    flow.Closing();
    EXPECT_EQ(messages.shown.size(), before + 1);
    EXPECT_TRUE(test::ReadAll(dir / "Nothing.pag").empty());
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
    EXPECT_EQ(ReadPage(file, -1, true)->Description(), "Mine");
    fx.state.Page->SetDescription("Mine again");
    EXPECT_TRUE(flow.Save());  // our own save is no reason to ask
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[0].text, file +
                                          "\r\n\r\nThis file has been changed by another program "
                                          "since it was opened or last saved. Do you want to "
                                          "overwrite it?");
    EXPECT_EQ(messages.shown[0].title, "File Changed");
    EXPECT_EQ(messages.shown[0].buttons, MsgButtons::YesNo);
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::Exclamation);
}

struct RecoveryTest : DocumentFlowTest {
    RecoveryStore store{dir / "Recovery/"};
    RecoveryTest() { flow.SetRecovery(&store); }
    static std::vector<std::string> Names(const std::vector<std::string>& paths) {
        std::vector<std::string> names;
        for (const auto& p : paths) names.push_back(std::filesystem::path(p).filename());
        return names;
    }
};

TEST_F(RecoveryTest, CopiesFollowUnsavedChangesAndGoOnSave) {
    flow.KeepRecoveryCopy();  // nothing changed: nothing kept
    EXPECT_TRUE(store.CopyPath().empty());
    Change();
    flow.KeepRecoveryCopy();
    std::string copy = store.CopyPath();
    ASSERT_TRUE(std::filesystem::exists(copy));
    EXPECT_EQ(copy.rfind(dir / "Recovery/New Page ~", 0), 0u);
    auto kept = ReadPage(copy, -1, false);
    ASSERT_TRUE(kept);
    EXPECT_TRUE(kept->IsEqual(fx.state.Page.get()));

    fx.state.CurrentFile = dir / "saved.pag";
    ASSERT_TRUE(flow.Save());
    EXPECT_FALSE(std::filesystem::exists(copy));
    EXPECT_TRUE(store.CopyPath().empty());
}

TEST_F(RecoveryTest, ClosingKeepsWhatASaveCouldNotWriteAndDropsWhatTheUserGaveUp) {
    Change();
    fx.state.CurrentFile = dir / "no/such/folder/page.pag";
    messages.Script({MsgAnswer::Yes});  // the save fails
    flow.Closing();
    ASSERT_EQ(messages.shown.size(), 3u);
    EXPECT_EQ(messages.shown[1].title, "Save Error");
    EXPECT_EQ(messages.shown[2].title, "Changes Kept");
    EXPECT_EQ(messages.shown[2].text, "Your unsaved changes have been kept in " + store.CopyPath() +
                                          "\r\n\r\nPaginox offers to open them the next time "
                                          "it starts.");
    EXPECT_TRUE(std::filesystem::exists(store.CopyPath()));

    std::string copy = store.CopyPath();
    messages.Script({MsgAnswer::No});
    flow.Closing();
    EXPECT_FALSE(std::filesystem::exists(copy));
}

TEST_F(RecoveryTest, LeftoversOfEndedRunsAreOfferedUntilOneIsOpened) {
    std::filesystem::create_directories(dir / "Recovery");
    // pid 0 and names without a pid are not ours; a pid no process has is an ended run.
    for (const char* name : {"A ~99999999-1.pag", "B ~99999998-1.pag", "notes.pag", "C.txt"}) {
        WritePageFile(dir / (std::string("Recovery/") + name), *fx.state.Page);
    }
    EXPECT_EQ(Names(store.Leftovers()).size(), 2u);

    messages.Script({MsgAnswer::No, MsgAnswer::Yes});
    flow.OfferRecoveredPages();
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[0].title, "Recovered Page");
    EXPECT_EQ(messages.shown[0].text.rfind("Open recovered page ", 0), 0u);
    EXPECT_TRUE(fx.state.CurrentFile.empty());
    EXPECT_TRUE(fx.state.PageChanged);  // closing will ask where to keep it
    EXPECT_FALSE(store.CopyPath().empty());
    EXPECT_EQ(Names(store.Leftovers()).size(), 1u);  // the declined one stays
}

TEST_F(DocumentFlowTest, AFailedCommandPutsThePageBackAndSaysWhat) {
    fx.state.SelectedObject = 2;
    bool done = RunCommand(fx.state, "Delete Object", [&] {
        fx.state.CurrentFormat->DeleteObject(2);
        fx.state.SelectedObject = 0;
        throw RuntimeError(kOverflow);
    });
    EXPECT_FALSE(done);
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), 3);
    EXPECT_EQ(fx.state.SelectedObject, 2);
    EXPECT_FALSE(fx.state.UpdatePageChanged());
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text,
              "Delete Object could not be completed.\r\n\r\nOverflow\r\n\r\nThe page is as it "
              "was before.");
    EXPECT_TRUE(RunCommand(fx.state, "Nothing", [] {}));
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
    EXPECT_EQ(messages.shown[1].title, "Save Error");
}

}  // namespace
