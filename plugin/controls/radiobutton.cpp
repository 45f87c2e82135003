#include "radiobutton.h"

#include <windowsx.h>

#include "analyze.h"
#include "palette.h"

#include "../../base/gdi.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

struct RADIOBUTTON {
    WORD state;
    COLORREF face;
    COLORREF text;
    COLORREF disabledText;
};

bool Checked(const RADIOBUTTON* b)
{
    return (b->state & RADIO_CHECKED) != 0;
}

bool Inside(HWND hwnd, LPARAM lParam)
{
    RECT client;
    GetClientRect(hwnd, &client);
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    return PtInRect(&client, point) != FALSE;
}

void Repaint(HWND hwnd)
{
    InvalidateRect(hwnd, NULL, FALSE);
    UpdateWindow(hwnd);
}

void Radio_Draw(HWND hwnd, RADIOBUTTON* b, HDC hdc)
{
    RECT rect;
    GetClientRect(hwnd, &rect);
    const bool disabled = !IsWindowEnabled(hwnd);
    const bool pushed = (b->state & (RADIO_PRESSED | RADIO_CHECKED)) && !(b->state & RADIO_NORMAL);
    UINT frame = DFCS_BUTTONPUSH | DFCS_ADJUSTRECT;
    if (pushed)
        frame |= DFCS_PUSHED;
    if (disabled)
        frame |= DFCS_INACTIVE;
    DrawFrameControl(hdc, &rect, DFC_BUTTON, frame);
    Brush face(CreateSolidBrush(b->face));
    FillRect(hdc, &rect, face);
    FrameRect(hdc, &rect, GetSysColorBrush(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    if (GetFocus() == hwnd) {
        RECT focus = rect;
        InflateRect(&focus, -2, -2);
        DrawFocusRect(hdc, &focus);
    }
    char caption[256] = "";
    GetWindowTextA(hwnd, caption, sizeof caption);
    if (pushed)
        OffsetRect(&rect, 2, 2);
    Selection font(hdc, a_GetFont("ms sans serif,8"));
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, disabled ? b->disabledText : b->text);
    DrawTextA(hdc, caption, -1, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

void Radio_Paint(HWND hwnd, RADIOBUTTON* b)
{
    PaintDC hdc(hwnd);
    Radio_Draw(hwnd, b, hdc);
}

void Radio_ButtonDown(HWND hwnd, RADIOBUTTON* b, LPARAM lParam)
{
    if (!Inside(hwnd, lParam))
        return;
    SetFocus(hwnd);
    SetCapture(hwnd);
    if (!Checked(b))
        b->state = RADIO_PRESSED;
    Repaint(hwnd);
}

void Radio_MouseMove(HWND hwnd, RADIOBUTTON* b, LPARAM lParam)
{
    if (GetCapture() != hwnd || Checked(b))
        return;
    if (!Inside(hwnd, lParam)) {
        if (b->state == RADIO_PRESSED)
            b->state = RADIO_NORMAL;
    } else {
        b->state = GetFocus() == hwnd ? RADIO_PRESSED : RADIO_NORMAL;
    }
    Repaint(hwnd);
}

bool StartsGroup(HWND window)
{
    return (GetWindowLongA(window, GWL_STYLE) & WS_GROUP) != 0;
}

// Unchecks the other buttons of the dialog group the button belongs to: the
// siblings from the last WS_GROUP window up to the next one, disabled and
// hidden ones included (GetNextDlgGroupItem would skip those).
void UncheckGroup(HWND hwnd)
{
    HWND first = hwnd;
    while (!StartsGroup(first)) {
        HWND previous = GetWindow(first, GW_HWNDPREV);
        if (!previous)
            break;
        first = previous;
    }
    for (HWND other = first; other; other = GetWindow(other, GW_HWNDNEXT)) {
        if (other != first && StartsGroup(other))
            break;
        if (other != hwnd)
            SendMessageA(other, RBM_SETSTATE, RADIO_NORMAL, 0);
    }
}

void Radio_ButtonUp(HWND hwnd, RADIOBUTTON* b, LPARAM lParam)
{
    if (GetCapture() != hwnd)
        return;
    ReleaseCapture();
    if (Inside(hwnd, lParam)) {
        UncheckGroup(hwnd);
        b->state = RADIO_CHECKED;
    } else if (!Checked(b)) {
        b->state = RADIO_NORMAL;
    }
    Repaint(hwnd);
    if (Checked(b))
        SendMessageA(GetParent(hwnd), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd), RBN_CHECKED), (LPARAM)hwnd);
}

LRESULT Radio_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE) {
        AttachWindowState(hwnd, new RADIOBUTTON{RADIO_NORMAL, kFaceColour, RGB(0, 0, 0), kFrameShadow});
        return 0;
    }
    RADIOBUTTON* b = WindowState<RADIOBUTTON>(hwnd);
    if (!b)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case RBM_SETSTATE:
        b->state = (WORD)wParam;
        InvalidateRect(hwnd, NULL, TRUE);
        return 0;
    case BM_SETCHECK:
        b->state = wParam == BST_CHECKED ? RADIO_CHECKED : RADIO_NORMAL;
        InvalidateRect(hwnd, NULL, TRUE);
        return 0;
    case BM_GETCHECK:
        return Checked(b) ? BST_CHECKED : BST_UNCHECKED;
    case RBM_SETFACECOLOUR:
        b->face = (COLORREF)wParam;
        return 0;
    case RBM_SETTEXTCOLOUR:
        b->text = (COLORREF)wParam;
        return 0;
    case WM_LBUTTONDOWN:
        Radio_ButtonDown(hwnd, b, lParam);
        return 0;
    case WM_MOUSEMOVE:
        Radio_MouseMove(hwnd, b, lParam);
        return 0;
    case WM_LBUTTONUP:
        Radio_ButtonUp(hwnd, b, lParam);
        return 0;
    case WM_KILLFOCUS:
        InvalidateRect(hwnd, NULL, FALSE);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        Radio_Paint(hwnd, b);
        return 0;
    case WM_PRINTCLIENT:
        Radio_Draw(hwnd, b, (HDC)wParam);
        return 0;
    case WM_DESTROY:
        FreeWindowState<RADIOBUTTON>(hwnd);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

LRESULT CALLBACK RadioButtonWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<Radio_Dispatch>(hwnd, message, wParam, lParam);
}
