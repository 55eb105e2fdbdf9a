// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/XMLOutput.h"

#include "core/Checked.h"
#include "core/NumberFormat.h"
#include "core/Rounding.h"
#include "core/RuntimeError.h"
#include "persist/AtomicSave.h"

namespace paginox {

bool XMLOutput::OpenXML(const std::string& fileName) {
    stack_.assign(21, std::string());
    depth_ = 0;
    text_.clear();
    fileName_.reset();
    if (fileName.empty()) return false;
    fileName_ = fileName;
    return true;
}

bool XMLOutput::CloseXML() {
    if (!fileName_) return false;
    bool balanced = depth_ == 0;
    std::string fileName = *fileName_;
    std::string text = std::move(text_);
    AbandonXML();
    SaveFileAtomically(fileName, text);
    return balanced;
}

void XMLOutput::AbandonXML() {
    fileName_.reset();
    text_.clear();
    depth_ = 0;
}

void XMLOutput::WriteLine(const std::string& text) {
    if (!fileName_) Raise(kBadFileNameOrNumber);
    text_.append(2 * size_t(depth_), ' ').append(text).append("\r\n");
}

void XMLOutput::OpenNode(const std::string& name) {
    WriteLine("<" + name + ">");
    depth_ = CheckedAdd<int16_t>(depth_, 1);
    if (size_t(depth_) > StackUpperBound()) stack_.resize(size_t(depth_) - 1 + 10 + 1);
    stack_[depth_] = name;
}

void XMLOutput::CloseNode() {
    if (depth_ == 0) return;
    --depth_;
    WriteLine("</" + stack_[depth_ + 1] + ">");
}

void XMLOutput::WriteString(const std::string& name, const std::string& value, bool writeEmpty) {
    if (value.empty() && !writeEmpty) return;
    WriteLine("<" + name + ">" + value + "</" + name + ">");
}

void XMLOutput::WriteNumber(const std::string& name, int16_t value, const std::string& pattern) {
    WriteString(name, FormatWithPattern(value, pattern), false);
}

void XMLOutput::WriteSingle(const std::string& name, float value, const std::string& pattern) {
    WriteString(name, FormatWithPattern(value, pattern, decimalSeparator_), false);
}

void XMLOutput::WriteBoolean(const std::string& name, bool value) {
    WriteString(name, value ? "True" : "False", false);
}

std::string FormatWithPattern(double value, const std::string& pattern, char decimalSeparator) {
    if (pattern == "#.##") return FormatHashDotHash(static_cast<float>(value), decimalSeparator);
    // "0": whole number, halves to even like every conversion to an integer.
    return FormatZero(static_cast<long long>(RoundHalfEven(value)));
}

}  // namespace paginox
