// Console views in frames of their own, and the commands that drive them as
// a user would: mouse presses, context menus, the label editor, the toolbar
// and the page buttons. The host knows the view by its class name and its
// messages only.
#include "workbench.h"

#include "../../plugin/protocol.h"

#include <commctrl.h>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char kFrameClass[] = "DovrixcConsoleViewFrame";
const int kViewId = 1003;
const int kScanWidth = 2400;   // far enough right for five extensions

LRESULT CALLBACK FrameWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PARENTNOTIFY:
        // The view went with its console: the frame has nothing left to show.
        if (LOWORD(wParam) == WM_DESTROY && GetDlgCtrlID((HWND)lParam) == kViewId)
            PostMessageA(hwnd, WM_CLOSE, 0, 0);
        return 0;
    case WM_PRINTCLIENT:
        SendMessageA(hwnd, WM_ERASEBKGND, wParam, 0);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

HWND ViewIn(HWND frame)
{
    return frame && IsWindow(frame) ? GetDlgItem(frame, kViewId) : NULL;
}

const char kPanelPrefix[] = "panel:";

bool NamesPanel(const std::string& name)
{
    return name.rfind(kPanelPrefix, 0) == 0;
}

// "panel:OBJ" is the console's control panel, which takes the mouse as the
// view does; anything else is the console's view.
HWND FindView(WORKBENCH* bench, const std::string& name)
{
    if (NamesPanel(name)) {
        const std::string console = name.substr(sizeof kPanelPrefix - 1);
        HWND panel = ControlPanelOf(bench, console);
        if (!panel)
            fprintf(stderr, "workbench: %s has no control panel open (panel %s)\n", console.c_str(), console.c_str());
        return panel;
    }
    auto found = bench->consoleViews.find(name);
    HWND view = found == bench->consoleViews.end() ? NULL : ViewIn(found->second);
    if (!view)
        fprintf(stderr, "workbench: %s has no console view open (view %s)\n", name.c_str(), name.c_str());
    return view;
}

int HitTest(HWND view, int x, int y)
{
    int id = -1;
    return SendMessageA(view, CVM_HITTEST, (WPARAM)&id, MAKELPARAM(x, y)) ? id : -1;
}

// The view answers hit tests only: find the key by asking. Keys are at least
// 31 by 18 pixels, so a grid of 30 by 17 meets each; from there the key's
// top-left corner is a walk away.
bool KeyPoint(HWND view, int key, POINT* point)
{
    RECT client;
    GetClientRect(view, &client);
    for (int y = 0; y < client.bottom; y += 17) {
        for (int x = 0; x < kScanWidth; x += 30) {
            if (HitTest(view, x, y) != key)
                continue;
            while (x > 0 && HitTest(view, x - 1, y) == key)
                x--;
            while (y > 0 && HitTest(view, x, y - 1) == key)
                y--;
            *point = POINT{x, y};
            return true;
        }
    }
    fprintf(stderr, "workbench: the console view shows no key %d\n", key);
    return false;
}

struct MENUCHOICE {
    HWND owner;
    std::string item;
    bool seen;
};
// The choice waits on the view for its menu: hooks carry no context.
const char kMenuChoice[] = "Workbench.MenuChoice";

