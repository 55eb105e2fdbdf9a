// SPDX-License-Identifier: GPL-3.0-or-later
// The page commands: info, refs, xml and convert.

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <ostream>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "model/PageClass.h"
#include "persist/BinaryFile.h"
#include "persist/FileIO_Page.h"
#include "persist/XMLOutPage.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {
void ExpectArgs(const ToolOptions& options, size_t min, size_t max, const std::string& usage) {
    if (options.args.size() < min || options.args.size() > max) throw UsageError{usage};
}

// The model's texts and the page file names are Windows-1252; a command line is UTF-8.
std::string Terminal(const std::string& ansi) {
    return Cp1252ToUtf8(ansi);
}
}  // namespace

std::optional<std::string> TakeOption(std::vector<std::string>& args, const std::string& name) {
    auto at = std::find(args.begin(), args.end(), name);
    if (at == args.end()) return std::nullopt;
    if (at + 1 == args.end()) throw UsageError{name + " needs a value"};
    std::string value = *(at + 1);
    args.erase(at, at + 2);
    return value;
}

int WholeNumber(std::string_view text, const std::string& what) {
    int v = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (ec != std::errc() || end != text.data() + text.size()) {
        throw UsageError{what + " takes a whole number, not " + std::string(text)};
    }
    return v;
}

std::pair<int, int> ImageSizeArgument(std::string_view text, const std::string& what, int maxSide) {
    size_t x = text.find_first_of("xX");
    if (x == std::string_view::npos)
        throw UsageError{what + " takes WxH, not " + std::string(text)};
    std::pair<int, int> size{WholeNumber(text.substr(0, x), what),
                             WholeNumber(text.substr(x + 1), what)};
    if (size.first < 1 || size.second < 1 || size.first > maxSide || size.second > maxSide) {
        throw UsageError{what + " takes sides from 1 to " + std::to_string(maxSide)};
    }
    return size;
}

std::shared_ptr<PageClass> ReadToolPage(const std::string& path, int16_t formatIndex) {
    if (!FileExists(path)) {
        // The reader is quiet about a missing file; the tool says why it stops.
        OpenFileByKind(path, FileKind::Read);
        return nullptr;
    }
    return ReadPage(path, formatIndex, true);
}

int ReportPageError(const std::string& path, const RuntimeError& e) {
    ShowMessage(Utf8ToCp1252(path) + ": " + e.Description(), "paginox-tool", MsgIcon::Critical);
    return kExitFailure;
}

int CommandInfo(const ToolOptions& options, std::ostream& out) {
    ExpectArgs(options, 1, 1, "info takes one page file");
    const std::string& path = options.args[0];
    auto page = ReadToolPage(path, -1);
    if (!page) return kExitFailure;
    LoadToolDefinitions(options);  // generic file extensions come from the classes
    try {
        out << Terminal(page->PageSummary(Utf8ToCp1252(path))) << '\n';
    } catch (const RuntimeError& e) {
        return ReportPageError(path, e);
    }
    return kExitOk;
}

int CommandRefs(const ToolOptions& options, std::ostream& out) {
    ExpectArgs(options, 1, SIZE_MAX, "refs takes one or more page files");
    LoadToolDefinitions(options);
    int16_t count = 0;
    std::vector<std::string> names;
    int status = kExitOk;
    // A page that cannot be read is said and left out; the others are listed all the same.
    for (const std::string& path : options.args) {
        auto page = ReadToolPage(path, -1);
        try {
            if (page) page->PageReferences(count, names);
        } catch (const RuntimeError& e) {
            ReportPageError(path, e);
            page = nullptr;
        }
        if (!page) status = kExitFailure;
    }
    for (int16_t i = 0; i < count; ++i) out << Terminal(names[size_t(i)]) << '\n';
    return status;
}

int CommandXml(const ToolOptions& options, std::ostream& out) {
    std::vector<std::string> args = options.args;
    std::optional<std::string> target = TakeOption(args, "-o");
    if (args.size() != 1) throw UsageError{"xml takes a page file and optionally -o OUT"};
    const std::string& path = args[0];
    auto page = ReadToolPage(path, -1);
    if (!page) return kExitFailure;
    LoadToolDefinitions(options);  // the objects' class names
    if (target && IsStandardOutput(*target)) {
        // Written as to any file, in a folder of this run's own (no other user can plant a
        // link there), then handed on.
        std::string folder = (fs::temp_directory_path() / "paginox-xml-XXXXXX").string();
        if (!mkdtemp(folder.data())) return kExitFailure;
        std::string temporary = folder + "/page.xml";
        bool written = XMLOutPage().WriteToXML(temporary, *page);
        if (written) out << ReadWholeFile(temporary);
        std::error_code ignored;
        fs::remove_all(folder, ignored);
        return written ? kExitOk : kExitFailure;
    }
    std::optional<std::string> written;
    if (!target) {
        written = TranslateToXML(path, page.get());
    } else if (XMLOutPage().WriteToXML(*target, *page)) {
        written = target;
    }
    if (!written) return kExitFailure;
    out << *written << '\n';
    return kExitOk;
}

int CommandConvert(const ToolOptions& options, std::ostream& out) {
    ExpectArgs(options, 2, 2, "convert takes an input and an output page file");
    auto page = ReadToolPage(options.args[0], -1);
    if (!page) return kExitFailure;
    if (IsStandardOutput(options.args[1])) {
        out << PageFileBytes(*page);
        return kExitOk;
    }
    return SavePage(options.args[1], *page) ? kExitOk : kExitFailure;
}

}  // namespace paginox
