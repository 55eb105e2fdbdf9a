// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/RuntimeError.h"

#include <cerrno>

namespace paginox {

std::string ErrorDescription(int number) {
    switch (number) {
        case kOverflow: return "Overflow";
        case kOutOfMemory: return "Out of memory";
        case kSubscriptOutOfRange: return "Subscript out of range";
        case kDivisionByZero: return "Division by zero";
        case kTypeMismatch: return "Type mismatch";
        case kBadFileNameOrNumber: return "Bad file name or number";
        case kFileNotFound: return "File not found";
        case kBadFileMode: return "Bad file mode";
        case kFileAlreadyOpen: return "File already open";
        case kDeviceIOError: return "Device I/O error";
        case kDiskFull: return "Disk full";
        case kInputPastEndOfFile: return "Input past end of file";
        case kBadFileName: return "Bad file name";
        case kDeviceUnavailable: return "Device unavailable";
        case kPermissionDenied: return "Permission denied";
        case kDiskNotReady: return "Disk not ready";
        case kPathFileAccessError: return "Path/File access error";
        case kPathNotFound: return "Path not found";
        case kObjectNotSet: return "Object variable or With block variable not set";
        case kInvalidFileFormat: return "Invalid file format";
        default: return "Application-defined or object-defined error";
    }
}

int ErrorNumberFromErrno(int err) {
    switch (err) {
        case ENOENT: return kFileNotFound;
        case EACCES:
        case EPERM: return kPermissionDenied;
        case ENOSPC: return kDiskFull;
        case EIO: return kDeviceIOError;
        case ENOTDIR: return kPathNotFound;
        case EISDIR:
        case EROFS: return kPathFileAccessError;
        case ENAMETOOLONG: return kBadFileName;
        default: return kPathFileAccessError;
    }
}

RuntimeError::RuntimeError(int number) : RuntimeError(number, ErrorDescription(number)) {}

RuntimeError::RuntimeError(int number, const std::string& description)
    : std::runtime_error(description), number_(number) {}

void Raise(int number) { throw RuntimeError(number); }

}  // namespace paginox
