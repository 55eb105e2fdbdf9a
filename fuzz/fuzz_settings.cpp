// SPDX-License-Identifier: GPL-3.0-or-later
// The settings files: reading any bytes, and writing a key into them. The input is a
// section name, a key name and the file's bytes, each of the first two ended by a NUL.

#include <fuzzer/FuzzedDataProvider.h>

#include "FuzzSupport.h"
#include "persist/PrivateProfile.h"

using namespace paginox;

namespace {
// A name that the file's own syntax cannot misread: printable, no brackets, "=" or quotes,
// no blanks around it.
bool Plain(const std::string& s) {
    if (s.empty() || s.size() > 64 || s.front() == ' ' || s.back() == ' ') return false;
    for (unsigned char c : s) {
        if (c < 0x21 && c != ' ') return false;
        if (c == '[' || c == ']' || c == '=' || c == '"' || c == '\'' || c == ';' || c >= 0x7F)
            return false;
    }
    return true;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::QuietMessages messages;
    FuzzedDataProvider in(data, size);
    std::string section = in.ConsumeRandomLengthString(64);
    std::string key = in.ConsumeRandomLengthString(64);
    std::string bytes = in.ConsumeRemainingBytesAsString();
    std::string file = fuzz::WriteInput(
        "settings.ini", reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());

    LookUpProfileString(file, section, key);
    ReadProfileString(file, section, key, "default");
    WriteProfileString(file, section, key, std::nullopt);  // removes the key, if there
    if (Plain(section) && Plain(key)) {
        // What is written reads back, whatever else the file holds.
        fuzz::Require(WriteProfileString(file, section, key, "Value 1"));
        auto back = LookUpProfileString(file, section, key);
        fuzz::Require(back && *back == "Value 1");
    }
    WriteProfileString(file, section, std::nullopt, std::nullopt);  // removes the section
    return 0;
}
