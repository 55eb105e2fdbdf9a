// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/FileStatus.h"

#include <sys/stat.h>

#include <algorithm>

namespace paginox {

FileType TypeOfFile(const std::string& path) {
    struct stat st {};
    if (path.empty() || stat(path.c_str(), &st) != 0) return FileType::Missing;
    if (S_ISREG(st.st_mode)) return FileType::Regular;
    return S_ISDIR(st.st_mode) ? FileType::Directory : FileType::Special;
}

std::optional<FileStamp> StampOf(const std::string& path) {
    struct stat st {};
    if (path.empty() || stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return std::nullopt;
    constexpr int64_t kNsPerSecond = 1'000'000'000;
    return FileStamp{int64_t(st.st_mtim.tv_sec) * kNsPerSecond + st.st_mtim.tv_nsec,
                     uint64_t(st.st_size), uint64_t(st.st_ino)};
}

std::optional<int64_t> LastChangeSecond(const std::string& path) {
    struct stat st {};
    if (path.empty() || stat(path.c_str(), &st) != 0) return std::nullopt;
    return std::max<int64_t>(st.st_mtim.tv_sec, st.st_ctim.tv_sec);
}

}  // namespace paginox
