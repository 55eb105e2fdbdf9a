// SPDX-License-Identifier: GPL-3.0-or-later
// The rulership sets ("rulers2.fil") on any bytes.

#include "FuzzSupport.h"
#include "model/DefinitionTables.h"
#include "persist/DefinitionReaders.h"

using namespace paginox;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::QuietMessages messages;
    ReadRulerships(fuzz::WriteInput("rulers2.fil", data, size));
    fuzz::Require(Definitions().Rulerships.size() <= size / 163 + 1);
    return 0;
}
