#include <gtest/gtest.h>

#include <set>

#include "../../plugin/console/keygeometry.h"

namespace {

// Paints narrow the special keys to a fifth of their strip, as the view does.
std::vector<CONSOLEKEY> AsPainted(std::vector<CONSOLEKEY> keys)
{
    for (CONSOLEKEY& key : keys)
        if (key.id >= KEY_SPECIAL_FIRST && key.id <= KEY_SPECIAL_LAST)
            key.frameWidth = ImageSizeOf(key.image).width / 5;
    return keys;
}

}  // namespace

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

