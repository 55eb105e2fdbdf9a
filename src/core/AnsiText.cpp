// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/AnsiText.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace paginox {

namespace {
// The length of s without its trailing spaces. Fixed-width fields are mostly padding, so the
// padding is skipped eight bytes at a time.
size_t LengthWithoutTrailingSpaces(std::string_view s) {
    constexpr uint64_t kEightSpaces = 0x2020202020202020u;
    size_t e = s.size();
    for (uint64_t word; e >= 8; e -= 8) {
        std::memcpy(&word, s.data() + e - 8, 8);
        if (word != kEightSpaces) break;
    }
    while (e > 0 && s[e - 1] == ' ') --e;
    return e;
}
}  // namespace

std::string LTrim(std::string_view s) {
    size_t b = s.find_first_not_of(' ');
    return b == std::string_view::npos ? std::string() : std::string(s.substr(b));
}

std::string RTrim(std::string_view s) {
    return std::string(s.substr(0, LengthWithoutTrailingSpaces(s)));
}

std::string Trim(std::string_view s) {
    s = s.substr(0, LengthWithoutTrailingSpaces(s));
    size_t b = s.find_first_not_of(' ');
    return b == std::string_view::npos ? std::string() : std::string(s.substr(b));
}

std::string FixLength(std::string_view s, size_t n) {
    std::string r(s.substr(0, n));
    r.resize(n, ' ');
    return r;
}

std::string TrimFixed(std::string_view field) {
    size_t nul = field.find('\0');
    if (nul == 0) return std::string();
    return Trim(field.substr(0, nul));
}

namespace {

// Code points of 0x80..0x9F; 0 marks the five bytes Windows-1252 leaves undefined, which
// pass through as the C1 control of the same number.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char32_t CodePointOf(unsigned char c) {
    if (c >= 0x80 && c < 0xA0 && kHigh[c - 0x80] != 0) return kHigh[c - 0x80];
    return c;
}

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}

char AnsiOf(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return char(cp);
    for (size_t i = 0; i < kHigh.size(); ++i) {
        if (kHigh[i] == cp) return char(0x80 + i);
    }
    if (cp >= 0x80 && cp < 0xA0 && kHigh[cp - 0x80] == 0) return char(cp);
    return '?';
}

// Decodes one UTF-8 sequence at s[i]; returns the code point and advances i, or returns
// U+FFFD (which has no Windows-1252 byte) for a malformed sequence.
char32_t NextCodePoint(std::string_view s, size_t& i) {
    unsigned char c = s[i++];
    if (c < 0x80) return c;
    int extra = c >= 0xF0 && c < 0xF8 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : -1;
    if (extra < 0 || c >= 0xF8) return 0xFFFD;
    char32_t cp = c & (0x3F >> extra);
    for (int k = 0; k < extra; ++k) {
        if (i >= s.size() || (static_cast<unsigned char>(s[i]) & 0xC0) != 0x80) return 0xFFFD;
        cp = (cp << 6) | (static_cast<unsigned char>(s[i++]) & 0x3F);
    }
    return cp;
}

}  // namespace

std::string Cp1252ToUtf8(std::string_view ansi) {
    std::string out;
    out.reserve(ansi.size());
    for (unsigned char c : ansi) AppendUtf8(out, CodePointOf(c));
    return out;
}

std::string Utf8ToCp1252(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (size_t i = 0; i < utf8.size();) out += AnsiOf(NextCodePoint(utf8, i));
    return out;
}

std::string ToLowerAscii(std::string_view s) {
    std::string r(s);
    for (char& c : r) {
        if (c >= 'A' && c <= 'Z') c = char(c - 'A' + 'a');
    }
    return r;
}

std::string ToUpperAscii(std::string_view s) {
    std::string r(s);
    for (char& c : r) {
        if (c >= 'a' && c <= 'z') c = char(c - 'a' + 'A');
    }
    return r;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && ToLowerAscii(a) == ToLowerAscii(b);
}

bool MatchesWildcard(std::string_view pattern, std::string_view name) {
    // Greedy with one back-track point: linear in practice, never exponential.
    size_t p = 0, n = 0, star = std::string_view::npos, resume = 0;
    auto same = [](char a, char b) { return ToLowerAscii({&a, 1}) == ToLowerAscii({&b, 1}); };
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || same(pattern[p], name[n]))) {
            ++p, ++n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

}  // namespace paginox
