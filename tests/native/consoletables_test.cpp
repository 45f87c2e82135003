// The console face cell by cell: every key with its pins, every LED mark and
// label box, every picture and strip, for every console type. The expected
// values are written out here as the face is drawn, not taken from the code.
#include <gtest/gtest.h>

#include <string.h>

#include <vector>

#include "../../plugin/console/keygeometry.h"

namespace {

struct BOARDROW {
    int id;
    const char* label;
    int x, y;
    const char* button;
    const char* primary;
    const char* secondary;
};

// The board view's keys in build order (offsets from the key origin).
const BOARDROW kBoard[24] = {
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
    {117, "/\\", 71, 198, "CN17/6", "CN12/7", "none"},
    {116, "ESC", 135, 198, "CN17/5", "CN12/8", "none"},
    {118, "\\/ ", 71, 246, "CN17/7", "CN12/9", "none"},
    {115, "DEL", 135, 246, "CN16/2", "CN5/5", "none"},
    {119, " ", 70, 294, "CN17/8", "CN12/6", "CN12/5"},
    {120, "", 231, 26, "CN17/4", "none", "none"},
    {121, "", 288, 26, "CN17/3", "none", "none"},
    {122, "", 344, 26, "CN17/2", "none", "none"},
    {123, "PTT", 0, -4, "CN3/4", "none", "none"},
};

struct STRIP {
    int image, frameWidth, frameHeight;
};

// The strip a key of a type is built on.
STRIP ExpectedStrip(int type, int id)
{
    const bool board = type == 3 || type == 6;
    if (id >= 120 && id <= 122)
        return {board ? 193 : 156, 76, 46};  // a third of 230 until painted
    if (id == 123)
        return {107, 31, 18};
    if (id == 119) {
        if (type == 4)
            return {198, 95, 29};
        if (type == 5)
            return {199, 95, 29};
        return {108, 95, 38};
    }
    return type == 4 || type == 5 ? STRIP{197, 31, 18} : STRIP{107, 31, 18};
}

}  // namespace

TEST(ConsoleTables, PictureMarginsAndKeyOriginOfEveryType)
{
    struct ROW {
        int type, picture, top, left, right, bottom, x0, y0;
    };
    const ROW rows[] = {
        {3, 189, 32, 32, 20, 20, 38, 38}, {6, 206, 32, 32, 20, 20, 38, 38}, {5, 195, 0, 18, 0, 0, 32, 50},
        {4, 196, 0, 18, 0, 0, 32, 50},    {0, 105, 0, 18, 0, 0, 32, 50},    {1, 105, 0, 18, 0, 0, 32, 50},
        {2, 105, 0, 18, 0, 0, 32, 50},    {7, 105, 0, 18, 0, 0, 32, 50},    {-1, 105, 0, 18, 0, 0, 32, 50},
    };
    for (const ROW& row : rows) {
        SCOPED_TRACE(row.type);
        const PICTUREFRAME frame = PictureFrameOf(row.type);
        EXPECT_EQ(frame.picture, row.picture);
        EXPECT_EQ(frame.topMargin, row.top);
        EXPECT_EQ(frame.leftMargin, row.left);
        EXPECT_EQ(frame.rightOffset, row.right);
        EXPECT_EQ(frame.bottomOffset, row.bottom);
        EXPECT_EQ(frame.KeyOriginX(), row.x0);
        EXPECT_EQ(frame.KeyOriginY(), row.y0);
        EXPECT_EQ(IsBoardView(row.type), row.type == 3 || row.type == 6);
    }
}

TEST(ConsoleTables, ImageSizes)
{
    struct ROW {
        int id, width, height;
    };
    const ROW rows[] = {
        {105, 425, 355}, {196, 425, 339}, {195, 425, 339}, {189, 465, 395}, {206, 465, 395}, {102, 301, 331},
        {202, 301, 331}, {201, 301, 331}, {107, 93, 18},   {197, 93, 18},   {108, 285, 38},  {198, 285, 29},
        {199, 285, 29},  {193, 230, 46},  {156, 230, 46},  {109, 10, 5},    {112, 10, 5},    {111, 10, 5},
        {110, 10, 28},   {200, 10, 23},   {104, 0, 0},     {0, 0, 0},
    };
    for (const ROW& row : rows) {
        EXPECT_EQ(ImageSizeOf(row.id).width, row.width) << row.id;
        EXPECT_EQ(ImageSizeOf(row.id).height, row.height) << row.id;
    }
}

