// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Everything the editor knows about the page being edited, in one object that the main
// window owns and hands to the routines that need it: the file, the page and its saved copy,
// the format shown, the selection and the start-up switches.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "persist/FileStatus.h"
#include "render/PageDraw.h"
#include "render/SelectionMarkSet.h"

namespace paginox {

class PageClass;
class PageFormat;
class PageObject;

// Which objects of the current format are selected: the primary one, whose marks and property
// rows are shown, and the others selected with it, in the order they were added.
struct ObjectSelection {
    int16_t Primary = 0;
    std::vector<int16_t> Others;
    bool operator==(const ObjectSelection&) const = default;
};

class EditorState {
  public:
    // Full path of the open page file; empty for a page never saved.
    std::string CurrentFile;
    // The file DiskFile as it was on disk when last opened or saved (nothing when it was not
    // there), so that a save notices another program having written it in between.
    std::string DiskFile;
    std::optional<FileStamp> DiskStamp;
    // A file that could not be read when it was opened: it may be all the user has, so it is
    // never replaced without the user choosing it again in Save As.
    std::string UnreadableFile;
    std::shared_ptr<PageClass> Page;
    // The page as last loaded, made or saved; the page has changed when it differs from it.
    std::shared_ptr<PageClass> SavedPage;
    // Always format CurrentFormatIndex of Page; 0 while a file is being loaded.
    std::shared_ptr<PageFormat> CurrentFormat;
    int16_t CurrentFormatIndex = 0;
    // 1-based index into CurrentFormat; 0 = none.
    int16_t SelectedObject = 0;
    int16_t PreviousSelectedObject = 0;
    // Objects selected beside SelectedObject (the primary); empty when it is 0.
    std::vector<int16_t> AlsoSelected;
    // Last result of the change test; cleared after every save and load.
    bool PageChanged = false;
    // A new page was made while no window was active; activation finishes it.
    bool PendingReset = false;
    // Format index asked for on the command line; 0 = none; used once.
    int16_t StartPageSizeIndex = 0;
    bool DebugMode = false;
    // The folders are the demo copy of the bundled sample data, not a real installation.
    bool UsingDemoData = false;

    // Pixel rectangles the last interactive drawing left: the page, its printable area and
    // one per object of CurrentFormat.
    PreviewRects Rects;
    // The handles of the selected object on the preview.
    SelectionMarkSet SelectionMarks;
    // Whether those handles are drawn on the preview now: only handles the user can see
    // answer the mouse (a refresh leaves the last object's marks undrawn but in place).
    bool MarksShown = false;

    // Makes format index of Page the current one (no validation); a selection of several
    // objects belonged to the other format and is dropped to its primary.
    void SetCurrentFormat(int16_t index);
    // The selected object of CurrentFormat, or nullptr when none is selected.
    std::shared_ptr<PageObject> Selected() const;
    // Every selected object that exists, the primary included, in drawing order.
    std::vector<int16_t> SelectedObjects() const;
    bool IsSelected(int16_t k) const;
    // k (0: none) becomes the one selected object.
    void SelectOnly(int16_t k);
    ObjectSelection Selection() const { return {SelectedObject, AlsoSelected}; }
    // Selects what of selection exists in CurrentFormat.
    void Select(const ObjectSelection& selection);
    // Grows the rectangle array to the format's object count, keeping what it holds.
    void GrowObjectRects();
    // Compares Page with SavedPage and stores the result in PageChanged.
    bool UpdatePageChanged();
    // SavedPage becomes a copy of Page; PageChanged is cleared.
    void MarkSaved();
};

}  // namespace paginox
