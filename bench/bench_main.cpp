// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the benchmarks, then prints each figure beside its baseline of the same run, with the
// ratio and the target where there is one.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "BenchWorld.h"

namespace {

// Keeps the mean wall-clock and processor time of one round of each benchmark.
class SummaryReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.iterations > 0 && run.run_type == Run::RT_Iteration) {
                double n = double(run.iterations);
                wall[run.run_name.function_name] = run.real_accumulated_time / n;
                cpu[run.run_name.function_name] = run.cpu_accumulated_time / n;
                for (const auto& [name, counter] : run.counters) counters[name] = counter.value;
            }
        }
    }
    std::map<std::string, double> wall;
    std::map<std::string, double> cpu;
    std::map<std::string, double> counters;  // by name, from whichever run set them
};

struct Figure {
    const char* what;
    const char* name;
    const char* baseline;
    double items;  // per round, to give the time of one
    const char* unit;
    double unitScale;
    double maxRatio;  // 0: none
    double maxEach;   // 0: none, else in unit
};

}  // namespace

int main(int argc, char** argv) {
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") &&
        !std::getenv("QT_QPA_PLATFORM")) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    }
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    paginox::bench::World();  // made before any timing

    SummaryReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    using namespace paginox::bench;
    const Figure figures[] = {
        {"read a page file (10 objects)", "PageFileRead", "PlainFileRead", kPageFiles, "us", 1e6,
         2.0, 0},
        {"save a page file (10 objects)", "PageFileSave", "PlainFileWrite", kPageFiles, "us", 1e6,
         0, 0},
        {"draw 100 objects at 1920x1200", "DrawFormatFrame", "SamePrimitivesQPainterFrame", 1, "ms",
         1e3, 1.3, 8},
        {"  against a shape + a text per object", "DrawFormatFrame", "QPainterFrame", 1, "ms", 1e3,
         0, 0},
        {"make a 160x120 thumbnail, cold", "ThumbnailsCold", "ThumbnailFilesOnly", kThumbnails,
         "us", 1e6, 0, 0},
        {"ask the warm cache for a page", "ThumbnailsWarm", "TwoFileTimes", kThumbnails, "us", 1e6,
         0, 50},
        {"load the catalogue of 1,000 pages", "CatalogueLoad", "FolderListing", 1, "ms", 1e3, 0,
         50},
        {"browser's first screen, warm", "BrowserFirstScreenWarm", "PlainListFirstScreen", 1, "ms",
         1e3, 0, 300},
        {"browser: 1,000 thumbnails, cold", "BrowserThumbnailsCold", "CacheThumbnailsCold", 1, "ms",
         1e3, 0, 3000},
        {"2,000 objects: band selection", "LayoutBandSelect", "PreviewRepaint", 1, "ms", 1e3, 0,
         16},
        {"2,000 objects: snapped drag step, one", "LayoutDragStepOne", "PreviewRepaint", 1, "ms",
         1e3, 0, 16},
        {"2,000 objects: snapped drag step, all", "LayoutDragStepAll", "PreviewRepaint", 1, "ms",
         1e3, 0, 16},
        {"2,000 objects: first drag step", "LayoutDragFirstStep", "PreviewRepaint", 1, "ms", 1e3, 0,
         16},
    };
    // Wall-clock times include the disk's share of the file work, processor times leave out
    // whatever else the machine was doing; on a shared machine the load average says which to
    // trust. Targets are judged on wall-clock time.
    double load[1] = {0};
    getloadavg(load, 1);
    std::printf("\nTime of one item (wall clock | processor), load average %.2f\n", load[0]);
    std::printf("%-38s %21s %21s %15s  %s\n", "figure", "paginox", "baseline", "ratio", "target");
    for (const Figure& f : figures) {
        if (!reporter.wall.count(f.name) || !reporter.wall.count(f.baseline)) continue;
        double scale = f.unitScale / f.items;
        double each = reporter.wall[f.name] * scale;
        double baseEach = reporter.wall[f.baseline] * scale;
        double cpuEach = reporter.cpu[f.name] * scale;
        double cpuBase = reporter.cpu[f.baseline] * scale;
        double ratio = each / baseEach;
        std::string target;
        bool met = true;
        if (f.maxRatio > 0) {
            target += "ratio <= " + std::to_string(f.maxRatio).substr(0, 3);
            met = met && ratio <= f.maxRatio;
        }
        if (f.maxEach > 0) {
            if (!target.empty()) target += ", ";
            target += "< " + std::to_string(int(f.maxEach)) + " " + f.unit;
            met = met && each < f.maxEach;
        }
        if (!target.empty()) target += met ? "  met" : "  MISSED";
        std::printf("%-38s %8.2f | %8.2f %-2s %8.2f | %8.2f %-2s %5.2fx | %5.2fx  %s\n", f.what,
                    each, cpuEach, f.unit, baseEach, cpuBase, f.unit, ratio, cpuEach / cpuBase,
                    target.c_str());
    }
    const struct {
        const char* what;
        const char* counter;
        const char* unit;
        double max;
    } gauges[] = {
        {"longest event-loop gap meanwhile", "longest_gap_ms", "ms", 50},
        {"memory while browsing them", "memory_MB", "MB", 150},
        {"10,000 pages: first screen, warm", "big_first_screen_ms", "ms", 300},
        {"10,000 pages: a filter keystroke (worst)", "big_filter_worst_ms", "ms", 30},
        {"10,000 pages: all thumbnails, cold", "big_cold_s", "s", 30},
        {"10,000 pages: longest event-loop gap", "big_gap_ms", "ms", 50},
        {"10,000 pages: memory while browsing", "big_memory_MB", "MB", 200},
    };
    for (const auto& g : gauges) {
        if (!reporter.counters.count(g.counter)) continue;
        double v = reporter.counters[g.counter];
        std::printf("%-38s %8.2f %-2s %59s < %d %s  %s\n", g.what, v, g.unit, "", int(g.max),
                    g.unit, v < g.max ? "met" : "MISSED");
    }
    benchmark::Shutdown();
    return 0;
}
