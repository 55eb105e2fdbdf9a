// Runs the benchmarks, then prints each figure beside its baseline of the same run, with the
// ratio and the target where there is one.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "BenchWorld.h"

namespace {

// Keeps the mean wall time of one round of each benchmark as it reports it.
class SummaryReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.iterations > 0 && run.run_type == Run::RT_Iteration) {
                seconds[run.run_name.function_name] = run.real_accumulated_time / run.iterations;
            }
        }
    }
    std::map<std::string, double> seconds;
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
    QGuiApplication app(argc, argv);
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
    };
    // Wall-clock times: they include the disk's share of the file work. On a shared machine
    // the load average says how far to trust them.
    double load[1] = {0};
    getloadavg(load, 1);
    std::printf("\nWall-clock time of one item, load average %.2f\n", load[0]);
    std::printf("%-38s %12s %12s %7s  %s\n", "figure", "paginox", "baseline", "ratio", "target");
    for (const Figure& f : figures) {
        auto ours = reporter.seconds.find(f.name);
        auto base = reporter.seconds.find(f.baseline);
        if (ours == reporter.seconds.end() || base == reporter.seconds.end()) continue;
        double each = ours->second / f.items * f.unitScale;
        double baseEach = base->second / f.items * f.unitScale;
        double ratio = ours->second / base->second;
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
        std::printf("%-38s %9.2f %-2s %9.2f %-2s %6.2fx  %s\n", f.what, each, f.unit, baseEach,
                    f.unit, ratio, target.c_str());
    }
    benchmark::Shutdown();
    return 0;
}
