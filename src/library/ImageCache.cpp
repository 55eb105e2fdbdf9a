// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ImageCache.h"

#include <chrono>
#include <filesystem>
#include <optional>

#include "core/AnsiText.h"
#include "library/PageBitmap.h"
#include "persist/BinaryFile.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {

const char* kCacheFolderName = "ImageCache";

std::string Escaped(const std::string& path, std::string_view replaced) {
    std::string out = path;
    for (char& c : out) {
        if (replaced.find(c) != std::string_view::npos) c = '_';
    }
    return out;
}


// A file's modification time in whole seconds; none when it cannot be read.
std::optional<int64_t> ModifiedSecond(const std::string& path) {
    std::error_code ec;
    fs::file_time_type t = fs::last_write_time(path, ec);
    if (ec) return std::nullopt;
    return std::chrono::floor<std::chrono::seconds>(t.time_since_epoch()).count();
}

}  // namespace

ImageCache::ImageCache(BitmapMaker maker, char sep)
    : maker_(maker ? std::move(maker) : BitmapMaker(MakePageBitmap)), sep_(sep) {}

std::string ImageCache::CacheDir() const {
    return AppFolders().Path(kLocalDataFolder) + kCacheFolderName + sep_;
}

bool ImageCache::PrepareForCaching() {
    std::string dir = CacheDir();
    return DirExists(dir) || (MakePath(dir, sep_) && DirExists(dir));
}

bool ImageCache::Contains(const std::string& pagePath, int32_t width, int32_t height) {
    std::string name = GetCacheName(pagePath, width, height);
    if (!FileExists(name)) return false;
    std::optional<int64_t> cached = ModifiedSecond(name);
    std::optional<int64_t> page = ModifiedSecond(pagePath);
    // Without a page there is nothing the bitmap could be fresh against.
    return cached && page && *cached > *page;
}

std::string ImageCache::GetCacheName(const std::string& pagePath, int32_t width,
                                     int32_t height) const {
    const char replaced[] = {':', sep_, '\0'};
    return CacheDir() + Escaped(pagePath, replaced) + "_" + std::to_string(width) + "x" +
           std::to_string(height) + ".bmp";
}

bool ImageCache::CreateCache(const std::string& pagePath, int32_t width, int32_t height) {
    if (!FileExists(pagePath) || !DirExists(CacheDir())) return false;
    std::string name = GetCacheName(pagePath, width, height);
    maker_(pagePath, width, height, name);
    return FileExists(name);
}

void ImageCache::ClearCache(const std::string& pagePath, int32_t width, int32_t height) {
    std::error_code ec;
    fs::remove(GetCacheName(pagePath, width, height), ec);
}

void ImageCache::ClearCaches(const std::string& pagePath) {
    const char replaced[] = {sep_, '\0'};
    DeleteMatching(Escaped(pagePath, replaced) + "_*.bmp");
}

void ImageCache::ClearAllCaches() {
    DeleteMatching("*.bmp");
}

void ImageCache::DeleteMatching(const std::string& pattern) {
    std::string dir = CacheDir();
    for (;;) {
        std::error_code ec;
        std::optional<fs::path> match;
        for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
            if (!it->is_directory(ec) && MatchesWildcard(pattern, it->path().filename().string())) {
                match = it->path();
                break;
            }
        }
        // A file that will not go would be listed forever: stop rather than spin.
        if (!match || !fs::remove(*match, ec) || ec) return;
    }
}

}  // namespace paginox
