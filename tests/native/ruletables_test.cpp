// The small rule tables of the console object, its canvas and view, the design
// file, the firmware package and the text helpers, each case written out.
#include <gtest/gtest.h>

#include <ctype.h>
#include <stdio.h>
#include <wchar.h>
#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

#include "../../base/text.h"
#include "../../plugin/console/ledstates.h"
#include "../../plugin/console/viewrules.h"
#include "../../plugin/device/canvastext.h"
#include "../../plugin/device/consolesettings.h"
#include "../../plugin/device/designlines.h"
#include "../../plugin/device/keywordfamilies.h"
#include "../../plugin/device/keywordtable.h"
#include "../../plugin/entry/folderopen.h"
#include "../../plugin/firmware/archiverules.h"

TEST(RuleTables, ProjectVersionMatrix)
{
    struct ROW {
        const char* version;
        bool old;
    };
    const ROW rows[] = {
        {"V 2.7.9", true},  {"V 2.8.0", false}, {"V 3.0.0", false}, {"V 3.7.0", false}, {"", false},
        {"V 2.9.0", false}, {"V 0.7.0", true},  {"V 2.7", true},    {"V 2", true},      {"V 3", false},
        {"V 1.0.0", true},  {"V 2.6.99", true}, {"V 4.1.0", false}, {"2.7.9", true},    {"V -1.9.0", false},
        {"V 2.8", false},   {"V 3.9.9", false}, {"V 0.0.0", true},
    };
    for (const ROW& row : rows)
        EXPECT_EQ(IsOldProjectVersion(row.version), row.old) << row.version;
    EXPECT_FALSE(IsOldProjectVersion(nullptr));
}

TEST(RuleTables, OldFaultMaskKeysShiftByOne)
{
    struct ROW {
        const char* key;
        const char* after;
        bool shifted;
    };
    const ROW rows[] = {
        {"FaultMask6", "FaultMask6", false},   {"FaultMask7", "FaultMask8", true},
        {"FaultMask8", "FaultMask9", true},    {"FaultMask9", "FaultMask10", true},
        {"FaultMask10", "FaultMask10", false}, {"FaultMask1", "FaultMask1", false},
        {"FaultMaskTest", "FaultMaskTest", false}, {"Faults7", "Faults7", false},
        {"faultmask7", "faultmask7", false},
    };
    for (const ROW& row : rows) {
        char key[32];
        CopyText(key, row.key);
        EXPECT_EQ(ShiftOldFaultMaskKey(key, sizeof key), row.shifted) << row.key;
        EXPECT_STREQ(key, row.after);
    }
    char small[11] = "FaultMask9";
    EXPECT_FALSE(ShiftOldFaultMaskKey(small, sizeof small));  // "FaultMask10" does not fit
}

TEST(RuleTables, ObjectNameSplitsAtTheLastStar)
{
    struct ROW {
        const char* full;
        const char* prefix;
        const char* local;
    };
    const ROW rows[] = {
        {"Site*Floor1*Desk", "Site*Floor1*", "Desk"}, {"Desk", "", "Desk"}, {"*Desk", "*", "Desk"},
        {"Site*", "Site*", ""},                       {"", "", ""},
    };
    for (const ROW& row : rows) {
        char prefix[128];
        EXPECT_STREQ(SplitObjectName(row.full, prefix, sizeof prefix), row.local) << row.full;
        EXPECT_STREQ(prefix, row.prefix) << row.full;
    }
}

TEST(RuleTables, ModelTextsFacesAndObjectNames)
{
    const char* const texts[7] = {"ZEL4010", "ZEL4020", "", "ELK-CSK", "ORN-15CST", "ELK-15CST", "ORN-CSK"};
    for (int model = 0; model < 7; model++) {
        EXPECT_STREQ(ModelText(model), texts[model]) << model;
        if (model != 2) {
            EXPECT_EQ(ModelFromText(texts[model]), model) << model;
        }
    }
    EXPECT_STREQ(ModelText(7), "");
    EXPECT_STREQ(ModelText(-1), "");
    EXPECT_EQ(ModelFromText(""), -1);
    EXPECT_EQ(ModelFromText(nullptr), -1);
    EXPECT_EQ(ModelFromText("orn-15cst"), -1);
    EXPECT_EQ(ModelFromText("ORN-15CSK"), 6);

    const int faces[7] = {194, 194, 194, 188, 106, 194, 188};
    for (int model = 0; model < 7; model++)
        EXPECT_EQ(CanvasFaceImage(model), faces[model]) << model;
    EXPECT_EQ(CanvasFaceImage(-1), 194);

    struct NAME {
        const char* name;
        int model;
    };
    const NAME names[] = {{"ORNCST_1", 4},  {"ORNCST_", 4},   {"ORNCST", 4},   {"ELKCST_1", 5},
                          {"ORNCSTX_1", 5}, {"ORNCS_1", 5},   {"ornCST_1", 5}, {"", 5},
                          {"XORNCST_1", 5}, {"ORNCST_A_B", 4}, {"ORNCSX_1", 5}, {"Site*ORNCST_1", 5}};
    for (const NAME& n : names)
        EXPECT_EQ(ModelFromObjectName(n.name), n.model) << n.name;
}

