// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// An open file read and written in whole records, raising RuntimeError with the classic
// number for every failure (a short read is "Input past end of file").

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

namespace paginox {

// How a file is opened; the numbers are those the callers of the open routine pass.
enum class FileKind { Write = 1, Read = 2, Append = 3, Random = 4, Binary = 5 };

class BinaryFile {
public:
    // Write truncates or creates; Read needs an existing file; Append creates; Random and
    // Binary open for reading and writing and create a missing file, as record access did.
    // Anything but a regular file is refused ("Bad file name"; a folder "Path/File access
    // error") without blocking on it.
    BinaryFile(const std::string& path, FileKind kind);
    ~BinaryFile();
    BinaryFile(const BinaryFile&) = delete;
    BinaryFile& operator=(const BinaryFile&) = delete;

    // Exactly n bytes from the current position.
    std::string Read(size_t n);
    // Up to n bytes: fewer only at the end of the file.
    std::string ReadUpTo(size_t n);
    void Write(const std::string& bytes);
    void Seek(uint64_t pos);
    uint64_t Position() const;
    uint64_t Length() const;
    bool AtEnd() const { return Position() >= Length(); }
    // Flushes and closes, raising the error a failed flush reports (a full disk, say).
    void Close();

private:
    void OpenForReading(const std::string& path);
    void OpenForRecords(const std::string& path);

    std::FILE* file_ = nullptr;
    // Known from opening for reading, else asked once; a write makes it unknown again.
    mutable std::optional<uint64_t> length_;
    // Files opened for reading get a buffer that holds a whole page file in one read.
    std::unique_ptr<char[]> buffer_;
};

// True when the path names a file that can be opened for reading; never blocks, and a pipe or
// a device is no such file.
bool FileExists(const std::string& path);

// Opens a file, or reports "Open Error" with the system's description and returns nothing.
std::unique_ptr<BinaryFile> OpenFileByKind(const std::string& path, FileKind kind);

// Reads a whole file, raising RuntimeError on failure.
std::string ReadWholeFile(const std::string& path);

// The message text every file failure uses: phrase, file name, a blank line, description.
// The path is native (UTF-8); the text comes back in Windows-1252.
std::string FileErrorText(const std::string& phrase, const std::string& path,
                          const std::string& description);

}  // namespace paginox
