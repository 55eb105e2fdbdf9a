// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Numbers as text, the way files and the user see them.

#include <string>

namespace paginox {

// The classic Format with "0": the integer in decimal, "-" when negative.
std::string FormatZero(long long v);

// The classic Format with "#.##": at most two decimals, no leading zero, separator always
// present (0.5 -> ".5", 1 -> "1.", 0 -> "."). The single is first taken to 7 significant
// digits, then rounded half away from zero, as the host's Format does.
std::string FormatHashDotHash(float v, char separator = '.');

// The decimal separator of the user's locale, as the environment sets it for every program
// of the session (the host reads our numbers on the same machine); "." when there is none.
char UserDecimalSeparator();

// The shortest decimal that reads back as the same single (for JSON and messages).
std::string ShortestDecimal(float v);

}  // namespace paginox
