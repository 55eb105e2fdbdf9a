// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/CommandLine.h"

#include <cctype>

#include "core/AnsiText.h"

namespace paginox {

namespace {

constexpr std::string_view kDebugSwitch = "Debug";
constexpr std::string_view kPageSizeSwitch = "PageSizeIndex=";

bool StartsWithIgnoreCase(std::string_view s, std::string_view prefix) {
    return s.size() >= prefix.size() && EqualsIgnoreCase(s.substr(0, prefix.size()), prefix);
}

// The whole number at the start of text, as the classic Val reads it; 0 when none or when
// it does not fit 16 bits.
int16_t LeadingWholeNumber(std::string_view text) {
    size_t i = 0;
    while (i < text.size() && text[i] == ' ') ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    long value = 0;
    bool any = false;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i) {
        any = true;
        value = value * 10 + (text[i] - '0');
        if (value > 32768) return 0;
    }
    if (!any) return 0;
    if (negative) value = -value;
    return value > 32767 ? 0 : static_cast<int16_t>(value);
}

// Where the next switch starts at or after from, or npos.
size_t NextSwitch(const std::string& line, size_t from, char sep) {
    for (size_t pos = line.find('/', from); pos != std::string::npos;
         pos = line.find('/', pos + 1)) {
        if (sep != '/') return pos;
        if (pos > 0 && line[pos - 1] != ' ') continue;
        size_t end = line.find(' ', pos);
        std::string_view word(line.data() + pos + 1,
                              (end == std::string::npos ? line.size() : end) - pos - 1);
        if (word.find('/') == std::string_view::npos) return pos;
    }
    return std::string::npos;
}

}  // namespace

CommandLine ParseCommandLine(const std::string& line, char sep) {
    CommandLine result;
    std::string rest = line;
    for (size_t pos = NextSwitch(rest, 0, sep); pos != std::string::npos;
         pos = NextSwitch(rest, pos, sep)) {
        size_t end = rest.find(' ', pos);
        if (end == std::string::npos) end = rest.size();
        std::string_view name(rest.data() + pos + 1, end - pos - 1);
        if (EqualsIgnoreCase(name, kDebugSwitch)) {
            result.DebugMode = true;
        } else if (StartsWithIgnoreCase(name, kPageSizeSwitch)) {
            result.StartPageSizeIndex = LeadingWholeNumber(name.substr(kPageSizeSwitch.size()));
        }
        rest.erase(pos, end - pos);
    }
    std::string name = Trim(rest);
    if (!name.empty() && name.front() == '"') {
        bool closing = name.size() > 2 && name.back() == '"';
        name.erase(0, 1);
        if (closing) name.pop_back();
    }
    result.FileName = name;
    return result;
}

CommandLine ParseArguments(const std::vector<std::string>& args) {
    CommandLine result;
    bool named = false;
    for (const std::string& arg : args) {
        bool isSwitch = !arg.empty() && arg.front() == '/';
        std::string_view name = isSwitch ? std::string_view(arg).substr(1) : std::string_view();
        if (isSwitch && EqualsIgnoreCase(name, kDebugSwitch)) {
            result.DebugMode = true;
        } else if (isSwitch && StartsWithIgnoreCase(name, kPageSizeSwitch)) {
            result.StartPageSizeIndex = LeadingWholeNumber(name.substr(kPageSizeSwitch.size()));
        } else if (!named && !arg.empty()) {
            result.FileName = arg;
            named = true;
        }
    }
    return result;
}

std::optional<std::string> InformationAsked(const std::vector<std::string>& args,
                                            const std::string& version) {
    for (const std::string& arg : args) {
        if (arg == "--version") return "paginox " + version + "\n";
        if (arg == "--help" || arg == "-h") {
            return "Usage: paginox [PAGE.pag] [/PageSizeIndex=n] [/Debug]\n"
                   "Edits the chart page layouts of the Veltrane astrology program.\n\n"
                   "  PAGE.pag           the page to open (a new page when none is given)\n"
                   "  /PageSizeIndex=n   show format n of the page first\n"
                   "  /Debug             show the Debug menu\n"
                   "  -h, --help         show this help and exit\n"
                   "  --version          show the version and exit\n\n"
                   "See paginox(1) and the user guide (Help > Contents, F1).\n";
        }
    }
    return std::nullopt;
}

}  // namespace paginox
