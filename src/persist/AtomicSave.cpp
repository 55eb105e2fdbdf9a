// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/AtomicSave.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

#include "core/RuntimeError.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {
// The temporary file lives in the target's folder, so a missing file there means the folder
// is missing.
[[noreturn]] void RaiseCreateError(int err) {
    Raise(err == ENOENT ? kPathNotFound : ErrorNumberFromErrno(err));
}

// Sets created once the file exists, so that only a file made here is ever removed.
void WriteNewFile(const fs::path& temp, const std::string& bytes, bool& created) {
    // "x": never truncate something that happens to carry the temporary name.
    std::FILE* f = std::fopen(temp.c_str(), "wbx");
    if (!f) RaiseCreateError(errno);
    created = true;
    bool ok = std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size() && std::fflush(f) == 0;
    int err = errno;
    // On disk before the rename makes it the only copy.
    if (ok && fsync(fileno(f)) != 0) ok = false, err = errno;
    if (std::fclose(f) != 0 && ok) ok = false, err = errno;
    if (!ok) Raise(ErrorNumberFromErrno(err));
}

// The rename needs only the folder's permission, so the file's own is checked here: a file
// the user made read-only stays as it is. Its mode bits decide, so that this also holds for
// root, whom access() lets write anything. Nor is a pipe or a device ever replaced.
void RefuseToReplace(const fs::path& target) {
    struct stat st{};
    if (stat(target.c_str(), &st) != 0) return;  // a new file
    if (S_ISDIR(st.st_mode)) Raise(kPathFileAccessError);
    if (!S_ISREG(st.st_mode)) Raise(kBadFileName);
    if (!(st.st_mode & S_IWUSR)) Raise(kPermissionDenied);
    if (access(target.c_str(), W_OK) != 0) Raise(ErrorNumberFromErrno(errno));
}
}  // namespace

void SaveFileAtomically(const std::string& path, const std::string& bytes) {
    if (path.empty()) Raise(kBadFileName);
    std::error_code ec;
    fs::path target = path;
    if (fs::is_symlink(fs::symlink_status(target, ec))) {
        target = fs::weakly_canonical(target, ec);
        if (ec) Raise(ErrorNumberFromErrno(ec.value()));
    }
    RefuseToReplace(target);

    std::random_device rd;
    fs::path temp = target;
    temp += ".~" + std::to_string(rd()) + ".tmp";
    bool created = false;
    try {
        WriteNewFile(temp, bytes, created);
        auto old = fs::status(target, ec);
        if (fs::exists(old)) fs::permissions(temp, old.permissions(), ec);
        fs::rename(temp, target, ec);
        if (ec) Raise(ErrorNumberFromErrno(ec.value()));
    } catch (const RuntimeError&) {
        if (created) fs::remove(temp, ec);
        throw;
    }
}

}  // namespace paginox
