#include "canvas.h"

#include <commctrl.h>
#include <windowsx.h>

#include <vector>

#include "canvastext.h"
#include "consolekeywords.h"
#include "consoleproperties.h"
#include "designlines.h"
#include "handlers.h"
#include "partner.h"
#include "../config/configurationdialog.h"
#include "../console/controlpanel.h"
#include "../entry/fonts.h"
#include "../entry/module.h"
#include "../entry/projectversion.h"
#include "../protocol.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/gdi.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

using namespace Gdiplus;

const UINT kPollPeriod = 100;

// Face colours: the display field shows whether the device answers.
const ARGB kOnlineFill = 0xFF9BD77A;
const ARGB kOfflineFill = 0xFFB4B4B4;
const ARGB kAddressColour = 0xFF202020;
const ARGB kFaultLedOn = 0xFFE02020;
const ARGB kFaultLedOff = 0xFF3C3C3C;

HWND RootWindow(CONSOLEPROPERTIES* c)
{
    HOSTINFO* root = a_FindRootHostinfo(c);
    return root ? root->m_hWnd : NULL;
}

// The controller object of the console's connection ("CONTROLLER.PORT").
HOSTINFO* ControllerOf(CONSOLEPROPERTIES* c, char* port, size_t portSize)
{
    const char* text = FirstConnectionText(c);
    if (!text)
        return nullptr;
    const char* dot = strchr(text, '.');
    char controller[HOSTNAME_SIZE];
    CopyTextN(controller, sizeof controller, text, dot ? (size_t)(dot - text) : strlen(text));
    CopyText(port, portSize, dot ? dot + 1 : "");
    return a_FindHostinfo(controller);
}

LRESULT Canvas_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    const HOSTCREATE* record = static_cast<const HOSTCREATE*>(create->lpCreateParams);
    CONSOLEPROPERTIES* c = new CONSOLEPROPERTIES;
    a_InitializeHostinfo(c, hwnd, record);
    a_AddHostinfo(c->m_pHost, c);
    c->m_model = ModelFromObjectName(c->m_szName);
    c->m_oldProject = IsOldProject(c);

    c->m_rect.left = create->x;
    c->m_rect.top = create->y;
    c->m_nHostField500 = 500;
    TAVOBitmap face(SmallConsoleImage(CanvasFaceImage(c->m_model)));
    const UINT width = face.m_pImage ? face.GetWidth() : 0;
    const UINT height = face.m_pImage ? face.GetHeight() : 0;
    if (width && height) {
        c->m_rect.right = AddSaturated(c->m_rect.left, (int)width);
        c->m_rect.bottom = AddSaturated(c->m_rect.top, (int)height);
        SetWindowPos(hwnd, NULL, 0, 0, (int)width, (int)height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    } else {
        c->m_rect.right = AddSaturated(c->m_rect.left, record ? record->cx : create->cx);
        c->m_rect.bottom = AddSaturated(c->m_rect.top, record ? record->cy : create->cy);
    }

    CopyText(c->m_szDisplayName, "Untitled");
    AttachWindowState(hwnd, c);
    SetWindowLongA(hwnd, GWL_STYLE, GetWindowLongA(hwnd, GWL_STYLE) | WS_CLIPSIBLINGS | WS_CLIPCHILDREN);
    a_HostinfoCreated(a_FindRootHostinfo(c), c);
    // The canvas becomes a tool of the shared tooltip when the mouse first
    // comes over it (Canvas_UpdateTooltip), not here: the tooltip keeps its
    // tools in one array it copies whole for every tool added, which a design
    // of thousands of consoles would pay for on every load.

    SetTimer(hwnd, TIMER_POLL, kPollPeriod, NULL);
    return 1;
}

