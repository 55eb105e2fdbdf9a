// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The page browser's page-to-bitmap routine: a thumbnail of a page file, or a picture file
// scaled, written as a bitmap file for the thumbnail cache.

#include <cstdint>
#include <string>

namespace paginox {

// A ".pag" file is drawn as a thumbnail of its first format: on white, with labels and
// pictures, not interactive. Any other file is taken as a picture and stretched to the size.
// Writes a bitmap of width x height at target; true when written. Needs a GUI application
// (for fonts), as every drawing does.
bool MakePageBitmap(const std::string& source, int32_t width, int32_t height,
                    const std::string& target);

}  // namespace paginox
