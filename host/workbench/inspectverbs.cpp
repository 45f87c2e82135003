// The verbs that show what the design holds: an object's values, property
// list, context menu and tooltip, a widget's text, the output window, the
// alarm matrix, the plug-in's answers, and the verbs themselves.
#include "workbench.h"

#include <stdio.h>

#include <commctrl.h>

#include "verbs.h"
#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

bool GetProperty(WORKBENCH*, const SCRIPTCOMMAND& command)
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

bool CallPlugin(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    const INT_PTR answer = bench->callback(command.code, bench->design, 0);
    if (command.code == 13)
        printf("%s\n", answer ? (const char*)answer : "");
    else
        printf("%lld\n", (long long)answer);
    return true;
}

bool PrintTrace(WORKBENCH* bench, const SCRIPTCOMMAND&)
{
    char line[4096];
    const int count = a_GetOutputLineCount(bench->design);
    for (int i = 0; i < count; i++)
        if (a_GetOutputLine(bench->design, i, line, sizeof line))
            printf("%s\n", line);
    return true;
}

bool PrintAlarmSources(WORKBENCH* bench, const SCRIPTCOMMAND&)
{
    char source[256];
    const int count = a_GetAlarmSourceCount(bench->design);
    for (int i = 0; i < count; i++)
        if (a_GetAlarmSource(bench->design, i, source, sizeof source))
            printf("%s\n", source);
    return true;
}

// The rows the object puts into a property list, as "KEYWORD=VALUE".
bool PrintPropertyList(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindWindowedObject(command.object);
    if (!obj)
        return false;
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

bool PrintContextMenu(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindWindowedObject(command.object);
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
    HOSTINFO* obj = FindWindowedObject(command.object);
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

bool ReadWidget(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HWND widget = PageWidget(bench, command.object, command.text);
    if (!widget)
        return false;
    SendMessageA(widget, WM_TIMER, 1, 0);  // its refresh, now
    char text[REQUEST_TEXT_SIZE] = "";
    a_GetControlText(widget, text, sizeof text);
    printf("%s=%s\n", command.text.c_str(), text);
    return true;
}

bool PrintHelp(WORKBENCH*, const SCRIPTCOMMAND&)
{
    printf("%s", ScriptHelp().c_str());
    return true;
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_GET, GetProperty},
    {SCRIPT_CALLBACK, CallPlugin},
    {SCRIPT_TRACE, PrintTrace},
    {SCRIPT_ALARMS, PrintAlarmSources},
    {SCRIPT_LIST, PrintPropertyList},
    {SCRIPT_MENU, PrintContextMenu},
    {SCRIPT_TOOLTIP, ShowTooltip},
    {SCRIPT_READ, ReadWidget},
    {SCRIPT_HELP, PrintHelp},
};

}  // namespace

const VERBHANDLERS kInspectVerbs = HandlerTable(kHandlers);
