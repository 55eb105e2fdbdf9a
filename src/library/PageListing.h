// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the page browser lists, decided without a window: the pages of one category or of all,
// those whose name, title or description holds the filter text, in the order asked for, and
// how many pages of each category the filter leaves.

#include <QString>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "library/PageCatalog.h"

namespace paginox {

// What is known of a page file beyond its name, read once.
struct PageFacts {
    std::string Title;        // Windows-1252, as the page keeps it
    std::string Description;  // the same
    int64_t Modified = 0;     // seconds since 1970
    int64_t Added = 0;        // when the file came to be (its birth, else its last change)
};
using FactsOf = std::function<const PageFacts&(const std::string& file)>;

enum class PageOrder { Filed, Name, Modified, Added };

// The facts of a page file at path (read quietly; empty texts when it cannot be read).
PageFacts ReadPageFacts(const std::string& path);

// Whether page file (UTF-8) with those facts holds filter (no letter case); an empty filter
// holds everything.
bool PageMatches(const std::string& file, const PageFacts& facts, const QString& filter);

// The pages of category, or of every category when category is empty (each page once), that
// match filter, in order: filed (the category's own order), by name, newest changed first,
// or newest added first.
std::vector<std::string> ListPages(const PageCatalog& catalog, const std::string& category,
                                   const QString& filter, PageOrder order, const FactsOf& facts);

// How many of the category's pages match filter.
int CountMatches(const CatalogCategory& category, const QString& filter, const FactsOf& facts);

}  // namespace paginox
