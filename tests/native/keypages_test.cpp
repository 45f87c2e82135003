#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "../../plugin/keyeditor/pagetable.h"
#include "../../plugin/keys/keyrecord.h"
#include "keyrecordtesting.h"

namespace {

// One user change: a control and the value it takes (a number, or a text for
// the destination, variable, message and input controls).
struct CHANGE {
    int control;
    double value;
    const char* text;
};

std::string Edited(int pageId, const char* record, const std::vector<CHANGE>& changes)
{
    const KEYPAGE* page = FindKeyPage(pageId);
    EXPECT_NE(page, nullptr) << pageId;
    KEYSLOT slot = Parsed(record);
    for (const CHANGE& change : changes) {
        const PAGECONTROL* control = FindPageControl(page, change.control);
        EXPECT_NE(control, nullptr) << pageId << " has no control " << change.control;
        if (!control)
            continue;
        if (change.text)
            EXPECT_TRUE(StorePageControlText(*control, &slot, change.text)) << change.control;
        else
            EXPECT_TRUE(StorePageControlValue(*control, &slot, change.value)) << change.control;
    }
    return FormatKeyRecord(slot);
}

}  // namespace

// The editor pages by their dialog ids, as the catalogue assigns them.
TEST(KeyPages, TheTwentyPages)
{
    const std::set<int> expected = {120, 152, 158, 161, 163, 167, 169, 171, 174, 176,
                                    182, 183, 184, 185, 186, 193, 205, 208, 159, 162};
    std::set<int> pages;
    for (int i = 0; i < KEYPAGE_COUNT; i++)
        pages.insert(KeyPages()[i].page);
    EXPECT_EQ(pages, expected);
    for (int page : {161, 176, 182, 205, 159, 162})
        EXPECT_EQ(FindKeyPage(page)->count, 0) << page;
}