TEST(ConsoleTables, BoardViewKeysWithEveryPin)
{
    for (int type : {3, 6}) {
        SCOPED_TRACE(type);
        const std::vector<CONSOLEKEY> keys = ConsoleKeys(type);
        ASSERT_EQ(keys.size(), 24u);
        for (int n = 0; n < 24; n++) {
            const BOARDROW& row = kBoard[n];
            const CONSOLEKEY& key = keys[n];
            SCOPED_TRACE(row.id);
            EXPECT_EQ(key.id, row.id);
            EXPECT_STREQ(key.label, row.label);
            EXPECT_EQ(key.left, 38 + row.x);
            EXPECT_EQ(key.top, 38 + row.y);
            EXPECT_STREQ(key.buttonPin, row.button);
            EXPECT_STREQ(key.primaryLedPin, row.primary);
            EXPECT_STREQ(key.secondaryLedPin, row.secondary);
            const STRIP strip = ExpectedStrip(type, row.id);
            EXPECT_EQ(key.image, strip.image);
            EXPECT_EQ(key.frameWidth, strip.frameWidth);
            EXPECT_EQ(key.frameHeight, strip.frameHeight);
        }
    }
}

TEST(ConsoleTables, FrontViewKeysOfEveryOtherType)
{
    for (int type : {0, 1, 2, 4, 5, 7}) {
        SCOPED_TRACE(type);
        const std::vector<CONSOLEKEY> keys = ConsoleKeys(type);
        ASSERT_EQ(keys.size(), 24u);
        for (int n = 0; n < 24; n++) {
            const BOARDROW& row = kBoard[n];
            const CONSOLEKEY& key = keys[n];
            SCOPED_TRACE(row.id);
            int x = row.x, y = row.y;
            if (row.id >= 120 && row.id <= 122)
                y = type == 0 ? 26 : 22;
            if (row.id == 123)
                y = -25;
            EXPECT_EQ(key.id, row.id);
            EXPECT_STREQ(key.label, row.label);
            EXPECT_EQ(key.left, 32 + x);
            EXPECT_EQ(key.top, 50 + y);
            EXPECT_STREQ(key.buttonPin, "");
            EXPECT_STREQ(key.primaryLedPin, "none");
            EXPECT_STREQ(key.secondaryLedPin, "none");
            const STRIP strip = ExpectedStrip(type, row.id);
            EXPECT_EQ(key.image, strip.image);
            EXPECT_EQ(key.frameWidth, strip.frameWidth);
            EXPECT_EQ(key.frameHeight, strip.frameHeight);
        }
    }
}

TEST(ConsoleTables, LedMarksOfEveryType)
{
    struct MARK {
        int key, image, x, y, list;
        bool secondary;
    };
    for (int type : {0, 2, 3, 4, 5, 6}) {
        SCOPED_TRACE(type);
        std::vector<MARK> expected;
        if (type == 0) {
            expected.push_back({120, 109, 166, 28, LEDLIST_GREEN, false});
            expected.push_back({121, 112, 166, 45, LEDLIST_YELLOW, false});
            expected.push_back({122, 111, 166, 62, LEDLIST_RED, false});
        }
        expected.push_back({117, 109, 61, 201, LEDLIST_GREEN, false});
        expected.push_back({116, 109, 125, 201, LEDLIST_GREEN, false});
        expected.push_back({118, 109, 61, 249, LEDLIST_GREEN, false});
        expected.push_back({115, 109, 125, 249, LEDLIST_GREEN, false});
        if (type != 4 && type != 5)
            expected.push_back({119, 110, 61, 297, LEDLIST_GREEN, false});
        expected.push_back({119, 200, 61, 297, LEDLIST_GREEN, false});
        const size_t keypadStart = expected.size();

        const std::vector<CONSOLELED> leds = ConsoleLeds(type);
        const PICTUREFRAME frame = PictureFrameOf(type);
        const int x0 = type == 3 || type == 6 ? 38 : 32, y0 = type == 3 || type == 6 ? 38 : 50;
        ASSERT_EQ(frame.KeyOriginX(), x0);
        ASSERT_EQ(leds.size(), keypadStart + 30);
        for (size_t n = 0; n < keypadStart; n++) {
            SCOPED_TRACE(n);
            EXPECT_EQ(leds[n].key, expected[n].key);
            EXPECT_EQ(leds[n].image, expected[n].image);
            EXPECT_EQ(leds[n].left, x0 + expected[n].x);
            EXPECT_EQ(leds[n].top, y0 + expected[n].y);
            EXPECT_EQ(leds[n].list, expected[n].list);
            EXPECT_EQ(leds[n].secondary, expected[n].secondary);
        }
        // Each keypad key has its green primary and yellow secondary mark.
        for (int k = 0; k < 15; k++) {
            int found = 0;
            for (size_t n = keypadStart; n < leds.size(); n++) {
                const CONSOLELED& led = leds[n];
                if (led.key != k)
                    continue;
                found++;
                EXPECT_EQ(led.left, x0 + 221 + 64 * (k % 3)) << k;
                if (led.secondary) {
                    EXPECT_EQ(led.image, 112) << k;
                    EXPECT_EQ(led.list, LEDLIST_YELLOW) << k;
                    EXPECT_EQ(led.top, y0 + 113 + 48 * (k / 3)) << k;
                } else {
                    EXPECT_EQ(led.image, 109) << k;
                    EXPECT_EQ(led.list, LEDLIST_GREEN) << k;
                    EXPECT_EQ(led.top, y0 + 105 + 48 * (k / 3)) << k;
                }
            }
            EXPECT_EQ(found, 2) << k;
        }
        for (const CONSOLELED& led : leds) {
            const int height = led.image == 110 ? 28 : led.image == 200 ? 23 : 5;
            EXPECT_EQ(led.frameWidth, 5) << led.key;
            EXPECT_EQ(led.frameHeight, height) << led.key;
            EXPECT_EQ(led.state, 0) << led.key;
        }
    }
}

