#include <gtest/gtest.h>

#include <set>
#include <string.h>

#include "../../plugin/console/keygeometry.h"
#include "../../plugin/console/ledstates.h"
#include "../../plugin/resources/resource.h"

namespace {

const CONSOLEKEY& KeyWithId(const std::vector<CONSOLEKEY>& keys, int id)
{
    for (const CONSOLEKEY& key : keys)
        if (key.id == id)
            return key;
    static CONSOLEKEY none;
    ADD_FAILURE() << "no key " << id;
    return none;
}

// Paints narrow the special keys to a fifth of their strip, as the view does.
std::vector<CONSOLEKEY> AsPainted(std::vector<CONSOLEKEY> keys)
{
    for (CONSOLEKEY& key : keys)
        if (key.id >= KEY_SPECIAL_FIRST && key.id <= KEY_SPECIAL_LAST)
            key.frameWidth = ImageSizeOf(key.image).width / 5;
    return keys;
}

}  // namespace

TEST(KeyGeometry, PicturesAndKeyOriginsByType)
{
    EXPECT_EQ(PictureFrameOf(3).picture, IDR_CONSOLE_BOARD_ELK);
    EXPECT_EQ(PictureFrameOf(6).picture, IDR_CONSOLE_BOARD_ORN);
    EXPECT_EQ(PictureFrameOf(5).picture, IDR_CONSOLE_FRONT_ELK15);
    EXPECT_EQ(PictureFrameOf(4).picture, IDR_CONSOLE_FRONT_ORN15);
    EXPECT_EQ(PictureFrameOf(2).picture, IDR_CONSOLE_FRONT);
    EXPECT_EQ(PictureFrameOf(3).KeyOriginX(), 38);
    EXPECT_EQ(PictureFrameOf(3).KeyOriginY(), 38);
    EXPECT_EQ(PictureFrameOf(0).KeyOriginX(), 32);
    EXPECT_EQ(PictureFrameOf(0).KeyOriginY(), 50);
}

TEST(KeyGeometry, EveryKeyOfBothViewsIsHitAtItsOwnFrame)
{
    for (int type : {0, 1, 2, 3, 4, 5, 6}) {
        SCOPED_TRACE(type);
        const auto keys = AsPainted(ConsoleKeys(type));
        ASSERT_EQ(keys.size(), 24u);
        std::set<int> ids;
        for (const CONSOLEKEY& key : keys) {
            ids.insert(key.id);
            const CONSOLEKEY* corner = KeyAt(keys, key.left, key.top);
            const CONSOLEKEY* far = KeyAt(keys, key.left + key.frameWidth - 1, key.top + key.frameHeight - 1);
            ASSERT_NE(corner, nullptr) << key.id;
            ASSERT_NE(far, nullptr) << key.id;
            EXPECT_EQ(corner->id, key.id);
            EXPECT_EQ(far->id, key.id);
            const CONSOLEKEY* below = KeyAt(keys, key.left, key.top + key.frameHeight);
            EXPECT_TRUE(!below || below->id != key.id) << key.id;
        }
        EXPECT_EQ(ids.size(), 24u);
    }
    // Until painted, a special key spans a third of its strip and covers the
    // left part of its neighbour.
    const auto built = ConsoleKeys(0);
    EXPECT_EQ(KeyAt(built, 32 + 288, 50 + 30)->id, 120);
    EXPECT_EQ(KeyAt(AsPainted(built), 32 + 288, 50 + 30)->id, 121);
}

TEST(KeyGeometry, BoardAndFrontPositionsPinsAndStrips)
{
    const auto board = ConsoleKeys(3);
    EXPECT_EQ(board[0].id, 0);
    EXPECT_EQ(board[0].left, 38 + 231);
    EXPECT_EQ(board[0].top, 38 + 102);
    EXPECT_STREQ(board[0].buttonPin, "CN15/9");
    EXPECT_STREQ(KeyWithId(board, KEY_DEL).secondaryLedPin, "none");
    EXPECT_STREQ(KeyWithId(board, KEY_WIDE).secondaryLedPin, "CN12/5");
    EXPECT_EQ(KeyWithId(board, KEY_PTT).top, 38 - 4);
    EXPECT_EQ(KeyWithId(board, 121).image, IDB_SPECIALKEYS_BOARD);
    EXPECT_EQ(KeyWithId(board, 121).frameWidth, 230 / 3);  // a fifth only once painted
    EXPECT_STREQ(KeyWithId(board, KEY_DOWN).label, "\\/ ");
    EXPECT_STREQ(KeyWithId(board, KEY_UP).label, "/\\");
    EXPECT_STREQ(KeyWithId(board, 13).label, " ");

    const auto front = ConsoleKeys(4);
    EXPECT_EQ(KeyWithId(front, KEY_PTT).top, 50 - 25);
    EXPECT_EQ(KeyWithId(front, KEY_PTT).image, IDR_KEY);
    EXPECT_EQ(KeyWithId(front, 5).image, IDR_KEY_15CST);
    EXPECT_EQ(KeyWithId(front, KEY_WIDE).image, IDR_RETURNKEY_ORN15);
    EXPECT_EQ(KeyWithId(front, KEY_WIDE).frameHeight, 29);
    EXPECT_EQ(KeyWithId(front, 120).top, 50 + 22);
    EXPECT_EQ(KeyWithId(front, 120).image, IDB_SPECIALKEYS);
    EXPECT_STREQ(KeyWithId(front, 0).buttonPin, "");
    EXPECT_STREQ(KeyWithId(front, 0).primaryLedPin, "none");
    EXPECT_EQ(KeyWithId(ConsoleKeys(0), 120).top, 50 + 26);
    EXPECT_EQ(KeyWithId(ConsoleKeys(5), KEY_WIDE).image, IDR_RETURNKEY_ELK15);

    const auto unknown = ConsoleKeys(2);
    EXPECT_EQ(KeyWithId(unknown, 3).image, IDR_KEY);
    EXPECT_EQ(KeyWithId(unknown, KEY_WIDE).image, IDR_RETURNKEY);
    EXPECT_EQ(KeyWithId(unknown, 120).top, 50 + 22);
}

