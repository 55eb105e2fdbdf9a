// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/WindowPlacement.h"

#include <algorithm>

namespace paginox {

namespace {
// Of the screen, at most this share in each direction: room for panels and decorations.
constexpr double kMostOfScreen = 0.92;
// A saved place counts when at least this much of it is on some screen.
constexpr int kVisibleEnough = 100;
}  // namespace

QRect WindowPlace(const QRect& available, const std::vector<QRect>& screens,
                  std::optional<QRect> saved, QSize wanted) {
    if (saved && saved->width() > 0 && saved->height() > 0) {
        for (const QRect& screen : screens) {
            QRect seen = screen.intersected(*saved);
            if (seen.width() >= kVisibleEnough && seen.height() >= kVisibleEnough) return *saved;
        }
    }
    QSize size(std::min(wanted.width(), int(available.width() * kMostOfScreen)),
               std::min(wanted.height(), int(available.height() * kMostOfScreen)));
    QRect place(QPoint(0, 0), size);
    place.moveCenter(available.center());
    return place;
}

}  // namespace paginox
