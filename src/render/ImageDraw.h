// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Picture files drawn stretched into a rectangle. Bitmaps (".bmp") are read as they are; any
// other format the image reader knows (PNG, JPEG, GIF, ICO, SVG...) is first converted to the
// temporary bitmap "~PaginoxGraphic.bmp" in the temporary folder, once per source file. A
// bitmap once read is kept in memory while its file is unchanged, so that redrawing the
// preview on every mouse movement neither decodes nor reads the picture again.

#include <QImage>
#include <cstdint>
#include <string>

#include "model/RectClass.h"

namespace paginox {

class DrawingSurface;

inline constexpr const char* kTemporaryGraphicName = "~PaginoxGraphic.bmp";

// The file a graphic object's picture name (Windows-1252, as the page stores it) stands for.
// A name with its folder is taken as it is; a bare or relative one is looked for in the
// folder of the page being drawn (see ScopedPictureFolder), then in the pages folder of the
// folder table, and is otherwise left relative to the working folder.
std::string PictureFilePath(const std::string& genericFile);

// Names the folder of the page being drawn for the lifetime of this object, then restores
// the previous one.
class ScopedPictureFolder {
  public:
    explicit ScopedPictureFolder(std::string folder);
    ~ScopedPictureFolder();
    ScopedPictureFolder(const ScopedPictureFolder&) = delete;
    ScopedPictureFolder& operator=(const ScopedPictureFolder&) = delete;

  private:
    std::string previous_;
};

// The temporary bitmap: the temporary folder of the folder table + kTemporaryGraphicName.
std::string TemporaryGraphicFile();

// Draws the picture file (a native path) stretched into rect with the stretch mode, then
// sets the surface's background mode to transparent so that later text has no background.
// False when nothing was drawn: no such file, or one that cannot be read or converted.
bool DrawPictureFile(DrawingSurface& surface, int16_t stretchMode, const std::string& fileName,
                     const RectClass& rect);

// Decodes a picture of any readable format onto white (transparent parts become white). A
// scalable picture is rendered with its longer side at kScalablePictureSide pixels, so that
// the sizes made from it are scaled down rather than up. A null image when unreadable.
inline constexpr int kScalablePictureSide = 1024;
QImage ReadPicture(const std::string& fileName);

// How often pictures were converted to the temporary bitmap and bitmaps read from disk.
struct PictureReads {
    int64_t Conversions = 0;
    int64_t BitmapReads = 0;
};
PictureReads PictureReadCounts();

// Forgets the converted source and the bitmaps kept in memory.
void ForgetPictures();

}  // namespace paginox
