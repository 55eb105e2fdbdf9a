#include <gtest/gtest.h>

#include <deque>
#include <optional>

#include "editor/DocumentFlow.h"
#include "editor/EditorFixture.h"
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

}  // namespace
