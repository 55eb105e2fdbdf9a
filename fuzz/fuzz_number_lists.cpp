// SPDX-License-Identifier: GPL-3.0-or-later
// The default column lists ("astrlist.dfn" and the like) on any bytes.

#include "FuzzSupport.h"
#include "persist/DefinitionReaders.h"

using namespace paginox;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::QuietMessages messages;
    auto numbers = ReadNumberListFile(fuzz::WriteInput("astrlist.dfn", data, size));
    fuzz::Require(numbers.size() <= 32767 && numbers.size() <= size);
    return 0;
}
