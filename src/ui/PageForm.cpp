// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageForm.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QVBoxLayout>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "editor/CommandGuard.h"
#include "editor/CommandLine.h"
#include "editor/EditorState.h"
#include "editor/FileRoutines.h"
#include "editor/PageSizes.h"
#include "editor/QtText.h"
#include "editor/WindowPlacement.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "model/PageObjectClasses.h"
#include "model/ScreenTwips.h"
#include "persist/Folders.h"
#include "ui/EditorDialogs.h"
#include "ui/PreviewWidget.h"
#include "ui/PropertyPanel.h"
#include "ui/QtMessages.h"

namespace paginox {

namespace {

// The window is held to at least this size, in twips.
constexpr double kMinWidthTwips = 9600;
constexpr double kMinHeightTwips = 7200;
constexpr int kSidePanelWidth = 340;
// Paginox's own settings: where the window was left.
constexpr const char* kWindowSection = "Editor Window";

}  // namespace

PageForm::PageForm(EditorState& state, EditorDialogs& dialogs, QWidget* parent)
    : QMainWindow(parent), state_(state), dialogs_(dialogs), flow_(state, *this) {
    setObjectName("PageForm");
    setWindowTitle("Paginox");
    ShowPopup = [](QMenu& menu, const QPoint& pos) { menu.exec(pos); };
    setAcceptDrops(true);  // a page file dropped on the window is opened
    BuildControls();
    BuildMenus();
    LoadGridSettings();
    TwipsPerPixel tpp = ScreenTwipsPerPixel();
    setMinimumSize(static_cast<int>(kMinWidthTwips / tpp.X),
                   static_cast<int>(kMinHeightTwips / tpp.Y));
    PlaceWindow();
    recoveryTimer_.setInterval(kRecoveryIntervalMs);
    connect(&recoveryTimer_, &QTimer::timeout, this,
            [this] { Guard("Keeping a recovery copy", [this] { flow_.KeepRecoveryCopy(); }); });
    recoveryTimer_.start();
}

void PageForm::PlaceWindow() {
    auto number = [](const char* key) {
        bool ok = false;
        int v = QString::fromStdString(ReadIni(kWindowSection, key, "")).toInt(&ok);
        return ok ? std::optional<int>(v) : std::nullopt;
    };
    std::optional<QRect> saved;
    auto x = number("WindowLeft"), y = number("WindowTop");
    auto w = number("WindowWidth"), h = number("WindowHeight");
    if (x && y && w && h) saved = QRect(*x, *y, *w, *h);
    std::vector<QRect> screens;
    for (QScreen* s : QGuiApplication::screens()) screens.push_back(s->availableGeometry());
    QScreen* here = screen() ? screen() : QGuiApplication::primaryScreen();
    QRect available = here ? here->availableGeometry() : QRect(0, 0, 1280, 800);
    setGeometry(WindowPlace(available, screens, saved, QSize(1180, 820)));
    if (ReadIni(kWindowSection, "Maximized", "False") == "True")
        setWindowState(Qt::WindowMaximized);
}

void PageForm::SaveWindowPlace() {
    QRect place = normalGeometry();
    for (auto [key, value] :
         {std::pair{"WindowLeft", place.x()}, std::pair{"WindowTop", place.y()},
          std::pair{"WindowWidth", place.width()}, std::pair{"WindowHeight", place.height()}}) {
        WriteIni(kWindowSection, key, std::to_string(value));
    }
    WriteIni(kWindowSection, "Maximized", isMaximized() ? "True" : "False");
}

void PageForm::OnTerminate() {
    // As closing does, without asking: what is unsaved is kept as a recovery copy. Nobody is
    // there to answer a message now (a value being typed that is refused, say).
    struct Unattended : MessageService {
        MsgAnswer Show(const std::string&, const std::string&, MsgButtons buttons,
                       MsgIcon) override {
            return FirstButton(buttons);
        }
    } unattended;
    ScopedMessageService silence(unattended);
    EndNudgeRun();
    CommitPendingEdits();
    flow_.KeepRecoveryCopy();
    SaveWindowPlace();
    QApplication::quit();
}

void PageForm::Guard(const QString& what, const std::function<void()>& command) {
    EndNudgeRun();  // any other command ends a run of arrow presses
    CommitPendingEdits();
    RunGuarded(what, command);
}

void PageForm::CommitPendingEdits() {
    RunGuarded("Storing the value", [this] {
        properties_->CommitPendingEdit();
        // Typed but not yet confirmed with Enter: the description counts all the same.
        if (description_->isModified()) DescriptionEdited();
    });
}

void PageForm::RunGuarded(const QString& what, const std::function<void()>& command) {
    EditorHistory::Position before = history_.Now();
    if (RunCommand(state_, ToAnsi(what), command)) return;
    history_.ReturnTo(before);  // the page is as it was before the command
    FollowRestoredPage();
}

void PageForm::FollowRestoredPage() {
    try {
        FillSizeList();
        QSignalBlocker block(sizes_);
        sizes_->setCurrentRow(state_.CurrentFormatIndex - 1);
        RefreshUI(true);
    } catch (const std::exception& e) {
        ShowMessage(CommandFailedText("Showing the page", e.what()), "", MsgIcon::Exclamation);
    }
}

void PageForm::OnUnexpectedError(const std::string& description) {
    std::string text = "An unexpected error occurred: " + description;
    std::string kept = flow_.KeepCopyNow();
    if (!kept.empty()) text += std::string(kCrLf) + kCrLf + "Your page has been kept in " + kept;
    ShowMessage(text, "", MsgIcon::Critical);
}

QString PageForm::DemoDataNote() {
    // Short, so that messages beside it (a written file's path) stay readable.
    return "Demo data: no Veltrane installation found";
}

void PageForm::BuildControls() {
    auto* central = new QWidget(this);
    auto* picture = new QFrame(central);
    picture->setObjectName("Picture1");
    picture->setFrameShape(QFrame::StyledPanel);
    scroll_ = new QScrollArea(picture);
    scroll_->setObjectName("scrPreview");
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidgetResizable(true);  // the page fits the window until zoomed
    preview_ = new PreviewWidget(state_);
    scroll_->setWidget(preview_);
    // A page zoomed smaller than the window sits in the middle of the preview's grey.
    scroll_->setAlignment(Qt::AlignCenter);
    QPalette grey = scroll_->viewport()->palette();
    grey.setColor(QPalette::Window, PreviewWidget::BackColour());
    scroll_->viewport()->setPalette(grey);
    scroll_->viewport()->setAutoFillBackground(true);
    auto* pictureLayout = new QVBoxLayout(picture);
    pictureLayout->setContentsMargins(0, 0, 0, 0);
    pictureLayout->addWidget(scroll_);

    auto* side = new QWidget(central);
    side->setFixedWidth(kSidePanelWidth);
    sizes_ = new QListWidget(side);
    sizes_->setObjectName("lstSize");
    sizes_->setMaximumHeight(sizes_->fontMetrics().lineSpacing() * 6);
    description_ = new QLineEdit(side);
    description_->setObjectName("txtDesc");
    description_->setMaxLength(80);  // what the page file keeps
    numObjects_ = new QLabel(side);
    numObjects_->setObjectName("lblNumObjects");
    numCharts_ = new QLabel(side);
    numCharts_->setObjectName("lblCharts");
    properties_ = new PropertyPanel(history_, dialogs_, side);

    auto* counts = new QGridLayout;
    counts->addWidget(new QLabel("Objects:", side), 0, 0);
    counts->addWidget(numObjects_, 0, 1);
    counts->addWidget(new QLabel("Charts:", side), 0, 2);
    counts->addWidget(numCharts_, 0, 3);
    counts->setColumnStretch(1, 1);
    counts->setColumnStretch(3, 1);
    auto* sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(0, 0, 0, 0);
    sideLayout->addWidget(new QLabel("Page sizes:", side));
    sideLayout->addWidget(sizes_);
    sideLayout->addWidget(new QLabel("Description:", side));
    sideLayout->addWidget(description_);
    sideLayout->addLayout(counts);
    sideLayout->addWidget(properties_, 1);

    auto* layout = new QHBoxLayout(central);
    layout->addWidget(picture, 1);
    layout->addWidget(side);
    setCentralWidget(central);
    // What the preview could not draw of a damaged page stays in view until it is repaired.
    drawNote_ = new QLabel(this);
    drawNote_->setObjectName("lblDrawNote");
    drawNote_->setVisible(false);
    statusBar()->addWidget(drawNote_, 1);
    auto readout = [this](const char* name, const QString& tip, bool permanent) {
        auto* label = new QLabel(this);
        label->setObjectName(name);
        label->setToolTip(tip);
        label->setContentsMargins(8, 0, 8, 0);
        if (permanent) {
            statusBar()->addPermanentWidget(label);
        } else {
            statusBar()->addWidget(label);
        }
        return label;
    };
    selectionReadout_ = readout("lblSelection",
                                "The selected object: its top-left corner and size in pixels of "
                                "the page size shown",
                                false);
    pointerReadout_ = readout("lblPointer",
                              "The pointer in pixels of the page size shown, and as fractions of "
                              "the printable area (as Anchor X and Y give positions)",
                              true);
    // As wide as a long reading, so that the labels beside it stay put as the pointer moves.
    pointerReadout_->setMinimumWidth(
        pointerReadout_->fontMetrics().horizontalAdvance("00000, 00000 px (0.0000, 0.0000)") + 16);
    zoomReadout_ =
        readout("lblZoom", "Ctrl+wheel, Ctrl++ and Ctrl+- zoom; Ctrl+0 fits the page", true);

    connect(sizes_, &QListWidget::currentRowChanged, this, [this](int row) {
        Guard("Showing the page size", [=, this] { SizeRowClicked(row); });
    });
    connect(description_, &QLineEdit::editingFinished, this,
            [this] { Guard("Changing the description", [this] { DescriptionEdited(); }); });
    connect(properties_, &PropertyPanel::objectChosen, this, [this](int16_t index) {
        Guard("Choosing the object", [=, this] { ObjectChosen(index); });
    });
    connect(properties_, &PropertyPanel::propertyChanged, this,
            [this] { Guard("Showing the change", [this] { RefreshUI(true); }); });
    connect(properties_, &PropertyPanel::editColumnsRequested, this,
            [this] { Guard("Edit Columns", [this] { EditColumns(); }); });
    ConnectPreview();
}

void PageForm::Load(const std::string& commandLine) {
    Load(ParseCommandLine(commandLine));
}

void PageForm::Load(const CommandLine& parsed) {
    state_.PendingReset = false;
    state_.CurrentFile = parsed.FileName;
    state_.StartPageSizeIndex = parsed.StartPageSizeIndex;
    state_.DebugMode = parsed.DebugMode;
    debugMenu_->menuAction()->setVisible(state_.DebugMode);
    if (state_.UsingDemoData) {
        auto* note = new QLabel(DemoDataNote(), this);
        note->setObjectName("lblDemoData");
        note->setToolTip("No Veltrane installation was found, so the bundled sample data is used.");
        statusBar()->addPermanentWidget(note);
    }
    bool opened =
        RunCommand(state_, "Opening " + state_.CurrentFile, [this] { flow_.OpenStartFile(); });
    if (!opened) flow_.NewPage();
    if (!state_.PendingReset) RefreshUI(true);
    Guard("Opening a recovered page", [this] { flow_.OfferRecoveredPages(); });
}

void PageForm::SetObjectClickUpdate(bool update) {
    objectClickUpdate_ = update;
    properties_->SetObjectClickUpdate(update);
}

void PageForm::OpenWorkFile() {
    flow_.OpenWorkFile();
}

void PageForm::FillSizeList() {
    QSignalBlocker block(sizes_);
    sizes_->clear();
    if (!state_.Page) return;
    for (int16_t k = 1; k <= state_.Page->NumFormats(); ++k) {
        std::shared_ptr<PageFormat> format = state_.Page->GetFormat(k);
        sizes_->addItem(format ? FromAnsi(FormatDisplayName(*format)) : QString());
    }
}

void PageForm::InitFormatList() {
    FillSizeList();
    if (!state_.Page) return;
    int16_t count = state_.Page->NumFormats();
    int row = 0;
    for (int16_t k = 1; k <= count; ++k) {
        std::shared_ptr<PageFormat> format = state_.Page->GetFormat(k);
        if (format && FormatFitsScreen(*format, ScreenWidth(), ScreenHeight())) row = k - 1;
    }
    if (state_.StartPageSizeIndex >= 1 && state_.StartPageSizeIndex <= count) {
        row = state_.StartPageSizeIndex - 1;
        state_.StartPageSizeIndex = 0;
    }
    if (count > 0) sizes_->setCurrentRow(row);
}

void PageForm::SizeRowClicked(int row) {
    if (row < 0 || !state_.Page) return;
    int16_t index = static_cast<int16_t>(row + 1);
    if (index == state_.CurrentFormatIndex) return;
    state_.SetCurrentFormat(index);
    state_.SelectOnly(0);
    if (state_.CurrentFormat) state_.CurrentFormat->ValidatePage();
    RefreshUI(true);
}

void PageForm::RefreshUI(bool updateAll) {
    SizePreview();
    preview_->Redraw();
    ShowSelectionReadout();
    ShowZoom();  // a fitted page's figure changes with the page and its size
    if (!updateAll) return;
    std::string file = Trim(state_.CurrentFile);
    setWindowTitle(QString("Paginox - ") +
                   (file.empty() ? QString("New Page") : FromPath(ShortPath(state_.CurrentFile))));
    numObjects_->setText(state_.CurrentFormat ? QString::number(state_.CurrentFormat->NumObjects())
                                              : QString());
    numCharts_->setText(state_.Page ? QString::number(state_.Page->NumCharts()) : QString());
    {
        QSignalBlocker block(description_);
        if (state_.Page) description_->setText(FromAnsi(state_.Page->Description()));
        description_->setCursorPosition(0);
    }
    properties_->Rebuild();
    std::shared_ptr<PageObject> obj = state_.Selected();
    properties_->EditColumnsButton()->setEnabled(obj && obj->POClass().HasFlexibleListColumns());
    UpdateUndoMenus();
    UpdateMenuState();
}

bool PageForm::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        FinishPendingReset();
        RefreshUI(true);
    }
    return QMainWindow::event(event);
}

