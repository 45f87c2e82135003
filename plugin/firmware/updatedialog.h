// The firmware update dialog (resource 149), run modally for an online console.
#pragma once

#include <windows.h>

class CONSOLEPROPERTIES;

INT_PTR CALLBACK FirmwareUpdateDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
// module: the plug-in's, which holds the dialog, its prompt and its strings.
INT_PTR RunFirmwareUpdate(HINSTANCE module, HWND owner, CONSOLEPROPERTIES* console);
