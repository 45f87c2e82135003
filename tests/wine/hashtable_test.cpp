// The framework's name table: it grows with what it holds and still finds,
// replaces, removes and visits every name exactly once.
#include <gtest/gtest.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <map>
#include <string>

#include "analyze.h"

namespace {

std::string NameOf(int i)
{
    char name[32];
    snprintf(name, sizeof name, "ORNCST_%d", i);
    return name;
}

BOOL CountVisit(LPCSTR key, void* value, void* context)
{
    auto* visits = static_cast<std::map<std::string, int>*>(context);
    (*visits)[key] += 1;
    EXPECT_EQ(value, (void*)(intptr_t)(atoi(key + 7) + 1)) << key;
    return TRUE;
}

BOOL StopAtOnce(LPCSTR, void*, void* context)
{
    ++*static_cast<int*>(context);
    return FALSE;
}

}  // namespace

TEST(HashTable, TwentyThousandNamesAreFoundReplacedRemovedAndVisitedOnce)
{
    const int count = 20000;
    CHashTable table;
    for (int i = 0; i < count; i++)
        ASSERT_TRUE(table.Add(NameOf(i).c_str(), (void*)(intptr_t)(i + 1)));
    EXPECT_EQ(table.GetCount(), count);
    for (int i = 0; i < count; i++)
        ASSERT_EQ(table.Lookup(NameOf(i).c_str()), (void*)(intptr_t)(i + 1)) << i;
    EXPECT_EQ(table.Lookup("ORNCST_20000"), nullptr);
    EXPECT_EQ(table.Lookup(nullptr), nullptr);

    // Adding a name again replaces its value and counts it once.
    EXPECT_TRUE(table.Add("ORNCST_5", (void*)(intptr_t)6));
    EXPECT_EQ(table.GetCount(), count);

    std::map<std::string, int> visits;
    EXPECT_TRUE(table.Enumerate(CountVisit, &visits));
    EXPECT_EQ(visits.size(), (size_t)count);
    for (const auto& visit : visits)
        EXPECT_EQ(visit.second, 1) << visit.first;
    int visited = 0;
    EXPECT_FALSE(table.Enumerate(StopAtOnce, &visited));
    EXPECT_EQ(visited, 1);

    for (int i = 0; i < count; i += 2)
        ASSERT_TRUE(table.Remove(NameOf(i).c_str()));
    EXPECT_FALSE(table.Remove("ORNCST_0"));
    EXPECT_EQ(table.GetCount(), count / 2);
    for (int i = 0; i < count; i++)
        ASSERT_EQ(table.Lookup(NameOf(i).c_str()), i % 2 ? (void*)(intptr_t)(i + 1) : nullptr) << i;

    table.RemoveAll();
    EXPECT_EQ(table.GetCount(), 0);
    EXPECT_EQ(table.Lookup("ORNCST_1"), nullptr);
    EXPECT_TRUE(table.Add("ORNCST_1", (void*)(intptr_t)2));
    EXPECT_EQ(table.Lookup("ORNCST_1"), (void*)(intptr_t)2);
}
