// The design surface: the parent of the objects' windows. While the design
// is edited, objects hand their mouse input to it (canvases post it, the
// host's controllers are transparent), and it selects, moves and offers the
// context menu of the object under the cursor.
#include "workbench.h"

#include <windowsx.h>

#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

struct SURFACE {
    WORKBENCH* bench;
    HOSTINFO* dragged;  // the object being moved, while the button is down
    POINT grab;         // where in the object it was taken
};

struct OBJECTSEARCH {
    HWND window;
    HOSTINFO* found;
};

BOOL MatchWindow(HOSTINFO* obj, void* context)
{
    OBJECTSEARCH* search = static_cast<OBJECTSEARCH*>(context);
    if (obj->m_hWnd != search->window)
        return TRUE;
    search->found = obj;
    return FALSE;
}

void Select(HWND hwnd, SURFACE* surface, HOSTINFO* obj)
{
    a_SetSelection(surface->bench->design, obj);
    if (surface->bench->properties)
        ShowProperties(surface->bench->properties, obj);
}

void Surface_ButtonDown(HWND hwnd, SURFACE* surface, LPARAM lParam)
{
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    HOSTINFO* obj = ObjectAt(hwnd, point);
    Select(hwnd, surface, obj);
    if (!obj)
        return;
    RECT rect;
    GetWindowRect(obj->m_hWnd, &rect);
    MapWindowPoints(NULL, hwnd, reinterpret_cast<POINT*>(&rect), 2);
    surface->dragged = obj;
    surface->grab = {point.x - rect.left, point.y - rect.top};
    SetCapture(hwnd);
}

void Surface_Drag(HWND hwnd, SURFACE* surface, LPARAM lParam)
{
    HOSTINFO* obj = surface->dragged;
    if (!obj)
        return;
    const int x = GET_X_LPARAM(lParam) - surface->grab.x;
    const int y = GET_Y_LPARAM(lParam) - surface->grab.y;
    if (x == obj->m_rect.left && y == obj->m_rect.top)
        return;
    SetWindowPos(obj->m_hWnd, NULL, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    OffsetRect(&obj->m_rect, x - obj->m_rect.left, y - obj->m_rect.top);
    obj->m_wFlags |= HOSTFLAG_EDITED;
}

void Surface_ButtonUp(SURFACE* surface)
{
    surface->dragged = nullptr;
    if (GetCapture())
        ReleaseCapture();
}

void Surface_ContextMenu(HWND hwnd, SURFACE* surface, LPARAM lParam)
{
    POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    HOSTINFO* obj = ObjectAt(hwnd, point);
    Select(hwnd, surface, obj);
    if (!obj)
        return;
    HMENU menu = BuildContextMenu(obj);
    ClientToScreen(hwnd, &point);
    const UINT command = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, point.x, point.y, 0, hwnd, NULL);
    DestroyMenu(menu);
    RunContextCommand(surface->bench, obj, command);
}

LRESULT CALLBACK SurfaceWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE) {
        const CREATESTRUCTA* create = reinterpret_cast<CREATESTRUCTA*>(lParam);
        AttachWindowState(hwnd, new SURFACE{(WORKBENCH*)create->lpCreateParams, nullptr, {}});
        return 0;
    }
    SURFACE* surface = WindowState<SURFACE>(hwnd);
    if (!surface)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_LBUTTONDOWN:
        Surface_ButtonDown(hwnd, surface, lParam);
        return 0;
    case WM_MOUSEMOVE:
        Surface_Drag(hwnd, surface, lParam);
        return 0;
    case WM_LBUTTONUP:
        if (surface->dragged)
            Surface_ButtonUp(surface);
        return 0;
    case WM_CAPTURECHANGED:
        surface->dragged = (HWND)lParam == hwnd ? surface->dragged : nullptr;
        return 0;
    case WM_RBUTTONDOWN:
        Surface_ContextMenu(hwnd, surface, lParam);
        return 0;
    case WM_PRINTCLIENT:
        SendMessageA(hwnd, WM_ERASEBKGND, wParam, 0);
        return 0;
    case WM_DESTROY:
        FreeWindowState<SURFACE>(hwnd);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

const char kSurfaceClass[] = "DovrixcDesignSurface";

bool RegisterSurfaceClass(HINSTANCE instance)
{
    WNDCLASSEXA surface = {};
    surface.cbSize = sizeof surface;
    surface.lpfnWndProc = SurfaceWndProc;
    surface.hInstance = instance;
    surface.hCursor = LoadCursor(NULL, IDC_ARROW);
    surface.hbrBackground = (HBRUSH)GetStockObject(WHITE_BRUSH);
    surface.lpszClassName = kSurfaceClass;
    return RegisterClassExA(&surface) != 0;
}

HOSTINFO* ObjectOfWindow(HWND window)
{
    OBJECTSEARCH search = {window, nullptr};
    if (window)
        a_EnumHostinfo(MatchWindow, &search);
    return search.found;
}

HOSTINFO* ObjectAt(HWND surface, POINT point)
{
    // Controllers are transparent to the mouse: look through every child.
    for (HWND child = GetWindow(surface, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT rect;
        GetWindowRect(child, &rect);
        MapWindowPoints(NULL, surface, reinterpret_cast<POINT*>(&rect), 2);
        if ((GetWindowLongA(child, GWL_STYLE) & WS_VISIBLE) && PtInRect(&rect, point))
            if (HOSTINFO* obj = ObjectOfWindow(child))
                return obj;
    }
    return nullptr;
}
