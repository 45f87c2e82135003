// Choices of the configuration window that need no window: the console
// selector's family, the firmware header, the PTT key's record. Platform-free.
#pragma once

#include <string>

#include "../keys/keyrecord.h"

// The family prefix two consoles share ("ELKCST_" or "ORNCST_"), or null
// when they are not of one family.
const char* SharedConsoleFamily(const char* mine, const char* other);
// The firmware header of the column by console name and device type.
const char* FirmwareHeader(const char* name, int type);
// Whether the console is a "ZEL" one: slot shown, decadic select fixed.
bool IsZelConsole(const char* name);
// The selector's drop-down height for a number of listed consoles.
int SelectorDropHeight(int count);
// "key123=NAME,..." for the PTT key: NAME is names[variant] for variants 0 to
// 2 of the key's function, else empty; the fields follow in the PTT record's order.
std::string PttKeyLine(const KEYSLOT& key, const char* const names[3]);
