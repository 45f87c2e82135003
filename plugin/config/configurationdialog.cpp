#include "configurationdialog.h"

#include "../device/consoleproperties.h"
#include "../device/liveconsoles.h"
#include "../controls/flatcontrols.h"
#include "../entry/module.h"
#include "../firmware/updatedialog.h"
#include "../protocol.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/gdi.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const int kWidth = 1008;
const int kHeight = 900;
const COLORREF kPageColour = RGB(0xD4, 0xD0, 0xC8);  // the widgets' background, 0xc8d0d4

// What the window keeps until its pages are built.
struct CONFIGURATIONSTATE {
    CONSOLEPROPERTIES* console;
};

LRESULT Configuration_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    // A design line can name this class too: only a console of ours will do.
    CONSOLEPROPERTIES* console = LiveConsole(create->lpCreateParams);
    if (!console) {
        Trace("DOVRIXC: a configuration window needs a console to configure\n");
        return -1;
    }
    CONFIGURATIONSTATE* state = AttachWindowState(hwnd, new CONFIGURATIONSTATE{console});
    HWND update = CreateWindowExA(0, "BUTTON", "UPDATE", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, 891, 570,
                                  100, 18, hwnd, (HMENU)(INT_PTR)IDC_CONFIGURATION_UPDATE, ModuleInstance(), NULL);
    SendMessageA(update, WM_SETFONT, (WPARAM)a_GetFont("MS Sans Serif,8"), FALSE);
    Trace("%s: the configuration pages are not implemented yet\n", state->console ? state->console->m_szName : "");
    return 0;
}

void Configuration_Draw(HWND hwnd, CONFIGURATIONSTATE* state, HDC hdc)
{
    RECT client;
    GetClientRect(hwnd, &client);
    Brush page(CreateSolidBrush(kPageColour));
    FillRect(hdc, &client, page);
    SetBkMode(hdc, TRANSPARENT);
    Selection font(hdc, GetStockObject(DEFAULT_GUI_FONT));
    char text[256];
    FormatText(text, sizeof text, "%s is %s.\nIts configuration pages are not implemented yet; UPDATE runs the firmware update.",
               state->console ? state->console->m_szName : "The console", state->console && state->console->IsOnline() ? "online" : "offline");
    RECT box = client;
    InflateRect(&box, -24, -24);
    DrawTextA(hdc, text, -1, &box, DT_LEFT | DT_TOP | DT_NOPREFIX);
}

void Configuration_Paint(HWND hwnd, CONFIGURATIONSTATE* state)
{
    PaintDC hdc(hwnd);
    Configuration_Draw(hwnd, state, hdc);
}

void Configuration_Destroy(HWND hwnd, CONFIGURATIONSTATE* state)
{
    if (state->console && state->console->m_hConfiguration == hwnd)
        state->console->m_hConfiguration = NULL;
    FreeWindowState<CONFIGURATIONSTATE>(hwnd);
}

}  // namespace

HWND CreateConfigurationDialog(CONSOLEPROPERTIES* console, POINT at)
{
    char title[HOSTNAME_SIZE + 32];
    FormatText(title, sizeof title, "%s - Configuration", console->m_szName);
    const bool keypad = console->m_model == MODEL_ELK_CSK || console->m_model == MODEL_ORN_CSK;
    HOSTINFO* root = a_FindRootHostinfo(console);
    return CreateWindowExA(WS_EX_TOOLWINDOW, keypad ? "DOVRIXELKCSKCONFIGURATIONDIALOG" : "DOVRIXZELCONFIGURATIONDIALOG",
                           title, WS_POPUP | WS_CAPTION | WS_SYSMENU, at.x, at.y, kWidth, kHeight,
                           root ? GetAncestor(root->m_hWnd, GA_ROOT) : NULL, NULL, ModuleInstance(), console);
}

namespace {

LRESULT Configuration_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return Configuration_Create(hwnd, reinterpret_cast<CREATESTRUCTA*>(lParam));
    CONFIGURATIONSTATE* state = WindowState<CONFIGURATIONSTATE>(hwnd);
    if (!state)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_PAINT:
        Configuration_Paint(hwnd, state);
        return 0;
    case WM_PRINTCLIENT:
        Configuration_Draw(hwnd, state, (HDC)wParam);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_COMMAND:
        // The firmware update runs only for an online console.
        if (LOWORD(wParam) == IDC_CONFIGURATION_UPDATE && state->console && state->console->IsOnline())
            RunFirmwareUpdate(ModuleInstance(), hwnd, state->console);
        return 0;
    case WM_DRAWITEM:
        DrawOwnerPushButton(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case CFM_SETOFFLINE:  // the console went offline or online; its flag word says which
        InvalidateRect(hwnd, NULL, FALSE);
        return 0;
    case WM_DESTROY:
        Configuration_Destroy(hwnd, state);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

LRESULT CALLBACK ConfigurationDialogWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<Configuration_Dispatch>(hwnd, message, wParam, lParam);
}
