// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The printer as the page size dialog sees it: the selected printer's page and its setup
// dialog. The editor asks a real printer through Qt; tests and the command-line tool answer
// with a page of their own.

#include <cstdint>
#include <optional>

namespace paginox {

// A printer's page in its own pixels, at its resolution.
struct PrinterPage {
    double Width = 0;
    double Height = 0;
    int16_t DotsPerInch = 0;
};

class PrinterAccess {
  public:
    enum class SetupResult { Chosen, Cancelled, Unreachable };

    virtual ~PrinterAccess() = default;
    // The printable area of the selected printer's page; nothing when no printer can be
    // reached.
    virtual std::optional<PrinterPage> CurrentPage() = 0;
    // The printer setup dialog, titled "Printer Page Setup"; the page chosen there is left
    // in page when the result is Chosen.
    virtual SetupResult PageSetup(PrinterPage& page) = 0;
};

// A printer that is always there with one page: the tool's --printer size, say.
class FixedPrinter : public PrinterAccess {
  public:
    explicit FixedPrinter(PrinterPage page) : page_(page) {}
    std::optional<PrinterPage> CurrentPage() override { return page_; }
    SetupResult PageSetup(PrinterPage& page) override {
        page = page_;
        return SetupResult::Chosen;
    }

  private:
    PrinterPage page_;
};

}  // namespace paginox
