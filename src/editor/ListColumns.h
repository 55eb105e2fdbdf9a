// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The column editor without its widgets: the columns a list object shows, in order, against
// the definition table its kind of list takes them from.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace paginox {

class EditStep;
class EditorState;
class PageFormat;
class PageObject;
struct ColumnListTable;

class ListColumns {
  public:
    struct Entry {
        uint8_t Code = 0;
        std::string Label;  // Windows-1252
    };

    // The columns of obj, a list object (its class HasFlexibleListColumns): aspect lists
    // take theirs from the aspect-list table, every other list from the point-list table.
    explicit ListColumns(const PageObject& obj);

    bool TableEmpty() const;
    // The table's columns that are not chosen, in table order; codes that do not fit an
    // object's column are left out.
    std::vector<Entry> Available() const;
    const std::vector<uint8_t>& Chosen() const { return chosen_; }
    // The table's label for code, or "Column " and the code when the table has none.
    std::string Label(uint8_t code) const;
    bool Full() const;

    // Puts code in at position at (0-based; beyond the end appends). False when the list is
    // full, code is 0 or already chosen.
    bool Add(uint8_t code, size_t at);
    void Remove(size_t index);
    // Takes the column at from out and puts it back at to.
    void Move(size_t from, size_t to);
    // The columns a new object of the class starts with.
    void Defaults();

    // Pixels across the list's box needs with these columns on format, and the box's width.
    int32_t NeededWidth(const PageFormat& format) const;
    int32_t BoxWidth(const PageFormat& format) const;

    // Stores the columns into object objectIndex of format formatIndex through SetProperty,
    // as part of step. True when a column changed.
    bool Apply(EditStep& step, int16_t formatIndex, int16_t objectIndex) const;

  private:
    // Column k (1-based) as the object stores it: 0 past the last.
    uint8_t CodeAt(int16_t k) const;

    std::shared_ptr<PageObject> object_;  // a copy of the object as it was
    const ColumnListTable& table_;
    bool aspectList_;
    std::vector<uint8_t> chosen_;
};

}  // namespace paginox
