// SPDX-License-Identifier: GPL-3.0-or-later
// Paginox, the page layout editor.

#include <cstdio>

#include "editor/CommandLine.h"
#include "library/ImageCache.h"
#include "render/PictureCache.h"
#include "ui/GuardedApplication.h"
#include "ui/StartUp.h"

int main(int argc, char** argv) {
    // Answered before any window or display is needed.
    if (auto text = paginox::InformationAsked({argv + 1, argv + argc}, PAGINOX_VERSION)) {
        std::fputs(text->c_str(), stdout);
        return 0;
    }
    paginox::GuardedApplication app(argc, argv);
    // Pictures of graphic objects are drawn from bitmaps kept in the thumbnail cache.
    paginox::ImageCache cache;
    paginox::ScopedPictureCache pictures(&cache);
    return paginox::RunEditor(app);
}
