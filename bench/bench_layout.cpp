// SPDX-License-Identifier: GPL-3.0-or-later
// Laying out a page of 2,000 objects in the preview at 1600x1000, as the mouse does it: a band
// selection from press to release, and steps of a snapped drag of one object and of all of
// them, each with the repaint it causes. The baseline is the repaint alone.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <memory>

#include "BenchWorld.h"
#include "editor/EditorState.h"
#include "editor/Selection.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "ui/PreviewWidget.h"

namespace paginox::bench {

namespace {

constexpr int kLayoutObjects = 2000;

struct LayoutWorld {
    EditorState state;
    std::unique_ptr<PreviewWidget> preview;

    LayoutWorld() {
        World();  // the catalogue
        std::mt19937 random(7);
        state.Page = std::make_shared<PageClass>();
        state.Page->InitNewPage();
        state.Page->SetFormat(1, MixedFormat(kLayoutObjects, random));
        state.SetCurrentFormat(1);
        preview = std::make_unique<PreviewWidget>(state);
        preview->resize(1600, 1000);
        preview->show();
        preview->Redraw();
        QApplication::processEvents();
    }
    void Mouse(QEvent::Type type, QPointF at, Qt::MouseButtons held = Qt::LeftButton) {
        QMouseEvent event(type, at, preview->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(preview.get(), &event);
    }
    // Somewhere inside object k, as drawn.
    QPointF Inside(int16_t k) const {
        const RectClass& r = state.Rects.Object(k);
        return QPointF(r.Left() + 3, r.Bottom() - 3);
    }
};

LayoutWorld& Layout() {
    static LayoutWorld* world = new LayoutWorld;
    return *world;
}

void PreviewRepaint(benchmark::State& state) {
    LayoutWorld& w = Layout();
    for (auto _ : state) w.preview->repaint();
}

// Press on the grey beside the page, drag over its left half, release: about 1,000 chosen.
void LayoutBandSelect(benchmark::State& state) {
    LayoutWorld& w = Layout();
    const RectClass& margin = w.state.Rects.Margin;
    QPointF from(2, 2);
    QPointF to(margin.Left() + margin.Width() / 2.0, margin.Bottom() - 1);
    size_t chosen = 0;
    for (auto _ : state) {
        w.state.SelectOnly(0);
        w.Mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
        w.Mouse(QEvent::MouseMove, to);
        w.preview->repaint();
        w.Mouse(QEvent::MouseButtonRelease, to, Qt::NoButton);
        w.preview->repaint();
        chosen = w.state.SelectedObjects().size();
    }
    state.counters["chosen"] = double(chosen);
}

// Steps of a drag already under way, to and fro by a few pixels, each snapped and repainted.
void DragSteps(benchmark::State& state, bool all) {
    LayoutWorld& w = Layout();
    int16_t k = kLayoutObjects / 2;
    w.state.SelectOnly(k);
    if (all) SelectAll(w.state);
    QPointF from = w.Inside(k);
    w.Mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
    int step = 0;
    for (auto _ : state) {
        ++step;
        w.Mouse(QEvent::MouseMove, from + QPointF(7 + step % 9, 5 + step % 7));
        w.preview->repaint();
    }
    w.preview->AbandonDrag();
    w.state.SelectOnly(0);
}
void LayoutDragStepOne(benchmark::State& state) {
    DragSteps(state, false);
}
void LayoutDragStepAll(benchmark::State& state) {
    DragSteps(state, true);
}

// The first step of a drag also gathers every other object's lines to snap to.
void LayoutDragFirstStep(benchmark::State& state) {
    LayoutWorld& w = Layout();
    int16_t k = kLayoutObjects / 2;
    w.state.SelectOnly(k);
    QPointF from = w.Inside(k);
    for (auto _ : state) {
        w.Mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
        w.Mouse(QEvent::MouseMove, from + QPointF(9, 6));
        w.preview->repaint();
        state.PauseTiming();
        w.preview->AbandonDrag();
        state.ResumeTiming();
    }
    w.state.SelectOnly(0);
}

}  // namespace

BENCHMARK(PreviewRepaint)->Unit(benchmark::kMillisecond);
BENCHMARK(LayoutBandSelect)->Unit(benchmark::kMillisecond);
BENCHMARK(LayoutDragStepOne)->Unit(benchmark::kMillisecond);
BENCHMARK(LayoutDragStepAll)->Unit(benchmark::kMillisecond);
BENCHMARK(LayoutDragFirstStep)->Unit(benchmark::kMillisecond);

}  // namespace paginox::bench
