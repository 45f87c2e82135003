#include "configurationdialog.h"

#include <string>

#include "configurationrules.h"
#include "configurationstate.h"
#include "controldescriptor.h"
#include "diagnosticspage.h"
#include "../device/consoleproperties.h"
#include "../device/liveconsoles.h"
#include "../controls/flatcontrols.h"
#include "../entry/module.h"
#include "../firmware/updatedialog.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/gdi.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const int kWidth = 1008;
const int kHeight = 900;
const UINT kTickPeriod = 200;
const DWORD kLampPeriod = 5000;
const COLORREF kPageColour = RGB(0xD4, 0xD0, 0xC8);  // the widgets' background, 0xc8d0d4
const COLORREF kFieldColour = 0xceffff;             // edit fields and the selector, pale yellow
const UINT_PTR kTabSubclass = 1;

bool IsKeypad(const CONSOLEPROPERTIES* c)
{
    return c->m_model == MODEL_ELK_CSK || c->m_model == MODEL_ORN_CSK;
}

// ---- The key-123 record --------------------------------------------------------

// The PTT key carries the function its variant names (string table 150 to 152).
void WritePttKey(CONSOLEPROPERTIES* c)
{
    if (IsKeypad(c))
        return;
    char names[3][64] = {};
    for (int i = 0; i < 3; i++)
        LoadStringA(ModuleInstance(), IDS_PTT_SELECTION + i, names[i], sizeof names[i]);
    const char* const table[3] = {names[0], names[1], names[2]};
    const std::string line = PttKeyLine(c->m_keys[123], table);
    char text[1024];
    CopyText(text, line.c_str());
    c->OnLoad(0, (LPARAM)text);
}

// ---- Children ----------------------------------------------------------------------

HWND Child(HWND parent, DWORD exStyle, const char* cls, const char* text, DWORD style, int x, int y, int w, int h, int id,
           void* param = nullptr)
{
    return CreateWindowExA(exStyle, cls, text, style, x, y, w, h, parent, (HMENU)(INT_PTR)id, ModuleInstance(), param);
}

void SetFont(HWND window, const char* spec)
{
    SendMessageA(window, WM_SETFONT, (WPARAM)a_GetFont(spec), FALSE);
}

LRESULT Tabs_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR)
{
    if (message == WM_ERASEBKGND) {
        RECT client;
        GetClientRect(hwnd, &client);
        Brush page(CreateSolidBrush(kPageColour));
        FillRect((HDC)wParam, &client, page);
        return 1;
    }
    return DefSubclassProc(hwnd, message, wParam, lParam);
}

