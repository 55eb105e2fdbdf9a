// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/FileRoutines.h"

#include <vector>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/RuntimeError.h"

namespace paginox {

std::string ShortPath(std::string_view path, char sep) {
    constexpr size_t kShortEnough = 21;
    if (path.size() < kShortEnough) return ToLowerAscii(path);
    size_t last = path.rfind(sep);
    if (last == std::string_view::npos) return ToLowerAscii(path);
    return ToLowerAscii(std::string(path.substr(0, 3)) + "..." + std::string(path.substr(last)));
}

namespace {

struct DiskErrorMessage {
    const char* Text;
    MsgButtons Buttons;
    MsgIcon Icon;
};

bool MessageFor(int errorNumber, DiskErrorMessage& out) {
    switch (errorNumber) {
        case kBadFileNameOrNumber:
        case kBadFileName:
            out = {"Filename is illegal", MsgButtons::Ok, MsgIcon::Exclamation};
            return true;
        case kBadFileMode:
            out = {"Can't open file for requested access type.", MsgButtons::Ok,
                   MsgIcon::Exclamation};
            return true;
        case kFileAlreadyOpen:
            out = {"File is already open.", MsgButtons::Ok, MsgIcon::Exclamation};
            return true;
        case kDeviceIOError:
            out = {"Internal disk error.", MsgButtons::YesNo, MsgIcon::Exclamation};
            return true;
        case kDiskFull:
            out = {"Disk is full. Continue?", MsgButtons::YesNoCancel, MsgIcon::Question};
            return true;
        case kInputPastEndOfFile:
            out = {
                "File has nonstandard end-of-file marker, "
                "or an attempt has been made to read beyond "
                "the end-of-file marker.",
                MsgButtons::Ok, MsgIcon::Exclamation};
            return true;
        case kDeviceUnavailable:
            out = {"Device appears to be unavailable.", MsgButtons::YesNo, MsgIcon::Exclamation};
            return true;
        case kDiskNotReady:
            out = {"Insert a disk into the disk drive.", MsgButtons::Ok, MsgIcon::Exclamation};
            return true;
        case kPathNotFound:
            out = {"Path does not exist.", MsgButtons::Ok, MsgIcon::Exclamation};
            return true;
        default:
            return false;
    }
}

}  // namespace

int16_t FileErrors(int errorNumber) {
    DiskErrorMessage m{};
    if (!MessageFor(errorNumber, m)) return kFileErrorUnrecognised;
    switch (Messages().Show(m.Text, "Disk Error", m.Buttons, m.Icon)) {
        case MsgAnswer::Ok:
        case MsgAnswer::Retry:
            return kFileErrorRetry;
        case MsgAnswer::Ignore:
            return kFileErrorSkip;
        case MsgAnswer::Cancel:
        case MsgAnswer::Abort:
            return kFileErrorGiveUp;
        default:
            return kFileErrorUnrecognised;
    }
}

std::string QtFileFilter(std::string_view classicFilter) {
    std::vector<std::string> parts;
    size_t start = 0;
    while (start <= classicFilter.size()) {
        size_t bar = classicFilter.find('|', start);
        if (bar == std::string_view::npos) bar = classicFilter.size();
        parts.emplace_back(classicFilter.substr(start, bar - start));
        start = bar + 1;
    }
    std::string out;
    for (size_t i = 0; i + 1 < parts.size(); i += 2) {
        std::string text = parts[i];
        if (!text.empty() && text.back() == ')') {
            size_t open = text.rfind('(');
            if (open != std::string::npos) text = RTrim(text.substr(0, open));
        }
        std::string patterns = parts[i + 1];
        for (char& c : patterns) {
            if (c == ';') c = ' ';
        }
        if (!out.empty()) out += ";;";
        out += text + " (" + patterns + ")";
    }
    return out;
}

}  // namespace paginox
