// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/DocumentFlow.h"

#include <filesystem>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "editor/EditorState.h"
#include "editor/PageSizes.h"
#include "editor/RecoveryStore.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "persist/BinaryFile.h"
#include "persist/FileIO_Page.h"
#include "persist/FileStatus.h"

namespace paginox {

void DocumentFlow::SaveChangesPrompt(bool& cancel) {
    cancel = false;
    lastAnswer_.reset();
    if (!state_.UpdatePageChanged()) return;
    MsgAnswer answer =
        Messages().Show("Changes have been made. Do you wish to save these changes?",
                        "Save Changes?", MsgButtons::YesNoCancel, MsgIcon::Exclamation);
    lastAnswer_ = answer;
    if (answer == MsgAnswer::Cancel) {
        cancel = true;
        return;
    }
    if (answer != MsgAnswer::Yes) return;
    if (state_.CurrentFile.empty()) {
        std::string fileName = state_.CurrentFile;
        host_.ShowSaveAsDialog(fileName, cancel);
        if (!cancel) {
            state_.CurrentFile = fileName;
            // A save that failed leaves the page open: what follows would drop it.
            cancel = !Save();
        }
        return;
    }
    cancel = !Save();
}

void DocumentFlow::NewPage() {
    if (recovery_) recovery_->Discard();
    state_.CurrentFile.clear();
    RememberDiskFile();
    state_.Page = std::make_shared<PageClass>();
    state_.Page->InitNewPage();
    state_.SetCurrentFormat(1);
    state_.SelectOnly(0);
    host_.PageReplaced();
    if (host_.WindowActive()) {
        ResetNewPage();
    } else {
        state_.PendingReset = true;
    }
}

void DocumentFlow::ResetNewPage() {
    if (state_.CurrentFormat) {
        SizeFormatForScreen(*state_.CurrentFormat, host_.ScreenWidth(), host_.ScreenHeight(),
                            host_.ScreenLogPixels());
    }
    state_.MarkSaved();
    host_.InitFormatList();
    state_.PendingReset = false;
}

void DocumentFlow::OpenWorkFile() {
    if (recovery_) recovery_->Discard();
    state_.CurrentFormatIndex = 0;
    state_.CurrentFormat = nullptr;
    state_.SelectOnly(0);
    RememberDiskFile();
    state_.Page = ReadPage(state_.CurrentFile, -1, true);
    state_.UnreadableFile = state_.Page ? std::string() : state_.CurrentFile;
    if (state_.Page) {
        host_.FileUsed(state_.CurrentFile);
    } else {
        state_.Page = std::make_shared<PageClass>();
        state_.Page->InitNewPage();
    }
    host_.PageReplaced();
    state_.MarkSaved();
    host_.InitFormatList();
}

void DocumentFlow::OpenStartFile() {
    if (FileExists(state_.CurrentFile)) {
        OpenWorkFile();
        return;
    }
    // The reader refuses a pipe or a device with its message; then it is as if none was named.
    if (TypeOfFile(state_.CurrentFile) == FileType::Special) ReadPage(state_.CurrentFile, -1, true);
    NewPage();
}

bool DocumentFlow::Save() {
    if (!state_.Page) return false;
    if (!state_.CurrentFile.empty() && state_.CurrentFile == state_.UnreadableFile) {
        // Never over the damaged file without a word: a name is asked for, the dialog asking
        // again before it replaces a file.
        std::string fileName = state_.CurrentFile;
        bool cancelled = false;
        host_.ShowSaveAsDialog(fileName, cancelled);
        if (cancelled) return false;
        state_.CurrentFile = fileName;
        state_.UnreadableFile.clear();
    }
    if (!OverwriteAllowed()) return false;
    if (!SavePage(state_.CurrentFile, *state_.Page)) return false;
    state_.MarkSaved();
    RememberDiskFile();
    if (recovery_) recovery_->Discard();
    host_.FileUsed(state_.CurrentFile);
    return true;
}

void DocumentFlow::FileRenamed(const std::string& path) {
    state_.CurrentFile = path;
    RememberDiskFile();
    host_.FileUsed(path);
}

void DocumentFlow::RememberDiskFile() {
    state_.DiskFile = state_.CurrentFile;
    state_.DiskStamp = StampOf(state_.CurrentFile);
}

// Saving under another name was confirmed in the Save As dialog; saving over the file that was
// opened or saved asks when it is no longer the one this page came from.
bool DocumentFlow::OverwriteAllowed() {
    if (state_.CurrentFile != state_.DiskFile) return true;
    std::optional<FileStamp> now = StampOf(state_.CurrentFile);
    if (!now || now == state_.DiskStamp) return true;
    std::string text = Utf8ToCp1252(state_.CurrentFile) + kCrLf + kCrLf +
                       "This file has been changed by another program since it was opened or "
                       "last saved. Do you want to overwrite it?";
    return Messages().Show(text, "File Changed", MsgButtons::YesNo, MsgIcon::Exclamation) ==
           MsgAnswer::Yes;
}

void DocumentFlow::FileNew() {
    bool cancel = false;
    SaveChangesPrompt(cancel);
    if (cancel) return;
    NewPage();
    host_.RefreshUI(true);
}

void DocumentFlow::FileOpen() {
    bool cancel = false;
    SaveChangesPrompt(cancel);
    if (cancel) return;
    std::string chosen = state_.CurrentFile;
    host_.ShowOpenDialog(chosen, cancel);
    if (!cancel) OpenChosen(chosen);
}

void DocumentFlow::FileOpenPath(const std::string& path) {
    bool cancel = false;
    SaveChangesPrompt(cancel);
    if (!cancel) OpenChosen(path);
}

void DocumentFlow::OpenChosen(const std::string& path) {
    // The reader refuses a pipe or a device with its message, and the page open stays.
    if (TypeOfFile(path) == FileType::Special) {
        ReadPage(path, -1, true);
        return;
    }
    state_.CurrentFile = path;
    OpenWorkFile();
    host_.RefreshUI(true);
}

void DocumentFlow::FileSave() {
    if (Trim(state_.CurrentFile).empty()) {
        FileSaveAs();
        return;
    }
    Save();
    host_.RefreshUI(true);
}

void DocumentFlow::FileSaveAs() {
    std::string fileName = state_.CurrentFile;
    bool cancelled = false;
    host_.ShowSaveAsDialog(fileName, cancelled);
    if (cancelled) return;
    state_.CurrentFile = fileName;
    state_.UnreadableFile.clear();  // chosen in the dialog, which asked before replacing
    Save();
    host_.RefreshUI(true);
}

void DocumentFlow::Closing() {
    // Cancel in the prompt is deliberately not passed on: closing goes ahead as with No.
    bool cancel = false;
    SaveChangesPrompt(cancel);
    if (!recovery_) return;
    // No means the changes are given up; anything else left unsaved is kept.
    if (state_.PageChanged && lastAnswer_ != MsgAnswer::No && state_.Page) {
        ReportKeptCopy(recovery_->Keep(*state_.Page, state_.CurrentFile));
    } else {
        recovery_->Discard();
    }
}

void DocumentFlow::KeepRecoveryCopy() {
    if (!recovery_ || !state_.Page) return;
    if (state_.UpdatePageChanged()) {
        recovery_->Keep(*state_.Page, state_.CurrentFile);
    } else {
        recovery_->Discard();
    }
}

std::string DocumentFlow::KeepCopyNow() {
    if (!recovery_ || !state_.Page) return std::string();
    return recovery_->Keep(*state_.Page, state_.CurrentFile);
}

void DocumentFlow::ReportKeptCopy(const std::string& path) {
    if (path.empty()) return;
    ShowMessage("Your unsaved changes have been kept in " + path + kCrLf + kCrLf +
                    "Paginox offers to open them the next time it starts.",
                "Changes Kept", MsgIcon::Information);
}

void DocumentFlow::OfferRecoveredPages() {
    if (!recovery_) return;
    for (const std::string& path : recovery_->Leftovers()) {
        std::string name = std::filesystem::path(path).filename().string();
        if (Messages().Show("Open recovered page " + name + "?", "Recovered Page",
                            MsgButtons::YesNo, MsgIcon::Question) != MsgAnswer::Yes) {
            continue;
        }
        bool cancel = false;
        SaveChangesPrompt(cancel);
        if (cancel) return;
        std::shared_ptr<PageClass> page = ReadPage(path, -1, true);
        if (!page) continue;
        recovery_->Discard();
        // Opened as a page never saved, and changed, so that closing asks where to keep it.
        state_.CurrentFile.clear();
        state_.Page = page;
        state_.CurrentFormatIndex = 0;
        state_.CurrentFormat = nullptr;
        state_.SelectOnly(0);
        state_.SavedPage = std::make_shared<PageClass>();
        state_.SavedPage->InitNewPage();
        state_.UpdatePageChanged();
        host_.PageReplaced();
        recovery_->Adopt(path);
        host_.InitFormatList();
        host_.RefreshUI(true);
        return;
    }
}

}  // namespace paginox
