// SPDX-License-Identifier: GPL-3.0-or-later
// The point-list and aspect-list column definitions ("plist.dfn", "Alist.dfn") on any bytes.

#include "FuzzSupport.h"
#include "model/DefinitionTables.h"
#include "persist/DefinitionReaders.h"

using namespace paginox;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::QuietMessages messages;
    std::string path = fuzz::WriteInput("plist.dfn", data, size);
    ReadPointListDefs(path);
    ReadAspectListDefs(path);
    fuzz::Require(Definitions().PointList.Entries.size() <= 32767);
    fuzz::Require(Definitions().PointList.Count() == Definitions().AspectList.Count());
    return 0;
}
