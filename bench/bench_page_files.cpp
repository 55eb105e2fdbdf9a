// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and saving page files, against reading and writing the same bytes with plain calls.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

#include "BenchWorld.h"
#include "model/PageClass.h"
#include "persist/FileIO_Page.h"

namespace paginox::bench {

namespace {

std::string PlainRead(const std::string& path) {
    std::string bytes;
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) std::abort();
    char buffer[8192];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, f)) > 0;) bytes.append(buffer, n);
    std::fclose(f);
    return bytes;
}

void PlainWrite(const std::string& path, const std::string& bytes) {
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f || std::fwrite(bytes.data(), 1, bytes.size(), f) != bytes.size()) std::abort();
    std::fclose(f);
}

void PageFileRead(benchmark::State& state) {
    BenchWorld& w = World();
    for (auto _ : state) {
        for (const std::string& file : w.pageFiles) {
            auto page = ReadPage(file, -1, false);
            if (!page) std::abort();
            benchmark::DoNotOptimize(page);
        }
    }
    state.SetItemsProcessed(state.iterations() * kPageFiles);
}

void PlainFileRead(benchmark::State& state) {
    BenchWorld& w = World();
    for (auto _ : state) {
        for (const std::string& file : w.pageFiles) {
            std::string bytes = PlainRead(file);
            benchmark::DoNotOptimize(bytes);
        }
    }
    state.SetItemsProcessed(state.iterations() * kPageFiles);
}

void PageFileSave(benchmark::State& state) {
    BenchWorld& w = World();
    std::vector<std::shared_ptr<PageClass>> pages;
    for (const std::string& file : w.pageFiles) pages.push_back(ReadPage(file, -1, false));
    for (auto _ : state) {
        for (size_t i = 0; i < pages.size(); ++i) {
            if (!SavePage(w.copyFiles[i], *pages[i])) std::abort();
        }
    }
    state.SetItemsProcessed(state.iterations() * kPageFiles);
}

void PlainFileWrite(benchmark::State& state) {
    BenchWorld& w = World();
    std::vector<std::string> bytes;
    for (const std::string& file : w.pageFiles) bytes.push_back(PlainRead(file));
    for (auto _ : state) {
        for (size_t i = 0; i < bytes.size(); ++i) PlainWrite(w.copyFiles[i], bytes[i]);
    }
    state.SetItemsProcessed(state.iterations() * kPageFiles);
}

}  // namespace

BENCHMARK(PageFileRead)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainFileRead)->Unit(benchmark::kMillisecond);
BENCHMARK(PageFileSave)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainFileWrite)->Unit(benchmark::kMillisecond);

}  // namespace paginox::bench
