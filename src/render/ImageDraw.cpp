// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/ImageDraw.h"

#include <QImageReader>
#include <QPainter>
#include <filesystem>
#include <map>

#include "core/AnsiText.h"
#include "persist/BinaryFile.h"
#include "persist/FileStatus.h"
#include "persist/Folders.h"
#include "persist/SpecialFolders.h"
#include "render/DrawingSurface.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {

// A bitmap read from disk, valid while its file keeps the same time and size.
struct KeptBitmap {
    FileStamp Stamp;
    QImage Image;
};

// Enough for every picture of a page at a few sizes; beyond that the oldest reads go.
constexpr size_t kMaxKeptBitmaps = 64;

std::map<std::string, KeptBitmap> gKept;
std::string gLastConverted;  // the source the temporary bitmap was made from
PictureReads gCounts;

QString ToQPath(const std::string& path) {
    return QString::fromStdString(path);
}

std::string UpperExtension(const std::string& path) {
    fs::path p(path);
    std::string ext = p.extension().string();
    if (!ext.empty() && ext[0] == '.') ext.erase(0, 1);
    return ToUpperAscii(ext);
}

// The bitmap file read once and then kept while the file is unchanged. Only a regular file
// goes to the reader, which would wait forever on a pipe.
const QImage* ReadBitmap(const std::string& path) {
    std::optional<FileStamp> stamp = StampOf(path);
    if (!stamp) return nullptr;
    auto kept = gKept.find(path);
    if (kept != gKept.end() && kept->second.Stamp == *stamp) return &kept->second.Image;
    QImageReader reader(ToQPath(path), "bmp");
    QImage image = reader.read();
    ++gCounts.BitmapReads;
    if (image.isNull()) return nullptr;
    if (gKept.size() >= kMaxKeptBitmaps && kept == gKept.end()) gKept.clear();
    KeptBitmap& entry = gKept[path];
    entry = KeptBitmap{*stamp, image.convertToFormat(QImage::Format_RGB32)};
    return &entry.Image;
}

// Makes the temporary bitmap from source unless it was made from it last time and is still
// there. False when the source cannot be read or the bitmap cannot be written.
bool ConvertToTemporaryBitmap(const std::string& source, const std::string& target) {
    if (source == gLastConverted && FileExists(target)) return true;
    std::error_code ec;
    fs::remove(target, ec);
    gLastConverted.clear();
    gKept.erase(target);
    QImage image = ReadPicture(source);
    ++gCounts.Conversions;
    if (image.isNull() || !image.save(ToQPath(target), "BMP")) return false;
    gLastConverted = source;
    return true;
}

}  // namespace

std::string gPageFolder;  // of the page being drawn, for pictures named without a folder

std::string PictureFilePath(const std::string& genericFile) {
    // A path as the host stores it (C:\Users\...) names a file here through its folders.
    std::string name = ProcessSpecialFolders().NativePath(Cp1252ToUtf8(genericFile));
    if (name.empty() || fs::path(name).is_absolute()) return name;
    for (const std::string& folder : {gPageFolder, AppFolders().Path(kPagesFolder)}) {
        if (folder.empty()) continue;
        std::string candidate = (fs::path(folder) / name).string();
        if (FileExists(candidate)) return candidate;
    }
    return name;
}

ScopedPictureFolder::ScopedPictureFolder(std::string folder) : previous_(gPageFolder) {
    gPageFolder = std::move(folder);
}

ScopedPictureFolder::~ScopedPictureFolder() {
    gPageFolder = previous_;
}

std::string TemporaryGraphicFile() {
    return AppFolders().Path(kTemporaryFolder) + kTemporaryGraphicName;
}

QImage ReadPicture(const std::string& fileName) {
    // The reader would wait forever on a pipe put in a picture's place.
    if (TypeOfFile(fileName) != FileType::Regular) return {};
    QImageReader reader(ToQPath(fileName));
    QByteArray format = reader.format();
    if (format == "svg" || format == "svgz") {
        QSize natural = reader.size();
        if (natural.isValid() && !natural.isEmpty()) {
            reader.setScaledSize(
                natural.scaled(kScalablePictureSide, kScalablePictureSide, Qt::KeepAspectRatio));
        }
    }
    QImage picture = reader.read();
    if (picture.isNull()) return {};
    // Bitmaps hold no transparency: what shows through is the white of the page.
    QImage flat(picture.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter painter(&flat);
    painter.drawImage(0, 0, picture);
    painter.end();
    return flat;
}

bool DrawPictureFile(DrawingSurface& surface, int16_t stretchMode, const std::string& fileName,
                     const RectClass& rect) {
    if (!FileExists(fileName)) return false;
    std::string bitmap = fileName;
    if (UpperExtension(fileName) != "BMP") {
        bitmap = TemporaryGraphicFile();
        if (!ConvertToTemporaryBitmap(fileName, bitmap)) return false;
    }
    const QImage* image = ReadBitmap(bitmap);
    if (image) surface.StretchImage(*image, rect, stretchMode);
    surface.SetBackMode(kBackTransparent);
    return image != nullptr;
}

PictureReads PictureReadCounts() {
    return gCounts;
}

void ForgetPictures() {
    gKept.clear();
    gLastConverted.clear();
}

}  // namespace paginox
