// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/LayoutTransfer.h"

#include <memory>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox {

namespace {

bool HasFormat(const PageClass& page, int16_t k) {
    return k >= 1 && k <= page.NumFormats() && page.GetFormat(k);
}

bool SameObjects(const PageFormat& a, const PageFormat& b) {
    if (a.NumObjects() != b.NumObjects()) return false;
    for (int16_t k = 1; k <= a.NumObjects(); ++k) {
        if (!a.Object(k) || !b.Object(k) || !a.Object(k)->IsEqual(*b.Object(k))) return false;
    }
    return true;
}

}  // namespace

std::vector<int16_t> CopyObjectsToAllSizes(PageClass& page, int16_t from,
                                           const std::vector<int16_t>& objects) {
    std::vector<int16_t> changed;
    if (!HasFormat(page, from) || objects.empty()) return changed;
    const PageFormat& source = *page.GetFormat(from);
    for (int16_t to = 1; to <= page.NumFormats(); ++to) {
        if (to == from || !HasFormat(page, to)) continue;
        PageFormat& target = *page.GetFormat(to);
        for (int16_t k : objects) {
            if (auto obj = source.Object(k)) target.AddObject(obj->Clone());
        }
        changed.push_back(to);
    }
    return changed;
}

bool CopyLayout(PageClass& page, int16_t to, int16_t from) {
    if (to == from || !HasFormat(page, to) || !HasFormat(page, from)) return false;
    const PageFormat& source = *page.GetFormat(from);
    PageFormat& target = *page.GetFormat(to);
    if (SameObjects(source, target)) return false;
    while (target.NumObjects() > 0) target.DeleteObject(target.NumObjects());
    for (int16_t k = 1; k <= source.NumObjects(); ++k) {
        if (auto obj = source.Object(k)) target.AddObject(obj->Clone());
    }
    return true;
}

}  // namespace paginox
