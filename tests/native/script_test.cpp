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

TEST(Script, DeviceCommands)
{
    SCRIPTCOMMAND command;
    std::string error;
    ASSERT_TRUE(ParseScriptLine("online Site*Floor1*ELKCST_3 on", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_ONLINE);
    EXPECT_EQ(command.object, "Site*Floor1*ELKCST_3");
    EXPECT_EQ(command.value, 1);
    ASSERT_TRUE(ParseScriptLine("fault ORNCST_1 10 off", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_FAULT);
    EXPECT_EQ(command.code, 10);
    EXPECT_EQ(command.value, 0);
    ASSERT_TRUE(ParseScriptLine("device ORNCON_1 CAN.Baudrate=62", &command, &error));
    EXPECT_EQ(command.object, "ORNCON_1");
    EXPECT_EQ(command.text, "CAN.Baudrate");
    EXPECT_EQ(command.value, 62);
    ASSERT_TRUE(ParseScriptLine("tick 1001", &command, &error));
    EXPECT_EQ(command.code, 1001);
    ASSERT_TRUE(ParseScriptLine("list ORNCST_1", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_LIST);
    ASSERT_TRUE(ParseScriptLine("edit ORNCST_1 name Reception  desk", &command, &error));
    EXPECT_EQ(command.object, "ORNCST_1");
    EXPECT_EQ(command.text, "name");
    EXPECT_EQ(command.typed, "Reception  desk");
    ASSERT_TRUE(ParseScriptLine("drag ORNCON_1 -5 10", &command, &error));
    EXPECT_EQ(command.code, -5);
    EXPECT_EQ(command.value, 10);
    ASSERT_TRUE(ParseScriptLine("shot config:ORNCST_1 out\\config.png", &command, &error));
    EXPECT_EQ(command.object, "config:ORNCST_1");
}

TEST(Script, MalformedLinesSayWhy)
{
    SCRIPTCOMMAND command;
    std::string error;
    for (const char* line : {"set name=1", "set Desk*=1", "set Desk*name", "get Desk", "callback x", "trace now",
                             "save", "jump Desk", "online ORNCST_1 maybe", "fault ORNCST_1 0 on",
                             "fault ORNCST_1 on", "device ORNCST_1 Buzzer", "device ORNCST_1 Buzzer=x", "tick -5",
                             "list", "edit ORNCST_1", "drag ORNCST_1 5", "design maybe", "shot surface",
                             "click ORNCST_1"}) {
        error.clear();
        EXPECT_FALSE(ParseScriptLine(line, &command, &error)) << line;
        EXPECT_FALSE(error.empty()) << line;
    }
}

TEST(Script, ConsoleViewCommands)
{
    SCRIPTCOMMAND command;
    std::string error;
    ASSERT_TRUE(ParseScriptLine("rclick Site*Floor1*ELKCST_3 121 Alarm Button", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_RCLICK);
    EXPECT_EQ(command.object, "Site*Floor1*ELKCST_3");
    EXPECT_EQ(command.key, 121);
    EXPECT_EQ(command.text, "Alarm Button");
    ASSERT_TRUE(ParseScriptLine("label ORNCST_1 4", &command, &error));  // an empty label
    EXPECT_EQ(command.verb, SCRIPT_LABEL);
    EXPECT_EQ(command.text, "");
    ASSERT_TRUE(ParseScriptLine("label ORNCST_1 4  Main  hall ", &command, &error));
    EXPECT_EQ(command.text, "Main  hall");
    ASSERT_TRUE(ParseScriptLine("release ORNCST_1 19", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_RELEASE);
    EXPECT_EQ(command.key, 19);
    ASSERT_TRUE(ParseScriptLine("page ORNCST_1 3", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_PAGE);
    EXPECT_EQ(command.code, 3);
    ASSERT_TRUE(ParseScriptLine("page ORNCST_1 buttons", &command, &error));
    EXPECT_EQ(command.text, "buttons");
    ASSERT_TRUE(ParseScriptLine("leds ORNCST_1 7 2", &command, &error));
    EXPECT_EQ(command.key, 7);
    EXPECT_EQ(command.code, 2);
    EXPECT_EQ(command.value, 0);
    ASSERT_TRUE(ParseScriptLine("leds ORNCST_1 7 1 3", &command, &error));
    EXPECT_EQ(command.value, 3);
    ASSERT_TRUE(ParseScriptLine("scroll ORNCST_1 300", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_SCROLL);
    EXPECT_EQ(command.code, 300);
    ASSERT_TRUE(ParseScriptLine("view ORNCST_1", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_VIEW);

    for (const char* bad : {"press ORNCST_1", "press ORNCST_1 x", "rclick ORNCST_1 3", "extension ORNCST_1 more",
                            "page ORNCST_1 next", "leds ORNCST_1 7 4", "leds ORNCST_1 7 1 1 1", "leds ORNCST_1",
                            "view", "scroll ORNCST_1 -5", "scroll ORNCST_1"}) {
        EXPECT_FALSE(ParseScriptLine(bad, &command, &error)) << bad;
        EXPECT_FALSE(error.empty()) << bad;
    }
}

TEST(Script, ArgumentsFollowTheirPattern)
{
    SCRIPTCOMMAND command;
    std::string error;
    // Read from the right, the object keeps what comes before, blanks and all.
    ASSERT_TRUE(ParseScriptLine("get Main  desk name", &command, &error));
    EXPECT_EQ(command.object, "Main  desk");
    EXPECT_EQ(command.text, "name");
    ASSERT_TRUE(ParseScriptLine("firmware ORNCST_1 ORN 2.zip secret", &command, &error));
    EXPECT_EQ(command.object, "ORNCST_1 ORN");
    EXPECT_EQ(command.text, "2.zip");
    EXPECT_EQ(command.typed, "secret");
    // Read from the left when the line ends in free text.
    ASSERT_TRUE(ParseScriptLine("shot surface out\\a b.png", &command, &error));
    EXPECT_EQ(command.object, "surface");
    EXPECT_EQ(command.text, "out\\a b.png");
    ASSERT_TRUE(ParseScriptLine("page ORNCST_1 side", &command, &error));
    EXPECT_EQ(command.code, 0);
    EXPECT_EQ(command.text, "side");
    ASSERT_TRUE(ParseScriptLine("extension ORNCST_1 remove", &command, &error));
    EXPECT_EQ(command.text, "remove");
    ASSERT_TRUE(ParseScriptLine("design off", &command, &error));
    EXPECT_EQ(command.value, 0);
    ASSERT_TRUE(ParseScriptLine("help", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_HELP);

    EXPECT_FALSE(ParseScriptLine("page ORNCST_1 N", &command, &error));
    EXPECT_FALSE(ParseScriptLine("fault ORNCST_1 11 on", &command, &error));
    EXPECT_EQ(error, "fault needs OBJ N on|off with N from 1 to 10");
    EXPECT_FALSE(ParseScriptLine("leds ORNCST_1 7 1 4", &command, &error));
    EXPECT_EQ(error, "leds needs OBJ KEY MODE [MODE2] with MODE from 0 to 3 and MODE2 from 0 to 3");
    EXPECT_FALSE(ParseScriptLine("tick -1", &command, &error));
    EXPECT_EQ(error, "tick needs MS with MS at least 0");
    EXPECT_FALSE(ParseScriptLine("help me", &command, &error));
    EXPECT_EQ(error, "help takes no arguments");
    EXPECT_FALSE(ParseScriptLine("frobnicate", &command, &error));
    EXPECT_EQ(error, "unknown command 'frobnicate'");
}

TEST(Script, KeyEditorCommands)
{
    SCRIPTCOMMAND command;
    std::string error;
    ASSERT_TRUE(ParseScriptLine("drop ORNCST_1 Talk 5", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_DROP);
    EXPECT_EQ(command.object, "ORNCST_1");
    EXPECT_EQ(command.text, "Talk");
    EXPECT_EQ(command.key, 5);
    ASSERT_TRUE(ParseScriptLine("pick ORNCST_1 1014 ORNCON_1.Car park", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_PICK);
    EXPECT_EQ(command.code, 1014);
    EXPECT_EQ(command.typed, "ORNCON_1.Car park");
    ASSERT_TRUE(ParseScriptLine("pick ORNCST_1 1008", &command, &error));  // an empty text
    EXPECT_EQ(command.typed, "");
    ASSERT_TRUE(ParseScriptLine("select ORNCST_1 12", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_SELECT);
    EXPECT_EQ(command.key, 12);
    EXPECT_EQ(command.text, "12");
    ASSERT_TRUE(ParseScriptLine("select ORNCST_1", &command, &error));
    EXPECT_EQ(command.text, "");  // the object alone
    ASSERT_TRUE(ParseScriptLine("page ORNCST_1", &command, &error));
    EXPECT_EQ(command.verb, SCRIPT_PAGE);
    EXPECT_EQ(command.text, "");
    ASSERT_TRUE(ParseScriptLine("page ORNCST_1 3", &command, &error));
    EXPECT_EQ(command.code, 3);
    for (const char* bad : {"drop ORNCST_1 Talk", "drop ORNCST_1 Talk x", "pick ORNCST_1 x 1", "pick ORNCST_1",
                            "select ORNCST_1 128", "page ORNCST_1 next"}) {
        EXPECT_FALSE(ParseScriptLine(bad, &command, &error)) << bad;
        EXPECT_FALSE(error.empty()) << bad;
    }
}
