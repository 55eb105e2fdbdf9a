// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ImageCache.h"

#include <cctype>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <set>
#include <string_view>

#include "core/AnsiText.h"
#include "library/PageBitmap.h"
#include "persist/BinaryFile.h"
#include "persist/FileStatus.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {

const char* kCacheFolderName = "ImageCache";
// The longest file name most file systems take, in bytes.
constexpr size_t kMaxNameBytes = 255;
// Of a distinct name, the bytes of the escaped path kept before its hash.
constexpr size_t kKeptPathBytes = 160;

std::string Escaped(const std::string& path, std::string_view replaced) {
    std::string out = path;
    for (char& c : out) {
        if (replaced.find(c) != std::string_view::npos) c = '_';
    }
    return out;
}

// A file's modification time in whole seconds of the system clock, as LastChangeSecond
// counts; none when it cannot be read.
std::optional<int64_t> ModifiedSecond(const std::string& path) {
    std::optional<FileStamp> stamp = StampOf(path);
    if (!stamp) return std::nullopt;
    constexpr int64_t kNsPerSecond = 1'000'000'000;
    return stamp->ModifiedNs >= 0 ? stamp->ModifiedNs / kNsPerSecond
                                  : -((-stamp->ModifiedNs + kNsPerSecond - 1) / kNsPerSecond);
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
    // A page renamed or replaced keeps its modification time but not its change time: a
    // bitmap made before either is stale too.
    std::optional<int64_t> page = LastChangeSecond(pagePath);
    // Without a page there is nothing the bitmap could be fresh against.
    return cached && page && *cached > *page;
}

std::string ImageCache::GetCacheName(const std::string& pagePath, int32_t width,
                                     int32_t height) const {
    const char replaced[] = {':', sep_, '\0'};
    const std::string size = "_" + std::to_string(width) + "x" + std::to_string(height) + ".bmp";
    std::string escaped = Escaped(pagePath, replaced);
    if (IsPlainName(pagePath, escaped + size)) return CacheDir() + escaped + size;
    return CacheDir() + DistinctStem(pagePath) + size;
}

bool ImageCache::IsPlainName(const std::string& pagePath, const std::string& fileName) const {
    // The escaped path names one page only when no "_" was there to begin with and a ":" at
    // most after a drive letter; and it must fit the file system's limit on a name.
    size_t colon = pagePath.find(':');
    bool driveColon = colon == 1 && std::isalpha(static_cast<unsigned char>(pagePath[0]));
    return pagePath.find('_') == std::string::npos &&
           (colon == std::string::npos ||
            (driveColon && pagePath.find(':', 2) == std::string::npos)) &&
           fileName.size() + std::string_view(".part").size() <= kMaxNameBytes;
}

std::string ImageCache::DistinctStem(const std::string& pagePath) const {
    const char replaced[] = {':', sep_, '\0'};
    std::string escaped = Escaped(pagePath, replaced);
    // The end of the path, which holds the page's name, and a hash of the whole path.
    if (escaped.size() > kKeptPathBytes) escaped.erase(0, escaped.size() - kKeptPathBytes);
    uint64_t hash = 14695981039346656037ull;  // FNV-1a
    for (unsigned char c : pagePath) hash = (hash ^ c) * 1099511628211ull;
    char hex[17];
    std::snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(hash));
    return escaped + "~" + hex;
}

bool ImageCache::CreateCache(const std::string& pagePath, int32_t width, int32_t height) {
    if (!FileExists(pagePath) || !DirExists(CacheDir())) return false;
    std::string name = GetCacheName(pagePath, width, height);
    // The old bitmap goes first: a page that can no longer be drawn never shows it again.
    std::error_code ec;
    fs::remove(name, ec);
    // Drawn beside it and renamed into place: a reader never sees half a bitmap.
    const std::string part = name + ".part";
    if (!maker_(pagePath, width, height, part) || !FileExists(part)) {
        fs::remove(part, ec);
        return false;
    }
    fs::rename(part, name, ec);
    if (ec) fs::remove(part, ec);
    return FileExists(name);
}

void ImageCache::ClearCache(const std::string& pagePath, int32_t width, int32_t height) {
    std::error_code ec;
    fs::remove(GetCacheName(pagePath, width, height), ec);
}

void ImageCache::ClearCaches(const std::string& pagePath) {
    const char replaced[] = {sep_, '\0'};
    DeleteMatching(Escaped(pagePath, replaced) + "_*.bmp");
    DeleteMatching(DistinctStem(pagePath) + "_*.bmp");
}

int ImageCache::RemoveOrphans(const std::vector<std::string>& pagePaths, int32_t width,
                              int32_t height) {
    std::set<std::string> kept;
    for (const std::string& path : pagePaths) {
        kept.insert(fs::path(GetCacheName(path, width, height)).filename().string());
    }
    const std::string size = "_" + std::to_string(width) + "x" + std::to_string(height) + ".bmp";
    std::vector<fs::path> orphans;
    std::error_code ec;
    for (fs::directory_iterator it(CacheDir(), ec), end; !ec && it != end; it.increment(ec)) {
        std::string name = it->path().filename().string();
        // Only page thumbnails of that size: pictures of graphic objects are not pages.
        bool thumbnail = name.ends_with(".pag" + size) ||
                         (name.ends_with(size) && name.find(".pag~") != std::string::npos);
        if (thumbnail && !kept.count(name)) orphans.push_back(it->path());
    }
    for (const fs::path& orphan : orphans) fs::remove(orphan, ec);
    return static_cast<int>(orphans.size());
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
