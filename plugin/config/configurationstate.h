// What the configuration window keeps in its user data.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "pageowners.h"
#include "../../base/gdi.h"

class CONSOLEPROPERTIES;

struct CONFIGURATIONSTATE {
    CONSOLEPROPERTIES* console = nullptr;
    std::unique_ptr<CONFIGURATIONPROPERTIES> widgets;  // the column's widgets
    HWND consoleView = NULL;
    HWND viewButton = NULL;
    HWND managerView = NULL;
    HWND keyFunctionView = NULL;
    HWND tabs = NULL;
    HWND onlineIndicator = NULL;
    HWND selector = NULL;
    HWND diagnostics = NULL;
    HWND update = NULL;
    FontHandle selectorFont;
    Brush field;                 // the pale yellow behind edit fields and the selector
    Bitmap online;
    Bitmap offline;
    int viewPage = 0;            // the console view's layout: 0 side by side, 1 with page buttons
    int shownOnline = -1;        // what the indicator shows
    int fireMonitoringEnabled = -1;
    int emergencyKeysEnabled = -1;
    int adaptedModel = -1;       // the device type the column was last adapted to
    int listedConsoles = -1;     // the selector's count at the last tick
    std::vector<std::string> listedNames;  // and the names it lists
    DWORD lampStamp = 0;         // when the Supervision page last had its lamps refreshed
    bool rebuildNoted = false;
    HWND keyPage = NULL;         // the key-function editor panel
    int keyPageKey = -1;         // the key it edits
    HHOOK undoKeys = NULL;       // Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z anywhere in the window
};

// The column (configurationcolumn.cpp).
void CreateColumn(HWND hwnd, CONFIGURATIONSTATE* state);
void AdaptColumnToConsole(CONFIGURATIONSTATE* state);
void GreyDependentOptions(CONFIGURATIONSTATE* state);
void RefreshSelector(CONFIGURATIONSTATE* state);
// Shows or hides every widget of the column but the online indicator's.
void ShowColumn(CONFIGURATIONSTATE* state, bool show);

// Undo and redo of the key edits (undokeys.cpp).
void StartUndo(HWND hwnd, CONFIGURATIONSTATE* state);
void StopUndo(CONFIGURATIONSTATE* state);
// CFM_UNDO and CFM_REDO: 1 when a step was taken.
LRESULT RunUndo(HWND hwnd, CONFIGURATIONSTATE* state, bool redo);

// The key-function editor panel (keypanel.cpp).
void RebuildKeyPanel(HWND hwnd, CONFIGURATIONSTATE* state);
void FollowKeyChange(HWND hwnd, CONFIGURATIONSTATE* state);
