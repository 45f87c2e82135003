// The input of the console view and the control panel: the mouse (press and
// release a key, or while designing select keys and open a label box), the
// tooltip of the key under the cursor, horizontal scrolling and the LED
// blink timer. Both windows call these from their own message switch.
#include "viewstate.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>

#include "keynavigation.h"
#include "viewrules.h"
#include "../device/keyundo.h"
#include "../device/consoleproperties.h"
#include "../entry/module.h"
#include "../keys/keycatalogue.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const int kScrollStep = 10;
const int kScrollRightEnd = 500;

// Content coordinates: the client point moved by the scroll position.
POINT ContentPoint(const CONSOLEVIEW* view, LPARAM lParam)
{
    return POINT{GET_X_LPARAM(lParam) + view->scrollPosition, GET_Y_LPARAM(lParam)};
}

const CONSOLEKEY* KeyUnder(const CONSOLEVIEW* view, LPARAM lParam)
{
    const POINT at = ContentPoint(view, lParam);
    return KeyAt(view->keys, at.x, at.y);
}

bool HasConnection(const CONSOLEVIEW* view)
{
    return FirstConnectionText(view->console) != nullptr;
}

// A press or release goes to the running system as a design line.
void SendKeyLine(const CONSOLEVIEW* view, int key, const char* what)
{
    if (!HasConnection(view))
        return;
    HOSTINFO* root = a_FindRootHostinfo(view->console);
    if (!root || root == view->console)
        return;
    char line[HOSTNAME_SIZE + 32];
    FormatText(line, sizeof line, "%s*key%03d=%s", FirstConnectionText(view->console), key, what);
    root->OnLoad(0, (LPARAM)line);
}

int32_t FunctionOf(const CONSOLEVIEW* view, int key)
{
    return key >= 0 && key < CONSOLE_KEY_COUNT ? view->console->m_keys[key].functionId : 0;
}

// The panel has no label boxes: its tip names the label the user gave the
// key, or what the key shows when it has none.
std::string TipText(const CONSOLEVIEW* view, const CONSOLEKEY& key)
{
    const CONSOLEPROPERTIES* c = view->console;
    if (view->kind->tooltip == KEYTIP_LABEL) {
        const char* label = key.id >= 0 && key.id < CONSOLE_KEY_COUNT ? c->m_settings.keyLabels[key.id] : "";
        return ControlPanelKeyTooltip(label[0] ? label : key.label, key.id, KeyFunctionName(FunctionOf(view, key.id)));
    }
    const bool numeric = c->m_settings.decadicSelectionActive && key.id >= 0 && key.id <= NUMERIC_KEY_LAST;
    return KeyTooltip(ConsoleType(view), key.id, numeric ? nullptr : KeyFunctionName(FunctionOf(view, key.id)),
                      key.buttonPin, key.primaryLedPin, key.secondaryLedPin);
}

// Only when the cursor enters another key.
void UpdateTooltip(HWND hwnd, CONSOLEVIEW* view, const CONSOLEKEY& key)
{
    if (!view->tooltip || key.id == view->tipKey)
        return;
    view->tipKey = key.id;
    CopyText(view->tipText, TipText(view, key).c_str());
    TOOLINFOA tool = {};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.hwnd = hwnd;
    tool.uId = 0;
    tool.rect = RECT{key.left - view->scrollPosition, key.top, key.left - view->scrollPosition + key.frameWidth,
                     key.top + key.frameHeight};
    tool.lpszText = view->tipText;
    SendMessageA(view->tooltip, TTM_NEWTOOLRECTA, 0, (LPARAM)&tool);
    SendMessageA(view->tooltip, TTM_UPDATETIPTEXTA, 0, (LPARAM)&tool);
    SendMessageA(view->tooltip, TTM_ACTIVATE, TRUE, 0);
}

void CloseEditor(CONSOLEVIEW* view)
{
    if (view->editor && IsWindow(view->editor))
        SendMessageA(view->editor, WM_KILLFOCUS, 0, 0);
    view->editor = NULL;
}

