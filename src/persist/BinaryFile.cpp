#include "persist/BinaryFile.h"

#include <sys/stat.h>

#include <cerrno>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/RuntimeError.h"

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

bool IsDirectory(const std::string& path) {
    struct stat st{};
    return stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

constexpr size_t kReadBufferSize = 64 * 1024;
}  // namespace

BinaryFile::BinaryFile(const std::string& path, FileKind kind) {
    if (path.empty()) Raise(kBadFileName);
    if (kind == FileKind::Read) {
        OpenForReading(path);
        return;
    }
    if (IsDirectory(path)) Raise(kPathFileAccessError);
    switch (kind) {
        case FileKind::Write: file_ = std::fopen(path.c_str(), "wb"); break;
        case FileKind::Read: break;
        case FileKind::Append: file_ = std::fopen(path.c_str(), "ab"); break;
        case FileKind::Random:
        case FileKind::Binary:
            file_ = std::fopen(path.c_str(), "r+b");
            if (!file_ && errno == ENOENT) file_ = std::fopen(path.c_str(), "w+b");
            if (!file_ && (errno == EACCES || errno == EROFS)) {
                file_ = std::fopen(path.c_str(), "rb");  // read-only files still read
            }
            break;
    }
    if (!file_) RaiseOpenError(path);
}

// One fstat after opening both refuses a folder and learns the length, instead of a stat before
// and another for every Length().
void BinaryFile::OpenForReading(const std::string& path) {
    file_ = std::fopen(path.c_str(), "rb");
    if (!file_) {
        int err = errno;
        if (IsDirectory(path)) Raise(kPathFileAccessError);
        errno = err;
        RaiseOpenError(path);
    }
    struct stat st{};
    int failed = fstat(fileno(file_), &st) != 0 ? errno : 0;
    if (failed || S_ISDIR(st.st_mode)) {
        std::fclose(file_);
        file_ = nullptr;
        Raise(failed ? ErrorNumberFromErrno(failed) : kPathFileAccessError);
    }
    length_ = static_cast<uint64_t>(st.st_size);
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
