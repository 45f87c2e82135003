#include <gtest/gtest.h>

#include <vector>

#include "../../plugin/console/keynavigation.h"

namespace {

CONSOLEKEY Key(int id, int left, int top)
{
    CONSOLEKEY key = {};
    key.id = id;
    key.left = left;
    key.top = top;
    key.frameWidth = 20;
    key.frameHeight = 20;
    return key;
}

// A console face of type 0 with its first extension beside it, as the view lays them out.
std::vector<CONSOLEKEY> FaceWithExtension()
{
    std::vector<CONSOLEKEY> keys = ConsoleKeys(0);
    const std::vector<CONSOLEKEY> extension = ExtensionKeys(0, 0, 0);
    keys.insert(keys.end(), extension.begin(), extension.end());
    for (CONSOLEKEY& key : keys)
        SizeKeyFrame(&key, ImageSizeOf(key.image));
    return keys;
}

}  // namespace

TEST(KeyNavigation, ArrowsGoToTheNearestKeyThatWay)
{
    // 1 2
    // 3 4   and 5 far to the right, a little lower
    const std::vector<CONSOLEKEY> keys = {Key(1, 0, 0), Key(2, 30, 0), Key(3, 0, 30), Key(4, 30, 30), Key(5, 200, 40)};
    EXPECT_EQ(NeighbourKey(keys, 1, KEYDIRECTION_RIGHT), 2);
    EXPECT_EQ(NeighbourKey(keys, 1, KEYDIRECTION_DOWN), 3);
    EXPECT_EQ(NeighbourKey(keys, 4, KEYDIRECTION_UP), 2);
    EXPECT_EQ(NeighbourKey(keys, 4, KEYDIRECTION_LEFT), 3);
    EXPECT_EQ(NeighbourKey(keys, 4, KEYDIRECTION_RIGHT), 5);
    EXPECT_EQ(NeighbourKey(keys, 5, KEYDIRECTION_LEFT), 4);
    EXPECT_EQ(NeighbourKey(keys, 1, KEYDIRECTION_LEFT), 1);  // nothing that way: it stays
    EXPECT_EQ(NeighbourKey(keys, 9, KEYDIRECTION_LEFT), -1);
}

TEST(KeyNavigation, FromKey14IntoTheFirstExtensionAndBack)
{
    const std::vector<CONSOLEKEY> keys = FaceWithExtension();
    EXPECT_EQ(NeighbourKey(keys, 14, KEYDIRECTION_RIGHT), 31);  // the extension's bottom row, first key
    EXPECT_EQ(NeighbourKey(keys, 31, KEYDIRECTION_LEFT), 14);
    EXPECT_EQ(NeighbourKey(keys, 31, KEYDIRECTION_UP), 27);
    EXPECT_EQ(NeighbourKey(keys, 13, KEYDIRECTION_RIGHT), 14);
    EXPECT_EQ(NeighbourKey(keys, 11, KEYDIRECTION_DOWN), 14);
}
