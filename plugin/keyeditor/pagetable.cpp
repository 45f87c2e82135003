#include "pagetable.h"

#include <errno.h>
#include <stdlib.h>
#include <string.h>

#include "../keys/keycatalogue.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// Each row names the record position its control edits: 1 is the first field
// after the function name, in the order of the family's record (the README's
// "The editor pages" writes the mapping down).

const PAGECONTROL kSelect[] = {  // "Select Zone,%d,%s"
    {IDC_KEY_DESTINATION, PC_TEXT, 2, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_BROWSE, PC_PICKER, 2, nullptr, HOOK_NONE, IDD_DESTINATIONPICKER, 0},
};

// PTT: 1 kept, 2 prechime set, 3 active when protected, 4 priority, 5 trigger,
// 6 line input as PTT input, 7 audio input + 1, 8 and 9 kept, 10 destination, 11 prechime message.
const PAGECONTROL kPtt[] = {
    {IDC_KEY_SWITCHSPIN, PC_CHECK, 6, nullptr, HOOK_PTTLINEIN, 0, 0},
    {IDC_KEY_DESTINATION, PC_TEXT, 10, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_BROWSE, PC_PICKER, 10, nullptr, HOOK_NONE, IDD_DESTINATIONPICKER, 0},
    {IDC_KEY_TRIGGER, PC_COMBO, 5, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_LOCKED, PC_CHECK, 3, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_PRIORITY, PC_NUMBER, 4, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_PRIORITYSPIN, PC_SPIN, 0, nullptr, HOOK_NONE, IDC_KEY_PRIORITY, 0},
    {IDC_KEY_PRECHIME, PC_MESSAGE, 11, nullptr, HOOK_PRECHIMEFLAG, 0, 2},
};

const PAGECONTROL kOn[] = {  // "On,%d,%d": priority, active when locked
    {IDC_KEY_SWITCHPRIORITY, PC_NUMBER, 1, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_SWITCHSPIN, PC_SPIN, 0, nullptr, HOOK_NONE, IDC_KEY_SWITCHPRIORITY, 0},
    {IDC_KEY_LOCKEDFLAG, PC_CHECK, 2, nullptr, HOOK_NONE, 0, 0},
};

// EVAC: 1 kept, 2 priority, 3 trigger, 4 and 5 kept, 6 active when locked, 7 kept,
// 8 destination, 9 message.
const PAGECONTROL kEvac[] = {
    {IDC_KEY_DESTINATION, PC_TEXT, 8, nullptr, HOOK_NONE, 0, 0},
    {IDC_EVAC_BROWSE, PC_PICKER, 8, nullptr, HOOK_NONE, IDD_DESTINATIONPICKER, 0},
    {IDC_EVAC_PRIORITY, PC_NUMBER, 2, nullptr, HOOK_NONE, 0, 0},
    {IDC_EVAC_PRIORITYSPIN, PC_SPIN, 0, nullptr, HOOK_NONE, IDC_EVAC_PRIORITY, 0},
    {IDC_EVAC_TRIGGER, PC_COMBO, 3, "Push,Toggle,Trigger", HOOK_NONE, 0, 0},
    {IDC_EVAC_MESSAGE, PC_MESSAGE, 9, nullptr, HOOK_NONE, 0, 0},
    {IDC_EVAC_LOCKED, PC_CHECK, 6, nullptr, HOOK_NONE, 0, 0},
};

