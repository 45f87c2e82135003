#include "flatcontrols.h"

#include <commctrl.h>
#include <windowsx.h>

#include "analyze.h"
#include "frames.h"
#include "palette.h"

#include "../../base/gdi.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const UINT_PTR kSpinSubclass = 0x5B1;

// Module-wide measures of the flat combo box, from the system's metrics.
int DropButtonWidth()
{
    return GetSystemMetrics(SM_CXVSCROLL);
}

}  // namespace

int ReferenceFontHeight()
{
    return GetSystemMetrics(SM_CYMENU) + 4;  // about a combo box's height
}

namespace {

bool ButtonDown()
{
    return (GetAsyncKeyState(VK_LBUTTON) & 0x8000) != 0;
}

bool CursorIn(HWND window, const RECT& part)
{
    POINT cursor;
    GetCursorPos(&cursor);
    ScreenToClient(window, &cursor);
    return PtInRect(&part, cursor) != FALSE;
}

void PaintSpin(HWND spin)
{
    WindowDC hdc(spin);
    RECT client;
    GetClientRect(spin, &client);
    char parentClass[64] = "";
    GetClassNameA(GetParent(spin), parentClass, sizeof parentClass);
    if (!IsDateTimePickerClass(parentClass))
        DrawStateFrame(hdc, client, PART_SUNKEN);
    const bool disabled = !IsWindowEnabled(spin);
    RECT upper = client, lower = client;
    upper.bottom = (client.top + client.bottom) / 2;
    lower.top = upper.bottom;
    PaintButtonPart(hdc, upper, ButtonPartState(true, disabled, ButtonDown(), CursorIn(spin, upper)), kFaceColour, 't',
                    7, true, false);
    PaintButtonPart(hdc, lower, ButtonPartState(true, disabled, ButtonDown(), CursorIn(spin, lower)), kFaceColour, 'u',
                    7, false, false);
}

LRESULT Spin_Dispatch(HWND spin, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR)
{
    switch (message) {
    case WM_PAINT: {
        const LRESULT painted = DefSubclassProc(spin, message, wParam, lParam);
        PaintSpin(spin);
        return painted;
    }
    case WM_LBUTTONDOWN: {
        const LRESULT acted = DefSubclassProc(spin, message, wParam, lParam);
        InvalidateRect(spin, NULL, FALSE);
        return acted;
    }
    case WM_DESTROY:
        RemoveWindowSubclass(spin, GuardedSubclassProc<Spin_Dispatch>, kSpinSubclass);
        break;
    }
    return DefSubclassProc(spin, message, wParam, lParam);
}

}  // namespace

void DrawOwnerPushButton(const DRAWITEMSTRUCT* item)
{
    const bool disabled = (item->itemState & ODS_DISABLED) != 0;
    const bool pushed = (item->itemState & ODS_SELECTED) != 0;
    RECT rect = item->rcItem;
    UINT state = DFCS_BUTTONPUSH | DFCS_ADJUSTRECT;
    if (disabled)
        state |= DFCS_INACTIVE;
    if (pushed)
        state |= DFCS_PUSHED;
    DrawFrameControl(item->hDC, &rect, DFC_BUTTON, state);

    Brush face(CreateSolidBrush(kFaceColour));
    FillRect(item->hDC, &rect, face);
    HBRUSH border = GetSysColorBrush(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
    FrameRect(item->hDC, &rect, border);
    if ((item->itemState & ODS_FOCUS) && !(item->itemState & ODS_NOFOCUSRECT)) {
        RECT focus = rect;
        InflateRect(&focus, -2, -2);
        DrawFocusRect(item->hDC, &focus);
    }
    char caption[256] = "";
    GetWindowTextA(item->hwndItem, caption, sizeof caption);
    if (pushed)
        OffsetRect(&rect, 2, 2);
    SetBkMode(item->hDC, TRANSPARENT);
    SetTextColor(item->hDC, disabled ? kFrameShadow : GetSysColor(COLOR_BTNTEXT));
    DrawTextA(item->hDC, caption, -1, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

LRESULT DialogColours(UINT message, HDC hdc)
{
    switch (message) {
    case WM_CTLCOLOREDIT:
        SetBkColor(hdc, kFieldColour);
        return (LRESULT)a_GetObject(HOSTOBJECT_BACKGROUNDBRUSH);
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORSTATIC:
        SetBkColor(hdc, kFaceColour);
        return (LRESULT)a_GetObject(HOSTOBJECT_FACEBRUSH);
    case WM_CTLCOLORDLG:
        return (LRESULT)a_GetObject(HOSTOBJECT_FACEBRUSH);
    default:
        return 0;
    }
}

bool FlatDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, INT_PTR* result)
{
    switch (message) {
    case WM_DRAWITEM:
        DrawOwnerPushButton(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        *result = TRUE;
        return true;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORDLG:
        *result = (INT_PTR)DialogColours(message, (HDC)wParam);
        return true;
    default:
        return false;
    }
}

void PaintFlatCombo(HWND combo, HDC hdc)
{
    RECT client;
    GetClientRect(combo, &client);
    Brush field(CreateSolidBrush(kFieldColour));
    FillRect(hdc, &client, field);

    RECT text = client;
    text.right -= DropButtonWidth();
    InflateRect(&text, -3, -3);
    const bool dropped = SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0) != 0;
    const bool disabled = !IsWindowEnabled(combo);
    if (GetFocus() == combo && !dropped) {
        FillRect(hdc, &text, GetSysColorBrush(COLOR_HIGHLIGHT));
        SetTextColor(hdc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    } else {
        SetTextColor(hdc, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
    }
    char selection[256] = "";
    const LRESULT index = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    if (index != CB_ERR && SendMessageA(combo, CB_GETLBTEXTLEN, (WPARAM)index, 0) < (LRESULT)sizeof selection)
        SendMessageA(combo, CB_GETLBTEXT, (WPARAM)index, (LPARAM)selection);
    {
        FontHandle font(CreateFontA(ReferenceFontHeight() - 8, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                    OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH,
                                    "MS Sans Serif"));
        Selection selected(hdc, font);
        SetBkMode(hdc, TRANSPARENT);
        DrawTextA(hdc, selection, -1, &text, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    }

    RECT arrow = client;
    arrow.left = client.right - DropButtonWidth();
    const int state = ButtonPartState(false, disabled, ButtonDown(), CursorIn(combo, arrow));
    PaintButtonPart(hdc, arrow, state, kFaceColour, 'u', (arrow.bottom - arrow.top) - 3, false, false);
}

bool IsDateTimePickerClass(const char* parentClass)
{
    return strncmp(parentClass, "SysDateTimePick32", strlen(parentClass)) == 0;
}

bool SubclassSpin(HWND spin)
{
    return SetWindowSubclass(spin, GuardedSubclassProc<Spin_Dispatch>, kSpinSubclass, 0) != FALSE;
}