void Canvas_Destroy(HWND hwnd, CONSOLEPROPERTIES* c)
{
    const bool othersMonitor = AnotherConsoleMonitors(c, MONITORSEARCH_SKIP_NAMES_WITH_OWN);
    char port[HOSTNAME_SIZE];
    HOSTINFO* controller = ControllerOf(c, port, sizeof port);
    if (controller && !othersMonitor) {
        uint8_t off = 0;
        WriteVariable(controller, "SystemMonitoringOnEmergency", &off, REQTYPE_FLAG);
    }

    if (c->m_pChildTable)
        c->m_pChildTable->RemoveAll();
    if (c->m_hConfiguration && IsWindow(c->m_hConfiguration))
        DestroyWindow(c->m_hConfiguration);
    c->m_hConfiguration = NULL;
    if (c->m_hConsoleView && IsWindow(c->m_hConsoleView))
        DestroyWindow(c->m_hConsoleView);
    c->m_hConsoleView = NULL;
    if (c->m_hControlPanel && IsWindow(c->m_hControlPanel))
        DestroyWindow(c->m_hControlPanel);
    c->m_hControlPanel = NULL;
    a_DestroyChildWindows(c);

    if (controller) {
        c->m_pPartner = nullptr;
        char position[HOSTNAME_SIZE + 16];
        FormatText(position, sizeof position, "%s,%d", port, c->m_settings.address);
        controller->OnDisconnectSource(c->m_szName, position);
    }

    TTTOOLINFOA tool = {};
    tool.cbSize = sizeof tool;
    tool.hwnd = hwnd;
    tool.uId = (UINT_PTR)hwnd;
    SendMessageA(SharedTooltip(), TTM_DELTOOLA, 0, (LPARAM)&tool);

    a_HostinfoDestroyed(a_FindRootHostinfo(c), c);
    a_CleanHostinfo(c);
    a_RemoveHostinfo(c->m_pHost, c);
    KillTimer(hwnd, TIMER_POLL);
    FreeWindowState<CONSOLEPROPERTIES>(hwnd);
}

void Canvas_Poll(HWND hwnd, CONSOLEPROPERTIES* c)
{
    if (!FirstConnection(c) || !c->m_pPartner)
        return;
    int faultLed = c->m_faultLed;
    uint8_t reportFaults = c->m_reportFaultsCache;
    char name[VARIABLE_NAME_SIZE];
    FormatText(name, sizeof name, "%s.ReportFaults", c->m_szName);
    REQUEST led = {REQ_READ, 0, REQTYPE_INT, REQMODE_EDIT, &faultLed, "System.Info.FaultLed", nullptr};
    c->m_pPartner->OnMessage(0, (LPARAM)&led);
    REQUEST report = {REQ_READ, 0, REQTYPE_BYTE, REQMODE_EDIT, &reportFaults, name, nullptr};
    c->m_pPartner->OnMessage(0, (LPARAM)&report);
    if (faultLed != c->m_faultLed || reportFaults != c->m_reportFaultsCache) {
        c->m_faultLed = faultLed;
        c->m_reportFaultsCache = reportFaults;
        InvalidateRect(hwnd, NULL, TRUE);
    }
}

// The face image is held as a flat GDI+ image, so it is drawn with the flat API.
void DrawFace(HDC hdc, int model, const RECT& client)
{
    GpImage* face = SmallConsoleImage(CanvasFaceImage(model));
    GpGraphics* graphics = nullptr;
    if (!face || DllExports::GdipCreateFromHDC(hdc, &graphics) != Ok)
        return;
    DllExports::GdipDrawImageRectI(graphics, face, 0, 0, client.right, client.bottom);
    DllExports::GdipDeleteGraphics(graphics);
}

// The face on any device context: the screen's, or one asked for with
// WM_PRINTCLIENT (screenshots).
void Canvas_Draw(HWND hwnd, CONSOLEPROPERTIES* c, HDC hdc)
{
    RECT client;
    GetClientRect(hwnd, &client);
    {
        Graphics graphics(hdc);
        SolidBrush fill{Color(c->IsOnline() ? kOnlineFill : kOfflineFill)};
        if (fill.GetLastStatus() == Ok)
            graphics.FillRectangle(&fill, 0, 0, (INT)client.right, (INT)client.bottom);
        DrawFace(hdc, c->m_model, client);

        wchar_t address[8];
        swprintf(address, sizeof address / sizeof address[0], L"%03d", c->m_settings.address);
        if (std::unique_ptr<FontFamily> family = OutlineFontFamily(L"Small Fonts")) {
            Font font(family.get(), 5, FontStyleRegular, UnitPoint);
            StringFormat centred;
            centred.SetAlignment(StringAlignmentCenter);
            centred.SetLineAlignment(StringAlignmentCenter);
            SolidBrush ink{Color(kAddressColour)};
            const RectF field(0, 2, (REAL)client.right, 11);
            graphics.DrawString(address, -1, &font, field, &centred, &ink);
        }

        // The console's own fault, and the system's fault LED when it reports faults.
        const bool fault = c->m_masterFault != 0 || (c->m_faultLed != 0 && c->m_reportFaultsCache != 0);
        SolidBrush led{Color(fault ? kFaultLedOn : kFaultLedOff)};
        graphics.FillEllipse(&led, (INT)client.right - 12, 4, 5, 5);  // clear of the selection marks
    }
    a_DrawSelection(c, hdc);
}

