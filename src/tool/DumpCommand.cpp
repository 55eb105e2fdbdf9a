// SPDX-License-Identifier: GPL-3.0-or-later
// dump: a page as it was read, as one JSON object.

#include <charconv>
#include <ostream>

#include "model/PageClass.h"
#include "persist/PageJson.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {
int16_t FormatIndexArg(const std::string& text) {
    int16_t k = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), k);
    if (ec != std::errc() || end != text.data() + text.size()) {
        throw UsageError{"--format takes a whole number, not " + text};
    }
    return k;
}
}  // namespace

int CommandDump(const ToolOptions& options, std::ostream& out) {
    std::vector<std::string> args = options.args;
    std::optional<std::string> format = TakeOption(args, "--format");
    if (args.size() != 1) throw UsageError{"dump takes a page file and optionally --format K"};
    int16_t formatIndex = format ? FormatIndexArg(*format) : int16_t(-1);
    auto page = ReadToolPage(args[0], formatIndex);
    if (!page) return kExitFailure;
    if (formatIndex > page->NumFormats()) {
        throw UsageError{"the page has " + std::to_string(page->NumFormats()) +
                         " formats; there is no format " + std::to_string(formatIndex)};
    }
    out << PageJson(*page);
    return kExitOk;
}

}  // namespace paginox
