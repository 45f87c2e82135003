// "DOVRIXCONTROLPANEL", the "ZEL Control Panel": a small floating window in
// which an operator presses one console's keys while the design runs, sees
// its LEDs answer, its online indicator and its name. It is the console
// view without designing: the two share their input, layout and painting.
#pragma once

#include <windows.h>

class CONSOLEPROPERTIES;

LRESULT CALLBACK ControlPanelWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// Closes the console's panel when it is open (fading it out), else opens it
// at the canvas's place (fading it in). Answers the panel when it opened,
// null when it closed or could not be made.
HWND ToggleControlPanel(CONSOLEPROPERTIES* console, HWND canvas);
