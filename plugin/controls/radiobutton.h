// "CSAUTORADIOBUTTON": the flat page buttons of the console view and the
// extension panel. One checked button per dialog group.
#pragma once

#include <windows.h>

#include "../protocol.h"

enum {
    RADIO_CHECKED = 1,
    RADIO_NORMAL = 16,
    RADIO_PRESSED = 256,
};

// Its messages (RBM_*) and its notification (RBN_CHECKED) are in protocol.h.

LRESULT CALLBACK RadioButtonWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
