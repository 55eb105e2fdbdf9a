// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageForm.h"

// The main window's commands on several objects: the clipboard, Select All, the Arrange
// submenu, one layout on every page size, and the grid.

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>

#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "editor/Arrange.h"
#include "editor/EditorState.h"
#include "editor/LayoutTransfer.h"
#include "editor/ObjectClipboard.h"
#include "editor/ObjectCommands.h"
#include "editor/PageSizes.h"
#include "editor/QtText.h"
#include "editor/Selection.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "persist/Folders.h"
#include "ui/EditorDialogs.h"
#include "ui/LayoutPreviewDialog.h"
#include "ui/PreviewWidget.h"
#include "ui/PropertyPanel.h"

namespace paginox {

namespace {

constexpr const char* kGridSection = "Editor Grid";
// The size of each page size's picture in the layout preview.
const QSize kLayoutPictureSize(260, 200);

bool ClipboardHasObjects() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasFormat(kObjectsMimeType);
}

}  // namespace

void PageForm::BuildClipboardActions(QMenu* edit) {
    edit->addSeparator();
    AddAction(edit, "mnuEditCut", "Cu&t", [this] {
        CopyToClipboard(true);
    })->setShortcuts(QKeySequence::Cut);
    AddAction(edit, "mnuEditCopy", "&Copy", [this] {
        CopyToClipboard(false);
    })->setShortcuts(QKeySequence::Copy);
    AddAction(edit, "mnuEditPaste", "&Paste", [this] {
        PasteFromClipboard();
    })->setShortcuts(QKeySequence::Paste);
    edit->addSeparator();
    AddAction(edit, "mnuEditSelectAll", "Select &All", [this] {
        SelectAllObjects();
    })->setShortcuts(QKeySequence::SelectAll);
    connect(edit, &QMenu::aboutToShow, this, [this] { UpdateArrangeState(); });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            [this] { UpdateArrangeState(); });
}

void PageForm::BuildArrangeMenu() {
    arrangeMenu_ = objectMenu_->addMenu("A&rrange");
    arrangeMenu_->setObjectName("mnuArrange");
    arrangeMenu_->menuAction()->setObjectName("mnuArrange");
    auto align = [this](const char* name, const QString& text, Alignment how) {
        AddAction(arrangeMenu_, name, text, [this, how] {
            Arrange([this, how](EditStep& step) { return AlignSelection(state_, step, how); });
        });
    };
    align("mnuAlignLeft", "Align &Left Edges", Alignment::Left);
    align("mnuAlignRight", "Align &Right Edges", Alignment::Right);
    align("mnuAlignTop", "Align &Top Edges", Alignment::Top);
    align("mnuAlignBottom", "Align &Bottom Edges", Alignment::Bottom);
    align("mnuAlignCentres", "Align &Horizontal Centres", Alignment::Centre);
    align("mnuAlignMiddles", "Align &Vertical Centres", Alignment::Middle);
    arrangeMenu_->addSeparator();
    for (int16_t axis : {1, 2}) {
        AddAction(arrangeMenu_, axis == 1 ? "mnuDistributeAcross" : "mnuDistributeDown",
                  axis == 1 ? "Distribute Hori&zontally" : "Distribute V&ertically", [this, axis] {
                      Arrange([this, axis](EditStep& step) {
                          return DistributeSelection(state_, step, axis);
                      });
                  });
    }
    arrangeMenu_->addSeparator();
    auto same = [this](const char* name, const QString& text, SizeMatch what) {
        AddAction(arrangeMenu_, name, text, [this, what] {
            Arrange([this, what](EditStep& step) { return MatchPrimarySize(state_, step, what); });
        });
    };
    same("mnuSameWidth", "Make Same &Width", SizeMatch::Width);
    same("mnuSameHeight", "Make Same Hei&ght", SizeMatch::Height);
    same("mnuSameSize", "Make Same &Size", SizeMatch::Both);
    objectMenu_->addSeparator();
    AddAction(objectMenu_, "mnuCopyToAllSizes", "Copy to All Page Si&zes...",
              [this] { CopyToAllSizes(); });
    AddAction(pageMenu_, "mnuPageCopyLayout", "&Copy Layout From...",
              [this] { CopyLayoutFromSize(); });
}

