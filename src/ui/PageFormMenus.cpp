// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageForm.h"

// The main window's menus: their commands, shortcuts and which are available.

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

#include "core/MessageService.h"
#include "editor/EditorState.h"
#include "model/PageClass.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "ui/InstallationDialog.h"

namespace paginox {

namespace {

// The platform's keys for a standard command, or the usual ones where it has none (a bare
// X11 desktop has none for Save As, for one).
QList<QKeySequence> StandardKeys(QKeySequence::StandardKey key, const QKeySequence& usual) {
    QList<QKeySequence> keys = QKeySequence::keyBindings(key);
    return keys.isEmpty() ? QList<QKeySequence>{usual} : keys;
}

}  // namespace

QAction* PageForm::AddAction(QMenu* menu, const char* name, const QString& text,
                             std::function<void()> handler) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    QString what = QString(text).remove('&').remove("...");
    connect(action, &QAction::triggered, this,
            [this, what, handler = std::move(handler)] { Guard(what, handler); });
    return action;
}

void PageForm::BuildFileMenu() {
    QMenu* file = menuBar()->addMenu("&File");
    file->setObjectName("mnuFile");
    AddAction(file, "mnuFileNew", "&New", [this] {
        flow_.FileNew();
    })->setShortcuts(StandardKeys(QKeySequence::New, Qt::CTRL | Qt::Key_N));
    AddAction(file, "mnuFileOpen", "&Open...", [this] {
        flow_.FileOpen();
    })->setShortcuts(StandardKeys(QKeySequence::Open, Qt::CTRL | Qt::Key_O));
    recentMenu_ = file->addMenu("Open &Recent");
    recentMenu_->setObjectName("mnuFileRecent");
    connect(recentMenu_, &QMenu::aboutToShow, this, [this] { FillRecentMenu(); });
    AddAction(file, "mnuFileSave", "&Save", [this] {
        flow_.FileSave();
    })->setShortcuts(StandardKeys(QKeySequence::Save, Qt::CTRL | Qt::Key_S));
    AddAction(file, "mnuFileSaveAs", "Save &As...", [this] {
        flow_.FileSaveAs();
    })->setShortcuts(StandardKeys(QKeySequence::SaveAs, Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    file->addSeparator();
    AddAction(file, "mnuFileExport", "&Export...", [this] {
        ExportFormat();
    })->setShortcut(Qt::CTRL | Qt::Key_E);
    AddAction(file, "mnuFilePrint", "&Print...", [this] {
        PrintPage(false);
    })->setShortcuts(StandardKeys(QKeySequence::Print, Qt::CTRL | Qt::Key_P));
    AddAction(file, "mnuFilePrintPreview", "Print Pre&view...", [this] { PrintPage(true); });
    AddAction(file, "mnuTransXML", "&Translate to XML", [this] { TranslateToXml(); });
    AddAction(file, "mnuFileInstallation", "Veltrane &Installation...", [this] {
        InstallationDialog dialog(this);
        dialog.exec();
    });
    file->addSeparator();
    AddAction(file, "mnuExit", "E&xit", [this] {
        close();
    })->setShortcuts(StandardKeys(QKeySequence::Quit, Qt::CTRL | Qt::Key_Q));
}

void PageForm::BuildViewMenu() {
    QMenu* view = menuBar()->addMenu("&View");
    view->setObjectName("mnuView");
    auto zoomAction = [&](const char* name, const QString& text, const QList<QKeySequence>& keys,
                          std::function<void()> change, bool aboutPointer) {
        AddAction(view, name, text, [this, change, aboutPointer] {
            ZoomTo(change, aboutPointer ? PointerOnPreview() : std::nullopt);
        })->setShortcuts(keys);
    };
    // Ctrl+= as well, for keyboards where + needs Shift.
    QList<QKeySequence> zoomIn = StandardKeys(QKeySequence::ZoomIn, Qt::CTRL | Qt::Key_Plus);
    zoomIn << QKeySequence(Qt::CTRL | Qt::Key_Equal);  // where + needs Shift
    zoomAction(
        "mnuViewZoomIn", "Zoom &In", zoomIn, [this] { zoom_.StepIn(ShownZoom()); }, true);
    zoomAction(
        "mnuViewZoomOut", "Zoom &Out",
        StandardKeys(QKeySequence::ZoomOut, Qt::CTRL | Qt::Key_Minus),
        [this] { zoom_.StepOut(ShownZoom()); }, true);
    view->addSeparator();
    zoomAction(
        "mnuViewFit", "&Fit Page", {Qt::CTRL | Qt::Key_0}, [this] { zoom_.Fit(); }, false);
    zoomAction(
        "mnuViewActual", "&Actual Size", {Qt::CTRL | Qt::Key_1}, [this] { zoom_.SetFactor(1.0); },
        true);
    BuildGridActions(view);
}

void PageForm::BuildMenus() {
    BuildFileMenu();

    QMenu* edit = menuBar()->addMenu("&Edit");
    edit->setObjectName("mnuEdit");
    AddAction(edit, "mnuUndo", "&Undo", [this] {
        UndoOrRedo(false);
    })->setShortcuts(StandardKeys(QKeySequence::Undo, Qt::CTRL | Qt::Key_Z));
    AddAction(edit, "mnuRedo", "&Redo", [this] {
        UndoOrRedo(true);
    })->setShortcuts(StandardKeys(QKeySequence::Redo, Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    BuildClipboardActions(edit);
    edit->addSeparator();
    AddAction(edit, "mnuEditDesc", "Page &Description", [this] { description_->setFocus(); });

    BuildViewMenu();

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
    })->setShortcuts(StandardKeys(QKeySequence::Delete, Qt::Key_Delete));
    AddAction(objectMenu_, "mnuPopupEditFlexible", "Edit &Columns...", [this] { EditColumns(); });
    AddAction(objectMenu_, "mnuPopupMoveToFront", "Move to &Front", [this] { MoveToFront(true); });
    AddAction(objectMenu_, "mnuPopupMoveToBack", "Move to &Back", [this] { MoveToFront(false); });
    AddAction(objectMenu_, "mnuPopupAlign", "A&lign...", [this] { AlignObject(); });
    AddAction(objectMenu_, "mnuPopupPos", "&Position...", [this] { PositionObject(); });
    BuildArrangeMenu();

    QMenu* help = menuBar()->addMenu("&Help");
    help->setObjectName("mnuHelp");
    AddAction(help, "mnuHelpContents", "&Contents", [this] {
        HelpContents();
    })->setShortcuts(StandardKeys(QKeySequence::HelpContents, Qt::Key_F1));
    AddAction(help, "mnuHelpAbout", "&About Paginox", [] {
        ShowMessage(std::string("Paginox ") + PAGINOX_VERSION + kCrLf + kCrLf +
                        "The page layout editor for the Veltrane astrology program." + kCrLf +
                        kCrLf +
                        "Free software under the GNU General Public License, version 3 or "
                        "any later version (GPL-3.0-or-later). There is no warranty.",
                    "About Paginox", MsgIcon::Information);
    });

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
    UpdateArrangeState();
}

}  // namespace paginox
