// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/Arrange.h"

#include <algorithm>
#include <vector>

#include "editor/EditStep.h"
#include "editor/EditorState.h"
#include "editor/Properties.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox {

float KeptInside(float origin, float length) {
    return std::clamp(origin, 0.0f, std::max(0.0f, 1.0f - length)) + 0.0f;  // never -0
}

namespace {

int16_t AxisOf(Alignment how) {
    return how == Alignment::Left || how == Alignment::Centre || how == Alignment::Right ? 1 : 2;
}

// Where an object of this length goes to line up with the span [start, start + length).
float AlignedOrigin(Alignment how, float start, float spanLength, float length) {
    switch (how) {
        case Alignment::Left:
        case Alignment::Top:
            return start;
        case Alignment::Centre:
        case Alignment::Middle:
            return start + (spanLength - length) / 2;
        case Alignment::Right:
        case Alignment::Bottom:
            return start + spanLength - length;
    }
    return start;
}

bool SetOrigin(EditorState& state, EditStep& step, int16_t k, int16_t axis, float origin) {
    float length = state.CurrentFormat->Object(k)->Length(axis);
    return step.Set(kPropOrigin, KeptInside(origin, length), state.CurrentFormatIndex, k, axis);
}

}  // namespace

bool AlignSelection(EditorState& state, EditStep& step, Alignment how) {
    std::vector<int16_t> selected = state.SelectedObjects();
    if (selected.size() < 2) return AlignSelectedObject(state, step, how);
    int16_t axis = AxisOf(how);
    const PageObject& primary = *state.Selected();
    float start = primary.Origin(axis);
    float span = primary.Length(axis);
    bool changed = false;
    for (int16_t k : selected) {
        if (k == state.SelectedObject) continue;
        float length = state.CurrentFormat->Object(k)->Length(axis);
        changed =
            SetOrigin(state, step, k, axis, AlignedOrigin(how, start, span, length)) || changed;
    }
    return changed;
}

bool DistributeSelection(EditorState& state, EditStep& step, int16_t axis) {
    std::vector<int16_t> selected = state.SelectedObjects();
    if (selected.size() < 3) return false;
    const PageFormat& format = *state.CurrentFormat;
    // In the order they lie along the axis; objects starting together keep drawing order.
    std::stable_sort(selected.begin(), selected.end(), [&](int16_t a, int16_t b) {
        return format.Object(a)->Origin(axis) < format.Object(b)->Origin(axis);
    });
    double first = format.Object(selected.front())->Origin(axis);
    double lengths = 0;
    for (int16_t k : selected) lengths += format.Object(k)->Length(axis);
    // The last keeps its far edge: the objects fill [first, its end] with equal gaps.
    const PageObject& last = *format.Object(selected.back());
    double lastEnd = double(last.Origin(axis)) + last.Length(axis);
    double gap = (lastEnd - first - lengths) / double(selected.size() - 1);
    double at = first;
    bool changed = false;
    for (size_t i = 0; i < selected.size(); ++i) {
        const PageObject& obj = *format.Object(selected[i]);
        if (i > 0 && i + 1 < selected.size()) {
            changed = SetOrigin(state, step, selected[i], axis, static_cast<float>(at)) || changed;
        }
        at += obj.Length(axis) + gap;
    }
    return changed;
}

bool MatchPrimarySize(EditorState& state, EditStep& step, SizeMatch what) {
    std::vector<int16_t> selected = state.SelectedObjects();
    if (selected.size() < 2) return false;
    const PageObject& primary = *state.Selected();
    bool changed = false;
    for (int16_t k : selected) {
        if (k == state.SelectedObject) continue;
        for (int16_t axis = 1; axis <= 2; ++axis) {
            if ((axis == 1 && what == SizeMatch::Height) ||
                (axis == 2 && what == SizeMatch::Width)) {
                continue;
            }
            float length = primary.Length(axis);
            changed = step.Set(kPropLength, length, state.CurrentFormatIndex, k, axis) || changed;
            // A wider object near the far edge moves in so that it stays on the page.
            changed =
                SetOrigin(state, step, k, axis, state.CurrentFormat->Object(k)->Origin(axis)) ||
                changed;
        }
    }
    return changed;
}

}  // namespace paginox
