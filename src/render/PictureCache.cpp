// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/PictureCache.h"

namespace paginox {

namespace {
PictureCache* gInstalled = nullptr;
}

PictureCache* InstalledPictureCache() {
    return gInstalled;
}

ScopedPictureCache::ScopedPictureCache(PictureCache* cache) : previous_(gInstalled) {
    gInstalled = cache;
}

ScopedPictureCache::~ScopedPictureCache() {
    gInstalled = previous_;
}

}  // namespace paginox
