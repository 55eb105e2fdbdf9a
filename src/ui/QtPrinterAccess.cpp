// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/QtPrinterAccess.h"

#include <QApplication>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "editor/PageSizeSetup.h"

namespace paginox {

namespace {
PrinterPage PrintablePage(QPrinter& printer) {
    QRectF area = printer.pageRect(QPrinter::DevicePixel);
    return {area.width(), area.height(), static_cast<int16_t>(printer.resolution())};
}
}  // namespace

QtPrinterAccess::QtPrinterAccess() = default;
QtPrinterAccess::~QtPrinterAccess() = default;

QPrinter* QtPrinterAccess::Printer() {
    if (!printer_) {
        QPrinterInfo info = QPrinterInfo::defaultPrinter();
        QList<QPrinterInfo> all = QPrinterInfo::availablePrinters();
        if (info.isNull() && !all.isEmpty()) info = all.first();
        // Asked again next time: a printer may have been set up meanwhile.
        if (info.isNull()) return nullptr;
        printer_ = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    }
    return printer_->isValid() ? printer_.get() : nullptr;
}

std::optional<PrinterPage> QtPrinterAccess::CurrentPage() {
    QPrinter* printer = Printer();
    if (!printer) return std::nullopt;
    return PrintablePage(*printer);
}

PrinterAccess::SetupResult QtPrinterAccess::PageSetup(PrinterPage& page) {
    QPrinter* printer = Printer();
    if (!printer) return SetupResult::Unreachable;
    QPageSetupDialog dialog(printer, QApplication::activeWindow());
    dialog.setWindowTitle(kPrinterSetupTitle);
    if (dialog.exec() != QDialog::Accepted) return SetupResult::Cancelled;
    page = PrintablePage(*printer);
    return SetupResult::Chosen;
}

}  // namespace paginox
