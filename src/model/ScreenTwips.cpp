// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ScreenTwips.h"

#include <utility>

namespace paginox {

namespace {
TwipsPerPixelSource& Source() {
    static TwipsPerPixelSource source;
    return source;
}
}  // namespace

void SetTwipsPerPixelSource(TwipsPerPixelSource source) {
    Source() = std::move(source);
}

TwipsPerPixel ScreenTwipsPerPixel() {
    const auto& source = Source();
    return source ? source() : TwipsPerPixel{};
}

}  // namespace paginox
