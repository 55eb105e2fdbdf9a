// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Fields of a comma-and-line delimited text file, read one at a time the way the classic
// sequential "Input #" statement reads them: fields are separated by commas or line ends
// (CR, LF or CR LF), leading blanks and blank lines before a field are skipped, a quoted text
// runs to its closing quote, and a record may span lines or share a line with others.
// Reading a field at the end of the text raises "Input past end of file"; a number field
// that is not a number raises "Type mismatch".

#include <cstdint>
#include <string>

namespace paginox {

class DelimitedReader {
  public:
    explicit DelimitedReader(std::string bytes) : bytes_(std::move(bytes)) {}

    // A text field: the contents of its quotes, or the bare text trimmed of blanks.
    std::string ReadText();
    // A decimal number field (sign, digits, fraction, exponent); an empty field is 0.
    double ReadNumber();
    // A number field rounded half to even; "Overflow" when it does not fit.
    int16_t ReadInt16();
    int32_t ReadInt32();

    // True once everything has been read (the classic EOF test).
    bool AtEnd() const { return pos_ >= bytes_.size(); }

  private:
    void StartField();  // skips blanks and line ends; past end of file raises
    void SkipBlanks();
    bool AtLineEnd() const;
    void SkipDelimiter();      // after a field: blanks, then one comma or line end
    std::string ReadQuoted();  // after the opening quote

    std::string bytes_;
    size_t pos_ = 0;
};

}  // namespace paginox
