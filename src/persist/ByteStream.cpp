// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/ByteStream.h"

#include <bit>
#include <cstring>

#include "core/AnsiText.h"
#include "core/RuntimeError.h"

namespace paginox {

std::string_view ByteReader::Take(size_t n) {
    if (n > bytes_.size() - pos_) Raise(kInputPastEndOfFile);
    std::string_view r = bytes_.substr(pos_, n);
    pos_ += n;
    return r;
}

static uint32_t LittleEndian(std::string_view b) {
    uint32_t v = 0;
    for (size_t i = b.size(); i-- > 0;) v = (v << 8) | static_cast<unsigned char>(b[i]);
    return v;
}

int16_t ByteReader::Int16() { return static_cast<int16_t>(LittleEndian(Take(2))); }
int32_t ByteReader::Int32() { return static_cast<int32_t>(LittleEndian(Take(4))); }
float ByteReader::Single() { return std::bit_cast<float>(LittleEndian(Take(4))); }
uint8_t ByteReader::Byte() { return static_cast<uint8_t>(Take(1)[0]); }
std::string ByteReader::Text(size_t width) { return std::string(Take(width)); }
void ByteReader::Skip(size_t n) { Take(n); }

void ByteReader::Seek(size_t pos) {
    if (pos > bytes_.size()) Raise(kInputPastEndOfFile);
    pos_ = pos;
}

static void AppendLittleEndian(std::string& out, uint32_t v, int n) {
    for (int i = 0; i < n; ++i) out += static_cast<char>((v >> (8 * i)) & 0xFF);
}

void ByteWriter::Int16(int16_t v) { AppendLittleEndian(bytes_, static_cast<uint16_t>(v), 2); }
void ByteWriter::Int32(int32_t v) { AppendLittleEndian(bytes_, static_cast<uint32_t>(v), 4); }
void ByteWriter::Single(float v) { AppendLittleEndian(bytes_, std::bit_cast<uint32_t>(v), 4); }
void ByteWriter::Byte(uint8_t v) { bytes_ += static_cast<char>(v); }
void ByteWriter::Text(std::string_view s, size_t width) { bytes_ += FixLength(s, width); }
void ByteWriter::Zeros(size_t n) { bytes_.append(n, '\0'); }

}  // namespace paginox
