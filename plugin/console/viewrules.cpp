// The console view's rules that need no window.
#include "viewrules.h"

#include "keygeometry.h"
#include "../../base/text.h"

#include "../../base/banned.h"

namespace {

const int32_t kSystemFaults = 160;
const int32_t kProtect = 120;
const int32_t kFunction170 = 170;

bool IsFrontOfFifteen(int type)
{
    return type == 0 || type == 4 || type == 5;
}

}  // namespace

KEYMENU KeyMenuFor(int type, int32_t key, bool numericKeys)
{
    if (key < 0 || key == KEY_ESC)
        return KEYMENU_NONE;
    if (numericKeys && key <= NUMERIC_KEY_LAST)
        return KEYMENU_NONE;
    if (key == KEY_PTT && IsFrontOfFifteen(type))
        return KEYMENU_NONE;
    if (key >= KEY_SPECIAL_FIRST && key <= KEY_SPECIAL_LAST)
        return KEYMENU_SPECIAL;
    return KEYMENU_ORDINARY;
}

bool CanClearKey(int32_t functionId)
{
    return functionId != 0;
}

bool CanCopyKey(int32_t functionId)
{
    return functionId != kProtect && functionId != kFunction170;
}

bool RefusesPastedFunction(int type, int32_t key, int32_t functionId)
{
    if (functionId != kSystemFaults)
        return false;
    if (type == 4 || type == 5)
        return key != KEY_DEL;
    if (type == 0)
        return key >= KEY_DEL && key <= KEY_WIDE;
    return false;
}

std::string KeyTooltip(int type, int32_t key, const char* functionName, const char* buttonPin,
                       const char* primaryLedPin, const char* secondaryLedPin)
{
    const char* function = functionName ? functionName : "Numeric key";
    if (IsBoardView(type))
        return FormatString(" ID:\t\t %d\n Function:\t %s\n Button:\t\t %s\n Primary LED:\t %s\n Secondary LED:\t %s",
                            key, function, buttonPin, primaryLedPin, secondaryLedPin);
    return FormatString(" ID:\t\t %d\n Function:\t %s", key, function);
}

std::string ControlPanelKeyTooltip(const char* label, int32_t key, const char* functionName)
{
    return FormatString("Key '%s' (%d)\n%s", label ? label : "", key, functionName ? functionName : "");
}

int PresentExtensions(const uint8_t slots[5])
{
    int present = 0;
    for (int slot = 0; slot < EXTENSION_SLOT_COUNT; slot++)
        present += slots[slot] != 0;
    return present;
}

int AddExtensionSlot(uint8_t slots[5])
{
    for (int slot = 0; slot < EXTENSION_SLOT_COUNT; slot++) {
        if (!slots[slot]) {
            slots[slot] = 1;
            return slot;
        }
    }
    return -1;
}

int RemoveExtensionSlot(uint8_t slots[5])
{
    for (int slot = EXTENSION_SLOT_COUNT - 1; slot >= 0; slot--) {
        if (slots[slot]) {
            slots[slot] = 0;
            return slot;
        }
    }
    return -1;
}

int SlotOfPage(const uint8_t slots[5], int page)
{
    // Page buttons carry 2001 + slot, so page k shows slot k - 1.
    const int slot = page - 1;
    if (slot < 0 || slot >= EXTENSION_SLOT_COUNT || !slots[slot])
        return -1;
    return slot;
}

std::vector<PAGEBUTTON> PageButtons(const uint8_t slots[5])
{
    std::vector<PAGEBUTTON> buttons;
    buttons.push_back({2000, "Console", 0});
    int made = 0;
    for (int slot = 0; slot < EXTENSION_SLOT_COUNT; slot++) {
        if (!slots[slot])
            continue;
        buttons.push_back({2001 + slot, FormatString("Extension %d", slot + 1), 30 * (made + 1)});
        made++;
    }
    return buttons;
}
