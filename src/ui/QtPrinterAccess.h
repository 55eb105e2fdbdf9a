// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The system's printer through Qt Print Support: the default printer (or the first one
// there is), kept for the session so that its setup carries over from one dialog to the next.

#include <memory>

#include "editor/PrinterAccess.h"

class QPrinter;

namespace paginox {

class QtPrinterAccess : public PrinterAccess {
  public:
    QtPrinterAccess();
    ~QtPrinterAccess() override;

    std::optional<PrinterPage> CurrentPage() override;
    SetupResult PageSetup(PrinterPage& page) override;

  private:
    // The printer, made on first use; null when the system has none.
    QPrinter* Printer();

    std::unique_ptr<QPrinter> printer_;
};

}  // namespace paginox
