#include <gtest/gtest.h>

#include "../../plugin/device/consolesettings.h"
#include "../../plugin/device/designlines.h"

TEST(HostRect, PositionsParseOnlyWhenTheyFitAnInt)
{
    int x = 0, y = 0;
    EXPECT_TRUE(ParsePosition("2147483647,-2147483648", &x, &y));
    EXPECT_EQ(x, 2147483647);
    EXPECT_EQ(y, -2147483647 - 1);
    EXPECT_TRUE(ParsePosition("10, 20", &x, &y));
    EXPECT_EQ(y, 20);
    EXPECT_TRUE(ParsePosition("-1990,9", &x, &y));  // every digit is part of the number
    EXPECT_EQ(x, -1990);
    EXPECT_EQ(y, 9);
    EXPECT_FALSE(ParsePosition("2147483648,0", &x, &y));
    EXPECT_FALSE(ParsePosition("0,99999999999", &x, &y));
    EXPECT_FALSE(ParsePosition("10 ,20", &x, &y));
    EXPECT_FALSE(ParsePosition("10", &x, &y));
    EXPECT_FALSE(ParsePosition("", &x, &y));
}

TEST(HostRect, PullingBackSaturates)
{
    EXPECT_EQ(PullBackInside(2147483647, 40, 1024), 984);
    EXPECT_EQ(PullBackInside(100, 40, 1024), 100);
    EXPECT_EQ(PullBackInside(-2147483647 - 1, 40, 1024), -2147483647 - 1);
    EXPECT_EQ(PullBackInside(0, 2147483647, -2147483647 - 1), -2147483647 - 1);
    EXPECT_EQ(AddSaturated(2147483647, 200), 2147483647);
    EXPECT_EQ(AddSaturated(-2147483647 - 1, -1), -2147483647 - 1);
    EXPECT_EQ(AddSaturated(40, 20), 60);
}

TEST(ConsoleValues, LayerListsExtensionTypesAndConnections)
{
    EXPECT_EQ(SplitLayerList("Ground,,Floor 1,", 128), (std::vector<std::string>{"Ground", "Floor 1"}));
    EXPECT_EQ(SplitLayerList(std::string(200, 'L').c_str(), 128), std::vector<std::string>{std::string(127, 'L')});
    EXPECT_EQ(CountExtensionTypes("1,0,2,0,3,4", 5), 3);
    EXPECT_EQ(CountExtensionTypes("1,x,2", 5), 1);
    EXPECT_EQ(CountExtensionTypes("", 5), 0);
    const CONNECTIONTEXT good = SplitConnection("ORNCON_1.DOVRIXCSTModule");
    EXPECT_TRUE(good.valid);
    EXPECT_EQ(good.controller, "ORNCON_1");
    EXPECT_EQ(good.port, "DOVRIXCSTModule");
    EXPECT_FALSE(SplitConnection("ORNCON_1.PORT9").valid);
    EXPECT_FALSE(SplitConnection("NOSUCH_1.DOVRIXCSTModule").valid);
    EXPECT_FALSE(SplitConnection("ORNCON_1").valid);
}
