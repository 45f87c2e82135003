// The key function catalogue row by row: names, ids, families and pages, the
// function tree, every code table and every choice list, written out here.
#include <gtest/gtest.h>

#include <string.h>

#include <map>
#include <string>

#include "../../plugin/keys/keycatalogue.h"

namespace {

struct FUNCTIONROW {
    const char* name;
    int id, family, page;
};

const FUNCTIONROW kFunctions[40] = {
    {"Empty", 0, -1, 176},
    {"Select Zone", 10, 0, 120},
    {"Select Group", 11, 0, 120},
    {"Talk to Selection", 20, 1, 167},
    {"Talk to Zone", 21, 1, 167},
    {"Talk to Group", 22, 1, 167},
    {"Toggle All", 30, 2, 174},
    {"Select All", 31, 2, 174},
    {"Clear All", 32, 2, 174},
    {"Switch On", 40, 3, 169},
    {"Switch Off", 41, 3, 169},
    {"Push", 42, 3, 169},
    {"Switch", 42, 3, 169},
    {"Toggle", 43, 3, 169},
    {"LED Ignition only", 44, 3, 169},
    {"Increase", 50, 4, 183},
    {"Decrease", 51, 4, 183},
    {"Menu", 60, 5, 171},
    {"Program", 61, 5, 171},
    {"Monitoring", 62, 5, 171},
    {"Chime to Selection", 70, 6, 184},
    {"Chime to Zone", 71, 6, 184},
    {"Chime to Group", 72, 6, 184},
    {"Alarm to Selection", 80, 7, 185},
    {"Alarm to Zone", 81, 7, 185},
    {"Alarm to Group", 82, 7, 185},
    {"Stop", 90, 8, 186},
    {"PTT to Selection", 150, 14, 152},
    {"PTT to Zone", 151, 14, 152},
    {"PTT to Group", 152, 14, 152},
    {"On", 110, 10, 158},
    {"Protect", 120, 11, 161},
    {"EVAC Messages to Selection", 130, 12, 163},
    {"EVAC Messages to Zone", 131, 12, 163},
    {"EVAC Messages to Group", 132, 12, 163},
    {"Business Messages to Selection", 140, 13, 193},
    {"Business Messages to Zone", 141, 13, 193},
    {"Business Messages to Group", 142, 13, 193},
    {"System Faults", 160, 15, 205},
    {"Indicator Test", 170, 16, 208},
};

std::string Upper(const char* text)
{
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = (char)(c - 'a' + 'A');
    return upper;
}

}  // namespace

TEST(CatalogueTables, EveryRowByPositionIdAndName)
{
    for (int row = 0; row < 40; row++) {
        const FUNCTIONROW& f = kFunctions[row];
        SCOPED_TRACE(f.name);
        EXPECT_STREQ(KeyFunctionNameAt(row), f.name);
        EXPECT_EQ(KeyFunctionIdAt(row), f.id);
        EXPECT_EQ(KeyFamily(f.id), f.family);
        EXPECT_EQ(KeyFunctionPage(f.id), f.page);
        EXPECT_EQ(KeyFunctionId(f.name), f.id);
        EXPECT_EQ(KeyFunctionId(Upper(f.name).c_str()), f.id);
        // The first row of an id wins: "Push" over "Switch".
        EXPECT_EQ(FindKeyFunctionIndex(f.id), f.id == 42 ? 11 : row);
        EXPECT_STREQ(KeyFunctionName(f.id), f.id == 42 ? "Push" : f.name);
    }
    for (int position : {-1, 40, 41, 1000}) {
        EXPECT_EQ(KeyFunctionIdAt(position), -1) << position;
        EXPECT_EQ(KeyFunctionNameAt(position), nullptr) << position;
    }
    EXPECT_EQ(KeyFunctionId("Select"), 0);
    EXPECT_EQ(KeyFunctionId("Select Zone "), 0);
    EXPECT_EQ(KeyFunctionId("Stop2"), 0);
    EXPECT_EQ(KeyFunctionId(""), 0);
}

