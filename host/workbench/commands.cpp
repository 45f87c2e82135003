// The workbench's commands, from a script or typed: each reads or drives the
// design as a user or a host would.
#include "workbench.h"

#include <stdio.h>

#include <commctrl.h>

#include <fstream>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

bool SetProperty(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    if (!a_FindHostinfo(command.object.c_str())) {
        fprintf(stderr, "workbench: no object %s\n", command.object.c_str());
        return false;
    }
    return a_LoadLine(bench->design, command.text.c_str(), REQMODE_EDIT) != FALSE;
}

bool GetProperty(const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = a_FindHostinfo(command.object.c_str());
    if (!obj) {
        fprintf(stderr, "workbench: no object %s\n", command.object.c_str());
        return false;
    }
    static char value[4096];
    ZeroMemory(value, sizeof value);
    REQUEST request = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, value, command.text.c_str(), nullptr};
    const LRESULT answer = obj->m_hWnd ? SendMessageA(obj->m_hWnd, WM_HOST_MESSAGE, 0, (LPARAM)&request)
                                       : obj->OnMessage(0, (LPARAM)&request);
    if (!answer) {
        fprintf(stderr, "workbench: %s gives no value for %s\n", command.object.c_str(), command.text.c_str());
        return false;
    }
    printf("%s=%s\n", command.text.c_str(), value);
    return true;
}

bool CallPlugin(WORKBENCH* bench, int code)
{
    const INT_PTR answer = bench->callback(code, bench->design, 0);
    if (code == 13)
        printf("%s\n", answer ? (const char*)answer : "");
    else
        printf("%lld\n", (long long)answer);
    return true;
}

bool Simulate(const SCRIPTCOMMAND& command, const char* variable, int value)
{
    if (!a_SimulateDevice(command.object.c_str(), variable, value)) {
        fprintf(stderr, "workbench: no simulated %s of %s\n", variable, command.object.c_str());
        return false;
    }
    return true;
}

bool SimulateFault(const SCRIPTCOMMAND& command)
{
    char variable[16];
    FormatText(variable, sizeof variable, "Faults%d", command.code);
    return Simulate(command, variable, command.value);
}

// The rows the object puts into a property list, as "KEYWORD=VALUE".
bool PrintPropertyList(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = a_FindHostinfo(command.object.c_str());
    if (!obj || !obj->m_hWnd) {
        fprintf(stderr, "workbench: no object %s\n", command.object.c_str());
        return false;
    }
    HWND list = CreatePropertyList(bench->surface, bench);
    ShowProperties(list, obj);
    const int rows = (int)SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    for (int row = 0; row < rows; row++) {
        char keyword[256] = "", value[4096] = "";
        ListCell(list, row, 0, keyword, sizeof keyword);
        ListCell(list, row, 1, value, sizeof value);
        printf("%s=%s\n", keyword, value);
    }
    DestroyPropertyList(list);
    return true;
}

HOSTINFO* FindObject(const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = a_FindHostinfo(command.object.c_str());
    if (!obj || !obj->m_hWnd)
        fprintf(stderr, "workbench: no object %s\n", command.object.c_str());
    return obj && obj->m_hWnd ? obj : nullptr;
}

bool PrintContextMenu(const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindObject(command);
    if (!obj)
        return false;
    HMENU menu = BuildContextMenu(obj);
    for (int item = 0; item < GetMenuItemCount(menu); item++) {
        char text[256] = "";
        if (GetMenuStringA(menu, (UINT)item, text, sizeof text, MF_BYPOSITION) == 0)
            printf("-\n");
        else
            printf("%s\n", text);
    }
    DestroyMenu(menu);
    return true;
}

struct TOOLTIPSEARCH {
    HWND canvas;
    wchar_t* text;
    int size;
    bool found;
};

