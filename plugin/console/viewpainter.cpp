// Painting the console view and the control panel: the pictures, every key
// double-buffered on its own, the label boxes, the LED marks and the selection.
#include "viewstate.h"

#include <memory>

#include "viewimages.h"
#include "../device/consoleproperties.h"
#include "../entry/fonts.h"

#include "../../base/gdi.h"
#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

using namespace Gdiplus;

const ARGB kKeyFill = 0xFFBFBFBF;
const ARGB kBoardFill = 0xFF339966;
const ARGB kKeyLabelInk = 0xFFFFFFFF;
const ARGB kLabelBoxInk = 0xFF494949;
const ARGB kLabelBoxFill = 0xFFE5E5E5;
const COLORREF kViewBackground = RGB(0xD4, 0xD0, 0xC8);
const COLORREF kSelectionColour = RGB(0x00, 0x66, 0xCC);

// A bitmap of its own to draw one element into before it goes on screen.
class Offscreen {
public:
    Offscreen(HDC compatible, int width, int height)
        : m_dc(compatible), m_bitmap(CreateCompatibleBitmap(compatible, width > 0 ? width : 1, height > 0 ? height : 1)),
          m_selection(m_dc, m_bitmap)
    {
    }
    operator HDC() const { return m_dc; }

private:
    MemoryDC m_dc;
    ::Bitmap m_bitmap;
    Selection m_selection;
};

// Draws a source rectangle of a decoded image onto a device context.
void DrawImagePart(HDC hdc, GpImage* image, int x, int y, int width, int height, int sourceX, int sourceY)
{
    GpGraphics* graphics = nullptr;
    if (!image || DllExports::GdipCreateFromHDC(hdc, &graphics) != Ok)
        return;
    DllExports::GdipDrawImageRectRectI(graphics, image, x, y, width, height, sourceX, sourceY, width, height, UnitPixel,
                                       nullptr, nullptr, nullptr);
    DllExports::GdipDeleteGraphics(graphics);
}

// Labels are ANSI texts; GDI+ draws wide ones.
std::wstring Wide(const char* text)
{
    wchar_t wide[KEYTEXT_LENGTH * 2] = L"";
    if (!MultiByteToWideChar(CP_ACP, 0, text, -1, wide, (int)(sizeof wide / sizeof wide[0])))
        wide[0] = L'\0';
    return wide;
}

KEYLOOK LookOf(const CONSOLEVIEW* view, const CONSOLEKEY& key, int baseFrame)
{
    const CONSOLEPROPERTIES* c = view->console;
    KEYLOOK look = {};
    look.type = ConsoleType(view);
    look.keyId = key.id;
    look.functionId = key.id >= 0 && key.id < CONSOLE_KEY_COUNT ? c->m_keys[key.id].functionId : 0;
    look.baseFrame = baseFrame;
    look.specialMode = key.id >= KEY_SPECIAL_FIRST && key.id <= KEY_SPECIAL_LAST ? c->m_optionStates[key.id - KEY_SPECIAL_FIRST] : 0;
    look.numericKeys = c->m_settings.decadicSelectionActive != 0;
    look.indicatorState = c->GlobalIndicatorState();
    return look;
}

// One key into its own surface, then onto target at (x, y).
void DrawKey(HDC target, int x, int y, const CONSOLEVIEW* view, CONSOLEKEY* key, int baseFrame)
{
    GpImage* strip = ConsoleViewImage(key->image);
    int stripWidth = 0, stripHeight = 0;
    ConsoleViewImageSize(key->image, &stripWidth, &stripHeight);
    const KEYFRAME frame = ChooseKeyFrame(LookOf(view, *key, baseFrame), stripWidth, key->frameWidth);
    key->frameWidth = frame.frameWidth;
    const int width = key->frameWidth, height = key->frameHeight;
    if (width <= 0 || height <= 0)
        return;

    Offscreen surface(target, width, height);
    {
        Graphics graphics(surface);
        SolidBrush grey{Color(kKeyFill)};
        SolidBrush green{Color(kBoardFill)};
        graphics.FillRectangle(IsBoardView(ConsoleType(view)) ? &green : &grey, 0, 0, width, height);
    }
    DrawImagePart(surface, strip, 0, 0, width, height, frame.sourceX, 0);
    {
        Graphics graphics(surface);
        SolidBrush white{Color(kKeyLabelInk)};
        if (key->id < KEY_SPECIAL_FIRST || key->id > KEY_SPECIAL_LAST) {
            if (std::unique_ptr<FontFamily> family = OutlineFontFamily(L"Small Fonts")) {
                Font font(family.get(), 5.0f, FontStyleRegular, UnitPoint);
                // Right-aligned up to 2 pixels left of the lower right corner,
                // from 9 pixels above it: a layout box that ends there.
                std::unique_ptr<StringFormat> format(StringFormat::GenericTypographic()->Clone());
                format->SetAlignment(StringAlignmentFar);
                format->SetFormatFlags(format->GetFormatFlags() | StringFormatFlagsNoWrap | StringFormatFlagsNoClip);
                const std::wstring label = Wide(key->label);
                graphics.DrawString(label.c_str(), -1, &font, RectF(0, (REAL)(height - 9), (REAL)(width - 2), 9),
                                    format.get(), &white);
            }
        }
    }
    BitBlt(target, x, y, width, height, surface, 0, 0, SRCCOPY);
}

