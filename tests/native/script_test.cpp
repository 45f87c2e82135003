#include <gtest/gtest.h>

#include "../../host/workbench/script.h"

TEST(Script, Commands)
{
    SCRIPTCOMMAND command;
    std::string error;
    ASSERT_TRUE(ParseScriptLine("set Site*Floor1*Desk*name=A = B", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_SET);
    EXPECT_EQ(command.object, "Site*Floor1*Desk");
    EXPECT_EQ(command.text, "Site*Floor1*Desk*name=A = B");

    ASSERT_TRUE(ParseScriptLine("  get Site*Floor1*Desk Firmware.Revision\r", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_GET);
    EXPECT_EQ(command.object, "Site*Floor1*Desk");
    EXPECT_EQ(command.text, "Firmware.Revision");

    ASSERT_TRUE(ParseScriptLine("callback 13", &command, &error));
    EXPECT_EQ(command.code, 13);
    ASSERT_TRUE(ParseScriptLine("# a comment", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_NOTHING);
    ASSERT_TRUE(ParseScriptLine("", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_NOTHING);
}

TEST(Script, MalformedLinesSayWhy)
{
    SCRIPTCOMMAND command;
    std::string error;
    for (const char* line : {"set name=1", "set Desk*=1", "set Desk*name", "get Desk", "callback x", "trace now",
                             "save", "jump Desk"}) {
        error.clear();
        EXPECT_FALSE(ParseScriptLine(line, &command, &error)) << line;
        EXPECT_FALSE(error.empty()) << line;
    }
}
