// SPDX-License-Identifier: GPL-3.0-or-later
// The page browser on a library of 10,000 pages (the 1,000 of the bench world, ten times over,
// in a Pages folder of their own): the first screen of warm thumbnails, one filter keystroke,
// every thumbnail made cold with the longest wait of the event loop meanwhile, and the
// process's memory while browsing them. Each is a figure against its target.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>

#include "BenchWorld.h"
#include "library/ImageCache.h"
#include "persist/Folders.h"
#include "persist/SpecialFolders.h"
#include "ui/PageBrowser.h"

namespace paginox::bench {

namespace {

namespace fs = std::filesystem;
constexpr int kBigLibrary = 10000;

// Every special folder under the big library's own folder.
class BigFolders : public SpecialFolders {
  public:
    std::string Folder(int32_t id) const override {
        return Root() + "special" + std::to_string(id);
    }
    std::string TemporaryFolder() const override { return Root() + "temp/"; }
    std::string WindowsFolder() const override { return Root() + "windows"; }
    std::string ProgramFolder() const override { return Root() + "program"; }
    static std::string Root() { return (World().root / "big").string() + "/"; }
};

// The folder table pointed at the big library while it lives; the bench world's afterwards.
class BigLibrary {
  public:
    BigLibrary() : saved_(AppFolders()) {
        static BigFolders folders;
        AppFolders().FindFolders(0, folders, '/');
        PagesFolder();
    }
    ~BigLibrary() { AppFolders() = saved_; }

    // Made once: the bench world's library pages copied ten times over.
    static const std::string& PagesFolder() {
        static const std::string folder = [] {
            std::string pages = AppFolders().Path(kPagesFolder);
            fs::create_directories(pages);
            fs::create_directories(BigFolders::Root() + "temp");
            for (int i = 0; i < kBigLibrary; ++i) {
                fs::copy_file(World().library[size_t(i) % World().library.size()],
                              pages + "big" + std::to_string(i) + ".pag",
                              fs::copy_options::overwrite_existing);
            }
            return pages;
        }();
        return folder;
    }

  private:
    Folders saved_;
};

void WarmAll(ImageCache& cache) {
    cache.PrepareForCaching();
    for (const auto& entry : fs::directory_iterator(BigLibrary::PagesFolder())) {
        std::string page = entry.path().string();
        if (!cache.Contains(page, PageBrowser::kThumbWidth, PageBrowser::kThumbHeight))
            cache.CreateCache(page, PageBrowser::kThumbWidth, PageBrowser::kThumbHeight);
    }
}

void BigFirstScreenWarm(benchmark::State& state) {
    BigLibrary big;
    ImageCache cache;
    WarmAll(cache);
    QElapsedTimer clock;
    double worst = 0;
    for (auto _ : state) {
        clock.start();
        PageBrowser browser("");
        browser.resize(1000, 700);
        browser.show();
        RunLoopUntil([&] { return browser.VisibleThumbnailsShown(); });
        worst = std::max(worst, clock.nsecsElapsed() / 1e6);
    }
    state.counters["big_first_screen_ms"] = worst;
}

void BigFilterKeystroke(benchmark::State& state) {
    BigLibrary big;
    PageBrowser browser("");
    browser.resize(1000, 700);
    browser.show();
    QApplication::processEvents();
    const QString typed[] = {"b", "bi", "big", "big1", "big12", "big1", "big", "bi", "b", ""};
    size_t k = 0;
    QElapsedTimer clock;
    double longest = 0;
    for (auto _ : state) {
        clock.start();
        browser.Filter()->setText(typed[k++ % std::size(typed)]);
        QApplication::processEvents();
        longest = std::max(longest, clock.nsecsElapsed() / 1e6);
    }
    state.counters["big_filter_worst_ms"] = longest;
}

void BigThumbnailsCold(benchmark::State& state) {
    BigLibrary big;
    ImageCache cache;
    cache.PrepareForCaching();
    double gap = 0, memory = 0, seconds = 0;
    QElapsedTimer clock;
    for (auto _ : state) {
        state.PauseTiming();
        cache.ClearAllCaches();
        state.ResumeTiming();
        clock.start();
        PageBrowser browser("");
        browser.resize(1000, 700);
        browser.show();
        // Browsing meanwhile: the view scrolls down a screen at a time.
        QScrollBar* bar = browser.Pages()->verticalScrollBar();
        gap = std::max(gap, RunLoopUntil([&] { return browser.ThumbnailsMade() >= kBigLibrary; },
                                         [&] {
                                             bar->setValue(bar->value() + bar->pageStep());
                                             memory = std::max(memory, ResidentMegabytes());
                                         }));
        seconds = std::max(seconds, clock.nsecsElapsed() / 1e9);
        memory = std::max(memory, ResidentMegabytes());
    }
    state.counters["big_cold_s"] = seconds;
    state.counters["big_gap_ms"] = gap;
    state.counters["big_memory_MB"] = memory;
}

}  // namespace

BENCHMARK(BigFirstScreenWarm)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(BigFilterKeystroke)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(BigThumbnailsCold)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(1);

}  // namespace paginox::bench
