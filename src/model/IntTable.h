// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A growable 1-based list of 16-bit integers for the page catalogue and browser. Storage
// grows exactly to what is asked for; positions are checked against the storage, not the
// count, and values may repeat.

#include <cstdint>
#include <vector>

namespace paginox {

class IntTable {
  public:
    int16_t Count() const { return count_; }
    // Grows the storage when n is beyond it; lowering the count keeps the values behind it.
    void SetCount(int16_t n);
    int16_t Allocation() const { return static_cast<int16_t>(values_.size()); }

    // Position 1..Allocation, else a subscript error.
    int16_t Value(int16_t position) const;
    void SetValue(int16_t position, int16_t value);

    void Append(int16_t value);
    // Before the value now at position; a position past the end appends, without a gap.
    void Insert(int16_t position, int16_t value);
    // The position is not checked against the count: past the end it still lowers the count.
    void Delete(int16_t position);
    int16_t Lookup(int16_t value) const;  // first position holding value, or 0
    void DeleteValue(int16_t value, bool all = false);

    // n below 1 becomes 1, and the caller's variable sees it. Count is left alone.
    void SetAllocation(int16_t& n);

  private:
    int16_t count_ = 0;
    std::vector<int16_t> values_;  // position p is values_[p - 1]
};

}  // namespace paginox
