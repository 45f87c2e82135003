#include "managerview.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "consoletargets.h"
#include "managerrules.h"
#include "../device/consoleproperties.h"
#include "../device/liveconsoles.h"
#include "../entry/module.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const COLORREF kFieldColour = 0xceffff;  // the pale yellow of all input fields
const DWORD kTreeStyle = WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS;
const char kEmpty[] = "empty";
enum { ITEMTEXT_SIZE = 128, COPYTEXT_SIZE = 4096 };

struct MANAGERVIEW {
    CONSOLEPROPERTIES* current = nullptr;  // the console the configuration window shows
    HWND tree = NULL;
    HTREEITEM dragged = NULL;
    bool filling = false;  // the view's own selections tell nobody
};

// ---- Items ------------------------------------------------------------------------------

HTREEITEM Next(HWND tree, HTREEITEM item, UINT relation)
{
    return (HTREEITEM)SendMessageA(tree, TVM_GETNEXTITEM, relation, (LPARAM)item);
}

HTREEITEM FirstController(HWND tree)
{
    return Next(tree, NULL, TVGN_ROOT);
}

// The item's text (into size bytes) and object; false when it cannot be read.
bool ReadItem(HWND tree, HTREEITEM item, char* text, int size, HOSTINFO** object)
{
    TVITEMA data = {};
    data.mask = TVIF_TEXT | TVIF_PARAM;
    data.hItem = item;
    data.pszText = text;
    data.cchTextMax = size;
    text[0] = '\0';
    if (!item || !SendMessageA(tree, TVM_GETITEMA, 0, (LPARAM)&data))
        return false;
    *object = reinterpret_cast<HOSTINFO*>(data.lParam);
    return true;
}

HOSTINFO* ObjectOf(HWND tree, HTREEITEM item)
{
    char text[ITEMTEXT_SIZE];
    HOSTINFO* object = nullptr;
    return ReadItem(tree, item, text, sizeof text, &object) ? object : nullptr;
}

void WriteItem(HWND tree, HTREEITEM item, const char* text, HOSTINFO* object)
{
    TVITEMA data = {};
    data.mask = TVIF_TEXT | TVIF_PARAM;
    data.hItem = item;
    data.pszText = const_cast<char*>(text);
    data.lParam = reinterpret_cast<LPARAM>(object);
    SendMessageA(tree, TVM_SETITEMA, 0, (LPARAM)&data);
}

HTREEITEM AddItem(HWND tree, HTREEITEM parent, const char* text, HOSTINFO* object)
{
    TVINSERTSTRUCTA insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM;
    insert.item.pszText = const_cast<char*>(text);
    insert.item.lParam = reinterpret_cast<LPARAM>(object);
    return (HTREEITEM)SendMessageA(tree, TVM_INSERTITEMA, 0, (LPARAM)&insert);
}

std::string FriendlyName(HOSTINFO* obj)
{
    char text[ITEMTEXT_SIZE] = "";
    if (!obj->OnGetUserfriendlyName(text, sizeof text) || !text[0])
        CopyText(text, obj->m_szName);
    return text;
}

// Selecting scrolls the item into view, sideways too for a long text: the
// tree goes back to its left edge, where the texts begin.
void ScrollToLeftEdge(HWND tree)
{
    SendMessageA(tree, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 0), 0);
}

void Select(MANAGERVIEW* view, HTREEITEM item)
{
    SendMessageA(view->tree, TVM_SELECTITEM, TVGN_CARET, (LPARAM)item);
    ScrollToLeftEdge(view->tree);
}

// ---- Filling -------------------------------------------------------------------------------

// Each controller with its positions: its consoles by address, then the free ones.
void Fill(MANAGERVIEW* view, HOSTINFO* root)
{
    for (HOSTINFO* controller : FindControllers(root)) {
        const std::string text = ControllerItemText(controller->m_szName, kConsoleModuleName);
        HTREEITEM item = AddItem(view->tree, TVI_ROOT, text.c_str(), controller);
        const std::string connection = std::string(controller->m_szName) + "." + kConsoleModuleName;
        const std::vector<HOSTINFO*> consoles = ConsolesOf(root, connection);
        for (HOSTINFO* console : consoles)
            AddItem(view->tree, item, FriendlyName(console).c_str(), console);
        for (size_t position = consoles.size(); position < MANAGER_POSITIONS; position++)
            AddItem(view->tree, item, kEmpty, nullptr);
        SendMessageA(view->tree, TVM_EXPAND, TVE_EXPAND, (LPARAM)item);
    }
}