TEST(RuleTables, CanvasTooltipLines)
{
    struct ROW {
        const char* window;
        int address, model, keypads;
        const char* name;
        const char* text;
    };
    const ROW rows[] = {
        {"ORNCST_1", 10, 4, 0, "Desk", "Objectname: \tORNCST_1\nAddress: \t10 (0x0a)\nType: \t\tORN-15CST\nName: \t\tDesk"},
        {"ELKCST_2", 3, 5, 2, "Hall", "Objectname: \tELKCST_2\nAddress: \t3 (0x03)\nType: \t\tELK-15CST, 2 ELK-20CSE\nName: \t\tHall"},
        {"ORNCST_3", 255, 4, 1, "", "Objectname: \tORNCST_3\nAddress: \t255 (0xff)\nType: \t\tORN-15CST, 1 ORN-20CSE\nName: \t\t"},
        {"X", 1, 6, 3, "K", "Objectname: \tX\nAddress: \t1 (0x01)\nType: \t\tORN-CSK\nName: \t\tK"},
        {"Y", 2, 5, 1, "L", "Objectname: \tY\nAddress: \t2 (0x02)\nType: \t\tELK-15CST, 1 ELK-20CSE\nName: \t\tL"},
        {"Z", 4, 4, 5, "M", "Objectname: \tZ\nAddress: \t4 (0x04)\nType: \t\tORN-15CST, 5 ORN-20CSE\nName: \t\tM"},
        {"X", 16, 3, 1, "K", "Objectname: \tX\nAddress: \t16 (0x10)\nType: \t\tELK-CSK\nName: \t\tK"},
    };
    for (const ROW& row : rows) {
        char text[512];
        FormatCanvasTooltip(text, sizeof text, row.window, row.address, row.model, row.keypads, row.name);
        EXPECT_STREQ(text, row.text);
    }
    // The window text is cut at 64 characters.
    const std::string longWindow(100, 'w');
    char text[512];
    FormatCanvasTooltip(text, sizeof text, longWindow.c_str(), 1, 5, 0, "N");
    EXPECT_EQ(std::string(text), "Objectname: \t" + std::string(64, 'w') + "\nAddress: \t1 (0x01)\nType: \t\tELK-15CST\nName: \t\tN");
}

TEST(RuleTables, ConsoleSettingsDefaults)
{
    const CONSOLESETTINGS settings;
    EXPECT_EQ(settings.bgmMenuActive, 0);
    EXPECT_EQ(settings.buzzer, 0);
    EXPECT_EQ(settings.canTermination, 0);
    EXPECT_EQ(settings.compressor, 0);
    const int masks[11] = {0, 1, 1, 1, 0, 0, 0, 0, 1, 1, 1};  // [1..10], [7] the test fault
    for (int mask = 1; mask <= 10; mask++)
        EXPECT_EQ(settings.faultMask[mask], masks[mask]) << mask;
    EXPECT_EQ(settings.showDate, 1);
    EXPECT_EQ(settings.showLineMonitoring, 0);
    EXPECT_EQ(settings.showPowerManagementStates, 0);
    EXPECT_EQ(settings.reportFaults, 0);
    EXPECT_EQ(settings.priority, 0);
    EXPECT_EQ(FAULTMASK_TEST, 7);
    EXPECT_EQ(CONSOLE_KEY_COUNT, 128);
    EXPECT_EQ(CONSOLE_NUMERICKEY_COUNT, 12);
    EXPECT_EQ(DISPLAYNAME_SIZE, 129);
    EXPECT_EQ(KEYLABEL_SIZE, 32);
}

TEST(RuleTables, LedStateDigits)
{
    struct ROW {
        uint8_t state;
        int primary, secondary;
    };
    for (int state = 0; state < 16; state++) {
        EXPECT_EQ(LedModeOf((uint8_t)state, false), state & 3) << state;
        EXPECT_EQ(LedModeOf((uint8_t)state, true), state >> 2) << state;
    }
    EXPECT_EQ(LedModeOf(0xF0 | 6, true), 1);
    EXPECT_EQ(WithLedMode(0x0, false, 3), 0x3);
    EXPECT_EQ(WithLedMode(0x0, true, 3), 0xC);
    EXPECT_EQ(WithLedMode(0xF, false, 1), 0xD);
    EXPECT_EQ(WithLedMode(0xF, true, 2), 0xB);
    EXPECT_EQ(WithLedMode(0x5, true, 7), 0xD);  // the mode is two bits

    uint8_t states[LEDSTATE_KEYS] = {};
    ASSERT_TRUE(ParseLedStates("0123456789abcdefABCDEF", states));
    const uint8_t expected[22] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 10, 11, 12, 13, 14, 15};
    for (int key = 0; key < 22; key++)
        EXPECT_EQ(states[key], expected[key]) << key;
    EXPECT_EQ(states[22], 0);
    const std::string text = FormatLedStates(states);
    EXPECT_EQ(text, "0123456789abcdefabcdef" + std::string(106, '0'));
    EXPECT_EQ(text.size(), 128u);

    uint8_t kept[LEDSTATE_KEYS];
    memset(kept, 5, sizeof kept);
    for (const char* bad : {"g", "0 1", "-1", "12x", "/", ":", "@", "G", "`"}) {
        EXPECT_FALSE(ParseLedStates(bad, kept)) << bad;
        EXPECT_EQ(kept[0], 5) << bad;
    }
    EXPECT_TRUE(ParseLedStates(std::string(128, 'f').c_str(), kept));
    EXPECT_EQ(kept[127], 15);
    EXPECT_FALSE(ParseLedStates(std::string(129, '1').c_str(), kept));
    EXPECT_EQ(kept[127], 15);
    EXPECT_TRUE(ParseLedStates("", kept));
    EXPECT_EQ(kept[0], 0);
}

