// Where a pasted block of keys lands and which of its keys stay out: those
// that fall outside the console, onto a key without a menu, "System Faults"
// where the console has no fault key, and a second "Protect" or "Indicator
// Test" key. Platform-free.
#pragma once

#include <stdint.h>

#include <string>
#include <vector>

#include "../keys/keyblock.h"

struct PASTETARGET {
    int type = 0;                  // the face's type
    int extensionCount = 0;        // keys above 20 x count + 14 do not exist (but 115 to 123)
    bool numericKeys = false;      // keys 0 to 11 are the numeric keypad
    std::vector<int32_t> functions;  // the function of every key now, by key id
};

struct PASTEDKEY {
    int offset;           // in the block
    int key;              // where it lands; -1 outside the console
    std::string record;
    std::string label;
    std::string skipped;  // why it stays out; empty when it is pasted
};

std::vector<PASTEDKEY> PlanBlockPaste(const std::vector<BLOCKKEY>& block, int target, const PASTETARGET& console);
// The output pane's line of the keys left out, empty when none was.
std::string SkippedKeysText(const std::vector<PASTEDKEY>& plan);
