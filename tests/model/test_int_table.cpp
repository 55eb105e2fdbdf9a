// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <vector>

#include "model/IntTable.h"
#include "model/ModelState.h"

using namespace paginox;
using test::ErrorOf;
using Ints = std::vector<int16_t>;

namespace {
IntTable Of(Ints values) {
    IntTable t;
    for (int16_t v : values) t.Append(v);
    return t;
}

Ints Values(const IntTable& t) {
    Ints v;
    for (int16_t p = 1; p <= t.Count(); ++p) v.push_back(t.Value(p));
    return v;
}
}  // namespace

TEST(IntTable, StorageGrowsExactlyAndIsCheckedAgainstAllocation) {
    IntTable t;
    EXPECT_EQ(ErrorOf([&] { t.Value(1); }), kSubscriptOutOfRange);
    t = Of({4, 5, 6});
    EXPECT_EQ(t.Allocation(), 3);
    int16_t n = 0;
    t.SetAllocation(n);
    EXPECT_EQ(n, 1);  // the caller's variable sees the 1
    EXPECT_EQ(ErrorOf([&] { t.Lookup(8); }), kSubscriptOutOfRange);  // count 3 is past it
}

TEST(IntTable, InsertDeleteAndValuesBehindTheCount) {
    IntTable t = Of({4, 5});
    t.Insert(1, 7);
    t.Insert(9, 8);
    EXPECT_EQ(Values(t), (Ints{7, 4, 5, 8}));
    EXPECT_EQ(ErrorOf([&] { t.Insert(0, 7); }), kSubscriptOutOfRange);
    EXPECT_EQ(t.Count(), 5);  // the failed insert keeps its grown count
    t = Of({1, 2, 3});
    t.Delete(5);
    EXPECT_EQ(Values(t), (Ints{1, 2}));
    t.SetCount(3);
    EXPECT_EQ(Values(t), (Ints{1, 2, 3}));
    IntTable empty;
    empty.Delete(1);
    EXPECT_EQ(empty.Count(), -1);
}

TEST(IntTable, DeleteValueFirstOrAll) {
    IntTable t = Of({2, 1, 2});
    EXPECT_EQ(t.Lookup(9), 0);
    IntTable all = t;
    t.DeleteValue(2);
    EXPECT_EQ(Values(t), (Ints{1, 2}));
    all.DeleteValue(2, true);
    EXPECT_EQ(Values(all), (Ints{1}));
}
