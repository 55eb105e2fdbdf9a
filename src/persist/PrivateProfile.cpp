// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/PrivateProfile.h"

#include <sys/stat.h>

#include <vector>

#include "core/AnsiText.h"
#include "core/RuntimeError.h"
#include "persist/AtomicSave.h"
#include "persist/BinaryFile.h"

namespace paginox {

namespace {

// The host reads into a 255-character buffer, which keeps 254 characters and the final NUL.
constexpr size_t kMaxValueChars = 254;
constexpr const char* kNewLineEnd = "\r\n";

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

std::string_view TrimLeadingBlanks(std::string_view s) {
    size_t b = 0;
    while (b < s.size() && IsBlank(s[b])) ++b;
    return s.substr(b);
}

std::string_view TrimBlanks(std::string_view s) {
    s = TrimLeadingBlanks(s);
    size_t e = s.size();
    while (e > 0 && IsBlank(s[e - 1])) --e;
    return s.substr(0, e);
}

struct Line {
    std::string text;  // without its line end
    std::string end;   // "\r\n", "\n", "\r", or empty for an unterminated last line
};

std::vector<Line> SplitLines(std::string_view bytes) {
    std::vector<Line> lines;
    size_t pos = 0;
    while (pos < bytes.size()) {
        size_t brk = bytes.find_first_of("\r\n", pos);
        if (brk == std::string_view::npos) {
            lines.push_back({std::string(bytes.substr(pos)), ""});
            break;
        }
        size_t endLen =
            (bytes[brk] == '\r' && brk + 1 < bytes.size() && bytes[brk + 1] == '\n') ? 2 : 1;
        lines.push_back(
            {std::string(bytes.substr(pos, brk - pos)), std::string(bytes.substr(brk, endLen))});
        pos = brk + endLen;
    }
    return lines;
}

std::string JoinLines(const std::vector<Line>& lines) {
    std::string out;
    for (const Line& l : lines) out += l.text + l.end;
    return out;
}

enum class LineKind { Blank, Section, Entry };

struct ParsedLine {
    LineKind kind = LineKind::Blank;
    std::string_view name;                  // section name or key, trimmed
    std::optional<std::string_view> value;  // trimmed; none for a line without "="
    size_t valueStart = 0;                  // where the value begins in the line's text
};

ParsedLine Parse(std::string_view text) {
    ParsedLine p;
    std::string_view t = TrimLeadingBlanks(text);
    if (TrimBlanks(t).empty()) return p;
    if (t[0] == '[') {
        size_t close = t.rfind(']');
        // A "[" without "]" is not a section header; it reads as a line without "=".
        if (close != std::string_view::npos) {
            p.kind = LineKind::Section;
            p.name = TrimBlanks(t.substr(1, close - 1));
            return p;
        }
    }
    p.kind = LineKind::Entry;
    size_t eq = t.find('=');
    if (eq == std::string_view::npos) {
        p.name = TrimBlanks(t);
        return p;
    }
    p.name = TrimBlanks(t.substr(0, eq));
    std::string_view rest = TrimLeadingBlanks(t.substr(eq + 1));
    p.value = TrimBlanks(rest);
    p.valueStart = text.size() - rest.size();
    return p;
}

// One section: its header line (none for the lines before the first header) and the lines
// [first, end) that follow it.
struct Section {
    std::optional<size_t> header;
    std::string_view name;
    size_t first = 0;
    size_t end = 0;
};

std::vector<Section> Sections(const std::vector<Line>& lines) {
    std::vector<Section> sections{{std::nullopt, "", 0, 0}};
    for (size_t i = 0; i < lines.size(); ++i) {
        ParsedLine p = Parse(lines[i].text);
        if (p.kind == LineKind::Section) {
            sections.back().end = i;
            sections.push_back({i, p.name, i + 1, i + 1});
        }
    }
    sections.back().end = lines.size();
    return sections;
}

const Section* FindSection(const std::vector<Section>& sections, std::string_view name) {
    for (const Section& s : sections) {
        if (EqualsIgnoreCase(s.name, name)) return &s;
    }
    return nullptr;
}

std::optional<size_t> FindKey(const std::vector<Line>& lines, const Section& s,
                              std::string_view key) {
    for (size_t i = s.first; i < s.end; ++i) {
        ParsedLine p = Parse(lines[i].text);
        if (p.kind == LineKind::Entry && EqualsIgnoreCase(p.name, key)) return i;
    }
    return std::nullopt;
}

// What a read hands back: one pair of matching quotes removed, then cut to the buffer.
std::string CopyEntry(std::string_view v) {
    if (v.size() >= 2 && (v[0] == '"' || v[0] == '\'') && v.back() == v[0]) {
        v = v.substr(1, v.size() - 2);
    }
    return std::string(v.substr(0, kMaxValueChars));
}

// The file's bytes; empty when it does not exist; nothing when it exists but cannot be read.
std::optional<std::string> ReadIfPresent(const std::string& file, bool& exists) {
    struct stat st {};
    exists = stat(file.c_str(), &st) == 0;
    if (!exists) return std::string();
    try {
        return ReadWholeFile(file);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

// Gives an unterminated last line its line end before something is put after it.
void TerminateLine(Line& line) {
    if (line.end.empty()) line.end = kNewLineEnd;
}

bool DeleteSection(std::vector<Line>& lines, std::string_view section) {
    auto sections = Sections(lines);
    const Section* s = FindSection(sections, section);
    if (!s || !s->header) return false;
    lines.erase(lines.begin() + static_cast<long>(*s->header),
                lines.begin() + static_cast<long>(s->end));
    return true;
}

bool DeleteKey(std::vector<Line>& lines, std::string_view section, std::string_view key) {
    // Duplicate sections of the same name are searched in turn for the first such key.
    for (const Section& s : Sections(lines)) {
        if (!EqualsIgnoreCase(s.name, section)) continue;
        if (auto i = FindKey(lines, s, key)) {
            lines.erase(lines.begin() + static_cast<long>(*i));
            return true;
        }
    }
    return false;
}

// Names are looked up trimmed; a new section or key is spelt as given, less its leading
// blanks. False when nothing had to change.
bool SetKey(std::vector<Line>& lines, std::string_view section, std::string_view key,
            std::string_view value) {
    std::string newKey(TrimLeadingBlanks(key));
    auto sections = Sections(lines);
    const Section* s = FindSection(sections, TrimBlanks(section));
    if (!s) {
        if (!lines.empty()) TerminateLine(lines.back());
        lines.push_back({"[" + std::string(TrimLeadingBlanks(section)) + "]", kNewLineEnd});
        lines.push_back({newKey + "=" + std::string(value), kNewLineEnd});
        return true;
    }
    if (auto i = FindKey(lines, *s, TrimBlanks(key))) {
        Line& line = lines[*i];
        ParsedLine p = Parse(line.text);
        if (p.value && *p.value == value) return false;
        if (p.value) {
            // Keep the line's own spelling and spacing up to the value.
            line.text = line.text.substr(0, p.valueStart) + std::string(value);
        } else {
            size_t indent = line.text.size() - TrimLeadingBlanks(line.text).size();
            line.text =
                line.text.substr(0, indent) + std::string(p.name) + "=" + std::string(value);
        }
        return true;
    }
    // After the section's last non-blank line, so blank lines before the next section stay
    // where they are.
    size_t at = s->header ? *s->header + 1 : 0;
    for (size_t i = s->first; i < s->end; ++i) {
        if (Parse(lines[i].text).kind != LineKind::Blank) at = i + 1;
    }
    if (at > 0) TerminateLine(lines[at - 1]);
    lines.insert(lines.begin() + static_cast<long>(at),
                 {newKey + "=" + std::string(value), kNewLineEnd});
    return true;
}

}  // namespace

std::optional<std::string> LookUpProfileString(const std::string& file, std::string_view section,
                                               std::string_view key) {
    bool exists = false;
    auto bytes = ReadIfPresent(file, exists);
    if (!bytes || !exists) return std::nullopt;
    auto lines = SplitLines(*bytes);
    auto sections = Sections(lines);
    const Section* s = FindSection(sections, TrimBlanks(section));
    if (!s) return std::nullopt;
    auto i = FindKey(lines, *s, TrimBlanks(key));
    if (!i) return std::nullopt;
    ParsedLine p = Parse(lines[*i].text);
    if (!p.value) return std::nullopt;
    return CopyEntry(*p.value);
}

std::string ReadProfileString(const std::string& file, std::string_view section,
                              std::string_view key, std::string_view def) {
    if (auto v = LookUpProfileString(file, section, key)) return *v;
    return CopyEntry(RTrim(def));
}

bool WriteProfileString(const std::string& file, std::string_view section,
                        std::optional<std::string_view> key,
                        std::optional<std::string_view> value) {
    bool exists = false;
    auto bytes = ReadIfPresent(file, exists);
    if (!bytes) return false;
    auto lines = SplitLines(*bytes);
    std::string_view sectionName = TrimBlanks(section);
    bool changed = false;
    if (!key) {
        changed = DeleteSection(lines, sectionName);
    } else if (TrimBlanks(*key).empty()) {
        return false;
    } else if (!value) {
        changed = DeleteKey(lines, sectionName, TrimBlanks(*key));
    } else {
        changed = SetKey(lines, section, *key, TrimLeadingBlanks(*value));
    }
    if (!changed) return true;
    try {
        SaveFileAtomically(file, JoinLines(lines));
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace paginox
