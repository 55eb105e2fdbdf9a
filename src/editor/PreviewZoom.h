// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How large the preview shows the page: fitted to the window, as it opens, or at a factor of
// the format's own pixels, stepped through the usual ladder of percentages. Decides the size
// of the drawing surface; the drawing itself and every hit-test stay in surface pixels.

#include <cstdint>

#include "model/RectClass.h"

namespace paginox {

class PageFormat;

struct SurfaceSize {
    int32_t Width = 0;
    int32_t Height = 0;
};

class PreviewZoom {
  public:
    static constexpr double kMinFactor = 0.1;
    static constexpr double kMaxFactor = 8.0;

    bool Fits() const { return fits_; }
    void Fit() { fits_ = true; }
    // Screen pixels per format pixel, within the limits.
    void SetFactor(double factor);
    // The next step of the ladder above (or below) the factor shown now.
    void StepIn(double shown);
    void StepOut(double shown);

    // The surface for the format in a window of that size: the window's own size when fitting,
    // else the size that shows the page at the factor (the window centres a smaller one).
    SurfaceSize Surface(const PageFormat& format, SurfaceSize window) const;

  private:
    bool fits_ = true;
    double factor_ = 1.0;
};

// The factor the page is shown at on a surface of that size: screen pixels per format pixel;
// 0 for a format without pixels.
double ShownFactor(const PageFormat& format, SurfaceSize surface);

// The surface point showing the same place of the page once the page, drawn at oldPage, is
// drawn at newPage: what stays under the pointer when zooming about it.
struct SurfacePointF {
    double X = 0;
    double Y = 0;
};
SurfacePointF SamePlaceOnPage(SurfacePointF point, const RectClass& oldPage,
                              const RectClass& newPage);

}  // namespace paginox
