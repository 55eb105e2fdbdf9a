// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Settings files ("name.ini") read and written with the host's private-profile rules, because
// the host program shares the same file and expects its own layout:
// - sections and keys match ignoring letter case and surrounding blanks; the file's own
//   spelling is kept on update;
// - a value is read trimmed of blanks, then one pair of matching surrounding quotes ("..."
//   or '...') is removed and the text is cut to 254 characters; there are no inline comments,
//   and a line without "=" is not a key;
// - only the first of duplicate sections and of duplicate keys is read or updated;
// - a new key goes after the last line of its section, a new section at the end of the file,
//   both with CR LF line ends; every line not changed keeps its bytes exactly.
// Files hold Windows-1252 text; sections, keys and values here are those bytes unconverted.
// The file name is a native path.

#include <optional>
#include <string>
#include <string_view>

namespace paginox {

// The value of key in section, or nothing when the file, the section or the key (or its
// "=") is missing.
std::optional<std::string> LookUpProfileString(const std::string& file, std::string_view section,
                                               std::string_view key);

// The value of key in section; when missing, the default with its trailing spaces removed
// (and its quotes and length treated like a value's).
std::string ReadProfileString(const std::string& file, std::string_view section,
                              std::string_view key, std::string_view def);

// Writes key=value in section (leading blanks of key and value dropped). No key removes the
// whole first section of that name; no value removes the key's line. Removing something that
// does not exist leaves the file alone (and creates no file). The file is replaced atomically.
// False when the file cannot be read or written, or the key is empty.
bool WriteProfileString(const std::string& file, std::string_view section,
                        std::optional<std::string_view> key, std::optional<std::string_view> value);

}  // namespace paginox