void Canvas_Paint(HWND hwnd, CONSOLEPROPERTIES* c)
{
    PaintDC hdc(hwnd);
    Canvas_Draw(hwnd, c, hdc);
}

void Canvas_UpdateTooltip(HWND hwnd, CONSOLEPROPERTIES* c)
{
    int keypads = 0;
    for (uint8_t slot : c->m_settings.extensionSlots)
        keypads += slot != 0;
    char windowText[65] = "";
    GetWindowTextA(hwnd, windowText, sizeof windowText);
    char text[4096 + 256];
    FormatCanvasTooltip(text, sizeof text, windowText, c->m_settings.address, c->m_model, keypads,
                        c->m_szDisplayName);

    TTTOOLINFOA tool = {};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = hwnd;
    tool.uId = (UINT_PTR)hwnd;
    tool.lpszText = text;
    GetClientRect(hwnd, &tool.rect);
    HWND tooltip = SharedTooltip();
    TTTOOLINFOA known = {};
    known.cbSize = sizeof known;
    known.hwnd = hwnd;
    known.uId = (UINT_PTR)hwnd;
    char current[sizeof text];  // what it holds: no more than this canvas ever gave it
    known.lpszText = current;
    if (!SendMessageA(tooltip, TTM_GETTOOLINFOA, 0, (LPARAM)&known))
        SendMessageA(tooltip, TTM_ADDTOOLA, 0, (LPARAM)&tool);
    SendMessageA(tooltip, TTM_SETTOOLINFOA, 0, (LPARAM)&tool);
    SendMessageA(tooltip, TTM_UPDATETIPTEXTA, 0, (LPARAM)&tool);
    SendMessageA(tooltip, TTM_ACTIVATE, TRUE, 0);
}

// Posts a mouse message to another window with the cursor in its client coordinates.
void ForwardMouse(HWND from, HWND to, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!to)
        return;
    POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    MapWindowPoints(from, to, &point, 1);
    PostMessageA(to, message, wParam, MAKELPARAM(point.x, point.y));
}

void Canvas_MouseMove(HWND hwnd, CONSOLEPROPERTIES* c, WPARAM wParam, LPARAM lParam)
{
    ForwardMouse(hwnd, RootWindow(c), WM_MOUSEMOVE, wParam, lParam);
    if (!IsWindowVisible(SharedTooltip()))
        Canvas_UpdateTooltip(hwnd, c);
}

// Fades the console's configuration window in, creating it at the cursor first.
void Canvas_OpenConfiguration(CONSOLEPROPERTIES* c)
{
    const DWORD fadeIn = 400;
    if (c->m_hConfiguration && IsWindow(c->m_hConfiguration)) {
        AnimateWindow(c->m_hConfiguration, fadeIn, AW_BLEND);
        ShowWindow(c->m_hConfiguration, SW_SHOW);
        SetFocus(c->m_hConfiguration);
        return;
    }
    POINT cursor;
    GetCursorPos(&cursor);
    c->m_hConfiguration = CreateConfigurationDialog(c, cursor);
    if (!c->m_hConfiguration)
        return;
    AnimateWindow(c->m_hConfiguration, fadeIn, AW_BLEND);
    SendMessageA(c->m_hConfiguration, CFM_SETOFFLINE, 0, c->IsOnline() ? 0 : 1);
    InvalidateRect(c->m_hConfiguration, NULL, TRUE);
    ShowWindow(c->m_hConfiguration, SW_SHOW);
}

// The names of the listed keywords that have a handler, null-ended.
const char* const* ListedKeywords()
{
    static std::vector<const char*> names;
    names.clear();
    const KEYWORDTABLE& table = ConsoleKeywords();
    for (size_t i = 0; i < table.Count(); i++)
        if (table.Entry(i).handler && (table.Entry(i).flags & KEYWORD_LISTED))
            names.push_back(table.Entry(i).keyword.c_str());
    names.push_back(nullptr);
    return names.data();
}

