// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "editor/PrinterAccess.h"
namespace paginox::test {

// A printer that is there with Page (its setup dialog answering Setup), or cannot be reached
// without one.
struct ScriptedPrinter : PrinterAccess {
    std::optional<PrinterPage> Page;
    SetupResult Setup = SetupResult::Chosen;
    std::optional<PrinterPage> CurrentPage() override { return Page; }
    SetupResult PageSetup(PrinterPage& page) override {
        if (!Page) return SetupResult::Unreachable;
        if (Setup == SetupResult::Chosen) page = *Page;
        return Setup;
    }
};

}  // namespace paginox::test
