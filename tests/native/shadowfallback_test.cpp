#include <gtest/gtest.h>

#include "../../plugin/entry/shadowfallback.h"
#include "tracecapture.h"

namespace {

struct SYSTEM {
    bool refusesShadow;
    bool refusesAll;
    std::vector<unsigned> attempts;
};

bool Register(unsigned style, void* context, unsigned long* error)
{
    SYSTEM* system = static_cast<SYSTEM*>(context);
    system->attempts.push_back(style);
    if (system->refusesAll || (system->refusesShadow && (style & CLASSSTYLE_DROPSHADOW))) {
        *error = 87;
        return false;
    }
    return true;
}

}  // namespace

TEST(ShadowFallback, ShadowAcceptedNoTrace)
{
    SYSTEM system = {false, false, {}};
    TraceLines().clear();
    EXPECT_EQ(RegisterWithShadowFallback(0x24803, "RegisterConsoleView failed %d\n", Register, &system), 1);
    EXPECT_EQ(system.attempts, std::vector<unsigned>{0x24803});
    EXPECT_TRUE(TraceLines().empty());
}

TEST(ShadowFallback, ShadowRefusedRegistersWithoutItAndTracesOnce)
{
    SYSTEM system = {true, false, {}};
    TraceLines().clear();
    EXPECT_EQ(RegisterWithShadowFallback(0x24803, "RegisterConsoleView failed %d\n", Register, &system), 1);
    EXPECT_EQ(system.attempts, (std::vector<unsigned>{0x24803, 0x4803}));
    EXPECT_EQ(TraceLines(), std::vector<std::string>{"RegisterConsoleView failed 87\n"});
}

TEST(ShadowFallback, BothRefusedFailsSilently)
{
    SYSTEM system = {true, true, {}};
    TraceLines().clear();
    EXPECT_EQ(RegisterWithShadowFallback(0x24803, "RegisterConsoleView failed %d\n", Register, &system), 0);
    EXPECT_TRUE(TraceLines().empty());
}
