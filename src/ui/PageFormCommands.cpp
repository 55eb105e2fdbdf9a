// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageForm.h"

// The main window's commands and the handlers of its controls' events.

#include <QComboBox>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QUrl>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "editor/EditStep.h"
#include "editor/EditorState.h"
#include "editor/FileRoutines.h"
#include "editor/ListColumns.h"
#include "editor/Manipulation.h"
#include "editor/ObjectCommands.h"
#include "editor/PageSizes.h"
#include "editor/QtText.h"
#include "editor/Snapping.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "model/PageObjectClasses.h"
#include "persist/BinaryFile.h"
#include "persist/Folders.h"
#include "persist/XMLOutPage.h"
#include "ui/EditorDialogs.h"
#include "ui/HelpWindow.h"
#include "ui/InsertDialog.h"
#include "ui/PageBrowser.h"
#include "ui/PointListDialog.h"
#include "ui/PositionDialog.h"
#include "ui/PreviewWidget.h"
#include "ui/PropertyPanel.h"
#include "ui/SetupDialog.h"

namespace paginox {

namespace {
// Help by context number, as the host's help file is organised.
constexpr const char* kHelpFileName = "veltrane.chm";
}  // namespace

void PageForm::ObjectChosen(int16_t index) {
    if (!objectClickUpdate_) return;
    // Another object chosen in the list is chosen alone; the primary one keeps the selection.
    if (index != state_.SelectedObject) state_.SelectOnly(index);
    RefreshUI(false);
    preview_->DrawMarksDirectly();
    properties_->RebuildRows();
    std::shared_ptr<PageObject> obj = state_.Selected();
    properties_->EditColumnsButton()->setEnabled(obj && obj->POClass().HasFlexibleListColumns());
    state_.PreviousSelectedObject = state_.SelectedObject;
    UpdateMenuState();
    ShowSelectionReadout();
}

// A press on the preview chose SelectedObject: the selector follows, which redraws; when it
// already showed that object only the marks are drawn again.
void PageForm::PreviewSelectionMade() {
    int16_t shown = static_cast<int16_t>(properties_->ObjectSelector()->currentIndex());
    int16_t wanted = state_.Selected() ? state_.SelectedObject : 0;
    if (shown == wanted) {
        preview_->DrawMarksDirectly();
    } else {
        properties_->ShowSelectedObject();
    }
    state_.PreviousSelectedObject = state_.SelectedObject;
    ShowSelectionReadout();
    UpdateArrangeState();  // their keys work at once, with no menu opened first
}

void PageForm::PreviewDragFinished(int16_t dragMode, float dx, float dy) {
    try {
        EditStep step(history_);
        CommitDrag(state_, step, dragMode, dx, dy, &preview_->FinishedSnap());
    } catch (const RuntimeError& e) {
        ShowMessage(e.Description(), "", MsgIcon::Exclamation);
    }
    RefreshUI(true);
    PreviewSelectionMade();
}

void PageForm::PreviewPopup(const QPoint& globalPos) {
    std::shared_ptr<PageObject> obj = state_.Selected();
    if (!obj) return;
    UpdateMenuState();
    QMenu popup(this);
    popup.setObjectName("mnuPopup");
    for (const char* name :
         {"mnuPopupCopy", "mnuPopupDelete", "mnuPopupEditFlexible", "mnuPopupMoveToFront",
          "mnuPopupMoveToBack", "mnuPopupAlign", "mnuPopupPos"}) {
        QAction* action = findChild<QAction*>(name);
        if (std::string(name) == "mnuPopupEditFlexible" &&
            !obj->POClass().HasFlexibleListColumns()) {
            continue;
        }
        popup.addAction(action);
    }
    popup.addSeparator();
    for (const char* name : {"mnuEditCut", "mnuEditCopy", "mnuEditPaste"}) {
        popup.addAction(findChild<QAction*>(name));
    }
    popup.addMenu(arrangeMenu_);
    ShowPopup(popup, globalPos);
}

void PageForm::DescriptionEdited() {
    if (!state_.Page) return;
    description_->setModified(false);
    try {
        EditStep step(history_);
        if (!step.Set(kPropDescription, ToAnsi(description_->text()), 0, 0, 0)) return;
    } catch (const RuntimeError& e) {
        ShowMessage(e.Description(), "", MsgIcon::Exclamation);
    }
    RefreshUI(true);
}

void PageForm::TranslateToXml() {
    std::optional<std::string> written = TranslateToXML(state_.CurrentFile, state_.Page.get());
    if (written) ShowNote("Translated to " + FromPath(*written));
}

void PageForm::BrowsePages() {
    bool cancel = false;
    flow_.SaveChangesPrompt(cancel);
    if (cancel) return;
    PageBrowser browser(state_.CurrentFile, this);
    // The page open here, renamed in the browser, is saved under its new name from now on.
    browser.OpenPageRenamed = [this](const std::string& path) {
        flow_.FileRenamed(path);
        RefreshUI(true);
    };
    browser.exec();
    const std::string& chosen = browser.ChosenPath();
    if (chosen.empty() || EqualsIgnoreCase(chosen, state_.CurrentFile)) return;
    state_.CurrentFile = chosen;
    OpenWorkFile();
    RefreshUI(true);
}

void PageForm::DeletePageSize() {
    if (!state_.Page || state_.Page->NumFormats() < 2) return;
    if (Messages().Show("Are you sure that you want to delete the current page size from the "
                        "list of page sizes?",
                        "Confirm Deletion", MsgButtons::OkCancel, MsgIcon::None) != MsgAnswer::Ok) {
        return;
    }
    history_.Structural([this] {
        state_.Page->DeleteFormat(state_.CurrentFormatIndex);
        {
            QSignalBlocker block(sizes_);
            delete sizes_->takeItem(state_.CurrentFormatIndex - 1);
        }
        // -1 makes the row handler load format 1 even when it was the one shown before.
        state_.CurrentFormatIndex = -1;
        sizes_->setCurrentRow(-1);
        sizes_->setCurrentRow(0);
        state_.PageChanged = true;
        return true;
    });
    UpdateMenuState();
}

void PageForm::AddPageSize() {
    if (!state_.CurrentFormat) return;
    SetupDialog dialog(*state_.CurrentFormat, static_cast<int16_t>(ScreenLogPixels()),
                       dialogs_.Printer(), this);
    if (dialog.exec() != QDialog::Accepted || !dialog.Entered()) return;
    AddedSize added;
    history_.Structural([&] {
        added = paginox::AddPageSize(state_, dialog.Setup().Working(), *dialog.Entered());
        return added.Added;
    });
    if (!added.Added) {
        // The page has that size already: it is shown instead.
        sizes_->setCurrentRow(added.Index - 1);
        return;
    }
    FillSizeList();
    {
        QSignalBlocker block(sizes_);
        sizes_->setCurrentRow(added.Index - 1);
    }
    RefreshUI(true);
}

void PageForm::AddObject() {
    if (history_.Structural([this] {
            InsertDialog dialog(state_, ObjectClasses(), this);
            return dialog.exec() == QDialog::Accepted;
        })) {
        RefreshUI(true);
    }
}

void PageForm::CopyObject() {
    if (history_.Structural([this] { return CopySelectedObject(state_); })) RefreshUI(true);
}

void PageForm::DeleteSelectedObject() {
    int16_t index = static_cast<int16_t>(properties_->ObjectSelector()->currentIndex());
    bool several = state_.SelectedObjects().size() > 1;
    if (!history_.Structural([&] {
            return several ? DeleteSelectedObjects(state_) : DeleteObject(state_, index, false);
        })) {
        return;
    }
    RefreshUI(true);
    properties_->EditColumnsButton()->setEnabled(false);
}

void PageForm::MoveToFront(bool front) {
    if (history_.Structural(
            [&] { return front ? MoveSelectedToFront(state_) : MoveSelectedToBack(state_); })) {
        RefreshUI(true);
    }
}

void PageForm::AlignObject() {
    if (!state_.Selected()) return;
    const QStringList choices = {"Left edge", "Centre (across)", "Right edge",
                                 "Top edge",  "Middle (down)",   "Bottom edge"};
    std::optional<int> choice =
        dialogs_.ChooseItem(this, "Align Object",
                            "Line the selected object up with the page's printable area:", choices);
    if (!choice || *choice < 0) return;
    try {
        EditStep step(history_);
        AlignSelectedObject(state_, step, static_cast<Alignment>(*choice));
    } catch (const RuntimeError& e) {
        ShowMessage(e.Description(), "", MsgIcon::Exclamation);
    }
    RefreshUI(true);
}

void PageForm::PositionObject() {
    std::shared_ptr<PageObject> obj = state_.Selected();
    if (!obj) return;
    PositionDialog dialog(*obj, this);
    if (dialog.exec() != QDialog::Accepted) return;
    try {
        EditStep step(history_);
        for (int16_t axis = 1; axis <= 2; ++axis) {
            step.Set(kPropOrigin, dialog.Origin(axis), 0, 0, axis);
            step.Set(kPropLength, dialog.Length(axis), 0, 0, axis);
        }
    } catch (const RuntimeError& e) {
        ShowMessage(e.Description(), "", MsgIcon::Exclamation);
    }
    RefreshUI(true);
}

void PageForm::EditColumns() {
    std::shared_ptr<PageObject> obj = state_.Selected();
    if (!obj || !obj->POClass().HasFlexibleListColumns()) return;
    PointListDialog dialog(*obj, *state_.CurrentFormat, this);
    if (dialog.exec() != QDialog::Accepted) return;
    {
        EditStep step(history_);
        dialog.Columns().Apply(step, state_.CurrentFormatIndex, state_.SelectedObject);
    }
    RefreshUI(true);
}

void PageForm::UndoOrRedo(bool redo) {
    // The step's page size is shown, with the page as it was: the size list follows.
    if (redo ? history_.Redo() : history_.Undo()) FollowRestoredPage();
}

void PageForm::HelpContents() {
    std::string helpFile = AppFolders().Path(kSystemDataFolder) + kHelpFileName;
    if (FileExists(helpFile) &&
        QDesktopServices::openUrl(QUrl::fromLocalFile(FromPath(helpFile)))) {
        return;
    }
    if (!help_) {
        QString guide = HelpWindow::FindGuide(QCoreApplication::applicationDirPath());
        if (guide.isEmpty()) {
            ShowMessage(
                "The user guide is not installed: it is user-guide.html in "
                "share/paginox/guide of the installation.",
                "Paginox Help", MsgIcon::Exclamation);
            return;
        }
        help_ = new HelpWindow(guide, this);
    }
    help_->show();
    help_->raise();
    help_->activateWindow();
}

void PageForm::ShowPageSummary() {
    if (state_.Page) ShowMessage(state_.Page->PageSummary(state_.CurrentFile), "Page Summary");
}

}  // namespace paginox
