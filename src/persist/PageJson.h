// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Pages and objects as JSON, every field as it was read, for scripts: what `paginox-tool
// dump` prints and what a copy of objects puts on the clipboard as text.

#include <memory>
#include <string>
#include <vector>

namespace paginox {

class PageClass;
class PageObject;

std::string PageJson(const PageClass& page);
// {"NumObjects": n, "Objects": [...]}, each object as PageJson writes it.
std::string ObjectsJson(const std::vector<std::shared_ptr<PageObject>>& objects);

}  // namespace paginox
