#include "keycatalogue.h"

#include <string.h>
#include <strings.h>

#include "../../base/banned.h"

namespace {

struct KEYFUNCTION {
    const char* name;
    int32_t id;
};

// The order matters: lookups stop at the first match. "Push" and "Switch"
// share 42 (an id reads as "Push"), and the PTT rows stand between "Stop"
// and "On" on purpose.
const KEYFUNCTION kKeyFunctions[KEYFUNCTION_COUNT] = {
    {"Empty", 0},
    {"Select Zone", 10},
    {"Select Group", 11},
    {"Talk to Selection", 20},
    {"Talk to Zone", 21},
    {"Talk to Group", 22},
    {"Toggle All", 30},
    {"Select All", 31},
    {"Clear All", 32},
    {"Switch On", 40},
    {"Switch Off", 41},
    {"Push", 42},
    {"Switch", 42},
    {"Toggle", 43},
    {"LED Ignition only", 44},
    {"Increase", 50},
    {"Decrease", 51},
    {"Menu", 60},
    {"Program", 61},
    {"Monitoring", 62},
    {"Chime to Selection", 70},
    {"Chime to Zone", 71},
    {"Chime to Group", 72},
    {"Alarm to Selection", 80},
    {"Alarm to Zone", 81},
    {"Alarm to Group", 82},
    {"Stop", 90},
    {"PTT to Selection", 150},
    {"PTT to Zone", 151},
    {"PTT to Group", 152},
    {"On", 110},
    {"Protect", 120},
    {"EVAC Messages to Selection", 130},
    {"EVAC Messages to Zone", 131},
    {"EVAC Messages to Group", 132},
    {"Business Messages to Selection", 140},
    {"Business Messages to Zone", 141},
    {"Business Messages to Group", 142},
    {"System Faults", 160},
    {"Indicator Test", 170},
};

const KEYFUNCTIONNODE kTree[KEYFUNCTIONNODE_COUNT] = {
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
    {"System Fault\xA0" "Ack/Res", 1, 160, -1},  // one no-break space (Windows-1252)
    {"Indicator Test", 1, 170, -1},
};

const char* const kPrechimes[] = {"1-Tone", "2-Tone", "3-Tone", "4-Tone", "2x2-Tone", "2-Tone Pre-Chime"};

const char* const kTriggerTypes[] = {"Push", "Switch", "Trigger"};
const char* const kLogicModes[] = {"Set logic value permanently on", "Set logic value permanently off",
                                   "Set logic value on when pressing, off on releasing",
                                   "Toggle value on pushing button", "Radio Button Field"};
const char* const kMenuChoices[] = {"\"BGM Selection\""};
const char* const kClearModes[] = {"Toggle between all and clear", "Select All", "Deselect All"};
const char* const kArithmeticModes[] = {"Up", "Down", "Set Arithmetic Value", "Switch Arithmetic Value",
                                        "Toggle Arithmetic Value", "Radio Button Field"};
const char* const kOneEmptyItem[] = {""};
const char* const kIndicatorModes[] = {"toggle "};

#define ITEMS(list) list, (int)(sizeof list / sizeof list[0])
const CHOICELIST kChoiceLists[CHOICELIST_COUNT] = {
    {152, 1015, ITEMS(kTriggerTypes)},   {167, 1015, ITEMS(kTriggerTypes)},  {167, 2019, ITEMS(kTriggerTypes)},
    {169, 1025, ITEMS(kLogicModes)},     {171, 1053, ITEMS(kMenuChoices)},   {174, 1025, ITEMS(kClearModes)},
    {183, 1025, ITEMS(kArithmeticModes)}, {184, 1022, ITEMS(kTriggerTypes)}, {185, 1015, ITEMS(kTriggerTypes)},
    {185, 1023, ITEMS(kOneEmptyItem)},   {186, 1027, ITEMS(kTriggerTypes)},  {208, 1015, ITEMS(kIndicatorModes)},
};
#undef ITEMS

const struct {
    int32_t id;
    const char* record;
} kNewKeyRecords[] = {
    {30, "Toggle All,0"},
    {60, "Menu,0"},
    {110, "On,40,0"},
    {90, "Stop,0,0,0,91,91,"},
    {20, "Talk to Selection,0,0,0,50,0,0,1,"},
};

}  // namespace

const char kNoPrechime[] = "No Prechime";

const char* const kMessageCategories[MESSAGECATEGORY_COUNT] = {"ALARMS", "CHIMES", "ANNOUNCEMENTS", "EVAC MESSAGES",
                                                                "BUSINESS MESSAGES"};

const DEFAULTKEY kDefaultKeys[DEFAULTKEY_COUNT] = {
    {117, "On,40,0"},
    {116, "Menu,0"},
    {118, "Stop,0,0,0,91,91,"},
    {115, "Toggle All,0"},
    {119, "Talk to Selection,0,0,0,50,0,0,1,"},
};