TEST(ConsoleTables, LabelBoxesOfEveryType)
{
    struct BOX {
        int key;
        float x, y, width, height;
    };
    const BOX boxes[] = {
        {119, 58, 91, 121, 31},  {0, 231, 102, 54, 14},  {1, 285, 102, 54, 14},  {2, 339, 102, 54, 14},
        {3, 231, 150, 54, 14},   {4, 285, 150, 54, 14},  {5, 339, 150, 54, 14},  {6, 231, 198, 54, 14},
        {7, 285, 198, 54, 14},   {8, 339, 198, 54, 14},  {9, 231, 246, 54, 14},  {10, 285, 246, 54, 14},
        {11, 339, 246, 54, 14},  {12, 231, 294, 54, 14}, {13, 285, 294, 54, 14}, {14, 339, 294, 54, 14},
        {117, 71, 198, 54, 14},  {116, 125, 198, 54, 14}, {118, 71, 246, 54, 14}, {115, 125, 246, 54, 14},
    };
    for (int type : {0, 3, 4, 5, 6}) {
        SCOPED_TRACE(type);
        const float x0 = type == 3 || type == 6 ? 38 : 32, y0 = (type == 3 || type == 6 ? 38 : 50) + 24;
        const std::vector<CONSOLEKEYLABEL> labels = ConsoleKeyLabels(type);
        ASSERT_EQ(labels.size(), 20u);
        for (size_t n = 0; n < 20; n++) {
            SCOPED_TRACE(boxes[n].key);
            EXPECT_EQ(labels[n].key, boxes[n].key);
            EXPECT_FLOAT_EQ(labels[n].x, x0 + boxes[n].x);
            EXPECT_FLOAT_EQ(labels[n].y, y0 + boxes[n].y);
            EXPECT_FLOAT_EQ(labels[n].width, boxes[n].width);
            EXPECT_FLOAT_EQ(labels[n].height, boxes[n].height);
        }
    }
    // Boxes hit at their edges, not past them.
    const std::vector<CONSOLEKEYLABEL> labels = ConsoleKeyLabels(0);
    EXPECT_EQ(KeyLabelAt(labels, 32 + 58, 74 + 91)->key, 119);
    EXPECT_EQ(KeyLabelAt(labels, 32 + 58 + 120, 74 + 91 + 30)->key, 119);
    EXPECT_EQ(KeyLabelAt(labels, 32 + 58 + 121, 74 + 91), nullptr);
    EXPECT_EQ(KeyLabelAt(labels, 32 + 58, 74 + 91 + 31), nullptr);
    EXPECT_EQ(KeyLabelAt(labels, 32 + 57, 74 + 91), nullptr);
    EXPECT_EQ(KeyLabelAt(labels, 32 + 58, 74 + 90), nullptr);
}