void PageForm::BuildGridActions(QMenu* view) {
    view->addSeparator();
    QAction* show = AddAction(view, "mnuViewGrid", "&Grid", [this] {
        preview_->Snapping().ShowGrid = findChild<QAction*>("mnuViewGrid")->isChecked();
        SaveGridSettings();
        preview_->update();
    });
    show->setCheckable(true);
    show->setShortcut(Qt::CTRL | Qt::Key_Apostrophe);
    QAction* objects = AddAction(view, "mnuViewSnapObjects", "Snap to &Objects", [this] {
        preview_->Snapping().Objects = findChild<QAction*>("mnuViewSnapObjects")->isChecked();
        SaveGridSettings();
    });
    objects->setCheckable(true);
    QAction* snap = AddAction(view, "mnuViewSnapGrid", "&Snap to Grid", [this] {
        preview_->Snapping().ToGrid = findChild<QAction*>("mnuViewSnapGrid")->isChecked();
        SaveGridSettings();
    });
    snap->setCheckable(true);
    snap->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Apostrophe);
    AddAction(view, "mnuViewGridSpacing", "Grid Spa&cing...", [this] { ChooseGridSpacing(); });
}

void PageForm::LoadGridSettings() {
    SnapSettings& snapping = preview_->Snapping();
    bool ok = false;
    int spacing = QString::fromStdString(ReadIni(kGridSection, "Spacing", "")).toInt(&ok);
    if (ok && spacing >= kMinGridSpacing && spacing <= kMaxGridSpacing) {
        snapping.GridSpacing = spacing;
    }
    snapping.ShowGrid = ReadIni(kGridSection, "Show", "False") == "True";
    snapping.ToGrid = ReadIni(kGridSection, "Snap", "False") == "True";
    snapping.Objects = ReadIni(kGridSection, "Objects", "True") == "True";
    findChild<QAction*>("mnuViewSnapObjects")->setChecked(snapping.Objects);
    findChild<QAction*>("mnuViewGrid")->setChecked(snapping.ShowGrid);
    findChild<QAction*>("mnuViewSnapGrid")->setChecked(snapping.ToGrid);
}

void PageForm::SaveGridSettings() {
    const SnapSettings& snapping = preview_->Snapping();
    WriteIni(kGridSection, "Spacing", std::to_string(snapping.GridSpacing));
    WriteIni(kGridSection, "Show", snapping.ShowGrid ? "True" : "False");
    WriteIni(kGridSection, "Snap", snapping.ToGrid ? "True" : "False");
    WriteIni(kGridSection, "Objects", snapping.Objects ? "True" : "False");
}

void PageForm::ChooseGridSpacing() {
    std::optional<int> spacing = dialogs_.ChooseNumber(
        this, "Grid Spacing", "Grid spacing in page-size pixels:", preview_->Snapping().GridSpacing,
        kMinGridSpacing, kMaxGridSpacing);
    if (!spacing) return;
    preview_->Snapping().GridSpacing = *spacing;
    SaveGridSettings();
    preview_->update();
}

void PageForm::UpdateArrangeState() {
    size_t count = state_.SelectedObjects().size();
    findChild<QAction*>("mnuPopupCopy")->setText(count > 1 ? "&Copy Objects" : "&Copy Object");
    findChild<QAction*>("mnuPopupDelete")
        ->setText(count > 1 ? "&Delete Objects" : "&Delete Object");
    bool several = state_.Page && state_.Page->NumFormats() >= 2;
    for (const char* name : {"mnuAlignLeft", "mnuAlignRight", "mnuAlignTop", "mnuAlignBottom",
                             "mnuAlignCentres", "mnuAlignMiddles", "mnuEditCut", "mnuEditCopy"}) {
        findChild<QAction*>(name)->setEnabled(count >= 1);
    }
    for (const char* name : {"mnuSameWidth", "mnuSameHeight", "mnuSameSize"}) {
        findChild<QAction*>(name)->setEnabled(count >= 2);
    }
    for (const char* name : {"mnuDistributeAcross", "mnuDistributeDown"}) {
        findChild<QAction*>(name)->setEnabled(count >= 3);
    }
    findChild<QAction*>("mnuCopyToAllSizes")->setEnabled(count >= 1 && several);
    findChild<QAction*>("mnuPageCopyLayout")->setEnabled(several);
    findChild<QAction*>("mnuEditPaste")->setEnabled(state_.CurrentFormat && ClipboardHasObjects());
    findChild<QAction*>("mnuEditSelectAll")
        ->setEnabled(state_.CurrentFormat && state_.CurrentFormat->NumObjects() > 0);
}

void PageForm::SelectAllObjects() {
    SelectAll(state_);
    RefreshUI(false);
    PreviewSelectionMade();
}

