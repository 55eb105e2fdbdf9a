// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/PageListing.h"

#include <QDateTime>
#include <QFileInfo>
#include <algorithm>
#include <filesystem>

#include "core/AnsiText.h"
#include "model/PageClass.h"
#include "persist/FileIO_Page.h"

namespace paginox {

namespace {
QString FromCp1252(const std::string& text) {
    return QString::fromStdString(Cp1252ToUtf8(text));
}
}  // namespace

PageFacts NameOnlyFacts(const std::string& file) {
    PageFacts facts;
    facts.Searched = QString::fromStdString(file.substr(0, file.size() - 4)).toCaseFolded();
    return facts;
}

PageFacts ReadPageFacts(const std::string& path) {
    PageFacts facts = NameOnlyFacts(std::filesystem::path(path).filename().string());
    facts.Read = true;
    // The first format alone, quietly, as the library reads its pages.
    if (auto page = ReadPage(path, 1, false)) {
        facts.Searched +=
            ('\n' + FromCp1252(page->Title()) + '\n' + FromCp1252(page->Description()))
                .toCaseFolded();
    }
    QFileInfo info(QString::fromStdString(path));
    facts.Modified = info.lastModified().toSecsSinceEpoch();
    QDateTime born = info.birthTime();
    facts.Added =
        born.isValid() ? born.toSecsSinceEpoch() : info.metadataChangeTime().toSecsSinceEpoch();
    return facts;
}

bool PageMatches(const std::string& file, const PageFacts& facts, const QString& filter) {
    if (filter.isEmpty()) return true;
    const QString folded = filter.toCaseFolded();
    if (!facts.Searched.isEmpty()) return facts.Searched.contains(folded);
    return NameOnlyFacts(file).Searched.contains(folded);
}

std::vector<std::string> ListPages(const PageCatalog& catalog, const std::string& category,
                                   const QString& filter, PageOrder order, const FactsOf& facts) {
    std::vector<std::string> pages;
    for (const CatalogCategory& c : catalog.Categories()) {
        if (!category.empty() && &c != catalog.Find(category)) continue;
        for (const std::string& file : c.Pages) {
            if (PageMatches(file, facts(file), filter)) pages.push_back(file);
        }
    }
    auto byName = [](const std::string& a, const std::string& b) {
        return QString::fromStdString(a).compare(QString::fromStdString(b), Qt::CaseInsensitive) <
               0;
    };
    switch (order) {
        case PageOrder::Filed:
            break;
        case PageOrder::Name:
            std::stable_sort(pages.begin(), pages.end(), byName);
            break;
        case PageOrder::Modified:
        case PageOrder::Added:
            std::stable_sort(pages.begin(), pages.end(), [&](const auto& a, const auto& b) {
                const PageFacts& fa = facts(a);
                const PageFacts& fb = facts(b);
                int64_t ta = order == PageOrder::Modified ? fa.Modified : fa.Added;
                int64_t tb = order == PageOrder::Modified ? fb.Modified : fb.Added;
                return ta != tb ? ta > tb : byName(a, b);
            });
            break;
    }
    return pages;
}

int CountMatches(const CatalogCategory& category, const QString& filter, const FactsOf& facts) {
    if (filter.isEmpty()) return static_cast<int>(category.Pages.size());
    return static_cast<int>(
        std::count_if(category.Pages.begin(), category.Pages.end(),
                      [&](const std::string& f) { return PageMatches(f, facts(f), filter); }));
}

}  // namespace paginox
