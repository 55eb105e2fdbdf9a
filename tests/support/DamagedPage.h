// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A sample page damaged as a crash or another program might leave it.

#include <cmath>
#include <cstring>
#include <string>

#include "support/TempDir.h"

namespace paginox::test {

// The page file's bytes with its first format's first object of class 999 (no catalogue has
// it), its second at a NaN Origin, and its second format 0 pixels wide.
inline std::string DamagedPage(const std::string& page) {
    std::string bytes = ReadAll(page);
    auto put = [&](size_t at, auto value) { std::memcpy(bytes.data() + at, &value, sizeof value); };
    const size_t format1 = 349, object1 = format1 + 34, record = 1605;
    int16_t objects = 0;
    std::memcpy(&objects, bytes.data() + format1, 2);
    put(object1, int16_t(999));
    put(object1 + record + 12, std::nanf(""));
    put(object1 + size_t(objects) * record + 26, int16_t(0));
    return bytes;
}

}  // namespace paginox::test
