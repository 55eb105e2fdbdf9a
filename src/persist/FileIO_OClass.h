// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Loading the object class catalogue from "objects.dfn": fixed 219-byte records, one per
// class, record i being the class with ClassID i.

#include <cstddef>
#include <cstdint>
#include <string>

namespace paginox {

class PageObjectClasses;

inline constexpr size_t kObjectClassRecordLength = 219;

// Fills into from the file at path. A missing file is created empty and gives an empty
// catalogue without a message; a file that cannot be opened, or that holds more records
// than a 16-bit count, is reported and leaves the catalogue empty. A read error ends the
// loading at the last complete class.
void LoadObjectClasses(const std::string& path, PageObjectClasses& into);

// Loads the program's catalogue at start-up. A missing, empty or cut catalogue is said once
// (pages then show the classes it lacks as unknown objects); a whole one silently.
void LoadCatalogue(const std::string& path);

}  // namespace paginox