// What a controller's item holds: the controller and its consoles with their
// texts, the consoles in the order of their objects (the tree keeps the
// order a drop gave them, the design sorts by address).
struct SHOWNCONTROLLER {
    HOSTINFO* controller = nullptr;
    std::vector<std::pair<HOSTINFO*, std::string>> consoles;
    bool operator==(const SHOWNCONTROLLER& other) const
    {
        return controller == other.controller && consoles == other.consoles;
    }
};

std::vector<SHOWNCONTROLLER> DesignAsShown(HOSTINFO* root)
{
    std::vector<SHOWNCONTROLLER> shown;
    for (HOSTINFO* controller : FindControllers(root)) {
        SHOWNCONTROLLER item;
        item.controller = controller;
        const std::string connection = std::string(controller->m_szName) + "." + kConsoleModuleName;
        for (HOSTINFO* console : ConsolesOf(root, connection))
            item.consoles.emplace_back(console, FriendlyName(console));
        std::sort(item.consoles.begin(), item.consoles.end());
        shown.push_back(item);
    }
    return shown;
}

std::vector<SHOWNCONTROLLER> TreeAsShown(HWND tree)
{
    std::vector<SHOWNCONTROLLER> shown;
    for (HTREEITEM controller = FirstController(tree); controller; controller = Next(tree, controller, TVGN_NEXT)) {
        SHOWNCONTROLLER item;
        item.controller = ObjectOf(tree, controller);
        for (HTREEITEM position = Next(tree, controller, TVGN_CHILD); position;
             position = Next(tree, position, TVGN_NEXT)) {
            char text[ITEMTEXT_SIZE];
            HOSTINFO* object = nullptr;
            if (ReadItem(tree, position, text, sizeof text, &object) && object)
                item.consoles.emplace_back(object, text);
        }
        std::sort(item.consoles.begin(), item.consoles.end());
        shown.push_back(item);
    }
    return shown;
}

// Depth first: an item, its children, then its next sibling.
HTREEITEM FindObjectItem(HWND tree, HTREEITEM item, const HOSTINFO* object)
{
    for (; item; item = Next(tree, item, TVGN_NEXT)) {
        if (ObjectOf(tree, item) == object)
            return item;
        if (HTREEITEM found = FindObjectItem(tree, Next(tree, item, TVGN_CHILD), object))
            return found;
    }
    return NULL;
}

// The tree filled anew from the design, the shown console selected.
void Refill(MANAGERVIEW* view)
{
    HWND tree = view->tree;
    view->filling = true;
    SendMessageA(tree, WM_SETREDRAW, FALSE, 0);
    SendMessageA(tree, TVM_DELETEITEM, 0, (LPARAM)TVI_ROOT);
    Fill(view, a_FindRootHostinfo(view->current));
    SendMessageA(tree, WM_SETREDRAW, TRUE, 0);
    if (HTREEITEM item = FindObjectItem(tree, FirstController(tree), view->current)) {
        Select(view, item);
        // The tree opens at its top when the item can be seen from there.
        SendMessageA(tree, TVM_SELECTITEM, TVGN_FIRSTVISIBLE, (LPARAM)FirstController(tree));
        SendMessageA(tree, TVM_ENSUREVISIBLE, 0, (LPARAM)item);
        ScrollToLeftEdge(tree);
    }
    InvalidateRect(tree, NULL, TRUE);
    view->filling = false;
}

// Consoles and controllers added, renamed or reconnected while the window is
// open: the tree is filled anew only when what it shows differs from the
// design, and never in the middle of a drag.
void FollowDesign(HWND hwnd, MANAGERVIEW* view)
{
    if (GetCapture() == hwnd)
        return;
    if (TreeAsShown(view->tree) == DesignAsShown(a_FindRootHostinfo(view->current)))
        return;
    Refill(view);
}

