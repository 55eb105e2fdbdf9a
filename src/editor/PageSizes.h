#pragma once

// The screen resolutions a page can have a format for, and the names the size list shows.

#include <array>
#include <cstdint>
#include <string>

namespace paginox {

class PageFormat;

struct ScreenResolution {
    const char* Name;
    int16_t Width;
    int16_t Height;
};

// A screen format's drawing area is the screen less these margins; a format whose width is
// a table width less kScreenWidthMargin counts as that screen's format.
inline constexpr int16_t kScreenWidthMargin = 95;
inline constexpr int16_t kScreenHeightMargin = 19;

// Index 0 to 10. Names repeat on purpose: entries are told apart by their sizes.
const std::array<ScreenResolution, 11>& ScreenResolutions();

// The first table entry whose width less kScreenWidthMargin is xPixels (only the width is
// compared), or -1.
int ScreenEntryForWidth(int16_t xPixels);

// "Printer", "Screen" or "User", a tab and "(widthxheight)"; a screen format shows the full
// screen size of its table entry, the others their own pixels.
std::string FormatDisplayName(const PageFormat& format);

// Makes format the screen format of a screen of the given size: the screen less the
// margins above, at the screen's pixels per inch, its ratio following the new proportions.
void SizeFormatForScreen(PageFormat& format, int screenWidth, int screenHeight, int logPixels);

// Whether the format can be shown at its own size on a screen of the given size.
bool FormatFitsScreen(const PageFormat& format, int screenWidth, int screenHeight);

}  // namespace paginox
