// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The screen resolutions a page can have a format for, and the names the size list shows.

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace paginox {

class EditorState;
class PageClass;
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

struct FormatSize {
    int16_t Width = 0;
    int16_t Height = 0;
};

// A side of a format as typed: a whole number of pixels from 1 to 32767, spaces around it
// allowed; nothing otherwise.
std::optional<int16_t> ParsePixels(const std::string& text);

// Gives format the new size; its ratios follow the new proportions (a NoTextYRatio of 0
// means the format has none and stays 0).
void ResizeFormat(PageFormat& format, FormatSize size);

// Makes format the screen format of a screen of the given size: the screen less the
// margins above, at the screen's pixels per inch, its ratio following the new proportions.
void SizeFormatForScreen(PageFormat& format, int screenWidth, int screenHeight, int logPixels);

struct AddedSize {
    int16_t Index = 0;   // the new format, or the page's format of equal size
    bool Added = false;  // false: the page had that size already and is unchanged
};

// The OK step of adding a page size, for the dialog and the tool: a copy of working at the
// entered size is appended to the page, its text objects sized afresh for it, unless the
// page already has a format of equal size.
AddedSize AddFormatOfSize(PageClass& page, const PageFormat& working, FormatSize size);

// Add Page Size in the editor: the OK step on the page; a new format becomes the current
// one, with nothing selected, and the page counts as changed. The window records it as one
// undoable step.
AddedSize AddPageSize(EditorState& state, const PageFormat& working, FormatSize size);

// Whether the format can be shown at its own size on a screen of the given size.
bool FormatFitsScreen(const PageFormat& format, int screenWidth, int screenHeight);

}  // namespace paginox
