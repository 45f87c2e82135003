// The state of one console view window, kept in its user data from WM_CREATE
// to WM_DESTROY, and the operations its files share.
#pragma once

#include <windows.h>

#include <vector>

#include "keygeometry.h"

#include "../../base/gdi.h"

class CONSOLEPROPERTIES;

enum { NO_KEY = -1 };

struct CONSOLEVIEW {
    CONSOLEPROPERTIES* console = nullptr;  // borrowed from the canvas
    std::vector<CONSOLEKEY> keys;
    std::vector<CONSOLELED> leds[LEDLIST_COUNT];
    std::vector<CONSOLEKEYLABEL> labels;
    int pressedKey = NO_KEY;
    std::vector<int> selection;
    PICTUREFRAME frame = {};
    int keyOffsetX = 0;                    // 63 with page buttons; extension pages move the strip
    int editedKey = NO_KEY;
    int page = 0;                          // 0 side by side, 1 with page buttons
    int selectedPage = 0;                  // 0 the console, k extension slot k - 1
    int stripCount = 0;                    // extension pictures drawn
    bool showConsole = true;               // false on an extension's own page
    int dragMode = 0;                      // 1: rubber band
    RECT rubberBand = {};
    bool editMode = true;                  // 1 designing: label boxes open the editor
    int scrollPosition = 0;
    HWND editor = NULL;
    HWND tooltip = NULL;
    HWND toolbar = NULL;
    HWND header[4] = {};                   // online indicator, name field, find button, picture
    Bitmap pictureBitmap;
    std::vector<HWND> pageButtons;
    int tipKey = NO_KEY;
    char tipText[128] = "";
};

enum { HEADER_ONLINE, HEADER_NAME, HEADER_FIND, HEADER_PICTURE };

int ConsoleType(const CONSOLEVIEW* view);
CONSOLEKEY* FindViewKey(CONSOLEVIEW* view, int id);

// viewlayout.cpp
void CreateHeaderControls(HWND hwnd, CONSOLEVIEW* view);
void CreateViewToolbar(HWND hwnd, CONSOLEVIEW* view);
void BuildViewLayout(HWND hwnd, CONSOLEVIEW* view, int page);
void ShowExtensionPage(HWND hwnd, CONSOLEVIEW* view, int page);
void ClearViewLayout(CONSOLEVIEW* view);
void RefreshLedModes(CONSOLEVIEW* view);

// viewpainter.cpp
void DrawView(HWND hwnd, CONSOLEVIEW* view, HDC hdc);
// Paints one key straight onto the window (frame 1 at rest, 2 held down).
void PaintKeyNow(HWND hwnd, CONSOLEVIEW* view, int keyId, int baseFrame);
// Redraws the LED marks whose frame changed; a negative phase redraws all.
void BlinkLeds(HWND hwnd, CONSOLEVIEW* view, int phase);

// labeleditor.cpp
void OpenLabelEditor(HWND hwnd, CONSOLEVIEW* view, const CONSOLEKEYLABEL& label);
void CloseLabelEditor(CONSOLEVIEW* view);
void StoreEditedLabel(CONSOLEVIEW* view, HWND editor);

// keymenu.cpp
void ShowKeyMenu(HWND hwnd, CONSOLEVIEW* view, POINT screen);
// Carries out a key menu command on a key (scripts reach it without a menu).
void RunKeyCommand(HWND hwnd, CONSOLEVIEW* view, int keyId, UINT command);
