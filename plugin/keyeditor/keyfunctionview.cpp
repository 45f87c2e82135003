#include "keyfunctionview.h"

#include <windowsx.h>

#include "droprules.h"
#include "../device/consoleproperties.h"
#include "../device/liveconsoles.h"
#include "../entry/module.h"
#include "../keys/keycatalogue.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const COLORREF kImageMask = RGB(0xFF, 0x00, 0xFF);
const int kImageCount = 8;
const int kWorkspaceBottom = 500;  // the workspace scrolls from 0 to here

struct KEYFUNCTIONVIEW {
    CONSOLEPROPERTIES* console = nullptr;  // borrowed; the key slots live there
    HWND tree = NULL;
    HIMAGELIST images = NULL;
    int32_t dragged = -1;                  // the id of the node being dragged
    bool dragging = false;
};

// ---- The tree --------------------------------------------------------------------------

void BuildTree(KEYFUNCTIONVIEW* view)
{
    const KEYFUNCTIONNODE* nodes = KeyFunctionTree();
    HTREEITEM items[KEYFUNCTIONNODE_COUNT] = {};
    for (int i = 0; i < KEYFUNCTIONNODE_COUNT; i++) {
        TVINSERTSTRUCTA insert = {};
        insert.hParent = nodes[i].parent < 0 ? TVI_ROOT : items[nodes[i].parent];
        insert.hInsertAfter = TVI_LAST;
        insert.item.mask = TVIF_TEXT | TVIF_PARAM;
        insert.item.pszText = const_cast<char*>(nodes[i].label);
        insert.item.lParam = nodes[i].id;
        if (nodes[i].image >= 0) {
            insert.item.mask |= TVIF_IMAGE | TVIF_SELECTEDIMAGE;
            insert.item.iImage = insert.item.iSelectedImage = nodes[i].image;
        }
        items[i] = (HTREEITEM)SendMessageA(view->tree, TVM_INSERTITEMA, 0, (LPARAM)&insert);
    }
    for (int i = 0; i < KEYFUNCTIONNODE_COUNT; i++)
        if (nodes[i].id < 0)  // "Button Functions" and "Types"
            SendMessageA(view->tree, TVM_EXPAND, TVE_EXPAND, (LPARAM)items[i]);
    SendMessageA(view->tree, TVM_ENSUREVISIBLE, 0, (LPARAM)items[0]);
}

LRESULT View_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    KEYFUNCTIONVIEW* view = AttachWindowState(hwnd, new KEYFUNCTIONVIEW);
    view->console = LiveConsole(create->lpCreateParams);
    RECT client;
    GetClientRect(hwnd, &client);
    view->tree = CreateWindowExA(0, WC_TREEVIEWA, "", WS_CHILD | WS_VISIBLE | TVS_HASLINES | TVS_HASBUTTONS |
                                 TVS_LINESATROOT | TVS_SHOWSELALWAYS, 0, 0, client.right, client.bottom, hwnd,
                                 (HMENU)(INT_PTR)IDC_KEYFUNCTIONTREE, ModuleInstance(), NULL);
    SendMessageA(view->tree, WM_SETFONT, (WPARAM)a_GetFont("Tahoma, 8"), FALSE);
    view->images = ImageList_Create(16, 16, ILC_COLOR24 | ILC_MASK, kImageCount, 0);
    if (HBITMAP strip = LoadBitmapA(ModuleInstance(), MAKEINTRESOURCEA(IDB_KEYFUNCTIONTREE))) {
        ImageList_AddMasked(view->images, strip, kImageMask);
        DeleteObject(strip);
    }
    SendMessageA(view->tree, TVM_SETIMAGELIST, TVSIL_NORMAL, (LPARAM)view->images);
    BuildTree(view);
    return 0;
}

void View_Destroy(HWND hwnd, KEYFUNCTIONVIEW* view)
{
    KillTimer(hwnd, TIMER_POLL);
    if (view->images)
        ImageList_Destroy(view->images);
    FreeWindowState<KEYFUNCTIONVIEW>(hwnd);
}

