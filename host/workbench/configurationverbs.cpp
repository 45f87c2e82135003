// The verbs of a console's configuration window: its tabs, its column, the
// Supervision page's lamps, clicks on its widgets, the console selector and
// closing it, each as a user's hand or eye would.
#include "workbench.h"

#include <stdio.h>
#include <string.h>

#include <commctrl.h>

#include "../../plugin/protocol.h"
#include "../../plugin/resources/resource.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

HWND OpenWindowOf(const std::string& object)
{
    HOSTINFO* obj = FindWindowedObject(object);
    HWND window = obj ? FindConfigurationWindow(obj) : NULL;
    if (obj && !window)
        fprintf(stderr, "workbench: %s has no configuration window open\n", object.c_str());
    return window;
}

bool ClassIs(HWND window, const char* name)
{
    char className[64] = "";
    GetClassNameA(window, className, sizeof className);
    return strcmp(className, name) == 0;
}

// The Supervision page: the window's child dialog with the lamps (the key
// page is a child dialog too).
HWND SupervisionPage(HWND window)
{
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassIs(child, "#32770") && GetDlgItem(child, IDC_DIAG_COMBINEDLAMP))
            return child;
    return NULL;
}

HWND NamedChild(HWND parent, const std::string& name)
{
    for (HWND child = parent ? GetWindow(parent, GW_CHILD) : NULL; child; child = GetWindow(child, GW_HWNDNEXT)) {
        char text[128] = "";
        GetWindowTextA(child, text, sizeof text);
        if (name == text)
            return child;
    }
    return NULL;
}

bool IsHostWidget(HWND window)
{
    return ClassIs(window, "BSTATIC") || ClassIs(window, "BEDIT") || ClassIs(window, "BTRISTATEBUTTON") ||
           ClassIs(window, "BBUTTON") || ClassIs(window, "LED");
}

void ClickAt(HWND window, POINT at)
{
    const LPARAM point = MAKELPARAM(at.x, at.y);
    SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageA(window, WM_LBUTTONUP, 0, point);
}

bool Tab(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND window = OpenWindowOf(command.object);
    HWND tabs = window ? GetDlgItem(window, IDC_TABSTRIP) : NULL;
    if (!tabs)
        return false;
    RECT item;
    if (!SendMessageA(tabs, TCM_GETITEMRECT, command.text == "supervision" ? 1 : 0, (LPARAM)&item))
        return false;
    ClickAt(tabs, {(item.left + item.right) / 2, (item.top + item.bottom) / 2});
    return true;
}

bool Column(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND window = OpenWindowOf(command.object);
    if (!window)
        return false;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsHostWidget(child) || !IsWindowVisible(child))
            continue;
        SendMessageA(child, WM_TIMER, 1, 0);  // its refresh, now
        char name[128] = "";
        char text[REQUEST_TEXT_SIZE] = "";
        GetWindowTextA(child, name, sizeof name);
        a_GetControlText(child, text, sizeof text);
        printf("%s=%s%s\n", name, text, IsWindowEnabled(child) ? "" : " greyed");
    }
    return true;
}

// What a lamp shows, by the colour at the middle of its bitmap.
const char* LampState(HWND lamp)
{
    HBITMAP bitmap = (HBITMAP)SendMessageA(lamp, STM_GETIMAGE, IMAGE_BITMAP, 0);
    BITMAP info;
    if (!bitmap || !GetObjectA(bitmap, sizeof info, &info))
        return "none";
    HDC screen = GetDC(NULL);
    HDC dc = CreateCompatibleDC(screen);
    HGDIOBJ old = SelectObject(dc, bitmap);
    const COLORREF colour = GetPixel(dc, info.bmWidth / 2, info.bmHeight / 2);
    SelectObject(dc, old);
    DeleteDC(dc);
    ReleaseDC(NULL, screen);
    const int r = GetRValue(colour), g = GetGValue(colour), b = GetBValue(colour);
    if (r > g + 60 && r > b + 60)
        return "fault";
    if (g > r + 60 && g > b + 30)
        return "ok";
    return "grey";
}

bool Lamps(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND window = OpenWindowOf(command.object);
    HWND page = window ? SupervisionPage(window) : NULL;
    if (!page) {
        fprintf(stderr, "workbench: %s has no Supervision page yet\n", command.object.c_str());
        return false;
    }
    static const int kLamps[] = {IDC_DIAG_LAMP_CONNECTED, IDC_DIAG_LAMP_INPUT,      IDC_DIAG_LAMP_MEMORY,
                                 IDC_DIAG_LAMP_WATCHDOG,  IDC_DIAG_LAMP_FIRMWARE,   IDC_DIAG_LAMP_EXTENSION,
                                 IDC_DIAG_LAMP_MICROPHONE, IDC_DIAG_LAMP_ALARM,     IDC_DIAG_LAMP_POWER,
                                 IDC_DIAG_COMBINEDLAMP};
    std::string line;
    for (int id : kLamps)
        line += std::string(line.empty() ? "" : " ") + LampState(GetDlgItem(page, id));
    printf("%s\n", line.c_str());
    return true;
}

bool Choose(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND window = OpenWindowOf(command.object);
    HWND selector = window ? GetDlgItem(window, IDC_CONSOLESELECTOR) : NULL;
    if (!selector)
        return false;
    const LRESULT at = SendMessageA(selector, CB_FINDSTRINGEXACT, (WPARAM)-1, (LPARAM)command.text.c_str());
    if (at == CB_ERR) {
        fprintf(stderr, "workbench: the selector does not list %s\n", command.text.c_str());
        return false;
    }
    SendMessageA(selector, CB_SETCURSEL, at, 0);
    SendMessageA(window, WM_COMMAND, MAKEWPARAM(IDC_CONSOLESELECTOR, CBN_SELCHANGE), (LPARAM)selector);
    return true;
}

bool Close(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND window = OpenWindowOf(command.object);
    if (window)
        SendMessageA(window, WM_CLOSE, 0, 0);
    return window != NULL;
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_TAB, Tab}, {SCRIPT_COLUMN, Column}, {SCRIPT_LAMPS, Lamps}, {SCRIPT_CHOOSE, Choose}, {SCRIPT_CLOSE, Close},
};

}  // namespace

const VERBHANDLERS kConfigurationVerbs = HandlerTable(kHandlers);

// A widget or button of the window ("UPDATE", "View", a column widget) or
// of its Supervision page, clicked in its middle.
bool ClickConfigurationWidget(const std::string& object, const std::string& name)
{
    HWND window = OpenWindowOf(object);
    if (!window)
        return false;
    HWND widget = NamedChild(window, name);
    if (!widget)
        widget = NamedChild(SupervisionPage(window), name);
    if (!widget) {
        fprintf(stderr, "workbench: no widget %s in the configuration window of %s\n", name.c_str(), object.c_str());
        return false;
    }
    if (ClassIs(widget, "Button")) {
        SendMessageA(widget, BM_CLICK, 0, 0);
        return true;
    }
    RECT client;
    GetClientRect(widget, &client);
    ClickAt(widget, {client.right / 2, client.bottom / 2});
    return true;
}
