// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The XML translation of a page: a fixed element tree of its formats and their objects,
// written through XMLOutput (one element per line, nothing escaped, no declaration).

#include <optional>
#include <string>

#include "persist/XMLOutput.h"

namespace paginox {

class PageClass;
class PageFormat;
class PageObject;

class XMLOutPage {
  public:
    // Singles are written with the user's decimal separator unless another is given.
    explicit XMLOutPage(char decimalSeparator = UserDecimalSeparator()) : xml_(decimalSeparator) {}

    // Writes the whole tree to fileName, which is created or overwritten. False after a
    // message: "File Write Error" when the file cannot be opened or written, "Diagnostic" when
    // the tree was left open. The path is native (UTF-8).
    bool WriteToXML(const std::string& fileName, const PageClass& page);

  private:
    void WriteFormat(const PageFormat& format);
    void WriteObject(const PageObject& obj);

    XMLOutput xml_;
};

// The translation's name beside a page file: a name ending in exactly ".pag" (letter case
// included) has it replaced by ".xml"; any other name, ".PAG" too, gets ".xml" appended.
std::string XmlNameFor(const std::string& pageFileName);

// The editor's Translate to XML, shared with the command-line tool: writes the page (null
// when none is loaded) beside currentFile and gives the path written, or nothing after a
// message ("Cannot translate" when there is no page or no file name).
std::optional<std::string> TranslateToXML(const std::string& currentFile, const PageClass* page);

}  // namespace paginox