// Keys posted to the menu loop choose an item the way a user would.
void ChooseMenuItem(HMENU menu, MENUCHOICE* choice, HWND menuWindow)
{
    int steps = 0;
    int target = -1;
    for (int position = 0; position < GetMenuItemCount(menu); position++) {
        char text[64] = "";
        const UINT state = GetMenuState(menu, (UINT)position, MF_BYPOSITION);
        if (state & MF_SEPARATOR) {
            printf("menu: -\n");
            continue;
        }
        GetMenuStringA(menu, (UINT)position, text, sizeof text, MF_BYPOSITION);
        printf("menu: %s%s%s\n", text, (state & MF_GRAYED) ? " (greyed)" : "", (state & MF_CHECKED) ? " (checked)" : "");
        if (target < 0)
            steps++;
        if (choice->item == text)
            target = position;
    }
    if (target < 0 || (GetMenuState(menu, (UINT)target, MF_BYPOSITION) & MF_GRAYED)) {
        if (choice->item != "-")
            printf("menu: cannot choose %s\n", choice->item.c_str());
        PostMessageA(menuWindow, WM_KEYDOWN, VK_ESCAPE, 0);
        return;
    }
    for (int i = 0; i < steps; i++)
        PostMessageA(menuWindow, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageA(menuWindow, WM_KEYDOWN, VK_RETURN, 0);
}

LRESULT CALLBACK MenuHook(int code, WPARAM wParam, LPARAM lParam)
{
    const CWPSTRUCT* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    MENUCHOICE* choice = code == HC_ACTION && message->message == WM_ENTERIDLE && message->wParam == MSGF_MENU
                             ? static_cast<MENUCHOICE*>(GetPropA(message->hwnd, kMenuChoice))
                             : nullptr;
    if (choice && !choice->seen) {
        choice->seen = true;
        HWND menuWindow = (HWND)message->lParam;
        HMENU menu = (HMENU)SendMessageA(menuWindow, MN_GETHMENU, 0, 0);
        if (menu)
            ChooseMenuItem(menu, choice, menuWindow);
        else
            PostMessageA(menuWindow, WM_KEYDOWN, VK_ESCAPE, 0);
    }
    return CallNextHookEx(NULL, code, wParam, lParam);
}

bool RightClick(HWND view, int key, const std::string& item)
{
    POINT point;
    if (!KeyPoint(view, key, &point))
        return false;
    point.x += 2;
    point.y += 2;
    ClientToScreen(view, &point);
    MENUCHOICE choice = {view, item, false};
    SetPropA(view, kMenuChoice, &choice);
    HHOOK hook = SetWindowsHookExA(WH_CALLWNDPROC, MenuHook, NULL, GetCurrentThreadId());
    SendMessageA(view, WM_CONTEXTMENU, (WPARAM)view, MAKELPARAM(point.x, point.y));
    UnhookWindowsHookEx(hook);
    RemovePropA(view, kMenuChoice);
    if (!choice.seen)
        printf("menu: none\n");
    PumpMessagesFor(50);
    return true;
}

bool Mouse(HWND view, int key, UINT message)
{
    POINT point;
    if (!KeyPoint(view, key, &point))
        return false;
    SendMessageA(view, message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0, MAKELPARAM(point.x + 2, point.y + 2));
    PumpMessagesFor(50);
    return true;
}

// The label box lies under the key, never more than 20 pixels to its left.
bool TypeLabel(HWND view, int key, const std::string& text)
{
    POINT point;
    if (!KeyPoint(view, key, &point))
        return false;
    const LPARAM at = MAKELPARAM(point.x + 2, point.y + 31);
    SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageA(view, WM_LBUTTONUP, 0, at);
    HWND editor = GetDlgItem(view, IDC_LABELEDITOR);
    if (!editor) {
        fprintf(stderr, "workbench: key %d has no label box to edit\n", key);
        return false;
    }
    SetWindowTextA(editor, text.c_str());
    SendMessageA(editor, WM_KEYDOWN, VK_RETURN, 0);
    PumpMessagesFor(50);
    return true;
}

// Page button N if the view shows it, else the command it would send.
bool ChoosePage(HWND view, const SCRIPTCOMMAND& command)
{
    if (command.text == "side" || command.text == "buttons") {
        SendMessageA(view, CVM_SETPAGE, 0, command.text == "buttons" ? 1 : 0);
    } else {
        const int id = IDC_PAGEBUTTON_CONSOLE + command.code;
        HWND button = GetDlgItem(view, id);
        SendMessageA(view, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), (LPARAM)button);
    }
    PumpMessagesFor(50);
    return true;
}

// The console's LED states, one hexadecimal digit per key.
bool SetLeds(HOSTINFO* console, const SCRIPTCOMMAND& command)
{
    char leds[REQUEST_TEXT_SIZE] = "";
    REQUEST read = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, leds, "leds", nullptr};
    if (!SendMessageA(console->m_hWnd, WM_HOST_MESSAGE, 0, (LPARAM)&read) || command.key < 0 ||
        command.key >= (int)strlen(leds)) {
        fprintf(stderr, "workbench: %s has no LED state for key %d\n", console->m_szName, command.key);
        return false;
    }
    leds[command.key] = "0123456789abcdef"[(command.code | command.value << 2) & 15];
    REQUEST write = {REQ_WRITE, 0, REQTYPE_TEXT, REQMODE_EDIT, leds, "leds", nullptr};
    const bool written = SendMessageA(console->m_hWnd, WM_HOST_MESSAGE, 0, (LPARAM)&write) != 0;
    PumpMessagesFor(50);
    return written;
}

}  // namespace

