// SPDX-License-Identifier: GPL-3.0-or-later
// The page size commands: formats lists a page's sizes as the editor's size list does, and
// add-size adds one as the editor's page size dialog does.

#include <optional>
#include <ostream>

#include "core/AnsiText.h"
#include "core/Rounding.h"
#include "core/RuntimeError.h"
#include "editor/PageSizeSetup.h"
#include "editor/PageSizes.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/ScreenTwips.h"
#include "persist/FileIO_Page.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {

const char* kAddSizeUsage =
    "add-size takes PAGE and one of --screen I, --user WxH or --printer WxH [--dpi N], and "
    "optionally --from K and -o OUT";

struct AddSizeRequest {
    std::string page;
    std::string out;
    std::optional<int> screen;  // a screen table entry
    std::optional<FormatSize> user;
    std::optional<FormatSize> printer;
    std::optional<int16_t> dotsPerInch;
    int16_t from = 1;
};

FormatSize SizeArgument(const std::string& text, const std::string& what) {
    size_t x = text.find_first_of("xX");
    std::optional<int16_t> w = ParsePixels(text.substr(0, x));
    std::optional<int16_t> h =
        x == std::string::npos ? std::nullopt : ParsePixels(text.substr(x + 1));
    if (!w || !h) throw UsageError{what + " takes WxH in pixels from 1 to 32767, not " + text};
    return {*w, *h};
}

int16_t PositiveArgument(const std::string& text, const std::string& what) {
    int v = WholeNumber(text, what);
    if (v < 1 || v > INT16_MAX) throw UsageError{what + " takes a number from 1 to 32767"};
    return static_cast<int16_t>(v);
}

AddSizeRequest ParseAddSize(const std::vector<std::string>& args) {
    AddSizeRequest r;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        bool hasValue = i + 1 < args.size();
        if (a == "--screen" && hasValue) {
            int k = WholeNumber(args[++i], a);
            if (k < 0 || size_t(k) >= ScreenResolutions().size()) {
                throw UsageError{"--screen takes a table entry from 0 to 10"};
            }
            r.screen = k;
        } else if (a == "--user" && hasValue) {
            r.user = SizeArgument(args[++i], a);
        } else if (a == "--printer" && hasValue) {
            r.printer = SizeArgument(args[++i], a);
        } else if (a == "--dpi" && hasValue) {
            r.dotsPerInch = PositiveArgument(args[++i], a);
        } else if (a == "--from" && hasValue) {
            r.from = PositiveArgument(args[++i], a);
        } else if (a == "-o" && hasValue) {
            r.out = args[++i];
        } else if (!a.starts_with("-") && r.page.empty()) {
            r.page = a;
        } else {
            throw UsageError{kAddSizeUsage};
        }
    }
    int sizes = int(r.screen.has_value()) + int(r.user.has_value()) + int(r.printer.has_value());
    if (r.page.empty() || sizes != 1) throw UsageError{kAddSizeUsage};
    if (r.dotsPerInch && !r.printer) throw UsageError{"--dpi goes with --printer"};
    return r;
}

// The dialog's steps on a copy of the request's format: the option, then the boxes.
std::optional<FormatSize> ChooseSize(PageSizeSetup& setup, const AddSizeRequest& r) {
    if (r.screen) {
        setup.ChooseOption(*r.screen);
    } else if (r.printer) {
        setup.ChooseOption(PageSizeSetup::kPrinterOption);
    } else {
        setup.ChooseOption(PageSizeSetup::kUserOption);
        setup.SetPixelsText(0, std::to_string(r.user->Width));
        setup.SetPixelsText(1, std::to_string(r.user->Height));
    }
    return setup.EnteredSize();
}

}  // namespace

int CommandFormats(const ToolOptions& options, std::ostream& out) {
    if (options.args.size() != 1) throw UsageError{"formats takes one page file"};
    auto page = ReadToolPage(options.args[0], -1);
    if (!page) return kExitFailure;
    for (int16_t k = 1; k <= page->NumFormats(); ++k) {
        std::shared_ptr<PageFormat> format = page->GetFormat(k);
        out << (format ? Cp1252ToUtf8(FormatDisplayName(*format)) : std::string()) << '\n';
    }
    return kExitOk;
}

int CommandAddSize(const ToolOptions& options, std::ostream& out) {
    AddSizeRequest r = ParseAddSize(options.args);
    auto page = ReadToolPage(r.page, -1);
    if (!page) return kExitFailure;
    std::shared_ptr<PageFormat> from =
        r.from <= page->NumFormats() ? page->GetFormat(r.from) : nullptr;
    if (!from) {
        throw UsageError{"--from takes a format of the page, 1 to " +
                         std::to_string(page->NumFormats())};
    }
    LoadToolDefinitions(options);  // text objects are known by their classes
    try {
        // No screen here: the pixels per inch the editor assumes without one.
        auto screenDpi = ToInt16(1440.0 / ScreenTwipsPerPixel().X);
        FormatSize paper = r.printer.value_or(FormatSize{});
        FixedPrinter printer({double(paper.Width), double(paper.Height),
                              r.dotsPerInch.value_or(kDefaultPaperDotsPerInch)});
        PageSizeSetup setup(*from, screenDpi, printer);
        std::optional<FormatSize> size = ChooseSize(setup, r);
        if (!size) return kExitFailure;
        AddedSize added = AddFormatOfSize(*page, setup.Working(), *size);
        if (added.Added && !SavePage(r.out.empty() ? r.page : r.out, *page)) {
            return kExitFailure;
        }
        out << added.Index << '\n';
    } catch (const RuntimeError& e) {
        return ReportPageError(r.page, e);
    }
    return kExitOk;
}

}  // namespace paginox
