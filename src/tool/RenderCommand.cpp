// SPDX-License-Identifier: GPL-3.0-or-later
// The render command: one format of a page drawn to a PNG, SVG or PDF file (by the output's
// extension), as a thumbnail on white or as the editor's preview.

#include <QGuiApplication>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <ostream>
#include <tuple>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "persist/AtomicSave.h"
#include "persist/Folders.h"
#include "render/ImageDraw.h"
#include "render/PageExport.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {

constexpr int kMaxImageSide = 16384;
const char* kRenderUsage =
    "render takes PAGE -o OUT.png|OUT.svg|OUT.pdf [--type png|svg|pdf] [--format K] "
    "[--size WxH|N] [--interactive] [--no-labels] [--no-pictures]";

struct RenderRequest {
    std::string page;
    std::string out;
    PictureKind kind = PictureKind::Png;
    int16_t format = 1;
    int width = 0;  // 0: the format's own size
    int height = 0;
    int longerSide = 0;  // 0: width and height as given
    bool interactive = false;
    bool labels = true;
    bool pictures = true;
};

RenderRequest ParseRender(const std::vector<std::string>& args) {
    RenderRequest r;
    std::optional<std::string> type;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        bool hasValue = i + 1 < args.size();
        if (a == "-o" && hasValue) {
            r.out = args[++i];
        } else if (a == "--type" && hasValue) {
            type = args[++i];
        } else if (a == "--format" && hasValue) {
            int k = WholeNumber(args[++i], "--format");
            if (k < 1 || k > INT16_MAX) throw UsageError{"--format takes a format index from 1"};
            r.format = static_cast<int16_t>(k);
        } else if (a == "--size" && hasValue) {
            std::string size = args[++i];
            // A single number is the longer side, which is how file managers ask for thumbnails.
            r.width = r.height = r.longerSide = 0;
            if (size.find_first_of("xX") != std::string::npos) {
                std::tie(r.width, r.height) = ImageSizeArgument(size, "--size", kMaxImageSide);
            } else {
                r.longerSide = WholeNumber(size, "--size");
                if (r.longerSide < 1 || r.longerSide > kMaxImageSide) {
                    throw UsageError{"--size takes sides from 1 to " +
                                     std::to_string(kMaxImageSide)};
                }
            }
        } else if (a == "--interactive") {
            r.interactive = true;
        } else if (a == "--no-labels") {
            r.labels = false;
        } else if (a == "--no-pictures") {
            r.pictures = false;
        } else if (!a.starts_with("-") && r.page.empty()) {
            r.page = a;
        } else {
            throw UsageError{kRenderUsage};
        }
    }
    if (r.page.empty() || r.out.empty()) throw UsageError{kRenderUsage};
    // The type asked for, else the output's extension (standard output has none).
    std::optional<PictureKind> kind = PictureKindOf(type ? "." + *type : r.out);
    if (!kind) {
        throw UsageError{type ? "--type takes png, svg or pdf"
                              : "the output must end in .png, .svg or .pdf, or give --type"};
    }
    r.kind = *kind;
    return r;
}

}  // namespace

int CommandRender(const ToolOptions& options, std::ostream& out) {
    RenderRequest r = ParseRender(options.args);
    LoadToolDefinitions(options);
    // With --data the folder table is still empty; pictures need its temporary folder, which
    // comes from the system whatever the mode.
    if (AppFolders().Path(kTemporaryFolder).empty()) AppFolders().FindFolders(0);

    auto page = ReadToolPage(r.page, r.format);
    if (!page) return kExitFailure;
    if (r.format > page->NumFormats() || !page->GetFormat(r.format)) {
        throw UsageError{"the page has " + std::to_string(page->NumFormats()) +
                         " formats; there is no format " + std::to_string(r.format)};
    }
    const PageFormat& format = *page->GetFormat(r.format);
    int width = r.width ? r.width : format.XPixels();
    int height = r.height ? r.height : format.YPixels();
    if (r.longerSide && width > 0 && height > 0) {
        // The format's proportions, scaled so that its longer side fits.
        double scale = static_cast<double>(r.longerSide) / std::max(width, height);
        width = std::max(1, static_cast<int>(std::lround(width * scale)));
        height = std::max(1, static_cast<int>(std::lround(height * scale)));
    }
    if (width < 1 || height < 1 || width > kMaxImageSide || height > kMaxImageSide) {
        throw UsageError{"format " + std::to_string(r.format) + " is " + std::to_string(width) +
                         " x " + std::to_string(height) + " pixels; give --size WxH"};
    }

    EnsureGuiApplication();
    // Pictures are drawn straight from their files: a one-off render leaves no cached sizes
    // behind in the host's folders. Those named without a folder lie beside the page.
    ScopedPictureFolder pictures(std::filesystem::path(r.page).parent_path().string());
    Picture picture;
    try {
        picture = DrawPicture(r.kind, width, height, page->NumCharts(), format,
                              PictureOptions{r.labels, r.pictures, r.interactive,
                                             std::filesystem::path(r.page).stem().string()});
    } catch (const RuntimeError& e) {
        return ReportPageError(r.page, e);
    }
    // A damaged page is drawn as far as it goes; what is missing is said, not fatal.
    for (const DrawProblem& p : picture.Problems) {
        std::string where = "format " + std::to_string(r.format);
        if (p.Object > 0) where += ", object " + std::to_string(p.Object);
        ShowMessage(where + ": " + p.Description, "Warning", MsgIcon::Exclamation);
    }
    if (IsStandardOutput(r.out)) {
        out << picture.Bytes;
        return kExitOk;
    }
    try {
        // Saved as pages are, so that a failure keeps the old file whole.
        SaveFileAtomically(r.out, picture.Bytes);
    } catch (const RuntimeError& e) {
        ShowMessage(
            "Error whilst writing the image " + Utf8ToCp1252(r.out) + ": " + e.Description(),
            "paginox-tool", MsgIcon::Critical);
        return kExitFailure;
    }
    return kExitOk;
}

}  // namespace paginox
