// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The sizing rules shared by objects and formats: how much room text of a font size takes on
// a device, how wide a list's columns are, and how big a new object is. One place, so that
// NearestFontSize, GetTextObjectPixels and the list box widths agree with each other.

#include <cstdint>

namespace paginox {

class PageFormat;
class PageObject;

// A font fills 80% of its line (NearestFontSize's factor), so a line is 1.25 font sizes
// high; an average character is half a font size wide.
inline constexpr double kLineFill = 0.8;
inline constexpr double kCharWidthPerSize = 0.5;

// Leading name column of a list box, in average characters: a point's name, or the two
// points and the aspect of an aspect line.
inline constexpr int32_t kPointNameChars = 8;
inline constexpr int32_t kAspectNameChars = 12;
// A column whose code is not in the definition table.
inline constexpr int32_t kUnknownColumnChars = 6;
// Width of a plain text block that fixes no proportions.
inline constexpr int32_t kTextBlockChars = 24;

// Pixels of one text line and of one average character at a font size on a device.
double LinePixels(float fontSize, int16_t logPixels);
double CharPixels(float fontSize, int16_t logPixels);

// Width of one block of the object's list in average characters: the name column plus, for
// each column up to the first 0, its label's length (at least 3) and one space. Point lists
// look their codes up in the point table, aspect lists in the aspect table.
int32_t ListBlockChars(const PageObject& obj, bool aspectList);

struct PixelSize {
    int32_t Width = 0;
    int32_t Height = 0;
};

struct PageFraction {
    float Width = 0;
    float Height = 0;
};

// Default size of a new object on a format, as fractions of the page: 40% of the page
// across, narrowed so that with the height-to-width ratio yRatio it is at most 40% of the
// page high. No ratio (0 or less) or a format without pixels gives the plain 0.4 by 0.4.
PageFraction DefaultObjectSize(const PageFormat& format, float yRatio);

}  // namespace paginox