LRESULT Canvas_HitTest(HWND hwnd, CONSOLEPROPERTIES* c, WPARAM wParam, LPARAM lParam)
{
    if (GetWindowLongA(hwnd, GWL_STYLE) & WS_SYSMENU)
        return DefWindowProcA(hwnd, WM_NCHITTEST, wParam, lParam);
    return GetParent(hwnd) == RootWindow(c) ? HTCLIENT : HTCAPTION;
}

LRESULT Canvas_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return Canvas_Create(hwnd, reinterpret_cast<CREATESTRUCTA*>(lParam));
    CONSOLEPROPERTIES* c = WindowState<CONSOLEPROPERTIES>(hwnd);
    if (!c)
        return DefWindowProcA(hwnd, message, wParam, lParam);

    switch (message) {
    case WM_HOST_MESSAGE:
        return c->OnMessage(wParam, lParam);
    case WM_HOST_LOAD:
        return c->OnLoad(wParam, lParam);
    case WM_HOST_SAVE:
        return c->OnSave(wParam, lParam);
    case WM_HOST_SAVETOLIST:
        return c->OnSaveToListCtrl(wParam, lParam);
    case WM_HOST_GETHOSTINFO:
        return (LRESULT)c;
    case WM_HOST_GETKEYWORDS:
        return (LRESULT)ListedKeywords();
    case WM_HOST_GETDISPLAYTEXT:
        FormatText((char*)lParam, REQUEST_TEXT_SIZE, "%s (%s)", c->m_szDisplayName, c->m_szName);
        return lParam;
    case WM_HOST_CONTEXTMENU:
        AppendMenuA((HMENU)lParam, MF_SEPARATOR, 0, NULL);
        AppendMenuA((HMENU)lParam, MF_STRING, IDM_CANVAS_CONFIGURATION, "Configuration");
        return 0;
    case WM_HOST_CONTEXTCOMMAND:
        if (lParam == IDM_CANVAS_CONFIGURATION)
            Canvas_OpenConfiguration(c);
        return 0;
    case DCM_LINESLOADED:
        c->CheckAudioInputs();
        return 0;
    case DCM_CONTROLPANEL:
        return (LRESULT)ToggleControlPanel(c, hwnd);
    case CFM_CONSOLERENAMED:
        return c->m_hConfiguration ? SendMessageA(c->m_hConfiguration, message, wParam, lParam) : 0;
    case WM_TIMER:
        if (wParam == TIMER_POLL)
            Canvas_Poll(hwnd, c);
        return 0;
    case WM_PAINT:
        Canvas_Paint(hwnd, c);
        return 0;
    case WM_PRINTCLIENT:
        Canvas_Draw(hwnd, c, (HDC)wParam);
        return 0;
    case WM_MOUSEMOVE:
        Canvas_MouseMove(hwnd, c, wParam, lParam);
        return 0;
    case WM_LBUTTONDOWN:
        if (c->m_wMode != 0 || wParam == (MK_LBUTTON | MK_CONTROL))
            ForwardMouse(hwnd, RootWindow(c), message, wParam, lParam);
        return 0;
    case WM_LBUTTONDBLCLK:
        Canvas_OpenConfiguration(c);
        return 0;
    case WM_RBUTTONDOWN:
        if (GetParent(hwnd) == RootWindow(c))
            ForwardMouse(hwnd, GetParent(hwnd), message, wParam, lParam);
        return 0;
    case WM_DRAWITEM:
        return SendMessageA(reinterpret_cast<DRAWITEMSTRUCT*>(lParam)->hwndItem, message, wParam, lParam);
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORSTATIC:
        return SendMessageA((HWND)lParam, message, wParam, lParam);
    case WM_NCHITTEST:
        return Canvas_HitTest(hwnd, c, wParam, lParam);
    case WM_NCACTIVATE:
        UpdateWindow(hwnd);
        return TRUE;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTALLKEYS;
    case WM_DESTROY:
        Canvas_Destroy(hwnd, c);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

LRESULT CALLBACK CanvasWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<Canvas_Dispatch>(hwnd, message, wParam, lParam);
}
