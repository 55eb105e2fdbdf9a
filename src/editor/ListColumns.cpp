// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ListColumns.h"

#include <algorithm>

#include "core/NumberFormat.h"
#include "core/Rounding.h"
#include "editor/EditStep.h"
#include "model/DefinitionTables.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"

namespace paginox {

namespace {
bool IsAspectList(const PageObject& obj) {
    return obj.POClass().ObjectType() == kTypeAspectList;
}

std::vector<uint8_t> ColumnsOf(const PageObject& obj) {
    std::vector<uint8_t> columns;
    for (int16_t k = 1; k <= PageObject::kMaxColumns && obj.PL_Columns(k) != 0; ++k) {
        columns.push_back(obj.PL_Columns(k));
    }
    return columns;
}

bool FitsColumn(int16_t code) {
    return code >= 1 && code <= 255;
}
}  // namespace

ListColumns::ListColumns(const PageObject& obj)
    : object_(obj.Clone()),
      table_(IsAspectList(obj) ? Definitions().AspectList : Definitions().PointList),
      aspectList_(IsAspectList(obj)),
      chosen_(ColumnsOf(obj)) {}

bool ListColumns::TableEmpty() const {
    return table_.Entries.empty();
}

std::vector<ListColumns::Entry> ListColumns::Available() const {
    std::vector<Entry> entries;
    for (const ColumnDef& def : table_.Entries) {
        if (!FitsColumn(def.First)) continue;
        auto code = static_cast<uint8_t>(def.First);
        bool taken = std::find(chosen_.begin(), chosen_.end(), code) != chosen_.end();
        bool listed = std::any_of(entries.begin(), entries.end(),
                                  [&](const Entry& e) { return e.Code == code; });
        if (!taken && !listed) entries.push_back({code, def.Label});
    }
    return entries;
}

std::string ListColumns::Label(uint8_t code) const {
    for (const ColumnDef& def : table_.Entries) {
        if (def.First == code) return def.Label;
    }
    return "Column " + FormatZero(code);
}

bool ListColumns::Full() const {
    return chosen_.size() >= size_t(PageObject::kMaxColumns);
}

bool ListColumns::Add(uint8_t code, size_t at) {
    if (Full() || code == 0 || std::find(chosen_.begin(), chosen_.end(), code) != chosen_.end()) {
        return false;
    }
    chosen_.insert(chosen_.begin() + std::min(at, chosen_.size()), code);
    return true;
}

void ListColumns::Remove(size_t index) {
    if (index < chosen_.size()) chosen_.erase(chosen_.begin() + index);
}

void ListColumns::Move(size_t from, size_t to) {
    if (from >= chosen_.size()) return;
    uint8_t code = chosen_[from];
    chosen_.erase(chosen_.begin() + from);
    chosen_.insert(chosen_.begin() + std::min(to, chosen_.size()), code);
}

void ListColumns::Defaults() {
    chosen_ = ColumnsOf(*object_->POClass().CreateInstance(nullptr));
}

uint8_t ListColumns::CodeAt(int16_t k) const {
    return size_t(k) <= chosen_.size() ? chosen_[size_t(k - 1)] : 0;
}

int32_t ListColumns::NeededWidth(const PageFormat& format) const {
    std::shared_ptr<PageObject> obj = object_->Clone();
    for (int16_t k = 1; k <= PageObject::kMaxColumns; ++k) obj->SetPL_Columns(k, CodeAt(k));
    return aspectList_ ? obj->GetALBoxWidth(format) : obj->GetPLBoxWidth(format);
}

int32_t ListColumns::BoxWidth(const PageFormat& format) const {
    // Widths are fractions of the printable area, not of the whole page.
    return ToInt32(format.PrintablePixels(1) * object_->Length(1));
}

bool ListColumns::Apply(EditStep& step, int16_t formatIndex, int16_t objectIndex) const {
    bool changed = false;
    for (int16_t k = 1; k <= PageObject::kMaxColumns; ++k) {
        changed |= step.Set(kPropPLColumns, CodeAt(k), formatIndex, objectIndex, k);
    }
    return changed;
}

}  // namespace paginox
