// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ObjectSizing.h"

#include <algorithm>

#include "core/AnsiText.h"
#include "core/Checked.h"
#include "model/DefinitionTables.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox {

double LinePixels(float fontSize, int16_t logPixels) {
    return double(fontSize) * logPixels / 72.0 / kLineFill;
}

double CharPixels(float fontSize, int16_t logPixels) {
    return double(fontSize) * logPixels / 72.0 * kCharWidthPerSize;
}

namespace {
int32_t ColumnChars(const ColumnListTable& table, uint8_t code) {
    for (const ColumnDef& def : table.Entries) {
        if (def.First == code) {
            return std::max<int32_t>(static_cast<int32_t>(Trim(def.Label).size()), 3) + 1;
        }
    }
    return kUnknownColumnChars;
}
}  // namespace

int32_t ListBlockChars(const PageObject& obj, bool aspectList) {
    const ColumnListTable& table = aspectList ? Definitions().AspectList : Definitions().PointList;
    int32_t chars = aspectList ? kAspectNameChars : kPointNameChars;
    for (int16_t k = 1; k <= PageObject::kMaxColumns && obj.PL_Columns(k) != 0; ++k) {
        chars += ColumnChars(table, obj.PL_Columns(k));
    }
    return chars;
}

PageFraction DefaultObjectSize(const PageFormat& format, float yRatio) {
    constexpr double kShare = 0.4;
    double x = format.XPixels();
    double y = format.YPixels();
    if (yRatio <= 0 || x <= 0 || y <= 0) return {0.4f, 0.4f};
    double width = std::min(kShare * x, kShare * y / yRatio);
    double height = width * yRatio;
    return {static_cast<float>(width / x), static_cast<float>(height / y)};
}

}  // namespace paginox
