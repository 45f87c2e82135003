#include "keyrows.h"

#include <string.h>

#include "../../plugin/keys/keycatalogue.h"
#include "../../plugin/console/keygeometry.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char* const kKeypadCaptions[KEYPAD_KEY_COUNT] = {"1", "2", "3", "4", "5", "6", "7", "8",
                                                       "9", "*", "0", "#", "Keypad 13", "Keypad 14", "Keypad 15"};

const char* const kFaceCaptions[] = {
    "DEL",        // 115
    "ESC",        // 116
    "Up arrow",   // 117
    "Down arrow", // 118
    "Wide key",   // 119
    "Special 1",  // 120
    "Special 2",  // 121
    "Special 3",  // 122
    "PTT",        // 123
};

const char* const kTriggerTexts[] = {"Push", "Switch", "Trigger"};
const char* const kIndicatorTriggers[] = {"Push", "Toggle"};

// Where a family keeps the numbers the report shows; -1 where it has none.
struct FAMILYCELLS {
    int priority;
    int trigger;
    int locked;
};

FAMILYCELLS CellsOf(int family)
{
    switch (family) {
    case FAMILY_TALK: return {3, 4, 2};
    case FAMILY_PTT: return {3, 4, -1};
    case FAMILY_CHIME: return {3, 2, 1};
    case FAMILY_ALARM: return {3, 2, 1};
    case FAMILY_STOP: return {0, 2, 1};
    case FAMILY_ON: return {0, -1, 1};
    case FAMILY_EVAC: return {3, 4, 7};
    case FAMILY_BUSINESS: return {3, 4, 5};
    case FAMILY_ARITHMETIC: return {-1, -1, 1};
    case FAMILY_INDICATOR: return {-1, 1, 2};
    default: return {-1, -1, -1};
    }
}

bool HasVariants(int family)
{
    return family == FAMILY_TALK || family == FAMILY_CHIME || family == FAMILY_ALARM || family == FAMILY_EVAC ||
           family == FAMILY_BUSINESS || family == FAMILY_PTT;
}

std::string TriggerText(int family, int code)
{
    if (family == FAMILY_INDICATOR)
        return code >= 0 && code < 2 ? kIndicatorTriggers[code] : FormatString("%d", code);
    return code >= 0 && code < 3 ? kTriggerTexts[code] : FormatString("%d", code);
}

void Join(std::string* text, const char* part)
{
    if (!part[0])
        return;
    if (!text->empty())
        *text += "; ";
    *text += part;
}

void Join(std::string* text, const std::string& part)
{
    if (part.empty())
        return;
    if (!text->empty())
        *text += "; ";
    *text += part;
}

void JoinAlarmTone(std::string* text, int code)
{
    static const std::map<int, std::string> tones = AlarmToneTable(false);
    auto found = tones.find(code);
    if (found == tones.end())
        Join(text, FormatString("tone %d", code));
    else
        Join(text, found->second);
}

}  // namespace

std::string KeyCaption(int slot)
{
    int extension = 0;
    switch (KeyPlace(slot, &extension)) {
    case PLACE_FACE:
        if (slot < KEYPAD_KEY_COUNT)
            return kKeypadCaptions[slot];
        return kFaceCaptions[slot - KEY_DEL];
    case PLACE_EXTENSION: {
        // "Ext 5 / key 20": an extension of one digit, a key of one or two.
        const int key = (slot - EXTENSION_FIRST_KEY) % EXTENSION_KEY_COUNT + 1;
        std::string caption = "Ext 1 / key ";
        caption[4] = (char)('1' + extension);
        if (key >= 10)
            caption += (char)('0' + key / 10);
        caption += (char)('0' + key % 10);
        return caption;
    }
    case PLACE_NONE:
        break;
    }
    return FormatString("Slot %d", slot);
}

std::string NumericKeyCaption(int slot)
{
    return slot >= 0 && slot <= NUMERIC_KEY_LAST ? std::string("Numeric ") + kKeypadCaptions[slot]
                                                 : FormatString("Numeric %d", slot);
}

KEYPLACE KeyPlace(int slot, int* extension)
{
    *extension = -1;
    if ((slot >= 0 && slot < KEYPAD_KEY_COUNT) || (slot >= KEY_DEL && slot <= KEY_PTT))
        return PLACE_FACE;
    if (slot >= EXTENSION_FIRST_KEY && slot < EXTENSION_FIRST_KEY + EXTENSION_KEY_COUNT * EXTENSION_SLOT_COUNT) {
        *extension = (slot - EXTENSION_FIRST_KEY) / EXTENSION_KEY_COUNT;
        return PLACE_EXTENSION;
    }
    return PLACE_NONE;
}

DESTKIND DestinationKind(int32_t functionId)
{
    const int family = KeyFamily(functionId);
    if (family == FAMILY_SELECT)
        return functionId % 10 == 0 ? DEST_ZONE : DEST_GROUP;
    if (!HasVariants(family))
        return DEST_NONE;
    switch (functionId % 10) {
    case 1: return DEST_ZONE;
    case 2: return DEST_GROUP;
    default: return DEST_NONE;
    }
}

int KeyMessages(const KEYSLOT& key, const char* messages[2])
{
    int count = 0;
    const int family = KeyFamily(key.functionId);
    if (family == FAMILY_EVAC || family == FAMILY_BUSINESS) {
        if (key.text2[0])
            messages[count++] = key.text2;
    } else if (family == FAMILY_TALK) {
        // A set prechime is a recorded message ("NAME|NUMBER"); older keys
        // carry a tone's name there instead.
        if (key.cells[1] && strchr(key.text2, '|'))
            messages[count++] = key.text2;
        if (key.cells[9] && strchr(key.text3, '|'))
            messages[count++] = key.text3;
    }
    return count;
}