// ---- Dragging ---------------------------------------------------------------------------

DROPCONSOLE DropConsoleOf(const CONSOLEPROPERTIES* c)
{
    DROPCONSOLE console;
    console.consoleType = c->m_model;
    console.extensionCount = c->m_settings.extensionCount;
    console.numericKeypad = c->m_settings.decadicSelectionActive != 0;
    for (int i = 0; i < 3; i++)
        console.specialKeys[i] = c->m_optionStates[i];
    console.protectKeys = CountKeyFunction(c->m_keys, CONSOLE_KEY_COUNT, KF_PROTECT);
    console.indicatorKeys = CountKeyFunction(c->m_keys, CONSOLE_KEY_COUNT, KF_INDICATOR_TEST);
    if (console.numericKeypad) {
        console.protectKeys += CountKeyFunction(c->m_numericKeys, CONSOLE_NUMERICKEY_COUNT, KF_PROTECT);
        console.indicatorKeys += CountKeyFunction(c->m_numericKeys, CONSOLE_NUMERICKEY_COUNT, KF_INDICATOR_TEST);
    }
    return console;
}

// The key of this console's view under a point of the tree pane; -1 elsewhere.
// The point is placed by the view's rectangle, so the hit test works in a
// window the screen does not show as well.
int KeyUnder(HWND hwnd, KEYFUNCTIONVIEW* view, LPARAM lParam, POINT* inView, HWND* target = nullptr)
{
    // The console view beside the tree, else the one the console names.
    HWND consoleView = GetDlgItem(GetParent(hwnd), IDC_CONSOLEVIEW);
    if (!consoleView && view->console)
        consoleView = view->console->m_hConsoleView;
    if (!consoleView || !IsWindow(consoleView))
        return -1;
    POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ClientToScreen(hwnd, &at);
    RECT area;
    GetWindowRect(consoleView, &area);
    if (!PtInRect(&area, at))
        return -1;
    ScreenToClient(consoleView, &at);
    *inView = at;
    if (target)
        *target = consoleView;
    int key = -1;
    if (!SendMessageA(consoleView, CVM_HITTEST, (WPARAM)&key, MAKELPARAM(at.x, at.y)))
        return -1;
    return key;
}

void View_BeginDrag(HWND hwnd, KEYFUNCTIONVIEW* view, const NMTREEVIEWA* notice)
{
    if (notice->itemNew.lParam < 0 || !view->console)
        return;  // a branch carries no function
    view->dragged = (int32_t)notice->itemNew.lParam;
    view->dragging = true;
    SetCapture(hwnd);
}

void View_Notify(HWND hwnd, KEYFUNCTIONVIEW* view, const NMHDR* header)
{
    if (header->hwndFrom == view->tree && (header->code == TVN_BEGINDRAGA || header->code == TVN_BEGINDRAGW))
        View_BeginDrag(hwnd, view, reinterpret_cast<const NMTREEVIEWA*>(header));
}

void View_MouseMove(HWND hwnd, KEYFUNCTIONVIEW* view, LPARAM lParam)
{
    if (!view->dragging)
        return;
    POINT inView;
    const int key = KeyUnder(hwnd, view, lParam, &inView);
    const bool accepted = key >= 0 && JudgeDrop(DropConsoleOf(view->console), key, view->dragged) == DROP_ACCEPTED;
    SetCursor(LoadCursorA(ModuleInstance(), MAKEINTRESOURCEA(accepted ? IDR_CURSOR_DROP : IDR_CURSOR_NODROP)));
}

