// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Golden files in tests/data/: expected texts, drawings and records kept as files where they
// read better than in code. In a text, a line that starts with "#" is a note for the reader.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/TempDir.h"

namespace paginox::test {

inline std::string GoldenPath(const std::string& name) {
    return std::string(PAGINOX_SOURCE_DIR) + "/tests/data/" + name;
}

// The lines of the file without its notes; with a section, only the lines after "== section"
// up to the next "==" line, less the blank lines that end it.
inline std::vector<std::string> GoldenLines(const std::string& name,
                                            const std::string& section = "") {
    std::istringstream in(ReadAll(GoldenPath(name)));
    std::vector<std::string> lines;
    bool inside = section.empty();
    bool found = inside;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("==")) {
            inside = line == "== " + section;
            found = found || inside;
        } else if (inside && !line.starts_with("#")) {
            lines.push_back(line);
        }
    }
    EXPECT_TRUE(found) << name << " has no section " << section;
    while (!section.empty() && !lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

// The text of the file (or section), each line ended by eol.
inline std::string GoldenText(const std::string& name, const std::string& section = "",
                              const std::string& eol = "\n") {
    std::string text;
    for (const std::string& line : GoldenLines(name, section)) text += line + eol;
    return text;
}

// The bytes that an annotated hex file describes: two hex digits are a byte, "xx*n" is n bytes
// of xx, "..." the bytes of the text between the quotes; "#" starts a note to the line's end.
inline std::string GoldenBytes(const std::string& name) {
    const std::string text = ReadAll(GoldenPath(name));
    EXPECT_FALSE(text.empty()) << name;
    std::string bytes;
    for (size_t i = 0; i < text.size();) {
        char c = text[i];
        if (c == '#') {
            i = text.find('\n', i);
        } else if (c == '"') {
            size_t end = text.find('"', i + 1);
            bytes += text.substr(i + 1, end - i - 1);
            i = end + 1;
        } else if (std::isxdigit(static_cast<unsigned char>(c))) {
            char byte = static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16));
            size_t count = 1;
            i += 2;
            if (i < text.size() && text[i] == '*') {
                size_t used = 0;
                count = std::stoul(text.substr(i + 1, 8), &used);
                i += 1 + used;
            }
            bytes.append(count, byte);
        } else {
            ++i;
        }
    }
    return bytes;
}

}  // namespace paginox::test
