// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The page size dialog without its widgets: the chosen kind of size, the two pixel boxes and
// the working format they apply to. The dialog shows this state; the command-line tool
// drives the same steps.

#include <QPageSize>
#include <array>
#include <memory>
#include <optional>
#include <string>

#include "editor/PageSizes.h"
#include "editor/PrinterAccess.h"

namespace paginox {

class PageFormat;

// Paper sizes a printer format can be made from without a printer.
struct PaperSize {
    const char* Name;
    QPageSize::PageSizeId Id;
};
const std::array<PaperSize, 5>& PaperSizes();
inline constexpr int16_t kDefaultPaperDotsPerInch = 300;
inline constexpr int16_t kMinPaperDotsPerInch = 72;
inline constexpr int16_t kMaxPaperDotsPerInch = 1200;

// The page of paper size paper (an index of PaperSizes) at a resolution.
PrinterPage PaperPage(int paper, bool landscape, int16_t dotsPerInch);

class PageSizeSetup {
  public:
    // Options 0 to 10 are the screen resolutions.
    static constexpr int kPrinterOption = 11;
    static constexpr int kUserOption = 12;
    static constexpr int kOptionCount = 13;

    // The dialog as it loads over the current format: the working format is a copy of it,
    // the boxes show its size and the option that fits it is chosen.
    PageSizeSetup(const PageFormat& current, int16_t screenLogPixels, PrinterAccess& printer);

    int Option() const { return option_; }
    // Chooses option k: a screen fills the boxes with its drawing area, the printer with its
    // printable page, the user-defined size lets them be typed.
    void ChooseOption(int k);
    bool PixelsEditable() const { return option_ == kUserOption; }
    bool PrinterEnabled() const { return option_ == kPrinterOption; }
    // The width (0) and height (1) boxes.
    const std::string& PixelsText(int i) const { return pixels_.at(size_t(i)); }
    void SetPixelsText(int i, const std::string& text) { pixels_.at(size_t(i)) = text; }

    // The printer setup dialog's page; nothing changes when it is cancelled.
    void PrinterSetup();
    // A printer format from a paper size, for machines without a printer.
    void UsePaper(int paper, bool landscape, int16_t dotsPerInch);

    const PageFormat& Working() const { return *working_; }
    // The entered size; nothing, after saying why, when a box holds no whole number of
    // pixels from 1 to 32767.
    std::optional<FormatSize> EnteredSize() const;

  private:
    // The boxes and the resolution follow a printer's page.
    void ShowPage(const PrinterPage& page);
    // As ShowPage, the working format taking the page's size too.
    void TakePage(const PrinterPage& page);

    std::shared_ptr<PageFormat> working_;
    int16_t screenLogPixels_;
    PrinterAccess& printer_;
    int option_ = kUserOption;
    std::array<std::string, 2> pixels_;
};

// The caption of option i (0 to 12): "Screen " + name + " (" + width + "x" + height + ")"
// for the screens.
std::string ShapeOptionCaption(int i);

inline constexpr const char* kPrinterUnreachableText =
    "Unable to access printer. The likely reason is that no printer is currently selected.";
inline constexpr const char* kPrinterSetupTitle = "Printer Page Setup";

}  // namespace paginox
