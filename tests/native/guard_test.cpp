#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tracecapture.h"
#include "../../base/guard.h"

TEST(GuardedCall, AThrowIsTracedAndAnsweredWithTheFailureValue)
{
    TraceLines().clear();
    EXPECT_EQ(GuardedCall<long>("OnLoad", 0, []() -> long { throw std::length_error("too long"); }), 0);
    EXPECT_EQ(GuardedCall<int>("fnCallback", -1, []() -> int { throw 7; }), -1);
    EXPECT_EQ(GuardedCall<int>("fnCallback", -1, [] { return 13; }), 13);
    ASSERT_EQ(TraceLines().size(), 2u);
    EXPECT_EQ(TraceLines()[0], "OnLoad failed: too long\n");
    EXPECT_EQ(TraceLines()[1], "fnCallback failed\n");
}
