// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A format drawn the way thumbnails are (on white, with labels and pictures) onto any paint
// device, a printer's included, or written as a PNG, SVG or PDF file.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "render/PageDraw.h"

class QPaintDevice;

namespace paginox {

class PageFormat;

struct PictureOptions {
    bool Labels = true;
    bool Pictures = true;
    bool Interactive = false;  // drawn as the editor's preview: grey, shadow, margin frame
    std::string Title;         // UTF-8, what an SVG or PDF file calls itself
};

// The format drawn on white at its own pixel size, scaled to fit the device and centred on it:
// on paper, lines and text keep their share of the page instead of shrinking to printer dots.
std::vector<DrawProblem> DrawFormatScaled(QPaintDevice& device, int16_t pageNumCharts,
                                          const PageFormat& format, const PictureOptions& options);

enum class PictureKind { Png, Svg, Pdf };
// The kind a file name's extension asks for, letter case ignored; none for any other.
std::optional<PictureKind> PictureKindOf(const std::string& path);

struct Picture {
    std::string Bytes;                  // the file's contents
    std::vector<DrawProblem> Problems;  // what could not be drawn
};

// A PNG is drawn whole in memory before it is written: at most this many pixels (256 MB).
inline constexpr int64_t kMaxImagePixels = 64'000'000;
// Why a picture of that kind and size cannot be made ("" when it can).
std::string PictureSizeProblem(PictureKind kind, int width, int height);

// The format drawn as a picture file of width x height pixels; a PDF page measures those
// pixels at the format's pixels per inch (96 when it has none), so a printer format comes out at
// its paper size. Raises what the drawing raises, and "Out of memory" (7) with
// PictureSizeProblem's text for a PNG too large to hold.
Picture DrawPicture(PictureKind kind, int width, int height, int16_t pageNumCharts,
                    const PageFormat& format, const PictureOptions& options);

}  // namespace paginox
