// Paginox, the page layout editor.

#include <QApplication>

#include "editor/StartUp.h"
#include "library/ImageCache.h"
#include "render/PictureCache.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // Pictures of graphic objects are drawn from bitmaps kept in the thumbnail cache.
    paginox::ImageCache cache;
    paginox::ScopedPictureCache pictures(&cache);
    return paginox::RunEditor(app);
}
