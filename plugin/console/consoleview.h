// "DOVRIXCONSOLEVIEW": the console picture with its keys, LED marks and label
// boxes, in which keys are selected, labelled, cleared, copied, pasted and,
// on a connected console, pressed.
#pragma once

#include <windows.h>

#include "../protocol.h"

// Its messages (CVM_*) and the label editor's notification are in protocol.h.

LRESULT CALLBACK ConsoleViewWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
