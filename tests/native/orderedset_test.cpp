#include <gtest/gtest.h>

#include <vector>

#include "../../host/analyze/orderedset.h"

namespace {

struct ITEM {
    int id;
};

std::vector<int> Ids(const ORDEREDSET<ITEM>& set)
{
    std::vector<int> ids;
    for (ITEM* item : set.Items())
        ids.push_back(item->id);
    return ids;
}

}  // namespace

TEST(OrderedSet, KeepsTheOrderOfAddingAndEachItemOnce)
{
    ITEM a{1}, b{2}, c{3};
    ORDEREDSET<ITEM> set;
    EXPECT_TRUE(set.Add(&b));
    EXPECT_TRUE(set.Add(&a));
    EXPECT_TRUE(set.Add(&c));
    EXPECT_FALSE(set.Add(&a));
    EXPECT_FALSE(set.Add(nullptr));
    EXPECT_EQ(Ids(set), (std::vector<int>{2, 1, 3}));
    EXPECT_EQ(set.Count(), 3u);
    EXPECT_TRUE(set.Contains(&a));
    EXPECT_FALSE(set.Contains(nullptr));
}

TEST(OrderedSet, RemovingKeepsTheOthersInOrderAndAnItemMayComeBackAtTheEnd)
{
    std::vector<ITEM> items(1000);
    ORDEREDSET<ITEM> set;
    for (int i = 0; i < 1000; i++) {
        items[(size_t)i].id = i;
        set.Add(&items[(size_t)i]);
    }
    // Every item but each seventh goes, from the front, the way a design closes;
    // the holes are closed on the way.
    std::vector<int> expected;
    for (int i = 0; i < 1000; i++) {
        if (i % 7 == 0)
            expected.push_back(i);
        else
            EXPECT_TRUE(set.Remove(&items[(size_t)i]));
    }
    EXPECT_FALSE(set.Remove(&items[1]));
    EXPECT_FALSE(set.Contains(&items[1]));
    EXPECT_EQ(Ids(set), expected);
    EXPECT_EQ(set.Count(), expected.size());

    EXPECT_TRUE(set.Add(&items[1]));
    expected.push_back(1);
    EXPECT_EQ(Ids(set), expected);
    int visited = 0;
    set.ForEach([&](ITEM* item) { EXPECT_EQ(item->id, expected[(size_t)visited++]); });
    EXPECT_EQ(visited, (int)expected.size());

    for (int id : expected)
        EXPECT_TRUE(set.Remove(&items[(size_t)id]));
    EXPECT_TRUE(set.Empty());
    EXPECT_TRUE(set.Items().empty());
}
