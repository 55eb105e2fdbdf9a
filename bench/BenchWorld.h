// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the benchmarks work on, made once per run in a folder of its own: a small object class
// catalogue, 1,000 page files of 10 objects, a library of 1,000 pages of 1 to 4 formats and 5
// to 40 objects in the Pages folder, a format of 100 mixed objects, and a folder table whose
// folders all lie inside that folder.

#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace paginox {
class PageFormat;
}

namespace paginox::bench {

inline constexpr int kPageFiles = 1000;
inline constexpr int kObjectsPerPage = 10;
inline constexpr int kThumbnails = 500;
inline constexpr int kDrawnObjects = 100;
inline constexpr int kDrawWidth = 1920;
inline constexpr int kDrawHeight = 1200;

struct BenchWorld {
    std::filesystem::path root;
    std::vector<std::string> pageFiles;  // kPageFiles saved pages
    std::vector<std::string> copyFiles;  // where the benchmarks write them back
    std::vector<std::string> library;    // kPageFiles pages of the Pages folder
    std::shared_ptr<PageFormat> mixed;   // kDrawnObjects objects of every shape
    int16_t mixedCharts = 2;             // the page's chart count: chart labels are drawn
};

// Made on first use; the folder is removed at exit.
BenchWorld& World();

// count objects of the catalogue's classes in turn, on a grid of cells across a format of
// kDrawWidth by kDrawHeight pixels.
std::shared_ptr<PageFormat> MixedFormat(int count, std::mt19937& random);

// Runs the event loop until done() says so, and tells the longest time in milliseconds it went
// unserved; every 200 rounds measure() runs as well, when given.
double RunLoopUntil(const std::function<bool()>& done, const std::function<void()>& measure = {});
// The process's memory now, in MB, as the system counts it.
double ResidentMegabytes();

}  // namespace paginox::bench