// In edit mode a click adds a key to the selection; the key menu alone
// makes one key the only selected one.
void SelectKey(HWND hwnd, CONSOLEVIEW* view, int key)
{
    if (std::find(view->selection.begin(), view->selection.end(), key) == view->selection.end())
        view->selection.push_back(key);
    view->console->SelectKeyForEditor(key);  // its editor page follows
    InvalidateRect(hwnd, NULL, TRUE);
}

void PressKey(HWND hwnd, CONSOLEVIEW* view, const CONSOLEKEY& key)
{
    view->pressedKey = key.id;
    view->dragMode = 0;
    PaintKeyNow(hwnd, view, key.id, 2);
    SetCapture(hwnd);
    SendKeyLine(view, key.id, "down");
}

// Designing: a key joins the selection, a label box opens its editor, and
// empty space starts a rubber band that selects what it encloses.
void DesignClick(HWND hwnd, CONSOLEVIEW* view, const CONSOLEKEY* key, LPARAM lParam)
{
    if (key) {
        view->focusKey = key->id;
        SelectKey(hwnd, view, key->id);
        return;
    }
    const POINT at = ContentPoint(view, lParam);
    const CONSOLEKEYLABEL* label = KeyLabelAt(view->labels, at.x, at.y);
    if (label && label->key != KEY_WIDE) {
        OpenLabelEditor(hwnd, view, *label);
        return;
    }
    view->selection.clear();
    view->dragMode = 1;
    view->rubberBand = RECT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam), GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    SetCapture(hwnd);
    InvalidateRect(hwnd, NULL, TRUE);
}

RECT Normalized(const RECT& r)
{
    return RECT{std::min(r.left, r.right), std::min(r.top, r.bottom), std::max(r.left, r.right), std::max(r.top, r.bottom)};
}

void EndRubberBand(HWND hwnd, CONSOLEVIEW* view)
{
    const RECT band = Normalized(view->rubberBand);
    {
        WindowDC hdc(hwnd);
        DrawFocusRect(hdc, &band);  // erase it
    }
    view->dragMode = 0;
    for (const CONSOLEKEY& key : view->keys) {
        const int left = key.left - view->scrollPosition;
        if (left >= band.left && left + key.frameWidth <= band.right && key.top >= band.top &&
            key.top + key.frameHeight <= band.bottom)
            view->selection.push_back(key.id);
    }
    InvalidateRect(hwnd, NULL, TRUE);
}

void DragRubberBand(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam)
{
    WindowDC hdc(hwnd);
    RECT band = Normalized(view->rubberBand);
    DrawFocusRect(hdc, &band);
    view->rubberBand.right = GET_X_LPARAM(lParam);
    view->rubberBand.bottom = GET_Y_LPARAM(lParam);
    band = Normalized(view->rubberBand);
    DrawFocusRect(hdc, &band);
}

// ---- The keyboard ---------------------------------------------------------------------

bool Pressed(int key)
{
    return GetKeyState(key) < 0;
}

// The keyboard has the mouse's limits: what has no menu is neither cleared
// nor pasted onto, and a console whose host flag bit 2 is set keeps its keys.
bool KeyboardMayEdit(const CONSOLEVIEW* view, int key)
{
    if (key < 0 || key >= CONSOLE_KEY_COUNT || view->console->IsOnline())
        return false;
    return KeyMenuFor(ConsoleType(view), key, view->console->m_settings.decadicSelectionActive != 0) != KEYMENU_NONE;
}

int FocusKey(const CONSOLEVIEW* view)
{
    if (view->focusKey != NO_KEY)
        return view->focusKey;
    if (!view->selection.empty())
        return view->selection.front();
    return view->keys.empty() ? NO_KEY : view->keys.front().id;
}

void MoveFocus(HWND hwnd, CONSOLEVIEW* view, KEYDIRECTION direction)
{
    const int next = NeighbourKey(view->keys, FocusKey(view), direction);
    if (next < 0)
        return;
    view->focusKey = next;
    view->selection.assign(1, next);
    view->console->SelectKeyForEditor(next);
    InvalidateRect(hwnd, NULL, TRUE);
}