// The ANSI form of TTM_GETTEXT gives at most 80 characters: ask in Unicode.
BOOL CALLBACK AskTooltip(HWND window, LPARAM context)
{
    TOOLTIPSEARCH* search = reinterpret_cast<TOOLTIPSEARCH*>(context);
    char className[32] = "";
    GetClassNameA(window, className, sizeof className);
    if (strcmp(className, TOOLTIPS_CLASSA) != 0)
        return TRUE;
    TTTOOLINFOW tool = {};
    tool.cbSize = sizeof tool;
    tool.hwnd = search->canvas;
    tool.uId = (UINT_PTR)search->canvas;
    tool.lpszText = search->text;
    search->text[0] = L'\0';
    SendMessageW(window, TTM_GETTEXTW, (WPARAM)search->size, (LPARAM)&tool);
    search->found = search->text[0] != L'\0';
    return !search->found;
}

// The text the shared tooltip holds for the canvas, one of its tools.
bool TooltipText(HWND canvas, char* text, int size)
{
    static wchar_t wide[8192];
    TOOLTIPSEARCH search = {canvas, wide, (int)(sizeof wide / sizeof wide[0]), false};
    EnumThreadWindows(GetCurrentThreadId(), AskTooltip, (LPARAM)&search);
    return search.found && WideCharToMultiByte(CP_ACP, 0, wide, -1, text, size, NULL, NULL) > 0;
}

// Moves the cursor over the canvas, as a user would, so that the canvas
// builds its tip and, when the window is on screen, the tip shows.
bool ShowTooltip(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindObject(command);
    if (!obj)
        return false;
    RECT rect;
    GetClientRect(obj->m_hWnd, &rect);
    POINT centre = {rect.right / 2, rect.bottom / 2};
    POINT screen = centre;
    ClientToScreen(obj->m_hWnd, &screen);
    SetCursorPos(screen.x, screen.y);
    SendMessageA(obj->m_hWnd, WM_MOUSEMOVE, 0, MAKELPARAM(centre.x, centre.y));
    static char text[8192];
    if (!TooltipText(obj->m_hWnd, text, sizeof text)) {
        fprintf(stderr, "workbench: %s has no tooltip\n", command.object.c_str());
        return false;
    }
    printf("%s\n", text);
    if (IsWindowVisible(bench->frame))
        PumpMessagesFor(900);  // the tip's show delay
    return true;
}

// Presses the left button on the object, moves the mouse by dx, dy and lets
// go, delivering what a user's hand would: canvases pass the press on to the
// surface themselves, other objects are transparent to the mouse.
bool Drag(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindObject(command);
    if (!obj)
        return false;
    RECT rect;
    GetClientRect(obj->m_hWnd, &rect);
    POINT press = {rect.right / 2, rect.bottom / 2};
    char className[32] = "";
    GetClassNameA(obj->m_hWnd, className, sizeof className);
    POINT onSurface = press;
    MapWindowPoints(obj->m_hWnd, bench->surface, &onSurface, 1);
    if (strcmp(className, "DOVRIXC") == 0)
        SendMessageA(obj->m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(press.x, press.y));
    else
        SendMessageA(bench->surface, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(onSurface.x, onSurface.y));
    PumpMessagesFor(20);  // the canvas posts the press
    const LPARAM to = MAKELPARAM(onSurface.x + command.code, onSurface.y + command.value);
    SendMessageA(bench->surface, WM_MOUSEMOVE, MK_LBUTTON, to);
    SendMessageA(bench->surface, WM_LBUTTONUP, 0, to);
    return true;
}

// The widget of the object's page, building the page when there is none yet.
HWND PageWidget(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    WIDGETPAGE* page = OpenWidgetPage(bench, command.object);
    HWND widget = page ? a_FindHwnd(&page->owner, command.text.c_str()) : NULL;
    if (!widget)
        fprintf(stderr, "workbench: no widget %s of %s\n", command.text.c_str(), command.object.c_str());
    return widget;
}

bool ClickWidget(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HWND widget = PageWidget(bench, command);
    if (!widget)
        return false;
    RECT client;
    GetClientRect(widget, &client);
    const LPARAM centre = MAKELPARAM(client.right / 2, client.bottom / 2);
    SendMessageA(widget, WM_LBUTTONDOWN, MK_LBUTTON, centre);
    SendMessageA(widget, WM_LBUTTONUP, 0, centre);
    return true;
}

