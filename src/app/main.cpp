// Paginox, the page layout editor.

#include "library/ImageCache.h"
#include "render/PictureCache.h"
#include "ui/GuardedApplication.h"
#include "ui/StartUp.h"

int main(int argc, char** argv) {
    paginox::GuardedApplication app(argc, argv);
    // Pictures of graphic objects are drawn from bitmaps kept in the thumbnail cache.
    paginox::ImageCache cache;
    paginox::ScopedPictureCache pictures(&cache);
    return paginox::RunEditor(app);
}
