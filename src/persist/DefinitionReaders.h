// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Readers that fill the program-wide definition tables (model/DefinitionTables.h) at
// start-up: the point-list and aspect-list columns ("plist.dfn", "Alist.dfn"), the rulership
// sets ("rulers2.fil") and the default column lists ("astrlist.dfn" and the like).

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace paginox {

class Folders;

// Column lists: records of number, number, text, number. Replaces the table's contents. A
// file that cannot be opened leaves the table empty (the open has already reported it); a
// read error shows "Error whilst reading file " with the path and the error, keeping the
// records read completely.
void ReadPointListDefs(const std::string& path);
void ReadAspectListDefs(const std::string& path);

// Rulership sets: 163-byte records, the count being the length / 163 rounded half to even; a
// rounded-up last record reads blank and zero past the end. A missing file leaves the table
// empty without a message (and, unlike a record-mode open, creates nothing).
void ReadRulerships(const std::string& path);

// A default column list: numbers read one item at a time to the end of the file; an item
// that is not a whole number in range is skipped. Empty when the file cannot be read.
std::vector<int32_t> ReadNumberListFile(const std::string& path);

// Makes ReadNumberListFile the model's reader of default column lists.
void InstallDefinitionReaders();

// The folder holding "objects.dfn" and the default column lists: the system data folder.
std::string DefinitionsFolderOf(const Folders& folders);

// Start-up's loading of the definitions, in the host's order: the definitions folder and the
// number-list reader, the rulership sets (system data folder), the object class catalogue
// through loadObjectClasses (given the full path of "objects.dfn"; skipped when empty), then
// "Alist.dfn" and "plist.dfn" (local application data folder).
void LoadDefinitions(const Folders& folders,
                     const std::function<void(const std::string& path)>& loadObjectClasses = {});

}  // namespace paginox