int KeyFamily(int32_t id)
{
    return id / 10 - 1;
}

int FindKeyFunctionIndex(int32_t id)
{
    for (int position = 0; position < KEYFUNCTION_COUNT; position++)
        if (kKeyFunctions[position].id == id)
            return position;
    return -1;
}

int32_t KeyFunctionIdAt(int position)
{
    return position >= 0 && position < KEYFUNCTION_COUNT ? kKeyFunctions[position].id : -1;
}

const char* KeyFunctionNameAt(int position)
{
    return position >= 0 && position < KEYFUNCTION_COUNT ? kKeyFunctions[position].name : nullptr;
}

const char* KeyFunctionName(int32_t id)
{
    const int position = FindKeyFunctionIndex(id);
    return position >= 0 ? kKeyFunctions[position].name : "Types";
}

namespace {

// Names that start with different ASCII letters, case aside, never compare
// equal however the library folds case: most of the catalogue is passed over
// without a call.
bool FirstLettersDiffer(const char* a, const char* b)
{
    const unsigned x = (unsigned char)a[0] | 0x20u, y = (unsigned char)b[0] | 0x20u;
    return x >= 'a' && x <= 'z' && y >= 'a' && y <= 'z' && x != y;
}

}  // namespace

int32_t KeyFunctionId(const char* name)
{
    if (!name)
        return KF_EMPTY;
    for (const KEYFUNCTION& function : kKeyFunctions)
        if (!FirstLettersDiffer(function.name, name) && strcasecmp(function.name, name) == 0)
            return function.id;
    return KF_EMPTY;
}

int KeyFunctionPage(int32_t id)
{
    switch (id) {
    case 0:
        return 176;
    case 10: case 11:
        return 120;
    case 20: case 21: case 22:
        return 167;
    case 30: case 31: case 32:
        return 174;
    case 40: case 41: case 42: case 43: case 44:
        return 169;
    case 50: case 51:
        return 183;
    case 60: case 61: case 62:
        return 171;
    case 70: case 71: case 72:
        return 184;
    case 80: case 81: case 82:
        return 185;
    case 90:
        return 186;
    case 110:
        return 158;
    case 120:
        return 161;
    case 130: case 131: case 132:
        return 163;
    case 140: case 141: case 142:
        return 193;
    case 150: case 151: case 152:
        return 152;
    case 160:
        return 205;
    case 170:
        return 208;
    default:
        return 182;
    }
}

const KEYFUNCTIONNODE* KeyFunctionTree()
{
    return kTree;
}

std::map<int, std::string> PrechimeTable(bool withNone)
{
    std::map<int, std::string> table;
    for (int code = 0; code < 6; code++)
        table[code] = kPrechimes[code];
    if (withNone)
        table[7] = "None";  // code 6 is unused on purpose
    return table;
}

std::string PrechimeText(int code)
{
    return code >= 0 && code < 6 ? kPrechimes[code] : kNoPrechime;
}

std::map<int, std::string> AlarmToneTable(bool withNone)
{
    std::map<int, std::string> table = {{0, "Extern"},         {1, "DIN Alarm"},      {2, "Slow Whoop"},
                                        {3, "Siren"},          {4, "Two-Tone Alarm"}, {5, "Telephone Alarm"},
                                        {7, "Ship Alarm 1"}};
    // The device has no tone at 6, 18 and 24, and no twelfth ship alarm.
    for (int number = 2; number <= 17; number++)
        if (number != 12)
            table[number + 6] = "Ship Alarm " + std::to_string(number);
    if (withNone)
        table[25] = "None";
    return table;
}

std::map<int, std::string> CallStateTable()
{
    static const char* const states[] = {
        "DEACT",   "OFF",           "GO",          "GO AND INTERRUPT",
        "NO GO",   "INTERRUPTED",   "ON: PROGRAM", "STACKED",
        "ON: PRECHIME", "ON: ANNOUNCE", "ON: EVAC MSG", "ON: CHIME",
        "ON: ALARM", "ERROR",       "HOLD: ALARM TALKED OVER", "SIGNALS STOPPED",
        "ON: ALARM TALK", "ON: LINETEST", "ANNOUNCEMENT OFF", "REDUNDANCY RX AUX",
        "ROUTING", "ON: PREMESSAGE", "ON: CHIME MSG", "ON: BUS MSG",
    };
    std::map<int, std::string> table;
    for (int code = 0; code < (int)(sizeof states / sizeof states[0]); code++)
        table[code] = states[code];
    return table;
}

const CHOICELIST* EditorChoiceLists()
{
    return kChoiceLists;
}

const char* DefaultKeyRecord(int32_t id)
{
    for (const auto& entry : kNewKeyRecords)
        if (entry.id == id)
            return entry.record;
    return nullptr;
}
