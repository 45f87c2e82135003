// The controller's zone list as its design line writes it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../host/controllers/portlist.h"

TEST(ZoneList, SplitsAndJoinsByCommas)
{
    std::vector<std::string> zones;
    ASSERT_TRUE(SplitZones("Hall,Canteen,Main lobby", &zones));
    EXPECT_EQ(zones, (std::vector<std::string>{"Hall", "Canteen", "Main lobby"}));
    EXPECT_EQ(JoinZones(zones), "Hall,Canteen,Main lobby");
    ASSERT_TRUE(SplitZones("", &zones));
    EXPECT_TRUE(zones.empty());
    EXPECT_EQ(JoinZones(zones), "");
}

TEST(ZoneList, RefusesEmptyNamesAndFullStops)
{
    std::vector<std::string> zones = {"kept"};
    EXPECT_FALSE(SplitZones("Hall,,Canteen", &zones));
    EXPECT_FALSE(SplitZones("Hall,", &zones));
    EXPECT_FALSE(SplitZones(",Hall", &zones));
    EXPECT_FALSE(SplitZones("ORNCON_1.Hall", &zones));
    EXPECT_FALSE(SplitZones("Hall\r", &zones));
    EXPECT_FALSE(SplitZones("Ha\nll", &zones));
    EXPECT_EQ(zones, std::vector<std::string>{"kept"});  // untouched when refused
}
