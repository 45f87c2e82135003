// The console face as data: pictures, margins, key tables, LED marks and
// label boxes of every console type.
#include "keygeometry.h"

#include <string.h>

#include "../../base/text.h"
#include "../resources/resource.h"

#include "../../base/banned.h"

namespace {

// One row of the key tables: offsets from the key origin.
struct KEYROW {
    int32_t id;
    const char* label;
    int x, y;
    const char* button;
    const char* primaryLed;     // null: not wired
    const char* secondaryLed;
};

// The board view's 24 keys in build order; the front view takes the same
// ids, labels and offsets without the pins (and moves 120-123).
const KEYROW kKeyRows[] = {
    {0, "1", 231, 102, "CN15/9", "CN10/2", "CN10/6"},
    {1, "2", 295, 102, "CN15/8", "CN10/3", "CN10/7"},
    {2, "3", 359, 102, "CN15/7", "CN10/4", "CN10/8"},
    {3, "4", 231, 150, "CN15/6", "CN10/5", "CN10/9"},
    {4, "5", 295, 150, "CN15/5", "CN11/2", "CN11/6"},
    {5, "6", 359, 150, "CN15/4", "CN11/3", "CN11/7"},
    {6, "7", 231, 198, "CN15/3", "CN11/4", "CN11/8"},
    {7, "8", 295, 198, "CN15/2", "CN11/5", "CN11/9"},
    {8, "9", 359, 198, "CN16/9", "CN4/2", "CN4/6"},
    {9, "+", 231, 246, "CN16/8", "CN4/3", "CN4/7"},
    {10, "0", 295, 246, "CN16/7", "CN4/4", "CN4/8"},
    {11, "#", 359, 246, "CN16/6", "CN4/5", "CN4/9"},
    {12, " ", 231, 294, "CN16/5", "CN5/2", "CN5/6"},
    {13, " ", 295, 294, "CN16/4", "CN5/3", "CN5/7"},
    {14, " ", 359, 294, "CN16/3", "CN5/4", "CN5/8"},
    {KEY_UP, "/\\", 71, 198, "CN17/6", "CN12/7", nullptr},
    {KEY_ESC, "ESC", 135, 198, "CN17/5", "CN12/8", nullptr},
    {KEY_DOWN, "\\/ ", 71, 246, "CN17/7", "CN12/9", nullptr},
    {KEY_DEL, "DEL", 135, 246, "CN16/2", "CN5/5", nullptr},
    {KEY_WIDE, " ", 70, 294, "CN17/8", "CN12/6", "CN12/5"},
    {120, "", 231, 26, "CN17/4", nullptr, nullptr},
    {121, "", 288, 26, "CN17/3", nullptr, nullptr},
    {122, "", 344, 26, "CN17/2", nullptr, nullptr},
    {KEY_PTT, "PTT", 0, -4, "CN3/4", nullptr, nullptr},
};

const char kNoLed[] = "none";

bool IsSpecialKey(int32_t id)
{
    return id >= KEY_SPECIAL_FIRST && id <= KEY_SPECIAL_LAST;
}

int KeyStrip(int type)
{
    return type == 4 || type == 5 ? IDR_KEY_15CST : IDR_KEY;
}

int ReturnKeyStrip(int type)
{
    switch (type) {
    case 4: return IDR_RETURNKEY_ORN15;
    case 5: return IDR_RETURNKEY_ELK15;
    default: return IDR_RETURNKEY;
    }
}

CONSOLEKEY MakeKey(int32_t id, const char* label, int image, int left, int top)
{
    CONSOLEKEY key;
    memset(&key, 0, sizeof key);
    key.id = id;
    CopyText(key.label, sizeof key.label, label);
    key.image = image;
    key.left = left;
    key.top = top;
    CopyText(key.primaryLedPin, sizeof key.primaryLedPin, kNoLed);
    CopyText(key.secondaryLedPin, sizeof key.secondaryLedPin, kNoLed);
    SizeKeyFrame(&key, ImageSizeOf(image));
    return key;
}

// The board view: every key on KEY 107 but the wide key and the special
// keys, and every key with its pins.
CONSOLEKEY BoardKey(const KEYROW& row, int x0, int y0)
{
    int image = IDR_KEY;
    if (row.id == KEY_WIDE)
        image = IDR_RETURNKEY;
    else if (IsSpecialKey(row.id))
        image = IDB_SPECIALKEYS_BOARD;
    CONSOLEKEY key = MakeKey(row.id, row.label, image, x0 + row.x, y0 + row.y);
    CopyText(key.buttonPin, sizeof key.buttonPin, row.button);
    if (row.primaryLed)
        CopyText(key.primaryLedPin, sizeof key.primaryLedPin, row.primaryLed);
    if (row.secondaryLed)
        CopyText(key.secondaryLedPin, sizeof key.secondaryLedPin, row.secondaryLed);
    return key;
}

CONSOLEKEY FrontKey(const KEYROW& row, int type, int x0, int y0)
{
    int image = KeyStrip(type);
    int y = row.y;
    if (row.id == KEY_WIDE) {
        image = ReturnKeyStrip(type);
    } else if (IsSpecialKey(row.id)) {
        image = IDB_SPECIALKEYS;
        y = type == 0 ? 26 : 22;
    } else if (row.id == KEY_PTT) {
        image = IDR_KEY;
        y = -25;
    }
    return MakeKey(row.id, row.label, image, x0 + row.x, y0 + y);
}

CONSOLELED MakeLed(int32_t key, int image, LEDLIST list, bool secondary, int left, int top)
{
    CONSOLELED led;
    memset(&led, 0, sizeof led);
    led.key = key;
    led.image = image;
    led.list = list;
    led.secondary = secondary;
    led.left = left;
    led.top = top;
    const IMAGESIZE size = ImageSizeOf(image);
    led.frameWidth = size.width / 2;
    led.frameHeight = size.height;
    led.shownFrame = -1;
    return led;
}

}  // namespace

