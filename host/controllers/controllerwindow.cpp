// The window of a simulated controller on the design surface: a box with the
// controller's name and the consoles on its bus.
#include "controller.h"

#include "../../base/text.h"
#include "../../base/gdi.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

LRESULT Controller_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    const HOSTCREATE* record = static_cast<const HOSTCREATE*>(create->lpCreateParams);
    if (!record)
        return -1;
    CONTROLLER* c = new CONTROLLER;
    a_InitializeHostinfo(c, hwnd, record);
    c->AttachModule();
    AttachWindowState(hwnd, c);
    a_AddHostinfo(c->m_pHost, c);
    HOSTINFO* root = a_FindRootHostinfo(c);
    a_HostinfoCreated(root, c);
    a_HostinfoCreated(root, &c->module);
    return 0;
}

// The controller leaves the design; consoles connected to it lose it.
void Controller_Destroy(HWND hwnd, CONTROLLER* c)
{
    HOSTINFO* root = a_FindRootHostinfo(c);
    std::string orphans;
    for (const auto& device : c->devices)
        if (device.second.connected)
            orphans += (orphans.empty() ? "" : ", ") + device.first;
    if (!orphans.empty())
        EDITTRACE(c, "%s was deleted; its consoles lost their connection: %s", c->m_szName, orphans.c_str());
    a_HostinfoDestroyed(root, &c->module);
    a_HostinfoDestroyed(root, c);
    a_RemoveHostinfo(c->m_pHost, c);
    AttachWindowState<CONTROLLER>(hwnd, nullptr);  // kept alive for its consoles, not freed
    c->deleted = true;
    RetireController(c);
}

void Controller_Draw(HWND hwnd, CONTROLLER* c, HDC hdc)
{
    RECT client;
    GetClientRect(hwnd, &client);
    const bool familyA = strncmp(c->m_szName, "ORNCON", 6) == 0 || strstr(c->m_szName, "*ORNCON");
    Brush fill(CreateSolidBrush(familyA ? RGB(0xDC, 0xE8, 0xF6) : RGB(0xF8, 0xE6, 0xD2)));
    FillRect(hdc, &client, fill);
    FrameRect(hdc, &client, (HBRUSH)GetStockObject(DKGRAY_BRUSH));

    SetBkMode(hdc, TRANSPARENT);
    Selection font(hdc, GetStockObject(DEFAULT_GUI_FONT));
    RECT text = client;
    InflateRect(&text, -4, -2);
    const char* local = strrchr(c->m_szName, '*');
    DrawTextA(hdc, local ? local + 1 : c->m_szName, -1, &text, DT_LEFT | DT_TOP | DT_SINGLELINE);
    char consoles[256] = "";
    for (const auto& device : c->devices) {
        if (!device.second.connected)
            continue;
        char entry[64];
        FormatText(entry, sizeof entry, "%s%d%s", consoles[0] ? " " : "", device.second.address,
                   device.second.IsOn() ? "*" : "");
        AppendText(consoles, entry);
    }
    text.top += 16;
    DrawTextA(hdc, consoles[0] ? consoles : "no consoles", -1, &text, DT_LEFT | DT_TOP | DT_SINGLELINE);
    a_DrawSelection(c, hdc);
}

void Controller_Paint(HWND hwnd, CONTROLLER* c)
{
    PaintDC hdc(hwnd);
    Controller_Draw(hwnd, c, hdc);
}

LRESULT CALLBACK ControllerWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return Controller_Create(hwnd, reinterpret_cast<CREATESTRUCTA*>(lParam));
    CONTROLLER* c = WindowState<CONTROLLER>(hwnd);
    if (!c)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_HOST_MESSAGE:
        return c->OnMessage(wParam, lParam);
    case WM_HOST_LOAD:
        return c->OnLoad(wParam, lParam);
    case WM_HOST_SAVE:
        return c->OnSave(wParam, lParam);
    case WM_HOST_CHANGEADDRESS:
        return c->MoveConsole(wParam, reinterpret_cast<HOSTINFO*>(lParam));
    case WM_HOST_GETHOSTINFO:
        return (LRESULT)c;
    case WM_PAINT:
        Controller_Paint(hwnd, c);
        return 0;
    case WM_PRINTCLIENT:
        Controller_Draw(hwnd, c, (HDC)wParam);
        return 0;
    case WM_NCHITTEST:
        return HTTRANSPARENT;  // the design surface selects and moves controllers
    case WM_DESTROY:
        Controller_Destroy(hwnd, c);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

void RegisterControllerClasses(HINSTANCE instance)
{
    for (const char* name : {"ORNCON", "ELKCON"}) {
        WNDCLASSA wc = {};
        if (GetClassInfoA(NULL, name, &wc))
            continue;
        wc.style = CS_GLOBALCLASS | CS_HREDRAW | CS_VREDRAW;
        wc.lpfnWndProc = ControllerWndProc;
        wc.hInstance = instance;
        wc.hCursor = LoadCursor(NULL, IDC_ARROW);
        wc.lpszClassName = name;
        RegisterClassA(&wc);
    }
}
