// Pictures of windows for the scripted tour and for tests, written with the
// GDI+ PNG encoder. A window and its children are asked to draw themselves
// into a bitmap (WM_PRINTCLIENT), so hidden windows can be pictured too; what
// only the screen shows (a tooltip) is copied from the screen.
#include "workbench.h"

#include <algorithm>

#include <objidl.h>  // gdiplus.h needs PROPID
#include <gdiplus.h>

#include <vector>

#include "../../base/gdi.h"
#include "../../base/banned.h"

namespace {

bool PngEncoder(CLSID* clsid)
{
    UINT count = 0, size = 0;
    if (Gdiplus::GetImageEncodersSize(&count, &size) != Gdiplus::Ok || size == 0)
        return false;
    std::vector<BYTE> buffer(size);
    Gdiplus::ImageCodecInfo* codecs = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
    if (Gdiplus::GetImageEncoders(count, size, codecs) != Gdiplus::Ok)
        return false;
    for (UINT i = 0; i < count; i++) {
        if (wcscmp(codecs[i].MimeType, L"image/png") == 0) {
            *clsid = codecs[i].Clsid;
            return true;
        }
    }
    return false;
}

bool SaveBitmap(HBITMAP bitmap, const char* path)
{
    CLSID png;
    wchar_t widePath[MAX_PATH];
    if (!PngEncoder(&png) || MultiByteToWideChar(CP_ACP, 0, path, -1, widePath, MAX_PATH) <= 0)
        return false;
    Gdiplus::Bitmap image(bitmap, NULL);
    return image.Save(widePath, &png, NULL) == Gdiplus::Ok;
}

POINT ClientOrigin(HWND window)
{
    POINT origin = {0, 0};
    ClientToScreen(window, &origin);
    return origin;
}

// A scroll bar as the system draws it: arrow buttons at both ends, the
// track, and the thumb where the scroll position puts it. area is the bar's
// rectangle in the picture.
void DrawScrollBar(HDC hdc, HWND window, RECT area, bool horizontal)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    if (IsRectEmpty(&area) || !GetScrollInfo(window, horizontal ? SB_HORZ : SB_VERT, &info))
        return;
    FillRect(hdc, &area, GetSysColorBrush(COLOR_SCROLLBAR));
    const int length = horizontal ? area.right - area.left : area.bottom - area.top;
    const int arrow = std::min(GetSystemMetrics(horizontal ? SM_CXHSCROLL : SM_CYVSCROLL), length / 2);
    RECT first = area, second = area, thumb = area;
    const int track = length - 2 * arrow;
    const int range = info.nMax - info.nMin + 1;
    int thumbStart = 0, thumbLength = 0;
    if (range > 0 && track > 0 && (int)info.nPage < range) {
        thumbLength = std::max(info.nPage ? MulDiv(track, (int)info.nPage, range) : arrow, 8);
        thumbLength = std::min(thumbLength, track);
        const int travel = range - (int)info.nPage;
        thumbStart = arrow + (travel > 0 ? MulDiv(track - thumbLength, info.nPos - info.nMin, travel) : 0);
    }
    if (horizontal) {
        first.right = first.left + arrow;
        second.left = second.right - arrow;
        thumb.left = area.left + thumbStart;
        thumb.right = thumb.left + thumbLength;
    } else {
        first.bottom = first.top + arrow;
        second.top = second.bottom - arrow;
        thumb.top = area.top + thumbStart;
        thumb.bottom = thumb.top + thumbLength;
    }
    DrawFrameControl(hdc, &first, DFC_SCROLL, horizontal ? DFCS_SCROLLLEFT : DFCS_SCROLLUP);
    DrawFrameControl(hdc, &second, DFC_SCROLL, horizontal ? DFCS_SCROLLRIGHT : DFCS_SCROLLDOWN);
    if (thumbLength > 0) {
        FillRect(hdc, &thumb, GetSysColorBrush(COLOR_BTNFACE));
        DrawEdge(hdc, &thumb, EDGE_RAISED, BF_RECT);
    }
}

// What lies between a child's frame and its client area: the client edge
// and the scroll bars (the windows pictured here have no caption). origin is
// the client origin in the picture.
void PrintNonClient(HWND window, HDC hdc, POINT origin, const RECT& clip)
{
    RECT frame;
    GetWindowRect(window, &frame);
    const POINT clientOrigin = ClientOrigin(window);
    const POINT at = {origin.x - (clientOrigin.x - frame.left), origin.y - (clientOrigin.y - frame.top)};
    RECT outline = {at.x, at.y, at.x + frame.right - frame.left, at.y + frame.bottom - frame.top};
    const int saved = SaveDC(hdc);
    IntersectClipRect(hdc, clip.left, clip.top, clip.right, clip.bottom);
    const LONG exStyle = GetWindowLongA(window, GWL_EXSTYLE), style = GetWindowLongA(window, GWL_STYLE);
    if (exStyle & WS_EX_CLIENTEDGE)
        DrawEdge(hdc, &outline, EDGE_SUNKEN, BF_RECT);
    // The bars' rectangles come in screen coordinates.
    const LONG bars[2] = {OBJID_HSCROLL, OBJID_VSCROLL};
    const LONG shown[2] = {WS_HSCROLL, WS_VSCROLL};
    for (int i = 0; i < 2; i++) {
        SCROLLBARINFO bar = {};
        bar.cbSize = sizeof bar;
        if (!(style & shown[i]) || !GetScrollBarInfo(window, bars[i], &bar) ||
            (bar.rgstate[0] & STATE_SYSTEM_INVISIBLE))
            continue;
        RECT area = bar.rcScrollBar;
        OffsetRect(&area, at.x - frame.left, at.y - frame.top);
        DrawScrollBar(hdc, window, area, i == 0);
    }
    RestoreDC(hdc, saved);
}

