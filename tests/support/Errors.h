// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/RuntimeError.h"

namespace paginox::test {

// The run-time error number f raises, or 0.
inline int ErrorOf(auto&& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.Number();
    }
    return 0;
}

}  // namespace paginox::test
