// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/IntTable.h"

#include "core/Checked.h"

namespace paginox {

void IntTable::SetCount(int16_t n) {
    if (n > Allocation()) {
        int16_t size = n;
        SetAllocation(size);
    }
    count_ = n;
}

int16_t IntTable::Value(int16_t position) const {
    CheckIndex(position, 1, Allocation());
    return values_[position - 1];
}

void IntTable::SetValue(int16_t position, int16_t value) {
    CheckIndex(position, 1, Allocation());
    values_[position - 1] = value;
}

void IntTable::Append(int16_t value) {
    SetCount(CheckedAdd<int16_t>(count_, 1));
    SetValue(count_, value);
}

void IntTable::Insert(int16_t position, int16_t value) {
    if (position > count_) {
        Append(value);
        return;
    }
    // A bad position fails while shifting, after the count has grown; that is kept.
    SetCount(CheckedAdd<int16_t>(count_, 1));
    for (int i = count_; i >= position + 1; --i) SetValue(int16_t(i), Value(int16_t(i - 1)));
    SetValue(position, value);
}

void IntTable::Delete(int16_t position) {
    for (int i = position + 1; i <= count_; ++i) SetValue(int16_t(i - 1), Value(int16_t(i)));
    SetCount(CheckedSub<int16_t>(count_, 1));
}

int16_t IntTable::Lookup(int16_t value) const {
    for (int p = 1; p <= count_; ++p) {
        if (Value(int16_t(p)) == value) return int16_t(p);
    }
    return 0;
}

void IntTable::DeleteValue(int16_t value, bool all) {
    if (!all) {
        int16_t p = Lookup(value);
        if (p > 0) Delete(p);
        return;
    }
    int16_t kept = 0;
    for (int i = 1; i <= count_; ++i) {
        if (Value(int16_t(i)) != value) {
            ++kept;
            if (kept < i) SetValue(kept, Value(int16_t(i)));
        }
    }
    SetCount(kept);
}

void IntTable::SetAllocation(int16_t& n) {
    if (n < 1) n = 1;
    values_.resize(size_t(n));  // kept values stay, new slots are zero
}

}  // namespace paginox