void PageForm::Arrange(const std::function<bool(EditStep&)>& change) {
    if (!state_.Selected()) return;
    try {
        EditStep step(history_);
        change(step);
    } catch (const RuntimeError& e) {
        ShowMessage(e.Description(), "", MsgIcon::Exclamation);
    }
    RefreshUI(true);
    PreviewSelectionMade();
}

void PageForm::CopyToClipboard(bool cut) {
    CopiedObjects copied = CopySelectedObjects(state_);
    if (copied.Bytes.empty()) return;
    auto* data = new QMimeData;
    data->setData(kObjectsMimeType, QByteArray::fromStdString(copied.Bytes));
    data->setText(QString::fromStdString(copied.Json));
    QGuiApplication::clipboard()->setMimeData(data);
    if (cut && history_.Structural([this] { return DeleteSelectedObjects(state_); })) {
        RefreshUI(true);
    }
}

void PageForm::PasteFromClipboard() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data || !data->hasFormat(kObjectsMimeType)) {
        ShowMessage("The clipboard holds no Paginox objects to paste.", "Paste",
                    MsgIcon::Information);
        return;
    }
    QByteArray bytes = data->data(kObjectsMimeType);
    std::vector<std::shared_ptr<PageObject>> objects;
    try {
        objects = ReadCopiedObjects(std::string_view(bytes.constData(), size_t(bytes.size())));
    } catch (const RuntimeError& e) {
        ShowMessage(e.Description(), "Paste", MsgIcon::Exclamation);
        return;
    }
    if (history_.Structural([&] { return PasteObjects(state_, objects); })) {
        RefreshUI(true);
        PreviewSelectionMade();
        ShowNote(objects.size() == 1 ? QString("Pasted 1 object")
                                     : QString("Pasted %1 objects").arg(objects.size()));
    }
}

bool PageForm::ConfirmLayout(const QString& title, const PageClass& after,
                             const std::vector<int16_t>& changed) {
    std::vector<LayoutView> views;
    for (int16_t k : changed) {
        views.push_back({FromAnsi(FormatDisplayName(*after.GetFormat(k))),
                         LayoutPreviewDialog::Picture(*state_.Page, k, kLayoutPictureSize),
                         LayoutPreviewDialog::Picture(after, k, kLayoutPictureSize)});
    }
    QString text = changed.size() == 1
                       ? "This page size will change as shown:"
                       : QString("These %1 page sizes will change as shown:").arg(changed.size());
    return dialogs_.ApproveLayout(this, title, text, views);
}

void PageForm::CopyToAllSizes() {
    std::vector<int16_t> selected = state_.SelectedObjects();
    if (selected.empty() || !state_.Page) return;
    std::shared_ptr<PageClass> after = state_.Page->Copy();
    std::vector<int16_t> changed =
        CopyObjectsToAllSizes(*after, state_.CurrentFormatIndex, selected);
    if (changed.empty() || !ConfirmLayout("Copy to All Page Sizes", *after, changed)) return;
    history_.Structural([&] {
        CopyObjectsToAllSizes(*state_.Page, state_.CurrentFormatIndex, selected);
        return true;
    });
    RefreshUI(true);
    ShowNote(changed.size() == 1 ? QString("Copied to the other page size")
                                 : QString("Copied to %1 other page sizes").arg(changed.size()));
}

void PageForm::CopyLayoutFromSize() {
    if (!state_.Page || state_.Page->NumFormats() < 2) return;
    QStringList names;
    std::vector<int16_t> indices;
    for (int16_t k = 1; k <= state_.Page->NumFormats(); ++k) {
        if (k == state_.CurrentFormatIndex || !state_.Page->GetFormat(k)) continue;
        names << FromAnsi(FormatDisplayName(*state_.Page->GetFormat(k)));
        indices.push_back(k);
    }
    std::optional<int> choice = dialogs_.ChooseItem(
        this, "Copy Layout From", "Take the objects and their places from the page size:", names);
    if (!choice || *choice < 0 || size_t(*choice) >= indices.size()) return;
    int16_t from = indices[size_t(*choice)];
    std::shared_ptr<PageClass> after = state_.Page->Copy();
    if (!CopyLayout(*after, state_.CurrentFormatIndex, from)) {
        ShowNote("This page size has that layout already");
        return;
    }
    if (!ConfirmLayout("Copy Layout From", *after, {state_.CurrentFormatIndex})) return;
    history_.Structural([&] {
        state_.SelectOnly(0);
        return CopyLayout(*state_.Page, state_.CurrentFormatIndex, from);
    });
    RefreshUI(true);
    properties_->RebuildRows();
}

}  // namespace paginox
