// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Thumbnails kept as bitmap files in the cache folder, one per page file and size, reused
// while they are newer than their page. Pictures of graphic objects are kept the same way.
// The cache keeps no state: every name is derived from the page's path.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "persist/Folders.h"
#include "render/PictureCache.h"

namespace paginox {

// Writes a bitmap of width x height pixels of the source file (a page or a picture) at
// target; true when it was written.
using BitmapMaker = std::function<bool(const std::string& source, int32_t width, int32_t height,
                                       const std::string& target)>;

class ImageCache : public PictureCache {
  public:
    // Bitmaps are made with maker (pages and pictures by default) and named with sep.
    explicit ImageCache(BitmapMaker maker = nullptr, char sep = kNativeSeparator);

    // The local data folder of the folder table + "ImageCache" + the separator.
    std::string CacheDir() const;
    // True when the cache folder exists; makes it (and its parents) if it does not.
    bool PrepareForCaching() override;
    // The bitmap of that size exists and its time is strictly later, in whole seconds, than
    // the page file's last change (its modification or status change: a rename counts): one
    // written in the same second as the page is stale.
    bool Contains(const std::string& pagePath, int32_t width, int32_t height) override;
    // The cache folder + the page path with every ":" and separator made "_" + "_WxH.bmp".
    // Where that name could belong to another page too (the path holds "_" or ":") or is too
    // long for the file system, the end of the escaped path, "~" and a hash of the whole
    // path take the escaped path's place.
    std::string GetCacheName(const std::string& pagePath, int32_t width,
                             int32_t height) const override;
    // Makes the bitmap when the page file and the cache folder exist (the folder is not made
    // here), replacing the old one whole; true when the bitmap now exists. When the page
    // cannot be drawn, no old bitmap is left.
    bool CreateCache(const std::string& pagePath, int32_t width, int32_t height) override;
    void ClearCache(const std::string& pagePath, int32_t width, int32_t height);
    // Deletes the files matching the cache folder + the page path with only its separators
    // made "_" + "_*.bmp". The colon stays, deliberately: a path with a drive letter matches
    // none of the names GetCacheName gives, so nothing is deleted for it. Without a colon
    // every size goes, and so do pages whose escaped path merely begins the same way.
    void ClearCaches(const std::string& pagePath);
    // Deletes every "*.bmp" of the cache folder.
    void ClearAllCaches();
    // Deletes the page thumbnails of that size that belong to none of pagePaths (pages deleted
    // or renamed elsewhere); how many went.
    int RemoveOrphans(const std::vector<std::string>& pagePaths, int32_t width, int32_t height);

  private:
    bool IsPlainName(const std::string& pagePath, const std::string& fileName) const;
    std::string DistinctStem(const std::string& pagePath) const;
    // Deletes the first file matching the pattern, over and over until none is left.
    void DeleteMatching(const std::string& pattern);

    BitmapMaker maker_;
    char sep_;
};

}  // namespace paginox
