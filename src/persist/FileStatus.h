// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a path names on disk and how it looked, learnt from its status alone: nothing here
// opens a file, so a named pipe or a device can never block the caller.

#include <cstdint>
#include <optional>
#include <string>

namespace paginox {

enum class FileType { Missing, Regular, Directory, Special };

// Links are followed; Special is anything else there: a pipe, a device, a socket.
FileType TypeOfFile(const std::string& path);

// A file's modification time and size: when either moved, another program wrote the file.
// The file number tells apart two saves within one tick of the clock, since a file saved by
// replacing it is a new file.
struct FileStamp {
    int64_t ModifiedNs = 0;
    uint64_t Size = 0;
    uint64_t FileNumber = 0;
    bool operator==(const FileStamp&) const = default;
};

// Nothing when the path names no regular file.
std::optional<FileStamp> StampOf(const std::string& path);

// When the file last changed in any way, in whole seconds: the later of its modification and
// status change times (a rename or a new owner changes the latter). Nothing when it is missing.
std::optional<int64_t> LastChangeSecond(const std::string& path);

}  // namespace paginox
