// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The screen's twips per pixel, asked each time a twips rectangle is turned into pixels. The
// model cannot see the screen, so the editor installs a source that asks it; until then the
// factors are those of a 96 dots-per-inch screen.

#include <functional>

namespace paginox {

struct TwipsPerPixel {
    float X = 15.0f;  // 1440 / 96
    float Y = 15.0f;
};

using TwipsPerPixelSource = std::function<TwipsPerPixel()>;

// Installs the source; an empty function brings back the 96 dots-per-inch default.
void SetTwipsPerPixelSource(TwipsPerPixelSource source);

// The factors in force now.
TwipsPerPixel ScreenTwipsPerPixel();

}  // namespace paginox
