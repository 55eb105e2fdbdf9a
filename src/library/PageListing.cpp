// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/PageListing.h"

#include <QDateTime>
#include <QFileInfo>
#include <algorithm>

#include "core/AnsiText.h"
#include "model/PageClass.h"
#include "persist/FileIO_Page.h"

namespace paginox {

namespace {
QString FromCp1252(const std::string& text) {
    return QString::fromStdString(Cp1252ToUtf8(text));
}
}  // namespace

PageFacts ReadPageFacts(const std::string& path) {
    PageFacts facts;
    // The first format alone, quietly, as the library reads its pages.
    if (auto page = ReadPage(path, 1, false)) {
        facts.Title = page->Title();
        facts.Description = page->Description();
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
    QString name = QString::fromStdString(file.substr(0, file.size() - 4));
    return name.contains(filter, Qt::CaseInsensitive) ||
           FromCp1252(facts.Title).contains(filter, Qt::CaseInsensitive) ||
           FromCp1252(facts.Description).contains(filter, Qt::CaseInsensitive);
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