TEST(CatalogueTables, EveryIdWithoutARow)
{
    for (int id = -5; id <= 260; id++) {
        bool listed = false;
        for (const FUNCTIONROW& f : kFunctions)
            listed = listed || f.id == id;
        if (listed)
            continue;
        SCOPED_TRACE(id);
        EXPECT_EQ(FindKeyFunctionIndex(id), -1);
        EXPECT_STREQ(KeyFunctionName(id), "Types");
        EXPECT_EQ(KeyFunctionPage(id), 182);
    }
    // The family is the id divided by ten, less one, also without a row.
    EXPECT_EQ(KeyFamily(100), 9);
    EXPECT_EQ(KeyFamily(109), 9);
    EXPECT_EQ(KeyFamily(9), -1);
    EXPECT_EQ(KeyFamily(45), 3);
}

TEST(CatalogueTables, FunctionTreeNodeByNode)
{
    struct NODE {
        const char* label;
        int parent, id, image;
    };
    const NODE nodes[17] = {
        {"Button Functions", -1, -1, 2},
        {"Types", 0, -1, 2},
        {"Talk", 1, 20, 3},
        {"Selection", 1, 10, 4},
        {"Clear Key", 1, 30, -1},
        {"Logical Key", 1, 40, -1},
        {"Arithmetical Key", 1, 50, -1},
        {"Menu Key", 1, 60, -1},
        {"Stop Key", 1, 90, 7},
        {"Alarm Key", 1, 80, 5},
        {"Chime Key", 1, 70, 6},
        {"On Key", 1, 110, -1},
        {"Lock Key", 1, 120, -1},
        {"EVAC Message Key", 1, 130, -1},
        {"Business Message Key", 1, 140, -1},
        {"System Fault\xA0" "Ack/Res", 1, 160, -1},
        {"Indicator Test", 1, 170, -1},
    };
    ASSERT_EQ(KEYFUNCTIONNODE_COUNT, 17);
    const KEYFUNCTIONNODE* tree = KeyFunctionTree();
    for (int n = 0; n < 17; n++) {
        SCOPED_TRACE(nodes[n].label);
        EXPECT_STREQ(tree[n].label, nodes[n].label);
        EXPECT_EQ(tree[n].parent, nodes[n].parent);
        EXPECT_EQ(tree[n].id, nodes[n].id);
        EXPECT_EQ(tree[n].image, nodes[n].image);
    }
}

TEST(CatalogueTables, PrechimeAlarmToneAndCallStateTables)
{
    const std::map<int, std::string> prechimes = {
        {0, "1-Tone"}, {1, "2-Tone"}, {2, "3-Tone"}, {3, "4-Tone"}, {4, "2x2-Tone"}, {5, "2-Tone Pre-Chime"},
    };
    EXPECT_EQ(PrechimeTable(false), prechimes);
    std::map<int, std::string> withNone = prechimes;
    withNone[7] = "None";
    EXPECT_EQ(PrechimeTable(true), withNone);
    for (int code = -1; code <= 9; code++) {
        const auto known = prechimes.find(code);
        EXPECT_EQ(PrechimeText(code), known == prechimes.end() ? "No Prechime" : known->second) << code;
    }
    EXPECT_STREQ(kNoPrechime, "No Prechime");

    std::map<int, std::string> tones = {
        {0, "Extern"}, {1, "DIN Alarm"}, {2, "Slow Whoop"}, {3, "Siren"}, {4, "Two-Tone Alarm"},
        {5, "Telephone Alarm"}, {7, "Ship Alarm 1"},
    };
    for (int number = 2; number <= 11; number++)
        tones[number + 6] = "Ship Alarm " + std::to_string(number);
    for (int number = 13; number <= 17; number++)
        tones[number + 6] = "Ship Alarm " + std::to_string(number);
    EXPECT_EQ(AlarmToneTable(false), tones);
    tones[25] = "None";
    EXPECT_EQ(AlarmToneTable(true), tones);

    const std::map<int, std::string> states = {
        {0, "DEACT"},
        {1, "OFF"},
        {2, "GO"},
        {3, "GO AND INTERRUPT"},
        {4, "NO GO"},
        {5, "INTERRUPTED"},
        {6, "ON: PROGRAM"},
        {7, "STACKED"},
        {8, "ON: PRECHIME"},
        {9, "ON: ANNOUNCE"},
        {10, "ON: EVAC MSG"},
        {11, "ON: CHIME"},
        {12, "ON: ALARM"},
        {13, "ERROR"},
        {14, "HOLD: ALARM TALKED OVER"},
        {15, "SIGNALS STOPPED"},
        {16, "ON: ALARM TALK"},
        {17, "ON: LINETEST"},
        {18, "ANNOUNCEMENT OFF"},
        {19, "REDUNDANCY RX AUX"},
        {20, "ROUTING"},
        {21, "ON: PREMESSAGE"},
        {22, "ON: CHIME MSG"},
        {23, "ON: BUS MSG"},
    };
    EXPECT_EQ(CallStateTable(), states);

    const char* const categories[5] = {"ALARMS", "CHIMES", "ANNOUNCEMENTS", "EVAC MESSAGES", "BUSINESS MESSAGES"};
    for (int n = 0; n < 5; n++)
        EXPECT_STREQ(kMessageCategories[n], categories[n]);
}