bool IsBoardView(int type)
{
    return type == 3 || type == 6;
}

PICTUREFRAME PictureFrameOf(int type)
{
    switch (type) {
    // A front's picture starts 24 pixels above the key origin, so that the
    // last row's label boxes still fall on it; the PTT key stands on its edge.
    case 3: return {IDR_CONSOLE_BOARD_ELK, 32, 32, 20, 20, 32};
    case 6: return {IDR_CONSOLE_BOARD_ORN, 32, 32, 20, 20, 32};
    case 5: return {IDR_CONSOLE_FRONT_ELK15, 0, 18, 0, 0, 26};
    case 4: return {IDR_CONSOLE_FRONT_ORN15, 0, 18, 0, 0, 26};
    default: return {IDR_CONSOLE_FRONT, 0, 18, 0, 0, 26};
    }
}

IMAGESIZE ImageSizeOf(int image)
{
    switch (image) {
    case IDR_CONSOLE_FRONT: return {425, 355};
    case IDR_CONSOLE_FRONT_ORN15:
    case IDR_CONSOLE_FRONT_ELK15: return {425, 339};
    case IDR_CONSOLE_BOARD_ELK:
    case IDR_CONSOLE_BOARD_ORN: return {465, 395};
    case IDR_EXTENSION:
    case IDR_EXTENSION_ORN15:
    case IDR_EXTENSION_ELK15: return {301, 331};
    case IDR_KEY:
    case IDR_KEY_15CST: return {93, 18};
    case IDR_RETURNKEY: return {285, 38};
    case IDR_RETURNKEY_ORN15:
    case IDR_RETURNKEY_ELK15: return {285, 29};
    case IDB_SPECIALKEYS:
    case IDB_SPECIALKEYS_BOARD: return {230, 46};
    case IDB_LED_GREEN:
    case IDB_LED_YELLOW:
    case IDB_LED_RED: return {10, 5};
    case IDB_LEDBAR_TALL: return {10, 28};
    case IDB_LEDBAR_SHORT: return {10, 23};
    default: return {0, 0};
    }
}

void SizeKeyFrame(CONSOLEKEY* key, IMAGESIZE strip)
{
    key->frameWidth = strip.width / 3;
    key->frameHeight = strip.height;
}

