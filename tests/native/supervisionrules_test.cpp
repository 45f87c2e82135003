// The Supervision page's rows, lamps and texts against the device's tables.
#include <gtest/gtest.h>

#include "../../plugin/config/supervisionrules.h"

namespace {

TEST(SupervisionRules, RowsShowTheirFaultNumbers)
{
    const int expected[9] = {8, 10, 1, 2, 9, 6, 5, 4, 3};
    for (int row = 0; row < 9; row++)
        EXPECT_EQ(FaultOfRow(row), expected[row]) << row;
    EXPECT_EQ(MaskToggleY(0), 102);
    EXPECT_EQ(MaskToggleY(8), 334);
}

TEST(SupervisionRules, TheExtensionRowOnlyForTypes045)
{
    for (int type = 0; type < 7; type++)
        EXPECT_EQ(SupervisionRowExists(type, 5), type == 0 || type == 4 || type == 5) << type;
    EXPECT_TRUE(SupervisionRowExists(3, 4));
}

TEST(SupervisionRules, OfflineEveryLampIsGrey)
{
    const LAMPSET lamps = RefreshLamps(FAULTSNAPSHOT());
    for (LAMP lamp : lamps.rows)
        EXPECT_EQ(lamp, LAMP_UNKNOWN);
    EXPECT_EQ(lamps.combined, LAMP_UNKNOWN);
}

TEST(SupervisionRules, FaultDataLightsTheRowOfTheFault)
{
    FAULTSNAPSHOT s;
    s.faultData = true;
    s.faults[5] = 1;  // microphone, row 6
    s.masterFault = 1;
    const LAMPSET lamps = RefreshLamps(s);
    for (int row = 0; row < 9; row++)
        EXPECT_EQ(lamps.rows[row], row == 6 ? LAMP_FAULT : LAMP_OK) << row;
    EXPECT_EQ(lamps.combined, LAMP_FAULT);
    s.type = 3;
    EXPECT_EQ(RefreshLamps(s).rows[5], LAMP_UNKNOWN);
}

TEST(SupervisionRules, OnlineWithoutFaultDataShowsOnlyTheConnection)
{
    FAULTSNAPSHOT s;
    s.online = true;
    LAMPSET lamps = RefreshLamps(s);
    EXPECT_EQ(lamps.rows[0], LAMP_OK);
    for (int row = 1; row < 9; row++)
        EXPECT_EQ(lamps.rows[row], LAMP_UNKNOWN);
    EXPECT_EQ(lamps.combined, LAMP_OK);
    s.faults[8] = 1;
    EXPECT_EQ(RefreshLamps(s).combined, LAMP_OK);
    s.furtherFault = true;
    lamps = RefreshLamps(s);
    EXPECT_EQ(lamps.rows[0], LAMP_FAULT);
    EXPECT_EQ(lamps.combined, LAMP_FAULT);
}

TEST(SupervisionRules, TextsByType)
{
    SUPERVISIONTEXTS t = SupervisionTexts(0);
    EXPECT_STREQ(t.monitoringHeader, "ERROR DETECTION");
    EXPECT_STREQ(t.notificationHeader, "DETECT");
    EXPECT_STREQ(t.inputNumber, "SLOT POSITION");
    EXPECT_STREQ(t.combined, " COLLECTED ERROR STATE: ZEL DEVICE");
    EXPECT_STREQ(t.alarmButton, "ALARM BUTTON");
    t = SupervisionTexts(6);
    EXPECT_STREQ(t.monitoringHeader, "FAULT MONITORING");
    EXPECT_STREQ(t.notificationHeader, "NOTIFICATION");
    EXPECT_STREQ(t.inputNumber, "INPUT NUMBER");
    EXPECT_STREQ(t.combined, "COMBINED FAULT STATE");
    EXPECT_STREQ(t.alarmButton, "PTT/ALARM BUTTON");
}

}  // namespace
