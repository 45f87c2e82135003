#include "droprules.h"

#include "../keys/keycatalogue.h"

#include "../../base/text.h"

#include "../../base/banned.h"

namespace {

enum {
    KEY_NUMERIC_LAST = 11,
    KEY_EXTENSION_FIRST = 15,
    KEY_DEL = 115,
    KEY_MENU = 116,
    KEY_SPECIAL_FIRST = 120,
    KEY_SPECIAL_LAST = 122,
    KEY_PTT = 123,
    KEYS_PER_EXTENSION = 20,
};

bool IsSpecialKey(int key)
{
    return key >= KEY_SPECIAL_FIRST && key <= KEY_SPECIAL_LAST;
}

// The fault acknowledge key belongs where the console model has a key for it:
// the DEL key of every model, a special key used as an ordinary key, and on
// the classic front (type 0) any keypad or extension key. The 15-key fronts
// and the boards keep their keypad for selections.
bool SystemFaultsFit(const DROPCONSOLE& console, int key)
{
    if (key == KEY_DEL)
        return true;
    if (IsSpecialKey(key))
        return console.specialKeys[key - KEY_SPECIAL_FIRST] == 1;
    return console.consoleType == 0 && key >= 0 && key < KEY_DEL;
}

}  // namespace

DROPVERDICT JudgeDrop(const DROPCONSOLE& console, int key, int32_t function)
{
    if (key < 0)
        return DROP_REFUSED;
    if (console.numericKeypad && key <= KEY_NUMERIC_LAST)
        return DROP_REFUSED;
    if (key == KEY_MENU)
        return DROP_REFUSED;
    if (key == KEY_PTT && (!(console.consoleType == 3 || console.consoleType == 6) || function == KF_SELECT_ZONE ||
                           function == KF_PROTECT))
        return DROP_REFUSED;
    const int highest = KEYS_PER_EXTENSION * console.extensionCount + 14;
    if (key > highest && !(key >= KEY_DEL && key <= KEY_PTT))
        return DROP_NO_EXTENSION;
    if (IsSpecialKey(key)) {
        const int setting = console.specialKeys[key - KEY_SPECIAL_FIRST];
        if (function == KF_PROTECT) {
            if (setting != 2)
                return DROP_REFUSED;
            return console.protectKeys > 0 ? DROP_PROTECT_EXISTS : DROP_ACCEPTED;
        }
        if (function == KF_SELECT_ZONE || setting != 1)
            return DROP_REFUSED;
    }
    if (function == KF_PROTECT && console.protectKeys > 0)
        return DROP_PROTECT_EXISTS;
    if (function == KF_INDICATOR_TEST && console.indicatorKeys > 0)
        return DROP_INDICATOR_EXISTS;
    if (function == KF_SYSTEM_FAULTS && !SystemFaultsFit(console, key))
        return DROP_REFUSED;
    return DROP_ACCEPTED;
}

const char* DropWarning(DROPVERDICT verdict)
{
    switch (verdict) {
    case DROP_NO_EXTENSION:
        return "Extension you are trying to configure does not exist";
    case DROP_PROTECT_EXISTS:
        return "Protect key already configured";
    case DROP_INDICATOR_EXISTS:
        return "Indicator Test key already configured";
    default:
        return nullptr;
    }
}

int CountKeyFunction(const KEYSLOT* keys, int count, int32_t function)
{
    int found = 0;
    for (int i = 0; i < count; i++)
        found += keys[i].functionId == function ? 1 : 0;
    return found;
}

std::string DroppedKeyLine(int key, int32_t function)
{
    const char* record = DefaultKeyRecord(function);
    return FormatString("key%03d=%s", key, record ? record : KeyFunctionName(function));
}
