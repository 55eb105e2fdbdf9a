// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/DelimitedReader.h"

#include <cctype>
#include <charconv>

#include "core/Rounding.h"
#include "core/RuntimeError.h"

namespace paginox {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}
bool IsDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

// Sign, digits with an optional fraction (at least one digit), optional exponent; "D" is
// accepted for the exponent as the classic double-precision notation wrote it.
double ParseNumber(std::string text) {
    size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    size_t digits = 0;
    while (i < text.size() && IsDigit(text[i])) ++i, ++digits;
    if (i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && IsDigit(text[i])) ++i, ++digits;
    }
    if (digits == 0) Raise(kTypeMismatch);
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
        text[i] = 'e';
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
        size_t expDigits = 0;
        while (i < text.size() && IsDigit(text[i])) ++i, ++expDigits;
        if (expDigits == 0) Raise(kTypeMismatch);
    }
    if (i != text.size()) Raise(kTypeMismatch);
    size_t start = text[0] == '+' ? 1 : 0;
    double v = 0;
    auto [end, ec] = std::from_chars(text.data() + start, text.data() + text.size(), v);
    if (ec == std::errc::result_out_of_range) Raise(kOverflow);
    if (ec != std::errc() || end != text.data() + text.size()) Raise(kTypeMismatch);
    return v;
}

}  // namespace

void DelimitedReader::SkipBlanks() {
    while (!AtEnd() && IsBlank(bytes_[pos_])) ++pos_;
}

bool DelimitedReader::AtLineEnd() const {
    return !AtEnd() && IsLineEnd(bytes_[pos_]);
}

void DelimitedReader::StartField() {
    while (!AtEnd() && (IsBlank(bytes_[pos_]) || IsLineEnd(bytes_[pos_]))) ++pos_;
    if (AtEnd()) Raise(kInputPastEndOfFile);
}

void DelimitedReader::SkipDelimiter() {
    SkipBlanks();
    if (AtEnd()) return;
    if (bytes_[pos_] == ',') {
        ++pos_;
    } else if (bytes_[pos_] == '\r') {
        ++pos_;
        if (!AtEnd() && bytes_[pos_] == '\n') ++pos_;
    } else if (bytes_[pos_] == '\n') {
        ++pos_;
    }
}

std::string DelimitedReader::ReadQuoted() {
    size_t close = bytes_.find('"', pos_);
    if (close == std::string::npos) close = bytes_.size();  // an open quote runs to the end
    std::string text = bytes_.substr(pos_, close - pos_);
    pos_ = close < bytes_.size() ? close + 1 : close;
    // Anything between the closing quote and the delimiter is ignored.
    while (!AtEnd() && bytes_[pos_] != ',' && !AtLineEnd()) ++pos_;
    SkipDelimiter();
    return text;
}

std::string DelimitedReader::ReadText() {
    StartField();
    if (bytes_[pos_] == '"') {
        ++pos_;
        return ReadQuoted();
    }
    size_t start = pos_;
    while (!AtEnd() && bytes_[pos_] != ',' && !AtLineEnd()) ++pos_;
    size_t end = pos_;
    while (end > start && IsBlank(bytes_[end - 1])) --end;
    SkipDelimiter();
    return bytes_.substr(start, end - start);
}

double DelimitedReader::ReadNumber() {
    StartField();
    std::string text;
    if (bytes_[pos_] == '"') {
        ++pos_;
        text = ReadQuoted();
        size_t b = text.find_first_not_of(" \t");
        text = b == std::string::npos ? "" : text.substr(b, text.find_last_not_of(" \t") + 1 - b);
    } else {
        // A number also ends at a blank; the next field may then follow on the same line.
        size_t start = pos_;
        while (!AtEnd() && bytes_[pos_] != ',' && !AtLineEnd() && !IsBlank(bytes_[pos_])) ++pos_;
        text = bytes_.substr(start, pos_ - start);
        SkipDelimiter();
    }
    return text.empty() ? 0.0 : ParseNumber(text);
}

int16_t DelimitedReader::ReadInt16() {
    return ToInt16(ReadNumber());
}

int32_t DelimitedReader::ReadInt32() {
    return ToInt32(ReadNumber());
}

}  // namespace paginox
