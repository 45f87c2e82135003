#include <gtest/gtest.h>

#include "../../plugin/console/keygeometry.h"
#include "../../plugin/console/viewrules.h"

TEST(ViewRules, KeyMenus)
{
    for (int type : {0, 3, 4, 5, 6})
        for (bool numeric : {false, true})
            EXPECT_EQ(KeyMenuFor(type, KEY_ESC, numeric), KEYMENU_NONE);
    EXPECT_EQ(KeyMenuFor(0, -1, false), KEYMENU_NONE);
    EXPECT_EQ(KeyMenuFor(0, 11, true), KEYMENU_NONE);
    EXPECT_EQ(KeyMenuFor(0, 11, false), KEYMENU_ORDINARY);
    EXPECT_EQ(KeyMenuFor(0, 12, true), KEYMENU_ORDINARY);
    EXPECT_EQ(KeyMenuFor(5, KEY_PTT, false), KEYMENU_NONE);
    EXPECT_EQ(KeyMenuFor(3, KEY_PTT, false), KEYMENU_ORDINARY);
    EXPECT_EQ(KeyMenuFor(0, 120, false), KEYMENU_SPECIAL);
    EXPECT_EQ(KeyMenuFor(0, 122, true), KEYMENU_SPECIAL);
    EXPECT_EQ(KeyMenuFor(0, 60, false), KEYMENU_ORDINARY);
    EXPECT_FALSE(CanClearKey(0));
    EXPECT_FALSE(CanCopyKey(120));
    EXPECT_FALSE(CanCopyKey(170));
    EXPECT_TRUE(CanCopyKey(160));
}

TEST(ViewRules, SystemFaultsOnlyWhereTheConsoleHasAFaultKey)
{
    const int32_t systemFaults = 160;
    EXPECT_TRUE(RefusesPastedFunction(4, KEY_ESC, systemFaults));
    EXPECT_TRUE(RefusesPastedFunction(5, 3, systemFaults));
    EXPECT_FALSE(RefusesPastedFunction(4, KEY_DEL, systemFaults));
    for (int key = KEY_DEL; key <= KEY_WIDE; key++)
        EXPECT_TRUE(RefusesPastedFunction(0, key, systemFaults)) << key;
    EXPECT_FALSE(RefusesPastedFunction(0, 3, systemFaults));
    EXPECT_FALSE(RefusesPastedFunction(3, KEY_ESC, systemFaults));
    EXPECT_FALSE(RefusesPastedFunction(4, KEY_ESC, 21));
}

TEST(ViewRules, Tooltips)
{
    EXPECT_EQ(KeyTooltip(0, 7, "Talk to Zone", "", "none", "none"), " ID:\t\t 7\n Function:\t Talk to Zone");
    EXPECT_EQ(KeyTooltip(4, 2, nullptr, "", "none", "none"), " ID:\t\t 2\n Function:\t Numeric key");
    EXPECT_EQ(KeyTooltip(6, 0, "Empty", "CN15/9", "CN10/2", "CN10/6"),
              " ID:\t\t 0\n Function:\t Empty\n Button:\t\t CN15/9\n Primary LED:\t CN10/2\n Secondary LED:\t CN10/6");
}

TEST(ViewRules, ExtensionLimits)
{
    uint8_t slots[5] = {};
    EXPECT_EQ(RemoveExtensionSlot(slots), -1);
    for (int slot = 0; slot < 5; slot++)
        EXPECT_EQ(AddExtensionSlot(slots), slot);
    EXPECT_EQ(AddExtensionSlot(slots), -1);
    EXPECT_EQ(PresentExtensions(slots), 5);
    EXPECT_EQ(RemoveExtensionSlot(slots), 4);
    slots[1] = 0;
    EXPECT_EQ(AddExtensionSlot(slots), 1);   // the first gap fills first
    EXPECT_EQ(RemoveExtensionSlot(slots), 3);
    EXPECT_EQ(PresentExtensions(slots), 3);
}

TEST(ViewRules, PageButtonsOfSlotsOneAndThree)
{
    const uint8_t slots[5] = {0, 1, 0, 1, 0};
    const auto buttons = PageButtons(slots);
    ASSERT_EQ(buttons.size(), 3u);
    EXPECT_EQ(buttons[0].text, "Console");
    EXPECT_EQ(buttons[0].id, 2000);
    EXPECT_EQ(buttons[0].y, 0);
    EXPECT_EQ(buttons[1].text, "Extension 2");
    EXPECT_EQ(buttons[1].id, 2002);
    EXPECT_EQ(buttons[1].y, 30);
    EXPECT_EQ(buttons[2].text, "Extension 4");
    EXPECT_EQ(buttons[2].id, 2004);
    EXPECT_EQ(buttons[2].y, 60);
    EXPECT_EQ(SlotOfPage(slots, 2), 1);
    EXPECT_EQ(SlotOfPage(slots, 1), -1);
    EXPECT_EQ(SlotOfPage(slots, 6), -1);
    EXPECT_EQ(SlotOfPage(slots, 0), -1);

    const uint8_t onlyThird[5] = {0, 0, 1, 0, 0};
    EXPECT_EQ(PageButtons(onlyThird)[1].text, "Extension 3");
    EXPECT_EQ(PageButtons(onlyThird)[1].id, 2003);
    EXPECT_EQ(PageButtons(onlyThird)[1].y, 30);
}
