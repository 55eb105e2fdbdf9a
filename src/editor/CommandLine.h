// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The editor's command line: an optional page file name and the switches "/Debug" and
// "/PageSizeIndex=n", in any order.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "persist/Folders.h"

namespace paginox {

struct CommandLine {
    std::string FileName;
    bool DebugMode = false;
    int16_t StartPageSizeIndex = 0;
};

// Parses the line from left to right. A switch begins with "/" and runs to the next space;
// it is cut out of the line. "/Debug" (any letter case) sets DebugMode; "/PageSizeIndex=n"
// (any letter case) sets StartPageSizeIndex to the whole number at the start of n (0 when
// there is none or it does not fit 16 bits); other switches are ignored. What remains,
// trimmed, is the file name, without a leading double quote and, when the name is longer
// than 2 characters, without a trailing one.
//
// With "/" as the path separator an absolute path also begins with "/": there a switch must
// start a word and hold no further "/", so "/home/me/a.pag" stays a file name.
CommandLine ParseCommandLine(const std::string& line, char sep = kNativeSeparator);

// The program's arguments, each taken whole: "/Debug" and "/PageSizeIndex=n" (any letter
// case) are switches as above; the first other argument is the file name, exactly as given,
// quotes and spaces included (a shell has already taken its own quotes away).
CommandLine ParseArguments(const std::vector<std::string>& args);

// What --help (or -h) and --version ask for, printed without opening a window; nothing when
// the arguments ask for neither.
std::optional<std::string> InformationAsked(const std::vector<std::string>& args,
                                            const std::string& version);

}  // namespace paginox
