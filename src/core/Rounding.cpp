// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Rounding.h"

#include <cfenv>
#include <cmath>

#include "core/RuntimeError.h"

namespace paginox {

double RoundHalfEven(double v) {
    // nearbyint honours the current rounding mode, which is to-nearest-even unless changed.
    return std::nearbyint(v);
}

namespace {
template <typename T>
T RoundTo(double v, double lo, double hi) {
    if (std::isnan(v)) Raise(kOverflow);
    double r = RoundHalfEven(v);
    if (r < lo || r > hi) Raise(kOverflow);
    return static_cast<T>(r);
}
}  // namespace

int16_t ToInt16(double v) { return RoundTo<int16_t>(v, -32768.0, 32767.0); }
int32_t ToInt32(double v) { return RoundTo<int32_t>(v, -2147483648.0, 2147483647.0); }

double Int(double v) { return std::floor(v); }

double CheckedFloatDiv(double a, double b) {
    if (b == 0.0) Raise(kDivisionByZero);
    return a / b;
}

}  // namespace paginox
