#pragma once

#include <windows.h>

// The procedure of a registered class whose window is not built yet: it says
// so in the trace and otherwise behaves as a plain window.
LRESULT CALLBACK PendingWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
