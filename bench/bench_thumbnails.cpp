// SPDX-License-Identifier: GPL-3.0-or-later
// Thumbnails of 160 x 120: made cold through the cache, and the warm cache's answer, each
// against the file work it cannot do without.

#include <benchmark/benchmark.h>

#include <QImage>
#include <filesystem>
#include <fstream>

#include "BenchWorld.h"
#include "library/ImageCache.h"
#include "persist/BinaryFile.h"

namespace paginox::bench {

namespace {

constexpr int kThumbWidth = 160;
constexpr int kThumbHeight = 120;

void ThumbnailsCold(benchmark::State& state) {
    BenchWorld& w = World();
    ImageCache cache;
    if (!cache.PrepareForCaching()) std::abort();
    for (auto _ : state) {
        state.PauseTiming();
        cache.ClearAllCaches();
        state.ResumeTiming();
        for (int i = 0; i < kThumbnails; ++i) {
            if (!cache.CreateCache(w.pageFiles[i], kThumbWidth, kThumbHeight)) std::abort();
        }
    }
    state.SetItemsProcessed(state.iterations() * kThumbnails);
}

// The floor of making one: the page's bytes read and a blank bitmap of the size written.
void ThumbnailFilesOnly(benchmark::State& state) {
    BenchWorld& w = World();
    std::string target = (w.root / "temp" / "blank.bmp").string();
    for (auto _ : state) {
        for (int i = 0; i < kThumbnails; ++i) {
            std::string bytes = ReadWholeFile(w.pageFiles[i]);
            benchmark::DoNotOptimize(bytes);
            QImage blank(kThumbWidth, kThumbHeight, QImage::Format_RGB32);
            blank.fill(Qt::white);
            if (!blank.save(QString::fromStdString(target), "BMP")) std::abort();
        }
    }
    state.SetItemsProcessed(state.iterations() * kThumbnails);
}

void ThumbnailsWarm(benchmark::State& state) {
    BenchWorld& w = World();
    ImageCache cache;
    cache.PrepareForCaching();
    // Made a second after the pages, so that every one is fresh.
    auto later = std::filesystem::file_time_type::clock::now() + std::chrono::seconds(2);
    for (int i = 0; i < kThumbnails; ++i) {
        if (!cache.Contains(w.pageFiles[i], kThumbWidth, kThumbHeight)) {
            cache.CreateCache(w.pageFiles[i], kThumbWidth, kThumbHeight);
        }
        std::filesystem::last_write_time(
            cache.GetCacheName(w.pageFiles[i], kThumbWidth, kThumbHeight), later);
    }
    for (auto _ : state) {
        for (int i = 0; i < kThumbnails; ++i) {
            if (!cache.Contains(w.pageFiles[i], kThumbWidth, kThumbHeight)) std::abort();
        }
    }
    state.SetItemsProcessed(state.iterations() * kThumbnails);
}

// The floor of a freshness answer: the two modification times.
void TwoFileTimes(benchmark::State& state) {
    BenchWorld& w = World();
    ImageCache cache;
    std::vector<std::string> names;
    for (int i = 0; i < kThumbnails; ++i) {
        names.push_back(cache.GetCacheName(w.pageFiles[i], kThumbWidth, kThumbHeight));
    }
    for (auto _ : state) {
        for (int i = 0; i < kThumbnails; ++i) {
            std::error_code ec;
            bool fresher = std::filesystem::last_write_time(names[i], ec) >
                           std::filesystem::last_write_time(w.pageFiles[i], ec);
            benchmark::DoNotOptimize(fresher);
        }
    }
    state.SetItemsProcessed(state.iterations() * kThumbnails);
}

}  // namespace

BENCHMARK(ThumbnailsCold)->Unit(benchmark::kMillisecond);
BENCHMARK(ThumbnailFilesOnly)->Unit(benchmark::kMillisecond);
BENCHMARK(ThumbnailsWarm)->Unit(benchmark::kMillisecond);
BENCHMARK(TwoFileTimes)->Unit(benchmark::kMillisecond);

}  // namespace paginox::bench