void DrawLabelBoxes(Graphics& graphics, const CONSOLEVIEW* view, int dx)
{
    std::unique_ptr<FontFamily> family = OutlineFontFamily(L"Arial");
    if (!family)
        return;
    Font font(family.get(), 8.0f, FontStyleRegular, UnitPoint);
    StringFormat format(StringFormatFlagsNoWrap);
    format.SetAlignment(StringAlignmentNear);
    format.SetLineAlignment(StringAlignmentCenter);
    format.SetTrimming(StringTrimmingEllipsisCharacter);
    SolidBrush ink{Color(kLabelBoxInk)};
    SolidBrush box{Color(kLabelBoxFill)};
    for (const CONSOLEKEYLABEL& label : view->labels) {
        const RectF rect(label.x + (REAL)dx, label.y, label.width, label.height);
        graphics.FillRectangle(&box, rect);
        if (label.key < 0 || label.key >= CONSOLE_KEY_COUNT)
            continue;
        const std::wstring text = Wide(view->console->m_settings.keyLabels[label.key]);
        graphics.DrawString(text.c_str(), -1, &font, rect, &format, &ink);
    }
}

void DrawLed(HDC hdc, const CONSOLELED& led, int frame, int dx)
{
    if (led.frameWidth > 0)
        DrawImagePart(hdc, ConsoleViewImage(led.image), led.left + dx, led.top, led.frameWidth, led.frameHeight,
                      frame * led.frameWidth, 0);
}

void DrawPicture(HDC hdc, int resourceId, int x, int y)
{
    int width = 0, height = 0;
    ConsoleViewImageSize(resourceId, &width, &height);
    DrawImagePart(hdc, ConsoleViewImage(resourceId), x, y, width, height, 0, 0);
}

void DrawSelection(HDC hdc, const CONSOLEVIEW* view, int dx)
{
    ::Pen pen(CreatePen(PS_DOT, 1, kSelectionColour));
    Selection penSelection(hdc, pen);
    Selection brushSelection(hdc, GetStockObject(NULL_BRUSH));
    for (int id : view->selection) {
        for (const CONSOLEKEY& key : view->keys) {
            if (key.id != id)
                continue;
            Rectangle(hdc, key.left + dx - 2, key.top - 2, key.left + dx + key.frameWidth + 2,
                      key.top + key.frameHeight + 2);
        }
    }
    // The keyboard's key: a dotted frame outside the selection's.
    for (const CONSOLEKEY& key : view->keys) {
        if (key.id != view->focusKey || !view->hasKeyboard)
            continue;
        const RECT mark = {key.left + dx - 4, key.top - 4, key.left + dx + key.frameWidth + 4,
                           key.top + key.frameHeight + 4};
        DrawFocusRect(hdc, &mark);
    }
}

}  // namespace

void ValidateView(HWND hwnd)
{
    PAINTSTRUCT paint;
    BeginPaint(hwnd, &paint);
    EndPaint(hwnd, &paint);
}

void DrawView(HWND hwnd, CONSOLEVIEW* view, HDC hdc)
{
    RECT client;
    GetClientRect(hwnd, &client);
    Offscreen surface(hdc, client.right, client.bottom);
    ::Brush background(CreateSolidBrush(kViewBackground));
    FillRect(surface, &client, background);
    const int dx = -view->scrollPosition;
    const int type = ConsoleType(view);
    if (view->showConsole)
        DrawPicture(surface, view->frame.picture, view->frame.leftMargin + view->keyOffsetX + dx, view->frame.pictureTop);
    for (int position = 0; position < view->stripCount; position++) {
        int x = 0, y = 0;
        ExtensionStripOrigin(type, position, &x, &y);
        DrawPicture(surface, ExtensionPicture(StripType(view)), x + view->keyOffsetX + dx, y);
    }
    {
        Graphics graphics(surface);
        DrawLabelBoxes(graphics, view, dx);
    }
    for (CONSOLEKEY& key : view->keys)
        DrawKey(surface, key.left + dx, key.top, view, &key, key.id == view->pressedKey ? 2 : 1);
    const int phase = BlinkPhase(GetTickCount());
    for (auto& list : view->leds) {
        for (CONSOLELED& led : list) {
            led.shownFrame = LedFrame(led.state, phase);
            DrawLed(surface, led, led.shownFrame, dx);
        }
    }
    DrawSelection(surface, view, dx);
    if (view->dragMode == 1)
        DrawFocusRect(surface, &view->rubberBand);
    BitBlt(hdc, 0, 0, client.right, client.bottom, surface, 0, 0, SRCCOPY);
}

void PaintKeyNow(HWND hwnd, CONSOLEVIEW* view, int keyId, int baseFrame)
{
    CONSOLEKEY* key = FindViewKey(view, keyId);
    if (!key)
        return;
    WindowDC hdc(hwnd);
    DrawKey(hdc, key->left - view->scrollPosition, key->top, view, key, baseFrame);
}

void BlinkLeds(HWND hwnd, CONSOLEVIEW* view, int phase)
{
    const bool force = phase < 0;
    const int now = force ? BlinkPhase(GetTickCount()) : phase;
    WindowDC hdc(hwnd);
    for (auto& list : view->leds) {
        for (CONSOLELED& led : list) {
            const int frame = LedFrame(led.state, now);
            if (!force && frame == led.shownFrame)
                continue;
            led.shownFrame = frame;
            DrawLed(hdc, led, frame, -view->scrollPosition);
        }
    }
}

void RepaintChangedKey(HWND hwnd, CONSOLEVIEW* view)
{
    view->tipKey = NO_KEY;  // the tip names the key's new function
    InvalidateRect(hwnd, NULL, TRUE);
}

void RepaintLeds(HWND hwnd, CONSOLEVIEW* view)
{
    RefreshLedModes(view);
    BlinkLeds(hwnd, view, -1);
}

LRESULT TransparentStatic(HDC hdc)
{
    SetBkMode(hdc, TRANSPARENT);
    return (LRESULT)GetStockObject(NULL_BRUSH);
}
