// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A fixed binary record described once as a table of fields, in file order, that both the
// reader and the writer walk: offsets follow from the widths, so the two cannot drift apart.
// Each field names the getter and setter of the model class T that it maps to.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/AnsiText.h"
#include "core/RuntimeError.h"
#include "persist/ByteStream.h"

namespace paginox::record {

// Text cleaning on reading: Trim or TrimFixed.
using Cleaner = std::string (*)(std::string_view);

template <class T>
struct Int16 {
    int16_t (T::*get)() const;
    void (T::*set)(int16_t);
};
// 16-bit -1 / 0 on disk; any non-zero value reads as true.
template <class T>
struct Boolean {
    bool (T::*get)() const;
    void (T::*set)(bool);
};
template <class T>
struct Single {
    float (T::*get)() const;
    void (T::*set)(float);
};
// count singles of an indexed member, index 1 first.
template <class T>
struct Singles {
    int16_t count;
    float (T::*get)(int16_t) const;
    void (T::*set)(int16_t, float);
};
template <class T>
struct Text {
    size_t width;
    const std::string& (T::*get)() const;
    void (T::*set)(const std::string&);
    Cleaner clean;
};
// Slots of width bytes each; only the first `used` slots are written and read, the others
// stay zero bytes. used null means every slot. More used slots than the record holds is a
// subscript error, as the member's index check would give.
template <class T>
struct Texts {
    int16_t count;
    size_t width;
    const std::string& (T::*get)(int16_t) const;
    void (T::*set)(int16_t, const std::string&);
    Cleaner clean;
    int16_t (T::*used)() const = nullptr;
};
template <class T>
struct Int16s {
    int16_t count;
    int16_t (T::*get)(int16_t) const;
    void (T::*set)(int16_t, int16_t);
    int16_t (T::*used)() const = nullptr;
};
// One byte per index: the character whose code is the value.
template <class T>
struct Bytes {
    int16_t count;
    uint8_t (T::*get)(int16_t) const;
    void (T::*set)(int16_t, uint8_t);
};
// width flag bytes: byte 0 is 1 for true and 0 for false, the rest are written as 0.
template <class T>
struct FlagBytes {
    size_t width;
    bool (T::*get)() const;
    void (T::*set)(bool);
};
// Written as zero bytes and skipped on reading.
struct Reserved {
    size_t width;
};

template <class T>
using Field = std::variant<Int16<T>, Boolean<T>, Single<T>, Singles<T>, Text<T>, Texts<T>,
                           Int16s<T>, Bytes<T>, FlagBytes<T>, Reserved>;

template <class... F>
struct Overloaded : F... {
    using F::operator()...;
};
template <class... F>
Overloaded(F...) -> Overloaded<F...>;  // clang 14 does not deduce aggregates by itself

template <class T>
constexpr size_t Width(const Field<T>& field) {
    return std::visit(Overloaded{
                          [](const Int16<T>&) -> size_t { return 2; },
                          [](const Boolean<T>&) -> size_t { return 2; },
                          [](const Single<T>&) -> size_t { return 4; },
                          [](const Singles<T>& f) -> size_t { return 4 * size_t(f.count); },
                          [](const Text<T>& f) { return f.width; },
                          [](const Texts<T>& f) { return f.width * size_t(f.count); },
                          [](const Int16s<T>& f) -> size_t { return 2 * size_t(f.count); },
                          [](const Bytes<T>& f) -> size_t { return size_t(f.count); },
                          [](const FlagBytes<T>& f) { return f.width; },
                          [](const Reserved& f) { return f.width; },
                      },
                      field);
}

template <class T, size_t N>
constexpr size_t Width(const Field<T> (&table)[N]) {
    size_t total = 0;
    for (const Field<T>& f : table) total += Width(f);
    return total;
}

template <class T>
int16_t UsedSlots(const T& of, int16_t (T::*used)() const, int16_t count) {
    int16_t n = used ? (of.*used)() : count;
    if (n > count) Raise(kSubscriptOutOfRange);
    return n;
}

template <class T>
void Write(ByteWriter& out, std::span<const Field<T>> table, const T& from) {
    for (const Field<T>& field : table) {
        std::visit(Overloaded{
                       [&](const Int16<T>& f) { out.Int16((from.*f.get)()); },
                       [&](const Boolean<T>& f) { out.Int16((from.*f.get)() ? -1 : 0); },
                       [&](const Single<T>& f) { out.Single((from.*f.get)()); },
                       [&](const Singles<T>& f) {
                           for (int16_t i = 1; i <= f.count; ++i) out.Single((from.*f.get)(i));
                       },
                       [&](const Text<T>& f) { out.Text((from.*f.get)(), f.width); },
                       [&](const Texts<T>& f) {
                           int16_t used = UsedSlots(from, f.used, f.count);
                           int16_t i = 1;
                           for (; i <= used; ++i) out.Text((from.*f.get)(i), f.width);
                           for (; i <= f.count; ++i) out.Zeros(f.width);
                       },
                       [&](const Int16s<T>& f) {
                           int16_t used = UsedSlots(from, f.used, f.count);
                           int16_t i = 1;
                           for (; i <= used; ++i) out.Int16((from.*f.get)(i));
                           for (; i <= f.count; ++i) out.Zeros(2);
                       },
                       [&](const Bytes<T>& f) {
                           for (int16_t i = 1; i <= f.count; ++i) out.Byte((from.*f.get)(i));
                       },
                       [&](const FlagBytes<T>& f) {
                           out.Byte((from.*f.get)() ? 1 : 0);
                           out.Zeros(f.width - 1);
                       },
                       [&](const Reserved& f) { out.Zeros(f.width); },
                   },
                   field);
    }
}

template <class T>
void Read(ByteReader& in, std::span<const Field<T>> table, T& into) {
    for (const Field<T>& field : table) {
        std::visit(Overloaded{
                       [&](const Int16<T>& f) { (into.*f.set)(in.Int16()); },
                       [&](const Boolean<T>& f) { (into.*f.set)(in.Int16() != 0); },
                       [&](const Single<T>& f) { (into.*f.set)(in.Single()); },
                       [&](const Singles<T>& f) {
                           for (int16_t i = 1; i <= f.count; ++i) (into.*f.set)(i, in.Single());
                       },
                       [&](const Text<T>& f) { (into.*f.set)(f.clean(in.TextView(f.width))); },
                       [&](const Texts<T>& f) {
                           size_t start = in.Position();
                           int16_t used = UsedSlots<T>(into, f.used, f.count);
                           for (int16_t i = 1; i <= used; ++i)
                               (into.*f.set)(i, f.clean(in.TextView(f.width)));
                           in.Seek(start + f.width * size_t(f.count));
                       },
                       [&](const Int16s<T>& f) {
                           size_t start = in.Position();
                           int16_t used = UsedSlots<T>(into, f.used, f.count);
                           for (int16_t i = 1; i <= used; ++i) (into.*f.set)(i, in.Int16());
                           in.Seek(start + 2 * size_t(f.count));
                       },
                       [&](const Bytes<T>& f) {
                           for (int16_t i = 1; i <= f.count; ++i) (into.*f.set)(i, in.Byte());
                       },
                       [&](const FlagBytes<T>& f) {
                           (into.*f.set)(in.Byte() != 0);
                           in.Skip(f.width - 1);
                       },
                       [&](const Reserved& f) { in.Skip(f.width); },
                   },
                   field);
    }
}

}  // namespace paginox::record
