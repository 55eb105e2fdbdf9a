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
    bool Read = false;     // false: not read yet, only the name is known
    QString Searched;      // the name, title and description, case folded, for the filter
    int64_t Modified = 0;  // seconds since 1970
    int64_t Added = 0;     // when the file came to be (its birth, else its last change)
};
// The facts of a file as far as they are known (never blocking on a read).
using FactsOf = std::function<const PageFacts&(const std::string& file)>;

enum class PageOrder { Filed, Name, Modified, Added };

// The facts of a page file at path (read quietly; its name alone when it cannot be read).
PageFacts ReadPageFacts(const std::string& path);
// What is known of page file before it is read: its name.
PageFacts NameOnlyFacts(const std::string& file);

// Whether page file (UTF-8) with those facts holds filter (no letter case): its name, or its
// title or description once read; an empty filter holds everything.
bool PageMatches(const std::string& file, const PageFacts& facts, const QString& filter);

// The pages of category, or of every category when category is empty (each page once), that
// match filter, in order: filed (the category's own order), by name, newest changed first,
// or newest added first.
std::vector<std::string> ListPages(const PageCatalog& catalog, const std::string& category,
                                   const QString& filter, PageOrder order, const FactsOf& facts);

// How many of the category's pages match filter.
int CountMatches(const CatalogCategory& category, const QString& filter, const FactsOf& facts);

}  // namespace paginox
