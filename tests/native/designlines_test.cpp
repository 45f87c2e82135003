#include <gtest/gtest.h>

#include "../../plugin/device/consolesettings.h"
#include "../../plugin/device/designlines.h"

TEST(ObjectName, SplitsAtTheLastStar)
{
    char prefix[128];
    EXPECT_STREQ(SplitObjectName("Site*Floor1*Desk", prefix, sizeof prefix), "Desk");
    EXPECT_STREQ(prefix, "Site*Floor1*");
    EXPECT_STREQ(SplitObjectName("ORNCST_1", prefix, sizeof prefix), "ORNCST_1");
    EXPECT_STREQ(prefix, "");
}

TEST(OldFaultMasks, SevenToNineMoveUpOne)
{
    const struct {
        const char* key;
        const char* after;
    } cases[] = {
        {"FaultMask6", "FaultMask6"},   {"FaultMask7", "FaultMask8"}, {"FaultMask8", "FaultMask9"},
        {"FaultMask9", "FaultMask10"},  {"FaultMask10", "FaultMask10"}, {"FaultMaskTest", "FaultMaskTest"},
        {"Faults7", "Faults7"},
    };
    for (const auto& c : cases) {
        char key[32];
        snprintf(key, sizeof key, "%s", c.key);
        ShiftOldFaultMaskKey(key, sizeof key);
        EXPECT_STREQ(key, c.after) << c.key;
    }
}

TEST(ProjectVersion, OldWhenMajorBelow3AndMinorBelow8)
{
    EXPECT_TRUE(IsOldProjectVersion("V 2.7.9"));
    EXPECT_TRUE(IsOldProjectVersion("V 1"));
    EXPECT_FALSE(IsOldProjectVersion("V 2.8.0"));
    EXPECT_FALSE(IsOldProjectVersion("V 3.0.0"));
    EXPECT_FALSE(IsOldProjectVersion("V 3.7.0"));
    EXPECT_FALSE(IsOldProjectVersion(""));
    EXPECT_FALSE(IsOldProjectVersion(nullptr));
}

TEST(ConsoleSettings, NewConsoleDefaults)
{
    const CONSOLESETTINGS s;
    const uint8_t masks[] = {1, 1, 1, 0, 0, 0, 0, 1, 1, 1};
    for (int mask = 1; mask <= FAULTMASK_COUNT; mask++)
        EXPECT_EQ(s.faultMask[mask], masks[mask - 1]) << "FaultMask" << mask;
    EXPECT_EQ(s.showDate, 1);
    EXPECT_EQ(s.buzzer, 0);
    EXPECT_EQ(s.priority, 0);
}

TEST(ConsoleSettings, ModelNames)
{
    EXPECT_EQ(ModelFromText("ORN-15CST"), MODEL_ORN_15CST);
    EXPECT_EQ(ModelFromText("ELK-CSK"), MODEL_ELK_CSK);
    EXPECT_EQ(ModelFromText("ORN-15CSK"), MODEL_ORN_CSK);
    EXPECT_EQ(ModelFromText(""), -1);
    EXPECT_EQ(ModelFromText("orn-15cst"), -1);
    EXPECT_STREQ(ModelText(2), "");
    EXPECT_STREQ(ModelText(99), "");
}

TEST(HostRect, PositionsParseOnlyWhenTheyFitAnInt)
{
    int x = 0, y = 0;
    EXPECT_TRUE(ParsePosition("2147483647,-2147483648", &x, &y));
    EXPECT_EQ(x, 2147483647);
    EXPECT_EQ(y, -2147483647 - 1);
    EXPECT_TRUE(ParsePosition("10, 20", &x, &y));
    EXPECT_EQ(y, 20);
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