// A refused drop changes nothing; an accepted one loads the new key's line
// into the key, as a design line would, and clicks the key so that it is
// selected and its page opens.
LRESULT View_Drop(HWND hwnd, KEYFUNCTIONVIEW* view, LPARAM lParam)
{
    if (!view->dragging)
        return 0;
    view->dragging = false;
    if (GetCapture() == hwnd)
        ReleaseCapture();
    POINT inView;
    HWND consoleView = NULL;
    const int key = KeyUnder(hwnd, view, lParam, &inView, &consoleView);
    if (key < 0)
        return 0;
    const DROPVERDICT verdict = JudgeDrop(DropConsoleOf(view->console), key, view->dragged);
    if (const char* warning = DropWarning(verdict))
        MessageBoxA(NULL, warning, "WARNING", MB_OK | MB_ICONWARNING | MB_TASKMODAL | MB_TOPMOST);
    if (verdict != DROP_ACCEPTED)
        return 0;
    const std::string line = DroppedKeyLine(key, view->dragged);
    view->console->OnLoad(REQMODE_EDIT, (LPARAM)line.c_str());
    view->console->NotifyConsoleView(CVM_KEYCHANGED, 0, key);
    // A running console's view would press the key on the system: there the
    // key is only selected for its page.
    if (view->console->IsOnline())
        view->console->SelectKeyForEditor(key);
    else
        SendMessageA(consoleView, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(inView.x, inView.y));
    return 1;
}

void View_CaptureChanged(HWND hwnd, KEYFUNCTIONVIEW* view)
{
    if (GetCapture() != hwnd)
        view->dragging = false;
}

LRESULT View_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return View_Create(hwnd, reinterpret_cast<const CREATESTRUCTA*>(lParam));
    KEYFUNCTIONVIEW* view = WindowState<KEYFUNCTIONVIEW>(hwnd);
    if (!view)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_DESTROY:
        View_Destroy(hwnd, view);
        return 0;
    case WM_SIZE:
        MoveWindow(view->tree, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        return 0;
    case WM_NOTIFY:
        View_Notify(hwnd, view, reinterpret_cast<const NMHDR*>(lParam));
        return 0;
    case WM_MOUSEMOVE:
        View_MouseMove(hwnd, view, lParam);
        return 0;
    case WM_SETCURSOR:  // while dragging, the cursor says whether the key takes the drop
        return view->dragging ? TRUE : DefWindowProcA(hwnd, message, wParam, lParam);
    case WM_LBUTTONUP:
        return View_Drop(hwnd, view, lParam);
    case WM_CAPTURECHANGED:
        View_CaptureChanged(hwnd, view);
        return 0;
    case KFM_SETCONSOLE:
        if (CONSOLEPROPERTIES* console = LiveConsole(reinterpret_cast<void*>(lParam)))
            view->console = console;
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

// ---- The workspace ----------------------------------------------------------------------

void Workspace_Scroll(HWND hwnd, WPARAM wParam)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(hwnd, SB_VERT, &info);
    int position = info.nPos;
    switch (LOWORD(wParam)) {
    case SB_TOP: position = 0; break;
    case SB_BOTTOM: position = kWorkspaceBottom; break;
    case SB_LINEUP: case SB_PAGEUP: position -= 10; break;
    case SB_LINEDOWN: case SB_PAGEDOWN: position += 10; break;
    case SB_THUMBPOSITION: case SB_THUMBTRACK: position = HIWORD(wParam); break;
    default: break;
    }
    position = position < 0 ? 0 : position > kWorkspaceBottom ? kWorkspaceBottom : position;
    if (position == info.nPos)
        return;
    ScrollWindowEx(hwnd, 0, info.nPos - position, NULL, NULL, NULL, NULL, SW_SCROLLCHILDREN | SW_INVALIDATE);
    SetScrollPos(hwnd, SB_VERT, position, TRUE);
}

LRESULT Workspace_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        SetScrollRange(hwnd, SB_VERT, 0, kWorkspaceBottom, FALSE);
        return 0;
    case WM_VSCROLL:
        Workspace_Scroll(hwnd, wParam);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

LRESULT CALLBACK KeyFunctionViewWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<View_Dispatch>(hwnd, message, wParam, lParam);
}

LRESULT CALLBACK KeyFunctionWorkspaceWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<Workspace_Dispatch>(hwnd, message, wParam, lParam);
}