// Talk: 2 unlocked prechime set, 3 locked behaviour on, 4 unlocked priority,
// 5 unlocked trigger, 7 audio input + 1, 10 locked prechime set, 13 locked
// priority, 14 locked trigger, 16 destination, 17 and 18 the prechime messages.
const PAGECONTROL kTalk[] = {
    {IDC_KEY_DESTINATION, PC_TEXT, 16, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_BROWSE, PC_PICKER, 16, nullptr, HOOK_NONE, IDD_DESTINATIONPICKER, 0},
    {IDC_KEY_AUDIOINPUT, PC_COMBO, 7, "Internal Mic,External Mic,External Line", HOOK_AUDIOINPUT, 0, 0},
    {IDC_KEY_TRIGGER, PC_COMBO, 5, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_PRIORITY, PC_NUMBER, 4, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_PRIORITYSPIN, PC_SPIN, 0, nullptr, HOOK_NONE, IDC_KEY_PRIORITY, 0},
    {IDC_KEY_PRECHIME, PC_MESSAGE, 17, nullptr, HOOK_PRECHIMEFLAG, 0, 2},
    {IDC_KEY_LOCKED, PC_CHECK, 3, nullptr, HOOK_NONE, 0, 0},
    {IDC_TALK_LOCKEDTRIGGER, PC_COMBO, 14, nullptr, HOOK_NONE, 0, 0},
    {IDC_TALK_LOCKEDPRIORITY, PC_NUMBER, 13, nullptr, HOOK_NONE, 0, 0},
    {IDC_TALK_LOCKEDSPIN, PC_SPIN, 0, nullptr, HOOK_NONE, IDC_TALK_LOCKEDPRIORITY, 0},
    {IDC_TALK_LOCKEDPRECHIME, PC_MESSAGE, 18, nullptr, HOOK_PRECHIMEFLAG, 0, 10},
};

// Logical: 1 the variable, 2 the mode, 3 the state it starts in (1 "On", 0 "Off"), 4 active when locked.
const PAGECONTROL kLogical[] = {
    {IDC_KEY_DESTINATION, PC_TEXT, 1, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_BROWSE, PC_PICKER, 1, nullptr, HOOK_NONE, IDD_LOGICPICKER, 0},
    {IDC_KEY_MODE, PC_COMBO, 2, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_ON, PC_RADIO, 3, nullptr, HOOK_NONE, 1, 0},
    {IDC_KEY_OFF, PC_RADIO, 3, nullptr, HOOK_NONE, 0, 0},
    {IDC_LOGIC_LOCKED, PC_CHECK, 4, nullptr, HOOK_NONE, 0, 0},
};

const PAGECONTROL kMenu[] = {  // "Menu,%d": the item of "Jump to"
    {IDC_KEY_JUMPTO, PC_COMBO, 1, nullptr, HOOK_NONE, 0, 0},
};

const PAGECONTROL kClear[] = {  // "Toggle All,%d": the clear mode
    {IDC_KEY_MODE, PC_COMBO, 1, nullptr, HOOK_NONE, 0, 0},
};

// Arithmetical: 1 the variable, 2 min, 3 max, 4 step, 5 repeat time (ms), 6 active when locked.
const PAGECONTROL kArithmetic[] = {
    {IDC_KEY_DESTINATION, PC_TEXT, 1, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_BROWSE, PC_PICKER, 1, nullptr, HOOK_NONE, IDD_LOGICPICKER, 0},
    {IDC_KEY_MODE, PC_COMBO, 0, nullptr, HOOK_ARITHMETICMODE, 0, 0},
    {IDC_KEY_MIN, PC_REAL, 2, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_MAX, PC_REAL, 3, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_STEP, PC_REAL, 4, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_REPEAT, PC_NUMBER, 5, nullptr, HOOK_NONE, 0, 0},
    {IDC_ARITHMETIC_LOCKED, PC_CHECK, 6, nullptr, HOOK_NONE, 0, 0},
};

// Chime: 1 kept, 2 active when locked, 3 trigger (always 2), 4 priority, 5 to 7
// kept, 8 destination, 9 the chime (a prechime text).
const PAGECONTROL kChime[] = {
    {IDC_KEY_DESTINATION, PC_TEXT, 8, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_BROWSE, PC_PICKER, 8, nullptr, HOOK_NONE, IDD_DESTINATIONPICKER, 0},
    {IDC_KEY_TONE, PC_PRECHIME, 9, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_PRIORITY, PC_NUMBER, 4, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_PRIORITYSPIN, PC_SPIN, 0, nullptr, HOOK_NONE, IDC_KEY_PRIORITY, 0},
    {IDC_KEY_LOCKED, PC_CHECK, 2, nullptr, HOOK_NONE, 0, 0},
};

