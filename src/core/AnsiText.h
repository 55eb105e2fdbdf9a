// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Text as the files store it: Windows-1252 bytes in a std::string, one byte per character.

#include <string>
#include <string_view>

namespace paginox {

// Leading and/or trailing spaces (only the space character) removed.
std::string LTrim(std::string_view s);
std::string RTrim(std::string_view s);
std::string Trim(std::string_view s);

// The text cut to n characters, or padded on the right with spaces to n characters.
std::string FixLength(std::string_view s, size_t n);

// A fixed-width field cleaned for use: cut at the first NUL, then trimmed of spaces.
std::string TrimFixed(std::string_view field);

// Windows-1252 <-> UTF-8. A character Windows-1252 cannot hold becomes "?"; invalid UTF-8
// bytes become "?" too.
std::string Cp1252ToUtf8(std::string_view ansi);
std::string Utf8ToCp1252(std::string_view utf8);

// Letter case changed for the ASCII letters only, as comparisons of names and keys need.
std::string ToLowerAscii(std::string_view s);
std::string ToUpperAscii(std::string_view s);
bool EqualsIgnoreCase(std::string_view a, std::string_view b);

// A file name against a listing pattern: "*" any run of characters, "?" any one character,
// letters in either case, as the system's file listing takes them.
bool MatchesWildcard(std::string_view pattern, std::string_view name);

}  // namespace paginox
