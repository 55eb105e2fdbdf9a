// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DefinitionTables.h"

#include "core/Checked.h"

namespace paginox {

const ColumnDef& ColumnListTable::Entry(int16_t i) const {
    CheckIndex(i, 1, Count());
    return Entries[i - 1];
}

DefinitionTables& Definitions() {
    static DefinitionTables tables;
    return tables;
}

}  // namespace paginox