void PageForm::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!shown_) {
        shown_ = true;
        // Without a window manager the window may never be activated: the first showing
        // finishes a new page too.
        if (state_.PendingReset) {
            FinishPendingReset();
            RefreshUI(true);
        }
    }
}

void PageForm::FinishPendingReset() {
    if (state_.PendingReset) flow_.ResetNewPage();
}

void PageForm::closeEvent(QCloseEvent* event) {
    EndNudgeRun();
    CommitPendingEdits();  // so that the save question sees the edit in progress
    flow_.Closing();
    SaveWindowPlace();
    event->accept();
    // Whatever the answer, the program ends, all its windows with it.
    QApplication::closeAllWindows();
    QApplication::quit();
}

void PageForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && state_.SelectedObject >= 1) {
        preview_->AbandonDrag();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

void PageForm::ShowOpenDialog(std::string& fileName, bool& cancelled) {
    FileDialogSpec request{kOpenDialogTitle, kOpenDialogFilter, kPageExtension,
                           RTrim(AppFolders().Path(kPagesFolder)), fileName};
    if (!request.Folder.empty() && request.Folder.back() == kNativeSeparator)
        request.Folder.pop_back();
    std::optional<std::string> chosen = dialogs_.OpenFile(this, request);
    cancelled = !chosen;
    if (chosen) fileName = *chosen;
}

void PageForm::ShowSaveAsDialog(std::string& fileName, bool& cancelled) {
    FileDialogSpec request{kSaveDialogTitle, kSaveDialogFilter, kPageExtension,
                           AppFolders().Path(kPagesFolder), fileName};
    if (!request.Folder.empty() && request.Folder.back() == kNativeSeparator)
        request.Folder.pop_back();
    std::optional<std::string> chosen = dialogs_.SaveFile(this, request);
    cancelled = !chosen;
    if (chosen) fileName = *chosen;
}

bool PageForm::WindowActive() {
    return QApplication::activeWindow() != nullptr;
}

int PageForm::ScreenWidth() {
    QScreen* s = screen() ? screen() : QGuiApplication::primaryScreen();
    return s ? s->geometry().width() : 800;
}

int PageForm::ScreenHeight() {
    QScreen* s = screen() ? screen() : QGuiApplication::primaryScreen();
    return s ? s->geometry().height() : 600;
}

int PageForm::ScreenLogPixels() {
    QScreen* s = screen() ? screen() : QGuiApplication::primaryScreen();
    return s ? static_cast<int>(s->logicalDotsPerInchX() + 0.5) : 96;
}

void PageForm::UpdateUndoMenus() {
    // A run of arrow presses still open is a step to undo as well.
    if (auto* a = findChild<QAction*>("mnuUndo")) a->setEnabled(history_.CanUndo() || nudge_);
    if (auto* a = findChild<QAction*>("mnuRedo")) a->setEnabled(history_.CanRedo());
}

void PageForm::PageReplaced() {
    zoom_.Fit();  // every page opens fitted to the window
    history_.Clear();
    state_.Rects = PreviewRects{};
    state_.SelectionMarks.Clear();
}

}  // namespace paginox