// Alarm: 1 kept, 2 active when locked, 3 trigger, 4 priority, 5 tone, 6 destination, 7 input channel.
const PAGECONTROL kAlarm[] = {
    {IDC_KEY_DESTINATION, PC_TEXT, 6, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_BROWSE, PC_PICKER, 6, nullptr, HOOK_NONE, IDD_DESTINATIONPICKER, 0},
    {IDC_KEY_PRIORITY, PC_NUMBER, 4, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_PRIORITYSPIN, PC_SPIN, 0, nullptr, HOOK_NONE, IDC_KEY_PRIORITY, 0},
    {IDC_KEY_TRIGGER, PC_COMBO, 3, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_TONE, PC_TONE, 5, nullptr, HOOK_ALARMTONE, 7, 0},
    {IDC_KEY_STEP, PC_INPUT, 7, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_LOCKED, PC_CHECK, 2, nullptr, HOOK_NONE, 0, 0},
};

// Stop: 1 active when locked, 2 priority, 3 stop type, 4 the stop-signal mask, 5 and 6 kept.
const PAGECONTROL kStop[] = {
    {IDC_KEY_OFF, PC_COMBO, 3, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_SWITCHPRIORITY, PC_NUMBER, 2, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_SWITCHSPIN, PC_SPIN, 0, nullptr, HOOK_NONE, IDC_KEY_SWITCHPRIORITY, 0},
    {IDC_KEY_LOCKED, PC_CHECK, 1, nullptr, HOOK_NONE, 0, 0},
    {IDC_KEY_STOPPAGING, PC_BIT, 4, nullptr, HOOK_NONE, 1, 0},
    {IDC_KEY_STOPCHIME, PC_BIT, 4, nullptr, HOOK_NONE, 2, 0},
    {IDC_KEY_STOPALARM, PC_BIT, 4, nullptr, HOOK_NONE, 4, 0},
    {IDC_KEY_STOPTEXT, PC_BIT, 4, nullptr, HOOK_NONE, 8, 0},
};

// Business: 1 kept, 2 priority, 3 trigger, 4 active when locked, 5 kept, 6 destination, 7 message.
const PAGECONTROL kBusiness[] = {
    {IDC_KEY_DESTINATION, PC_TEXT, 6, nullptr, HOOK_NONE, 0, 0},
    {IDC_BUSINESS_BROWSE, PC_PICKER, 6, nullptr, HOOK_NONE, IDD_DESTINATIONPICKER, 0},
    {IDC_BUSINESS_PRIORITY, PC_NUMBER, 2, nullptr, HOOK_NONE, 0, 0},
    {IDC_BUSINESS_PRIORITYSPIN, PC_SPIN, 0, nullptr, HOOK_NONE, IDC_BUSINESS_PRIORITY, 0},
    {IDC_BUSINESS_TRIGGER, PC_COMBO, 3, "Push,Switch", HOOK_NONE, 0, 0},
    {IDC_BUSINESS_MESSAGE, PC_MESSAGE, 7, nullptr, HOOK_NONE, 0, 0},
    {IDC_BUSINESS_LOCKED, PC_CHECK, 4, nullptr, HOOK_NONE, 0, 0},
};

const PAGECONTROL kIndicator[] = {  // "Indicator Test,%d,%d": trigger, active when locked
    {IDC_KEY_TRIGGER, PC_COMBO, 1, "Push,Toggle", HOOK_NONE, 0, 0},
    {IDC_KEY_LOCKEDFLAG, PC_CHECK, 2, nullptr, HOOK_NONE, 0, 0},
};

#define CONTROLS(table) table, (int)(sizeof table / sizeof table[0])

