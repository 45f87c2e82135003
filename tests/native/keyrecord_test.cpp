#include <gtest/gtest.h>

#include <string>

#include "../../plugin/keys/keycatalogue.h"
#include "../../plugin/keys/keyrecord.h"
#include "keyrecordtesting.h"

TEST(KeyRecord, EveryFamilyRoundTrips)
{
    const char* const records[] = {
        "Empty",
        "Select Zone,0,ORNCON_1.Hall",
        "Select Group,3,ELKCON_1.Floor 2",
        "Talk to Selection,1,2,1,50,2,0,1,4,5,1,6,7,300,1,9,,Gong|12,Bell|13",
        "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,ORNCON_1.Hall,,",
        "Toggle All,0",
        "Clear All,2",
        "Switch On,Lights,1,2,3",
        "Toggle,Door,0,0,1",
        "LED Ignition only,Ign,4,0,0",
        "Increase,Volume,0.000000,10.000000,0.500000,250,1",
        "Decrease,Volume,-1.250000,3.000000,0.100000,0,0",
        "Menu,7",
        "Monitoring,65535",
        "Chime to Zone,1,1,2,80,3,4,5,ORNCON_1.Hall,Chime 2",
        "Alarm to Group,0,1,0,90,7,ORNCON_1.All,Mic 3",
        "Stop,0,0,0,91,91,",
        "Stop,1,20,2,15,91,kept",
        "On,40,0",
        "Protect",
        "EVAC Messages to Zone,1,60,2,3,4,1,5,ORNCON_1.Hall,Evacuate|4",
        "Business Messages to Group,0,30,1,1,0,ORNCON_1.Shop,Closing|7",
        "PTT to Selection,0,0,0,70,1,0,1,0,1,,",
        "PTT to Zone,1,2,3,4,5,6,7,8,9,ORNCON_1.Hall,Pre|1",
        "System Faults",
        "Indicator Test,1,0",
    };
    for (const char* record : records)
        EXPECT_EQ(RoundTrip(record), record);
}

TEST(KeyRecord, SlotCarriesIdVariantAndSharedCells)
{
    const KEYSLOT talk = Parsed("Talk to Group,1,2,1,50,2,0,3,4,5,1,6,7,300,1,9,Dest,Pre,Locked");
    EXPECT_EQ(talk.functionId, 22);
    EXPECT_EQ(talk.variant, 2);
    EXPECT_EQ(talk.cells[3], 50);  // the unlocked priority
    EXPECT_EQ(talk.cells[TALKCELL_AUDIOINPUT], 3);
    EXPECT_STREQ(talk.text1, "Dest");
    EXPECT_STREQ(talk.text3, "Locked");

    const KEYSLOT stop = Parsed("Stop,0,0,0,91,91,");
    EXPECT_EQ(stop.cells[KEYCELL_SECOND], 91);
    const KEYSLOT alarm = Parsed("Alarm to Zone,0,1,0,90,7,Zone,Input");
    EXPECT_EQ(alarm.cells[KEYCELL_SECOND], 7);  // the alarm tone
    const KEYSLOT evac = Parsed("EVAC Messages to Zone,1,60,2,3,4,1,5,Zone,Msg|4");
    EXPECT_EQ(evac.cells[3], 60);  // the message families' priority sits in the talk priority's cell
}

