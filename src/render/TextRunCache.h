// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Text runs laid out once and kept: the preview draws the same few class names and chart
// labels on every redraw, and laying text out costs far more than painting it.

#include <QFont>
#include <QStaticText>
#include <string>

namespace paginox {

class TextRunCache {
  public:
    struct Run {
        QStaticText Text;
        double Width = 0;  // the advance, as the font's metrics measure it
    };

    // The run of a Windows-1252 text in font at a device pixel ratio. Kept for the life of the
    // thread that asked; its cache is emptied when it grows past a thousand runs.
    static const Run& Get(const QFont& font, double pixelRatio, const std::string& ansi);
};

}  // namespace paginox
