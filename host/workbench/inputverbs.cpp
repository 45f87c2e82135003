// The verbs that change the design as a user does: edits, the property list,
// the mouse, the widget page, the configuration window, deletion and saving.
#include "workbench.h"

#include <stdio.h>

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

bool Save(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    return SaveDesign(bench, command.text.c_str());
}

bool Select(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    if (!command.text.empty())
        return SelectEditorKey(command.object, command.key);
    HOSTINFO* obj = FindWindowedObject(command.object);
    if (!obj)
        return false;
    a_SetSelection(bench->design, obj);
    ShowProperties(bench->properties, obj);
    return true;
}

// Selects the object and edits one row of the property list as a user does:
// open the cell's editor, type, press Enter.
bool EditProperty(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindWindowedObject(command.object);
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

// Presses the left button on the object, moves the mouse by dx, dy and lets
// go, delivering what a user's hand would: canvases pass the press on to the
// surface themselves, other objects are transparent to the mouse.
bool Drag(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindWindowedObject(command.object);
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

bool Design(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    bench->designMode = command.value != 0;
    a_SetDesignMode(bench->design, command.value ? 1 : 0);
    SetConsoleViewsEditMode(bench, bench->designMode);
    return true;
}

bool Widgets(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    if (OpenWidgetPage(bench, command.object))
        return true;
    fprintf(stderr, "workbench: no object %s\n", command.object.c_str());
    return false;
}

bool ClickWidget(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    if (command.object.rfind("config:", 0) == 0)
        return ClickConfigurationWidget(command.object.substr(7), command.text);
    HWND widget = PageWidget(bench, command.object, command.text);
    if (!widget)
        return false;
    RECT client;
    GetClientRect(widget, &client);
    const LPARAM centre = MAKELPARAM(client.right / 2, client.bottom / 2);
    SendMessageA(widget, WM_LBUTTONDOWN, MK_LBUTTON, centre);
    SendMessageA(widget, WM_LBUTTONUP, 0, centre);
    return true;
}

// A console's context menu command 1 is "Configuration".
bool OpenConfiguration(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindWindowedObject(command.object);
    if (obj)
        SendMessageA(obj->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);
    return obj != nullptr;
}

bool Delete(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindWindowedObject(command.object);
    if (obj)
        DeleteObject(bench, obj);
    return obj != nullptr;
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_SET, SetProperty},
    {SCRIPT_SAVE, Save},
    {SCRIPT_SELECT, Select},
    {SCRIPT_EDIT, EditProperty},
    {SCRIPT_DRAG, Drag},
    {SCRIPT_DESIGN, Design},
    {SCRIPT_WIDGETS, Widgets},
    {SCRIPT_CLICK, ClickWidget},
    {SCRIPT_OPEN, OpenConfiguration},
    {SCRIPT_DELETE, Delete},
};

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

const VERBHANDLERS kInputVerbs = HandlerTable(kHandlers);

// A console's configuration window carries "NAME - Configuration" as its title.
HWND FindConfigurationWindow(HOSTINFO* obj)
{
    char title[HOSTNAME_SIZE + 32];
    FormatText(title, sizeof title, "%s - Configuration", obj->m_szName);
    TITLESEARCH search = {title, NULL};
    EnumThreadWindows(GetCurrentThreadId(), MatchTitle, (LPARAM)&search);
    return search.found;
}
