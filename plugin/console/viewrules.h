// The console view's rules that need no window: which key gets which menu,
// which pasted functions a key refuses, the tooltip text, and the extension
// slots with their page buttons.
#pragma once

#include <stdint.h>

#include <string>
#include <vector>

enum KEYMENU { KEYMENU_NONE, KEYMENU_ORDINARY, KEYMENU_SPECIAL };
KEYMENU KeyMenuFor(int type, int32_t key, bool numericKeys);

// Whether a key shows "Clear" and "Copy" enabled.
bool CanClearKey(int32_t functionId);
bool CanCopyKey(int32_t functionId);

// "System Faults" may only sit where the console has a fault key.
bool RefusesPastedFunction(int type, int32_t key, int32_t functionId);

// The key's tooltip; pins are shown for the board view only. A null function
// name stands for a numeric key.
std::string KeyTooltip(int type, int32_t key, const char* functionName, const char* buttonPin,
                       const char* primaryLedPin, const char* secondaryLedPin);
// The control panel's tip: what the key is called, its id and its function.
std::string ControlPanelKeyTooltip(const char* label, int32_t key, const char* functionName);

int PresentExtensions(const uint8_t slots[5]);
// Marks the first absent slot present; -1 when all five are.
int AddExtensionSlot(uint8_t slots[5]);
// Marks the last present slot absent; -1 when none is.
int RemoveExtensionSlot(uint8_t slots[5]);
// Which slot page button n shows (1 for the first extension button), or -1.
int SlotOfPage(const uint8_t slots[5], int page);

struct PAGEBUTTON {
    int id;
    std::string text;
    int y;
};
// "Console" and one button per present slot, in slot order.
std::vector<PAGEBUTTON> PageButtons(const uint8_t slots[5]);
