// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Bitmaps of picture files at the sizes they are drawn at, so that redrawing a graphic object
// reads a ready bitmap instead of decoding its picture again. Drawing only needs these few
// operations; the page library's thumbnail cache provides them, and the programs install it.

#include <cstdint>
#include <string>

namespace paginox {

class PictureCache {
  public:
    virtual ~PictureCache() = default;
    // True when the cache folder exists, creating it if need be.
    virtual bool PrepareForCaching() = 0;
    // A bitmap of the file at that size exists and is newer than the file.
    virtual bool Contains(const std::string& path, int32_t width, int32_t height) = 0;
    // Makes the bitmap; true when it now exists.
    virtual bool CreateCache(const std::string& path, int32_t width, int32_t height) = 0;
    virtual std::string GetCacheName(const std::string& path, int32_t width,
                                     int32_t height) const = 0;
};

// The cache graphic objects are drawn through; none until a program installs one, and then
// pictures are drawn straight from their files.
PictureCache* InstalledPictureCache();

// Installs a cache for the lifetime of this object, then restores the previous one.
class ScopedPictureCache {
  public:
    explicit ScopedPictureCache(PictureCache* cache);
    ~ScopedPictureCache();
    ScopedPictureCache(const ScopedPictureCache&) = delete;
    ScopedPictureCache& operator=(const ScopedPictureCache&) = delete;

  private:
    PictureCache* previous_;
};

}  // namespace paginox
