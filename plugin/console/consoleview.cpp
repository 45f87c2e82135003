// The console view window: its messages, the mouse (select, label, press),
// the toolbar and page commands, LED blinking and horizontal scrolling.
#include "consoleview.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>

#include "viewrules.h"
#include "viewstate.h"
#include "../device/consoleproperties.h"
#include "../device/liveconsoles.h"
#include "../entry/module.h"
#include "../keys/keycatalogue.h"
#include "../protocol.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const UINT kBlinkPeriod = 100;
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

void UpdateTooltip(HWND hwnd, CONSOLEVIEW* view, const CONSOLEKEY& key)
{
    if (!view->tooltip || key.id == view->tipKey)
        return;
    view->tipKey = key.id;
    const CONSOLEPROPERTIES* c = view->console;
    const bool numeric = c->m_settings.decadicSelectionActive && key.id >= 0 && key.id <= NUMERIC_KEY_LAST;
    const int32_t function = key.id >= 0 && key.id < CONSOLE_KEY_COUNT ? c->m_keys[key.id].functionId : 0;
    const std::string text = KeyTooltip(ConsoleType(view), key.id, numeric ? nullptr : KeyFunctionName(function),
                                        key.buttonPin, key.primaryLedPin, key.secondaryLedPin);
    CopyText(view->tipText, text.c_str());
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

void CreateTooltip(HWND hwnd, CONSOLEVIEW* view)
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

LRESULT View_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    CONSOLEPROPERTIES* console = AsConsole(LiveConsole(create->lpCreateParams));
    if (!console) {
        Trace("DOVRIXC: a console view needs a console to show\n");
        return -1;
    }
    CONSOLEVIEW* view = new CONSOLEVIEW;
    view->console = console;
    view->frame = PictureFrameOf(ConsoleType(view));
    AttachWindowState(hwnd, view);
    console->m_hConsoleView = hwnd;
    CreateTooltip(hwnd, view);
    CreateHeaderControls(hwnd, view);
    CreateViewToolbar(hwnd, view);
    BuildViewLayout(hwnd, view, 0);
    SetTimer(hwnd, TIMER_POLL, kBlinkPeriod, NULL);
    view->editMode = true;
    return 0;
}