bool ReadWidget(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HWND widget = PageWidget(bench, command);
    if (!widget)
        return false;
    SendMessageA(widget, WM_TIMER, 1, 0);  // its refresh, now
    char text[REQUEST_TEXT_SIZE] = "";
    a_GetControlText(widget, text, sizeof text);
    printf("%s=%s\n", command.text.c_str(), text);
    return true;
}

// Selects the object and edits one row of the property list as a user does:
// open the cell's editor, type, press Enter.
bool EditProperty(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindObject(command);
    if (!obj)
        return false;
    a_SetSelection(bench->design, obj);
    ShowProperties(bench->properties, obj);
    const int row = FindPropertyRow(bench->properties, command.text.c_str());
    if (row < 0 || !BeginPropertyEdit(bench->properties, row)) {
        fprintf(stderr, "workbench: %s has no editable row %s\n", command.object.c_str(), command.text.c_str());
        return false;
    }
    HWND editor = PropertyEditor(bench->properties);
    SetWindowTextA(editor, command.typed.c_str());
    SendMessageA(editor, WM_KEYDOWN, VK_RETURN, 0);
    return true;
}

// A console's context menu command 1 is "Configuration".
bool OpenConfiguration(const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindObject(command);
    if (obj)
        SendMessageA(obj->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);
    return obj != nullptr;
}

bool Picture(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    const std::string& target = command.object;
    const char* path = command.text.c_str();
    if (target == "screen")
        return SaveScreenPicture(bench->frame, path);
    if (target == "surface")
        return SaveWindowPicture(bench->surface, path);
    if (target.rfind("view:", 0) == 0) {
        HWND frame = ConsoleViewFrame(bench, target.substr(5));
        if (!frame)
            frame = OpenConsoleView(bench, target.substr(5));
        SIZE used = {};
        return frame && ConsoleViewExtent(frame, &used) && SaveWindowPicture(frame, path, &used);
    }
    if (target.rfind("page:", 0) == 0) {
        WIDGETPAGE* page = OpenWidgetPage(bench, target.substr(5));
        return page && SaveWindowPicture(page->window, path);
    }
    const bool configuration = target.rfind("config:", 0) == 0;
    HOSTINFO* obj = a_FindHostinfo((configuration ? target.substr(7) : target).c_str());
    HWND window = obj ? obj->m_hWnd : NULL;
    if (window && configuration)
        window = FindConfigurationWindow(obj);
    if (!window) {
        fprintf(stderr, "workbench: nothing to picture for %s\n", target.c_str());
        return false;
    }
    return SaveWindowPicture(window, path);
}

bool PrintTrace(WORKBENCH* bench)
{
    char line[4096];
    const int count = a_GetOutputLineCount(bench->design);
    for (int i = 0; i < count; i++)
        if (a_GetOutputLine(bench->design, i, line, sizeof line))
            printf("%s\n", line);
    return true;
}

bool PrintAlarmSources(WORKBENCH* bench)
{
    char source[256];
    const int count = a_GetAlarmSourceCount(bench->design);
    for (int i = 0; i < count; i++)
        if (a_GetAlarmSource(bench->design, i, source, sizeof source))
            printf("%s\n", source);
    return true;
}

bool Firmware(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindObject(command);
    return obj && RunFirmwareUpdate(bench, obj, command.text, command.typed);
}

}  // namespace

namespace {

struct TITLESEARCH {
    const char* title;
    HWND found;
};

BOOL CALLBACK MatchTitle(HWND window, LPARAM context)
{
    TITLESEARCH* search = reinterpret_cast<TITLESEARCH*>(context);
    char title[HOSTNAME_SIZE + 32] = "";
    GetWindowTextA(window, title, sizeof title);
    if (strcmp(title, search->title) != 0)
        return TRUE;
    search->found = window;
    return FALSE;
}

}  // namespace

// A console's configuration window carries "NAME - Configuration" as its title.
HWND FindConfigurationWindow(HOSTINFO* obj)
{
    char title[HOSTNAME_SIZE + 32];
    FormatText(title, sizeof title, "%s - Configuration", obj->m_szName);
    TITLESEARCH search = {title, NULL};
    EnumThreadWindows(GetCurrentThreadId(), MatchTitle, (LPARAM)&search);
    return search.found;
}


