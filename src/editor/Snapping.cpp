// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/Snapping.h"

#include <algorithm>
#include <cmath>

#include "core/Rounding.h"
#include "editor/EditorState.h"
#include "editor/Manipulation.h"
#include "editor/Selection.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "render/SelectionMarkSet.h"

namespace paginox {

namespace {

// Room for the rounding of singles when a snapped group is checked against the page's edges.
constexpr double kEdgeSlack = 1e-6;

double Start(const RectClass& margin, int16_t axis) {
    return axis == 1 ? margin.Left() : margin.Top();
}
double Size(const RectClass& margin, int16_t axis) {
    return axis == 1 ? margin.Width() : margin.Height();
}
double ToPixel(const RectClass& margin, int16_t axis, double fraction) {
    return Start(margin, axis) + fraction * Size(margin, axis);
}

struct Span {
    double Low = 0;
    double High = 0;
};

Span ObjectSpan(const PageObject& obj, int16_t axis) {
    return {obj.Origin(axis), double(obj.Origin(axis)) + obj.Length(axis)};
}

// The moved objects' extent along the axis, as fractions of the printable area.
Span MovingSpan(const EditorState& state, int16_t axis) {
    FractionBox box = *SelectionBox(state);
    return axis == 1 ? Span{box.Left, box.Right} : Span{box.Top, box.Bottom};
}

// Which edge a resize pulls along the axis: -1 the low one, 1 the high one, 0 none that snaps.
int PulledEdge(int16_t dragMode, int16_t axis, int16_t shape) {
    if (shape == kShapeCircle) return 0;
    switch (dragMode) {
        case kHandleLeft:
        case kHandleTriangleLeft:
            return axis == 1 ? -1 : 0;
        case kHandleRight:
            return axis == 1 ? 1 : 0;
        case kHandleTop:
            return axis == 2 ? -1 : 0;
        case kHandleBottom:
            return axis == 2 ? 1 : 0;
        default:
            return 0;
    }
}

bool Inside(const Span& span, double shift) {
    return span.Low + shift >= -kEdgeSlack && span.High + shift <= 1 + kEdgeSlack;
}

// The grid line nearest to a fraction, along the axis; none without a grid.
std::optional<double> NearestGridLine(const EditorState& state, const SnapSettings& settings,
                                      int16_t axis, double fraction) {
    double area = state.CurrentFormat->PrintablePixels(axis);
    if (!settings.ToGrid || settings.GridSpacing < 1 || !(area > 0)) return std::nullopt;
    double step = settings.GridSpacing / area;
    return std::round(fraction / step) * step + 0.0;  // + 0.0: round(-0.3) is -0
}

struct AxisResult {
    int32_t Offset;
    AxisSnap Snap;
};

AxisResult SnapMove(const EditorState& state, const SnapTargets& targets,
                    const SnapSettings& settings, int16_t axis, int32_t d) {
    const RectClass& margin = state.Rects.Margin;
    Span span = MovingSpan(state, axis);
    std::optional<SnapLine> best;
    double bestShift = 0;
    double bestDistance = kSnapTolerance + 1;
    for (double edge : {span.Low, (span.Low + span.High) / 2, span.High}) {
        if (!settings.Objects) break;
        double moved = ToPixel(margin, axis, edge) + d;
        std::optional<SnapLine> line = targets.Nearest(axis, moved, kSnapTolerance);
        if (!line || !Inside(span, line->Fraction - edge)) continue;
        double distance = std::fabs(line->Pixel - moved);
        if (distance >= bestDistance) continue;
        best = line;
        bestShift = line->Fraction - edge;
        bestDistance = distance;
    }
    if (best) {
        return {ToInt32(bestShift * Size(margin, axis)), {true, bestShift, best->Pixel}};
    }
    double wanted = span.Low + d / Size(margin, axis);
    std::optional<double> line = NearestGridLine(state, settings, axis, wanted);
    if (line) {
        double step = settings.GridSpacing / state.CurrentFormat->PrintablePixels(axis);
        // The nearest line may carry the group off the page; then the next one on it.
        for (double t : {*line, *line - step, *line + step}) {
            if (!Inside(span, t - span.Low)) continue;
            double shift = t - span.Low;
            return {ToInt32(shift * Size(margin, axis)), {true, shift, std::nullopt}};
        }
    }
    return {d, {}};
}

AxisResult SnapResize(const EditorState& state, const SnapTargets& targets,
                      const SnapSettings& settings, int16_t axis, int16_t dragMode, int32_t d) {
    const RectClass& margin = state.Rects.Margin;
    std::shared_ptr<PageObject> obj = state.Selected();
    int pulled = PulledEdge(dragMode, axis, obj->POClass().Shape());
    if (pulled == 0) return {d, {}};
    Span span = ObjectSpan(*obj, axis);
    double edge = pulled < 0 ? span.Low : span.High;
    double moved = ToPixel(margin, axis, edge) + d;
    // The pulled edge stays on the page and on its own side, a side's least length away.
    auto keeps = [&](double t) {
        double side = (pulled < 0 ? span.High - t : t - span.Low) * Size(margin, axis);
        return t >= -kEdgeSlack && t <= 1 + kEdgeSlack && side >= kMinObjectSide;
    };
    std::optional<SnapLine> line;
    if (settings.Objects) line = targets.Nearest(axis, moved, kSnapTolerance);
    if (line && keeps(line->Fraction)) {
        return {ToInt32((line->Fraction - edge) * Size(margin, axis)),
                {true, line->Fraction, line->Pixel}};
    }
    std::optional<double> grid =
        NearestGridLine(state, settings, axis, edge + d / Size(margin, axis));
    if (grid && keeps(*grid)) {
        return {ToInt32((*grid - edge) * Size(margin, axis)), {true, *grid, std::nullopt}};
    }
    return {d, {}};
}

}  // namespace

SnapTargets::SnapTargets(const EditorState& state, int16_t dragMode) {
    if (!state.CurrentFormat) return;
    const RectClass& margin = state.Rects.Margin;
    const PageFormat& format = *state.CurrentFormat;
    int16_t count = std::min(format.NumObjects(), state.Rects.ObjectCount());
    // Looked up once: with every object dragged, asking the selection each time is quadratic.
    std::vector<bool> dragged(size_t(std::max<int16_t>(format.NumObjects(), 0)) + 1);
    if (dragMode == kDragMove) {
        for (int16_t k : state.SelectedObjects()) dragged[size_t(k)] = true;
    } else if (state.Selected()) {
        dragged[size_t(state.SelectedObject)] = true;
    }
    for (int16_t axis = 1; axis <= 2; ++axis) {
        std::vector<SnapLine>& lines = lines_[axis - 1];
        auto add = [&](double f) { lines.push_back({ToPixel(margin, axis, f), f}); };
        for (double f : {0.0, 0.5, 1.0}) add(f);
        for (int16_t k = 1; k <= count; ++k) {
            std::shared_ptr<PageObject> obj = format.Object(k);
            if (!obj || !state.Rects.IsPlaced(k) || dragged[size_t(k)]) continue;
            Span span = ObjectSpan(*obj, axis);
            for (double f : {span.Low, (span.Low + span.High) / 2, span.High}) add(f);
        }
        std::sort(lines.begin(), lines.end(),
                  [](const SnapLine& a, const SnapLine& b) { return a.Pixel < b.Pixel; });
    }
}

std::optional<SnapLine> SnapTargets::Nearest(int16_t axis, double pixel, double tolerance) const {
    const std::vector<SnapLine>& lines = lines_[axis - 1];
    auto at = std::lower_bound(lines.begin(), lines.end(), pixel,
                               [](const SnapLine& line, double p) { return line.Pixel < p; });
    std::optional<SnapLine> best;
    for (auto it : {at, at == lines.begin() ? lines.end() : std::prev(at)}) {
        if (it == lines.end() || std::fabs(it->Pixel - pixel) > tolerance) continue;
        if (!best || std::fabs(it->Pixel - pixel) < std::fabs(best->Pixel - pixel)) best = *it;
    }
    return best;
}

DragSnap SnapDrag(const EditorState& state, const SnapTargets& targets,
                  const SnapSettings& settings, int16_t dragMode, int32_t dx, int32_t dy) {
    DragSnap snap{dx, dy, {}};
    if (!state.Selected() || dragMode == kDragNone) return snap;
    const int32_t by[2] = {dx, dy};
    for (int16_t axis = 1; axis <= 2; ++axis) {
        if (Size(state.Rects.Margin, axis) <= 0) continue;
        AxisResult result =
            dragMode == kDragMove
                ? SnapMove(state, targets, settings, axis, by[axis - 1])
                : SnapResize(state, targets, settings, axis, dragMode, by[axis - 1]);
        (axis == 1 ? snap.Dx : snap.Dy) = result.Offset;
        snap.Axis[axis - 1] = result.Snap;
    }
    return snap;
}

std::vector<double> GridLines(const EditorState& state, int16_t axis, int32_t spacing) {
    std::vector<double> lines;
    if (!state.CurrentFormat || spacing < 1) return lines;
    const RectClass& margin = state.Rects.Margin;
    double area = state.CurrentFormat->PrintablePixels(axis);
    if (!(area > 0)) return lines;
    double step = spacing * Size(margin, axis) / area;
    // Closer than this, a grid is a grey wash that hides the page.
    constexpr double kFewestPixels = 4;
    if (step < kFewestPixels) return lines;
    for (double at = 0; at <= Size(margin, axis) + 0.5; at += step) {
        lines.push_back(Start(margin, axis) + at);
    }
    return lines;
}

}  // namespace paginox
