// SPDX-License-Identifier: GPL-3.0-or-later
// ReadCopiedObjects on any bytes: no crash, no unbounded allocation, a refusal only as a
// RuntimeError; and whatever it reads goes back to bytes that read and write the same again.

#include "FuzzSupport.h"
#include "core/RuntimeError.h"
#include "persist/CopiedObjects.h"

using namespace paginox;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string_view in(reinterpret_cast<const char*>(data), size);
    std::vector<std::shared_ptr<PageObject>> objects;
    try {
        objects = ReadCopiedObjects(in);
    } catch (const RuntimeError&) {
        return 0;
    }
    fuzz::Require(!objects.empty());
    std::string once = CopiedObjectsBytes(objects);
    fuzz::Require(CopiedObjectsBytes(ReadCopiedObjects(once)) == once);
    return 0;
}
