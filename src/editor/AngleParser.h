// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Angles as a user types them into the property list.

#include <optional>
#include <string>

namespace paginox {

// Degrees from text in Windows-1252. Accepted forms (spaces optional between parts, letter
// case ignored):
//   22.5                      decimal degrees
//   10 11'59"   10°11'  10 11 degrees, minutes and seconds; the minute mark may also be the
//                             acute accent (character 180), the degree mark is character 176
//   16Ar25   27 PISCES   0 Cn 12'30"
//                             degrees within a sign, the sign, then minutes and seconds:
//                             the sign's start (30 degrees a sign from Aries) is added
// A sign is its full name, a start of its name that fits no other sign (two letters or
// more), or a usual two-letter abbreviation (Cn, Sg, Cp). Degrees within a sign must be
// below 30, minutes and seconds below 60. Anything else gives nothing.
std::optional<double> ParseAngle(const std::string& text);

// "The format of the angle is not recognised." and the examples, for the "Error in Angle"
// message.
std::string AngleErrorText();
inline constexpr const char* kAngleErrorTitle = "Error in Angle";

}  // namespace paginox
