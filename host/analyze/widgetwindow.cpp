// The windows of the host's widgets: one procedure for the five classes,
// drawing and mouse handling by kind.
#include "widget.h"

#include <commctrl.h>
#include <windowsx.h>

#include "design.h"
#include "designtext.h"

#include "../../base/text.h"
#include "../../base/gdi.h"
#include "../../base/banned.h"

namespace {

const COLORREF kFaceColour = RGB(0xD4, 0xD0, 0xC8);
const COLORREF kFieldColour = RGB(0xFF, 0xFF, 0xCE);
const COLORREF kDisabledText = RGB(0xAC, 0xA8, 0x99);
const UINT_PTR kEditorSubclass = 1;
const int kEditorId = 100;

COLORREF Background(const WIDGET* w)
{
    if (w->attributes.backgroundColour != WIDGETCOLOUR_UNSET)
        return (COLORREF)w->attributes.backgroundColour;
    return w->kind == WIDGET_EDIT ? kFieldColour : kFaceColour;
}

HFONT FontOf(const WIDGET* w)
{
    if (w->attributes.fontFace.empty())
        return a_GetFont("MS Sans Serif,8");
    char spec[128];
    FormatText(spec, sizeof spec, "%s,%d", w->attributes.fontFace.c_str(), w->attributes.fontPoints);
    return a_GetFont(spec);
}

// Face bitmaps hold their looks side by side: a toggle's off, on and unknown,
// a button's up and down, an LED's off and on.
int FramesOf(WIDGETKIND kind)
{
    return kind == WIDGET_TRISTATE ? 3 : 2;
}

int FrameOf(const WIDGET* w)
{
    switch (w->kind) {
    case WIDGET_TRISTATE:
        return w->ToggleState();
    case WIDGET_BUTTON:
        return w->pressed ? 1 : 0;
    case WIDGET_LED:
        return w->ToggleState() == 1 ? 1 : 0;
    default:
        return 0;
    }
}

// A face narrower than its widget keeps its own width, and the caption
// centres on it: a 188-pixel button with a 118-pixel face is a 118-pixel
// button (the rest shows the widget's background). A wider face is shrunk.
RECT FaceBox(const WIDGET* w, const RECT& client)
{
    BITMAP info = {};
    RECT box = client;
    if (!w->face || !GetObjectA(w->face, sizeof info, &info) || info.bmWidth <= 0)
        return box;
    const int frames = FramesOf(w->kind);
    const int frameWidth = info.bmWidth / frames > 0 ? info.bmWidth / frames : info.bmWidth;
    if (frameWidth < box.right)
        box.right = frameWidth;
    return box;
}

void DrawFace(HDC hdc, const WIDGET* w, const RECT& box)
{
    BITMAP info = {};
    if (!w->face || !GetObjectA(w->face, sizeof info, &info) || info.bmWidth <= 0) {
        UINT state = DFCS_BUTTONPUSH;
        if (FrameOf(w) == 1)
            state |= DFCS_PUSHED;
        RECT edge = box;
        DrawFrameControl(hdc, &edge, DFC_BUTTON, state);
        return;
    }
    const int frames = FramesOf(w->kind);
    const int frameWidth = info.bmWidth / frames > 0 ? info.bmWidth / frames : info.bmWidth;
    const int frame = FrameOf(w) < frames ? FrameOf(w) : 0;
    MemoryDC memory(hdc);
    Selection face(memory, w->face);
    SetStretchBltMode(hdc, COLORONCOLOR);
    StretchBlt(hdc, box.left, box.top, box.right - box.left, box.bottom - box.top, memory, frame * frameWidth, 0,
               frameWidth, info.bmHeight, SRCCOPY);
}

void DrawText(HWND hwnd, HDC hdc, const WIDGET* w, RECT box)
{
    const std::string text = w->Label();
    if (text.empty())
        return;
    COLORREF colour = (COLORREF)w->attributes.textColour;
    if (w->pressed && w->attributes.pressedTextColour != WIDGETCOLOUR_UNSET)
        colour = (COLORREF)w->attributes.pressedTextColour;
    if (!IsWindowEnabled(hwnd))
        colour = kDisabledText;
    SetTextColor(hdc, colour);
    SetBkMode(hdc, TRANSPARENT);
    Selection font(hdc, FontOf(w));
    UINT format = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    if (w->kind == WIDGET_STATIC && w->attributes.alignLeft) {
        format |= DT_LEFT;
        box.left += 2;
    } else if (w->kind == WIDGET_TRISTATE && w->face) {
        // A switch's caption stands beside its square indicator, at the
        // left of the face, so a switch at a page's edge stays readable.
        format |= DT_LEFT;
        box.left += (box.bottom - box.top) + 4;
    } else {
        format |= DT_CENTER;
    }
    if (w->pressed)
        OffsetRect(&box, 1, 1);
    DrawTextA(hdc, text.c_str(), -1, &box, format);
}

void Widget_Draw(HWND hwnd, WIDGET* w, HDC hdc)
{
    RECT client;
    GetClientRect(hwnd, &client);
    Brush background(CreateSolidBrush(Background(w)));
    FillRect(hdc, &client, background);
    const bool faced = w->kind == WIDGET_TRISTATE || w->kind == WIDGET_BUTTON || w->kind == WIDGET_LED;
    const RECT box = faced ? FaceBox(w, client) : client;
    if (faced)
        DrawFace(hdc, w, box);
    if (w->kind != WIDGET_EDIT && w->kind != WIDGET_LED)
        DrawText(hwnd, hdc, w, box);
}

void Widget_Paint(HWND hwnd, WIDGET* w)
{
    PaintDC hdc(hwnd);
    Widget_Draw(hwnd, w, hdc);
}

void CommitEditor(WIDGET* w)
{
    char text[REQUEST_TEXT_SIZE] = "";
    GetWindowTextA(w->editor, text, sizeof text);
    if (text != w->shown)
        w->WriteVariable(w->attributes.function, text);
}

LRESULT CALLBACK EditorProc(HWND editor, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR data)
{
    WIDGET* w = reinterpret_cast<WIDGET*>(data);
    switch (message) {
    case WM_KEYDOWN:
        if (wParam == VK_RETURN) {
            CommitEditor(w);
            return 0;
        }
        break;
    case WM_KILLFOCUS:
        CommitEditor(w);
        break;
    case WM_NCDESTROY:
        RemoveWindowSubclass(editor, EditorProc, kEditorSubclass);
        break;
    }
    return DefSubclassProc(editor, message, wParam, lParam);
}

LRESULT Widget_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    const HOSTCREATE* record = static_cast<const HOSTCREATE*>(create->lpCreateParams);
    WIDGET* w = new WIDGET(WidgetKindOf(create->lpszClass), record ? record->host : nullptr,
                           record ? record->name : create->lpszName);
    w->m_hWnd = hwnd;
    SetWindowLongPtrA(hwnd, GWLP_USERDATA, (LONG_PTR)w);
    if (w->kind == WIDGET_EDIT) {
        w->editor = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 1, 1, create->cx - 2,
                                    create->cy - 2, hwnd, (HMENU)(INT_PTR)kEditorId, AnalyzeInstance(), NULL);
        SendMessageA(w->editor, WM_SETFONT, (WPARAM)FontOf(w), FALSE);
        SetWindowSubclass(w->editor, EditorProc, kEditorSubclass, (DWORD_PTR)w);
    }
    return 0;
}