bool CarriesMessage(const KEYSLOT& key, std::vector<std::string>* messages)
{
    const char* found[2];
    const int count = KeyMessages(key, found);
    messages->assign(found, found + count);
    return count > 0;
}

std::string InputChannel(const KEYSLOT& key)
{
    return KeyFamily(key.functionId) == FAMILY_ALARM ? key.text2 : std::string();
}

std::string LogicVariable(const KEYSLOT& key)
{
    return KeyFamily(key.functionId) == FAMILY_LOGICAL ? key.text1 : std::string();
}

void SplitDestination(const std::string& text, std::string* controller, std::string* name)
{
    const size_t point = text.find('.');
    if (point == std::string::npos) {
        controller->clear();
        *name = text;
        return;
    }
    *controller = text.substr(0, point);
    *name = text.substr(point + 1);
}

std::string KeyKeyword(const KEYROW& row)
{
    if (row.numeric)
        return "NumericKey" + std::to_string(row.slot);
    const char digits[] = {'k', 'e', 'y', (char)('0' + row.slot / 100 % 10), (char)('0' + row.slot / 10 % 10),
                           (char)('0' + row.slot % 10), '\0'};
    return row.slot >= 0 && row.slot < 1000 ? std::string(digits) : "key" + std::to_string(row.slot);
}

std::string KeyRowCaption(const CONSOLEDESIGN& console, int slot, bool numeric)
{
    std::string caption = numeric ? NumericKeyCaption(slot) : KeyCaption(slot);
    // A special key's role decides what the device has there.
    if (!numeric && slot >= KEY_SPECIAL_FIRST && slot <= KEY_SPECIAL_LAST) {
        const int mode = console.specialModes[slot - KEY_SPECIAL_FIRST];
        caption += mode == 1 ? " (alarm button)" : mode == 2 ? " (key switch)" : " (not used)";
    }
    return caption;
}

void ReadKeyRow(const KEYLINE& line, bool numeric, KEYROW* row)
{
    row->numeric = numeric;
    row->slot = line.slot;
    row->line = line.record.line;
    ParseKeyRecord(line.record.text.c_str(), &row->key);
}

KEYROW KeyOfRow(const KEYLINE& line, bool numeric)
{
    KEYROW row;
    ReadKeyRow(line, numeric, &row);
    return row;
}

void DescribeKeyRow(const CONSOLEDESIGN& console, const KEYLINE& line, KEYROW* row)
{
    const bool numeric = row->numeric;
    row->caption = KeyRowCaption(console, line.slot, numeric);
    const KEYSLOT& key = row->key;
    row->recordName.assign(line.record.text, 0, line.record.text.find(','));
    row->function = KeyFunctionName(key.functionId);
    const int family = KeyFamily(key.functionId);
    if (family == FAMILY_SELECT || DestinationKind(key.functionId) != DEST_NONE)
        row->destination = key.text1;
    else if (family == FAMILY_LOGICAL || family == FAMILY_ARITHMETIC)
        row->destination = key.text1;

    const char* messages[2];
    const int count = KeyMessages(key, messages);
    if (count > 0) {
        for (int i = 0; i < count; i++)
            Join(&row->message, messages[i]);
    } else if (family == FAMILY_TALK && key.cells[1]) {
        row->message = key.text2;  // an older key's prechime tone
    }
    if (family == FAMILY_ALARM) {
        JoinAlarmTone(&row->message, key.cells[KEYCELL_SECOND]);
        if (key.text2[0]) {
            Join(&row->message, "input ");
            row->message += key.text2;
        }
    }

    const FAMILYCELLS cells = CellsOf(family);
    if (cells.priority >= 0)
        row->priority = std::to_string(key.cells[cells.priority]);
    if (cells.trigger >= 0)
        row->trigger = TriggerText(family, key.cells[cells.trigger]);
    if (cells.locked >= 0)
        row->locked = key.cells[cells.locked] ? "yes" : "no";
    if (!numeric) {
        if (const KEYLINE* label = console.Label(line.slot))
            row->label = label->record.text;
    }
    row->mark = family == FAMILY_ALARM ? MARK_ALARM : family == FAMILY_EVAC ? MARK_EVAC : MARK_NONE;
}

KEYROW MakeKeyRow(const CONSOLEDESIGN& console, const KEYLINE& line, bool numeric)
{
    KEYROW row = KeyOfRow(line, numeric);
    DescribeKeyRow(console, line, &row);
    return row;
}

void RefillKeyRow(const CONSOLEDESIGN& console, const KEYLINE& line, bool numeric, KEYROW* row)
{
    std::string* const texts[] = {&row->caption, &row->function, &row->recordName,
                                  &row->destination, &row->message, &row->priority,
                                  &row->trigger, &row->locked, &row->label};
    for (std::string* text : texts)
        text->clear();
    row->mark = MARK_NONE;
    ReadKeyRow(line, numeric, row);
    DescribeKeyRow(console, line, row);
}

void FillKeyRows(const CONSOLEDESIGN& console, std::vector<KEYROW>* rows)
{
    rows->resize(console.keys.size() + console.numericKeyRecords.size());
    size_t at = 0;
    ForEachKeyLine(console, [&](const KEYLINE& line, bool numeric) {
        RefillKeyRow(console, line, numeric, &(*rows)[at++]);
    });
}

std::vector<KEYROW> KeyRows(const CONSOLEDESIGN& console)
{
    std::vector<KEYROW> rows;
    FillKeyRows(console, &rows);
    return rows;
}
