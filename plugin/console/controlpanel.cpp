// The control panel window: its messages and its two host controls; what it
// shares with the console view is in viewinput, viewlayout and viewpainter.
#include "controlpanel.h"

#include "viewstate.h"
#include "../config/controldescriptor.h"
#include "../device/consoleproperties.h"
#include "../device/liveconsoles.h"
#include "../entry/module.h"
#include "../protocol.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const UINT kBlinkPeriod = 100;
const DWORD kFade = 400;
const DWORD kPanelStyle = WS_VISIBLE | WS_CAPTION | WS_SYSMENU;  // 0x10C80000

// The online indicator and the name field, made by the host for the
// console's parent object; only the name field is bound to the console.
void CreatePanelControls(HWND hwnd, CONTROLPANEL* panel)
{
    const CONSOLEPROPERTIES* c = panel->console;
    char connection[HOSTNAME_SIZE + 16];
    FormatText(connection, sizeof connection, "connection=%s", c->m_szName);
    panel->header[HEADER_ONLINE] =
        CreatePanelWidget(c->m_pHost, hwnd, "0x00000000 LED \"online\" 0x50000000 179,142,11x11",
                          {"bitmap=.\\templates\\Userpanel\\online.bmp", "function=online"}, nullptr);
    panel->header[HEADER_NAME] = CreatePanelWidget(
        c->m_pHost, hwnd, "0x00000000 BSTATIC \"name\" 0x50000000 72,142,100x15",
        {"datatype=string", "backgroundcolor=0x00c4c4c4", "textcolor=0", "caption=", "function=name", connection,
         "interval=2000"},
        nullptr);
}

LRESULT Panel_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    CONSOLEPROPERTIES* console = AsConsole(LiveConsole(create->lpCreateParams));
    if (!console) {
        Trace("DOVRIXC: a control panel needs a console to show\n");
        return -1;
    }
    CONTROLPANEL* panel = new CONTROLPANEL;
    panel->kind = &kControlPanelKind;
    panel->console = console;
    AttachWindowState(hwnd, panel);
    console->m_hControlPanel = hwnd;
    CreateKeyTooltip(hwnd, panel);
    CreatePanelControls(hwnd, panel);
    panel->editMode = false;  // operating: presses go to the running system
    BuildViewLayout(hwnd, panel, 0);
    SetTimer(hwnd, TIMER_POLL, kBlinkPeriod, NULL);
    return 0;
}

void Panel_Destroy(HWND hwnd, CONTROLPANEL* panel)
{
    KillTimer(hwnd, TIMER_POLL);
    if (panel->tooltip && IsWindow(panel->tooltip))
        DestroyWindow(panel->tooltip);
    if (panel->console->m_hControlPanel == hwnd)
        panel->console->m_hControlPanel = NULL;
    FreeWindowState<CONTROLPANEL>(hwnd);
}

LRESULT Panel_Command(HWND hwnd, CONTROLPANEL* panel, WPARAM wParam, LPARAM lParam)
{
    const WORD id = LOWORD(wParam);
    if (HIWORD(wParam) == 2)
        return 1;
    if (id < IDC_PAGEBUTTON_CONSOLE)
        return DefWindowProcA(hwnd, WM_COMMAND, wParam, lParam);
    ChoosePage(hwnd, panel, id - IDC_PAGEBUTTON_CONSOLE, (HWND)lParam);
    return 0;
}

LRESULT Panel_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return Panel_Create(hwnd, reinterpret_cast<const CREATESTRUCTA*>(lParam));
    CONTROLPANEL* panel = WindowState<CONTROLPANEL>(hwnd);
    if (!panel)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_DESTROY:
        Panel_Destroy(hwnd, panel);
        return 0;
    case WM_PAINT:
        ValidateView(hwnd);
        return 0;
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT:
        DrawView(hwnd, panel, (HDC)wParam);
        return 1;
    case WM_COMMAND:
        return Panel_Command(hwnd, panel, wParam, lParam);
    case WM_TIMER:
        OnBlinkTimer(hwnd, panel, wParam);
        return 0;
    case WM_HSCROLL:
        OnKeyScroll(hwnd, panel, wParam);
        return 0;
    case WM_CTLCOLORSTATIC:
        return TransparentStatic((HDC)wParam);
    case WM_MOUSEMOVE:
        OnKeyMouseMove(hwnd, panel, lParam);
        return 0;
    case WM_LBUTTONDOWN:
        OnKeyButtonDown(hwnd, panel, lParam);
        return 0;
    case WM_LBUTTONUP:
        OnKeyButtonUp(hwnd, panel, lParam);
        return 0;
    case WM_CAPTURECHANGED:
        OnKeyCaptureChanged(hwnd, panel);
        return 0;
    case CVM_SETPAGE:
        BuildViewLayout(hwnd, panel, lParam >= 0 && lParam <= 2 ? (int)lParam : 0);
        return 0;
    case CVM_HITTEST:
        return OnKeyHitTest(panel, wParam, lParam);
    case CVM_CONSOLECHANGED:
        RebuildChangedConsole(hwnd, panel);
        return 0;
    case CVM_KEYCHANGED:
        RepaintChangedKey(hwnd, panel);
        return 0;
    case CVM_REFRESHLEDS:
        RepaintLeds(hwnd, panel);
        return 0;
    case CVM_SETEDITMODE:
        SetOperatingMode(panel, lParam);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

LRESULT CALLBACK ControlPanelWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<Panel_Dispatch>(hwnd, message, wParam, lParam);
}

HWND ToggleControlPanel(CONSOLEPROPERTIES* console, HWND canvas)
{
    HWND open = console->m_hControlPanel;
    if (open && IsWindow(open)) {
        AnimateWindow(open, kFade, AW_HIDE | AW_BLEND);
        DestroyWindow(open);
        console->m_hControlPanel = NULL;
        return NULL;
    }
    // At the console's place on the design surface, in screen coordinates.
    RECT place = {};
    GetWindowRect(canvas, &place);
    HWND panel = CreateWindowExA(WS_EX_TOOLWINDOW, "DOVRIXCONTROLPANEL", "ZEL Control Panel", kPanelStyle, place.left,
                                 place.top, 50, 50, canvas, NULL, ModuleInstance(), console);
    if (!panel)
        return NULL;
    AnimateWindow(panel, kFade, AW_BLEND);
    InvalidateRect(panel, NULL, TRUE);
    return panel;
}
