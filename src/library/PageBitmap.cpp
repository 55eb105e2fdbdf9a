// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/PageBitmap.h"

#include <QImage>
#include <filesystem>

#include "core/AnsiText.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "persist/FileIO_Page.h"
#include "render/ImageDraw.h"
#include "render/PageDraw.h"
#include "render/QtSurface.h"

namespace paginox {

namespace {
constexpr int16_t kThumbnailFormat = 1;

bool IsPageFile(const std::string& path) {
    return EqualsIgnoreCase(std::filesystem::path(path).extension().string(), ".pag");
}
}  // namespace

bool MakePageBitmap(const std::string& source, int32_t width, int32_t height,
                    const std::string& target) {
    if (width < 1 || height < 1) return false;
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QtSurface surface(image);
        RectClass all = surface.Scale();
        if (IsPageFile(source)) {
            // Pictures named without a folder lie beside the page.
            ScopedPictureFolder pictures(std::filesystem::path(source).parent_path().string());
            std::shared_ptr<PageClass> page = ReadPage(source, kThumbnailFormat, false);
            if (!page || page->NumFormats() < kThumbnailFormat) return false;
            std::shared_ptr<PageFormat> format = page->GetFormat(kThumbnailFormat);
            if (!format) return false;
            DrawFormat(surface, nullptr, page->NumCharts(), *format, true, false, true);
        } else if (!DrawPictureFile(surface, kStretchHalftone, source, all)) {
            return false;
        }
    }
    return image.save(QString::fromStdString(target), "BMP");
}

}  // namespace paginox
