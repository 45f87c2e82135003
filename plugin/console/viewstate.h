// The state of one console view or control panel window, kept in its user
// data from WM_CREATE to WM_DESTROY, and the operations their files share.
#pragma once

#include <windows.h>

#include <vector>

#include "keygeometry.h"
#include "viewkinds.h"

#include "../../base/gdi.h"

class CONSOLEPROPERTIES;

enum { NO_KEY = -1 };

// A control panel (`ControlPanel`) keeps the same state: it is the view
// without designing, so its selection, label boxes, editor and toolbar stay
// empty, and its header holds its two host controls.
struct CONSOLEVIEW {
    const VIEWKIND* kind = &kConsoleViewKind;
    CONSOLEPROPERTIES* console = nullptr;  // borrowed from the canvas
    std::vector<CONSOLEKEY> keys;
    std::vector<CONSOLELED> leds[LEDLIST_COUNT];
    std::vector<CONSOLEKEYLABEL> labels;
    int pressedKey = NO_KEY;
    std::vector<int> selection;
    PICTUREFRAME frame = {};
    int keyOffsetX = 0;                    // 63 with page buttons; extension pages move the strip
    int editedKey = NO_KEY;
    int focusKey = NO_KEY;                 // the key the keyboard acts on (its mark is not the selection's)
    bool hasKeyboard = false;              // the mark shows while the view has the keyboard focus
    int page = 0;                          // 0 side by side, 1 with page buttons, 2 extensions alone
    int selectedPage = 0;                  // 0 the console, k extension slot k - 1
    int stripCount = 0;                    // extension pictures drawn
    bool showConsole = true;               // false on an extension's own page
    int dragMode = 0;                      // 1: rubber band
    RECT rubberBand = {};
    bool editMode = true;                  // 1 designing: label boxes open the editor; 0 operating
    int scrollPosition = 0;
    HWND editor = NULL;
    HWND tooltip = NULL;
    HWND toolbar = NULL;
    HWND header[4] = {};                   // online indicator, name field, find button, picture (the
                                           // panel has the first two)
    Bitmap pictureBitmap;
    std::vector<HWND> pageButtons;
    int tipKey = NO_KEY;
    char tipText[128] = "";
};

enum { HEADER_ONLINE, HEADER_NAME, HEADER_FIND, HEADER_PICTURE };

// The control panel's name for the same state.
typedef CONSOLEVIEW CONTROLPANEL;

// The type whose face the window shows (the console's own in the view).
int ConsoleType(const CONSOLEVIEW* view);
// The type whose extension strips and keys the window paints.
int StripType(const CONSOLEVIEW* view);
CONSOLEKEY* FindViewKey(CONSOLEVIEW* view, int id);

// viewinput.cpp: the mouse, the tooltip, scrolling and the blink timer, the
// same for both windows.
void CreateKeyTooltip(HWND hwnd, CONSOLEVIEW* view);
void OnKeyButtonDown(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam);
void OnKeyButtonUp(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam);
void OnKeyCaptureChanged(HWND hwnd, CONSOLEVIEW* view);
void OnKeyMouseMove(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam);
void OnKeyScroll(HWND hwnd, CONSOLEVIEW* view, WPARAM wParam);
LRESULT OnKeyHitTest(CONSOLEVIEW* view, WPARAM wParam, LPARAM lParam);
void OnBlinkTimer(HWND hwnd, CONSOLEVIEW* view, WPARAM timer);
void SetOperatingMode(CONSOLEVIEW* view, LPARAM lParam);
// The view's keyboard: false for a stroke it leaves to the default procedure.
bool OnViewKeyDown(HWND hwnd, CONSOLEVIEW* view, WPARAM key);
// WM_SETFOCUS and WM_KILLFOCUS: the focus key's mark shows or goes.
void OnViewFocus(HWND hwnd, CONSOLEVIEW* view, bool gained);
// The key menu of the focus key, shown at the key (Shift+F10, the Menu key).
void ShowFocusKeyMenu(HWND hwnd, CONSOLEVIEW* view);

// viewlayout.cpp
void CreateHeaderControls(HWND hwnd, CONSOLEVIEW* view);
void CreateViewToolbar(HWND hwnd, CONSOLEVIEW* view);
void BuildViewLayout(HWND hwnd, CONSOLEVIEW* view, int page);
void ShowExtensionPage(HWND hwnd, CONSOLEVIEW* view, int page);
// A page button's command: its page shown and the button checked.
void ChoosePage(HWND hwnd, CONSOLEVIEW* view, int page, HWND button);
// The console changed: its picture and keys again, on the page shown.
void RebuildChangedConsole(HWND hwnd, CONSOLEVIEW* view);
void ClearViewLayout(CONSOLEVIEW* view);
void RefreshLedModes(CONSOLEVIEW* view);

// viewpainter.cpp
// WM_PAINT: the drawing is done when the background is erased.
void ValidateView(HWND hwnd);
void DrawView(HWND hwnd, CONSOLEVIEW* view, HDC hdc);
// Paints one key straight onto the window (frame 1 at rest, 2 held down).
void PaintKeyNow(HWND hwnd, CONSOLEVIEW* view, int keyId, int baseFrame);
// Redraws the LED marks whose frame changed; a negative phase redraws all.
void BlinkLeds(HWND hwnd, CONSOLEVIEW* view, int phase);
// A key's record changed: the key and its tip show it.
void RepaintChangedKey(HWND hwnd, CONSOLEVIEW* view);
// The console's LED states changed: every mark takes its mode again.
void RepaintLeds(HWND hwnd, CONSOLEVIEW* view);
// WM_CTLCOLORSTATIC: the header's static controls draw over the picture.
LRESULT TransparentStatic(HDC hdc);

// labeleditor.cpp
void OpenLabelEditor(HWND hwnd, CONSOLEVIEW* view, const CONSOLEKEYLABEL& label);
void CloseLabelEditor(CONSOLEVIEW* view);
void StoreEditedLabel(CONSOLEVIEW* view, HWND editor);

// keyclipboard.cpp: several keys at once. Copy answers false when the
// selection holds fewer than two keys to copy; paste when the clipboard holds
// no block (the single-key "CONSOLEKEY" is then the one to take).
bool CopySelectedKeys(HWND hwnd, CONSOLEVIEW* view);
bool PasteKeyBlockAt(HWND hwnd, CONSOLEVIEW* view, int target);

// keymenu.cpp
void ShowKeyMenu(HWND hwnd, CONSOLEVIEW* view, POINT screen);
// Carries out a key menu command on a key (scripts reach it without a menu).
void RunKeyCommand(HWND hwnd, CONSOLEVIEW* view, int keyId, UINT command);
// After a paste the key pasted onto is the selected key, as a click makes
// it: it has the keyboard's mark and its page opens in the editor panel.
void SelectPastedKey(HWND hwnd, CONSOLEVIEW* view, int keyId);
