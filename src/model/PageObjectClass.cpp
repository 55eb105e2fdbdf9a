// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PageObjectClass.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/Checked.h"
#include "core/Rounding.h"
#include "core/RuntimeError.h"
#include "model/DefinitionTables.h"
#include "model/ObjectSizing.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox {

namespace {
// Fills the object's columns 1, 2, ... with codes in turn. A code that does not fit a byte
// is skipped like any other bad item; nothing goes past column 64.
class ColumnFiller {
  public:
    explicit ColumnFiller(PageObject& obj) : obj_(obj) {}
    bool Full() const { return filled_ >= PageObject::kMaxColumns; }
    int16_t Filled() const { return filled_; }
    void Add(int32_t code) {
        if (Full() || code < 0 || code > 255) return;
        ++filled_;
        obj_.SetPL_Columns(filled_, static_cast<uint8_t>(code));
    }

  private:
    PageObject& obj_;
    int16_t filled_ = 0;
};

// Every switched-on entry of a table, in table order.
void FillFromSwitchedOn(PageObject& obj, const ColumnListTable& table) {
    ColumnFiller columns(obj);
    for (const ColumnDef& def : table.Entries) {
        if (columns.Full()) break;
        if (def.DefaultFlag != 0) columns.Add(def.First);
    }
}

// A default column list file: positions in the point table, one item at a time. Returns
// false when it gave no column, so that the caller falls back to the switched-on entries.
bool FillFromListFile(PageObject& obj, const std::string& fileName) {
    const DefinitionTables& tables = Definitions();
    if (!tables.ReadNumberList) return false;
    std::vector<int32_t> positions;
    try {
        positions = tables.ReadNumberList(tables.DefinitionsFolder + fileName);
    } catch (const RuntimeError&) {
        return false;
    }
    ColumnFiller columns(obj);
    for (int32_t position : positions) {
        if (columns.Full()) break;
        try {
            columns.Add(tables.PointList.Entry(CheckedNarrow<int16_t>(position)).First);
        } catch (const RuntimeError&) {
            // A position outside the table is ignored; the next item may still be good.
        }
    }
    return columns.Filled() > 0;
}

const char* ListFileOf(int16_t objectType) {
    switch (objectType) {
        case kTypeAsteroidList:
            return "astrlist.dfn";
        case kTypeArabicPartList:
            return "partlist.dfn";
        case kTypeFixedStarList:
            return "starlist.dfn";
        case kTypeExtraRingList:
            return "ringlist.dfn";
        default:
            return nullptr;
    }
}

void FillDefaultColumns(PageObject& obj, int16_t objectType) {
    const DefinitionTables& tables = Definitions();
    switch (objectType) {
        case kTypeAsteroidList:
        case kTypeArabicPartList:
        case kTypeFixedStarList:
        case kTypeExtraRingList:
            if (!FillFromListFile(obj, ListFileOf(objectType))) {
                FillFromSwitchedOn(obj, tables.PointList);
            }
            break;
        case kTypePointList:
        case kTypePointTableList:
            FillFromSwitchedOn(obj, tables.PointList);
            break;
        case kTypeAspectList:
            FillFromSwitchedOn(obj, tables.AspectList);
            break;
        case kTypeOneColumn: {
            // Starts with one column, the first point that new lists show: the code of the
            // first switched-on point-table entry that fits a byte (none: left 0).
            ColumnFiller columns(obj);
            for (const ColumnDef& def : tables.PointList.Entries) {
                if (def.DefaultFlag != 0 && def.First >= 0 && def.First <= 255) {
                    columns.Add(def.First);
                    break;
                }
            }
            break;
        }
        default:
            break;
    }
}
}  // namespace

std::shared_ptr<PageObject> PageObjectClass::CreateInstance(const PageFormat* format) const {
    auto obj = std::make_shared<PageObject>();
    obj->SetObjectClassID(classID_);
    obj->SetNumCharts(numCharts_);
    for (int16_t c = 1; c <= numCharts_; ++c) obj->SetChartNum(c, c);
    obj->SetTextLines(defaultTextLines_);
    obj->SetYRatio(defaultYRatio_);
    FillDefaultColumns(*obj, objectType_);
    // Sized before the blocks are set below, so a list starts with one block's proportions.
    if (HasFlexibleListColumns()) obj->SetYRatio(obj->ListBoxYRatio(*this));
    if (defaultHorizontalBlocks_ > 1) obj->SetHorzBlocks(defaultHorizontalBlocks_);
    obj->SetFrameType(defaultFrameType_);
    if (format) {
        PageFraction size = DefaultObjectSize(*format, obj->YRatio());
        obj->SetLength(1, size.Width);
        obj->SetLength(2, size.Height);
    }
    // Centred on the page, a wheel too: Origin is every shape's top-left corner.
    for (int16_t k = 1; k <= 2; ++k) obj->SetOrigin(k, (1 - obj->Length(k)) * 0.5f);
    return obj;
}

int16_t PageObjectClass::DefaultBlockLines() const {
    double blocks = std::max<int16_t>(defaultHorizontalBlocks_, 1);
    return ToInt16(defaultFixedLines_ + 1 + Int(defaultTextLines_ / blocks - 0.01));
}

bool PageObjectClass::HasFlexibleListColumns() const {
    switch (objectType_) {
        case kTypePointList:
        case kTypeAspectList:
        case kTypeAsteroidList:
        case kTypeArabicPartList:
        case kTypeFixedStarList:
        case kTypePointTableList:
        case kTypeExtraRingList:
            return true;
        default:
            return false;
    }
}

RectClass PageObjectClass::GetObjectRect(const RectClass& frame, const PageObject* obj) const {
    // The largest rectangle with the object's height-to-width ratio (the class default when
    // there is no object) inside 80% of the frame, centred in it. A circle is square; no
    // ratio takes the frame's own proportions.
    constexpr double kShare = 0.8;
    double ratio = shape_ == kShapeCircle ? 1.0 : (obj ? obj->YRatio() : defaultYRatio_);
    double width = kShare * frame.Width();
    double height = kShare * frame.Height();
    if (ratio > 0) {
        width = std::min(width, height / ratio);
        height = width * ratio;
    }
    int32_t w = ToInt32(width);
    int32_t h = ToInt32(height);
    RectClass r;
    r.InitTo(CheckedAdd(frame.Left(), CheckedSub(frame.Width(), w) / 2),
             CheckedAdd(frame.Top(), CheckedSub(frame.Height(), h) / 2), w, h);
    return r;
}

}  // namespace paginox
