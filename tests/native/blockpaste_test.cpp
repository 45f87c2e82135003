#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../plugin/console/blockpaste.h"

namespace {

const char kTalk[] = "Talk to Selection,0,0,0,0,0,0,1,0,0,0,0,0,0,0,0,,,";

PASTETARGET Console(int type = 0, int extensions = 0)
{
    PASTETARGET console;
    console.type = type;
    console.extensionCount = extensions;
    console.functions.assign(128, 0);
    return console;
}

std::vector<BLOCKKEY> ThreeKeys()
{
    return {{0, kTalk, "one"}, {1, kTalk, "two"}, {2, kTalk, ""}};
}

}  // namespace

TEST(BlockPaste, TheBlockKeepsItsOffsetsFromTheTarget)
{
    const std::vector<PASTEDKEY> plan = PlanBlockPaste(ThreeKeys(), 7, Console());
    ASSERT_EQ(plan.size(), 3u);
    EXPECT_EQ(plan[0].key, 7);
    EXPECT_EQ(plan[1].key, 8);
    EXPECT_EQ(plan[2].key, 9);
    EXPECT_EQ(plan[1].label, "two");
    for (const PASTEDKEY& key : plan)
        EXPECT_EQ(key.skipped, "");
    EXPECT_EQ(SkippedKeysText(plan), "");
}

TEST(BlockPaste, KeysOnTheMenuKeyOrOutsideTheConsoleAreSkippedAndNamed)
{
    std::vector<PASTEDKEY> plan = PlanBlockPaste(ThreeKeys(), 115, Console());
    EXPECT_EQ(plan[0].skipped, "");
    EXPECT_EQ(plan[1].skipped, "no key menu");  // 116
    EXPECT_EQ(plan[2].skipped, "");
    EXPECT_EQ(SkippedKeysText(plan), "Pasted 2 of 3 keys; skipped key 116: no key menu");
    plan = PlanBlockPaste(ThreeKeys(), 13, Console());  // 15 needs an extension
    EXPECT_EQ(plan[2].skipped, "outside the console");
    EXPECT_EQ(PlanBlockPaste(ThreeKeys(), 13, Console(0, 1))[2].skipped, "");
    plan = PlanBlockPaste({{0, kTalk, ""}, {-3, kTalk, ""}}, 1, Console());
    EXPECT_EQ(plan[1].key, -1);
    EXPECT_EQ(SkippedKeysText(plan), "Pasted 1 of 2 keys; skipped a key -3 from the target: outside the console");
}

TEST(BlockPaste, TheMenusLimitsAndTheOnePerConsoleRulesHold)
{
    PASTETARGET numeric = Console();
    numeric.numericKeys = true;
    EXPECT_EQ(PlanBlockPaste(ThreeKeys(), 10, numeric)[0].skipped, "no key menu");
    EXPECT_EQ(PlanBlockPaste(ThreeKeys(), 10, numeric)[2].skipped, "");
    EXPECT_EQ(PlanBlockPaste({{0, kTalk, ""}}, 123, Console(4))[0].skipped, "no key menu");
    const std::string faults = "System Faults,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,,,";
    EXPECT_EQ(PlanBlockPaste({{0, faults, ""}}, 3, Console(4))[0].skipped, "\"System Faults\" cannot sit there");
    EXPECT_EQ(PlanBlockPaste({{0, faults, ""}}, 115, Console(4))[0].skipped, "");
    PASTETARGET guarded = Console(0, 1);
    guarded.functions[20] = 120;
    const std::vector<BLOCKKEY> protect = {{0, "Protect", ""}, {1, "Protect", ""}};
    EXPECT_EQ(PlanBlockPaste(protect, 3, guarded)[0].skipped, "Protect key already configured");
    EXPECT_EQ(PlanBlockPaste(protect, 20, guarded)[0].skipped, "");  // onto the Protect key itself
    const std::vector<PASTEDKEY> two = PlanBlockPaste(protect, 3, Console());
    EXPECT_EQ(two[0].skipped, "");
    EXPECT_EQ(two[1].skipped, "Protect key already configured");  // the block's first counts
}
