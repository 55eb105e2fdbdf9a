// SPDX-License-Identifier: GPL-3.0-or-later
// The page browser on the library of 1,000 pages: the first screen of warm thumbnails from the
// command, and every thumbnail made cold while the window goes on answering, each against the
// same work without the browser.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QImage>
#include <QListWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <fstream>
#include <functional>
#include <string>

#include "BenchWorld.h"
#include "library/ImageCache.h"
#include "ui/PageBrowser.h"

namespace paginox::bench {

namespace {

constexpr int kScreenWidth = 1000;  // the browser's default size
constexpr int kScreenHeight = 700;

void MakeAllThumbnails(ImageCache& cache) {
    for (const std::string& page : World().library) {
        if (!cache.Contains(page, PageBrowser::kThumbWidth, PageBrowser::kThumbHeight)) {
            cache.CreateCache(page, PageBrowser::kThumbWidth, PageBrowser::kThumbHeight);
        }
    }
}

void BrowserFirstScreenWarm(benchmark::State& state) {
    ImageCache cache;
    cache.PrepareForCaching();
    MakeAllThumbnails(cache);
    for (auto _ : state) {
        PageBrowser browser("");
        browser.resize(kScreenWidth, kScreenHeight);
        browser.show();
        RunLoopUntil([&] { return browser.VisibleThumbnailsShown(); });
    }
}

// A window of the same size listing the same names with blank icons, and the bitmap files of
// one screen of thumbnails read.
void PlainListFirstScreen(benchmark::State& state) {
    ImageCache cache;
    const int onScreen = 24;
    for (auto _ : state) {
        QDialog window;
        auto* list = new QListWidget(&window);
        (new QVBoxLayout(&window))->addWidget(list);
        list->setViewMode(QListView::IconMode);
        list->setIconSize(QSize(PageBrowser::kThumbWidth, PageBrowser::kThumbHeight));
        QPixmap blank(PageBrowser::kThumbWidth, PageBrowser::kThumbHeight);
        blank.fill(Qt::white);
        for (const std::string& page : World().library) {
            new QListWidgetItem(QIcon(blank), QString::fromStdString(page), list);
        }
        for (int i = 0; i < onScreen; ++i) {
            QImage image(QString::fromStdString(cache.GetCacheName(
                World().library[i], PageBrowser::kThumbWidth, PageBrowser::kThumbHeight)));
            list->item(i)->setIcon(QPixmap::fromImage(image));
        }
        window.resize(kScreenWidth, kScreenHeight);
        window.show();
        QApplication::processEvents();
    }
}

void BrowserThumbnailsCold(benchmark::State& state) {
    ImageCache cache;
    cache.PrepareForCaching();
    double gap = 0;
    double memory = 0;
    for (auto _ : state) {
        state.PauseTiming();
        cache.ClearAllCaches();
        state.ResumeTiming();
        PageBrowser browser("");
        browser.resize(kScreenWidth, kScreenHeight);
        browser.show();
        gap = std::max(gap, RunLoopUntil([&] { return browser.ThumbnailsMade() >= kPageFiles; }));
        memory = std::max(memory, ResidentMegabytes());
    }
    state.counters["longest_gap_ms"] = gap;
    state.counters["memory_MB"] = memory;
}

// The same thumbnails made one after the other by the cache alone.
void CacheThumbnailsCold(benchmark::State& state) {
    ImageCache cache;
    cache.PrepareForCaching();
    for (auto _ : state) {
        state.PauseTiming();
        cache.ClearAllCaches();
        state.ResumeTiming();
        MakeAllThumbnails(cache);
    }
}

}  // namespace

BENCHMARK(BrowserFirstScreenWarm)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(PlainListFirstScreen)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BrowserThumbnailsCold)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(CacheThumbnailsCold)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

}  // namespace paginox::bench
