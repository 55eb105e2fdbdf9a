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

}  // namespace

PageForm::PageForm(EditorState& state, EditorDialogs& dialogs, QWidget* parent)
    : QMainWindow(parent),
      state_(state),
      dialogs_(dialogs),
      undo_([this](int32_t id, const PropertyValue& v, int16_t f, int16_t o,
                   int16_t s) { SetProperty(state_, id, v, f, o, s); },
            [this](bool, bool) { UpdateUndoMenus(); }),
      flow_(state, *this) {
    setObjectName("PageForm");
    setWindowTitle("Paginox");
    ShowPopup = [](QMenu& menu, const QPoint& pos) { menu.exec(pos); };
    BuildControls();
    BuildMenus();
    TwipsPerPixel tpp = ScreenTwipsPerPixel();
    setMinimumSize(static_cast<int>(kMinWidthTwips / tpp.X),
                   static_cast<int>(kMinHeightTwips / tpp.Y));
    resize(1180, 820);
    undo_.Clear();
    recoveryTimer_.setInterval(kRecoveryIntervalMs);
    connect(&recoveryTimer_, &QTimer::timeout, this,
            [this] { Guard("Keeping a recovery copy", [this] { flow_.KeepRecoveryCopy(); }); });
    recoveryTimer_.start();
}

void PageForm::Guard(const QString& what, const std::function<void()>& command) {
    if (!RunCommand(state_, ToAnsi(what), command)) FollowRestoredPage();
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
    preview_ = new PreviewWidget(state_, picture);
    auto* pictureLayout = new QVBoxLayout(picture);
    pictureLayout->setContentsMargins(0, 0, 0, 0);
    pictureLayout->addWidget(preview_);

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
    properties_ = new PropertyPanel(state_, undo_, dialogs_, side);

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
    connect(preview_, &PreviewWidget::drawNoteChanged, this, [this](const QString& note) {
        drawNote_->setText(note);
        drawNote_->setToolTip(note);
        drawNote_->setVisible(!note.isEmpty());
    });

    connect(sizes_, &QListWidget::currentRowChanged, this,
            [this](int row) { Guard("Showing the page size", [=] { SizeRowClicked(row); }); });
    connect(description_, &QLineEdit::editingFinished, this,
            [this] { Guard("Changing the description", [this] { DescriptionEdited(); }); });
    connect(properties_, &PropertyPanel::objectChosen, this,
            [this](int16_t index) { Guard("Choosing the object", [=] { ObjectChosen(index); }); });
    connect(properties_, &PropertyPanel::propertyChanged, this,
            [this] { Guard("Showing the change", [this] { RefreshUI(true); }); });
    connect(properties_, &PropertyPanel::editColumnsRequested, this,
            [this] { Guard("Edit Columns", [this] { EditColumns(); }); });
    connect(preview_, &PreviewWidget::pressed, this,
            [this] { properties_->EditColumnsButton()->setEnabled(false); });
    connect(preview_, &PreviewWidget::selectionMade, this,
            [this] { Guard("Selecting the object", [this] { PreviewSelectionMade(); }); });
    connect(preview_, &PreviewWidget::dragFinished, this, [this](int16_t mode, float dx, float dy) {
        Guard("Moving the object", [=] { PreviewDragFinished(mode, dx, dy); });
    });
    connect(preview_, &PreviewWidget::popupRequested, this,
            [this](const QPoint& pos) { PreviewPopup(pos); });
}

QAction* PageForm::AddAction(QMenu* menu, const char* name, const QString& text,
                             std::function<void()> handler) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    QString what = QString(text).remove('&').remove("...");
    connect(action, &QAction::triggered, this,
            [this, what, handler = std::move(handler)] { Guard(what, handler); });
    return action;
}

