// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Conversions from floating point to integer: nearest, halves to even, range-checked.

#include <cstdint>

namespace paginox {

// Nearest whole number, halves to the even neighbour (2.5 -> 2, 3.5 -> 4).
double RoundHalfEven(double v);

// Rounded half to even and stored as a 16/32-bit integer; Overflow when out of range or NaN.
int16_t ToInt16(double v);
int32_t ToInt32(double v);

// The classic Int: the greatest whole number not above v.
double Int(double v);

// Single-precision division that raises "Division by zero" for a zero divisor, as the
// classic floating-point operations did instead of giving an infinity.
double CheckedFloatDiv(double a, double b);

}  // namespace paginox