std::vector<CONSOLEKEY> ConsoleKeys(int type)
{
    const PICTUREFRAME frame = PictureFrameOf(type);
    const int x0 = frame.KeyOriginX(), y0 = frame.KeyOriginY();
    std::vector<CONSOLEKEY> keys;
    keys.reserve(sizeof kKeyRows / sizeof kKeyRows[0]);
    for (const KEYROW& row : kKeyRows)
        keys.push_back(IsBoardView(type) ? BoardKey(row, x0, y0) : FrontKey(row, type, x0, y0));
    return keys;
}

void ExtensionStripOrigin(int type, int position, int* x, int* y)
{
    const PICTUREFRAME frame = PictureFrameOf(type);
    *x = EXTENSION_STRIP_WIDTH * position + 485 - frame.leftMargin + frame.rightOffset;
    *y = 62 - frame.topMargin + frame.bottomOffset;
}

int ExtensionPicture(int type)
{
    switch (type) {
    case 4: return IDR_EXTENSION_ORN15;
    case 5: return IDR_EXTENSION_ELK15;
    default: return IDR_EXTENSION;
    }
}

int ExtensionKeyImage(int type)
{
    return KeyStrip(type);
}

std::vector<CONSOLEKEY> ExtensionKeys(int type, int slot, int position)
{
    std::vector<CONSOLEKEY> keys;
    if (slot < 0 || slot >= EXTENSION_SLOT_COUNT)
        return keys;
    int x = 0, y = 0;
    ExtensionStripOrigin(type, position, &x, &y);
    const int image = KeyStrip(type);
    for (int i = 0; i < EXTENSION_KEY_COUNT; i++) {
        const int32_t id = EXTENSION_KEY_COUNT * slot + EXTENSION_FIRST_KEY + i;
        keys.push_back(MakeKey(id, " ", image, x + 64 * (i % 4) + 39, y + 48 * (i / 4) + 91));
    }
    return keys;
}

std::vector<CONSOLELED> ConsoleLeds(int type)
{
    const PICTUREFRAME frame = PictureFrameOf(type);
    const int x0 = frame.KeyOriginX(), y0 = frame.KeyOriginY();
    std::vector<CONSOLELED> leds;
    if (type == 0) {
        leds.push_back(MakeLed(120, IDB_LED_GREEN, LEDLIST_GREEN, false, x0 + 166, y0 + 28));
        leds.push_back(MakeLed(121, IDB_LED_YELLOW, LEDLIST_YELLOW, false, x0 + 166, y0 + 45));
        leds.push_back(MakeLed(122, IDB_LED_RED, LEDLIST_RED, false, x0 + 166, y0 + 62));
    }
    leds.push_back(MakeLed(KEY_UP, IDB_LED_GREEN, LEDLIST_GREEN, false, x0 + 61, y0 + 201));
    leds.push_back(MakeLed(KEY_ESC, IDB_LED_GREEN, LEDLIST_GREEN, false, x0 + 125, y0 + 201));
    leds.push_back(MakeLed(KEY_DOWN, IDB_LED_GREEN, LEDLIST_GREEN, false, x0 + 61, y0 + 249));
    leds.push_back(MakeLed(KEY_DEL, IDB_LED_GREEN, LEDLIST_GREEN, false, x0 + 125, y0 + 249));
    if (type != 4 && type != 5)
        leds.push_back(MakeLed(KEY_WIDE, IDB_LEDBAR_TALL, LEDLIST_GREEN, false, x0 + 61, y0 + 297));
    leds.push_back(MakeLed(KEY_WIDE, IDB_LEDBAR_SHORT, LEDLIST_GREEN, false, x0 + 61, y0 + 297));
    for (int k = 0; k < KEYPAD_KEY_COUNT; k++) {
        const int x = x0 + 221 + 64 * (k % 3), y = y0 + 48 * (k / 3);
        leds.push_back(MakeLed(k, IDB_LED_GREEN, LEDLIST_GREEN, false, x, y + 105));
        leds.push_back(MakeLed(k, IDB_LED_YELLOW, LEDLIST_YELLOW, true, x, y + 113));
    }
    return leds;
}