LRESULT Widget_EditorColours(WIDGET* w, HDC hdc)
{
    static HBRUSH brush = NULL;  // one at a time: recreated for the colour asked
    if (brush)
        DeleteObject(brush);
    brush = CreateSolidBrush(Background(w));
    SetTextColor(hdc, (COLORREF)w->attributes.textColour);
    SetBkColor(hdc, Background(w));
    return (LRESULT)brush;
}

void Widget_ButtonDown(HWND hwnd, WIDGET* w)
{
    if (w->kind != WIDGET_BUTTON && w->kind != WIDGET_TRISTATE)
        return;
    w->pressed = w->kind == WIDGET_BUTTON;
    SetCapture(hwnd);
    InvalidateRect(hwnd, NULL, FALSE);
}

void Widget_ButtonUp(HWND hwnd, WIDGET* w, LPARAM lParam)
{
    if (GetCapture() == hwnd)
        ReleaseCapture();
    RECT client;
    GetClientRect(hwnd, &client);
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    const bool inside = PtInRect(&client, point) != FALSE;
    w->pressed = false;
    InvalidateRect(hwnd, NULL, FALSE);
    if (!inside || !IsWindowEnabled(hwnd))
        return;
    if (w->kind == WIDGET_BUTTON) {
        w->WriteVariable(w->attributes.clickVariable, w->attributes.clickValue);
    } else if (w->kind == WIDGET_TRISTATE) {
        const std::string next = w->ToggleState() == 1 ? "0" : "1";
        if (!w->WriteVariable(w->attributes.function, next) && w->attributes.connection.empty()) {
            w->shown = next;  // an unbound toggle keeps its own state
            w->known = true;
        }
    }
}