// Records read and written again: older forms, aliases, missing fields and
// numbers wider than their fields come back in today's form.
TEST(KeyRecord, RecordsComeBackInTodaysForm)
{
    struct ROW {
        const char* record;
        const char* written;
    };
    const ROW rows[] = {
        // The previous talk generation: nine numbers, the texts follow.
        {"Talk to Zone,0,0,0,60,1,0,1,2,3,Hall,Gong|1", "Talk to Zone,0,0,0,60,1,0,1,2,3,0,0,0,0,0,0,Hall,Gong|1,"},
        {"Talk to Selection,0,0,0,50,0,0,1,", "Talk to Selection,0,1,0,50,0,0,1,0,0,0,0,0,0,0,0,,1-Tone,"},
        {"Chime to Zone,1,0,2,80,9,Hall", "Chime to Zone,1,0,2,80,9,0,0,Hall,No Prechime"},
        {"EVAC Messages to Zone,1,60,2,3,4,Hall,Msg|1", "EVAC Messages to Zone,1,60,2,3,4,0,0,Hall,Msg|1"},
        {"PTT to Zone,1,2,3,4,5,6,7,Hall,Pre", "PTT to Zone,1,2,3,4,5,6,7,0,0,Hall,Pre"},
        // Names and aliases.
        {"Switch,Lamp,1,0,0", "Push,Lamp,1,0,0"},
        {"protect,1,2,3", "Protect"},
        {"System Faults,9", "System Faults"},
        {"Page Everybody,1,2", "Empty"},
        {"", "Empty"},
        {",1,2", "Empty"},
        // Missing fields keep the empty slot's values.
        {"Stop,0,0,0,91,91", "Stop,0,0,0,91,91,"},
        {"Stop", "Stop,0,0,0,0,0,"},
        {"Menu", "Menu,0"},
        {"Select Zone,x,Hall", "Select Zone,0,"},
        {"Switch On,Lamp", "Switch On,Lamp,0,0,0"},
        {"Increase,Volume,abc", "Increase,Volume,0.000000,0.000000,0.000000,0,0"},
        {"Indicator Test,1,0,7,8", "Indicator Test,1,0"},
        // Numbers keep their widths.
        {"Menu,70000", "Menu,4464"},
        {"Clear All,-1", "Clear All,255"},
        {"On,99999999999999999999,300", "On,65535,44"},
        {"Increase,V,1e300,-1e300,nan,1,1", "Increase,V,inf,-inf,nan,1,1"},
        // Past the int range a number stands at its end of the range, then is
        // cut to its field: INT_MAX keeps 65535 in 16 bits, INT_MIN keeps 0.
        {"Menu,99999999999999999999", "Menu,65535"},
        {"Menu,-99999999999999999999", "Menu,0"},
        {"Menu,2147483648", "Menu,65535"},
        {"Menu,-2147483649", "Menu,0"},
        {"Menu,-1", "Menu,65535"},
        {"Menu,+7", "Menu,7"},
        {"Menu, 8", "Menu,8"},
        {"Toggle All,-99999999999999999999", "Toggle All,0"},
        {"Toggle All,99999999999999999999", "Toggle All,255"},
    };
    for (const ROW& row : rows)
        EXPECT_EQ(RoundTrip(row.record), row.written) << row.record;
}

TEST(KeyRecord, OldestTalkAndChimeKeepThePrechimeAsText)
{
    // The oldest: seven numbers, the second one a prechime code kept as its text.
    const KEYSLOT four = Parsed("Talk to Zone,0,4,0,50,0,0,1,Hall");
    EXPECT_STREQ(four.text2, "2x2-Tone");
    EXPECT_EQ(four.cells[1], 1);
    const KEYSLOT nine = Parsed("Talk to Zone,0,9,0,50,0,0,1,Hall");
    EXPECT_STREQ(nine.text2, "No Prechime");
    EXPECT_EQ(nine.cells[1], 0);
    EXPECT_STREQ(nine.text1, "Hall");
    // The older chime: the prechime code as its text as well.
    const KEYSLOT chime = Parsed("Chime to Zone,1,0,2,80,4,Hall");
    EXPECT_STREQ(chime.text1, "Hall");
    EXPECT_STREQ(chime.text2, "2x2-Tone");
}

TEST(KeyRecord, LastTextKeepsItsCommas)
{
    EXPECT_EQ(RoundTrip("Select Zone,0,ORNCON_1.Hall, east, upstairs"), "Select Zone,0,ORNCON_1.Hall, east, upstairs");
    const KEYSLOT alarm = Parsed("Alarm to Zone,0,1,0,90,0,Hall,Line 1, left");
    EXPECT_STREQ(alarm.text1, "Hall");
    EXPECT_STREQ(alarm.text2, "Line 1, left");
}

TEST(KeyRecord, LongTextsAreCutToTheirFields)
{
    const std::string longText(10000, 'x');
    const KEYSLOT slot = Parsed("Select Zone,0," + longText);
    EXPECT_EQ(std::string(slot.text1), std::string(KEYTEXT_SIZE - 1, 'x'));
    const KEYSLOT name = Parsed(longText + ",1");
    EXPECT_EQ(name.functionId, 0);
}
