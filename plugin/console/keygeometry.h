// Where the keys, LED marks and label boxes of a console stand in the console
// view, and which strip frame a key shows. Platform-free: positions are client
// pixels of the view, unscaled; images are named by their resource ids.
#pragma once

#include <stdint.h>

#include <vector>

enum {
    KEY_DEL = 115,
    KEY_ESC = 116,
    KEY_UP = 117,
    KEY_DOWN = 118,
    KEY_WIDE = 119,
    KEY_SPECIAL_FIRST = 120,
    KEY_SPECIAL_LAST = 122,
    KEY_PTT = 123,
    KEYPAD_KEY_COUNT = 15,
    NUMERIC_KEY_LAST = 11,        // keys 0 to 11 double as the numeric keypad
    EXTENSION_KEY_COUNT = 20,
    EXTENSION_FIRST_KEY = 15,
    EXTENSION_STRIP_WIDTH = 311,
    EXTENSION_SLOT_COUNT = 5,
    KEYTEXT_LENGTH = 32,          // labels and pin texts: 31 characters
};

// Console types that show the circuit board (with connector pins) instead of
// the console's front.
bool IsBoardView(int type);

// The picture of a console type and the margins that place its keys.
struct PICTUREFRAME {
    int picture;       // CONSOLEIMAGE resource id
    int topMargin;
    int leftMargin;
    int rightOffset;
    int bottomOffset;
    int pictureTop;    // the picture stands at (leftMargin, pictureTop)
    int KeyOriginX() const { return 50 - leftMargin + rightOffset; }
    int KeyOriginY() const { return 50 - topMargin + bottomOffset; }
};
PICTUREFRAME PictureFrameOf(int type);

// A key as laid out: the view's key element without its paint state.
struct CONSOLEKEY {
    int32_t id;
    char label[KEYTEXT_LENGTH];
    int image;          // strip resource id
    int left, top;      // hits use the frame size from here
    int frameWidth;
    int frameHeight;
    char buttonPin[KEYTEXT_LENGTH];
    char primaryLedPin[KEYTEXT_LENGTH];
    char secondaryLedPin[KEYTEXT_LENGTH];
};

enum LEDLIST { LEDLIST_GREEN, LEDLIST_YELLOW, LEDLIST_RED, LEDLIST_COUNT };

// One LED mark: two frames side by side, off and on.
struct CONSOLELED {
    int32_t key;
    int left, top;
    int image;          // LED bitmap resource id
    LEDLIST list;
    bool secondary;     // the key's second LED (the yellow keypad marks)
    int frameWidth;
    int frameHeight;
    uint16_t state;     // the mode (off, slow blink, fast blink, on)
    int shownFrame;     // the frame last drawn; -1 before the first
};

struct CONSOLEKEYLABEL {
    int32_t key;
    float x, y, width, height;
};

struct IMAGESIZE {
    int width, height;
};
// The drawn size of an image resource; {0, 0} for an unknown id.
IMAGESIZE ImageSizeOf(int image);

// The 24 keys of the console face in their build order.
std::vector<CONSOLEKEY> ConsoleKeys(int type);
// The 20 keys of extension slot 0-4 drawn at position 0-4 (left to right).
std::vector<CONSOLEKEY> ExtensionKeys(int type, int slot, int position);
// Where an extension strip's picture stands.
void ExtensionStripOrigin(int type, int position, int* x, int* y);
int ExtensionPicture(int type);
// The key image of an extension's keys: 197 on the 15-key fronts (types 4 and 5), else 107.
int ExtensionKeyImage(int type);
std::vector<CONSOLELED> ConsoleLeds(int type);
std::vector<CONSOLEKEYLABEL> ConsoleKeyLabels(int type);
// An extension key has one green LED left of it and a label box under it,
// on the strip the extension's picture shows there.
std::vector<CONSOLELED> ExtensionLeds(int type, int slot, int position);
std::vector<CONSOLEKEYLABEL> ExtensionKeyLabels(int type, int slot, int position);

// Sets a key's frame size from its strip: a third of the strip's width.
void SizeKeyFrame(CONSOLEKEY* key, IMAGESIZE strip);

// The first key whose frame contains the point, or null.
const CONSOLEKEY* KeyAt(const std::vector<CONSOLEKEY>& keys, int x, int y);
// The first label box that contains the point, or null.
const CONSOLEKEYLABEL* KeyLabelAt(const std::vector<CONSOLEKEYLABEL>& labels, int x, int y);

// What the painter needs to know about a key to choose its frame.
struct KEYLOOK {
    int type;
    int32_t keyId;
    int32_t functionId;     // 0 = no function
    int baseFrame;          // 1 at rest, 2 held down
    int specialMode;        // keys 120-122: 0 not used, 1 alarm button, 2 key switch
    bool numericKeys;       // keys 0-11 act as the numeric keypad
    int indicatorState;     // the console's global indicator state (a frame)
};
struct KEYFRAME {
    int sourceX;
    int frameWidth;
};
// The strip rectangle to draw; stripWidth is the strip image's width and
// frameWidth the key's current frame width (the special keys change it).
KEYFRAME ChooseKeyFrame(const KEYLOOK& look, int stripWidth, int frameWidth);

enum LEDMODE { LED_OFF, LED_SLOW_BLINK, LED_FAST_BLINK, LED_ON };
// The blink phase, 0-5, of a moment in milliseconds since start-up.
int BlinkPhase(uint32_t milliseconds);
// The frame (0 off, 1 lit) an LED of the mode shows in the phase.
int LedFrame(int mode, int phase);
