// The device canvas: the console's small face on the host's design surface.
#pragma once

#include <windows.h>

LRESULT CALLBACK CanvasWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