// Draws the window at origin (its client origin), then its visible children
// on top, the bottom of the z-order first. Each window draws into a surface
// of its own whose origin is its client origin, as on the screen: the
// system's controls (STATIC, BUTTON) clip their drawing to their client
// rectangle in device coordinates, so a shifted viewport would leave them
// drawing nothing. The surface starts as a copy of what lies behind the
// window, so controls that draw transparently show their parent's background.
void PrintTree(HWND window, HDC hdc, POINT origin, const RECT& clip, const RECT& frameClip)
{
    PrintNonClient(window, hdc, origin, frameClip);
    RECT client;
    GetClientRect(window, &client);
    if (client.right > 0 && client.bottom > 0) {
        Bitmap surface(CreateCompatibleBitmap(hdc, client.right, client.bottom));
        MemoryDC own(hdc);
        Selection selected(own, surface);
        BitBlt(own, 0, 0, client.right, client.bottom, hdc, origin.x, origin.y, SRCCOPY);
        // A window that leaves its background to its class brush is erased
        // first, as before it paints on the screen.
        if (GetClassLongPtrA(window, GCLP_HBRBACKGROUND))
            SendMessageA(window, WM_ERASEBKGND, (WPARAM)(HDC)own, 0);
        SendMessageA(window, WM_PRINTCLIENT, (WPARAM)(HDC)own, PRF_CLIENT | PRF_ERASEBKGND);
        const int saved = SaveDC(hdc);
        IntersectClipRect(hdc, clip.left, clip.top, clip.right, clip.bottom);
        BitBlt(hdc, origin.x, origin.y, client.right, client.bottom, own, 0, 0, SRCCOPY);
        RestoreDC(hdc, saved);
    }

    const POINT windowOrigin = ClientOrigin(window);
    HWND child = GetWindow(window, GW_CHILD);
    for (child = child ? GetWindow(child, GW_HWNDLAST) : NULL; child; child = GetWindow(child, GW_HWNDPREV)) {
        if (!(GetWindowLongA(child, GWL_STYLE) & WS_VISIBLE))
            continue;
        const POINT childOrigin = ClientOrigin(child);
        RECT childClient, childFrame;
        GetClientRect(child, &childClient);
        GetWindowRect(child, &childFrame);
        const POINT at = {origin.x + childOrigin.x - windowOrigin.x, origin.y + childOrigin.y - windowOrigin.y};
        RECT childClip = {at.x, at.y, at.x + childClient.right, at.y + childClient.bottom};
        IntersectRect(&childClip, &childClip, &clip);
        OffsetRect(&childFrame, at.x - childOrigin.x, at.y - childOrigin.y);
        IntersectRect(&childFrame, &childFrame, &clip);
        if (!IsRectEmpty(&childFrame))
            PrintTree(child, hdc, at, childClip, childFrame);
    }
}

void PumpFor(DWORD milliseconds)
{
    const DWORD start = GetTickCount();
    MSG msg;
    do {
        while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
        }
        Sleep(10);
    } while (GetTickCount() - start < milliseconds);
}

}  // namespace

bool SaveWindowPicture(HWND window, const char* path, const SIZE* limit)
{
    RECT client;
    GetClientRect(window, &client);
    if (limit) {
        client.right = std::min(client.right, limit->cx);
        client.bottom = std::min(client.bottom, limit->cy);
    }
    if (client.right <= 0 || client.bottom <= 0)
        return false;
    WindowDC screen(NULL);
    Bitmap bitmap(CreateCompatibleBitmap(screen, client.right, client.bottom));
    {
        MemoryDC memory(screen);
        Selection selected(memory, bitmap);
        PatBlt(memory, 0, 0, client.right, client.bottom, WHITENESS);
        PrintTree(window, memory, POINT{0, 0}, client, client);
    }
    return SaveBitmap(bitmap, path);
}

bool SaveScreenPicture(HWND window, const char* path)
{
    HWND top = GetAncestor(window, GA_ROOT);
    if (!IsWindowVisible(top))
        ShowWindow(top, SW_SHOWNOACTIVATE);
    RedrawWindow(top, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    PumpFor(100);
    RECT rect;
    GetWindowRect(top, &rect);
    const int width = rect.right - rect.left, height = rect.bottom - rect.top;
    WindowDC screen(NULL);
    Bitmap bitmap(CreateCompatibleBitmap(screen, width, height));
    {
        MemoryDC memory(screen);
        Selection selected(memory, bitmap);
        BitBlt(memory, 0, 0, width, height, screen, rect.left, rect.top, SRCCOPY);
    }
    return SaveBitmap(bitmap, path);
}

void PumpMessagesFor(DWORD milliseconds)
{
    PumpFor(milliseconds);
}
