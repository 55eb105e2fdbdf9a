// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageForm.h"

// The main window's files beyond open and save: the recent pages, pages dropped on the window,
// and the current page size exported as a picture or printed.

#include <QAction>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QUrl>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "editor/EditorState.h"
#include "editor/QtText.h"
#include "editor/RecentFiles.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "persist/AtomicSave.h"
#include "persist/BinaryFile.h"
#include "render/PageExport.h"
#include "ui/EditorDialogs.h"

namespace paginox {

namespace {

constexpr const char* kExportFilter =
    "PNG Image (*.png)|*.png|SVG Drawing (*.svg)|*.svg|PDF Document (*.pdf)|*.pdf";

// The first local page file among the dropped URLs.
QString DroppedPage(const QMimeData* data) {
    if (!data || !data->hasUrls()) return QString();
    for (const QUrl& url : data->urls()) {
        QFileInfo file(url.toLocalFile());
        if (url.isLocalFile() && file.suffix().compare("pag", Qt::CaseInsensitive) == 0) {
            return file.filePath();
        }
    }
    return QString();
}

}  // namespace

void PageForm::FillRecentMenu() {
    recentMenu_->clear();
    RecentFiles recent = RecentFiles::Load();
    std::vector<std::string> dropped = recent.DropMissing();
    if (!dropped.empty()) {
        QStringList names;
        for (const std::string& path : dropped) names << QFileInfo(FromPath(path)).fileName();
        ShowNote("No longer there, so left out of Open Recent: " + names.join(", "));
    }
    const std::vector<std::string> labels = recent.Labels();
    int number = 0;
    for (const std::string& path : recent.Files()) {
        QString label = FromPath(labels[size_t(number)]);
        QAction* action = recentMenu_->addAction(QString("&%1 %2").arg(++number).arg(label));
        action->setToolTip(FromPath(path));
        action->setStatusTip(FromPath(path));
        connect(action, &QAction::triggered, this,
                [this, path] { Guard("Open Recent", [=, this] { OpenRecent(path); }); });
    }
    if (recent.Files().empty()) recentMenu_->addAction("No recent pages")->setEnabled(false);
    recentMenu_->addSeparator();
    QAction* clear = recentMenu_->addAction("&Clear Recent");
    clear->setObjectName("mnuFileRecentClear");
    clear->setEnabled(!recent.Files().empty());
    connect(clear, &QAction::triggered, this, [] { RecentFiles::Load().Clear(); });
}

void PageForm::OpenRecent(const std::string& path) {
    if (!FileExists(path)) {
        // Gone since the menu was filled: said, and taken off the list, rather than opened empty.
        RecentFiles::Load().DropMissing();
        ShowMessage(
            Utf8ToCp1252(path) + " is no longer there, so it has been taken off Open Recent.",
            "Open Recent", MsgIcon::Exclamation);
        return;
    }
    flow_.FileOpenPath(path);
}

void PageForm::FileUsed(const std::string& path) {
    RecentFiles::Load().Add(path);
}

void PageForm::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedPage(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void PageForm::dropEvent(QDropEvent* event) {
    QString page = DroppedPage(event->mimeData());
    if (page.isEmpty()) return;
    event->acceptProposedAction();
    // After the drop has finished, so that the save question is not asked inside it.
    QMetaObject::invokeMethod(
        this,
        [this, page] {
            Guard("Opening the dropped page", [=, this] { flow_.FileOpenPath(ToPath(page)); });
        },
        Qt::QueuedConnection);
}

void PageForm::ExportFormat() {
    const PageFormat* format = state_.CurrentFormat.get();
    if (!state_.Page || !format) return;
    if (format->XPixels() < 1 || format->YPixels() < 1) {
        ShowMessage("This page size cannot be exported (it is " +
                        std::to_string(format->XPixels()) + " x " +
                        std::to_string(format->YPixels()) + " pixels).",
                    "Export", MsgIcon::Exclamation);
        return;
    }
    // Proposed beside the last export, in its kind; the first time beside the page, as PNG.
    QFileInfo page(FromPath(state_.CurrentFile));
    QString name = state_.CurrentFile.empty() ? QString("Page") : page.completeBaseName();
    QFileInfo beside = lastExport_.empty() ? page : QFileInfo(FromPath(lastExport_));
    QString folder = beside.filePath().isEmpty() ? QString() : beside.absolutePath();
    QString suffix = lastExport_.empty() ? QString("png") : beside.suffix();
    FileDialogSpec request{"Export Page Size", kExportFilter, ToPath(suffix), ToPath(folder),
                           ToPath(name + "." + suffix)};
    std::optional<PictureKind> kind;
    std::optional<std::string> chosen;
    while (!kind) {
        chosen = dialogs_.SaveFile(this, request);
        if (!chosen) return;
        kind = PictureKindOf(*chosen);
        if (!kind) {
            ShowMessage("Give the file the extension of the picture wanted: .png, .svg or .pdf.",
                        "Export", MsgIcon::Exclamation);
            request.FileName = *chosen;
        }
    }
    std::string tooLarge = PictureSizeProblem(*kind, format->XPixels(), format->YPixels());
    if (!tooLarge.empty()) {
        ShowMessage(tooLarge, "Export", MsgIcon::Exclamation);
        return;
    }
    PictureOptions options;
    options.Title = ToPath(name);
    Picture picture = DrawPicture(*kind, format->XPixels(), format->YPixels(),
                                  state_.Page->NumCharts(), *format, options);
    try {
        SaveFileAtomically(*chosen, picture.Bytes);
    } catch (const RuntimeError& e) {
        ShowMessage("Error whilst writing " + Utf8ToCp1252(*chosen) + ": " + e.Description(),
                    "Export", MsgIcon::Exclamation);
        return;
    }
    lastExport_ = *chosen;
    ShowNote("Exported to " + FromPath(*chosen));
}

void PageForm::PrintOn(QPrinter& printer) {
    if (state_.Page && state_.CurrentFormat) {
        DrawFormatScaled(printer, state_.Page->NumCharts(), *state_.CurrentFormat,
                         PictureOptions{});
    }
}

void PageForm::PrintPage(bool preview) {
    const PageFormat* format = state_.CurrentFormat.get();
    if (!state_.Page || !format) return;
    QPrinter printer(QPrinter::HighResolution);
    // The name a print to file proposes and a PDF calls itself.
    printer.setDocName(state_.CurrentFile.empty()
                           ? QString("New Page")
                           : QFileInfo(FromPath(state_.CurrentFile)).completeBaseName());
    printer.setPageOrientation(format->XPixels() > format->YPixels() ? QPageLayout::Landscape
                                                                     : QPageLayout::Portrait);
    if (preview) {
        QPrintPreviewDialog dialog(&printer, this);
        connect(&dialog, &QPrintPreviewDialog::paintRequested, this,
                [this](QPrinter* p) { PrintOn(*p); });
        dialog.exec();
        return;
    }
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) PrintOn(printer);
}

}  // namespace paginox
