#include <gtest/gtest.h>

#include "../../plugin/device/keywordtable.h"
#include "tracecapture.h"

namespace {

int Answer1(REQUEST*, CONSOLEPROPERTIES*)
{
    return 1;
}

KEYWORDTABLE SmallTable()
{
    KEYWORDTABLE table;
    for (const char* keyword : {"type", " ", "FaultMask10", "key0120OptionState", "FaultMask1", "key013", "FaultMask2",
                                "key012", "Buzzer", "address"})
        table.Add(keyword, Answer1, 0, KEYWORD_SAVED);
    table.Finish();
    return table;
}

}  // namespace

TEST(KeywordTable, LookupIsExactAndZeroMeansNotFound)
{
    KEYWORDTABLE table = SmallTable();
    TraceLines().clear();
    EXPECT_EQ(table.Lookup("Buzzer"), 1);
    EXPECT_EQ(table.Lookup("type"), 9);
    EXPECT_TRUE(TraceLines().empty());

    // The blank sentinel is found at index 0, which reads as "not found".
    EXPECT_EQ(table.Lookup(" "), 0);
    EXPECT_TRUE(TraceLines().empty());
    EXPECT_EQ(table.Lookup("buzzer"), 0);
    EXPECT_EQ(table.Lookup("FaultMask7"), 0);
    const std::vector<std::string> expected = {"Console Keyword not found: buzzer\n",
                                               "Console Keyword not found: FaultMask7\n"};
    EXPECT_EQ(TraceLines(), expected);
}

// A keyword added twice answers with its first entry, as a scan from the
// start finds it; the order of adding decides between the two.
TEST(KeywordTable, AKeywordAddedTwiceAnswersWithItsFirstEntry)
{
    KEYWORDTABLE table;
    const char* const added[] = {" ", "b", "a", "b", "c", "b"};
    for (uint32_t order = 0; order < 6; order++)
        table.Add(added[order], Answer1, order, 0);
    table.Finish();
    const uint16_t index = table.Lookup("b");
    ASSERT_EQ(index, 2);
    EXPECT_EQ(table.Entry(index).keyword, "b");
    EXPECT_EQ(table.Entry(index).parameter, 1u);  // the first "b" added
    EXPECT_EQ(table.Entry(1).keyword, "a");
    EXPECT_EQ(table.Lookup("c"), 5);
}