void Widget_Destroy(HWND hwnd, WIDGET* w)
{
    SetWindowLongPtrA(hwnd, GWLP_USERDATA, 0);
    delete w;
}

LRESULT CALLBACK WidgetWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return Widget_Create(hwnd, reinterpret_cast<CREATESTRUCTA*>(lParam));
    WIDGET* w = reinterpret_cast<WIDGET*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
    if (!w)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_PAINT:
        Widget_Paint(hwnd, w);
        return 0;
    case WM_PRINTCLIENT:
        Widget_Draw(hwnd, w, (HDC)wParam);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_HOST_GETHOSTINFO:
        return (LRESULT)static_cast<HOSTINFO*>(w);
    case WM_TIMER:
        w->ReadBoundValue();
        return 0;
    case WM_LBUTTONDOWN:
        Widget_ButtonDown(hwnd, w);
        return 0;
    case WM_LBUTTONUP:
        Widget_ButtonUp(hwnd, w, lParam);
        return 0;
    case WM_CTLCOLOREDIT:
        return Widget_EditorColours(w, (HDC)wParam);
    case WM_ENABLE:
        if (w->editor)
            EnableWindow(w->editor, (BOOL)wParam);
        InvalidateRect(hwnd, NULL, TRUE);
        return 0;
    case WM_DESTROY:
        Widget_Destroy(hwnd, w);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

void RegisterWidgetClasses()
{
    for (int kind = WIDGET_STATIC; kind <= WIDGET_LED; kind++) {
        WNDCLASSA wc = {};
        const char* name = WidgetClassOf((WIDGETKIND)kind);
        if (GetClassInfoA(AnalyzeInstance(), name, &wc))
            continue;
        wc.style = CS_GLOBALCLASS | CS_HREDRAW | CS_VREDRAW;
        wc.lpfnWndProc = WidgetWndProc;
        wc.hInstance = AnalyzeInstance();
        wc.hCursor = LoadCursor(NULL, IDC_ARROW);
        wc.lpszClassName = name;
        RegisterClassA(&wc);
    }
}

HWND a_CreateControl(int mode, HOSTINFO* owner, HWND parent, char* line)
{
    CONTROLSPEC spec;
    std::string error;
    if (mode != 1 || !owner || !parent || !line) {
        TRACE("a_CreateControl: mode 1 with an owner, a parent and a line, please\n");
        return NULL;
    }
    if (!ParseControlSpec(line, &spec, &error)) {
        TRACE("a_CreateControl: bad %s in \"%s\"\n", error.c_str(), line);
        return NULL;
    }
    const WIDGETKIND kind = WidgetKindOf(spec.className);
    if (kind == WIDGET_NONE || spec.name.size() >= HOSTNAME_SIZE) {
        TRACE("a_CreateControl: no widget %s \"%s\"\n", spec.className.c_str(), spec.name.c_str());
        return NULL;
    }
    RegisterWidgetClasses();
    HOSTCREATE create = {};
    create.host = owner;
    CopyText(create.name, spec.name.c_str());
    HWND widget = CreateWindowExA(spec.exStyle, WidgetClassOf(kind), spec.name.c_str(), spec.style | WS_CHILD, spec.x,
                                  spec.y, spec.cx, spec.cy, parent, NULL, AnalyzeInstance(), &create);
    if (!widget)
        return NULL;
    if (!owner->m_pChildTable)
        owner->m_pChildTable = new CHashTable;
    owner->m_pChildTable->Add(spec.name.c_str(), widget);
    return widget;
}

HWND a_FindHwnd(HOSTINFO* owner, LPCSTR name)
{
    if (!owner || !owner->m_pChildTable || !name)
        return NULL;
    HWND widget = (HWND)owner->m_pChildTable->Lookup(name);
    // A stale entry (its widget destroyed) counts as none.
    WIDGET* w = widget && IsWindow(widget) ? WidgetOf(widget) : nullptr;
    return w && strcmp(w->m_szName, name) == 0 ? widget : NULL;
}

BOOL a_GetControlText(HWND widget, LPSTR text, int size)
{
    WIDGET* w = WidgetOf(widget);
    if (!w || !text || size <= 0)
        return FALSE;
    CopyText(text, (size_t)size, w->Text().c_str());
    return TRUE;
}
