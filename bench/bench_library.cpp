// SPDX-License-Identifier: GPL-3.0-or-later
// The page library's catalogue of 1,000 pages: loaded, with the folder scanned for pages
// nobody filed, against the bare listing of the folder it cannot do without.

#include <benchmark/benchmark.h>

#include <filesystem>

#include "BenchWorld.h"
#include "library/PageCatalog.h"
#include "persist/Folders.h"

namespace paginox::bench {

namespace {

std::string PagesFolder() {
    World();
    return AppFolders().Path(kPagesFolder);
}

void CatalogueLoad(benchmark::State& state) {
    const std::string folder = PagesFolder();
    PageCatalog::Load(folder);  // the first load imports and saves: measured warm
    for (auto _ : state) {
        PageCatalog catalog = PageCatalog::Load(folder);
        if (catalog.Categories().front().Pages.size() < size_t(kPageFiles)) std::abort();
        benchmark::DoNotOptimize(catalog);
    }
    state.SetItemsProcessed(state.iterations() * kPageFiles);
}

void FolderListing(benchmark::State& state) {
    const std::string folder = PagesFolder();
    for (auto _ : state) {
        size_t pages = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            pages += entry.path().extension() == ".pag" && entry.is_regular_file();
        }
        benchmark::DoNotOptimize(pages);
    }
    state.SetItemsProcessed(state.iterations() * kPageFiles);
}

}  // namespace

BENCHMARK(CatalogueLoad)->Unit(benchmark::kMillisecond);
BENCHMARK(FolderListing)->Unit(benchmark::kMillisecond);

}  // namespace paginox::bench