// Every page: a record loaded, each control changed once, the record read back whole.
TEST(KeyPages, EveryControlEditsItsFieldInRecordOrder)
{
    EXPECT_EQ(Edited(120, "Select Zone,0,", {{1008, 0, "ORNCON_1.Hall"}}), "Select Zone,0,ORNCON_1.Hall");
    EXPECT_EQ(Edited(152, "PTT to Zone,0,0,0,50,0,0,1,0,0,,",
                     {{1068, 1, nullptr}, {1008, 0, "ORNCON_1.Lobby"}, {1015, 1, nullptr}, {1016, 1, nullptr},
                      {1065, 60, nullptr}, {1017, 0, "Gong|7"}}),
              "PTT to Zone,0,1,1,60,1,1,1,0,0,ORNCON_1.Lobby,Gong|7");
    EXPECT_EQ(Edited(158, "On,40,0", {{1067, 45, nullptr}, {2014, 1, nullptr}}), "On,45,1");
    EXPECT_EQ(Edited(163, "EVAC Messages to Zone,0,0,0,0,0,0,0,,",
                     {{1008, 0, "ORNCON_1.Hall"}, {1097, 90, nullptr}, {1999, 2, nullptr},
                      {2000, 0, "Evacuate now|3"}, {2003, 1, nullptr}}),
              "EVAC Messages to Zone,0,90,2,0,0,1,0,ORNCON_1.Hall,Evacuate now|3");
    EXPECT_EQ(Edited(167, "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,,,",
                     {{1008, 0, "ORNCON_1.Hall"}, {1018, 1, nullptr}, {1015, 2, nullptr}, {1065, 70, nullptr},
                      {1017, 0, "Gong|7"}, {1016, 1, nullptr}, {2019, 1, nullptr}, {2021, 80, nullptr},
                      {2020, 0, "Bell|3"}}),
              "Talk to Zone,0,1,1,70,2,0,2,0,0,1,0,0,80,1,0,ORNCON_1.Hall,Gong|7,Bell|3");
    EXPECT_EQ(Edited(169, "Switch On,,0,0,0",
                     {{1008, 0, "TE.Lights"}, {1025, 4, nullptr}, {1026, 1, nullptr}, {2012, 1, nullptr}}),
              "Switch On,TE.Lights,4,1,1");
    EXPECT_EQ(Edited(169, "Toggle,Door,0,1,0", {{1027, 1, nullptr}}), "Toggle,Door,0,0,0");
    EXPECT_EQ(Edited(171, "Menu,0", {{1053, 0, nullptr}}), "Menu,0");
    EXPECT_EQ(Edited(174, "Toggle All,0", {{1025, 2, nullptr}}), "Toggle All,2");
    EXPECT_EQ(Edited(183, "Increase,,0.000000,0.000000,0.000000,0,0",
                     {{1008, 0, "Volume"}, {1025, 1, nullptr}, {1019, -1.5, nullptr}, {1021, 10, nullptr},
                      {1023, 0.5, nullptr}, {1024, 250, nullptr}, {2013, 1, nullptr}}),
              "Decrease,Volume,-1.500000,10.000000,0.500000,250,1");
    EXPECT_EQ(Edited(184, "Chime to Zone,0,0,0,50,0,0,0,,",
                     {{1008, 0, "ORNCON_1.Hall"}, {1022, 0, "3-Tone"}, {1065, 55, nullptr}, {1016, 1, nullptr}}),
              "Chime to Zone,0,1,0,55,0,0,0,ORNCON_1.Hall,3-Tone");
    EXPECT_EQ(Edited(185, "Alarm to Zone,0,0,0,50,0,,",
                     {{1008, 0, "ORNCON_1.Hall"}, {1065, 95, nullptr}, {1015, 1, nullptr}, {1022, 0, nullptr},
                      {1023, 0, "Line 2"}, {1016, 1, nullptr}}),
              "Alarm to Zone,0,1,1,95,0,ORNCON_1.Hall,Line 2");
    EXPECT_EQ(Edited(186, "Stop,0,0,0,91,91,",
                     {{1027, 2, nullptr}, {1067, 30, nullptr}, {1016, 1, nullptr}, {1028, 0, nullptr},
                      {1029, 0, nullptr}, {1030, 1, nullptr}, {1031, 0, nullptr}}),
              "Stop,1,30,2,84,91,");
    EXPECT_EQ(Edited(193, "Business Messages to Group,0,0,0,0,0,,",
                     {{1008, 0, "ORNCON_1.Shops"}, {2005, 20, nullptr}, {2007, 1, nullptr}, {2008, 0, "Closing|7"},
                      {2009, 1, nullptr}}),
              "Business Messages to Group,0,20,1,1,0,ORNCON_1.Shops,Closing|7");
    EXPECT_EQ(Edited(208, "Indicator Test,0,0", {{1015, 1, nullptr}, {2014, 1, nullptr}}), "Indicator Test,1,1");
}

TEST(KeyPages, ControlsShowTheirFields)
{
    const KEYSLOT talk = Parsed("Talk to Zone,0,1,1,70,2,0,3,0,0,1,0,0,80,1,0,ORNCON_1.Hall,Gong|7,Bell|3");
    const KEYPAGE* page = FindKeyPage(167);
    EXPECT_EQ(PageControlValue(*FindPageControl(page, 1018), talk), 2);  // stored 3, "External Line"
    EXPECT_EQ(PageControlValue(*FindPageControl(page, 1015), talk), 2);
    EXPECT_EQ(PageControlValue(*FindPageControl(page, 1065), talk), 70);
    EXPECT_EQ(PageControlValue(*FindPageControl(page, 2021), talk), 80);
    EXPECT_EQ(PageControlValue(*FindPageControl(page, 1016), talk), 1);
    EXPECT_STREQ(KeyFieldText(talk, FindPageControl(page, 1008)->field), "ORNCON_1.Hall");
    // An input the console cannot have shows "Internal Mic".
    EXPECT_EQ(PageControlValue(*FindPageControl(page, 1018), Parsed("Talk to Zone,0,0,0,50,0,0,9,0,0,0,0,0,0,0,0,,,")),
              0);
    const KEYSLOT stop = Parsed("Stop,0,0,0,91,91,");  // 1, 2, 8, 16 and 64: the alarm bit is clear
    const KEYPAGE* stopPage = FindKeyPage(186);
    EXPECT_EQ(PageControlValue(*FindPageControl(stopPage, 1028), stop), 1);
    EXPECT_EQ(PageControlValue(*FindPageControl(stopPage, 1029), stop), 1);
    EXPECT_EQ(PageControlValue(*FindPageControl(stopPage, 1030), stop), 0);
    EXPECT_EQ(PageControlValue(*FindPageControl(stopPage, 1031), stop), 1);
    EXPECT_EQ(PageControlValue(*FindPageControl(FindKeyPage(183), 1025), Parsed("Decrease,V,0,0,0,0,0")), 1);
    const KEYPAGE* logical = FindKeyPage(169);
    const KEYSLOT startsOn = Parsed("Toggle,Door,3,1,0");
    EXPECT_EQ(PageControlValue(*FindPageControl(logical, 1026), startsOn), 1);  // "On"
    EXPECT_EQ(PageControlValue(*FindPageControl(logical, 1027), startsOn), 0);  // "Off"
    EXPECT_EQ(PageControlValue(*FindPageControl(logical, 1025), startsOn), 3);
    EXPECT_EQ(PageControlValue(*FindPageControl(logical, 2012), startsOn), 0);
    const KEYSLOT startsOff = Parsed("Toggle,Door,3,0,1");
    EXPECT_EQ(PageControlValue(*FindPageControl(logical, 1026), startsOff), 0);
    EXPECT_EQ(PageControlValue(*FindPageControl(logical, 1027), startsOff), 1);
    EXPECT_EQ(PageControlValue(*FindPageControl(logical, 2012), startsOff), 1);
}