LRESULT ManagerView_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    CONSOLEPROPERTIES* current = LiveConsole(create->lpCreateParams);
    if (!current) {
        Trace("DOVRIXKVTVIEW: the manager view needs the console the window shows\n");
        return -1;
    }
    HWND tree = CreateWindowExA(0, WC_TREEVIEWA, "Tree", kTreeStyle, 0, 0, create->cx, create->cy, hwnd,
                                (HMENU)(INT_PTR)IDC_MANAGERTREE, ModuleInstance(), NULL);
    if (!tree)
        return -1;
    SendMessageA(tree, TVM_SETBKCOLOR, 0, (LPARAM)kFieldColour);
    SendMessageA(tree, WM_SETFONT, (WPARAM)a_GetFont("Tahoma, 8"), FALSE);
    MANAGERVIEW* view = AttachWindowState(hwnd, new MANAGERVIEW);
    view->current = current;
    view->tree = tree;
    Refill(view);
    return 0;
}

// ---- Selection ----------------------------------------------------------------------------

LRESULT SelectionChanging(const MANAGERVIEW* view, const NMTREEVIEWA* change)
{
    if (view->filling)
        return 0;
    HOSTINFO* object = reinterpret_cast<HOSTINFO*>(change->itemNew.lParam);
    return object && a_IsClass(object, "DOVRIXC") ? 0 : 1;
}

void SelectionChanged(HWND hwnd, MANAGERVIEW* view, const NMTREEVIEWA* change)
{
    CONSOLEPROPERTIES* console = AsConsole(reinterpret_cast<HOSTINFO*>(change->itemNew.lParam));
    if (!console || view->filling)
        return;
    view->current = console;
    SendMessageA(GetParent(hwnd), CFM_REINITIALIZE, 0, (LPARAM)console);
    SendMessageA(GetParent(hwnd), CFM_SELECTCONSOLE, 0, (LPARAM)console->m_szName);
}

// ---- Dragging -------------------------------------------------------------------------------

void ShowCursorResource(int id)
{
    SetCursor(LoadCursorA(ModuleInstance(), MAKEINTRESOURCEA(id)));
}

// Only a console's position is dragged, and only while the shown console is offline.
void BeginDrag(HWND hwnd, MANAGERVIEW* view, const NMTREEVIEWA* drag)
{
    HTREEITEM item = drag->itemNew.hItem;
    if (view->current->IsOnline() || !item || Next(view->tree, item, TVGN_CHILD) ||
        !a_IsClass(ObjectOf(view->tree, item), "DOVRIXC"))
        return;
    Select(view, item);
    view->dragged = item;
    ShowCursorResource(IDR_CURSOR_DROP);
    SetCapture(hwnd);
}

// A controller other than the dragged console's, with a position that reads "empty".
HTREEITEM ControllerUnder(MANAGERVIEW* view, POINT at)
{
    TVHITTESTINFO hit = {};
    hit.pt = at;
    HTREEITEM item = (HTREEITEM)SendMessageA(view->tree, TVM_HITTEST, 0, (LPARAM)&hit);
    if (!item || !(hit.flags & TVHT_ONITEM))
        return NULL;
    SendMessageA(view->tree, TVM_ENSUREVISIBLE, 0, (LPARAM)item);
    if (Next(view->tree, item, TVGN_PARENT) || item == Next(view->tree, view->dragged, TVGN_PARENT))
        return NULL;
    for (HTREEITEM child = Next(view->tree, item, TVGN_CHILD); child; child = Next(view->tree, child, TVGN_NEXT)) {
        char text[ITEMTEXT_SIZE];
        HOSTINFO* object = nullptr;
        if (!ReadItem(view->tree, child, text, sizeof text, &object))
            return NULL;  // an unreadable position ends the search
        if (strcmp(text, kEmpty) == 0)
            return item;
    }
    return NULL;
}

// Whether the controller has a free CAN address from the console's own up to
// 16, the addresses the connection handler tries: a drop it cannot carry out
// whole is refused before anything is let go. A controller that does not
// say is tried; a failed connection is then taken back.
bool TakesAddressFrom(HOSTINFO* controller, int address)
{
    uint32_t freeAddresses = 0;
    if (!controller || !ReadFreeAddresses(controller, &freeAddresses))
        return true;
    for (int at = address; at <= 16; at++)
        if (at >= 0 && ((freeAddresses >> at) & 1u))
            return true;
    return false;
}

