#include "model/NumberedTable.h"

#include <gtest/gtest.h>
#include <numeric>
#include <stdexcept>

namespace strativo {
namespace {

using Table = NumberedTable<int, 1, 3>;

TEST(NumberedTable, StartsWithEmptySlotsFromItsFirstNumber) {
    const Table table;
    EXPECT_EQ(table[1], 0);
    EXPECT_EQ(table[3], 0);
}

TEST(NumberedTable, RefusesNumbersOutside) {
    Table table;
    const Table& constant = table;
    for (const int number : {-1, 0, 4}) {
        EXPECT_THROW(table[number] = 1, std::out_of_range) << number;
        EXPECT_THROW(static_cast<void>(constant[number]), std::out_of_range) << number;
    }
}

TEST(NumberedTable, MayStartAtSlotZero) {
    NumberedTable<int, 0, 2> table;
    table[0] = 7;
    table[2] = 9;
    EXPECT_EQ(*table.begin(), 7);
    EXPECT_EQ(*(table.end() - 1), 9);
}

TEST(NumberedTable, IsWalkedInNumberOrderAndComparedWhole) {
    Table table;
    int next = 1;
    for (int& slot : table)
        slot = next++;
    const Table copy = table;
    EXPECT_EQ(std::accumulate(copy.begin(), copy.end(), 0), 6);
    EXPECT_EQ(table, copy);
    table[2] = 0;
    EXPECT_NE(table, copy);
}

TEST(NumberedList, GrowsFromNumberOne) {
    NumberedList<int> list;
    EXPECT_EQ(list.Size(), 0);
    EXPECT_EQ(list.Append(), 1);
    EXPECT_EQ(list.Append(), 2);
    list[2] = 5;
    EXPECT_EQ(list[1], 0);
    EXPECT_EQ(std::accumulate(list.begin(), list.end(), 0), 5);
}

TEST(NumberedList, KnowsItsNumbers) {
    NumberedList<int> list(2);
    const NumberedList<int>& constant = list;
    EXPECT_FALSE(list.Has(0));
    EXPECT_TRUE(list.Has(1));
    EXPECT_TRUE(list.Has(2));
    EXPECT_FALSE(list.Has(3));
    for (const int number : {-1, 0, 3}) {
        EXPECT_THROW(list[number] = 1, std::out_of_range) << number;
        EXPECT_THROW(static_cast<void>(constant[number]), std::out_of_range) << number;
    }
}

TEST(NumberedList, BeginsEmptyOrWithSoManyEmptySlots) {
    const NumberedList<int> none;
    EXPECT_EQ(none.Size(), 0);
    EXPECT_EQ(none.begin(), none.end());
    const NumberedList<int> three(3);
    EXPECT_EQ(three.Size(), 3);
    EXPECT_EQ(three[3], 0);
}

} // namespace
} // namespace strativo
