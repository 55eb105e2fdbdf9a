// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/GuardedApplication.h"

#include <cstdio>
#include <exception>

namespace paginox {

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& e) {
        Escaped(e.what());
    } catch (...) {
        Escaped("Unknown error");
    }
    return false;
}

void GuardedApplication::Escaped(const std::string& description) {
    std::fprintf(stderr, "paginox: unexpected error: %s\n", description.c_str());
    if (handling_ || !OnEscapedError) return;
    handling_ = true;
    try {
        OnEscapedError(description);
    } catch (...) {
        std::fprintf(stderr, "paginox: the error could not be reported\n");
    }
    handling_ = false;
}

}  // namespace paginox
