// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Where the main window opens: where it was left last time when that is still on a screen,
// else a size that fits the screen it opens on, in the middle of it.

#include <QRect>
#include <QSize>
#include <optional>
#include <vector>

namespace paginox {

// available: the usable part of the screen the window opens on; screens: all of them;
// wanted: the size it takes when the screen allows.
QRect WindowPlace(const QRect& available, const std::vector<QRect>& screens,
                  std::optional<QRect> saved, QSize wanted);

}  // namespace paginox
