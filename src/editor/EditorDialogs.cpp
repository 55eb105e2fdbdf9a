#include "editor/EditorDialogs.h"

#include <QFileDialog>
#include <QInputDialog>

#include "editor/FileRoutines.h"
#include "editor/QtText.h"

namespace paginox {

namespace {

std::optional<std::string> RunFileDialog(QWidget* parent, const FileDialogSpec& spec, bool saving) {
    QFileDialog dialog(parent, FromAnsi(spec.Title), FromPath(spec.Folder),
                       FromAnsi(QtFileFilter(spec.Filter)));
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QString::fromStdString(spec.DefaultSuffix));
    if (!spec.FileName.empty()) dialog.selectFile(FromPath(spec.FileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return ToPath(dialog.selectedFiles().first());
}

}  // namespace

std::optional<std::string> QtDialogs::OpenFile(QWidget* parent, const FileDialogSpec& spec) {
    return RunFileDialog(parent, spec, false);
}

std::optional<std::string> QtDialogs::SaveFile(QWidget* parent, const FileDialogSpec& spec) {
    return RunFileDialog(parent, spec, true);
}

std::optional<int> QtDialogs::ChooseItem(QWidget* parent, const QString& title,
                                         const QString& label, const QStringList& items) {
    bool ok = false;
    QString item = QInputDialog::getItem(parent, title, label, items, 0, false, &ok);
    if (!ok) return std::nullopt;
    return static_cast<int>(items.indexOf(item));
}

}  // namespace paginox
