#include "frames.h"

#include "palette.h"

#include "../../base/gdi.h"
#include "../../base/banned.h"

namespace {

struct FRAMECOLOURS {
    COLORREF outerTopLeft, outerBottomRight;
    COLORREF innerTopLeft, innerBottomRight;
    bool inner;
};

FRAMECOLOURS ColoursOf(int state)
{
    switch (state) {
    case 3:
        return {kFrameShadow, kFrameShadow, 0, 0, false};
    case 4: case 5: case 6:
        return {kFrameShadow, kWhite, kFrameDark, kFrameLight, true};
    case 8:
        return {kFrameShadow, kWhite, 0, 0, false};
    case 7: case 9:
        return {kFrameLight, kFrameDark, kSpinInnerLight, kFrameShadow, true};
    default:  // 0, 1, 2
        return {kFrameLight, kFrameDark, kWhite, kFrameShadow, true};
    }
}

void Edge(HDC hdc, const RECT& r, COLORREF topLeft, COLORREF bottomRight)
{
    Pen light(CreatePen(PS_SOLID, 1, topLeft));
    Pen dark(CreatePen(PS_SOLID, 1, bottomRight));
    {
        Selection pen(hdc, light);
        MoveToEx(hdc, r.left, r.bottom - 1, NULL);
        LineTo(hdc, r.left, r.top);
        LineTo(hdc, r.right - 1, r.top);
    }
    Selection pen(hdc, dark);
    LineTo(hdc, r.right - 1, r.bottom - 1);
    LineTo(hdc, r.left - 1, r.bottom - 1);
}

}  // namespace

int ButtonPartState(bool spin, bool disabled, bool buttonDown, bool cursorInside)
{
    if (disabled)
        return spin ? PART_SPIN_DISABLED : PART_DISABLED;
    if (buttonDown && cursorInside)
        return spin ? PART_SPIN_PRESSED : PART_PRESSED;
    return spin ? PART_SPIN : PART_NORMAL;
}

bool DrawStateFrame(HDC hdc, const RECT& rect, int state)
{
    const FRAMECOLOURS c = ColoursOf(state);
    Edge(hdc, rect, c.outerTopLeft, c.outerBottomRight);
    if (c.inner) {
        RECT inner = rect;
        InflateRect(&inner, -1, -1);
        Edge(hdc, inner, c.innerTopLeft, c.innerBottomRight);
    }
    return c.inner;
}

void DrawArrowGlyph(HDC hdc, RECT rect, char glyph, int height, bool enabled, bool firstHalf, bool horizontal)
{
    FontHandle marlett(CreateFontA(height, 0, 0, 0, 100, FALSE, FALSE, FALSE, SYMBOL_CHARSET, OUT_DEFAULT_PRECIS,
                                   CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, "Marlett"));
    Selection font(hdc, marlett);
    const int oldMode = SetBkMode(hdc, TRANSPARENT);
    OffsetRect(&rect, 1, firstHalf ? 1 : 0);
    if (horizontal)
        rect.left += firstHalf ? 3 : -2;
    const char text[2] = {glyph, '\0'};
    const UINT format = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
    if (!enabled) {
        RECT shadow = rect;
        OffsetRect(&shadow, 1, 0);
        SetTextColor(hdc, kWhite);
        DrawTextA(hdc, text, 1, &shadow, format);
        SetTextColor(hdc, kFrameShadow);
    } else {
        SetTextColor(hdc, RGB(0, 0, 0));
    }
    DrawTextA(hdc, text, 1, &rect, format);
    SetBkMode(hdc, oldMode);
}

void PaintButtonPart(HDC hdc, const RECT& part, int state, COLORREF face, char glyph, int glyphHeight, bool firstHalf,
                     bool horizontal)
{
    const int width = part.right - part.left, height = part.bottom - part.top;
    if (width <= 0 || height <= 0)
        return;
    MemoryDC memory(hdc);
    Bitmap bitmap(CreateCompatibleBitmap(hdc, width, height));
    Selection selected(memory, bitmap);
    RECT local = {0, 0, width, height};
    const bool inner = DrawStateFrame(memory, local, state);
    InflateRect(&local, inner ? -2 : -1, inner ? -2 : -1);
    Brush brush(CreateSolidBrush(face));
    FillRect(memory, &local, brush);
    const bool enabled = state != PART_DISABLED && state != PART_SPIN_DISABLED;
    DrawArrowGlyph(memory, local, glyph, glyphHeight, enabled, firstHalf, horizontal);
    BitBlt(hdc, part.left, part.top, width, height, memory, 0, 0, SRCCOPY);
}