const KEYPAGE kPages[KEYPAGE_COUNT] = {
    {IDD_KEYPAGE_SELECT, CONTROLS(kSelect), 0, 0},
    {IDD_KEYPAGE_PTT, CONTROLS(kPtt), 0, 0},
    {IDD_KEYPAGE_ON, CONTROLS(kOn), 0, 0},
    {IDD_KEYPAGE_PROTECT, nullptr, 0, 0, 0},
    {IDD_KEYPAGE_EVAC, CONTROLS(kEvac), 0, 0},
    {IDD_KEYPAGE_TALK, CONTROLS(kTalk), 0, 0},
    {IDD_KEYPAGE_LOGICAL, CONTROLS(kLogical), 0, 0},
    {IDD_KEYPAGE_MENU, CONTROLS(kMenu), 0, 0},
    {IDD_KEYPAGE_CLEAR, CONTROLS(kClear), 0, 0},
    {IDD_KEYPAGE_EMPTY, nullptr, 0, 0, 0},
    {IDD_KEYPAGE_NONE, nullptr, 0, 0, 0},
    {IDD_KEYPAGE_ARITHMETIC, CONTROLS(kArithmetic), 0, 0},
    {IDD_KEYPAGE_CHIME, CONTROLS(kChime), 3, 2},
    {IDD_KEYPAGE_ALARM, CONTROLS(kAlarm), 0, 0},
    {IDD_KEYPAGE_STOP, CONTROLS(kStop), 0, 0},
    {IDD_KEYPAGE_BUSINESS, CONTROLS(kBusiness), 0, 0},
    {IDD_KEYPAGE_SYSTEMFAULTS, nullptr, 0, 0, 0},
    {IDD_KEYPAGE_INDICATOR, CONTROLS(kIndicator), 0, 0},
    {IDD_KEYPAGE_DECADIC, nullptr, 0, 0, 0},
    {IDD_KEYPAGE_FAULTDISPLAY, nullptr, 0, 0, 0},
};

}  // namespace

const KEYPAGE* KeyPages()
{
    return kPages;
}

const KEYPAGE* FindKeyPage(int page)
{
    for (const KEYPAGE& entry : kPages)
        if (entry.page == page)
            return &entry;
    return nullptr;
}

int EditorPageOf(int key, int32_t functionId, bool numericKeypad)
{
    if (key < 0)
        return IDD_KEYPAGE_NONE;
    if (numericKeypad && key <= 11)
        return IDD_KEYPAGE_DECADIC;
    return KeyFunctionPage(functionId);
}

const PAGECONTROL* FindPageControl(const KEYPAGE* page, int control)
{
    for (int i = 0; page && i < page->count; i++)
        if (page->controls[i].control == control)
            return &page->controls[i];
    return nullptr;
}

double PageControlValue(const PAGECONTROL& control, const KEYSLOT& slot)
{
    const double number = KeyFieldNumber(slot, control.field);
    if (control.hook == HOOK_AUDIOINPUT)
        return number >= 1 && number <= 3 ? number - 1 : 0;  // an input the key cannot have reads as "Internal Mic"
    if (control.hook == HOOK_ARITHMETICMODE)
        return slot.variant;
    switch (control.kind) {
    case PC_CHECK:
        return number > 0 ? 1 : 0;
    case PC_RADIO:
        return number == control.extra ? 1 : 0;
    case PC_BIT:
        return ((unsigned)number & (unsigned)control.extra) != 0 ? 1 : 0;
    default:
        return number;
    }
}

