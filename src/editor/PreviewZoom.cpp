// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/PreviewZoom.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "model/PageFormat.h"
#include "render/PageDraw.h"

namespace paginox {

namespace {

// The percentages Zoom In and Zoom Out step through, as in most editors.
constexpr double kLadder[] = {0.1,  0.25, 0.33, 0.5, 0.67, 0.75, 1.0,
                              1.25, 1.5,  2.0,  3.0, 4.0,  6.0,  8.0};
// A factor this close to a step counts as on it.
constexpr double kSameStep = 1.02;

int32_t SurfaceSide(double pageSide) {
    // PageRect leaves one pixel for the far edge and takes kInteractiveShare of the rest.
    return static_cast<int32_t>(std::ceil(pageSide / kInteractiveShare)) + 1;
}

}  // namespace

void PreviewZoom::SetFactor(double factor) {
    fits_ = false;
    factor_ = std::clamp(factor, kMinFactor, kMaxFactor);
}

void PreviewZoom::StepIn(double shown) {
    const double* next = std::find_if(std::begin(kLadder), std::end(kLadder),
                                      [&](double step) { return step > shown * kSameStep; });
    SetFactor(next != std::end(kLadder) ? *next : kMaxFactor);
}

void PreviewZoom::StepOut(double shown) {
    double below = kMinFactor;
    for (double step : kLadder) {
        if (step * kSameStep < shown) below = step;
    }
    SetFactor(below);
}

SurfaceSize PreviewZoom::Surface(const PageFormat& format, SurfaceSize window) const {
    if (fits_ || format.XPixels() <= 0) return window;
    double width = format.XPixels() * factor_;
    double height = format.YRatio() > 0 ? width * format.YRatio() : format.YPixels() * factor_;
    return SurfaceSize{SurfaceSide(width), SurfaceSide(height)};
}

double ShownFactor(const PageFormat& format, SurfaceSize surface) {
    if (format.XPixels() <= 0) return 0;
    RectClass area;
    area.InitTo(0, 0, surface.Width, surface.Height);
    return double(PageRect(area, format, true).Width()) / format.XPixels();
}

SurfacePointF SamePlaceOnPage(SurfacePointF point, const RectClass& oldPage,
                              const RectClass& newPage) {
    auto along = [](double p, int32_t oldStart, int32_t oldLength, int32_t newStart,
                    int32_t newLength) {
        if (oldLength <= 0) return p;
        return newStart + (p - oldStart) * newLength / oldLength;
    };
    return SurfacePointF{
        along(point.X, oldPage.Left(), oldPage.Width(), newPage.Left(), newPage.Width()),
        along(point.Y, oldPage.Top(), oldPage.Height(), newPage.Top(), newPage.Height())};
}

}  // namespace paginox
