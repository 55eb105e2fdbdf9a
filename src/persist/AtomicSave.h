// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Replacing a file's contents so that a failure never damages what was there: the bytes go to
// a temporary file beside the target, which is renamed over the target only once complete.

#include <string>

namespace paginox {

// Raises RuntimeError with the classic number on failure; the target is then untouched and
// the temporary file removed. Through a symbolic link the file it points to is replaced, and a
// replaced file keeps its permissions. A file without write permission is refused ("Permission
// denied"), and so is a pipe or a device ("Bad file name"). The path is native (UTF-8).
void SaveFileAtomically(const std::string& path, const std::string& bytes);

}  // namespace paginox