TEST(RuleTables, KeyMenusOfEveryKey)
{
    for (int type : {0, 3, 4, 5, 6}) {
        for (int key = -1; key <= 124; key++) {
            for (bool numeric : {false, true}) {
                KEYMENU expected = KEYMENU_ORDINARY;
                if (key < 0 || key == 116)
                    expected = KEYMENU_NONE;
                else if (numeric && key <= 11)
                    expected = KEYMENU_NONE;
                else if (key == 123 && (type == 0 || type == 4 || type == 5))
                    expected = KEYMENU_NONE;
                else if (key >= 120 && key <= 122)
                    expected = KEYMENU_SPECIAL;
                EXPECT_EQ(KeyMenuFor(type, key, numeric), expected) << type << "/" << key << "/" << numeric;
            }
        }
    }
}

TEST(RuleTables, ClearCopyAndPasteRefusals)
{
    for (int id = 0; id <= 180; id++) {
        EXPECT_EQ(CanClearKey(id), id != 0) << id;
        EXPECT_EQ(CanCopyKey(id), id != 120 && id != 170) << id;
    }
    for (int type : {0, 1, 3, 4, 5, 6}) {
        for (int key = 0; key <= 123; key++) {
            bool refused = false;
            if (type == 4 || type == 5)
                refused = key != 115;
            else if (type == 0)
                refused = key >= 115 && key <= 119;
            EXPECT_EQ(RefusesPastedFunction(type, key, 160), refused) << type << "/" << key;
            EXPECT_FALSE(RefusesPastedFunction(type, key, 161)) << type << "/" << key;
            EXPECT_FALSE(RefusesPastedFunction(type, key, 0)) << type << "/" << key;
        }
    }
}

TEST(RuleTables, KeyTooltipTexts)
{
    EXPECT_EQ(KeyTooltip(3, 5, "Talk to Zone", "CN15/4", "CN11/3", "CN11/7"),
              " ID:\t\t 5\n Function:\t Talk to Zone\n Button:\t\t CN15/4\n Primary LED:\t CN11/3\n Secondary LED:\t CN11/7");
    EXPECT_EQ(KeyTooltip(6, 120, "Empty", "CN17/4", "none", "none"),
              " ID:\t\t 120\n Function:\t Empty\n Button:\t\t CN17/4\n Primary LED:\t none\n Secondary LED:\t none");
    EXPECT_EQ(KeyTooltip(3, 2, nullptr, "CN15/7", "CN10/4", "CN10/8"),
              " ID:\t\t 2\n Function:\t Numeric key\n Button:\t\t CN15/7\n Primary LED:\t CN10/4\n Secondary LED:\t CN10/8");
    for (int type : {0, 2, 4, 5})
        EXPECT_EQ(KeyTooltip(type, 119, "Stop", "", "none", "none"), " ID:\t\t 119\n Function:\t Stop") << type;
    EXPECT_EQ(KeyTooltip(0, 11, nullptr, "", "none", "none"), " ID:\t\t 11\n Function:\t Numeric key");
}

