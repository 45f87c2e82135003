// "CSAUTORADIOBUTTON": the flat page buttons of the console view and the
// extension panel. One checked button per dialog group.
#pragma once

#include <windows.h>

enum {
    RADIO_CHECKED = 1,
    RADIO_NORMAL = 16,
    RADIO_PRESSED = 256,
};

enum {
    RBM_SETSTATE = 0x8B0,       // wParam: the state word
    RBM_SETFACECOLOUR = 0x8B1,  // wParam: colour
    RBM_SETTEXTCOLOUR = 0x8B2,  // wParam: colour
};

// The notification code a click that leaves the button checked sends its
// parent in WM_COMMAND's high word.
const WORD RBN_CHECKED = 0x203;

LRESULT CALLBACK RadioButtonWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
