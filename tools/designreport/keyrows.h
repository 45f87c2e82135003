// One row of the report per configured key: the key as printed on the
// device, its function and what it addresses. Platform-free.
#pragma once

#include <stdint.h>

#include <string>
#include <vector>

#include "designmodel.h"
#include "../../plugin/keys/keyrecord.h"

// The key as the device shows it: keypad "1".."9", "*", "0", "#", the
// navigation keys, the wide key, the special keys, "PTT", "Ext 2 / key 7".
std::string KeyCaption(int slot);
std::string NumericKeyCaption(int slot);  // "Numeric 1" .. "Numeric #"

// Where a slot sits: on the console's face, on extension 0-4, or nowhere.
enum KEYPLACE { PLACE_FACE, PLACE_EXTENSION, PLACE_NONE };
KEYPLACE KeyPlace(int slot, int* extension);

enum KEYMARK { MARK_NONE, MARK_ALARM, MARK_EVAC };

struct KEYROW {
    bool numeric = false;    // one of the twelve numeric keys
    int slot = 0;
    int line = 0;            // the record's line
    std::string caption;
    std::string function;    // as the console reads it ("Empty" for an unknown name)
    std::string recordName;  // the name the record gave
    std::string destination; // zone or group, or the logic or arithmetic variable
    std::string message;     // message entry, prechime, alarm tone and input
    std::string priority;    // empty where the function has none
    std::string trigger;
    std::string locked;      // "yes", "no" or empty
    std::string label;
    KEYMARK mark = MARK_NONE;
    KEYSLOT key;
};

// "key005" or "NumericKey5", as the design names the key's line.
std::string KeyKeyword(const KEYROW& row);

KEYROW MakeKeyRow(const CONSOLEDESIGN& console, const KEYLINE& line, bool numeric);
// A row in two steps, for the outputs that look at most keys' records alone:
// the key (slot, line, record) first, the texts it shows when needed.
KEYROW KeyOfRow(const KEYLINE& line, bool numeric);
void ReadKeyRow(const KEYLINE& line, bool numeric, KEYROW* row);
void DescribeKeyRow(const CONSOLEDESIGN& console, const KEYLINE& line, KEYROW* row);
// The row's caption: the key as printed, a special key with its role.
std::string KeyRowCaption(const CONSOLEDESIGN& console, int slot, bool numeric);
// The console's configured keys, face and extensions in slot order, then the numeric keys.
std::vector<KEYROW> KeyRows(const CONSOLEDESIGN& console);
// The same into rows kept from console to console, so their texts reuse their room.
void FillKeyRows(const CONSOLEDESIGN& console, std::vector<KEYROW>* rows);
// MakeKeyRow into a row used before.
void RefillKeyRow(const CONSOLEDESIGN& console, const KEYLINE& line, bool numeric, KEYROW* row);
// Each key line of the console in the order of KeyRows: visit(line, numeric).
template <class VISIT>
void ForEachKeyLine(const CONSOLEDESIGN& console, VISIT visit)
{
    for (const KEYLINE& line : console.keys)
        visit(line, false);
    for (const KEYLINE& line : console.numericKeyRecords)
        visit(line, true);
}

// What a key addresses, for the checks and "--where".
enum DESTKIND { DEST_NONE, DEST_ZONE, DEST_GROUP };
DESTKIND DestinationKind(int32_t functionId);
bool CarriesMessage(const KEYSLOT& key, std::vector<std::string>* messages);
// The same without copies: up to two of the key's own texts; answers how many.
int KeyMessages(const KEYSLOT& key, const char* messages[2]);
// The input channel of an alarm key, the logic variable of a logical key; empty otherwise.
std::string InputChannel(const KEYSLOT& key);
std::string LogicVariable(const KEYSLOT& key);

// "CONTROLLER.NAME" split at its first point.
void SplitDestination(const std::string& text, std::string* controller, std::string* name);
