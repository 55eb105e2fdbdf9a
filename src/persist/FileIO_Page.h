// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The page layout file (".pag"): one 349-byte header record, then until the end of the file
// one 34-byte format record per format, each followed by the object records it announces.
// Version 4 is written; versions 2 and 3 are read too, their object records promoted to
// version 4 on the way in.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace paginox {

class PageClass;
class PageObject;

inline constexpr int16_t kPageFileVersion = 4;
inline constexpr size_t kPageHeaderLength = 349;
inline constexpr size_t kFormatRecordLength = 34;

// The object record length of a file version: 212, 1195 or 1605; 0 for any other version.
size_t ObjectRecordLength(int16_t version);

// Reads a page. formatIndex < 0 loads every format in full; k > 0 loads format k in full and
// only the frame fields of the others (their objects are skipped, their slots left empty).
// A missing file gives nullptr quietly; a damaged one, or a pipe or device in place of the
// file, gives nullptr after the "Open Error" message when reportErrors. Paths are native
// (UTF-8).
std::shared_ptr<PageClass> ReadPage(const std::string& fileName, int16_t formatIndex,
                                    bool reportErrors);

// The bytes of the page as a version 4 file.
std::string PageFileBytes(const PageClass& page);

// One object as a version 4 object record, and back, exact to the last bit: how objects
// travel on the clipboard. Bytes of another length raise "Bad file format".
std::string ObjectRecordBytes(const PageObject& obj);
std::shared_ptr<PageObject> ReadObjectRecord(std::string_view bytes);

// Writes the page as version 4, replacing the file only once the whole page is written. False
// after the "Save Error" message; the old file is then as it was.
bool SavePage(const std::string& fileName, const PageClass& page);
// Writes the page as SavePage does, without a message: a failure is thrown.
void WritePageFile(const std::string& fileName, const PageClass& page);

}  // namespace paginox
