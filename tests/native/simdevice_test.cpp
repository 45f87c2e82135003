#include <gtest/gtest.h>

#include "../../host/controllers/simdevice.h"

TEST(SimDevice, NewDeviceReportsItsFirmwareAndNoFault)
{
    SIMDEVICE device;
    int value = -1;
    ASSERT_TRUE(device.Read("FirmwareRevision5", 0, &value));
    EXPECT_EQ(value, 1);
    ASSERT_TRUE(device.Read("MasterFault", 0, &value));
    EXPECT_EQ(value, 0);
    EXPECT_FALSE(device.Read("NoSuchVariable", 0, &value));
    EXPECT_FALSE(device.Read("WatchdogClear", 0, &value));
    EXPECT_FALSE(device.Write("MasterFault", 1, 0));
    EXPECT_EQ(device.StateText(), "");
}

TEST(SimDevice, MasterFaultNeedsTheFaultsSwitch)
{
    SIMDEVICE device;
    int value = 0;
    device.Write("Faults7", 1, 0);  // the test fault, switched by FaultMaskTest
    device.Read("MasterFault", 0, &value);
    EXPECT_EQ(value, 0);
    device.Write("FaultMaskTest", 1, 0);
    device.Read("MasterFault", 0, &value);
    EXPECT_EQ(value, 1);
}

TEST(SimDevice, RunTimeAndWatchdogCountWhileSwitchedOn)
{
    SIMDEVICE device;
    int value = 0;
    device.SwitchOn(true, 1000);
    device.Read("Runtime", 4500, &value);
    EXPECT_EQ(value, 3);
    device.Write("WatchdogClear", 1, 4500);
    device.Read("WatchdogCounter", 6600, &value);
    EXPECT_EQ(value, 2);
    device.SwitchOn(false, 6600);
    device.Read("Runtime", 90000, &value);
    EXPECT_EQ(value, 5);
}

TEST(SimDevice, StateTextRoundTripsAndRefusesBadPairs)
{
    SIMDEVICE device;
    device.SwitchOn(true, 0);
    device.Write("Faults3", 1, 0);
    device.Write("ShowDate", 0, 0);
    const std::string state = device.StateText();
    EXPECT_EQ(state, "online=1 Faults3=1 ShowDate=0");

    SIMDEVICE copy;
    std::string error;
    ASSERT_TRUE(copy.LoadStateText(state, 0, &error));
    EXPECT_EQ(copy.StateText(), state);

    for (const char* bad : {"Faults3", "Faults3=x", "Bogus=1", "online=1 Faults3=99999999999"}) {
        SIMDEVICE untouched;
        EXPECT_FALSE(untouched.LoadStateText(bad, 0, &error)) << bad;
        EXPECT_EQ(untouched.StateText(), "") << bad;
    }
}