bool StorePageControlValue(const PAGECONTROL& control, KEYSLOT* slot, double value)
{
    if (control.hook == HOOK_AUDIOINPUT)
        return SetKeyFieldNumber(slot, control.field, value + 1);
    if (control.hook == HOOK_ARITHMETICMODE) {
        // Only "Up" and "Down" have a function of their own.
        if (value != 0 && value != 1)
            return false;
        slot->functionId = KF_INCREASE + (int32_t)value;
        slot->variant = (uint8_t)value;
        return true;
    }
    if (control.hook == HOOK_ALARMTONE && value != 0)
        SetKeyFieldText(slot, control.extra, "");  // the input channel serves "Extern" alone
    switch (control.kind) {
    case PC_CHECK:
        return SetKeyFieldNumber(slot, control.field, value != 0 ? 1 : 0);
    case PC_RADIO:
        return value != 0 && SetKeyFieldNumber(slot, control.field, control.extra);
    case PC_BIT: {
        unsigned mask = (unsigned)KeyFieldNumber(*slot, control.field);
        mask = value != 0 ? mask | (unsigned)control.extra : mask & ~(unsigned)control.extra;
        return SetKeyFieldNumber(slot, control.field, mask);
    }
    case PC_COMBO:
    case PC_NUMBER:
    case PC_REAL:
    case PC_TONE:
        return SetKeyFieldNumber(slot, control.field, value);
    default:
        return false;
    }
}

bool PageControlRange(const KEYPAGE* page, const PAGECONTROL& control, int32_t functionId, int* low, int* high)
{
    const PAGECONTROL* number = control.kind == PC_SPIN ? FindPageControl(page, control.extra) : &control;
    if (!number || number->kind != PC_NUMBER)
        return false;
    switch (KeyFieldKind(functionId, number->field)) {
    case KEYFIELD_U8:
        *low = 0;
        *high = UINT8_MAX;
        return true;
    case KEYFIELD_U16:
        *low = 0;
        *high = UINT16_MAX;
        return true;
    default:
        return false;
    }
}

PAGENUMBER ReadPageNumber(const char* text, int low, int high, int* value)
{
    if (!text)
        return PAGENUMBER_EMPTY;
    while (*text == ' ')
        text++;
    if (!*text)
        return PAGENUMBER_EMPTY;
    const char* digits = *text == '-' || *text == '+' ? text + 1 : text;
    if (*digits < '0' || *digits > '9')
        return PAGENUMBER_REFUSED;
    char* end = nullptr;
    errno = 0;
    const long long number = strtoll(text, &end, 10);
    while (*end == ' ')
        end++;
    if (*end || errno == ERANGE || number < low || number > high)
        return PAGENUMBER_REFUSED;
    *value = (int)number;
    return PAGENUMBER_TAKEN;
}

std::string PageNumberRefusal(const char* text, int low, int high)
{
    return FormatString("%.32s is out of range.\nEnter a number from %d to %d.", text ? text : "", low, high);
}

std::string ArithmeticModeRefusal(int mode, const char* chosen, const KEYSLOT& slot)
{
    if (mode == 0 || mode == 1)
        return std::string();
    return FormatString("\"%.64s\" cannot be stored: an arithmetical key counts \"Up\" or \"Down\".\n"
                        "The key keeps \"%s\".",
                        chosen ? chosen : "", slot.functionId == KF_INCREASE + 1 ? "Down" : "Up");
}

bool StorePageControlText(const PAGECONTROL& control, KEYSLOT* slot, const char* text)
{
    if (!SetKeyFieldText(slot, control.field, text))
        return false;
    if (control.hook == HOOK_PRECHIMEFLAG)
        SetKeyFieldNumber(slot, control.flag, text && *text ? 1 : 0);
    return true;
}

std::vector<std::string> SplitItems(const char* list)
{
    std::vector<std::string> items;
    if (!list || !*list)
        return items;
    const char* start = list;
    for (const char* p = list;; p++) {
        if (*p == ',' || *p == '\0') {
            items.emplace_back(start, p);
            if (*p == '\0')
                break;
            start = p + 1;
        }
    }
    return items;
}

