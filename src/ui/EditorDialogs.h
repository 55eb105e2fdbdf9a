// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The standard dialogs the editor asks the user through: files, list choices, the printer
// and the preview of a change to several page sizes. The window holds one of these, so tests answer
// the dialogs without showing any.

#include <QImage>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ui/QtPrinterAccess.h"

class QWidget;

namespace paginox {

struct FileDialogSpec {
    std::string Title;
    std::string Filter;         // classic "Text|pattern" form
    std::string DefaultSuffix;  // without the dot
    std::string Folder;         // where the dialog starts (native)
    std::string FileName;       // the name it proposes (native), may be empty
};

// One page size as a layout command would leave it, beside how it is now.
struct LayoutView {
    QString Caption;
    QImage Before;
    QImage After;
};

class EditorDialogs {
  public:
    virtual ~EditorDialogs() = default;
    // The chosen path (native), or nothing when cancelled.
    virtual std::optional<std::string> OpenFile(QWidget* parent, const FileDialogSpec& request) = 0;
    // As OpenFile, asking before an existing file is replaced.
    virtual std::optional<std::string> SaveFile(QWidget* parent, const FileDialogSpec& request) = 0;
    // One of the items, or nothing when cancelled.
    virtual std::optional<int> ChooseItem(QWidget* parent, const QString& title,
                                          const QString& label, const QStringList& items) = 0;
    // The printer the page size dialog asks for its page and setup.
    virtual PrinterAccess& Printer() = 0;
    // A whole number from min to max, starting at value; nothing when cancelled.
    virtual std::optional<int> ChooseNumber(QWidget* parent, const QString& title,
                                            const QString& label, int value, int min, int max) = 0;
    // Shows what a layout command would change; true to apply it.
    virtual bool ApproveLayout(QWidget* parent, const QString& title, const QString& text,
                               const std::vector<LayoutView>& views) = 0;
};

// The real dialogs.
class QtDialogs : public EditorDialogs {
  public:
    std::optional<std::string> OpenFile(QWidget* parent, const FileDialogSpec& request) override;
    std::optional<std::string> SaveFile(QWidget* parent, const FileDialogSpec& request) override;
    std::optional<int> ChooseItem(QWidget* parent, const QString& title, const QString& label,
                                  const QStringList& items) override;
    PrinterAccess& Printer() override { return printer_; }
    std::optional<int> ChooseNumber(QWidget* parent, const QString& title, const QString& label,
                                    int value, int min, int max) override;
    bool ApproveLayout(QWidget* parent, const QString& title, const QString& text,
                       const std::vector<LayoutView>& views) override;

  private:
    QtPrinterAccess printer_;
};

}  // namespace paginox
