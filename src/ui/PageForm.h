// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The main window: the preview of the current format, the list of the page's formats, the
// property list and the menus. Commands change the model through the editor's routines and
// end with RefreshUI.

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editor/CommandLine.h"
#include "editor/DocumentFlow.h"
#include "editor/EditStep.h"
#include "editor/EditorHistory.h"
#include "editor/PreviewZoom.h"
#include "ui/HelpWindow.h"

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPrinter;
class QScrollArea;

namespace paginox {

class EditorDialogs;
class EditorState;
class RecoveryStore;
class PageClass;
class PreviewWidget;
class PropertyPanel;

class PageForm : public QMainWindow, private DocumentHost {
    Q_OBJECT

  public:
    PageForm(EditorState& state, EditorDialogs& dialogs, QWidget* parent = nullptr);

    // The load handler: reads the command line, then opens the named file when it exists
    // or makes a new page.
    void Load(const std::string& commandLine);
    void Load(const CommandLine& parsed);

    void SetObjectClickUpdate(bool update);
    void OpenWorkFile();
    void InitFormatList() override;
    void RefreshUI(bool updateAll) override;

    EditorState& State() { return state_; }
    EditorHistory& History() { return history_; }
    DocumentFlow& Document() { return flow_; }
    PreviewWidget* Preview() const { return preview_; }
    PropertyPanel* Properties() const { return properties_; }
    QListWidget* SizeList() const { return sizes_; }
    QScrollArea* PreviewScroller() const { return scroll_; }
    // Screen pixels per format pixel as the page is shown now.
    double ShownZoom() const;
    HelpWindow* Help() const { return help_; }

    // How the object pop-up menu is shown; tests replace it to see the menu without running it.
    std::function<void(QMenu& menu, const QPoint& globalPos)> ShowPopup;
    // The status bar note shown while the folders are the demo copy of the sample data.
    static QString DemoDataNote();

    // Recovery copies: kept every few minutes while there are unsaved changes, on a failed
    // save at closing, and by OnUnexpectedError; offered again at the next start.
    void SetRecovery(RecoveryStore* store) { flow_.SetRecovery(store); }
    // The session is ending (SIGTERM, SIGHUP): unsaved changes are kept as a recovery copy,
    // as closing keeps them, and the program ends.
    void OnTerminate();
    // The last-resort handler's report: the page kept as a recovery copy, the user told.
    void OnUnexpectedError(const std::string& description);
    // Runs a command of the window under the editor's safety net (RunCommand); after a
    // failure the controls follow the page as it was before.
    void Guard(const QString& what, const std::function<void()>& command);
    static constexpr int kRecoveryIntervalMs = 2 * 60 * 1000;

  protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // DocumentHost
    void ShowOpenDialog(std::string& fileName, bool& cancelled) override;
    void ShowSaveAsDialog(std::string& fileName, bool& cancelled) override;
    bool WindowActive() override;
    int ScreenWidth() override;
    int ScreenHeight() override;
    int ScreenLogPixels() override;
    void PageReplaced() override;
    void FileUsed(const std::string& path) override;

    // The first size and place: as last left when still on a screen, else fitting the screen.
    void PlaceWindow();
    void SaveWindowPlace();
    void BuildControls();
    void BuildMenus();
    void BuildFileMenu();
    void BuildViewMenu();
    // The commands on several objects: the Edit menu's clipboard and Select All, the Object
    // menu's Arrange submenu and Copy to All Page Sizes, Page > Copy Layout From, and the
    // View menu's grid.
    void BuildClipboardActions(QMenu* edit);
    void BuildArrangeMenu();
    void BuildGridActions(QMenu* view);
    void UpdateArrangeState();
    void ConnectPreview();
    QAction* AddAction(QMenu* menu, const char* name, const QString& text,
                       std::function<void()> handler);
    void FinishPendingReset();
    void UpdateMenuState();
    void FillSizeList();
    void UpdateUndoMenus();
    void FollowRestoredPage();
    // Stores what is being typed in the property list or the description box.
    void CommitPendingEdits();
    // Runs a command under the safety net without ending a run of arrow presses.
    void RunGuarded(const QString& what, const std::function<void()>& command);

    // The view: zoom (about a point of the preview, else the middle of the view), the
    // preview's size for it, and the status bar's readouts.
    void ZoomTo(const std::function<void()>& change, std::optional<QPointF> about);
    std::optional<QPointF> PointerOnPreview() const;
    void SizePreview();
    void ShowZoom();
    void ShowSelectionReadout();
    // A passing note in the status bar, shortened in the middle to the room there is.
    void ShowNote(const QString& text);
    // The pointer's place on the preview (off it: (-1, -1)).
    void ShowPointer(const QPointF& onPreview);
    // Arrow keys: one undo step for a run of presses, ended by a pause or anything else.
    void Nudge(int dx, int dy);
    void EndNudgeRun();
    void SelectNeighbour(bool forward);

    // Events of the controls.
    void SizeRowClicked(int row);
    void ObjectChosen(int16_t index);
    void PreviewSelectionMade();
    void PreviewDragFinished(int16_t dragMode, float dx, float dy);
    void PreviewPopup(const QPoint& globalPos);
    void DescriptionEdited();

    // Commands.
    void TranslateToXml();
    void BrowsePages();
    void AddPageSize();
    void DeletePageSize();
    void AddObject();
    void CopyObject();
    void DeleteSelectedObject();
    void MoveToFront(bool front);
    void AlignObject();
    void PositionObject();
    void EditColumns();
    void SelectAllObjects();
    // Runs an arrangement of the selection as one undo step.
    void Arrange(const std::function<bool(EditStep&)>& change);
    void CopyToClipboard(bool cut);
    void PasteFromClipboard();
    void CopyToAllSizes();
    void CopyLayoutFromSize();
    // Shows the page sizes a layout command changes, as they would be; true to go ahead.
    bool ConfirmLayout(const QString& title, const PageClass& after,
                       const std::vector<int16_t>& changed);
    void ChooseGridSpacing();
    void LoadGridSettings();
    void SaveGridSettings();
    void UndoOrRedo(bool redo);
    void HelpContents();
    void ShowPageSummary();
    void FillRecentMenu();
    void OpenRecent(const std::string& path);
    void ExportFormat();
    void PrintPage(bool preview);
    void PrintOn(QPrinter& printer);

    EditorState& state_;
    EditorDialogs& dialogs_;
    EditorHistory history_{state_};
    DocumentFlow flow_;
    QTimer recoveryTimer_;
    bool objectClickUpdate_ = true;
    bool shown_ = false;

    PreviewZoom zoom_;
    std::unique_ptr<EditStep> nudge_;
    QTimer nudgeEnd_;
    QPointer<HelpWindow> help_;
    std::string lastExport_;  // this run's last exported file, where the next is proposed

    PreviewWidget* preview_ = nullptr;
    QScrollArea* scroll_ = nullptr;
    QLabel* pointerReadout_ = nullptr;
    QLabel* selectionReadout_ = nullptr;
    QLabel* zoomReadout_ = nullptr;
    QMenu* recentMenu_ = nullptr;
    QListWidget* sizes_ = nullptr;
    QLineEdit* description_ = nullptr;
    QLabel* numObjects_ = nullptr;
    QLabel* numCharts_ = nullptr;
    QLabel* drawNote_ = nullptr;
    PropertyPanel* properties_ = nullptr;
    QMenu* objectMenu_ = nullptr;
    QMenu* arrangeMenu_ = nullptr;
    QMenu* pageMenu_ = nullptr;
    QMenu* debugMenu_ = nullptr;
};

}  // namespace paginox
