// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A minimal line-oriented XML writer: one element per line, two spaces of indentation per
// open element, CR LF line ends. Names and values are written exactly as given: nothing is
// escaped and no declaration is written, because the host reads the files in that form.
// The text is gathered in memory and the file replaced in one go on closing, so that a failed
// translation never leaves half a file in place of the last good one.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/NumberFormat.h"

namespace paginox {

class XMLOutput {
  public:
    // Singles are written with the given decimal separator.
    explicit XMLOutput(char decimalSeparator = UserDecimalSeparator())
        : decimalSeparator_(decimalSeparator) {}

    // Starts a file of that name; false for an empty name.
    bool OpenXML(const std::string& fileName);
    // Writes the file, raising RuntimeError when it cannot be written (the old file is then
    // untouched); true only when every element opened was also closed. False when none is open.
    bool CloseXML();
    // Drops what was written since OpenXML; the file is not touched.
    void AbandonXML();

    void OpenNode(const std::string& name);
    void CloseNode();  // ignored at depth 0
    void WriteString(const std::string& name, const std::string& value, bool writeEmpty = false);
    void WriteNumber(const std::string& name, int16_t value, const std::string& pattern);
    void WriteSingle(const std::string& name, float value, const std::string& pattern);
    void WriteBoolean(const std::string& name, bool value);

    int16_t Depth() const { return depth_; }
    size_t StackUpperBound() const { return stack_.size() - 1; }

  private:
    void WriteLine(const std::string& text);

    char decimalSeparator_;
    std::optional<std::string> fileName_;
    std::string text_;
    int16_t depth_ = 0;
    std::vector<std::string> stack_ = std::vector<std::string>(21);  // 1-based, bound 20
};

// Text of a number in the classic "0" or "#.##" pattern.
std::string FormatWithPattern(double value, const std::string& pattern,
                              char decimalSeparator = '.');

}  // namespace paginox
