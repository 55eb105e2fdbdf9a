// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>

namespace paginox {

// The classic run-time error numbers that messages and callers depend on.
enum ErrorNumber : int {
    kOverflow = 6,
    kOutOfMemory = 7,
    kSubscriptOutOfRange = 9,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kBadFileNameOrNumber = 52,
    kFileNotFound = 53,
    kBadFileMode = 54,
    kFileAlreadyOpen = 55,
    kDeviceIOError = 57,
    kDiskFull = 61,
    kInputPastEndOfFile = 62,
    kBadFileName = 64,
    kDeviceUnavailable = 68,
    kPermissionDenied = 70,
    kDiskNotReady = 71,
    kPathFileAccessError = 75,
    kPathNotFound = 76,
    kObjectNotSet = 91,
    kInvalidFileFormat = 321,
};

// The text a message shows for an error number ("Overflow", "File not found", ...).
std::string ErrorDescription(int number);

// An operating-system errno turned into the run-time error a user would have seen.
int ErrorNumberFromErrno(int err);

// A run-time error carrying its classic number; what() is its description.
class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(int number);
    RuntimeError(int number, const std::string& description);
    int Number() const { return number_; }
    std::string Description() const { return what(); }

private:
    int number_;
};

[[noreturn]] void Raise(int number);

}  // namespace paginox