TEST(KeyPages, TheRulesOfThePages)
{
    // The chime page keeps its key on trigger type 2.
    EXPECT_EQ(FindKeyPage(184)->forcedField, 3);
    EXPECT_EQ(FindKeyPage(184)->forcedValue, 2);
    // The indicator test page replaces its list.
    EXPECT_STREQ(FindPageControl(FindKeyPage(208), 1015)->items, "Push,Toggle");
    EXPECT_STREQ(FindPageControl(FindKeyPage(167), 1018)->items, "Internal Mic,External Mic,External Line");
    // The EVAC and business pages open the destination picker with 1096 and 2004.
    EXPECT_EQ(FindPageControl(FindKeyPage(163), 1096)->kind, PC_PICKER);
    EXPECT_EQ(FindPageControl(FindKeyPage(193), 2004)->kind, PC_PICKER);
    // A tone other than "Extern" clears the input channel.
    EXPECT_EQ(Edited(185, "Alarm to Zone,0,0,0,50,0,ORNCON_1.Hall,Line 2", {{1022, 3, nullptr}}),
              "Alarm to Zone,0,0,0,50,3,ORNCON_1.Hall,");
    EXPECT_EQ(Edited(185, "Alarm to Zone,0,0,0,50,3,ORNCON_1.Hall,", {{1022, 0, nullptr}, {1023, 0, "Line 1"}}),
              "Alarm to Zone,0,0,0,50,0,ORNCON_1.Hall,Line 1");
    // Choosing no prechime message clears its flag.
    EXPECT_EQ(Edited(167, "Talk to Zone,0,1,0,50,0,0,1,0,0,0,0,0,0,0,0,,Gong|7,", {{1017, 0, ""}}),
              "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,,,");
    // A text is no number: a text control stores its text alone.
    KEYSLOT selection = Parsed("Select Zone,0,ORNCON_1.Hall");
    EXPECT_FALSE(StorePageControlValue(*FindPageControl(FindKeyPage(120), 1008), &selection, 5));
    EXPECT_FALSE(StorePageControlValue(*FindPageControl(FindKeyPage(120), 1014), &selection, 5));
    EXPECT_EQ(FormatKeyRecord(selection), "Select Zone,0,ORNCON_1.Hall");
    // Only "Up" and "Down" are functions of their own.
    const KEYPAGE* arithmetic = FindKeyPage(183);
    KEYSLOT slot = Parsed("Increase,V,0,0,0,0,0");
    EXPECT_FALSE(StorePageControlValue(*FindPageControl(arithmetic, 1025), &slot, 2));
    EXPECT_EQ(FormatKeyRecord(slot), "Increase,V,0.000000,0.000000,0.000000,0,0");
    KEYSLOT down = Parsed("Decrease,V,0,0,0,0,0");
    EXPECT_TRUE(StorePageControlValue(*FindPageControl(arithmetic, 1025), &down, 0));
    EXPECT_EQ(FormatKeyRecord(down), "Increase,V,0.000000,0.000000,0.000000,0,0");
    // Every tone but "Extern" clears the input channel, "DIN Alarm" (1) as well.
    EXPECT_EQ(Edited(185, "Alarm to Zone,0,0,0,50,0,ORNCON_1.Hall,Line 2", {{1022, 1, nullptr}}),
              "Alarm to Zone,0,0,0,50,1,ORNCON_1.Hall,");
    // A number control takes no text.
    KEYSLOT indicator = Parsed("Indicator Test,1,0");
    EXPECT_FALSE(StorePageControlText(*FindPageControl(FindKeyPage(208), 1015), &indicator, "Toggle"));
    EXPECT_EQ(FormatKeyRecord(indicator), "Indicator Test,1,0");
    // The lists the pages build themselves.
    EXPECT_STREQ(FindPageControl(FindKeyPage(163), 1999)->items, "Push,Toggle,Trigger");
    EXPECT_STREQ(FindPageControl(FindKeyPage(193), 2007)->items, "Push,Switch");
}

