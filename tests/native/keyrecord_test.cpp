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

TEST(KeyRecord, OlderTalkGenerations)
{
    // The previous generation: nine numbers, the texts follow.
    EXPECT_EQ(RoundTrip("Talk to Zone,0,0,0,60,1,0,1,2,3,Hall,Gong|1"),
              "Talk to Zone,0,0,0,60,1,0,1,2,3,0,0,0,0,0,0,Hall,Gong|1,");
    // The oldest: seven numbers, the second one a prechime code kept as its text.
    const KEYSLOT four = Parsed("Talk to Zone,0,4,0,50,0,0,1,Hall");
    EXPECT_STREQ(four.text2, "2x2-Tone");
    EXPECT_EQ(four.cells[1], 1);
    const KEYSLOT nine = Parsed("Talk to Zone,0,9,0,50,0,0,1,Hall");
    EXPECT_STREQ(nine.text2, "No Prechime");
    EXPECT_EQ(nine.cells[1], 0);
    EXPECT_STREQ(nine.text1, "Hall");
    EXPECT_EQ(RoundTrip("Talk to Selection,0,0,0,50,0,0,1,"),
              "Talk to Selection,0,1,0,50,0,0,1,0,0,0,0,0,0,0,0,,1-Tone,");
}

TEST(KeyRecord, OlderChimeEvacAndPttForms)
{
    const KEYSLOT chime = Parsed("Chime to Zone,1,0,2,80,4,Hall");
    EXPECT_STREQ(chime.text1, "Hall");
    EXPECT_STREQ(chime.text2, "2x2-Tone");
    EXPECT_EQ(RoundTrip("Chime to Zone,1,0,2,80,9,Hall"), "Chime to Zone,1,0,2,80,9,0,0,Hall,No Prechime");
    EXPECT_EQ(RoundTrip("EVAC Messages to Zone,1,60,2,3,4,Hall,Msg|1"),
              "EVAC Messages to Zone,1,60,2,3,4,0,0,Hall,Msg|1");
    EXPECT_EQ(RoundTrip("PTT to Zone,1,2,3,4,5,6,7,Hall,Pre"), "PTT to Zone,1,2,3,4,5,6,7,0,0,Hall,Pre");
}

TEST(KeyRecord, NamesAndAliases)
{
    EXPECT_EQ(RoundTrip("Switch,Lamp,1,0,0"), "Push,Lamp,1,0,0");
    EXPECT_EQ(RoundTrip("protect,1,2,3"), "Protect");
    EXPECT_EQ(RoundTrip("System Faults,9"), "System Faults");
    EXPECT_EQ(RoundTrip("Page Everybody,1,2"), "Empty");
    EXPECT_EQ(RoundTrip(""), "Empty");
    EXPECT_EQ(RoundTrip(",1,2"), "Empty");
}

TEST(KeyRecord, LastTextKeepsItsCommas)
{
    EXPECT_EQ(RoundTrip("Select Zone,0,ORNCON_1.Hall, east, upstairs"), "Select Zone,0,ORNCON_1.Hall, east, upstairs");
    const KEYSLOT alarm = Parsed("Alarm to Zone,0,1,0,90,0,Hall,Line 1, left");
    EXPECT_STREQ(alarm.text1, "Hall");
    EXPECT_STREQ(alarm.text2, "Line 1, left");
}

TEST(KeyRecord, MissingFieldsKeepEmptySlotValues)
{
    EXPECT_EQ(RoundTrip("Stop,0,0,0,91,91"), "Stop,0,0,0,91,91,");
    EXPECT_EQ(RoundTrip("Stop"), "Stop,0,0,0,0,0,");
    EXPECT_EQ(RoundTrip("Menu"), "Menu,0");
    EXPECT_EQ(RoundTrip("Select Zone,x,Hall"), "Select Zone,0,");
    EXPECT_EQ(RoundTrip("Switch On,Lamp"), "Switch On,Lamp,0,0,0");
    EXPECT_EQ(RoundTrip("Increase,Volume,abc"), "Increase,Volume,0.000000,0.000000,0.000000,0,0");
    EXPECT_EQ(RoundTrip("Indicator Test,1,0,7,8"), "Indicator Test,1,0");
}

TEST(KeyRecord, NumbersKeepTheirWidths)
{
    EXPECT_EQ(RoundTrip("Menu,70000"), "Menu,4464");
    EXPECT_EQ(RoundTrip("Clear All,-1"), "Clear All,255");
    EXPECT_EQ(RoundTrip("On,99999999999999999999,300"), "On,65535,44");
    EXPECT_EQ(RoundTrip("Increase,V,1e300,-1e300,nan,1,1"), "Increase,V,inf,-inf,nan,1,1");
}

TEST(KeyRecord, LongTextsAreCutToTheirFields)
{
    const std::string longText(10000, 'x');
    const KEYSLOT slot = Parsed("Select Zone,0," + longText);
    EXPECT_EQ(std::string(slot.text1), std::string(KEYTEXT_SIZE - 1, 'x'));
    const KEYSLOT name = Parsed(longText + ",1");
    EXPECT_EQ(name.functionId, 0);
}
