// The manager tree's texts and the parts a drop takes from them.
#include <gtest/gtest.h>

#include "../../plugin/manager/managerrules.h"

TEST(ManagerRules, ControllersAndConsolesByName)
{
    EXPECT_TRUE(IsControllerName("ORNCON_1"));
    EXPECT_TRUE(IsControllerName("ELKCON_12"));
    EXPECT_TRUE(IsControllerName("Site*ELKCON_2"));
    EXPECT_FALSE(IsControllerName("ORNCON_1.DOVRIXCSTModule"));  // its console module
    EXPECT_FALSE(IsControllerName("ORNCST_1"));
    EXPECT_FALSE(IsControllerName("XORNCON_1"));
    EXPECT_FALSE(IsControllerName("ORNCON1"));
    EXPECT_TRUE(IsConsoleObjectName("ORNCST_4"));
    EXPECT_TRUE(IsConsoleObjectName("Site*Floor1*ELKCST_3"));
    EXPECT_FALSE(IsConsoleObjectName("ORNCON_1"));
    EXPECT_FALSE(IsConsoleObjectName("ORNCS_1"));
}

TEST(ManagerRules, Families)
{
    EXPECT_EQ(FamilyOf("ORNCON_1"), 'A');
    EXPECT_EQ(FamilyOf("ORNCST_1"), 'A');
    EXPECT_EQ(FamilyOf("ELKCON_1"), 'B');
    EXPECT_EQ(FamilyOf("Site*ELKCST_3"), 'B');
    EXPECT_EQ(FamilyOf("ZEL_1"), 0);
}

TEST(ManagerRules, ControllerTextHoldsNameAndPort)
{
    EXPECT_EQ(ControllerItemText("ORNCON_1", "DOVRIXCSTModule"), "Controller (ORNCON_1).DOVRIXCSTModule");
    DROPTEXT drop;
    ASSERT_TRUE(SplitDropText(ControllerItemText("Site*ELKCON_2", kConsoleModuleName), &drop));
    EXPECT_EQ(drop.controller, "Site*ELKCON_2");
    EXPECT_EQ(drop.port, ".DOVRIXCSTModule");
    EXPECT_EQ(drop.controller + drop.port, "Site*ELKCON_2.DOVRIXCSTModule");
}

TEST(ManagerRules, DropTextFromTheLastFullStopAndTheFirstParentheses)
{
    DROPTEXT drop;
    ASSERT_TRUE(SplitDropText("a (b) (c).x.y", &drop));
    EXPECT_EQ(drop.controller, "b");
    EXPECT_EQ(drop.port, ".y");
    ASSERT_TRUE(SplitDropText("()." , &drop));
    EXPECT_EQ(drop.controller, "");
    EXPECT_EQ(drop.port, ".");
    EXPECT_FALSE(SplitDropText("Controller (ORNCON_1)", &drop));  // no port
    EXPECT_FALSE(SplitDropText("Controller ORNCON_1.DOVRIXCSTModule", &drop));
    EXPECT_FALSE(SplitDropText("Controller (ORNCON_1.DOVRIXCSTModule", &drop));
    EXPECT_FALSE(SplitDropText("Controller )ORNCON_1(.DOVRIXCSTModule", &drop));
    EXPECT_FALSE(SplitDropText("empty", &drop));
}

TEST(ManagerRules, ADropReachesOnlyControllersOfThePartnersFamily)
{
    DROPTEXT drop;
    ASSERT_TRUE(SplitDropText(ControllerItemText("ORNCON_2", kConsoleModuleName), &drop));
    EXPECT_TRUE(DropReachesPartnersFamily(drop, "ORNCON_1"));
    EXPECT_FALSE(DropReachesPartnersFamily(drop, "ELKCON_1"));
    ASSERT_TRUE(SplitDropText("Reception (ORNCST_1).x", &drop));
    EXPECT_FALSE(DropReachesPartnersFamily(drop, "ORNCON_1"));  // a console is no controller
    ASSERT_TRUE(SplitDropText("Controller (ZEL_1).DOVRIXCSTModule", &drop));
    EXPECT_FALSE(DropReachesPartnersFamily(drop, "ZEL_2"));
}
