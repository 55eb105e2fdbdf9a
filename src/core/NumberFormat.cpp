// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/NumberFormat.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <locale>
#include <stdexcept>

namespace paginox {

std::string FormatZero(long long v) {
    return std::to_string(v);
}

namespace {

// Adds one to a string of decimal digits ("099" -> "100", "99" -> "100").
std::string IncrementDigits(std::string digits) {
    for (size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            return digits;
        }
        digits[i] = '0';
    }
    return "1" + digits;
}

// The digits that carry the value: neither leading zeros nor the zeros that only pad a whole
// number out to its units.
size_t SignificantDigits(const std::string& text) {
    std::string digits;
    for (char c : text.substr(0, text.find('e'))) {
        if (c >= '0' && c <= '9') digits += c;
    }
    size_t first = digits.find_first_not_of('0');
    return first == std::string::npos ? 1 : digits.find_last_not_of('0') + 1 - first;
}

}  // namespace

std::string FormatHashDotHash(float v, char separator) {
    double d = v;
    if (!std::isfinite(d)) return std::isnan(d) ? "NaN" : (d < 0 ? "-Infinity" : "Infinity");

    // Seven significant digits and the decimal exponent of the first one.
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6e", std::fabs(d));
    std::string digits = std::string(1, buf[0]) + std::string(buf + 2, 6);
    int pointPos = std::atoi(buf + 9) + 1;  // digits before the decimal point

    // Whole hundredths, rounded half away from zero on the 7-digit text.
    std::string shifted;  // the value times 100, as digits, plus the digit after
    int keep = pointPos + 2;
    if (keep <= 0) {
        shifted = "0";
    } else {
        shifted = digits.substr(0, std::min<size_t>(keep, digits.size()));
        if (keep > int(digits.size())) shifted.append(keep - digits.size(), '0');
    }
    char next = (keep >= 0 && keep < int(digits.size())) ? digits[keep] : '0';
    if (next >= '5') shifted = IncrementDigits(shifted);
    if (shifted.size() < 3) shifted.insert(0, 3 - shifted.size(), '0');

    std::string whole = shifted.substr(0, shifted.size() - 2);
    std::string frac = shifted.substr(shifted.size() - 2);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    frac.erase(frac.find_last_not_of('0') + 1);
    return (d < 0 ? "-" : "") + whole + separator + frac;
}

char UserDecimalSeparator() {
    try {
        // The environment's locale, whatever the program set as its own C locale.
        return std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point();
    } catch (const std::runtime_error&) {
        return '.';  // a locale named in the environment that is not installed
    }
}

std::string ShortestDecimal(float v) {
    char buf[64];
    std::string plain(buf, std::to_chars(buf, buf + sizeof buf, v).ptr);
    std::string scientific(
        buf, std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific).ptr);
    // The plain form has the fewest characters, but it spells a large whole single out to its
    // exact value (131984208), more digits than the single holds (1.3198421e+08).
    return SignificantDigits(plain) > SignificantDigits(scientific) ? scientific : plain;
}

}  // namespace paginox
