// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Objects as they travel on the clipboard between page sizes, pages and running editors: a
// signature, the object count (16-bit) and each object's page-file record, so that a paste is
// exact to the last bit.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace paginox {

class PageObject;

inline constexpr const char* kObjectsMimeType = "application/x-paginox-objects";

std::string CopiedObjectsBytes(const std::vector<std::shared_ptr<PageObject>>& objects);

// The objects of those bytes. Anything else, cut short or too long, or a place or size that
// is not a number, raises a RuntimeError that says the clipboard's objects cannot be read.
std::vector<std::shared_ptr<PageObject>> ReadCopiedObjects(std::string_view bytes);

}  // namespace paginox