TEST(CatalogueTables, EveryChoiceListItemByItem)
{
    struct LIST {
        int page, control;
        std::vector<std::string> items;
    };
    const std::vector<std::string> trigger = {"Push", "Switch", "Trigger"};
    const LIST lists[12] = {
        {152, 1015, trigger},
        {167, 1015, trigger},
        {167, 2019, trigger},
        {169, 1025,
         {"Set logic value permanently on", "Set logic value permanently off",
          "Set logic value on when pressing, off on releasing", "Toggle value on pushing button",
          "Radio Button Field"}},
        {171, 1053, {"\"BGM Selection\""}},
        {174, 1025, {"Toggle between all and clear", "Select All", "Deselect All"}},
        {183, 1025,
         {"Up", "Down", "Set Arithmetic Value", "Switch Arithmetic Value", "Toggle Arithmetic Value",
          "Radio Button Field"}},
        {184, 1022, trigger},
        {185, 1015, trigger},
        {185, 1023, {""}},
        {186, 1027, trigger},
        {208, 1015, {"toggle "}},
    };
    ASSERT_EQ(CHOICELIST_COUNT, 12);
    const CHOICELIST* actual = EditorChoiceLists();
    for (int n = 0; n < 12; n++) {
        SCOPED_TRACE(testing::Message() << lists[n].page << "/" << lists[n].control);
        EXPECT_EQ(actual[n].page, lists[n].page);
        EXPECT_EQ(actual[n].control, lists[n].control);
        ASSERT_EQ(actual[n].count, (int)lists[n].items.size());
        for (int item = 0; item < actual[n].count; item++)
            EXPECT_EQ(actual[n].items[item], lists[n].items[item]);
    }
}

TEST(CatalogueTables, DefaultKeysOfANewConsole)
{
    const std::map<int, std::string> defaults = {
        {115, "Toggle All,0"}, {116, "Menu,0"}, {117, "On,40,0"}, {118, "Stop,0,0,0,91,91,"},
        {119, "Talk to Selection,0,0,0,50,0,0,1,"},
    };
    std::map<int, std::string> actual;
    for (int n = 0; n < DEFAULTKEY_COUNT; n++)
        actual[kDefaultKeys[n].key] = kDefaultKeys[n].record;
    EXPECT_EQ(actual, defaults);
    EXPECT_STREQ(DefaultKeyRecord(30), "Toggle All,0");
    EXPECT_STREQ(DefaultKeyRecord(60), "Menu,0");
    EXPECT_STREQ(DefaultKeyRecord(110), "On,40,0");
    EXPECT_STREQ(DefaultKeyRecord(90), "Stop,0,0,0,91,91,");
    EXPECT_STREQ(DefaultKeyRecord(20), "Talk to Selection,0,0,0,50,0,0,1,");
    for (int id : {0, 10, 21, 31, 61, 120, 160, 170})
        EXPECT_EQ(DefaultKeyRecord(id), nullptr) << id;
}