// Why the dragged console cannot go to the target: empty when it can.
std::string RefusalOf(MANAGERVIEW* view, HTREEITEM target)
{
    HOSTINFO* dragged = ObjectOf(view->tree, view->dragged);
    CONSOLEPROPERTIES* console = view->current;
    HOSTINFO* controller = ObjectOf(view->tree, target);
    const std::string name = dragged ? dragged->m_szName : "";
    const std::string there = controller ? controller->m_szName : "";
    char line[2 * HOSTNAME_SIZE + 160];
    if (dragged != console) {
        FormatText(line, sizeof line,
                   "%s not moved to %s: only the console this window shows (%s) is moved from its tree",
                   name.c_str(), there.c_str(), console->m_szName);
        return line;
    }
    const int address = console->m_settings.address;
    if (!TakesAddressFrom(controller, address)) {
        if (address >= 16)
            FormatText(line, sizeof line, "%s not moved to %s: CAN address %d is not free there", name.c_str(),
                       there.c_str(), address);
        else
            FormatText(line, sizeof line, "%s not moved to %s: no CAN address from %d to 16 is free there",
                       name.c_str(), there.c_str(), address);
        return line;
    }
    return std::string();
}

// A controller the dragged console can be moved to whole, or null.
HTREEITEM DropTarget(MANAGERVIEW* view, POINT at, std::string* refusal = nullptr)
{
    HTREEITEM target = ControllerUnder(view, at);
    if (!target)
        return NULL;
    const std::string why = RefusalOf(view, target);
    if (why.empty())
        return target;
    if (refusal)
        *refusal = why;
    return NULL;
}

POINT TreePoint(HWND hwnd, MANAGERVIEW* view, LPARAM lParam)
{
    POINT at = {(short)LOWORD(lParam), (short)HIWORD(lParam)};
    MapWindowPoints(hwnd, view->tree, &at, 1);
    return at;
}

// The dragged console takes the target's first free position; the consoles
// after it at the source move up and the free position goes to the end.
void MoveDragged(MANAGERVIEW* view, HTREEITEM target)
{
    char text[COPYTEXT_SIZE];
    HOSTINFO* object = nullptr;
    ReadItem(view->tree, view->dragged, text, sizeof text, &object);
    for (HTREEITEM child = Next(view->tree, target, TVGN_CHILD); child; child = Next(view->tree, child, TVGN_NEXT)) {
        if (!ObjectOf(view->tree, child)) {
            WriteItem(view->tree, child, text, object);
            Select(view, child);
            break;
        }
    }
    HTREEITEM gap = view->dragged;
    for (HTREEITEM next = Next(view->tree, gap, TVGN_NEXT); next; next = Next(view->tree, next, TVGN_NEXT)) {
        HOSTINFO* moving = nullptr;
        if (!ReadItem(view->tree, next, text, sizeof text, &moving) || !moving)
            break;
        WriteItem(view->tree, gap, text, moving);
        gap = next;
    }
    WriteItem(view->tree, gap, kEmpty, nullptr);
    view->dragged = NULL;
}

// The console reconnected: its first connection is the one the drop asked for.
bool ConnectedTo(const HOSTINFO* console, const std::string& connection)
{
    const STRINGITEM* first = console->m_connections.first;
    return first && first->text && connection == first->text;
}

void FinishDrop(MANAGERVIEW* view, POINT at)
{
    std::string refusal;
    HTREEITEM target = DropTarget(view, at, &refusal);
    if (!target) {
        ShowCursorResource(IDR_CURSOR_NODROP);
        if (!refusal.empty())
            EDITTRACE(view->current, "%s", refusal.c_str());
        return;
    }
    ShowCursorResource(IDR_CURSOR_DROP);
    char text[ITEMTEXT_SIZE];
    HOSTINFO* controller = nullptr;
    ReadItem(view->tree, target, text, sizeof text, &controller);
    DROPTEXT drop;
    CONSOLEPROPERTIES* console = view->current;
    const HOSTINFO* partner = console->m_pPartner;
    if (!SplitDropText(text, &drop) || !partner || !controller || !DropReachesPartnersFamily(drop, partner->m_szName) ||
        !a_FindHostinfo(drop.controller.c_str()))
        return;
    const std::string connection = drop.controller + drop.port;
    const STRINGITEM* first = console->m_connections.first;
    const std::string previous = first && first->text ? first->text : "";
    const std::string line = "connection=" + connection;
    console->OnLoad(REQMODE_EDIT, (LPARAM)line.c_str());
    if (ConnectedTo(console, connection)) {
        if (view->dragged)
            MoveDragged(view, target);
        return;
    }
    // A console the controller did not take goes back where it was, and
    // stays where the tree shows it.
    ShowCursorResource(IDR_CURSOR_NODROP);
    if (!previous.empty()) {
        const std::string back = "connection=" + previous;
        console->OnLoad(REQMODE_EDIT, (LPARAM)back.c_str());
    }
    EDITTRACE(console, "%s not moved to %s: the controller did not take it", console->m_szName,
              drop.controller.c_str());
}