std::vector<CONSOLEKEYLABEL> ConsoleKeyLabels(int type)
{
    const PICTUREFRAME frame = PictureFrameOf(type);
    const float x0 = (float)frame.KeyOriginX(), y0 = (float)(frame.KeyOriginY() + 24);
    std::vector<CONSOLEKEYLABEL> labels;
    labels.push_back({KEY_WIDE, x0 + 58, y0 + 91, 121, 31});
    for (int k = 0; k < KEYPAD_KEY_COUNT; k++)
        labels.push_back({k, x0 + 231 + 54 * (k % 3), y0 + 102 + 48 * (k / 3), 54, 14});
    labels.push_back({KEY_UP, x0 + 71, y0 + 198, 54, 14});
    labels.push_back({KEY_ESC, x0 + 125, y0 + 198, 54, 14});
    labels.push_back({KEY_DOWN, x0 + 71, y0 + 246, 54, 14});
    labels.push_back({KEY_DEL, x0 + 125, y0 + 246, 54, 14});
    return labels;
}

std::vector<CONSOLELED> ExtensionLeds(int type, int slot, int position)
{
    std::vector<CONSOLELED> leds;
    for (const CONSOLEKEY& key : ExtensionKeys(type, slot, position))
        leds.push_back(MakeLed(key.id, IDB_LED_GREEN, LEDLIST_GREEN, false, key.left - 9, key.top + 6));
    return leds;
}

std::vector<CONSOLEKEYLABEL> ExtensionKeyLabels(int type, int slot, int position)
{
    std::vector<CONSOLEKEYLABEL> labels;
    for (const CONSOLEKEY& key : ExtensionKeys(type, slot, position))
        labels.push_back({key.id, (float)key.left - 8, (float)key.top + 22, 47, 12});
    return labels;
}

const CONSOLEKEY* KeyAt(const std::vector<CONSOLEKEY>& keys, int x, int y)
{
    for (const CONSOLEKEY& key : keys)
        if (x >= key.left && x < key.left + key.frameWidth && y >= key.top && y < key.top + key.frameHeight)
            return &key;
    return nullptr;
}

const CONSOLEKEYLABEL* KeyLabelAt(const std::vector<CONSOLEKEYLABEL>& labels, int x, int y)
{
    for (const CONSOLEKEYLABEL& label : labels)
        if (x >= label.x && x < label.x + label.width && y >= label.y && y < label.y + label.height)
            return &label;
    return nullptr;
}

KEYFRAME ChooseKeyFrame(const KEYLOOK& look, int stripWidth, int frameWidth)
{
    const bool hasFunction = look.functionId != 0;
    if (IsSpecialKey(look.keyId)) {
        // Five frames: empty, alarm button at rest and down, key switch off and on.
        const int width = stripWidth / 5;
        switch (look.specialMode) {
        case 1: return {(hasFunction ? look.baseFrame + 1 : look.baseFrame) * width, width};
        case 2: return {(hasFunction ? look.baseFrame + 3 : look.baseFrame + 2) * width, width};
        default: return {0, width};
        }
    }
    const int group = look.functionId / 10;
    if ((look.type == 0 || look.type == 4 || look.type == 5) && group == 15)
        return {look.indicatorState * frameWidth, frameWidth};
    if (hasFunction)
        return {look.baseFrame * frameWidth, frameWidth};
    // Unassigned keys that still work: the numeric keypad and ESC look like
    // keys at rest.
    if (look.numericKeys && look.keyId >= 0 && look.keyId <= NUMERIC_KEY_LAST)
        return {1 * frameWidth, frameWidth};
    if (look.keyId == KEY_ESC)
        return {1 * frameWidth, frameWidth};
    return {0, frameWidth};
}

int BlinkPhase(uint32_t milliseconds)
{
    return (int)((milliseconds / 250) % 6);
}

int LedFrame(int mode, int phase)
{
    switch (mode) {
    case LED_ON: return 1;
    case LED_SLOW_BLINK: return phase > 2 ? 1 : 0;
    case LED_FAST_BLINK: return phase == 0 || phase == 3 ? 0 : 1;
    default: return 0;
    }
}
