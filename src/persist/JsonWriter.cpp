// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/JsonWriter.h"

#include <cmath>
#include <cstdio>

#include "core/AnsiText.h"
#include "core/NumberFormat.h"

namespace paginox {

namespace {
std::string Quoted(const std::string& utf8) {
    std::string q = "\"";
    for (unsigned char c : utf8) {
        switch (c) {
            case '"':
                q += "\\\"";
                break;
            case '\\':
                q += "\\\\";
                break;
            case '\n':
                q += "\\n";
                break;
            case '\r':
                q += "\\r";
                break;
            case '\t':
                q += "\\t";
                break;
            default:
                if (c < 0x20) {
                    char hex[8];
                    std::snprintf(hex, sizeof hex, "\\u%04x", c);
                    q += hex;
                } else {
                    q += char(c);
                }
        }
    }
    return q + '"';
}
}  // namespace

JsonWriter& JsonWriter::Key(const std::string& name) {
    BeginValue();
    out_ += Quoted(name) + ": ";
    afterKey_ = true;
    return *this;
}

void JsonWriter::Int(int64_t v) {
    BeginValue();
    out_ += std::to_string(v);
}

void JsonWriter::Bool(bool v) {
    BeginValue();
    out_ += v ? "true" : "false";
}

void JsonWriter::Single(float v) {
    if (!std::isfinite(v)) return Null();
    BeginValue();
    out_ += ShortestDecimal(v);
}

void JsonWriter::Ansi(const std::string& cp1252) {
    BeginValue();
    out_ += Quoted(Cp1252ToUtf8(cp1252));
}

void JsonWriter::Utf8(const std::string& text) {
    BeginValue();
    out_ += Quoted(text);
}

void JsonWriter::Null() {
    BeginValue();
    out_ += "null";
}

void JsonWriter::Open(char bracket) {
    BeginValue();
    out_ += bracket;
    counts_.push_back(0);
}

void JsonWriter::Close(char bracket) {
    // An empty object or array stays on its opening line: {} or [].
    if (counts_.back() > 0) {
        out_ += '\n';
        Indent(counts_.size() - 1);
    }
    out_ += bracket;
    counts_.pop_back();
    if (counts_.empty()) out_ += '\n';
}

// A value after a key follows it on its line; any other goes on a line of its own.
void JsonWriter::BeginValue() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (counts_.empty()) return;
    out_ += counts_.back()++ > 0 ? ",\n" : "\n";
    Indent(counts_.size());
}

void JsonWriter::Indent(size_t depth) {
    out_.append(4 * depth, ' ');
}

}  // namespace paginox
