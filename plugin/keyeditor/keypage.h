// The key-function editor pages: one dialog procedure runs all twenty from
// the page table. A page edits the key it is bound to (KPM_BINDKEY) and
// writes every change straight into the key's slot.
#pragma once

#include <windows.h>

class CONSOLEPROPERTIES;

// Creates the page for the console's key (-1: no key) as a child of parent,
// bound and loaded; null when it cannot be made.
HWND CreateKeyPage(HWND parent, CONSOLEPROPERTIES* console, int key);
// The page a window shows (its dialog id), 0 when it is none.
int KeyPageId(HWND page);
