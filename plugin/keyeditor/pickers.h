// The pickers the editor pages open: "Destinations" (the controller's zones
// and groups) and "Logic Parameters" (its logic and arithmetic variables).
#pragma once

#include <windows.h>

#include <string>

class CONSOLEPROPERTIES;

// Runs the picker (IDD_DESTINATIONPICKER or IDD_LOGICPICKER) over owner;
// true with the chosen entry after "Ok", false after "Cancel" or with
// nothing chosen. The destination picker offers the current selection first
// when the key can address it, and says in kind what was chosen
// (DESTINATIONKIND: selection, zone or group).
bool RunPicker(HWND owner, int picker, CONSOLEPROPERTIES* console, bool offerSelection, std::string* chosen,
               int* kind);