void PageForm::BuildMenus() {
    QMenu* file = menuBar()->addMenu("&File");
    file->setObjectName("mnuFile");
    AddAction(file, "mnuFileNew", "&New", [this] {
        flow_.FileNew();
    })->setShortcut(QKeySequence::New);
    AddAction(file, "mnuFileOpen", "&Open...", [this] {
        flow_.FileOpen();
    })->setShortcut(QKeySequence::Open);
    AddAction(file, "mnuFileSave", "&Save", [this] {
        flow_.FileSave();
    })->setShortcut(QKeySequence::Save);
    AddAction(file, "mnuFileSaveAs", "Save &As...", [this] {
        flow_.FileSaveAs();
    })->setShortcut(QKeySequence::SaveAs);
    file->addSeparator();
    AddAction(file, "mnuTransXML", "&Translate to XML", [this] { TranslateToXml(); });
    file->addSeparator();
    AddAction(file, "mnuExit", "E&xit", [this] { close(); })->setShortcut(QKeySequence::Quit);

    QMenu* edit = menuBar()->addMenu("&Edit");
    edit->setObjectName("mnuEdit");
    AddAction(edit, "mnuUndo", "&Undo", [this] {
        UndoOrRedo(false);
    })->setShortcut(QKeySequence::Undo);
    AddAction(edit, "mnuRedo", "&Redo", [this] {
        UndoOrRedo(true);
    })->setShortcut(QKeySequence::Redo);
    edit->addSeparator();
    AddAction(edit, "mnuEditDesc", "Page &Description", [this] { description_->setFocus(); });

    pageMenu_ = menuBar()->addMenu("&Page");
    pageMenu_->setObjectName("mnuPage");
    AddAction(pageMenu_, "mnuPageBrowser", "Page &Browser...", [this] { BrowsePages(); });
    AddAction(pageMenu_, "mnuPageAddSize", "&Add Page Size...", [this] { AddPageSize(); });
    AddAction(pageMenu_, "mnuPageDelSize", "&Delete Page Size", [this] { DeletePageSize(); });

    objectMenu_ = menuBar()->addMenu("&Object");
    objectMenu_->setObjectName("mnuObject");
    AddAction(objectMenu_, "mnuObjectAdd", "&Add Object...", [this] {
        AddObject();
    })->setShortcut(Qt::CTRL | Qt::Key_I);
    objectMenu_->addSeparator();
    AddAction(objectMenu_, "mnuPopupCopy", "&Copy Object", [this] { CopyObject(); });
    AddAction(objectMenu_, "mnuPopupDelete", "&Delete Object", [this] {
        DeleteSelectedObject();
    })->setShortcut(QKeySequence::Delete);
    AddAction(objectMenu_, "mnuPopupEditFlexible", "Edit &Columns...", [this] { EditColumns(); });
    AddAction(objectMenu_, "mnuPopupMoveToFront", "Move to &Front", [this] { MoveToFront(true); });
    AddAction(objectMenu_, "mnuPopupMoveToBack", "Move to &Back", [this] { MoveToFront(false); });
    AddAction(objectMenu_, "mnuPopupAlign", "A&lign...", [this] { AlignObject(); });
    AddAction(objectMenu_, "mnuPopupPos", "&Position...", [this] { PositionObject(); });

    QMenu* help = menuBar()->addMenu("&Help");
    help->setObjectName("mnuHelp");
    AddAction(help, "mnuHelpContents", "&Contents", [this] {
        HelpContents();
    })->setShortcut(QKeySequence::HelpContents);

    debugMenu_ = menuBar()->addMenu("&Debug");
    debugMenu_->setObjectName("mnuDebug");
    AddAction(debugMenu_, "mnuDebugSummary", "Page &Summary", [this] { ShowPageSummary(); });
    debugMenu_->menuAction()->setVisible(false);

    connect(pageMenu_, &QMenu::aboutToShow, this, [this] { UpdateMenuState(); });
    connect(objectMenu_, &QMenu::aboutToShow, this, [this] { UpdateMenuState(); });
}

void PageForm::UpdateMenuState() {
    bool several = state_.Page && state_.Page->NumFormats() >= 2;
    findChild<QAction*>("mnuPageDelSize")->setEnabled(several);
    std::shared_ptr<PageObject> obj = state_.Selected();
    for (const char* name : {"mnuPopupMoveToFront", "mnuPopupMoveToBack", "mnuPopupDelete",
                             "mnuPopupCopy", "mnuPopupAlign", "mnuPopupPos"}) {
        findChild<QAction*>(name)->setEnabled(obj != nullptr);
    }
    findChild<QAction*>("mnuPopupEditFlexible")
        ->setEnabled(obj && obj->POClass().HasFlexibleListColumns());
}

void PageForm::Load(const std::string& commandLine) {
    state_.StartPageSizeIndex = 0;
    state_.PendingReset = false;
    state_.DebugMode = false;
    CommandLine parsed = ParseCommandLine(commandLine);
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
    state_.SelectedObject = 0;
    if (state_.CurrentFormat) state_.CurrentFormat->ValidatePage();
    RefreshUI(true);
}

void PageForm::RefreshUI(bool updateAll) {
    preview_->Redraw();
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
    flow_.Closing();
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
    // The history's own order decides, not the property stacks alone.
    if (auto* a = findChild<QAction*>("mnuUndo")) a->setEnabled(history_.CanUndo());
    if (auto* a = findChild<QAction*>("mnuRedo")) a->setEnabled(history_.CanRedo());
}

void PageForm::PageReplaced() {
    history_.Clear();
    state_.Rects = PreviewRects{};
    state_.SelectionMarks.Clear();
}

}  // namespace paginox