void ManagerView_MouseMove(HWND hwnd, MANAGERVIEW* view, LPARAM lParam)
{
    ShowCursorResource(DropTarget(view, TreePoint(hwnd, view, lParam)) ? IDR_CURSOR_DROP : IDR_CURSOR_NODROP);
}

void ManagerView_ButtonUp(HWND hwnd, MANAGERVIEW* view, LPARAM lParam)
{
    FinishDrop(view, TreePoint(hwnd, view, lParam));
    view->dragged = NULL;
    ReleaseCapture();
}

// ---- Messages of the configuration window -------------------------------------------------

void ConsoleRenamed(MANAGERVIEW* view, HOSTINFO* object)
{
    for (HTREEITEM controller = FirstController(view->tree); controller;
         controller = Next(view->tree, controller, TVGN_NEXT))
        for (HTREEITEM item = Next(view->tree, controller, TVGN_CHILD); item; item = Next(view->tree, item, TVGN_NEXT))
            if (object && ObjectOf(view->tree, item) == object) {
                WriteItem(view->tree, item, FriendlyName(object).c_str(), object);
                return;
            }
}

// Every console on the way becomes the current one, up to the one named.
void SelectByName(MANAGERVIEW* view, const char* name)
{
    char wanted[ITEMTEXT_SIZE] = "";
    if (name)
        CopyText(wanted, name);
    for (HTREEITEM controller = FirstController(view->tree); controller;
         controller = Next(view->tree, controller, TVGN_NEXT))
        for (HTREEITEM item = Next(view->tree, controller, TVGN_CHILD); item; item = Next(view->tree, item, TVGN_NEXT)) {
            CONSOLEPROPERTIES* console = AsConsole(ObjectOf(view->tree, item));
            if (!console)
                continue;
            view->current = console;
            if (strcmp(console->m_szName, wanted) == 0) {
                Select(view, item);
                return;
            }
        }
}

LRESULT ManagerView_Notify(HWND hwnd, MANAGERVIEW* view, const NMHDR* header)
{
    if (header->hwndFrom != view->tree)
        return 0;
    const NMTREEVIEWA* change = reinterpret_cast<const NMTREEVIEWA*>(header);
    switch (header->code) {
    case TVN_BEGINDRAGA:
    case TVN_BEGINDRAGW:
        BeginDrag(hwnd, view, change);
        return 0;
    case TVN_SELCHANGINGA:
    case TVN_SELCHANGINGW:
        return SelectionChanging(view, change);
    case TVN_SELCHANGEDA:
    case TVN_SELCHANGEDW:
        SelectionChanged(hwnd, view, change);
        return 0;
    default:
        return 0;
    }
}

LRESULT ManagerView_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return ManagerView_Create(hwnd, reinterpret_cast<CREATESTRUCTA*>(lParam));
    MANAGERVIEW* view = WindowState<MANAGERVIEW>(hwnd);
    if (!view)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    const bool dragging = GetCapture() == hwnd;
    switch (message) {
    case WM_NOTIFY:
        return ManagerView_Notify(hwnd, view, reinterpret_cast<const NMHDR*>(lParam));
    case WM_MOUSEMOVE:
        if (!dragging)
            return DefWindowProcA(hwnd, message, wParam, lParam);
        ManagerView_MouseMove(hwnd, view, lParam);
        return 0;
    case WM_LBUTTONUP:
        if (!dragging)
            return DefWindowProcA(hwnd, message, wParam, lParam);
        ManagerView_ButtonUp(hwnd, view, lParam);
        return 0;
    case CFM_CONSOLERENAMED:
        ConsoleRenamed(view, reinterpret_cast<HOSTINFO*>(lParam));
        return 0;
    case CFM_SELECTBYNAME:
        SelectByName(view, reinterpret_cast<const char*>(lParam));
        return 0;
    case CFM_FOLLOWDESIGN:
        FollowDesign(hwnd, view);
        return 0;
    case WM_DESTROY:
        KillTimer(hwnd, TIMER_POLL);  // the view sets none; one set on it goes with it
        FreeWindowState<MANAGERVIEW>(hwnd);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

LRESULT CALLBACK ManagerViewWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<ManagerView_Dispatch>(hwnd, message, wParam, lParam);
}
