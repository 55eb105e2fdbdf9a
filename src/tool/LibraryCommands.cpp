// SPDX-License-Identifier: GPL-3.0-or-later
// The page library from the command line: the catalogue as the browser shows it, and its
// thumbnails made ahead of time.

#include <optional>
#include <ostream>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "library/ImageCache.h"
#include "library/PageCatalog.h"
#include "model/PageClass.h"
#include "persist/FileIO_Page.h"
#include "persist/Folders.h"
#include "persist/JsonWriter.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {

// The catalogue as the browser would show it, read only: the tool never writes it. A damaged
// one is reported the way the browser tells it.
PageCatalog LoadToolCatalog() {
    InitToolFolders();
    PageCatalog catalog = PageCatalog::Load(AppFolders().Path(kPagesFolder), false);
    if (!catalog.Problem().empty()) ShowMessage(catalog.Problem(), "Page Browser");
    return catalog;
}

void WritePage(JsonWriter& json, const PageCatalog& catalog, const std::string& file) {
    const std::string path = catalog.PathOf(file);
    // The first format alone, quietly, as the browser reads pages.
    auto page = ReadPage(path, 1, false);
    json.BeginObject();
    json.Key("File").Utf8(file);
    json.Key("Path").Utf8(path);
    json.Key("Title").Ansi(page ? page->Title() : std::string());
    json.Key("Description").Ansi(page ? page->Description() : std::string());
    json.Key("Formats");
    if (page) {
        json.Int(page->NumFormats());
    } else {
        json.Null();
    }
    json.EndObject();
}

}  // namespace

int CommandLibrary(const ToolOptions& options, std::ostream& out) {
    if (!options.args.empty()) throw UsageError{"library takes no arguments"};
    PageCatalog catalog = LoadToolCatalog();
    JsonWriter json;
    json.BeginArray();
    for (const CatalogCategory& category : catalog.Categories()) {
        json.BeginObject();
        json.Key("Category").Utf8(category.Name);
        json.Key("Pages").BeginArray();
        for (const std::string& file : category.Pages) WritePage(json, catalog, file);
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
    out << json.Text();
    return kExitOk;
}

int CommandThumbnails(const ToolOptions& options, std::ostream& out) {
    std::vector<std::string> args = options.args;
    std::optional<std::string> size = TakeOption(args, "--size");
    bool clear = std::erase(args, "--clear") > 0;
    if (!args.empty())
        throw UsageError{"thumbnails takes [--size WxH] (default 160x120) or --clear"};
    auto [width, height] = size ? ImageSizeArgument(*size, "--size", 4096) : std::pair(160, 120);
    if (clear) {
        ImageCache cache;
        InitToolFolders();
        cache.ClearAllCaches();
        out << "The thumbnail cache " << cache.CacheDir() << " was emptied.\n";
        return kExitOk;
    }
    LoadToolDefinitions(options);
    PageCatalog catalog = LoadToolCatalog();
    EnsureGuiApplication();
    ImageCache cache;
    if (!cache.PrepareForCaching()) {
        ShowMessage(
            "The thumbnail folder " + Utf8ToCp1252(cache.CacheDir()) + " could not be made.",
            "paginox-tool", MsgIcon::Critical);
        return kExitFailure;
    }
    std::vector<std::string> pages;
    for (const CatalogCategory& category : catalog.Categories()) {
        for (const std::string& file : category.Pages) pages.push_back(catalog.PathOf(file));
    }
    int removed = cache.RemoveOrphans(pages, width, height);
    int made = 0, fresh = 0, failed = 0;
    for (size_t i = 0; i < pages.size(); ++i) {
        const std::string& path = pages[i];
        if (cache.Contains(path, width, height)) {
            ++fresh;
            continue;
        }
        bool ok = cache.CreateCache(path, width, height);
        ++(ok ? made : failed);
        ShowMessage("[" + std::to_string(i + 1) + "/" + std::to_string(pages.size()) + "] " +
                        Utf8ToCp1252(path) + (ok ? "" : " could not be drawn"),
                    "Thumbnail");
    }
    out << made << " made, " << fresh << " already fresh";
    if (failed > 0) out << ", " << failed << " could not be drawn";
    if (removed > 0) out << ", " << removed << " of pages no longer there removed";
    out << '\n';
    return failed > 0 ? kExitFailure : kExitOk;
}

}  // namespace paginox
