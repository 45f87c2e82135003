#include <gtest/gtest.h>

#include <string.h>

#include "../../plugin/keys/keycatalogue.h"

TEST(KeyCatalogue, LookupsAndTheirFallbacks)
{
    EXPECT_EQ(KeyFunctionId("switch"), 42);
    EXPECT_STREQ(KeyFunctionName(42), "Push");
    EXPECT_EQ(KeyFunctionId("tALK tO zONE"), 21);
    EXPECT_EQ(KeyFunctionId("Page All"), 0);
    EXPECT_EQ(KeyFunctionId(""), 0);
    EXPECT_STREQ(KeyFunctionName(100), "Types");
    EXPECT_STREQ(KeyFunctionName(0), "Empty");
    EXPECT_EQ(KeyFunctionPage(100), 182);
    EXPECT_EQ(KeyFunctionPage(0), 176);
    EXPECT_EQ(KeyFunctionPage(151), 152);
    EXPECT_EQ(KeyFunctionPage(44), 169);
    EXPECT_EQ(FindKeyFunctionIndex(0), 0);
    EXPECT_EQ(FindKeyFunctionIndex(150), 27);  // the PTT rows stand between "Stop" and "On"
    EXPECT_EQ(FindKeyFunctionIndex(110), 30);
    EXPECT_EQ(FindKeyFunctionIndex(105), -1);
    EXPECT_EQ(KeyFunctionIdAt(12), 42);
    EXPECT_STREQ(KeyFunctionNameAt(12), "Switch");
    EXPECT_EQ(KeyFunctionIdAt(40), -1);
    EXPECT_EQ(KeyFunctionNameAt(40), nullptr);
    EXPECT_EQ(KeyFamily(0), -1);
    EXPECT_EQ(KeyFamily(152), 14);
}

TEST(KeyCatalogue, CodeTablesKeepTheirGaps)
{
    const auto prechimes = PrechimeTable(false);
    EXPECT_EQ(prechimes.size(), 6u);
    EXPECT_EQ(PrechimeTable(true).at(7), "None");
    EXPECT_EQ(PrechimeTable(true).count(6), 0u);

    const auto tones = AlarmToneTable(false);
    for (int gap : {6, 18, 24, 25})
        EXPECT_EQ(tones.count(gap), 0u) << gap;
    EXPECT_EQ(tones.at(7), "Ship Alarm 1");
    EXPECT_EQ(tones.at(17), "Ship Alarm 11");
    EXPECT_EQ(tones.at(19), "Ship Alarm 13");
    EXPECT_EQ(tones.at(23), "Ship Alarm 17");
    EXPECT_EQ(AlarmToneTable(true).size(), tones.size() + 1);
    EXPECT_EQ(AlarmToneTable(true).at(25), "None");
    for (const auto& tone : tones)
        EXPECT_NE(tone.second, "Ship Alarm 12");

    const auto states = CallStateTable();
    EXPECT_EQ(states.at(1), "OFF");
    EXPECT_EQ(states.at(2), "GO");
    EXPECT_EQ(states.at(23), "ON: BUS MSG");
    EXPECT_EQ(states.count(24), 0u);
    EXPECT_EQ(PrechimeText(4), "2x2-Tone");
    EXPECT_EQ(PrechimeText(9), "No Prechime");
}

TEST(KeyCatalogue, FunctionTree)
{
    const KEYFUNCTIONNODE* tree = KeyFunctionTree();
    EXPECT_STREQ(tree[0].label, "Button Functions");
    EXPECT_EQ(tree[0].parent, -1);
    EXPECT_STREQ(tree[15].label, "System Fault\xA0" "Ack/Res");
    EXPECT_EQ(tree[15].id, 160);
    for (int node = 0; node < KEYFUNCTIONNODE_COUNT; node++)
        EXPECT_TRUE(tree[node].id < 150 || tree[node].id > 152) << tree[node].label;
}

TEST(KeyCatalogue, EditorChoiceListsAndDefaults)
{
    const CHOICELIST* lists = EditorChoiceLists();
    EXPECT_EQ(lists[4].page, 171);
    EXPECT_STREQ(lists[4].items[0], "\"BGM Selection\"");
    EXPECT_EQ(lists[9].count, 1);
    EXPECT_STREQ(lists[9].items[0], "");
    EXPECT_STREQ(lists[11].items[0], "toggle ");
    EXPECT_EQ(lists[6].count, 6);
    EXPECT_STREQ(DefaultKeyRecord(90), "Stop,0,0,0,91,91,");
    EXPECT_EQ(DefaultKeyRecord(120), nullptr);
    EXPECT_EQ(kDefaultKeys[0].key, 117);
}
