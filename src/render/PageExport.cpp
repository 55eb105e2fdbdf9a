// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/PageExport.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cctype>

#include "core/RuntimeError.h"
#include "model/PageFormat.h"
#include "render/PreviewRefresh.h"
#include "render/QtSurface.h"

namespace paginox {

namespace {

constexpr int kDefaultResolution = 96;

std::vector<DrawProblem> ClearAndDraw(QtSurface& surface, int16_t numCharts,
                                      const PageFormat& format, const PictureOptions& options) {
    surface.SetBackColor(options.Interactive ? kPreviewBackColour : Rgb(255, 255, 255));
    surface.Clear();
    PreviewRects rects;
    return DrawFormat(surface, nullptr, numCharts, format, options.Labels, options.Interactive,
                      options.Pictures, &rects);
}

// Pixels per inch of a format's pictures: its own, or the screen's usual 96.
int Resolution(const PageFormat& format) {
    return format.LogPixels() > 0 ? format.LogPixels() : kDefaultResolution;
}

// Fills the device white (the preview grey when interactive) and draws the format on it, the
// page as large as the device allows in the format's proportions.
std::vector<DrawProblem> DrawFormatOn(QPaintDevice& device, int16_t pageNumCharts,
                                      const PageFormat& format, const PictureOptions& options) {
    QtSurface surface(device);
    return ClearAndDraw(surface, pageNumCharts, format, options);
}

std::vector<DrawProblem> DrawToImage(QBuffer& out, int width, int height, int16_t numCharts,
                                     const PageFormat& format, const PictureOptions& options) {
    QImage image(width, height, QImage::Format_RGB32);
    if (image.isNull()) throw RuntimeError(kOutOfMemory);  // the memory could not be had
    // The format's own resolution, so that a printer format prints at its paper size.
    const int dotsPerMeter = static_cast<int>(std::lround(Resolution(format) / 0.0254));
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    std::vector<DrawProblem> problems = DrawFormatOn(image, numCharts, format, options);
    if (!image.save(&out, "PNG")) throw RuntimeError(kDeviceIOError);
    return problems;
}

std::vector<DrawProblem> DrawToSvg(QBuffer& out, int width, int height, int16_t numCharts,
                                   const PageFormat& format, const PictureOptions& options) {
    QSvgGenerator svg;
    svg.setOutputDevice(&out);
    svg.setSize(QSize(width, height));
    svg.setViewBox(QRect(0, 0, width, height));
    svg.setTitle(QString::fromStdString(options.Title));
    return DrawFormatOn(svg, numCharts, format, options);
}

// The picture's size in inches at the format's resolution, as the PDF measures it, over a
// view box of its pixels: the generator's own millimetres are rounded and lose the grid.
void SizeInInches(QByteArray& svg, int width, int height, int dpi) {
    qsizetype start = svg.indexOf("<svg width=\"");
    qsizetype end = svg.indexOf("viewBox=", start);
    if (start < 0 || end < 0) return;
    QByteArray size = QString::fromLatin1("<svg width=\"%1in\" height=\"%2in\"\n ")
                          .arg(double(width) / dpi, 0, 'g', 8)
                          .arg(double(height) / dpi, 0, 'g', 8)
                          .toLatin1();
    svg.replace(start, end - start, size);
}

std::vector<DrawProblem> DrawToPdf(QBuffer& out, int width, int height, int16_t numCharts,
                                   const PageFormat& format, const PictureOptions& options) {
    QPdfWriter pdf(&out);
    int dpi = Resolution(format);
    pdf.setResolution(dpi);
    pdf.setPageSize(QPageSize(QSizeF(double(width) / dpi, double(height) / dpi), QPageSize::Inch,
                              QString(), QPageSize::ExactMatch));
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    pdf.setCreator(QString::fromLatin1("Paginox"));
    pdf.setTitle(QString::fromStdString(options.Title));
    return DrawFormatOn(pdf, numCharts, format, options);
}

}  // namespace

std::vector<DrawProblem> DrawFormatScaled(QPaintDevice& device, int16_t pageNumCharts,
                                          const PageFormat& format, const PictureOptions& options) {
    if (format.XPixels() < 1 || format.YPixels() < 1) return {};
    QPainter painter(&device);
    const double scale = std::min(double(device.width()) / format.XPixels(),
                                  double(device.height()) / format.YPixels());
    painter.translate((device.width() - format.XPixels() * scale) / 2,
                      (device.height() - format.YPixels() * scale) / 2);
    painter.scale(scale, scale);
    RectClass own;
    own.InitTo(0, 0, format.XPixels(), format.YPixels());
    QtSurface surface(painter, own);
    return ClearAndDraw(surface, pageNumCharts, format, options);
}

std::optional<PictureKind> PictureKindOf(const std::string& path) {
    size_t dot = path.find_last_of("./");
    if (dot == std::string::npos || path[dot] != '.') return std::nullopt;
    std::string ext = path.substr(dot + 1);
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (ext == "png") return PictureKind::Png;
    if (ext == "svg") return PictureKind::Svg;
    if (ext == "pdf") return PictureKind::Pdf;
    return std::nullopt;
}

std::string PictureSizeProblem(PictureKind kind, int width, int height) {
    if (kind != PictureKind::Png || int64_t(width) * height <= kMaxImagePixels) return "";
    return "A picture of " + std::to_string(width) + " x " + std::to_string(height) +
           " pixels is too large to be made in memory (at most " +
           std::to_string(kMaxImagePixels / 1'000'000) +
           " million pixels); export it as SVG or PDF, or choose a smaller page size.";
}

Picture DrawPicture(PictureKind kind, int width, int height, int16_t pageNumCharts,
                    const PageFormat& format, const PictureOptions& options) {
    std::string tooLarge = PictureSizeProblem(kind, width, height);
    if (!tooLarge.empty()) throw RuntimeError(kOutOfMemory, tooLarge);
    QByteArray bytes;
    std::vector<DrawProblem> problems;
    {
        QBuffer out(&bytes);
        out.open(QIODevice::WriteOnly);
        switch (kind) {
            case PictureKind::Png:
                problems = DrawToImage(out, width, height, pageNumCharts, format, options);
                break;
            case PictureKind::Svg:
                problems = DrawToSvg(out, width, height, pageNumCharts, format, options);
                break;
            case PictureKind::Pdf:
                problems = DrawToPdf(out, width, height, pageNumCharts, format, options);
                break;
        }
    }
    if (kind == PictureKind::Svg) SizeInInches(bytes, width, height, Resolution(format));
    return Picture{bytes.toStdString(), std::move(problems)};
}

}  // namespace paginox
