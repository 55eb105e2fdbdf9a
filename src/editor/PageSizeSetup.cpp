// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/PageSizeSetup.h"

#include <QSizeF>

#include "core/Checked.h"
#include "core/MessageService.h"
#include "core/NumberFormat.h"
#include "core/Rounding.h"
#include "editor/PropertyRows.h"
#include "model/PageFormat.h"

namespace paginox {

const std::array<PaperSize, 5>& PaperSizes() {
    static const std::array<PaperSize, 5> sizes{{
        {"A4", QPageSize::A4},
        {"A5", QPageSize::A5},
        {"A3", QPageSize::A3},
        {"Letter", QPageSize::Letter},
        {"Legal", QPageSize::Legal},
    }};
    return sizes;
}

PrinterPage PaperPage(int paper, bool landscape, int16_t dotsPerInch) {
    // From the paper's exact size: Qt's own pixel sizes go through whole points and come out
    // a pixel short (A4 at 300 dots per inch is 2480 by 3508).
    QSizeF mm = QPageSize(PaperSizes().at(size_t(paper)).Id).size(QPageSize::Millimeter);
    if (landscape) mm.transpose();
    auto pixels = [&](double side) { return double(ToInt32(side / 25.4 * dotsPerInch)); };
    return {pixels(mm.width()), pixels(mm.height()), dotsPerInch};
}

std::string ShapeOptionCaption(int i) {
    if (i == PageSizeSetup::kPrinterOption) return "Printer page";
    if (i == PageSizeSetup::kUserOption) return "User defined";
    const ScreenResolution& r = ScreenResolutions().at(size_t(i));
    return std::string("Screen ") + r.Name + " (" + FormatZero(r.Width) + "x" +
           FormatZero(r.Height) + ")";
}

PageSizeSetup::PageSizeSetup(const PageFormat& current, int16_t screenLogPixels,
                             PrinterAccess& printer)
    : working_(current.Clone()), screenLogPixels_(screenLogPixels), printer_(printer) {
    pixels_ = {FormatZero(working_->XPixels()), FormatZero(working_->YPixels())};
    int k = ScreenEntryForWidth(working_->XPixels());
    if (working_->ForPrinter()) {
        k = kPrinterOption;
    } else if (k < 0) {
        k = kUserOption;
    }
    ChooseOption(k);
}

void PageSizeSetup::ChooseOption(int k) {
    CheckIndex(k, 0, kOptionCount - 1);
    option_ = k;
    working_->SetForPrinter(k == kPrinterOption);
    working_->SetLogPixels(screenLogPixels_);
    if (k < kPrinterOption) {
        const ScreenResolution& r = ScreenResolutions()[size_t(k)];
        pixels_ = {FormatZero(r.Width - kScreenWidthMargin),
                   FormatZero(r.Height - kScreenHeightMargin)};
    } else if (k == kPrinterOption) {
        std::optional<PrinterPage> page = printer_.CurrentPage();
        if (page) {
            ShowPage(*page);
        } else {
            ShowMessage(kPrinterUnreachableText);
        }
    }
}

void PageSizeSetup::PrinterSetup() {
    PrinterPage page;
    switch (printer_.PageSetup(page)) {
        case PrinterAccess::SetupResult::Chosen:
            TakePage(page);
            break;
        case PrinterAccess::SetupResult::Unreachable:
            ShowMessage(kPrinterUnreachableText);
            break;
        case PrinterAccess::SetupResult::Cancelled:
            break;
    }
}

void PageSizeSetup::UsePaper(int paper, bool landscape, int16_t dotsPerInch) {
    TakePage(PaperPage(paper, landscape, dotsPerInch));
}

void PageSizeSetup::ShowPage(const PrinterPage& page) {
    working_->SetLogPixels(page.DotsPerInch);
    pixels_ = {FormatZero(static_cast<long long>(Int(page.Width))),
               FormatZero(static_cast<long long>(Int(page.Height)))};
}

void PageSizeSetup::TakePage(const PrinterPage& page) {
    working_->SetXPixels(CheckedNarrow<int16_t>(static_cast<long long>(Int(page.Width))));
    working_->SetYPixels(CheckedNarrow<int16_t>(static_cast<long long>(Int(page.Height))));
    ShowPage(page);
}

std::optional<FormatSize> PageSizeSetup::EnteredSize() const {
    std::optional<int16_t> width = ParsePixels(pixels_[0]);
    std::optional<int16_t> height = ParsePixels(pixels_[1]);
    if (width && height) return FormatSize{*width, *height};
    ShowMessage("The width and the height must be whole numbers of pixels from 1 to 32767.",
                kInvalidValueTitle, MsgIcon::Exclamation);
    return std::nullopt;
}

}  // namespace paginox