TEST(KeyPages, NoFieldIsWrittenPastItsWidth)
{
    EXPECT_EQ(Edited(158, "On,40,0", {{1067, 70000, nullptr}}), "On,4464,0");  // u16
    EXPECT_EQ(Edited(163, "EVAC Messages to Zone,0,0,0,0,0,0,0,,", {{1999, 300, nullptr}}),
              "EVAC Messages to Zone,0,0,44,0,0,0,0,,");                         // u8
    const std::string longName(300, 'x');
    const std::string record = Edited(120, "Select Zone,0,", {{1008, 0, longName.c_str()}});
    EXPECT_EQ(record, "Select Zone,0," + std::string(KEYTEXT_SIZE - 1, 'x'));
}

// Every number control and its spin take the range of the field they write:
// priorities and the repeat time are 16-bit fields of their records.
TEST(KeyPages, NumberControlsTakeTheirFieldsRange)
{
    const struct {
        int page;
        const char* record;
        int control;
        int spin;  // 0: an edit without a spin
    } numbers[] = {
        {152, "PTT to Zone,0,0,0,50,0,0,1,0,0,,", 1065, 1066},
        {158, "On,40,0", 1067, 1068},
        {163, "EVAC Messages to Zone,0,0,0,0,0,0,0,,", 1097, 1098},
        {167, "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,,,", 1065, 1066},
        {167, "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,,,", 2021, 2022},
        {183, "Increase,V,0,0,0,0,0", 1024, 0},
        {184, "Chime to Zone,0,0,0,50,0,0,0,,", 1065, 1066},
        {185, "Alarm to Zone,0,0,0,50,0,,", 1065, 1066},
        {186, "Stop,0,0,0,91,91,", 1067, 1068},
        {193, "Business Messages to Zone,0,0,0,0,0,,", 2005, 2006},
    };
    int checked = 0;
    for (const auto& n : numbers) {
        const KEYPAGE* page = FindKeyPage(n.page);
        const KEYSLOT slot = Parsed(n.record);
        for (int id : {n.control, n.spin}) {
            if (!id)
                continue;
            int low = -1, high = -1;
            ASSERT_TRUE(PageControlRange(page, *FindPageControl(page, id), slot.functionId, &low, &high))
                << n.page << ":" << id;
            EXPECT_EQ(low, 0) << n.page << ":" << id;
            EXPECT_EQ(high, 65535) << n.page << ":" << id;
        }
        checked++;
    }
    // No number control of any page is left out of the list above.
    int controls = 0;
    for (int i = 0; i < KEYPAGE_COUNT; i++)
        for (int c = 0; c < KeyPages()[i].count; c++)
            controls += KeyPages()[i].controls[c].kind == PC_NUMBER ? 1 : 0;
    EXPECT_EQ(controls, checked);
    // A control that stores no whole number has no range.
    int low = 0, high = 0;
    EXPECT_FALSE(PageControlRange(FindKeyPage(183), *FindPageControl(FindKeyPage(183), 1019), 50, &low, &high));
    EXPECT_FALSE(PageControlRange(FindKeyPage(167), *FindPageControl(FindKeyPage(167), 1015), 21, &low, &high));
}

