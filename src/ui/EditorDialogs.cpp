// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/EditorDialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QRegularExpression>
#include <QTreeView>

#include "editor/FileRoutines.h"
#include "editor/QtText.h"
#include "ui/LayoutPreviewDialog.h"

namespace paginox {

namespace {

// The details view, its names given the room left by sizes, kinds and dates shown whole.
void ShowWholeColumns(QFileDialog& dialog) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setViewMode(QFileDialog::Detail);
    if (auto* tree = dialog.findChild<QTreeView*>("treeView")) {
        QHeaderView* header = tree->header();
        header->setStretchLastSection(false);
        header->setSectionResizeMode(QHeaderView::ResizeToContents);
        header->setSectionResizeMode(0, QHeaderView::Stretch);
    }
}

std::optional<std::string> RunFileDialog(QWidget* parent, const FileDialogSpec& request,
                                         bool saving) {
    QFileDialog dialog(parent, FromAnsi(request.Title), FromPath(request.Folder),
                       FromAnsi(QtFileFilter(request.Filter)));
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QString::fromStdString(request.DefaultSuffix));
    // A name typed without extension takes the chosen filter's, where it names one.
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& f) {
        QRegularExpressionMatch ext = QRegularExpression(R"(\*\.(\w+))").match(f);
        if (ext.hasMatch()) dialog.setDefaultSuffix(ext.captured(1));
    });
    if (!request.FileName.empty()) {
        // The filter of the proposed name's kind, where the list has one.
        QString suffix = QFileInfo(FromPath(request.FileName)).suffix();
        for (const QString& filter : dialog.nameFilters()) {
            if (!suffix.isEmpty() && filter.contains("*." + suffix, Qt::CaseInsensitive)) {
                dialog.selectNameFilter(filter);
                dialog.setDefaultSuffix(suffix);
                break;
            }
        }
        dialog.selectFile(FromPath(request.FileName));
    }
    dialog.resize(dialog.sizeHint().expandedTo(QSize(880, 560)));
    ShowWholeColumns(dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return ToPath(dialog.selectedFiles().first());
}

}  // namespace

std::optional<std::string> QtDialogs::OpenFile(QWidget* parent, const FileDialogSpec& request) {
    return RunFileDialog(parent, request, false);
}

std::optional<std::string> QtDialogs::SaveFile(QWidget* parent, const FileDialogSpec& request) {
    return RunFileDialog(parent, request, true);
}

std::optional<int> QtDialogs::ChooseItem(QWidget* parent, const QString& title,
                                         const QString& label, const QStringList& items) {
    bool ok = false;
    QString item = QInputDialog::getItem(parent, title, label, items, 0, false, &ok);
    if (!ok) return std::nullopt;
    return static_cast<int>(items.indexOf(item));
}

std::optional<int> QtDialogs::ChooseNumber(QWidget* parent, const QString& title,
                                           const QString& label, int value, int min, int max) {
    bool ok = false;
    int chosen = QInputDialog::getInt(parent, title, label, value, min, max, 1, &ok);
    if (!ok) return std::nullopt;
    return chosen;
}

bool QtDialogs::ApproveLayout(QWidget* parent, const QString& title, const QString& text,
                              const std::vector<LayoutView>& views) {
    LayoutPreviewDialog dialog(title, text, views, parent);
    return dialog.exec() == QDialog::Accepted;
}

}  // namespace paginox