TEST(ConsoleTables, KeyHitsStopAtTheFrameEdges)
{
    const std::vector<CONSOLEKEY> keys = ConsoleKeys(0);
    // Key 4 stands at (32 + 295, 50 + 150), 31x18.
    EXPECT_EQ(KeyAt(keys, 327, 200)->id, 4);
    EXPECT_EQ(KeyAt(keys, 357, 217)->id, 4);
    EXPECT_EQ(KeyAt(keys, 358, 200), nullptr);
    EXPECT_EQ(KeyAt(keys, 326, 200), nullptr);
    EXPECT_EQ(KeyAt(keys, 327, 199), nullptr);
    EXPECT_EQ(KeyAt(keys, 327, 218), nullptr);
}

TEST(ConsoleTables, ExtensionStripsOfEverySlotAndPosition)
{
    for (int type : {0, 3, 4, 5}) {
        const int left = type == 3 ? 32 : 18, right = type == 3 ? 20 : 0;
        const int top = type == 3 ? 32 : 0, bottom = type == 3 ? 20 : 0;
        const int strip = type == 4 || type == 5 ? 197 : 107;
        EXPECT_EQ(ExtensionPicture(type), type == 4 ? 202 : type == 5 ? 201 : 102);
        EXPECT_EQ(ExtensionKeyImage(type), strip);
        for (int slot = 0; slot < 5; slot++)
            for (int position = 0; position < 5; position++) {
                SCOPED_TRACE(testing::Message() << type << "/" << slot << "/" << position);
                const int x = 311 * position + 485 - left + right, y = 62 - top + bottom;
                int originX = 0, originY = 0;
                ExtensionStripOrigin(type, position, &originX, &originY);
                EXPECT_EQ(originX, x);
                EXPECT_EQ(originY, y);
                const std::vector<CONSOLEKEY> keys = ExtensionKeys(type, slot, position);
                ASSERT_EQ(keys.size(), 20u);
                for (int i = 0; i < 20; i++) {
                    EXPECT_EQ(keys[i].id, 20 * slot + 15 + i);
                    EXPECT_EQ(keys[i].left, x + 64 * (i % 4) + 39);
                    EXPECT_EQ(keys[i].top, y + 48 * (i / 4) + 91);
                    EXPECT_EQ(keys[i].image, strip);
                    EXPECT_STREQ(keys[i].label, " ");
                    EXPECT_STREQ(keys[i].buttonPin, "");
                    EXPECT_STREQ(keys[i].secondaryLedPin, "none");
                }
            }
    }
    EXPECT_TRUE(ExtensionKeys(0, 5, 0).empty());
    EXPECT_TRUE(ExtensionKeys(0, -1, 0).empty());
}

TEST(ConsoleTables, ExtensionLedsAndLabelsSitWithTheirKeys)
{
    for (int type : {0, 3, 4})
        for (int slot = 0; slot < 5; slot++) {
            const std::vector<CONSOLEKEY> keys = ExtensionKeys(type, slot, slot);
            const std::vector<CONSOLELED> leds = ExtensionLeds(type, slot, slot);
            const std::vector<CONSOLEKEYLABEL> labels = ExtensionKeyLabels(type, slot, slot);
            ASSERT_EQ(leds.size(), 20u);
            ASSERT_EQ(labels.size(), 20u);
            for (size_t i = 0; i < 20; i++) {
                SCOPED_TRACE(keys[i].id);
                // One green mark left of the key, centred on its 18 rows.
                EXPECT_EQ(leds[i].key, keys[i].id);
                EXPECT_EQ(leds[i].image, 109);
                EXPECT_EQ(leds[i].list, LEDLIST_GREEN);
                EXPECT_FALSE(leds[i].secondary);
                EXPECT_LE(leds[i].left + 5, keys[i].left);
                EXPECT_GT(leds[i].left + 5, keys[i].left - 64 + 31);  // not under the key to its left
                EXPECT_EQ(2 * leds[i].top + 5, 2 * keys[i].top + 18 - 1);
                // The label box under the key, centred on it.
                EXPECT_EQ(labels[i].key, keys[i].id);
                EXPECT_GE(labels[i].y, keys[i].top + 18);
                EXPECT_LE(labels[i].y + labels[i].height, keys[i].top + 48);
                EXPECT_FLOAT_EQ(2 * labels[i].x + labels[i].width, 2 * keys[i].left + 31);
            }
        }
    EXPECT_TRUE(ExtensionLeds(0, 7, 0).empty());
}

