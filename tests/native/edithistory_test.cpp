// The key edit history: steps undone and redone in order, one step for a
// control held down, nothing for a change that changes nothing, a bounded
// depth.
#include <gtest/gtest.h>

#include <string>

#include "../../plugin/keys/edithistory.h"

namespace {

KEYSTATE Key(int id, const std::string& record, const std::string& label = "", int role = 0)
{
    return KEYSTATE{id, record, label, role};
}

EDITSTEP Change(int id, const std::string& from, const std::string& to, const std::string& tag = "")
{
    EDITSTEP step;
    step.before = {Key(id, from)};
    step.after = {Key(id, to)};
    step.mergeTag = tag;
    return step;
}

}  // namespace

TEST(EditHistory, UndoAndRedoWalkTheStepsInOrder)
{
    EDITHISTORY history;
    EXPECT_FALSE(history.CanUndo());
    EXPECT_EQ(history.Undo(), nullptr);
    history.Record(Change(5, "", "Talk to Zone,"));
    history.Record(Change(6, "", "Chime,"));
    ASSERT_TRUE(history.CanUndo());
    const EDITSTEP* step = history.Undo();
    ASSERT_NE(step, nullptr);
    EXPECT_EQ(step->before.at(0), Key(6, ""));
    step = history.Undo();
    ASSERT_NE(step, nullptr);
    EXPECT_EQ(step->before.at(0), Key(5, ""));
    EXPECT_EQ(history.Undo(), nullptr);
    step = history.Redo();
    ASSERT_NE(step, nullptr);
    EXPECT_EQ(step->after.at(0), Key(5, "Talk to Zone,"));
    EXPECT_TRUE(history.CanRedo());
    // A new change drops what could be redone.
    history.Record(Change(7, "", "Stop,"));
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.Redo(), nullptr);
    EXPECT_EQ(history.Depth(), 2u);
    EXPECT_EQ(history.Undo()->after.at(0), Key(7, "Stop,"));
}

TEST(EditHistory, AControlHeldDownIsOneStep)
{
    EDITHISTORY history;
    for (int priority = 50; priority < 60; ++priority)
        history.Record(Change(5, "Talk," + std::to_string(priority), "Talk," + std::to_string(priority + 1), "5/1014"));
    EXPECT_EQ(history.Depth(), 1u);
    const EDITSTEP* step = history.Undo();
    EXPECT_EQ(step->before.at(0).record, "Talk,50");
    EXPECT_EQ(step->after.at(0).record, "Talk,60");
    EXPECT_FALSE(history.CanUndo());
}

TEST(EditHistory, MergingEndsWithAnotherTagASealOrAnUndo)
{
    EDITHISTORY history;
    history.Record(Change(5, "a", "b", "5/1014"));
    history.Record(Change(5, "b", "c", "5/1015"));  // another control
    EXPECT_EQ(history.Depth(), 2u);
    history.Seal();
    history.Record(Change(5, "c", "d", "5/1015"));
    EXPECT_EQ(history.Depth(), 3u);
    history.Undo();
    history.Redo();
    history.Record(Change(5, "d", "e", "5/1015"));
    EXPECT_EQ(history.Depth(), 4u);
    // Untagged changes never merge.
    history.Record(Change(5, "e", "f"));
    history.Record(Change(5, "f", "g"));
    EXPECT_EQ(history.Depth(), 6u);
}

TEST(EditHistory, ChangesThatChangeNothingLeaveNoStep)
{
    EDITHISTORY history;
    history.Record(Change(5, "same", "same"));
    EXPECT_FALSE(history.CanUndo());
    EDITSTEP labelOnly = Change(5, "same", "same");
    labelOnly.after[0].label = "Hall";
    history.Record(labelOnly);
    EDITSTEP roleOnly = Change(5, "same", "same");
    roleOnly.after[0].role = 2;
    history.Record(roleOnly);
    EDITSTEP extensionOnly;
    extensionOnly.extensionsBefore = 0x1;
    extensionOnly.extensionsAfter = 0x3;
    history.Record(extensionOnly);
    EXPECT_EQ(history.Depth(), 3u);
    // Typing back to where the field began takes the open step away.
    history.Seal();
    history.Record(Change(9, "x", "xy", "9/1008"));
    history.Record(Change(9, "xy", "x", "9/1008"));
    EXPECT_EQ(history.Depth(), 3u);
    // ... and what is typed next is a step of its own, even in a field whose
    // earlier, sealed step has the same tag.
    history.Record(Change(9, "a", "b", "9/1008"));
    history.Seal();
    history.Record(Change(9, "b", "bc", "9/1008"));
    history.Record(Change(9, "bc", "b", "9/1008"));
    history.Record(Change(9, "b", "bd", "9/1008"));
    EXPECT_EQ(history.Depth(), 5u);
}

TEST(EditHistory, AMergedStepKeepsTheFirstBeforeOfEveryKey)
{
    EDITHISTORY history;
    history.Record(Change(5, "a", "b", "paste"));
    EDITSTEP more;
    more.before = {Key(5, "b"), Key(6, "p")};
    more.after = {Key(5, "c"), Key(6, "q")};
    more.mergeTag = "paste";
    history.Record(more);
    const EDITSTEP* step = history.Undo();
    ASSERT_EQ(step->before.size(), 2u);
    EXPECT_EQ(step->before[0], Key(5, "a"));
    EXPECT_EQ(step->before[1], Key(6, "p"));
    EXPECT_EQ(step->after[0], Key(5, "c"));
    EXPECT_EQ(step->after[1], Key(6, "q"));
}

TEST(EditHistory, TheOldestStepsGiveWayBeyondTheDepth)
{
    EDITHISTORY history;
    for (int i = 0; i < EDITHISTORY_DEPTH + 5; ++i)
        history.Record(Change(5, std::to_string(i), std::to_string(i + 1)));
    EXPECT_GE(EDITHISTORY_DEPTH, 100);
    EXPECT_EQ(history.Depth(), (size_t)EDITHISTORY_DEPTH);
    const EDITSTEP* last = nullptr;
    while (const EDITSTEP* step = history.Undo())
        last = step;
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last->before.at(0).record, "5");  // steps 0 to 4 gave way
    history.Clear();
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.CanRedo());
}