void ClearSelectedKeys(HWND hwnd, CONSOLEVIEW* view)
{
    std::vector<int> keys = view->selection;
    if (keys.empty() && view->focusKey != NO_KEY)
        keys.push_back(view->focusKey);
    KEYEDITGROUP step(view->console);  // one undo step for them all
    for (int key : keys)
        if (KeyboardMayEdit(view, key) && CanClearKey(view->console->m_keys[key].functionId))
            RunKeyCommand(hwnd, view, key, IDM_KEY_CLEAR);
}

void EditFocusLabel(HWND hwnd, CONSOLEVIEW* view)
{
    const int key = FocusKey(view);
    if (key == KEY_WIDE)
        return;  // it has no label editor
    for (const CONSOLEKEYLABEL& label : view->labels)
        if (label.key == key) {
            OpenLabelEditor(hwnd, view, label);
            return;
        }
}

void SelectEveryKey(HWND hwnd, CONSOLEVIEW* view)
{
    view->selection.clear();
    for (const CONSOLEKEY& key : view->keys)
        view->selection.push_back(key.id);
    InvalidateRect(hwnd, NULL, TRUE);
}

}  // namespace

bool OnViewKeyDown(HWND hwnd, CONSOLEVIEW* view, WPARAM key)
{
    if (!view->kind->designs || !view->editMode)
        return false;
    const bool control = Pressed(VK_CONTROL);
    switch (key) {
    case VK_LEFT: MoveFocus(hwnd, view, KEYDIRECTION_LEFT); return true;
    case VK_RIGHT: MoveFocus(hwnd, view, KEYDIRECTION_RIGHT); return true;
    case VK_UP: MoveFocus(hwnd, view, KEYDIRECTION_UP); return true;
    case VK_DOWN: MoveFocus(hwnd, view, KEYDIRECTION_DOWN); return true;
    case VK_DELETE:
        ClearSelectedKeys(hwnd, view);
        return true;
    case VK_F2:
    case VK_RETURN:
        EditFocusLabel(hwnd, view);
        return true;
    case VK_APPS:
        ShowFocusKeyMenu(hwnd, view);
        return true;
    case VK_F10:
        if (!Pressed(VK_SHIFT))
            return false;
        ShowFocusKeyMenu(hwnd, view);
        return true;
    case 'A':
        if (!control)
            return false;
        SelectEveryKey(hwnd, view);
        return true;
    case 'C':
        if (!control)
            return false;
        if (CopySelectedKeys(hwnd, view))
            return true;
        if (FocusKey(view) >= 0 && FocusKey(view) < CONSOLE_KEY_COUNT &&
            CanCopyKey(view->console->m_keys[FocusKey(view)].functionId))
            RunKeyCommand(hwnd, view, FocusKey(view), IDM_KEY_COPY);
        return true;
    case 'V':
        if (!control)
            return false;
        if (FocusKey(view) < 0 || PasteKeyBlockAt(hwnd, view, FocusKey(view)))
            return true;
        if (KeyboardMayEdit(view, FocusKey(view)))
            RunKeyCommand(hwnd, view, FocusKey(view), IDM_KEY_PASTE);
        return true;
    default:
        return false;
    }
}

void OnViewFocus(HWND hwnd, CONSOLEVIEW* view, bool gained)
{
    view->hasKeyboard = gained;
    if (view->focusKey != NO_KEY)
        InvalidateRect(hwnd, NULL, TRUE);
}

void ShowFocusKeyMenu(HWND hwnd, CONSOLEVIEW* view)
{
    const CONSOLEKEY* key = FindViewKey(view, FocusKey(view));
    if (!key)
        return;
    POINT at = {key->left + key->frameWidth / 2 - view->scrollPosition, key->top + key->frameHeight / 2};
    ClientToScreen(hwnd, &at);
    ShowKeyMenu(hwnd, view, at);
}

void CreateKeyTooltip(HWND hwnd, CONSOLEVIEW* view)
{
    view->tooltip = CreateWindowExA(0, TOOLTIPS_CLASSA, NULL, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, hwnd, NULL,
                                    ModuleInstance(), NULL);
    if (!view->tooltip)
        return;
    SendMessageA(view->tooltip, TTM_SETMAXTIPWIDTH, 0, 32767);
    TOOLINFOA tool = {};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = hwnd;
    tool.uId = 0;
    GetClientRect(hwnd, &tool.rect);
    tool.lpszText = view->tipText;
    SendMessageA(view->tooltip, TTM_ADDTOOLA, 0, (LPARAM)&tool);
}

