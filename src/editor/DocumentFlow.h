// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Opening, making, saving and closing the page, decided without a window. The window lends
// its dialogs and its size list through DocumentHost, so tests script every answer.

#include <optional>
#include <string>

#include "core/MessageService.h"

namespace paginox {

class EditorState;
class RecoveryStore;

// What the document commands need from the main window.
class DocumentHost {
  public:
    virtual ~DocumentHost() = default;
    // The Open and Save As dialogs: start from fileName, leave the chosen path in it; set
    // cancelled (and leave fileName alone) when the user cancels.
    virtual void ShowOpenDialog(std::string& fileName, bool& cancelled) = 0;
    virtual void ShowSaveAsDialog(std::string& fileName, bool& cancelled) = 0;
    // Refills the size list and selects the format to show.
    virtual void InitFormatList() = 0;
    virtual void RefreshUI(bool updateAll) = 0;
    // Whether a window of the program is active (a new page is finished at once then).
    virtual bool WindowActive() = 0;
    // The screen a new page's format is sized for.
    virtual int ScreenWidth() = 0;
    virtual int ScreenHeight() = 0;
    virtual int ScreenLogPixels() = 0;
    // A new page or a loaded file replaced the page: the undo history no longer applies.
    virtual void PageReplaced() = 0;
    // A page file was opened or saved under path: the recent files follow.
    virtual void FileUsed(const std::string& path) { (void)path; }
};

class DocumentFlow {
  public:
    DocumentFlow(EditorState& state, DocumentHost& host) : state_(state), host_(host) {}

    // Asks to save changes, if there are any. Cancel sets cancel; Yes saves (asking for a
    // name when the page has none; cancelling that dialog, or a save that fails, also sets
    // cancel, so that New and Open never drop changes that could not be written).
    void SaveChangesPrompt(bool& cancel);

    // A new page; finished now when a window is active, else on the next activation.
    void NewPage();
    // Finishes a new page: its format sized for the screen, the page counted as saved.
    void ResetNewPage();
    // Loads CurrentFile; a page that cannot be read gives a new page under the same name.
    void OpenWorkFile();
    // At start-up: loads CurrentFile when there is such a file, else makes a new page.
    void OpenStartFile();
    // Writes the page to CurrentFile; on success the page counts as saved. False (after the
    // writer's own message) when it could not be written: the page stays changed. When another
    // program changed the file since it was opened or saved, asks first; No writes nothing
    // and also gives false.
    bool Save();

    // The File menu commands and closing. Each command refreshes the window when it acted.
    void FileNew();
    void FileOpen();
    // Open with the file already chosen (Open Recent, a file dropped on the window).
    void FileOpenPath(const std::string& path);
    void FileSave();
    void FileSaveAs();
    // Runs when the program is closed: the save prompt, whose Cancel does not stop closing.
    // Changes that were not saved (a failed save, Cancel) are kept as a recovery copy.
    void Closing();

    // The open page's file was renamed to path by the page library: it is that file now, as
    // last read or saved, and the recent pages list names it.
    void FileRenamed(const std::string& path);

    // Recovery copies; none are kept without a store.
    void SetRecovery(RecoveryStore* store) { recovery_ = store; }
    // The periodic copy: kept while the page has unsaved changes, removed when it has none.
    void KeepRecoveryCopy();
    // Keeps a copy whatever the page's state (an unexpected error); its path, or empty.
    std::string KeepCopyNow();
    // Offers each copy an earlier run left, oldest first, until one is opened.
    void OfferRecoveredPages();

  private:
    void OpenChosen(const std::string& path);
    // Says where unsaved changes were kept.
    void ReportKeptCopy(const std::string& path);
    void RememberDiskFile();
    bool OverwriteAllowed();

    EditorState& state_;
    DocumentHost& host_;
    RecoveryStore* recovery_ = nullptr;
    std::optional<MsgAnswer> lastAnswer_;  // of the last save prompt; none when not asked
};

// The dialogs' texts.
inline constexpr const char* kOpenDialogTitle = "Open Page Layout File";
inline constexpr const char* kOpenDialogFilter = "Page Layout (*.pag)|*.pag";
inline constexpr const char* kSaveDialogTitle = "Save Page Layout As";
inline constexpr const char* kSaveDialogFilter = "Page Files (*.pag)|*.pag";
inline constexpr const char* kPageExtension = "pag";

}  // namespace paginox
