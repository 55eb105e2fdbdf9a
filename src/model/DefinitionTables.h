// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The program-wide tables loaded once at start-up from the host's definition files and read
// by the property list and by the defaults of new objects. Filled by the readers of the
// persistence layer; read-only afterwards.

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace paginox {

// One row of "plist.dfn" or "Alist.dfn": number, number, label, default flag.
struct ColumnDef {
    int16_t First = 0;   // the column's code, stored in an object's PL_Columns
    int16_t Second = 0;
    std::string Label;
    int16_t DefaultFlag = 0;  // non-zero: new list objects show this column
};

// A column list table; entries are 1-based through Entry(i).
struct ColumnListTable {
    std::vector<ColumnDef> Entries;
    int16_t Count() const { return static_cast<int16_t>(Entries.size()); }
    const ColumnDef& Entry(int16_t i) const;  // raises a subscript error outside 1..Count
};

// One rulership set of "rulers2.fil".
struct RulershipSet {
    std::string Name;
    std::string Abbreviation;
    std::array<int16_t, 13> FirstCodes{};   // per sign, 1..12 used
    std::array<int16_t, 13> SecondCodes{};
    std::array<int16_t, 13> ThirdCodes{};
    std::array<int16_t, 37> TripleCodes{};  // sign s uses 3(s-1)+1 .. 3(s-1)+3
};

struct DefinitionTables {
    ColumnListTable PointList;   // "plist.dfn": the point table of list objects
    ColumnListTable AspectList;  // "Alist.dfn": the second table, used by aspect lists
    std::vector<RulershipSet> Rulerships;  // set r is Rulerships[r - 1]

    // Folder holding "objects.dfn" and the default column lists ("astrlist.dfn", ...), with
    // a trailing separator.
    std::string DefinitionsFolder;

    // Reads a default column list file (a sequence of numbers); installed by the persistence
    // layer so that the model itself opens no files. Empty when unset or unreadable.
    std::function<std::vector<int32_t>(const std::string& path)> ReadNumberList;
};

// The one set of tables of this process.
DefinitionTables& Definitions();

}  // namespace paginox