bool ParseMessageEntry(const char* text, MESSAGEENTRY* entry)
{
    if (!text)
        return false;
    const char* bar = strchr(text, '|');
    if (!bar || bar == text)
        return false;  // "%[^|]" needs one character at least
    const char* digits = bar + 1;
    while (*digits == ' ' || *digits == '\t')
        digits++;
    if (*digits < '0' || *digits > '9')
        return false;
    char* end = nullptr;
    const unsigned long number = strtoul(digits, &end, 10);
    entry->name.assign(text, bar);
    entry->number = (unsigned)number;
    return true;
}

std::string FormatMessageEntry(const MESSAGEENTRY& entry)
{
    return FormatString("%s|%u", entry.name.c_str(), entry.number);
}

std::vector<MESSAGEENTRY> ParseMessageList(const char* list)
{
    std::vector<MESSAGEENTRY> entries;
    for (const std::string& item : SplitItems(list)) {
        MESSAGEENTRY entry;
        if (ParseMessageEntry(item.c_str(), &entry))
            entries.push_back(entry);
    }
    return entries;
}

int MatchMessage(const std::vector<MESSAGEENTRY>& entries, const char* stored)
{
    MESSAGEENTRY wanted;
    if (!ParseMessageEntry(stored, &wanted))
        return -1;
    for (size_t i = 0; i < entries.size(); i++)
        if (entries[i].number == wanted.number)
            return (int)i;
    return -1;
}

const char kCurrentSelection[] = "Current Slection";
const char kNoCaption[] = "(no caption)";

bool HasDestinationVariants(int32_t functionId)
{
    switch (KeyFamily(functionId)) {
    case FAMILY_TALK:
    case FAMILY_CHIME:
    case FAMILY_ALARM:
    case FAMILY_EVAC:
    case FAMILY_BUSINESS:
    case FAMILY_PTT:
        return true;
    default:
        return false;
    }
}

bool StoreDestination(KEYSLOT* slot, int position, DESTINATIONKIND kind, const char* destination)
{
    const int family = KeyFamily(slot->functionId);
    int32_t function = slot->functionId;
    if (HasDestinationVariants(function))
        function = (function / 10) * 10 + kind;
    else if (family == FAMILY_SELECT && kind != DESTINATION_SELECTION)
        function = KF_SELECT_ZONE + (kind - DESTINATION_ZONE);  // "Select Zone", "Select Group"
    else if (family == FAMILY_SELECT)
        return false;
    slot->functionId = function;
    slot->variant = (uint8_t)(function % 10);
    return SetKeyFieldText(slot, position, kind == DESTINATION_SELECTION ? "" : destination);
}

std::string DestinationShown(const KEYSLOT& slot, int position)
{
    if (HasDestinationVariants(slot.functionId) && slot.variant == DESTINATION_SELECTION)
        return kCurrentSelection;
    const char* text = KeyFieldText(slot, position);
    return *text ? text : kNoCaption;
}

bool ConsoleOffersAudioInput(int consoleType, int storedInput)
{
    if (consoleType == 3 || consoleType == 6)
        return storedInput >= 1 && storedInput <= AUDIOINPUT_EXTERNAL_LINE;
    return storedInput == 1;
}

const char* TalkInputClash(const KEYSLOT* keys, int count, int key, int storedInput)
{
    if (storedInput != AUDIOINPUT_EXTERNAL_LINE || key == PTT_KEY || count <= PTT_KEY)
        return nullptr;
    const KEYSLOT& ptt = keys[PTT_KEY];
    if (KeyFamily(ptt.functionId) == FAMILY_PTT && KeyFieldNumber(ptt, 6) != 0)
        return "Cannot choose external line input.\nPTT key is using external mic input";
    return nullptr;
}

const char* PttLineInClash(const KEYSLOT* keys, int count, int key, bool lineIn)
{
    if (!lineIn)
        return nullptr;
    for (int i = 0; i < count; i++)
        if (i != key && KeyFamily(keys[i].functionId) == FAMILY_TALK &&
            KeyFieldNumber(keys[i], 7) == AUDIOINPUT_EXTERNAL_LINE)
            return "Cannot configure PTT key.\nExternal line input in use by talk key.";
    return nullptr;
}
