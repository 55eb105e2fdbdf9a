// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/BinaryFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "persist/FileStatus.h"

namespace paginox {

namespace {
[[noreturn]] void RaiseErrno() { Raise(ErrorNumberFromErrno(errno)); }

// A missing parent folder is "Path not found", a missing file "File not found".
[[noreturn]] void RaiseOpenError(const std::string& path) {
    int err = errno;
    if (err == ENOENT) {
        auto slash = path.find_last_of('/');
        struct stat st{};
        if (slash != std::string::npos && slash > 0 &&
            stat(path.substr(0, slash).c_str(), &st) != 0) {
            Raise(kPathNotFound);
        }
    }
    Raise(ErrorNumberFromErrno(err));
}

// Only a regular file is ever opened: a pipe or a device would block a reader or a writer
// forever, and a folder holds no records. The status is asked first so that nothing else is
// touched; O_NONBLOCK and the second look after opening cover a pipe put there in between.
std::FILE* OpenRegularFile(const std::string& path, int flags, const char* mode,
                           uint64_t* length = nullptr) {
    switch (TypeOfFile(path)) {
        case FileType::Directory:
            Raise(kPathFileAccessError);
        case FileType::Special:
            Raise(kBadFileName);
        default:
            break;
    }
    int fd = open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC, 0666);
    if (fd < 0) {
        if (errno == ENXIO) Raise(kBadFileName);  // a pipe without a reader
        RaiseOpenError(path);
    }
    struct stat st{};
    int failed = fstat(fd, &st) != 0 ? ErrorNumberFromErrno(errno) : 0;
    if (!failed && !S_ISREG(st.st_mode)) {
        failed = S_ISDIR(st.st_mode) ? kPathFileAccessError : kBadFileName;
    }
    std::FILE* file = nullptr;
    if (!failed) {
        fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
        file = fdopen(fd, mode);
        if (!file) failed = ErrorNumberFromErrno(errno);
    }
    if (failed) {
        close(fd);
        Raise(failed);
    }
    if (length) *length = static_cast<uint64_t>(st.st_size);
    return file;
}

constexpr size_t kReadBufferSize = 64 * 1024;
}  // namespace

BinaryFile::BinaryFile(const std::string& path, FileKind kind) {
    if (path.empty()) Raise(kBadFileName);
    switch (kind) {
        case FileKind::Read:
            OpenForReading(path);
            return;
        case FileKind::Write:
            file_ = OpenRegularFile(path, O_WRONLY | O_CREAT | O_TRUNC, "wb");
            return;
        case FileKind::Append:
            file_ = OpenRegularFile(path, O_WRONLY | O_CREAT | O_APPEND, "ab");
            return;
        case FileKind::Random:
        case FileKind::Binary:
            OpenForRecords(path);
            return;
    }
}

// Reading and writing; a missing file is created and a read-only one still read, as record
// access did.
void BinaryFile::OpenForRecords(const std::string& path) {
    try {
        file_ = OpenRegularFile(path, O_RDWR | O_CREAT, "r+b");
    } catch (const RuntimeError& e) {
        if (e.Number() != kPermissionDenied && e.Number() != kPathFileAccessError) throw;
        if (TypeOfFile(path) != FileType::Regular) throw;
        file_ = OpenRegularFile(path, O_RDONLY, "rb");
    }
}

// The length comes with the open, instead of a system call for every Length().
void BinaryFile::OpenForReading(const std::string& path) {
    uint64_t length = 0;
    file_ = OpenRegularFile(path, O_RDONLY, "rb", &length);
    length_ = length;
    buffer_ = std::make_unique_for_overwrite<char[]>(kReadBufferSize);
    std::setvbuf(file_, buffer_.get(), _IOFBF, kReadBufferSize);
}

BinaryFile::~BinaryFile() {
    if (file_) std::fclose(file_);
}

std::string BinaryFile::ReadUpTo(size_t n) {
    std::string buf(n, '\0');
    size_t got = std::fread(buf.data(), 1, n, file_);
    if (got < n && std::ferror(file_)) RaiseErrno();
    buf.resize(got);
    return buf;
}

std::string BinaryFile::Read(size_t n) {
    std::string buf = ReadUpTo(n);
    if (buf.size() < n) Raise(kInputPastEndOfFile);
    return buf;
}

void BinaryFile::Write(const std::string& bytes) {
    length_.reset();
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) RaiseErrno();
}

void BinaryFile::Seek(uint64_t pos) {
    if (fseeko(file_, static_cast<off_t>(pos), SEEK_SET) != 0) RaiseErrno();
}

uint64_t BinaryFile::Position() const { return static_cast<uint64_t>(ftello(file_)); }

uint64_t BinaryFile::Length() const {
    if (!length_) {
        struct stat st{};
        std::fflush(file_);
        if (fstat(fileno(file_), &st) != 0) RaiseErrno();
        length_ = static_cast<uint64_t>(st.st_size);
    }
    return *length_;
}

void BinaryFile::Close() {
    if (!file_) return;
    std::FILE* f = file_;
    file_ = nullptr;
    if (std::fclose(f) != 0) RaiseErrno();
}

bool FileExists(const std::string& path) {
    if (path.empty()) return false;
    try {
        BinaryFile f(path, FileKind::Read);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

std::unique_ptr<BinaryFile> OpenFileByKind(const std::string& path, FileKind kind) {
    try {
        return std::make_unique<BinaryFile>(path, kind);
    } catch (const RuntimeError& e) {
        ShowMessage(FileErrorText("Error whilst opening file ", path, e.Description()),
                    "Open Error", MsgIcon::Critical);
        return nullptr;
    }
}

std::string ReadWholeFile(const std::string& path) {
    BinaryFile f(path, FileKind::Read);
    return f.Read(f.Length());
}

std::string FileErrorText(const std::string& phrase, const std::string& path,
                          const std::string& description) {
    // Paths are native (UTF-8); message texts are Windows-1252 like all of the model's text.
    return phrase + Utf8ToCp1252(path) + kCrLf + kCrLf + description;
}

}  // namespace paginox