bool RunCommand(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    bool ok = true;
    switch (command.verb) {
    case SCRIPT_NOTHING:
    case SCRIPT_VERB_COUNT:
        break;
    case SCRIPT_SET:
        ok = SetProperty(bench, command);
        break;
    case SCRIPT_GET:
        ok = GetProperty(command);
        break;
    case SCRIPT_SAVE:
        ok = SaveDesign(bench, command.text.c_str());
        break;
    case SCRIPT_CALLBACK:
        ok = CallPlugin(bench, command.code);
        break;
    case SCRIPT_TRACE:
        ok = PrintTrace(bench);
        break;
    case SCRIPT_SCREENSHOT:
        ok = SaveScreenPicture(bench->frame, command.text.c_str());
        break;
    case SCRIPT_SHOT:
        ok = Picture(bench, command);
        break;
    case SCRIPT_TOOLTIP:
        ok = ShowTooltip(bench, command);
        break;
    case SCRIPT_MENU:
        ok = PrintContextMenu(command);
        break;
    case SCRIPT_OPEN:
        ok = OpenConfiguration(command);
        break;
    case SCRIPT_SELECT:
        if (HOSTINFO* obj = FindObject(command)) {
            a_SetSelection(bench->design, obj);
            ShowProperties(bench->properties, obj);
        } else {
            ok = false;
        }
        break;
    case SCRIPT_DRAG:
        ok = Drag(bench, command);
        break;
    case SCRIPT_DESIGN:
        bench->designMode = command.value != 0;
        a_SetDesignMode(bench->design, command.value ? 1 : 0);
        SetConsoleViewsEditMode(bench, bench->designMode);
        break;
    case SCRIPT_VIEW:
    case SCRIPT_PRESS:
    case SCRIPT_RELEASE:
    case SCRIPT_RCLICK:
    case SCRIPT_LABEL:
    case SCRIPT_EXTENSION:
    case SCRIPT_PAGE:
    case SCRIPT_LEDS:
    case SCRIPT_SCROLL:
        ok = RunConsoleViewCommand(bench, command);
        break;
    case SCRIPT_WIDGETS:
        if (!OpenWidgetPage(bench, command.object)) {
            fprintf(stderr, "workbench: no object %s\n", command.object.c_str());
            ok = false;
        }
        break;
    case SCRIPT_FIRMWARE:
        ok = Firmware(bench, command);
        break;
    case SCRIPT_EDIT:
        ok = EditProperty(bench, command);
        break;
    case SCRIPT_CLICK:
        ok = ClickWidget(bench, command);
        break;
    case SCRIPT_READ:
        ok = ReadWidget(bench, command);
        break;
    case SCRIPT_DELETE:
        if (HOSTINFO* obj = FindObject(command))
            DeleteObject(bench, obj);
        else
            ok = false;
        break;
    case SCRIPT_ONLINE:
        ok = Simulate(command, "online", command.value);
        break;
    case SCRIPT_FAULT:
        ok = SimulateFault(command);
        break;
    case SCRIPT_DEVICE:
        ok = Simulate(command, command.text.c_str(), command.value);
        break;
    case SCRIPT_LIST:
        ok = PrintPropertyList(bench, command);
        break;
    case SCRIPT_TICK:
        Tick(command.code);
        break;
    case SCRIPT_ALARMS:
        ok = PrintAlarmSources(bench);
        break;
    }
    fflush(stdout);
    return ok;
}

int RunScript(WORKBENCH* bench, const char* path)
{
    std::ifstream script(path, std::ios::binary);
    if (!script) {
        fprintf(stderr, "workbench: cannot read the script %s\n", path);
        return 1;
    }
    int failures = 0;
    int number = 0;
    std::string line;
    while (std::getline(script, line)) {
        number++;
        SCRIPTCOMMAND command;
        std::string error;
        if (!ParseScriptLine(line, &command, &error)) {
            fprintf(stderr, "%s(%d): %s\n", path, number, error.c_str());
            failures++;
            continue;
        }
        if (!RunCommand(bench, command)) {
            fprintf(stderr, "%s(%d): command failed\n", path, number);
            failures++;
        }
    }
    return failures;
}
