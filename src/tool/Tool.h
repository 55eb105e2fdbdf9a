// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// paginox-tool: the editor's work from the command line. Output texts are UTF-8; messages the
// editor would show in a box go to the error stream as "Title: text".

#include <iosfwd>
#include <string>
#include <vector>

namespace paginox {

enum ExitCode { kExitOk = 0, kExitFailure = 1, kExitUsage = 2 };

// Runs one command line (without the program name) and returns the exit status; output that
// cannot be written to out is a failure, said on err.
int RunTool(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace paginox
