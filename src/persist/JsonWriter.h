// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Writes one JSON document as it goes, indented by four spaces, members in the order written.
// Singles come out as the shortest decimal that reads back as the same single, which a
// double-based JSON library cannot give: it prints a large whole number with every digit.

#include <cstdint>
#include <string>
#include <vector>

namespace paginox {

class JsonWriter {
  public:
    void BeginObject() { Open('{'); }
    void EndObject() { Close('}'); }
    void BeginArray() { Open('['); }
    void EndArray() { Close(']'); }
    // Names the next value as a member of the open object.
    JsonWriter& Key(const std::string& name);

    void Int(int64_t v);
    void Bool(bool v);
    // NaN and infinity, which a damaged file can hold, have no JSON form: null.
    void Single(float v);
    void Ansi(const std::string& cp1252);  // a model text, written as UTF-8
    void Utf8(const std::string& text);    // a file or path name, as it is
    void Null();

    // The document so far; complete, with its final line break, once every value is closed.
    const std::string& Text() const { return out_; }

  private:
    void Open(char bracket);
    void Close(char bracket);
    void BeginValue();
    void Indent(size_t depth);

    std::string out_;
    std::vector<int> counts_;  // values written so far in each open object or array
    bool afterKey_ = false;
};

}  // namespace paginox
