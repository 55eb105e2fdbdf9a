// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One layout for every page size: objects are placed by fractions of the printable area, so
// a copy keeps its place on a page size of any resolution. Both commands work on a page, so
// the window can show the result on a copy before it changes the page being edited.

#include <cstdint>
#include <vector>

namespace paginox {

class PageClass;

// Puts copies of objects of format from, in front, on every other format of the page; the
// page sizes changed, in order. Nothing without objects or other formats.
std::vector<int16_t> CopyObjectsToAllSizes(PageClass& page, int16_t from,
                                           const std::vector<int16_t>& objects);

// Format to's objects become copies of format from's; false when from is to, either is
// missing or they hold the same objects already.
bool CopyLayout(PageClass& page, int16_t to, int16_t from);

}  // namespace paginox