TEST(KeyPages, ANumberOutsideItsRangeIsRefused)
{
    const struct {
        const char* text;
        PAGENUMBER read;
        int value;
    } cases[] = {
        {"", PAGENUMBER_EMPTY, 0},        {"  ", PAGENUMBER_EMPTY, 0},        {"0", PAGENUMBER_TAKEN, 0},
        {"70", PAGENUMBER_TAKEN, 70},     {"65535", PAGENUMBER_TAKEN, 65535}, {"65536", PAGENUMBER_REFUSED, 0},
        {"70000", PAGENUMBER_REFUSED, 0}, {"-1", PAGENUMBER_REFUSED, 0},      {"99999999999999999999", PAGENUMBER_REFUSED, 0},
        {"12abc", PAGENUMBER_REFUSED, 0}, {"abc", PAGENUMBER_REFUSED, 0},     {"-", PAGENUMBER_REFUSED, 0},
    };
    for (const auto& c : cases) {
        int value = -7;
        EXPECT_EQ(ReadPageNumber(c.text, 0, 65535, &value), c.read) << c.text;
        if (c.read == PAGENUMBER_TAKEN)
            EXPECT_EQ(value, c.value) << c.text;
        else
            EXPECT_EQ(value, -7) << c.text;
    }
    EXPECT_EQ(ReadPageNumber("256", 0, 255, nullptr), PAGENUMBER_REFUSED);
    EXPECT_EQ(PageNumberRefusal("70000", 0, 65535), "70000 is out of range.\nEnter a number from 0 to 65535.");
}

// Four of the six arithmetic modes have no function: they are refused with a
// word that names the mode the key keeps.
TEST(KeyPages, TheArithmeticModesWithoutAFunctionAreRefused)
{
    const KEYSLOT up = Parsed("Increase,V,0,0,0,0,0");
    const KEYSLOT down = Parsed("Decrease,V,0,0,0,0,0");
    EXPECT_EQ(ArithmeticModeRefusal(0, "Up", down), "");
    EXPECT_EQ(ArithmeticModeRefusal(1, "Down", up), "");
    const char* const modes[] = {"Set Arithmetic Value", "Switch Arithmetic Value", "Toggle Arithmetic Value",
                                 "Radio Button Field"};
    for (int mode = 2; mode < 6; mode++) {
        EXPECT_EQ(ArithmeticModeRefusal(mode, modes[mode - 2], up),
                  std::string("\"") + modes[mode - 2] +
                      "\" cannot be stored: an arithmetical key counts \"Up\" or \"Down\".\nThe key keeps \"Up\".");
        EXPECT_NE(ArithmeticModeRefusal(mode, modes[mode - 2], down).find("The key keeps \"Down\"."), std::string::npos);
    }
}

TEST(KeyPages, MessagesAreMatchedByNumber)
{
    const std::vector<MESSAGEENTRY> list = ParseMessageList("Evacuate now|3,Gong|7,broken,Bell|12");
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[1].name, "Gong");
    EXPECT_EQ(list[1].number, 7u);
    EXPECT_EQ(MatchMessage(list, "Old gong name|7"), 1);
    MESSAGEENTRY nine;
    ASSERT_TRUE(ParseMessageEntry("Alarm|9", &nine));
    EXPECT_EQ(nine.number, 9u);
    ASSERT_TRUE(ParseMessageEntry("Alarm|0", &nine));
    EXPECT_EQ(nine.number, 0u);
    EXPECT_FALSE(ParseMessageEntry("Alarm|x9", &nine));
    EXPECT_FALSE(ParseMessageEntry("|9", &nine));
    EXPECT_EQ(MatchMessage(list, "Bell|12"), 2);
    EXPECT_EQ(MatchMessage(list, "Gone|99"), -1);
    EXPECT_EQ(MatchMessage(list, ""), -1);
    EXPECT_EQ(MatchMessage(list, "No Prechime"), -1);
    EXPECT_EQ(FormatMessageEntry(list[0]), "Evacuate now|3");
    EXPECT_TRUE(ParseMessageList(nullptr).empty());
    EXPECT_TRUE(ParseMessageList("").empty());
}

