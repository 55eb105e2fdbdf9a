// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// paginox-tool run in the test's own process on the words of a command line.

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "tool/Tool.h"

namespace paginox::test {

struct ToolRun {
    int status;
    std::string out, err;
};

// The words are split at spaces; with sample, every definition file comes from the sample
// data. Standard output goes to out when one is given.
inline ToolRun Tool(const std::string& line, bool sample = false, std::ostream* out = nullptr) {
    std::vector<std::string> args;
    if (sample) args = {"--data", std::string(PAGINOX_SAMPLE_DIR) + "/System"};
    std::istringstream words(line);
    for (std::string w; words >> w;) args.push_back(w);
    std::ostringstream text, err;
    int status = RunTool(args, out ? *out : text, err);
    return {status, text.str(), err.str()};
}

}  // namespace paginox::test