void OnKeyButtonDown(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam)
{
    CloseEditor(view);
    const CONSOLEKEY* key = KeyUnder(view, lParam);
    if (!view->editMode) {
        if (key)
            PressKey(hwnd, view, *key);
        return;
    }
    if (view->kind->designs) {
        SetFocus(hwnd);  // the keyboard acts on the picture now
        DesignClick(hwnd, view, key, lParam);
    }
}

void OnKeyButtonUp(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam)
{
    if (GetCapture() != hwnd)
        return;
    if (view->dragMode == 1) {
        EndRubberBand(hwnd, view);
    } else if (view->pressedKey != NO_KEY) {
        const CONSOLEKEY* key = KeyUnder(view, lParam);
        if (key && key->id == view->pressedKey) {
            const int released = view->pressedKey;
            view->pressedKey = NO_KEY;
            PaintKeyNow(hwnd, view, released, 1);
            SendKeyLine(view, released, "up");
        }
    }
    ReleaseCapture();
}

// The capture went away without a release over the key: it shows released,
// and the system hears nothing.
void OnKeyCaptureChanged(HWND hwnd, CONSOLEVIEW* view)
{
    if (view->pressedKey == NO_KEY)
        return;
    const int key = view->pressedKey;
    view->pressedKey = NO_KEY;
    PaintKeyNow(hwnd, view, key, 1);
}

void OnKeyMouseMove(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam)
{
    if (view->dragMode == 1 && GetCapture() == hwnd) {
        DragRubberBand(hwnd, view, lParam);
        return;
    }
    if (const CONSOLEKEY* key = KeyUnder(view, lParam))
        UpdateTooltip(hwnd, view, *key);
}

// As the user asks, unclamped: the scroll bar keeps its thumb within range.
void OnKeyScroll(HWND hwnd, CONSOLEVIEW* view, WPARAM wParam)
{
    int position = view->scrollPosition;
    switch (LOWORD(wParam)) {
    case SB_LINELEFT:
    case SB_PAGELEFT: position -= kScrollStep; break;
    case SB_LINERIGHT:
    case SB_PAGERIGHT: position += kScrollStep; break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: position = HIWORD(wParam); break;
    case SB_LEFT: position = 0; break;
    case SB_RIGHT: position = kScrollRightEnd; break;
    default: return;
    }
    CloseEditor(view);
    if (position == view->scrollPosition)
        return;
    const int moved = view->scrollPosition - position;
    view->scrollPosition = position;
    SetScrollPos(hwnd, SB_HORZ, position, TRUE);
    LockWindowUpdate(hwnd);
    for (HWND child : view->header) {
        if (!child)
            continue;
        RECT r;
        GetWindowRect(child, &r);
        MapWindowPoints(NULL, hwnd, (POINT*)&r, 2);
        SetWindowPos(child, NULL, r.left + moved, r.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    InvalidateRect(hwnd, NULL, TRUE);
    LockWindowUpdate(NULL);
    UpdateWindow(hwnd);
}

LRESULT OnKeyHitTest(CONSOLEVIEW* view, WPARAM wParam, LPARAM lParam)
{
    const CONSOLEKEY* key = KeyUnder(view, lParam);
    if (!key)
        return 0;
    if (int* id = reinterpret_cast<int*>(wParam))
        *id = key->id;
    return 1;
}

void OnBlinkTimer(HWND hwnd, CONSOLEVIEW* view, WPARAM timer)
{
    if (timer != TIMER_POLL)
        return;
    BlinkLeds(hwnd, view, BlinkPhase(GetTickCount()));
    UpdateWindow(hwnd);
}

void SetOperatingMode(CONSOLEVIEW* view, LPARAM lParam)
{
    view->editMode = (lParam & 0xFF) != 0;
    if (view->header[HEADER_NAME])
        EnableWindow(view->header[HEADER_NAME], view->editMode ? TRUE : FALSE);
}