TEST(KeyGeometry, ExtensionStripsNumberTheirKeysBySlot)
{
    const auto strip = ExtensionKeys(0, 2, 0);
    ASSERT_EQ(strip.size(), 20u);
    EXPECT_EQ(strip.front().id, 55);
    EXPECT_EQ(strip.back().id, 74);
    EXPECT_EQ(strip.front().left, 467 + 39);
    EXPECT_EQ(strip.front().top, 62 + 91);
    EXPECT_EQ(strip.back().left, 467 + 231);
    EXPECT_EQ(strip.back().top, 62 + 283);
    EXPECT_STREQ(strip.front().label, " ");
    EXPECT_STREQ(strip.front().primaryLedPin, "none");

    const auto second = ExtensionKeys(3, 4, 1);
    EXPECT_EQ(second.front().id, 95);
    EXPECT_EQ(second.back().id, 114);
    EXPECT_EQ(second.front().left, 311 + 485 - 32 + 20 + 39);
    EXPECT_EQ(second.front().top, 62 - 32 + 20 + 91);
    EXPECT_EQ(ExtensionKeys(5, 0, 0).front().image, IDR_KEY_15CST);
    EXPECT_TRUE(ExtensionKeys(0, 5, 0).empty());
    EXPECT_TRUE(ExtensionKeys(0, -1, 0).empty());

    for (const CONSOLEKEY& key : second) {
        const CONSOLEKEY* hit = KeyAt(second, key.left + 3, key.top + 3);
        ASSERT_NE(hit, nullptr);
        EXPECT_EQ(hit->id, key.id);
    }
    EXPECT_EQ(KeyAt(second, second[0].left + 40, second[0].top), nullptr);  // between two columns
}

TEST(KeyGeometry, LabelBoxesStepBy54WhileKeysStepBy64)
{
    const auto labels = ConsoleKeyLabels(0);
    ASSERT_EQ(labels.size(), 20u);
    EXPECT_EQ(labels[0].key, KEY_WIDE);
    EXPECT_FLOAT_EQ(labels[0].x, 32 + 58);
    EXPECT_FLOAT_EQ(labels[0].y, 50 + 24 + 91);
    EXPECT_FLOAT_EQ(labels[0].width, 121);
    const auto keys = ConsoleKeys(0);
    for (int k = 1; k <= 2; k++) {
        const CONSOLEKEYLABEL& box = labels[(size_t)k + 1];
        EXPECT_EQ(box.key, k);
        EXPECT_FLOAT_EQ(box.x, (float)KeyWithId(keys, k).left - 10 * k);
        EXPECT_FLOAT_EQ(box.y, (float)KeyWithId(keys, k).top + 24);
    }
    // A point over key 1 but left of its box belongs to key 0's box.
    const float y = labels[2].y + 5;
    EXPECT_EQ(KeyLabelAt(labels, 32 + 231 + 53, (int)y)->key, 0);
    EXPECT_EQ(KeyLabelAt(labels, 32 + 231 + 54, (int)y)->key, 1);
    EXPECT_EQ(KeyLabelAt(labels, 32 + 231 + 54 * 3, (int)y), nullptr);
    EXPECT_EQ(KeyLabelAt(labels, 32 + 125 + 1, 50 + 24 + 246 + 1)->key, KEY_DEL);
}

TEST(KeyGeometry, LedMarksByType)
{
    auto count = [](const std::vector<CONSOLELED>& leds, LEDLIST list) {
        int n = 0;
        for (const CONSOLELED& led : leds)
            n += led.list == list;
        return n;
    };
    const auto classic = ConsoleLeds(0);
    EXPECT_EQ(classic.size(), 3u + 4 + 2 + 30);
    EXPECT_EQ(count(classic, LEDLIST_RED), 1);
    EXPECT_EQ(classic[2].key, 122);
    EXPECT_EQ(classic[2].left, 32 + 166);
    EXPECT_EQ(classic[2].top, 50 + 62);
    EXPECT_EQ(ConsoleLeds(2).size(), 4u + 2 + 30);        // no type-0 marks
    EXPECT_EQ(ConsoleLeds(4).size(), 4u + 1 + 30);        // no tall bar
    EXPECT_EQ(count(ConsoleLeds(5), LEDLIST_YELLOW), 15);
    const auto board = ConsoleLeds(3);
    const CONSOLELED& last = board.back();
    EXPECT_EQ(last.key, 14);
    EXPECT_TRUE(last.secondary);
    EXPECT_EQ(last.left, 38 + 221 + 64 * 2);
    EXPECT_EQ(last.top, 38 + 113 + 48 * 4);
    EXPECT_EQ(last.frameWidth, 5);
    EXPECT_EQ(board[4].image, IDB_LEDBAR_TALL);
    EXPECT_EQ(board[4].frameHeight, 28);
}