TEST(ConsoleTables, KeyFrameChoice)
{
    // Special keys: five 46-pixel frames of the 230-pixel strip.
    struct SPECIAL {
        int mode, function, base, sourceX;
    };
    const SPECIAL specials[] = {
        {0, 0, 1, 0},        {0, 10, 2, 0},       {1, 0, 1, 46},      {1, 0, 2, 92},
        {1, 10, 1, 92},      {1, 10, 2, 138},     {2, 0, 1, 138},     {2, 0, 2, 184},
        {2, 10, 1, 184},     {2, 10, 2, 230},
    };
    for (int key : {120, 121, 122})
        for (const SPECIAL& s : specials) {
            KEYLOOK look = {0, key, s.function, s.base, s.mode, false, 0};
            const KEYFRAME frame = ChooseKeyFrame(look, 230, 76);
            EXPECT_EQ(frame.frameWidth, 46);
            EXPECT_EQ(frame.sourceX, s.sourceX) << key << " mode " << s.mode << " base " << s.base;
        }
    // A key 119 or 123 is no special key.
    EXPECT_EQ(ChooseKeyFrame({0, 119, 0, 1, 1, false, 0}, 285, 95).frameWidth, 95);
    EXPECT_EQ(ChooseKeyFrame({0, 123, 10, 1, 1, false, 0}, 93, 31).sourceX, 31);

    // Ordinary keys: 31-pixel frames.
    struct ORDINARY {
        int type, key, function, base;
        bool numeric;
        int indicator, sourceX;
    };
    const ORDINARY ordinary[] = {
        {0, 5, 10, 1, false, 0, 31},     {0, 5, 10, 2, false, 0, 62},   {3, 5, 150, 2, false, 0, 62},
        {6, 5, 155, 1, false, 2, 31},    {0, 5, 150, 1, false, 2, 62},  {4, 5, 159, 1, false, 0, 0},
        {5, 5, 152, 2, false, 1, 31},    {2, 5, 150, 1, false, 2, 31},  {0, 5, 0, 1, false, 0, 0},
        {0, 5, 160, 1, false, 2, 31},    {4, 5, 149, 2, false, 3, 62},
        {0, 0, 0, 2, true, 0, 31},       {0, 11, 0, 1, true, 0, 31},    {0, 12, 0, 1, true, 0, 0},
        {0, 11, 0, 1, false, 0, 0},      {0, 116, 0, 2, false, 0, 31},  {0, 115, 0, 1, false, 0, 0},
        {0, 117, 0, 1, true, 0, 0},      {0, 5, 170, 1, false, 2, 31},
        {4, 123, 151, 1, false, 2, 62},  {3, 123, 151, 1, false, 2, 31},  // the PTT key follows its indicator
    };
    for (const ORDINARY& o : ordinary) {
        KEYLOOK look = {o.type, o.key, o.function, o.base, 0, o.numeric, o.indicator};
        const KEYFRAME frame = ChooseKeyFrame(look, 93, 31);
        EXPECT_EQ(frame.frameWidth, 31);
        EXPECT_EQ(frame.sourceX, o.sourceX) << "type " << o.type << " key " << o.key << " function " << o.function;
    }
}

TEST(ConsoleTables, LedBlinking)
{
    // phase = (ms / 250) % 6
    struct PHASE {
        uint32_t ms;
        int phase;
    };
    const PHASE phases[] = {{0, 0}, {249, 0}, {250, 1}, {749, 2}, {750, 3}, {1499, 5}, {1500, 0}, {4000000000u, 4}};
    for (const PHASE& p : phases)
        EXPECT_EQ(BlinkPhase(p.ms), p.phase) << p.ms;
    const int off[6] = {0, 0, 0, 0, 0, 0};
    const int on[6] = {1, 1, 1, 1, 1, 1};
    const int slow[6] = {0, 0, 0, 1, 1, 1};
    const int fast[6] = {0, 1, 1, 0, 1, 1};
    for (int phase = 0; phase < 6; phase++) {
        EXPECT_EQ(LedFrame(0, phase), off[phase]) << phase;
        EXPECT_EQ(LedFrame(1, phase), slow[phase]) << phase;
        EXPECT_EQ(LedFrame(2, phase), fast[phase]) << phase;
        EXPECT_EQ(LedFrame(3, phase), on[phase]) << phase;
    }
    EXPECT_EQ(LedFrame(7, 4), 0);
}
