#include <gtest/gtest.h>

#include <string>

#include "../../plugin/keyeditor/droprules.h"
#include "../../plugin/keys/keyrecord.h"

namespace {

// Ids and texts as the key function catalogue and the editor's warnings have them.
const int32_t kSelectZone = 10, kTalk = 20, kAlarm = 80, kProtect = 120, kSystemFaults = 160, kIndicatorTest = 170;

DROPCONSOLE Console(int type = 0, int extensions = 0)
{
    DROPCONSOLE console;
    console.consoleType = type;
    console.extensionCount = extensions;
    console.specialKeys[0] = console.specialKeys[1] = console.specialKeys[2] = 1;
    return console;
}

struct DROPCASE {
    const char* what;
    DROPCONSOLE console;
    int key;
    int32_t function;
    DROPVERDICT verdict;
};

}  // namespace

TEST(DropRules, InTheirOrder)
{
    DROPCONSOLE keypad = Console();
    keypad.numericKeypad = true;
    DROPCONSOLE board3 = Console(3), board6 = Console(6), front4 = Console(4);
    DROPCONSOLE notPresent = Console(), lockSwitch = Console(), locked = Console(), oneProtect = Console(),
                oneTest = Console();
    notPresent.specialKeys[0] = 0;
    lockSwitch.specialKeys[1] = 2;
    locked.specialKeys[1] = 2;
    locked.protectKeys = 1;
    oneProtect.protectKeys = 1;
    oneTest.indicatorKeys = 1;
    DROPCONSOLE keypadProtect = keypad;
    keypadProtect.protectKeys = 1;
    const DROPCASE cases[] = {
        {"numeric keypad on: key 0", keypad, 0, kTalk, DROP_REFUSED},
        {"numeric keypad on: key 11", keypad, 11, kTalk, DROP_REFUSED},
        {"numeric keypad on: key 12 takes it", keypad, 12, kTalk, DROP_ACCEPTED},
        {"numeric keypad off: key 0 takes it", Console(), 0, kTalk, DROP_ACCEPTED},
        {"menu key", Console(), 116, kTalk, DROP_REFUSED},
        {"menu key, even with five extensions", Console(0, 5), 116, kAlarm, DROP_REFUSED},
        {"PTT key, type 0", Console(), 123, kTalk, DROP_REFUSED},
        {"PTT key, type 4", front4, 123, kTalk, DROP_REFUSED},
        {"PTT key, type 3", board3, 123, kTalk, DROP_ACCEPTED},
        {"PTT key, type 6", board6, 123, kAlarm, DROP_ACCEPTED},
        {"PTT key, type 3, Select Zone", board3, 123, kSelectZone, DROP_REFUSED},
        {"PTT key, type 6, Protect", board6, 123, kProtect, DROP_REFUSED},
        {"no extensions: key 15", Console(), 15, kTalk, DROP_NO_EXTENSION},
        {"no extensions: key 14 is the keypad's last", Console(), 14, kTalk, DROP_ACCEPTED},
        {"no extensions: key 115", Console(), 115, kTalk, DROP_ACCEPTED},
        {"no extensions: key 119", Console(), 119, kTalk, DROP_ACCEPTED},
        {"one extension: key 34", Console(0, 1), 34, kTalk, DROP_ACCEPTED},
        {"one extension: key 35", Console(0, 1), 35, kTalk, DROP_NO_EXTENSION},
        {"five extensions: key 114", Console(0, 5), 114, kTalk, DROP_ACCEPTED},
        {"key 120 ordinary key", Console(), 120, kTalk, DROP_ACCEPTED},
        {"key 120 not present", notPresent, 120, kTalk, DROP_REFUSED},
        {"key 121 lock switch, ordinary function", lockSwitch, 121, kTalk, DROP_REFUSED},
        {"key 121 ordinary key, Select Zone", Console(), 121, kSelectZone, DROP_REFUSED},
        {"key 121 lock switch, first Protect", lockSwitch, 121, kProtect, DROP_ACCEPTED},
        {"key 121 lock switch, second Protect", locked, 121, kProtect, DROP_PROTECT_EXISTS},
        {"key 122 ordinary key, Protect", Console(), 122, kProtect, DROP_REFUSED},
        {"first Protect elsewhere", Console(), 5, kProtect, DROP_ACCEPTED},
        {"second Protect elsewhere", oneProtect, 5, kProtect, DROP_PROTECT_EXISTS},
        {"second Protect, numeric keys counted", keypadProtect, 12, kProtect, DROP_PROTECT_EXISTS},
        {"first Indicator Test", Console(), 7, kIndicatorTest, DROP_ACCEPTED},
        {"second Indicator Test", oneTest, 7, kIndicatorTest, DROP_INDICATOR_EXISTS},
        {"second Indicator Test on key 120, ordinary key", oneTest, 120, kIndicatorTest, DROP_INDICATOR_EXISTS},
        {"Indicator Test on key 120, not present", notPresent, 120, kIndicatorTest, DROP_REFUSED},
        {"System Faults on DEL", front4, 115, kSystemFaults, DROP_ACCEPTED},
        {"System Faults on key 120, ordinary key", front4, 120, kSystemFaults, DROP_ACCEPTED},
        {"System Faults on the keypad of type 0", Console(), 3, kSystemFaults, DROP_ACCEPTED},
        {"System Faults on the keypad of type 4", front4, 3, kSystemFaults, DROP_REFUSED},
        {"System Faults on the board's keypad", board3, 3, kSystemFaults, DROP_REFUSED},
        {"System Faults on key 117 of type 0", Console(), 117, kSystemFaults, DROP_REFUSED},
        {"System Faults on key 119 of type 0", Console(), 119, kSystemFaults, DROP_REFUSED},
        {"System Faults on the board's PTT key", board3, 123, kSystemFaults, DROP_REFUSED},
        {"every other drop", Console(0, 2), 54, kAlarm, DROP_ACCEPTED},
        {"key 124 is no key of the console", Console(0, 5), 124, kTalk, DROP_NO_EXTENSION},
        {"no key", Console(), -1, kTalk, DROP_REFUSED},
    };
    for (const DROPCASE& c : cases)
        EXPECT_EQ(JudgeDrop(c.console, c.key, c.function), c.verdict) << c.what;
}

