// The key record: the text form of one key's function and parameters
// ("Stop,0,0,0,91,91,"), and the key slot it is parsed into. Platform-free.
#pragma once

#include <stdint.h>

#include <string>

enum {
    KEYSLOT_CELLS = 16,
    KEYSLOT_REALS = 3,
    KEYTEXT_SIZE = 128,  // each text parameter: 127 characters
};

// The families share parameter cells: talk, PTT, chime and alarm begin with
// the same four numbers (cells 0 to 3); chime, alarm and stop share a second
// 16-bit number in cell KEYCELL_SECOND; the message families begin with the
// cells of the talk family's first and fourth number.
enum {
    KEYCELL_SECOND = 15,
};

struct KEYSLOT {
    int32_t functionId;             // 0 = empty
    uint8_t variant;                // functionId % 10
    uint16_t cells[KEYSLOT_CELLS];  // the numbers, each kept at its family's width
    float reals[KEYSLOT_REALS];     // the arithmetic family's minimum, maximum, step
    char text1[KEYTEXT_SIZE];       // destination, or the logic/arithmetic variable
    char text2[KEYTEXT_SIZE];
    char text3[KEYTEXT_SIZE];
};

// An empty slot: function 0, every number 0, every text empty.
KEYSLOT EmptyKeySlot();

std::string FormatKeyRecord(const KEYSLOT& slot);
// Never fails: an unknown function name gives an empty key, missing fields keep
// the empty slot's values, texts are cut to their fields.
void ParseKeyRecord(const char* record, KEYSLOT* slot);

// The talk family's audio input, stored as the input plus one
// (1 "Internal Mic", 2 "External Mic", 3 "External Line").
enum { TALKCELL_AUDIOINPUT = 6 };
bool IsTalkKey(const KEYSLOT& slot);
bool IsAlarmKey(const KEYSLOT& slot);

// The fields of a slot's record by position: 1 is the first field after the
// name, in the order of the family's suffix. The editor pages read and write
// a key through these, so a field keeps its width (a number is cut as the
// record's parse would cut it, a text to its 127 characters).
enum KEYFIELDKIND { KEYFIELD_NONE, KEYFIELD_U8, KEYFIELD_U16, KEYFIELD_REAL, KEYFIELD_TEXT };
KEYFIELDKIND KeyFieldKind(int32_t functionId, int position);
double KeyFieldNumber(const KEYSLOT& slot, int position);     // 0 for a text or no field
bool SetKeyFieldNumber(KEYSLOT* slot, int position, double value);
const char* KeyFieldText(const KEYSLOT& slot, int position);  // "" for a number or no field
bool SetKeyFieldText(KEYSLOT* slot, int position, const char* text);
