#include <gtest/gtest.h>

#include "../../base/text.h"

TEST(Text, FormatTruncatesAndTerminates)
{
    char small[6];
    EXPECT_FALSE(Format(small, "%s", "too long for it"));
    EXPECT_STREQ(small, "too l");
    EXPECT_TRUE(Format(small, "%03d", 7));
    EXPECT_STREQ(small, "007");
}

TEST(Text, CopyAndAppendStayInsideTheBuffer)
{
    char buffer[8];
    EXPECT_TRUE(CopyText(buffer, "abc"));
    EXPECT_TRUE(AppendText(buffer, "defg"));
    EXPECT_STREQ(buffer, "abcdefg");
    EXPECT_FALSE(AppendText(buffer, "h"));
    EXPECT_STREQ(buffer, "abcdefg");
    EXPECT_FALSE(CopyText(buffer, "0123456789"));
    EXPECT_STREQ(buffer, "0123456");
    EXPECT_TRUE(CopyTextN(buffer, sizeof buffer, "0123456789", 3));
    EXPECT_STREQ(buffer, "012");
}

TEST(Text, ParseIntTakesWholeNumbersOnly)
{
    int value = 0;
    EXPECT_TRUE(ParseInt(" -12 ", &value));
    EXPECT_EQ(value, -12);
    EXPECT_FALSE(ParseInt("", &value));
    EXPECT_FALSE(ParseInt("12x", &value));
    EXPECT_FALSE(ParseInt("99999999999", &value));
    EXPECT_EQ(value, -12);
}