TEST(KeyPages, TalkAndPttInputsDoNotClash)
{
    KEYSLOT keys[128];
    for (KEYSLOT& key : keys)
        key = EmptyKeySlot();
    ParseKeyRecord("PTT to Selection,0,0,0,50,0,1,1,0,0,,", &keys[123]);  // line input as PTT input
    EXPECT_STREQ(TalkInputClash(keys, 128, 5, 3),
                 "Cannot choose external line input.\nPTT key is using external mic input");
    EXPECT_EQ(TalkInputClash(keys, 128, 5, 2), nullptr);
    ParseKeyRecord("PTT to Selection,0,0,0,50,0,0,1,0,0,,", &keys[123]);
    EXPECT_EQ(TalkInputClash(keys, 128, 5, 3), nullptr);
    ParseKeyRecord("Talk to Zone,0,0,0,50,0,0,3,0,0,0,0,0,0,0,0,,,", &keys[9]);
    EXPECT_STREQ(PttLineInClash(keys, 128, 123, true), "Cannot configure PTT key.\nExternal line input in use by talk key.");
    EXPECT_EQ(PttLineInClash(keys, 128, 123, false), nullptr);
    ParseKeyRecord("Talk to Zone,0,0,0,50,0,0,2,0,0,0,0,0,0,0,0,,,", &keys[9]);
    EXPECT_EQ(PttLineInClash(keys, 128, 123, true), nullptr);
}

TEST(KeyPages, ItemLists)
{
    EXPECT_EQ(SplitItems("Push,Toggle"), (std::vector<std::string>{"Push", "Toggle"}));
    EXPECT_EQ(SplitItems("Hall,,Car park"), (std::vector<std::string>{"Hall", "", "Car park"}));
    EXPECT_TRUE(SplitItems("").empty());
}

TEST(KeyPages, TheBoardsAloneHaveTheMicrophoneAndLineInputs)
{
    for (int type : {0, 1, 4, 5}) {
        EXPECT_TRUE(ConsoleOffersAudioInput(type, 1)) << type;
        EXPECT_FALSE(ConsoleOffersAudioInput(type, 2)) << type;
        EXPECT_FALSE(ConsoleOffersAudioInput(type, 3)) << type;
    }
    for (int type : {3, 6}) {
        EXPECT_TRUE(ConsoleOffersAudioInput(type, 1)) << type;
        EXPECT_TRUE(ConsoleOffersAudioInput(type, 2)) << type;
        EXPECT_TRUE(ConsoleOffersAudioInput(type, 3)) << type;
        EXPECT_FALSE(ConsoleOffersAudioInput(type, 0)) << type;
        EXPECT_FALSE(ConsoleOffersAudioInput(type, 4)) << type;
    }
}

TEST(KeyPages, TheEditorPageOfAKey)
{
    EXPECT_EQ(EditorPageOf(-1, 20, false), 182);
    EXPECT_EQ(EditorPageOf(5, 20, false), 167);
    EXPECT_EQ(EditorPageOf(0, 20, false), 167);
    EXPECT_EQ(EditorPageOf(5, 20, true), 159);   // the numeric keys while they are the keypad
    EXPECT_EQ(EditorPageOf(11, 80, true), 159);
    EXPECT_EQ(EditorPageOf(12, 80, true), 185);
    EXPECT_EQ(EditorPageOf(3, 0, false), 176);
    EXPECT_EQ(EditorPageOf(3, 100, false), 182);
}

