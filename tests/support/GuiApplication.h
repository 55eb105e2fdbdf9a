// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Fonts and image plugins need a GUI application; tests run it on the offscreen platform so
// that they need no display and measure text at 96 dots per inch everywhere. Widget tests ask
// for a QApplication instead.

#include <QGuiApplication>
#include <cstdlib>

namespace paginox::test {

template <class App = QGuiApplication>
inline void EnsureGuiApplication() {
    if (QCoreApplication::instance()) return;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static int argc = 1;
    static char name[] = "paginox-test";
    static char* argv[] = {name, nullptr};
    // Kept to the end of the process: fonts are still in use while statics are destroyed.
    new App(argc, argv);
}

}  // namespace paginox::test
