// Whether a function dragged from the key-function tree may land on a key,
// and which warning a refusal shows. Platform-free.
#pragma once

#include <stdint.h>

#include <string>

#include "../keys/keyrecord.h"

// What the rules need to know of the console.
struct DROPCONSOLE {
    int consoleType = 0;          // 3 and 6 have the PTT key on the board
    int extensionCount = 0;       // key extensions present (0 to 5)
    bool numericKeypad = false;   // keys 0 to 11 are the numeric keypad
    uint8_t specialKeys[3] = {};  // keys 120 to 122: 0 absent, 1 ordinary key, 2 lock switch
    int protectKeys = 0;          // "Protect" keys the console holds
    int indicatorKeys = 0;        // "Indicator Test" keys the console holds
};

enum DROPVERDICT {
    DROP_ACCEPTED,
    DROP_REFUSED,                 // refused without a word (the cursor says it)
    DROP_NO_EXTENSION,            // refused with a warning, as the three below
    DROP_PROTECT_EXISTS,
    DROP_INDICATOR_EXISTS,
};

DROPVERDICT JudgeDrop(const DROPCONSOLE& console, int key, int32_t function);
// The warning's text (caption "WARNING"); null for a verdict without one.
const char* DropWarning(DROPVERDICT verdict);

// How many of the keys carry the function.
int CountKeyFunction(const KEYSLOT* keys, int count, int32_t function);

// The design line a drop loads into key `key`: a key made by a drop is a new
// key, so a function that has a new key's record (Stop, On, Talk, Toggle All,
// Menu) gets that record; any other function is its bare name (every number
// 0, every text empty).
std::string DroppedKeyLine(int key, int32_t function);