TEST(RuleTables, ExtensionSlotsAndPageButtons)
{
    uint8_t slots[5] = {};
    EXPECT_EQ(PresentExtensions(slots), 0);
    EXPECT_EQ(RemoveExtensionSlot(slots), -1);
    for (int slot = 0; slot < 5; slot++) {
        EXPECT_EQ(AddExtensionSlot(slots), slot);
        EXPECT_EQ(PresentExtensions(slots), slot + 1);
    }
    EXPECT_EQ(AddExtensionSlot(slots), -1);
    EXPECT_EQ(PresentExtensions(slots), 5);
    for (int slot = 4; slot >= 0; slot--)
        EXPECT_EQ(RemoveExtensionSlot(slots), slot);
    EXPECT_EQ(RemoveExtensionSlot(slots), -1);

    const uint8_t gaps[5] = {0, 7, 1, 0, 1};
    EXPECT_EQ(PresentExtensions(gaps), 3);
    uint8_t fill[5] = {1, 0, 1, 0, 0};
    EXPECT_EQ(AddExtensionSlot(fill), 1);
    uint8_t trim[5] = {1, 0, 1, 0, 0};
    EXPECT_EQ(RemoveExtensionSlot(trim), 2);
    EXPECT_EQ(trim[0], 1);
    EXPECT_EQ(trim[2], 0);

    const int pages[7] = {0, 1, 2, 3, 4, 5, 6};
    const int slotOfPage[7] = {-1, -1, 1, 2, -1, 4, -1};
    for (int n = 0; n < 7; n++)
        EXPECT_EQ(SlotOfPage(gaps, pages[n]), slotOfPage[n]) << pages[n];
    EXPECT_EQ(SlotOfPage(gaps, -1), -1);

    struct BUTTON {
        int id;
        const char* text;
        int y;
    };
    const BUTTON expected[4] = {{2000, "Console", 0}, {2002, "Extension 2", 30}, {2003, "Extension 3", 60},
                                {2005, "Extension 5", 90}};
    const std::vector<PAGEBUTTON> buttons = PageButtons(gaps);
    ASSERT_EQ(buttons.size(), 4u);
    for (int n = 0; n < 4; n++) {
        EXPECT_EQ(buttons[n].id, expected[n].id);
        EXPECT_EQ(buttons[n].text, expected[n].text);
        EXPECT_EQ(buttons[n].y, expected[n].y);
    }
    const uint8_t onlyTwo[5] = {0, 0, 1, 0, 0};
    const std::vector<PAGEBUTTON> two = PageButtons(onlyTwo);
    ASSERT_EQ(two.size(), 2u);
    EXPECT_EQ(two[1].id, 2003);
    EXPECT_EQ(two[1].text, "Extension 3");
    EXPECT_EQ(two[1].y, 30);
}

namespace {

// Every keyword of the console object with its flags, as they are added.
std::vector<std::pair<std::string, uint32_t>> SpecKeywords()
{
    const uint32_t S = 0x2000, L = 0x8000, SL = 0xA000;
    std::vector<std::pair<std::string, uint32_t>> k = {
        {" ", 0},           {"type", SL},        {"connection", L},     {"address", SL},
        {"baudrate", L},    {"baudratefreeze", L}, {"slot", L},         {"preChimeActive", SL},
        {"reportFaults", SL}, {"Compressor", SL}, {"priority", SL},      {"extensionTypes", 0},
        {"hostrect", 0},    {"layer", S},        {"leds", 0},           {"name", SL},
        {"BootFirmware.Revision", L}, {"Firmware.Revision", L}, {"Runtime", L}, {"State", L},
        {"OperatingMode", L}, {"ExtensionCount", SL}, {"Update.Percent", L}, {"Update.State", L},
    };
    for (int n = 1; n <= 10; n++)
        k.push_back({"Faults" + std::to_string(n), L});
    for (int n = 1; n <= 10; n++)
        k.push_back({n == 7 ? "FaultMaskTest" : "FaultMask" + std::to_string(n), SL});
    k.push_back({"MasterFault", L});
    k.push_back({"PTTActive", S});
    for (int n = 1; n <= 8; n++)
        k.push_back({"StateFlags" + std::to_string(n), L});
    k.push_back({"ShowDate", SL});
    for (int n = 0; n < 128; n++) {
        char key[32];
        if (n >= 120 && n <= 122) {
            snprintf(key, sizeof key, "key0%dOptionState", n);
            k.push_back({key, S});
        }
        snprintf(key, sizeof key, "key%03d", n);
        k.push_back({key, S});
    }
    for (const char* name : {"online", "configuration"})
        k.push_back({name, 0});
    k.push_back({"generatePilot", SL});
    k.push_back({"getInputChannelList", 0});
    for (int n = 0; n < 128; n++) {
        char key[32];
        snprintf(key, sizeof key, "keylabel%03d", n);
        k.push_back({key, S});
    }
    k.push_back({"Buzzer", SL});
    k.push_back({"Watchdog.Clear", 0});
    k.push_back({"Watchdog.Counter", 0});
    k.push_back({"CANTermination", SL});
    k.push_back({"Find", L});
    k.push_back({"BgmMenuActive", SL});
    k.push_back({"ShowLineMonitoring", SL});
    k.push_back({"ShowPowerManagementStates", SL});
    k.push_back({"DecadicSelectionActive", SL});
    for (int n = 0; n < 12; n++)
        k.push_back({"NumericKey" + std::to_string(n), S});
    k.push_back({"GetCSTPagingList", 0});
    k.push_back({"FireEmergencyMonitoring", S});
    k.push_back({"EmergencyCSTKeys", S});
    return k;
}

int Answer(REQUEST*, CONSOLEPROPERTIES*)
{
    return 1;
}

}  // namespace

