#include <gtest/gtest.h>

#include "../../host/workbench/script.h"

namespace {

// A parsed command in one line: object|text|typed|code|value|key.
std::string Fields(const SCRIPTCOMMAND& command)
{
    return command.object + "|" + command.text + "|" + command.typed + "|" + std::to_string(command.code) + "|" +
           std::to_string(command.value) + "|" + std::to_string(command.key);
}

}  // namespace

TEST(Script, EachLineParsesIntoItsFields)
{
    struct ROW {
        const char* line;
        SCRIPTVERB verb;
        const char* fields;
    };
    const ROW rows[] = {
        {"set Site*Floor1*Desk*name=A = B", SCRIPT_SET, "Site*Floor1*Desk|Site*Floor1*Desk*name=A = B||0|0|0"},
        {"  get Site*Floor1*Desk Firmware.Revision\r", SCRIPT_GET, "Site*Floor1*Desk|Firmware.Revision||0|0|0"},
        {"callback 13", SCRIPT_CALLBACK, "|||13|0|0"},
        {"# a comment", SCRIPT_NOTHING, "|||0|0|0"},
        {"", SCRIPT_NOTHING, "|||0|0|0"},
        // The device's commands.
        {"online Site*Floor1*ELKCST_3 on", SCRIPT_ONLINE, "Site*Floor1*ELKCST_3|||0|1|0"},
        {"fault ORNCST_1 10 off", SCRIPT_FAULT, "ORNCST_1|||10|0|0"},
        {"device ORNCON_1 CAN.Baudrate=62", SCRIPT_DEVICE, "ORNCON_1|CAN.Baudrate||0|62|0"},
        {"tick 1001", SCRIPT_TICK, "|||1001|0|0"},
        {"list ORNCST_1", SCRIPT_LIST, "ORNCST_1|||0|0|0"},
        {"edit ORNCST_1 name Reception  desk", SCRIPT_EDIT, "ORNCST_1|name|Reception  desk|0|0|0"},
        {"drag ORNCON_1 -5 10", SCRIPT_DRAG, "ORNCON_1|||-5|10|0"},
        {"shot config:ORNCST_1 out\\config.png", SCRIPT_SHOT, "config:ORNCST_1|out\\config.png||0|0|0"},
        // The console view's commands.
        {"rclick Site*Floor1*ELKCST_3 121 Alarm Button", SCRIPT_RCLICK, "Site*Floor1*ELKCST_3|Alarm Button||0|0|121"},
        {"label ORNCST_1 4", SCRIPT_LABEL, "ORNCST_1|||0|0|4"},  // an empty label
        {"label ORNCST_1 4  Main  hall ", SCRIPT_LABEL, "ORNCST_1|Main  hall||0|0|4"},
        {"release ORNCST_1 19", SCRIPT_RELEASE, "ORNCST_1|||0|0|19"},
        {"page ORNCST_1 3", SCRIPT_PAGE, "ORNCST_1|3||3|0|0"},
        {"page ORNCST_1 buttons", SCRIPT_PAGE, "ORNCST_1|buttons||0|0|0"},
        {"page ORNCST_1 side", SCRIPT_PAGE, "ORNCST_1|side||0|0|0"},
        {"page ORNCST_1", SCRIPT_PAGE, "ORNCST_1|||0|0|0"},
        {"leds ORNCST_1 7 2", SCRIPT_LEDS, "ORNCST_1|||2|0|7"},
        {"leds ORNCST_1 7 1 3", SCRIPT_LEDS, "ORNCST_1|||1|3|7"},
        {"scroll ORNCST_1 300", SCRIPT_SCROLL, "ORNCST_1|||300|0|0"},
        {"view ORNCST_1", SCRIPT_VIEW, "ORNCST_1|||0|0|0"},
        // Read from the right, the object keeps what comes before, blanks and all.
        {"get Main  desk name", SCRIPT_GET, "Main  desk|name||0|0|0"},
        {"firmware ORNCST_1 ORN 2.zip secret", SCRIPT_FIRMWARE, "ORNCST_1 ORN|2.zip|secret|0|0|0"},
        // Read from the left when the line ends in free text.
        {"shot surface out\\a b.png", SCRIPT_SHOT, "surface|out\\a b.png||0|0|0"},
        {"extension ORNCST_1 remove", SCRIPT_EXTENSION, "ORNCST_1|remove||0|0|0"},
        {"design off", SCRIPT_DESIGN, "|||0|0|0"},
        {"help", SCRIPT_HELP, "|||0|0|0"},
        // The key editor's commands.
        {"drop ORNCST_1 Talk 5", SCRIPT_DROP, "ORNCST_1|Talk||0|0|5"},
        {"pick ORNCST_1 1014 ORNCON_1.Car park", SCRIPT_PICK, "ORNCST_1||ORNCON_1.Car park|1014|0|0"},
        {"pick ORNCST_1 1008", SCRIPT_PICK, "ORNCST_1|||1008|0|0"},  // an empty text
        {"select ORNCST_1 12", SCRIPT_SELECT, "ORNCST_1|12||0|0|12"},
        {"select ORNCST_1", SCRIPT_SELECT, "ORNCST_1|||0|0|0"},  // the object alone
    };
    for (const ROW& row : rows) {
        SCRIPTCOMMAND command;
        std::string error;
        ASSERT_TRUE(ParseScriptLine(row.line, &command, &error)) << row.line << ": " << error;
        EXPECT_EQ(command.verb, row.verb) << row.line;
        EXPECT_EQ(Fields(command), row.fields) << row.line;
    }
}

TEST(Script, MalformedLinesSayWhy)
{
    SCRIPTCOMMAND command;
    std::string error;
    for (const char* line :
         {"set name=1", "set Desk*=1", "set Desk*name", "get Desk", "callback x", "trace now", "save", "jump Desk",
          "online ORNCST_1 maybe", "fault ORNCST_1 0 on", "fault ORNCST_1 on", "device ORNCST_1 Buzzer",
          "device ORNCST_1 Buzzer=x", "tick -5", "list", "edit ORNCST_1", "drag ORNCST_1 5", "design maybe",
          "shot surface", "click ORNCST_1", "press ORNCST_1", "press ORNCST_1 x", "rclick ORNCST_1 3",
          "extension ORNCST_1 more", "page ORNCST_1 next", "leds ORNCST_1 7 4", "leds ORNCST_1 7 1 1 1",
          "leds ORNCST_1", "view", "scroll ORNCST_1 -5", "scroll ORNCST_1", "page ORNCST_1 N", "drop ORNCST_1 Talk",
          "drop ORNCST_1 Talk x", "pick ORNCST_1 x 1", "pick ORNCST_1", "select ORNCST_1 128"}) {
        error.clear();
        EXPECT_FALSE(ParseScriptLine(line, &command, &error)) << line;
        EXPECT_FALSE(error.empty()) << line;
    }
    struct ROW {
        const char* line;
        const char* error;
    };
    const ROW said[] = {
        {"fault ORNCST_1 11 on", "fault needs OBJ N on|off with N from 1 to 10"},
        {"leds ORNCST_1 7 1 4", "leds needs OBJ KEY MODE [MODE2] with MODE from 0 to 3 and MODE2 from 0 to 3"},
        {"tick -1", "tick needs MS with MS at least 0"},
        {"help me", "help takes no arguments"},
        {"frobnicate", "unknown command 'frobnicate'"},
    };
    for (const ROW& row : said) {
        EXPECT_FALSE(ParseScriptLine(row.line, &command, &error)) << row.line;
        EXPECT_EQ(error, row.error) << row.line;
    }
}