TEST(DropRules, Warnings)
{
    EXPECT_STREQ(DropWarning(DROP_NO_EXTENSION), "Extension you are trying to configure does not exist");
    EXPECT_STREQ(DropWarning(DROP_PROTECT_EXISTS), "Protect key already configured");
    EXPECT_STREQ(DropWarning(DROP_INDICATOR_EXISTS), "Indicator Test key already configured");
    EXPECT_EQ(DropWarning(DROP_ACCEPTED), nullptr);
    EXPECT_EQ(DropWarning(DROP_REFUSED), nullptr);
}

TEST(DropRules, CountsTheKeysOfAFunction)
{
    KEYSLOT keys[4] = {EmptyKeySlot(), EmptyKeySlot(), EmptyKeySlot(), EmptyKeySlot()};
    ParseKeyRecord("Protect", &keys[1]);
    ParseKeyRecord("Protect", &keys[3]);
    ParseKeyRecord("Indicator Test,0,0", &keys[2]);
    EXPECT_EQ(CountKeyFunction(keys, 4, kProtect), 2);
    EXPECT_EQ(CountKeyFunction(keys, 3, kProtect), 1);
    EXPECT_EQ(CountKeyFunction(keys, 4, kIndicatorTest), 1);
    EXPECT_EQ(CountKeyFunction(keys, 4, kTalk), 0);
    ParseKeyRecord("Protect", &keys[0]);
    EXPECT_EQ(CountKeyFunction(keys, 1, kProtect), 1);
    EXPECT_EQ(CountKeyFunction(keys, 4, kProtect), 3);
}

// A key made by a drop is a new key: the functions with a new key's record get
// it, the others are their bare names.
TEST(DropRules, ADroppedKeyIsANewKey)
{
    const struct {
        int32_t function;
        const char* line;
    } drops[] = {
        {90, "key005=Stop,0,0,0,91,91,"},
        {110, "key005=On,40,0"},
        {20, "key005=Talk to Selection,0,0,0,50,0,0,1,"},
        {30, "key005=Toggle All,0"},
        {60, "key005=Menu,0"},
        {kSelectZone, "key005=Select Zone"},  // a new one names its zone; a drop has none
        {kAlarm, "key005=Alarm to Selection"},
        {kProtect, "key005=Protect"},
        {kIndicatorTest, "key005=Indicator Test"},
        {kSystemFaults, "key005=System Faults"},
    };
    for (const auto& drop : drops)
        EXPECT_EQ(DroppedKeyLine(5, drop.function), drop.line) << drop.function;
    EXPECT_EQ(DroppedKeyLine(123, 90), "key123=Stop,0,0,0,91,91,");
}
