// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace paginox::sample {

// Builds the sample pages through the page model and saves them with SavePage into
// pagesFolder, beside their sample picture. systemFolder holds the generated definition files
// ("objects.dfn" and the column lists), which new objects take their defaults from.
void WriteSamplePages(const std::filesystem::path& systemFolder,
                      const std::filesystem::path& pagesFolder);

// A 64 x 64 picture, 24 bits per pixel, in the bitmap file format: a sun with rays on sky.
std::string SunburstBitmap();

}  // namespace paginox::sample