TEST(RuleTables, KeywordTableSortsAndFindsEveryKeyword)
{
    const auto keywords = SpecKeywords();
    ASSERT_EQ(keywords.size(), 342u);
    KEYWORDTABLE table;
    for (const auto& k : keywords)
        ASSERT_TRUE(table.Add(k.first.c_str(), k.first == " " ? nullptr : Answer, 0, k.second));
    EXPECT_FALSE(table.Add(nullptr, Answer, 0, 0));
    table.Finish();
    ASSERT_EQ(table.Count(), 342u);

    // The saved keywords in the order of a saved design file.
    std::vector<std::string> saved;
    for (size_t i = 0; i < table.Count(); i++)
        if (table.Entry(i).flags & KEYWORD_SAVED)
            saved.push_back(table.Entry(i).keyword);
    std::vector<std::string> expected = {"BgmMenuActive", "Buzzer", "CANTermination", "Compressor",
                                         "DecadicSelectionActive", "EmergencyCSTKeys", "ExtensionCount",
                                         "FaultMask1", "FaultMask10"};
    for (int n = 2; n <= 6; n++)
        expected.push_back("FaultMask" + std::to_string(n));
    for (const char* name : {"FaultMask8", "FaultMask9", "FaultMaskTest", "FireEmergencyMonitoring", "NumericKey0",
                             "NumericKey1", "NumericKey10", "NumericKey11"})
        expected.push_back(name);
    for (int n = 2; n <= 9; n++)
        expected.push_back("NumericKey" + std::to_string(n));
    for (const char* name : {"PTTActive", "ShowDate", "ShowLineMonitoring", "ShowPowerManagementStates", "address",
                             "generatePilot"})
        expected.push_back(name);
    char key[32];
    for (int n = 0; n <= 12; n++) {
        snprintf(key, sizeof key, "key%03d", n);
        expected.push_back(key);
    }
    for (const char* name : {"key0120OptionState", "key0121OptionState", "key0122OptionState"})
        expected.push_back(name);
    for (int n = 13; n <= 127; n++) {
        snprintf(key, sizeof key, "key%03d", n);
        expected.push_back(key);
    }
    for (int n = 0; n <= 127; n++) {
        snprintf(key, sizeof key, "keylabel%03d", n);
        expected.push_back(key);
    }
    for (const char* name : {"layer", "name", "preChimeActive", "priority", "reportFaults", "type"})
        expected.push_back(name);
    EXPECT_EQ(saved, expected);

    // Byte-wise order, the blank first; every keyword found at its place.
    EXPECT_EQ(table.Entry(0).keyword, " ");
    for (size_t i = 1; i < table.Count(); i++) {
        EXPECT_LT(strcmp(table.Entry(i - 1).keyword.c_str(), table.Entry(i).keyword.c_str()), 0) << i;
        EXPECT_EQ(table.Lookup(table.Entry(i).keyword.c_str()), i);
    }
    EXPECT_EQ(table.Lookup(" "), 0);
    EXPECT_EQ(table.Lookup("faultmask1"), 0);
    EXPECT_EQ(table.Lookup("FaultMask7"), 0);
    EXPECT_EQ(table.Lookup("key128"), 0);
    EXPECT_EQ(table.Lookup(""), 0);
    EXPECT_EQ(table.Lookup(nullptr), 0);
    EXPECT_EQ(table.Lookup("type"), 341);
}

namespace {

// The lookup as it was first written: a scan from the start, exact match.
uint16_t ScannedIndex(const KEYWORDTABLE& table, const char* keyword)
{
    for (size_t i = 0; keyword && i < table.Count() && i <= UINT16_MAX; i++)
        if (table.Entry(i).keyword == keyword)
            return (uint16_t)i;
    return 0;
}

}  // namespace

// The binary search answers as the scan did, for every keyword of the
// console, for the names around each (one character more or less, another
// case) and for names that sort before and after all of them.
TEST(RuleTables, KeywordLookupAnswersAsTheScanDid)
{
    KEYWORDTABLE table;
    for (const auto& k : SpecKeywords())
        table.Add(k.first.c_str(), Answer, 0, k.second);
    table.Finish();
    std::vector<std::string> names = {"", " ", "  ", "!", "\x01", "\x7f", "\xff", "\xff\xff", "~", "zzz",
                                      "FaultMask7", "faultmask1", "key128", "key", "keylabel", "Key000", "TYPE"};
    for (size_t i = 0; i < table.Count(); i++) {
        const std::string& keyword = table.Entry(i).keyword;
        names.push_back(keyword);
        names.push_back(keyword + "0");
        names.push_back(keyword + " ");
        names.push_back(keyword.substr(0, keyword.size() - 1));
        std::string upper = keyword, lower = keyword;
        for (char& c : upper)
            c = (char)toupper((unsigned char)c);
        for (char& c : lower)
            c = (char)tolower((unsigned char)c);
        names.push_back(upper);
        names.push_back(lower);
    }
    size_t found = 0;
    for (const std::string& name : names) {
        const uint16_t scanned = ScannedIndex(table, name.c_str());
        EXPECT_EQ(table.Lookup(name.c_str()), scanned) << "\"" << name << "\"";
        found += scanned != 0;
    }
    EXPECT_GE(found, table.Count() - 1);  // every keyword but the blank
    EXPECT_EQ(table.Lookup(nullptr), ScannedIndex(table, nullptr));
}