TEST(KeyPages, TheDestinationChoosesTheVariant)
{
    KEYSLOT talk = Parsed("Talk to Selection,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,,,");
    EXPECT_EQ(DestinationShown(talk, 16), "Current Slection");
    EXPECT_TRUE(StoreDestination(&talk, 16, DESTINATION_ZONE, "ORNCON_1.Hall"));
    EXPECT_EQ(FormatKeyRecord(talk), "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,ORNCON_1.Hall,,");
    EXPECT_EQ(DestinationShown(talk, 16), "ORNCON_1.Hall");
    EXPECT_TRUE(StoreDestination(&talk, 16, DESTINATION_GROUP, "ORNCON_1.All"));
    EXPECT_EQ(FormatKeyRecord(talk), "Talk to Group,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,ORNCON_1.All,,");
    EXPECT_TRUE(StoreDestination(&talk, 16, DESTINATION_SELECTION, "ORNCON_1.All"));
    EXPECT_EQ(FormatKeyRecord(talk), "Talk to Selection,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,,,");
    const struct {
        const char* record;
        int position;
        const char* expected;
    } families[] = {
        {"Chime to Selection,0,0,2,50,0,0,0,,", 8, "Chime to Zone,0,0,2,50,0,0,0,ORNCON_1.Hall,"},
        {"Alarm to Selection,0,0,0,50,0,,", 6, "Alarm to Zone,0,0,0,50,0,ORNCON_1.Hall,"},
        {"EVAC Messages to Selection,0,0,0,0,0,0,0,,", 8, "EVAC Messages to Zone,0,0,0,0,0,0,0,ORNCON_1.Hall,"},
        {"Business Messages to Selection,0,0,0,0,0,,", 6, "Business Messages to Zone,0,0,0,0,0,ORNCON_1.Hall,"},
        {"PTT to Selection,0,0,0,50,0,0,1,0,0,,", 10, "PTT to Zone,0,0,0,50,0,0,1,0,0,ORNCON_1.Hall,"},
        {"Select Group,0,", 2, "Select Zone,0,ORNCON_1.Hall"},
    };
    for (const auto& f : families) {
        KEYSLOT slot = Parsed(f.record);
        EXPECT_TRUE(StoreDestination(&slot, f.position, DESTINATION_ZONE, "ORNCON_1.Hall")) << f.record;
        EXPECT_EQ(FormatKeyRecord(slot), f.expected);
    }
    KEYSLOT select = Parsed("Select Zone,0,ORNCON_1.Hall");
    EXPECT_TRUE(StoreDestination(&select, 2, DESTINATION_GROUP, "ORNCON_1.All"));
    EXPECT_EQ(FormatKeyRecord(select), "Select Group,0,ORNCON_1.All");
    EXPECT_FALSE(StoreDestination(&select, 2, DESTINATION_SELECTION, ""));
    EXPECT_EQ(DestinationShown(Parsed("Alarm to Zone,0,0,0,50,0,,"), 6), "(no caption)");
    EXPECT_EQ(DestinationShown(Parsed("Select Zone,0,"), 2), "(no caption)");
}

// The table's shape: a row names a value or a position only where its kind reads it.
TEST(KeyPages, EveryRowIsWhole)
{
    for (int p = 0; p < KEYPAGE_COUNT; p++) {
        const KEYPAGE& page = KeyPages()[p];
        if (page.page != 184) {  // the chime page alone sets a field when it shows a key
            EXPECT_EQ(page.forcedField, 0) << page.page;
            EXPECT_EQ(page.forcedValue, 0) << page.page;
        }
        for (int i = 0; i < page.count; i++) {
            const PAGECONTROL& row = page.controls[i];
            const bool usesExtra = row.kind == PC_RADIO || row.kind == PC_BIT || row.kind == PC_SPIN ||
                                   row.kind == PC_PICKER || row.hook == HOOK_ALARMTONE;
            if (!usesExtra)
                EXPECT_EQ(row.extra, 0) << page.page << " " << row.control;
            if (row.hook != HOOK_PRECHIMEFLAG)
                EXPECT_EQ(row.flag, 0) << page.page << " " << row.control;
            if (row.hook == HOOK_ARITHMETICMODE || row.kind == PC_SPIN)  // no field of their own
                EXPECT_EQ(row.field, 0) << page.page << " " << row.control;
            if (row.kind == PC_SPIN) {
                const PAGECONTROL* buddy = FindPageControl(&page, row.extra);
                ASSERT_NE(buddy, nullptr) << page.page << " " << row.control;
                EXPECT_EQ(buddy->kind, PC_NUMBER);
            }
            if (row.kind == PC_PICKER) {  // it fills the text of its own field
                bool filled = false;
                for (int j = 0; j < page.count; j++)
                    filled = filled || (page.controls[j].kind == PC_TEXT && page.controls[j].field == row.field);
                EXPECT_TRUE(filled) << page.page << " " << row.control;
            }
        }
    }
    EXPECT_EQ(FindPageControl(FindKeyPage(208), 1008), nullptr);
    EXPECT_EQ(FindPageControl(FindKeyPage(176), 1008), nullptr);
    EXPECT_EQ(FindPageControl(nullptr, 1008), nullptr);
    EXPECT_EQ(FindKeyPage(121), nullptr);
}
