// The console's configuration window (class "DOVRIXZELCONFIGURATIONDIALOG",
// and "DOVRIXELKCSKCONFIGURATIONDIALOG" for the keypad boards).
#pragma once

#include <windows.h>

class CONSOLEPROPERTIES;

// Creates the window for the console at a screen position, owned by the
// host's design window; it stays hidden for the caller to show.
HWND CreateConfigurationDialog(CONSOLEPROPERTIES* console, POINT at);

LRESULT CALLBACK ConfigurationDialogWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
