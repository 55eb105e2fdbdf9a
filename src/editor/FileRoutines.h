// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The editor's shared file routines: the path shown in the caption, the disk error reporter
// and the filter texts of the file dialogs.

#include <cstdint>
#include <string>
#include <string_view>

#include "persist/Folders.h"

namespace paginox {

// The path in lower case when shorter than 21 characters; otherwise its first 3 characters,
// "..." and the path from its last separator on, in lower case. A long path without a
// separator is returned whole, lower-cased.
std::string ShortPath(std::string_view path, char sep = kNativeSeparator);

// What the caller of FileErrors does next.
enum FileErrorCode : int16_t {
    kFileErrorRetry = 0,
    kFileErrorSkip = 1,
    kFileErrorGiveUp = 2,
    kFileErrorUnrecognised = 3,
};

// Reports a run-time file error in a "Disk Error" box and turns the button pressed into a
// FileErrorCode. Errors without a message return kFileErrorUnrecognised at once. The Yes and
// No buttons some messages offer map to no retry or skip: that mismatch is kept.
int16_t FileErrors(int errorNumber);

// A dialog filter written the classic way ("Text|pattern;pattern|Text|pattern") in the form
// a Qt file dialog takes ("Text (pattern pattern);;Text (pattern)"). A text that already
// ends with its patterns in brackets loses them first, so they are not shown twice.
std::string QtFileFilter(std::string_view classicFilter);

}  // namespace paginox
