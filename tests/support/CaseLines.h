// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Tables of cases kept in golden files, a line each: "input -> outcome". The test works out
// the outcome of every input and compares the lines it makes with the file's.

#include <string>
#include <vector>

#include "support/Golden.h"

namespace paginox::test {

// The section's case lines with each outcome as outcome(input) gives it now.
inline std::vector<std::string> Outcomes(const std::string& name, const std::string& section,
                                         auto&& outcome) {
    std::vector<std::string> lines;
    for (const std::string& line : GoldenLines(name, section)) {
        const std::string input = line.substr(0, line.find(" -> "));
        lines.push_back(input + " -> " + outcome(input));
    }
    return lines;
}

// Expects every case of the section to come out as the file says.
inline void ExpectOutcomes(const std::string& name, const std::string& section, auto&& outcome) {
    EXPECT_EQ(Outcomes(name, section, outcome), GoldenLines(name, section)) << section;
}

}  // namespace paginox::test
