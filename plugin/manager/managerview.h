// The manager view ("DOVRIXKVTVIEW"): the tree of the design's controllers and
// their console positions in the configuration window. Selecting a console
// switches the window to it; dragging an offline console onto another
// controller with a free position reconnects it there.
#pragma once

#include <windows.h>

LRESULT CALLBACK ManagerViewWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
