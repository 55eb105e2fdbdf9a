// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Fields of a fixed binary record: little-endian 16/32-bit integers, singles and fixed-width
// texts, read from or appended to a byte buffer. Reading past the end raises "Input past end
// of file", as reading a short record from the file would.

#include <cstdint>
#include <string>
#include <string_view>

namespace paginox {

class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

    int16_t Int16();
    int32_t Int32();
    float Single();
    uint8_t Byte();
    std::string Text(size_t width);  // raw bytes, not trimmed
    // The same bytes without a copy, valid as long as the buffer read from.
    std::string_view TextView(size_t width) { return Take(width); }
    void Skip(size_t n);

    size_t Position() const { return pos_; }
    void Seek(size_t pos);
    size_t Size() const { return bytes_.size(); }

private:
    std::string_view Take(size_t n);
    std::string_view bytes_;
    size_t pos_ = 0;
};

class ByteWriter {
public:
    void Int16(int16_t v);
    void Int32(int32_t v);
    void Single(float v);
    void Byte(uint8_t v);
    void Text(std::string_view s, size_t width);  // FixLength: cut or space-padded
    void Zeros(size_t n);

    const std::string& Bytes() const { return bytes_; }

private:
    std::string bytes_;
};

}  // namespace paginox