// The view lays itself out for a frame of its own (it moves to 18,26 and
// sizes its parent); here it stands at 238,68 of a window of fixed size.
void PlaceConsoleView(CONFIGURATIONSTATE* state)
{
    RECT at;
    if (!state->consoleView || !GetWindowRect(state->consoleView, &at))
        return;
    POINT origin = {at.left, at.top};
    ScreenToClient(GetParent(state->consoleView), &origin);
    if (origin.x != 238 || origin.y != 68)
        SetWindowPos(state->consoleView, NULL, 238, 68, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CreateConsoleView(HWND hwnd, CONFIGURATIONSTATE* state)
{
    state->consoleView = Child(hwnd, WS_EX_CLIENTEDGE, "DOVRIXCONSOLEVIEW", "", WS_CHILD | WS_VISIBLE, 238, 68, 50, 50,
                               IDC_CONSOLEVIEW, state->console);
    if (state->consoleView && state->viewPage)
        SendMessageA(state->consoleView, CVM_SETPAGE, 0, state->viewPage);
    PlaceConsoleView(state);
}

void CreateChildren(HWND hwnd, CONFIGURATIONSTATE* state)
{
    RECT client;
    GetClientRect(hwnd, &client);
    CreateConsoleView(hwnd, state);
    state->viewButton = Child(hwnd, 0, "BUTTON", "View", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 238, 502, 60, 20,
                              IDC_VIEWBUTTON);
    state->managerView = Child(hwnd, WS_EX_CLIENTEDGE, "DOVRIXKVTVIEW", "KVT", WS_CHILD | WS_VISIBLE, 18, 68, 200, 350,
                               IDC_MANAGERVIEW, state->console);
    state->keyFunctionView = Child(hwnd, 0, "DOVRIXKEYFUNCTIONVIEW", "KVT", WS_CHILD | WS_VISIBLE, 18, 441, 200, 276,
                                   IDC_MANAGERVIEW, state->console);
    state->tabs = Child(hwnd, WS_EX_TRANSPARENT, WC_TABCONTROLA, "",
                        WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TCS_OWNERDRAWFIXED | TCS_FIXEDWIDTH, 18, 26,
                        client.right - 36, 22, IDC_TABSTRIP);
    state->onlineIndicator = Child(hwnd, 0, "STATIC", "onlineLED", WS_CHILD | WS_VISIBLE | SS_BITMAP, client.right - 75, 3,
                                   52, 41, IDC_ONLINEINDICATOR);
    // The indicator reaches down beside the tab strip, which clips itself
    // against the siblings above it.
    SetWindowPos(state->onlineIndicator, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    state->selector = Child(hwnd, WS_EX_NOPARENTNOTIFY, "COMBOBOX", "ZELList",
                            WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | CBS_HASSTRINGS | CBS_DROPDOWNLIST,
                            client.right - 215, 3, 122, 41, IDC_CONSOLESELECTOR);
    SetFont(state->viewButton, "MS Sans Serif,8");
    SetFont(state->managerView, "MS Sans Serif,8");
    SetFont(state->keyFunctionView, "MS Sans Serif,8");
    SetFont(state->tabs, "ms sans serif,8");
    SetWindowSubclass(state->tabs, GuardedSubclassProc<Tabs_Dispatch>, kTabSubclass, 0);
    const char* const names[2] = {"Configuration", "Supervision"};
    for (int i = 0; i < 2; i++) {
        TCITEMA item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<char*>(names[i]);
        SendMessageA(state->tabs, TCM_INSERTITEMA, i, (LPARAM)&item);
    }
    // The selector writes as the flat combo boxes do: 8 below the standard
    // height, a cell height (a character height of that size is unreadable).
    LOGFONTA own = {};
    own.lfHeight = ReferenceFontHeight() - 8;
    own.lfWeight = 100;
    CopyText(own.lfFaceName, "MS Sans Serif");
    state->selectorFont.Reset(CreateFontIndirectA(&own));
    SendMessageA(state->selector, WM_SETFONT, (WPARAM)state->selectorFont.Get(), FALSE);
    state->online.Reset(LoadBitmapA(ModuleInstance(), MAKEINTRESOURCEA(IDB_ONLINEINDICATOR_ON)));
    state->offline.Reset(LoadBitmapA(ModuleInstance(), MAKEINTRESOURCEA(IDB_ONLINEINDICATOR_OFF)));
}

// ---- Tabs -----------------------------------------------------------------------------

void SelectTab(HWND hwnd, CONFIGURATIONSTATE* state, int tab)
{
    CONSOLEPROPERTIES* c = state->console;
    c->m_configurationTab = tab == TAB_SUPERVISION ? TAB_SUPERVISION : TAB_CONFIGURATION;
    const bool supervision = c->m_configurationTab == TAB_SUPERVISION;
    if (supervision && !state->diagnostics) {
        state->diagnostics = CreateDiagnosticsPage(hwnd, c);
        state->lampStamp = GetTickCount();
    }
    if (state->diagnostics) {
        if (supervision)
            SetWindowPos(state->diagnostics, HWND_TOP, 50, 100, 500, 500, SWP_SHOWWINDOW);
        else
            ShowWindow(state->diagnostics, SW_HIDE);
    }
    const int views = supervision ? SW_HIDE : SW_SHOW;
    ShowWindow(state->managerView, views);
    ShowWindow(state->keyFunctionView, views);
    ShowWindow(state->consoleView, views);
    ShowWindow(state->keyPage, views);
    ShowColumn(state, !supervision);
    ShowWindow(state->update, views);
    ShowWindow(state->viewButton, supervision || IsKeypad(c) ? SW_HIDE : SW_SHOW);
    SendMessageA(state->tabs, TCM_SETCURSEL, c->m_configurationTab, 0);
    InvalidateRect(hwnd, NULL, TRUE);
}

// ---- Re-initialisation for a console ------------------------------------------------

void Reinitialize(HWND hwnd, CONFIGURATIONSTATE* state, CONSOLEPROPERTIES* console)
{
    // A console with a window of its own stays there; the manager tree goes back to this one.
    if (console && console != state->console && console->m_hConfiguration && console->m_hConfiguration != hwnd) {
        SendMessageA(state->managerView, CFM_SELECTBYNAME, 0, (LPARAM)state->console->m_szName);
        return;
    }
    if (console && console != state->console) {
        if (state->console->m_hConfiguration == hwnd)
            state->console->m_hConfiguration = NULL;
        state->console->m_configurationOpen = false;
        StopUndo(state);
        // The window stays on the tab it shows; the console chosen is shown there.
        console->m_configurationTab = state->console->m_configurationTab;
        state->console = console;
        console->m_hConfiguration = hwnd;
        console->m_configurationOpen = true;
        if (state->consoleView)
            DestroyWindow(state->consoleView);
        CreateConsoleView(hwnd, state);
        if (console->m_configurationTab == TAB_SUPERVISION)
            ShowWindow(state->consoleView, SW_HIDE);
        SendMessageA(state->keyFunctionView, KFM_SETCONSOLE, 0, (LPARAM)console);
        RebuildKeyPanel(hwnd, state);
        BindPage(state->widgets.get(), console->m_szName);
        if (state->diagnostics)
            SendMessageA(state->diagnostics, CFM_REINITIALIZE, 0, (LPARAM)console);
        state->listedConsoles = -1;
        state->shownOnline = -1;
        state->fireMonitoringEnabled = state->emergencyKeysEnabled = -1;
        SendMessageA(state->managerView, CFM_SELECTBYNAME, 0, (LPARAM)console->m_szName);
        StartUndo(hwnd, state);
    }
    char title[HOSTNAME_SIZE + 32];
    FormatText(title, sizeof title, "%s - Configuration", state->console->m_szName);
    SetWindowTextA(hwnd, title);
    AdaptColumnToConsole(state);
}

// ---- The tick ----------------------------------------------------------------------------

void Tick(HWND hwnd, CONFIGURATIONSTATE* state)
{
    GreyDependentOptions(state);
    PlaceConsoleView(state);
    FollowKeyChange(hwnd, state);
    const int online = state->console->IsOnline() ? 1 : 0;
    if (online != state->shownOnline) {
        state->shownOnline = online;
        SendMessageA(state->onlineIndicator, STM_SETIMAGE, IMAGE_BITMAP,
                     (LPARAM)(online ? state->online.Get() : state->offline.Get()));
    }
    TimePageWidgets(state->widgets.get());
    if (state->console->m_model != state->adaptedModel)  // a type changed while open
        AdaptColumnToConsole(state);
    if (state->diagnostics) {
        SendMessageA(state->diagnostics, WM_TIMER, TIMER_POLL, 0);
        if (GetTickCount() - state->lampStamp > kLampPeriod) {
            state->lampStamp = GetTickCount();
            SendMessageA(state->diagnostics, CFM_REFRESHLAMPS, 0, 0);
        }
    }
    RefreshSelector(state);
    SendMessageA(state->managerView, CFM_FOLLOWDESIGN, 0, 0);
}

// ---- Messages -------------------------------------------------------------------------

LRESULT Configuration_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    // A design line can name this class too: only a console of ours will do.
    CONSOLEPROPERTIES* console = LiveConsole(create->lpCreateParams);
    if (!console) {
        Trace("DOVRIXC: a configuration window needs a console to configure\n");
        return -1;
    }
    CONFIGURATIONSTATE* state = AttachWindowState(hwnd, new CONFIGURATIONSTATE);
    state->console = console;
    state->widgets.reset(new CONFIGURATIONPROPERTIES);
    state->widgets->m_hWnd = hwnd;
    console->m_configurationOpen = true;
    WritePttKey(console);
    CreateChildren(hwnd, state);
    CreateColumn(hwnd, state);
    state->update = Child(hwnd, 0, "BUTTON", "UPDATE", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, 891, 570, 100, 18,
                          IDC_CONFIGURATION_UPDATE);
    SetFont(state->update, "MS Sans Serif,8");
    BindPage(state->widgets.get(), console->m_szName);
    Reinitialize(hwnd, state, nullptr);
    RebuildKeyPanel(hwnd, state);
    SelectTab(hwnd, state, console->m_configurationTab);
    StartUndo(hwnd, state);
    Tick(hwnd, state);
    SetTimer(hwnd, TIMER_POLL, kTickPeriod, NULL);
    return 0;
}

void Configuration_Draw(HWND hwnd, HDC hdc)
{
    RECT client;
    GetClientRect(hwnd, &client);
    Brush page(CreateSolidBrush(kPageColour));
    FillRect(hdc, &client, page);
}

void Configuration_Paint(HWND hwnd)
{
    PaintDC hdc(hwnd);
    Configuration_Draw(hwnd, hdc);
}

void DrawTab(const DRAWITEMSTRUCT* item)
{
    char text[32] = "";
    TCITEMA tab = {};
    tab.mask = TCIF_TEXT;
    tab.pszText = text;
    tab.cchTextMax = sizeof text;
    SendMessageA(item->hwndItem, TCM_GETITEMA, item->itemID, (LPARAM)&tab);
    const bool selected = (item->itemState & ODS_SELECTED) != 0;
    Brush face(CreateSolidBrush(selected ? RGB(0x4C, 0x4C, 0x4C) : kPageColour));
    RECT r = item->rcItem;
    FillRect(item->hDC, &r, face);
    SetBkMode(item->hDC, TRANSPARENT);
    SetTextColor(item->hDC, selected ? RGB(0xFF, 0xFF, 0xFF) : RGB(0, 0, 0));
    DrawTextA(item->hDC, text, -1, &r, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

LRESULT Configuration_DrawItem(const DRAWITEMSTRUCT* item)
{
    if (item->CtlType == ODT_TAB)
        DrawTab(item);
    else
        DrawOwnerPushButton(item);
    return TRUE;
}

void Configuration_Command(HWND hwnd, CONFIGURATIONSTATE* state, WPARAM wParam)
{
    switch (LOWORD(wParam)) {
    case IDC_CONFIGURATION_UPDATE:
        // The firmware update runs only for an online console.
        if (state->console->IsOnline())
            RunFirmwareUpdate(ModuleInstance(), hwnd, state->console);
        break;
    case IDC_VIEWBUTTON:
        state->viewPage = state->viewPage ? 0 : 1;
        SendMessageA(state->consoleView, CVM_SETPAGE, 0, state->viewPage);
        PlaceConsoleView(state);
        break;
    case IDC_CONSOLESELECTOR:
        if (HIWORD(wParam) == CBN_SELCHANGE) {
            char name[HOSTNAME_SIZE] = "";
            const LRESULT at = SendMessageA(state->selector, CB_GETCURSEL, 0, 0);
            if (at != CB_ERR && SendMessageA(state->selector, CB_GETLBTEXTLEN, at, 0) < HOSTNAME_SIZE)
                SendMessageA(state->selector, CB_GETLBTEXT, at, (LPARAM)name);
            CONSOLEPROPERTIES* chosen = AsConsole(a_FindHostinfo(name));
            if (chosen && chosen != state->console && !chosen->m_hConfiguration)
                SendMessageA(hwnd, CFM_REINITIALIZE, 0, (LPARAM)chosen);
            else
                SendMessageA(state->selector, CB_SELECTSTRING, (WPARAM)-1, (LPARAM)state->console->m_szName);
        }
        break;
    default:
        break;
    }
}

LRESULT Configuration_Notify(HWND hwnd, CONFIGURATIONSTATE* state, const NMHDR* header)
{
    if (header->idFrom == IDC_TABSTRIP && header->code == TCN_SELCHANGE)
        SelectTab(hwnd, state, (int)SendMessageA(state->tabs, TCM_GETCURSEL, 0, 0));
    return 0;
}

LRESULT Configuration_Colours(CONFIGURATIONSTATE* state, HDC hdc)
{
    if (!state->field.Get())
        state->field.Reset(CreateSolidBrush(kFieldColour));
    SetBkColor(hdc, kFieldColour);
    return (LRESULT)state->field.Get();
}

void Configuration_Close(HWND hwnd, CONFIGURATIONSTATE* state)
{
    CONSOLEPROPERTIES* c = state->console;
    c->m_configurationPlacement.length = sizeof c->m_configurationPlacement;
    c->m_hasConfigurationPlacement = GetWindowPlacement(hwnd, &c->m_configurationPlacement) != FALSE;
    RECT window;
    GetWindowRect(hwnd, &window);
    c->m_configurationPosition = {window.left, window.top};
    c->m_configurationOpen = false;
    const LRESULT tab = SendMessageA(state->tabs, TCM_GETCURSEL, 0, 0);
    c->m_configurationTab = tab < 0 ? TAB_CONFIGURATION : (int)tab;
    DestroyWindow(hwnd);
}

void Configuration_Destroy(HWND hwnd, CONFIGURATIONSTATE* state)
{
    KillTimer(hwnd, TIMER_POLL);
    StopUndo(state);
    if (state->undoKeys)
        UnhookWindowsHookEx(state->undoKeys);
    if (state->console->m_hConfiguration == hwnd)
        state->console->m_hConfiguration = NULL;
    state->console->m_configurationOpen = false;
    // The widgets and pages are child windows and go with this one; their
    // owners' tables go with the state.
    FreeWindowState<CONFIGURATIONSTATE>(hwnd);
}

LRESULT Configuration_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return Configuration_Create(hwnd, reinterpret_cast<CREATESTRUCTA*>(lParam));
    CONFIGURATIONSTATE* state = WindowState<CONFIGURATIONSTATE>(hwnd);
    if (!state)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_PAINT:
        Configuration_Paint(hwnd);
        return 0;
    case WM_PRINTCLIENT:
        Configuration_Draw(hwnd, (HDC)wParam);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_WINDOWPOSCHANGING:  // the window keeps its size whatever its children ask
        reinterpret_cast<WINDOWPOS*>(lParam)->cx = kWidth;
        reinterpret_cast<WINDOWPOS*>(lParam)->cy = kHeight;
        return 0;
    case WM_TIMER:
        if (wParam == TIMER_POLL)
            Tick(hwnd, state);
        return 0;
    case WM_COMMAND:
        Configuration_Command(hwnd, state, wParam);
        return 0;
    case WM_NOTIFY:
        return Configuration_Notify(hwnd, state, reinterpret_cast<const NMHDR*>(lParam));
    case WM_DRAWITEM:
        return Configuration_DrawItem(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
        return Configuration_Colours(state, (HDC)wParam);
    case CFM_REINITIALIZE:
        Reinitialize(hwnd, state, AsConsole(reinterpret_cast<HOSTINFO*>(lParam)));
        return 0;
    case CFM_CONSOLERENAMED:  // from the canvas: the manager tree shows the new name
        SendMessageA(state->managerView, message, wParam, lParam);
        return 0;
    case CFM_UNDO:
    case CFM_REDO:
        return RunUndo(hwnd, state, message == CFM_REDO);
    case CFM_SETOFFLINE:  // the canvas says offline (1) or online (0): the view designs or operates
        SendMessageA(state->consoleView, CVM_SETEDITMODE, 0, lParam ? 1 : 0);
        return 0;
    case WM_CLOSE:
        Configuration_Close(hwnd, state);
        return 0;
    case WM_DESTROY:
        Configuration_Destroy(hwnd, state);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

HWND CreateConfigurationDialog(CONSOLEPROPERTIES* console, POINT at)
{
    char title[HOSTNAME_SIZE + 32];
    FormatText(title, sizeof title, "%s - Configuration", console->m_szName);
    HOSTINFO* root = a_FindRootHostinfo(console);
    HWND window = CreateWindowExA(WS_EX_TOOLWINDOW,
                                  IsKeypad(console) ? "DOVRIXELKCSKCONFIGURATIONDIALOG" : "DOVRIXZELCONFIGURATIONDIALOG",
                                  title, WS_POPUP | WS_CAPTION | WS_SYSMENU, at.x, at.y, kWidth, kHeight,
                                  root ? GetAncestor(root->m_hWnd, GA_ROOT) : NULL, NULL, ModuleInstance(), console);
    if (!window)
        return NULL;
    RECT canvas;
    if (console->m_hWnd && GetWindowRect(console->m_hWnd, &canvas))
        SetWindowPos(window, NULL, canvas.left, canvas.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    else if (console->m_hasConfigurationPlacement)
        SetWindowPlacement(window, &console->m_configurationPlacement);
    return window;
}

LRESULT CALLBACK ConfigurationDialogWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<Configuration_Dispatch>(hwnd, message, wParam, lParam);
}