HWND OpenConsoleView(WORKBENCH* bench, const std::string& name)
{
    HOSTINFO* console = a_FindHostinfo(name.c_str());
    if (!console || !console->m_hWnd || !RegisterFaceClass(kFrameClass, FrameWndProc)) {
        fprintf(stderr, "workbench: no console %s\n", name.c_str());
        return NULL;
    }
    if (HWND open = ViewIn(bench->consoleViews[name]))
        return GetParent(open);
    char title[HOSTNAME_SIZE + 32];
    FormatText(title, sizeof title, "%s - Console view", name.c_str());
    HWND frame = CreateWindowExA(0, kFrameClass, title, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 60, 60, 1019, 800,
                                 bench->frame, NULL, GetModuleHandleA(NULL), NULL);
    HWND view = frame ? CreateWindowExA(WS_EX_CLIENTEDGE, "DOVRIXCONSOLEVIEW", "", WS_CHILD | WS_VISIBLE, 18, 26, 505, 435,
                                        frame, (HMENU)(INT_PTR)kViewId, GetModuleHandleA(NULL), console)
                      : NULL;
    if (!view) {
        fprintf(stderr, "workbench: the plug-in made no console view for %s\n", name.c_str());
        if (frame)
            DestroyWindow(frame);
        return NULL;
    }
    // Designing or operating, as the workbench and the device are.
    const bool operating = !bench->designMode || (console->m_wFlags & HOSTFLAG_ONLINE);
    SendMessageA(view, CVM_SETEDITMODE, 0, operating ? 0 : 1);
    bench->consoleViews[name] = frame;
    ShowWindow(frame, SW_SHOWNOACTIVATE);
    UpdateWindow(frame);
    return frame;
}

bool ConsoleViewExtent(HWND frame, SIZE* size)
{
    HWND view = ViewIn(frame);
    if (!view)
        return false;
    RECT r;
    GetWindowRect(view, &r);
    MapWindowPoints(NULL, frame, (POINT*)&r, 2);
    *size = SIZE{r.right + 18, r.bottom + 18};
    return true;
}

void SetConsoleViewsEditMode(WORKBENCH* bench, bool designing)
{
    for (const auto& entry : bench->consoleViews)
        if (HWND view = ViewIn(entry.second))
            SendMessageA(view, CVM_SETEDITMODE, 0, designing ? 1 : 0);
}

HWND ConsoleViewFrame(WORKBENCH* bench, const std::string& name)
{
    auto found = bench->consoleViews.find(name);
    return found != bench->consoleViews.end() && IsWindow(found->second) ? found->second : NULL;
}

namespace {

bool View(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    return OpenConsoleView(bench, command.object) != NULL;
}

bool Leds(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HOSTINFO* console = a_FindHostinfo(command.object.c_str());
    return console && console->m_hWnd && SetLeds(console, command);
}

bool Press(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HWND view = FindView(bench, command.object);
    return view && Mouse(view, command.key, WM_LBUTTONDOWN);
}

bool Release(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HWND view = FindView(bench, command.object);
    return view && Mouse(view, command.key, WM_LBUTTONUP);
}

bool ContextMenu(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HWND view = FindView(bench, command.object);
    return view && RightClick(view, command.key, command.text);
}

bool Label(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HWND view = FindView(bench, command.object);
    return view && TypeLabel(view, command.key, command.text);
}

// The toolbar's add and remove buttons send commands 20 and 3.
bool Extension(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HWND view = FindView(bench, command.object);
    if (!view)
        return false;
    SendMessageA(view, WM_COMMAND, command.text == "add" ? 20 : 3, 0);
    PumpMessagesFor(50);
    return true;
}

// The control panel's pages are its layouts: 0 side by side, 1 with page
// buttons, 2 the extensions alone.
bool ChoosePanelPage(HWND panel, const SCRIPTCOMMAND& command)
{
    const int page = command.text == "side" ? 0 : command.text == "buttons" ? 1 : command.code;
    if (page < 0 || page > 2) {
        fprintf(stderr, "workbench: the control panel has pages 0 to 2\n");
        return false;
    }
    SendMessageA(panel, CVM_SETPAGE, 0, page);
    PumpMessagesFor(50);
    return true;
}

bool Page(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    if (command.text.empty())
        return PrintEditorPage(command.object);
    HWND view = FindView(bench, command.object);
    if (view && NamesPanel(command.object))
        return ChoosePanelPage(view, command);
    return view && ChoosePage(view, command);
}

bool Scroll(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HWND view = FindView(bench, command.object);
    if (!view)
        return false;
    SendMessageA(view, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, command.code), 0);
    PumpMessagesFor(50);
    return true;
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_VIEW, View},
    {SCRIPT_PRESS, Press},
    {SCRIPT_RELEASE, Release},
    {SCRIPT_RCLICK, ContextMenu},
    {SCRIPT_LABEL, Label},
    {SCRIPT_EXTENSION, Extension},
    {SCRIPT_PAGE, Page},
    {SCRIPT_LEDS, Leds},
    {SCRIPT_SCROLL, Scroll},
};

}  // namespace

const VERBHANDLERS kConsoleViewVerbs = HandlerTable(kHandlers);
