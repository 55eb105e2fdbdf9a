// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Integer arithmetic that raises the Overflow error instead of wrapping, and 1-based index
// checks that raise "Subscript out of range", as every count and position in the model needs.

#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "core/RuntimeError.h"

namespace paginox {

template <std::integral T>
T CheckedAdd(T a, T b) {
    T r;
    if (__builtin_add_overflow(a, b, &r)) Raise(kOverflow);
    return r;
}

template <std::integral T>
T CheckedSub(T a, T b) {
    T r;
    if (__builtin_sub_overflow(a, b, &r)) Raise(kOverflow);
    return r;
}

template <std::integral T>
T CheckedMul(T a, T b) {
    T r;
    if (__builtin_mul_overflow(a, b, &r)) Raise(kOverflow);
    return r;
}

// Integer division truncating toward zero; a zero divisor is "Division by zero".
template <std::integral T>
T CheckedDiv(T a, T b) {
    if (b == 0) Raise(kDivisionByZero);
    if (std::is_signed_v<T> && a == std::numeric_limits<T>::min() && b == T(-1)) Raise(kOverflow);
    return T(a / b);
}

// Narrows an integer to T, raising Overflow when it does not fit.
template <std::integral T, std::integral U>
T CheckedNarrow(U v) {
    T r;
    if (__builtin_add_overflow(v, U(0), &r)) Raise(kOverflow);
    return r;
}

// Raises "Subscript out of range" unless lo <= index <= hi.
inline void CheckIndex(long long index, long long lo, long long hi) {
    if (index < lo || index > hi) Raise(kSubscriptOutOfRange);
}

}  // namespace paginox