TEST(KeyGeometry, SpecialKeyFramesFollowTheirMode)
{
    KEYLOOK look = {0, 121, 0, 1, 0, false, 1};
    EXPECT_EQ(ChooseKeyFrame(look, 230, 76).sourceX, 0);
    EXPECT_EQ(ChooseKeyFrame(look, 230, 76).frameWidth, 46);
    look.specialMode = 1;
    EXPECT_EQ(ChooseKeyFrame(look, 230, 76).sourceX, 46);
    look.functionId = 160;
    EXPECT_EQ(ChooseKeyFrame(look, 230, 76).sourceX, 92);
    look.baseFrame = 2;
    EXPECT_EQ(ChooseKeyFrame(look, 230, 76).sourceX, 138);
    look.specialMode = 2;
    EXPECT_EQ(ChooseKeyFrame(look, 230, 76).sourceX, 230);  // past the strip: only the fill shows
    look.functionId = 0;
    look.baseFrame = 1;
    EXPECT_EQ(ChooseKeyFrame(look, 230, 76).sourceX, 138);
}

TEST(KeyGeometry, OrdinaryKeyFrames)
{
    KEYLOOK look = {0, 4, 0, 1, 0, false, 0};
    EXPECT_EQ(ChooseKeyFrame(look, 93, 31).sourceX, 0);   // blank
    look.functionId = 21;
    EXPECT_EQ(ChooseKeyFrame(look, 93, 31).sourceX, 31);
    look.baseFrame = 2;
    EXPECT_EQ(ChooseKeyFrame(look, 93, 31).sourceX, 62);

    look = {0, 11, 0, 1, 0, true, 0};
    EXPECT_EQ(ChooseKeyFrame(look, 93, 31).sourceX, 31);  // numeric keypad
    look.keyId = 12;
    EXPECT_EQ(ChooseKeyFrame(look, 93, 31).sourceX, 0);
    look.keyId = KEY_ESC;
    look.numericKeys = false;
    EXPECT_EQ(ChooseKeyFrame(look, 93, 31).sourceX, 31);

    look = {4, KEY_PTT, 151, 1, 0, false, 2};              // PTT follows the indicator
    EXPECT_EQ(ChooseKeyFrame(look, 93, 31).sourceX, 62);
    look.type = 3;
    EXPECT_EQ(ChooseKeyFrame(look, 93, 31).sourceX, 31);
}

TEST(LedBlinking, FramesOfEveryModeAcrossTheSixPhases)
{
    const char* expected[] = {"000000", "000111", "011011", "111111"};
    for (int mode = LED_OFF; mode <= LED_ON; mode++) {
        char frames[7] = {};
        for (int phase = 0; phase < 6; phase++)
            frames[phase] = (char)('0' + LedFrame(mode, phase));
        EXPECT_STREQ(frames, expected[mode]) << "mode " << mode;
    }
    EXPECT_EQ(LedFrame(7, 4), 0);
    EXPECT_EQ(BlinkPhase(0), 0);
    EXPECT_EQ(BlinkPhase(249), 0);
    EXPECT_EQ(BlinkPhase(250), 1);
    EXPECT_EQ(BlinkPhase(1499), 5);
    EXPECT_EQ(BlinkPhase(1500), 0);
    EXPECT_EQ(BlinkPhase(0xFFFFFFFFu), (int)((0xFFFFFFFFu / 250) % 6));
}

TEST(KeyGeometry, ExtensionKeysHaveALedAndALabelBoxEach)
{
    const auto keys = ExtensionKeys(0, 1, 2);
    const auto leds = ExtensionLeds(0, 1, 2);
    const auto labels = ExtensionKeyLabels(0, 1, 2);
    ASSERT_EQ(leds.size(), 20u);
    ASSERT_EQ(labels.size(), 20u);
    for (size_t i = 0; i < keys.size(); i++) {
        EXPECT_EQ(leds[i].key, keys[i].id);
        EXPECT_EQ(labels[i].key, keys[i].id);
        EXPECT_LT(leds[i].left + 5, keys[i].left);  // left of the key, clear of it
        EXPECT_EQ(KeyLabelAt(labels, keys[i].left, keys[i].top + 25)->key, keys[i].id);
        EXPECT_EQ(KeyAt(keys, (int)labels[i].x + 1, (int)labels[i].y + 1), nullptr);
    }
    EXPECT_TRUE(ExtensionLeds(0, 7, 0).empty());
}