void View_Destroy(HWND hwnd, CONSOLEVIEW* view)
{
    KillTimer(hwnd, TIMER_POLL);
    if (view->toolbar && IsWindow(view->toolbar))
        DestroyWindow(view->toolbar);
    if (view->tooltip && IsWindow(view->tooltip))
        DestroyWindow(view->tooltip);
    if (view->console->m_hConsoleView == hwnd)
        view->console->m_hConsoleView = NULL;
    FreeWindowState<CONSOLEVIEW>(hwnd);
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

void View_ButtonDown(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam)
{
    if (view->editor && IsWindow(view->editor))
        SendMessageA(view->editor, WM_KILLFOCUS, 0, 0);
    view->editor = NULL;
    const CONSOLEKEY* key = KeyUnder(view, lParam);
    if (!view->editMode) {
        if (!key)
            return;
        view->pressedKey = key->id;
        view->dragMode = 0;
        PaintKeyNow(hwnd, view, key->id, 2);
        SetCapture(hwnd);
        SendKeyLine(view, key->id, "down");
        return;
    }
    if (key) {
        SelectKey(hwnd, view, key->id);
        return;
    }
    const POINT at = ContentPoint(view, lParam);
    const CONSOLEKEYLABEL* label = KeyLabelAt(view->labels, at.x, at.y);
    if (label && label->key != KEY_WIDE) {
        OpenLabelEditor(hwnd, view, *label);
        return;
    }
    // Empty space: a rubber band selects what it encloses.
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

void View_ButtonUp(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam)
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
void View_CaptureChanged(HWND hwnd, CONSOLEVIEW* view)
{
    if (view->pressedKey == NO_KEY)
        return;
    const int key = view->pressedKey;
    view->pressedKey = NO_KEY;
    PaintKeyNow(hwnd, view, key, 1);
}

void View_MouseMove(HWND hwnd, CONSOLEVIEW* view, LPARAM lParam)
{
    if (view->dragMode == 1 && GetCapture() == hwnd) {
        WindowDC hdc(hwnd);
        RECT band = Normalized(view->rubberBand);
        DrawFocusRect(hdc, &band);
        view->rubberBand.right = GET_X_LPARAM(lParam);
        view->rubberBand.bottom = GET_Y_LPARAM(lParam);
        band = Normalized(view->rubberBand);
        DrawFocusRect(hdc, &band);
        return;
    }
    if (const CONSOLEKEY* key = KeyUnder(view, lParam))
        UpdateTooltip(hwnd, view, *key);
}

void ChangeExtensions(HWND hwnd, CONSOLEVIEW* view, bool add)
{
    CONSOLEPROPERTIES* c = view->console;
    uint8_t* slots = c->m_settings.extensionSlots;
    if (add && PresentExtensions(slots) >= EXTENSION_SLOT_COUNT) {
        MessageBoxA(NULL, "Maximum number of extensions reached!", "DOVRIXC", MB_OK);
        return;
    }
    if (!add && PresentExtensions(slots) == 0) {
        MessageBoxA(NULL, "No extension available for deletion!", "DOVRIXC", MB_OK);
        return;
    }
    if (add)
        AddExtensionSlot(slots);
    else
        RemoveExtensionSlot(slots);
    c->m_settings.extensionCount = PresentExtensions(slots);
    c->MarkEdited();
    SendMessageA(hwnd, CVM_SETPAGE, 0, view->page % 3);
}

void ChoosePage(HWND hwnd, CONSOLEVIEW* view, int page, HWND button)
{
    if (PresentExtensions(view->console->m_settings.extensionSlots) > 0)
        ShowExtensionPage(hwnd, view, page);
    else
        BuildViewLayout(hwnd, view, view->page);
    if (button && IsWindow(button))
        SendMessageA(button, BM_SETCHECK, BST_CHECKED, 0);
    RefreshLedModes(view);
    InvalidateRect(hwnd, NULL, TRUE);
}

LRESULT View_Command(HWND hwnd, CONSOLEVIEW* view, WPARAM wParam, LPARAM lParam)
{
    const WORD id = LOWORD(wParam);
    const WORD code = HIWORD(wParam);
    if (code == LABELEDITOR_ENTER) {
        StoreEditedLabel(view, GetDlgItem(hwnd, id % 4096));
        return 0;
    }
    if (code == 2)
        return 1;
    switch (id) {
    case IDC_VIEWTOOL_POINTER:
        return DefWindowProcA(hwnd, WM_COMMAND, wParam, lParam);
    case IDC_VIEWTOOL_ADDEXTENSION:
        ChangeExtensions(hwnd, view, true);
        return 0;
    case IDC_VIEWTOOL_REMOVEEXTENSION:
        ChangeExtensions(hwnd, view, false);
        return 0;
    default:
        if (id >= IDC_PAGEBUTTON_CONSOLE)
            ChoosePage(hwnd, view, id - IDC_PAGEBUTTON_CONSOLE, (HWND)lParam);
        return 0;
    }
}

// As the user asks, unclamped: the scroll bar keeps its thumb within range.
void View_Scroll(HWND hwnd, CONSOLEVIEW* view, WPARAM wParam)
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
    if (view->editor && IsWindow(view->editor))
        SendMessageA(view->editor, WM_KILLFOCUS, 0, 0);
    view->editor = NULL;
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

LRESULT View_HitTest(CONSOLEVIEW* view, WPARAM wParam, LPARAM lParam)
{
    const CONSOLEKEY* key = KeyUnder(view, lParam);
    if (!key)
        return 0;
    if (int* id = reinterpret_cast<int*>(wParam))
        *id = key->id;
    return 1;
}

// The page a user chose stays chosen while its extension is still there.
void View_ConsoleChanged(HWND hwnd, CONSOLEVIEW* view)
{
    const int chosen = view->selectedPage;
    ShowScrollBar(hwnd, SB_HORZ, FALSE);
    ClearViewLayout(view);
    view->frame = PictureFrameOf(ConsoleType(view));
    BuildViewLayout(hwnd, view, IsBoardView(ConsoleType(view)) ? 0 : view->page);
    if (view->page == 1 && chosen > 0 && SlotOfPage(view->console->m_settings.extensionSlots, chosen) >= 0)
        ShowExtensionPage(hwnd, view, chosen);
}

void View_SetEditMode(CONSOLEVIEW* view, LPARAM lParam)
{
    view->editMode = (lParam & 0xFF) != 0;
    if (view->header[HEADER_NAME])
        EnableWindow(view->header[HEADER_NAME], view->editMode ? TRUE : FALSE);
}

LRESULT View_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return View_Create(hwnd, reinterpret_cast<const CREATESTRUCTA*>(lParam));
    CONSOLEVIEW* view = WindowState<CONSOLEVIEW>(hwnd);
    if (!view)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_DESTROY:
        View_Destroy(hwnd, view);
        return 0;
    case WM_PAINT: {
        PAINTSTRUCT paint;
        BeginPaint(hwnd, &paint);
        EndPaint(hwnd, &paint);
        return 0;
    }
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT:
        DrawView(hwnd, view, (HDC)wParam);
        return 1;
    case WM_COMMAND:
        return View_Command(hwnd, view, wParam, lParam);
    case WM_TIMER:
        if (wParam == TIMER_POLL) {
            BlinkLeds(hwnd, view, BlinkPhase(GetTickCount()));
            UpdateWindow(hwnd);
        }
        return 0;
    case WM_HSCROLL:
        View_Scroll(hwnd, view, wParam);
        return 0;
    case WM_CTLCOLORSTATIC:
        SetBkMode((HDC)wParam, TRANSPARENT);
        return (LRESULT)GetStockObject(NULL_BRUSH);
    case WM_CONTEXTMENU:
        ShowKeyMenu(hwnd, view, POINT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        return 0;
    case WM_MOUSEMOVE:
        View_MouseMove(hwnd, view, lParam);
        return 0;
    case WM_LBUTTONDOWN:
        View_ButtonDown(hwnd, view, lParam);
        return 0;
    case WM_LBUTTONUP:
        View_ButtonUp(hwnd, view, lParam);
        return 0;
    case WM_CAPTURECHANGED:
        View_CaptureChanged(hwnd, view);
        return 0;
    case CVM_SETPAGE:
        BuildViewLayout(hwnd, view, lParam == 1 ? 1 : 0);
        return 0;
    case CVM_HITTEST:
        return View_HitTest(view, wParam, lParam);
    case CVM_CONSOLECHANGED:
        View_ConsoleChanged(hwnd, view);
        return 0;
    case CVM_KEYCHANGED:
        view->tipKey = NO_KEY;  // the tip names the key's new function
        InvalidateRect(hwnd, NULL, TRUE);
        return 0;
    case CVM_REFRESHLEDS:
        RefreshLedModes(view);
        BlinkLeds(hwnd, view, -1);
        return 0;
    case CVM_SETEDITMODE:
        View_SetEditMode(view, lParam);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

int ConsoleType(const CONSOLEVIEW* view)
{
    return view->console->m_model;
}

CONSOLEKEY* FindViewKey(CONSOLEVIEW* view, int id)
{
    for (CONSOLEKEY& key : view->keys)
        if (key.id == id)
            return &key;
    return nullptr;
}

LRESULT CALLBACK ConsoleViewWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<View_Dispatch>(hwnd, message, wParam, lParam);
}