TEST(RuleTables, KeywordFamiliesNameTheirMembers)
{
    struct ROW {
        KEYWORDFAMILYID family;
        int first, last;
        uint32_t flags;
        const char* firstKeyword;
        const char* lastKeyword;
    };
    const ROW rows[] = {
        {KEYWORDFAMILY_FAULTS, 1, 10, 0x8000, "Faults1", "Faults10"},
        {KEYWORDFAMILY_FAULTMASKS, 1, 10, 0xA000, "FaultMask1", "FaultMask10"},
        {KEYWORDFAMILY_STATEFLAGS, 1, 8, 0x8000, "StateFlags1", "StateFlags8"},
        {KEYWORDFAMILY_KEYS, 0, 127, 0x2000, "key000", "key127"},
        {KEYWORDFAMILY_OPTIONSTATES, 120, 122, 0x2000, "key0120OptionState", "key0122OptionState"},
        {KEYWORDFAMILY_KEYLABELS, 0, 127, 0x2000, "keylabel000", "keylabel127"},
        {KEYWORDFAMILY_NUMERICKEYS, 0, 11, 0x2000, "NumericKey0", "NumericKey11"},
    };
    for (const ROW& row : rows) {
        SCOPED_TRACE(row.firstKeyword);
        const KEYWORDFAMILY& family = KeywordFamily(row.family);
        EXPECT_EQ(family.first, row.first);
        EXPECT_EQ(family.last, row.last);
        EXPECT_EQ(family.flags, row.flags);
        char keyword[64];
        ASSERT_TRUE(FamilyKeyword(row.family, row.first, keyword, sizeof keyword));
        EXPECT_STREQ(keyword, row.firstKeyword);
        ASSERT_TRUE(FamilyKeyword(row.family, row.last, keyword, sizeof keyword));
        EXPECT_STREQ(keyword, row.lastKeyword);
        EXPECT_FALSE(FamilyKeyword(row.family, row.first - 1, keyword, sizeof keyword));
        EXPECT_FALSE(FamilyKeyword(row.family, row.last + 1, keyword, sizeof keyword));
        EXPECT_NE(FamilyMemberHandler(row.family, row.first), nullptr);
        EXPECT_NE(FamilyMemberHandler(row.family, row.last), nullptr);
        EXPECT_EQ(FamilyMemberHandler(row.family, row.first - 1), nullptr);
        EXPECT_EQ(FamilyMemberHandler(row.family, row.last + 1), nullptr);
    }
    char keyword[64];
    ASSERT_TRUE(FamilyKeyword(KEYWORDFAMILY_FAULTMASKS, 7, keyword, sizeof keyword));
    EXPECT_STREQ(keyword, "FaultMaskTest");
    const char* const mirrored[9] = {"preChimeActive", "reportFaults", "Compressor", "ShowDate", "Buzzer",
                                     "CANTermination", "BgmMenuActive", "ShowLineMonitoring",
                                     "ShowPowerManagementStates"};
    std::vector<std::string> actual, expected(mirrored, mirrored + 9);
    const KEYWORDFAMILY& family = KeywordFamily(KEYWORDFAMILY_MIRRORED);
    EXPECT_EQ(family.flags, 0xA000u);
    for (int member = family.first; member <= family.last; member++) {
        ASSERT_TRUE(FamilyKeyword(KEYWORDFAMILY_MIRRORED, member, keyword, sizeof keyword));
        actual.push_back(keyword);
    }
    std::sort(actual.begin(), actual.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(actual, expected);
}

namespace {

struct FAKEFS {
    std::vector<std::string> calls;
    std::vector<std::string> folders;  // folders that exist
    std::string file;                  // the path that opens once its folder exists
};

void* FakeOpen(const char* path, const char* mode, void* context)
{
    FAKEFS* fs = (FAKEFS*)context;
    fs->calls.push_back(std::string("open ") + path + " " + mode);
    if (path != fs->file)
        return nullptr;
    const std::string parent = fs->file.substr(0, fs->file.rfind('\\'));
    return std::find(fs->folders.begin(), fs->folders.end(), parent) != fs->folders.end() ? fs : nullptr;
}

void FakeMakeFolder(const char* path, void* context)
{
    FAKEFS* fs = (FAKEFS*)context;
    fs->calls.push_back(std::string("mkdir ") + path);
    const std::string folder(path);
    const size_t cut = folder.find_last_of("\\/");
    const std::string parent = folder.substr(0, cut);
    if (std::find(fs->folders.begin(), fs->folders.end(), parent) != fs->folders.end())
        fs->folders.push_back(folder);
}

}  // namespace

TEST(RuleTables, FolderOpenSequences)
{
    FAKEFS fs;
    fs.folders = {"C:\\a"};
    fs.file = "C:\\a\\b\\c\\d.txt";
    const FOLDEROPENOPS ops = {FakeOpen, FakeMakeFolder, &fs};
    EXPECT_EQ(OpenCreatingFolders("C:\\a", "b\\c\\d.txt", "wb", ops), &fs);
    const std::vector<std::string> calls = {"open C:\\a\\b\\c\\d.txt wb", "mkdir C:\\a\\b", "open C:\\a\\b\\c\\d.txt wb",
                                            "mkdir C:\\a\\b\\c", "open C:\\a\\b\\c\\d.txt wb"};
    EXPECT_EQ(fs.calls, calls);

    FAKEFS mixed;
    mixed.folders = {"C:\\a"};
    mixed.file = "never";
    const FOLDEROPENOPS mixedOps = {FakeOpen, FakeMakeFolder, &mixed};
    EXPECT_EQ(OpenCreatingFolders("C:\\a", "b/c\\d.txt", "wb", mixedOps), nullptr);
    const std::vector<std::string> mixedCalls = {"open C:\\a\\b/c\\d.txt wb", "mkdir C:\\a\\b/c",
                                                 "open C:\\a\\b/c\\d.txt wb"};
    EXPECT_EQ(mixed.calls, mixedCalls);

    // A slash is used once no backslash is left, and put back as a backslash.
    FAKEFS slash;
    slash.folders = {"C:\\a"};
    slash.file = "C:\\a\\b\\d.txt";
    const FOLDEROPENOPS slashOps = {FakeOpen, FakeMakeFolder, &slash};
    EXPECT_EQ(OpenCreatingFolders("C:\\a", "b/d.txt", "w+b", slashOps), &slash);
    const std::vector<std::string> slashCalls = {"open C:\\a\\b/d.txt w+b", "mkdir C:\\a\\b", "open C:\\a\\b\\d.txt w+b"};
    EXPECT_EQ(slash.calls, slashCalls);

    // The folder part's own separators are not searched.
    FAKEFS flat;
    flat.folders = {};
    flat.file = "none";
    const FOLDEROPENOPS flatOps = {FakeOpen, FakeMakeFolder, &flat};
    EXPECT_EQ(OpenCreatingFolders("C:\\x\\y", "d.txt", "rb", flatOps), nullptr);
    const std::vector<std::string> flatCalls = {"open C:\\x\\y\\d.txt rb"};
    EXPECT_EQ(flat.calls, flatCalls);

    // A path that does not fit the buffer opens nothing.
    FAKEFS big;
    const FOLDEROPENOPS bigOps = {FakeOpen, FakeMakeFolder, &big};
    const std::string longName(FOLDEROPEN_PATH_SIZE, 'n');
    EXPECT_EQ(OpenCreatingFolders("C:\\a", longName.c_str(), "wb", bigOps), nullptr);
    EXPECT_TRUE(big.calls.empty());
    const std::string fits(FOLDEROPEN_PATH_SIZE - 6, 'n');  // "C:\a\" and the terminator
    OpenCreatingFolders("C:\\a", fits.c_str(), "wb", bigOps);
    EXPECT_EQ(big.calls.size(), 1u);
    EXPECT_EQ(OpenCreatingFolders(nullptr, "x", "wb", bigOps), nullptr);
    EXPECT_EQ(OpenCreatingFolders("C:\\a", nullptr, "wb", bigOps), nullptr);
    EXPECT_EQ(OpenCreatingFolders("C:\\a", "x", nullptr, bigOps), nullptr);
}

TEST(RuleTables, ArchiveNameRules)
{
    struct ROW {
        const char* name;
        bool safe;
    };
    const ROW rows[] = {
        {"a", true},           {"dir/a.bin", true},    {"dir\\sub\\a.bin", true}, {"a b.bin", true},
        {"COM0.bin", true},    {"LPT10", true},        {"CONSOLE.bin", true},     {"NULL", true},
        {"COM1", false},       {"lpt9.txt", false},    {"Aux", false},            {"prn.x.y", false},
        {"CONIN$", false},     {"conout$.txt", false}, {"x/COM5", false},         {"..a", true},
        {"a..", false},        {"...", false},         {"a/./b", true},           {".", true},
        {"a/ /b", false},      {"a\x1f", false},       {"a\x7f", true},           {"/a", false},
        {"\\a", false},        {"a:b", false},         {"a/../b", false},         {"a\\..", false},
        {"..\\a", false},      {"a /b", false},        {"a./b", false},           {"a/b.", false},
        {"", false},           {"a\tb", false},       {"COM10.bin", true},       {"a/..", false},
        {"fonts/NUL.bin", false}, {"\\\\server\\x", false},
    };
    for (const ROW& row : rows) {
        std::string reason;
        EXPECT_EQ(IsSafeEntryName(row.name, strlen(row.name), &reason), row.safe) << row.name;
        EXPECT_EQ(reason.empty(), row.safe) << row.name;
    }
    const std::string at255(255, 'x'), at256(256, 'x');
    EXPECT_TRUE(IsSafeEntryName(at255.c_str(), at255.size(), nullptr));
    EXPECT_FALSE(IsSafeEntryName(at256.c_str(), at256.size(), nullptr));
    EXPECT_FALSE(IsSafeEntryName(nullptr, 3, nullptr));
    EXPECT_FALSE(IsSafeEntryName("abc", 0, nullptr));
    EXPECT_FALSE(IsSafeEntryName("a\0b", 3, nullptr));

    struct ROLE {
        const char* name;
        FIRMWAREROLE role;
    };
    const ROLE roles[] = {
        {"C:\\t\\ZEL4k_DB_1.dat", ROLE_DATABASE}, {"ZEL4k_FONT_x", ROLE_FONT},    {"zel4k_db_1.dat", ROLE_FIRMWARE},
        {"ZEL4k_DB", ROLE_FIRMWARE},             {"x/ZEL4k_DB_1.dat", ROLE_DATABASE},             {"ZEL4k_FONT", ROLE_FIRMWARE}, {"CST_1.bin", ROLE_FIRMWARE},
    };
    for (const ROLE& role : roles)
        EXPECT_EQ(ClassifyFirmwareEntry(role.name), role.role) << role.name;
    for (int type = -1; type <= 8; type++)
        EXPECT_STREQ(FirmwareFolderOf(type), type == 4 || type == 6 ? "Firmware\\SOLVAN\\" : "Firmware\\TX4400\\")
            << type;
    EXPECT_TRUE(WithinExtractionLimits(0, 0));
    EXPECT_TRUE(WithinExtractionLimits(1000, 0));
    EXPECT_TRUE(WithinExtractionLimits(0, 268435456ull));
    EXPECT_FALSE(WithinExtractionLimits(1001, 0));
    EXPECT_FALSE(WithinExtractionLimits(0, 268435457ull));
}

TEST(RuleTables, BoundedText)
{
    char four[4];
    EXPECT_TRUE(FormatText(four, sizeof four, "%d", 123));
    EXPECT_STREQ(four, "123");
    EXPECT_FALSE(FormatText(four, sizeof four, "%d", 1234));
    EXPECT_STREQ(four, "123");
    EXPECT_FALSE(FormatText(four, 0, "%d", 1));
    EXPECT_FALSE(FormatText(nullptr, 4, "%d", 1));
    // A format that cannot be written leaves an empty buffer and says so.
    char eight[8] = "xyz";
    EXPECT_FALSE(FormatText(eight, sizeof eight, "ab%lc", (wint_t)0x100));
    EXPECT_STREQ(eight, "");
    char six[6];
    EXPECT_FALSE(Format(six, "%s", "too long for it"));
    EXPECT_STREQ(six, "too l");
    EXPECT_EQ(FormatString("%s-%03d", "key", 7), "key-007");
    EXPECT_EQ(FormatString("%s", ""), "");
    EXPECT_EQ(FormatString("%s", std::string(5000, 'z').c_str()).size(), 5000u);

    EXPECT_TRUE(CopyText(four, sizeof four, "abc"));
    EXPECT_STREQ(four, "abc");
    EXPECT_FALSE(CopyText(four, sizeof four, "abcd"));
    EXPECT_STREQ(four, "abc");
    EXPECT_TRUE(CopyText(four, sizeof four, nullptr));
    EXPECT_STREQ(four, "");
    EXPECT_FALSE(CopyText(four, 0, "a"));
    EXPECT_TRUE(CopyTextN(four, sizeof four, "abcdef", 2));
    EXPECT_STREQ(four, "ab");
    EXPECT_TRUE(CopyTextN(four, sizeof four, "abcdef", 3));
    EXPECT_STREQ(four, "abc");
    EXPECT_FALSE(CopyTextN(four, sizeof four, "abcdef", 4));
    EXPECT_STREQ(four, "abc");
    EXPECT_FALSE(CopyTextN(nullptr, 4, "a", 1));

    CopyText(eight, "ab");
    EXPECT_TRUE(AppendText(eight, sizeof eight, "cde"));
    EXPECT_STREQ(eight, "abcde");
    EXPECT_TRUE(AppendText(eight, sizeof eight, "fg"));
    EXPECT_STREQ(eight, "abcdefg");
    EXPECT_FALSE(AppendText(eight, sizeof eight, "h"));
    EXPECT_STREQ(eight, "abcdefg");
    EXPECT_FALSE(AppendText(eight, 0, "h"));
    EXPECT_FALSE(AppendText(nullptr, 8, "h"));
    char full[3] = {'x', 'y', 'z'};
    EXPECT_FALSE(AppendText(full, sizeof full, ""));

    struct INT {
        const char* text;
        bool leading;
        int leadingValue;
        bool whole;
        int wholeValue;
    };
    const INT ints[] = {
        {"42", true, 42, true, 42},         {" -7 ", true, -7, true, -7},      {"+3", true, 3, true, 3},
        {"12ab", true, 12, false, 0},       {"", false, 0, false, 0},          {"   ", false, 0, false, 0},
        {"x1", false, 0, false, 0},         {"2147483647", true, 2147483647, true, 2147483647},
        {"-2147483648", true, -2147483647 - 1, true, -2147483647 - 1},
        {"2147483648", false, 0, false, 0}, {"-2147483649", false, 0, false, 0},
        {"99999999999999999999", false, 0, false, 0}, {"0", true, 0, true, 0}, {"1 2", true, 1, false, 0},
    };
    for (const INT& n : ints) {
        int value = 99;
        EXPECT_EQ(ScanLeadingInt(n.text, &value), n.leading) << n.text;
        EXPECT_EQ(value, n.leading ? n.leadingValue : 99) << n.text;
        value = 99;
        EXPECT_EQ(ParseInt(n.text, &value), n.whole) << n.text;
        EXPECT_EQ(value, n.whole ? n.wholeValue : 99) << n.text;
    }
    int value = 0;
    EXPECT_FALSE(ScanLeadingInt(nullptr, &value));
    EXPECT_FALSE(ParseInt(nullptr, &value));
}
