// Key plans: a spreadsheet's rows read against a design, their errors listed
// with their lines, and the design rewritten with nothing else touched.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "../../tools/designreport/designmodel.h"
#include "../../tools/designreport/reports.h"
#include "../../tools/keyplan/keyplan.h"
#include "sourcefile.h"

namespace {

// Two consoles of one controller with its lists; the first has one
// extension, a zone key, an EVAC key and a label; the second is a board
// (type 3) with a lock switch on its first special key. Key lines are only
// there for configured keys: the plan adds the others.
const char kDesign[] =
    "projectversion=V 3.9.0\r\n"
    "control=0x00000000 ORNCON \"ORNCON_1\" 0x54000000 40,150,150x40\r\n"
    "ORNCON_1*zones=Hall,Lobby\r\n"
    "ORNCON_1*groups=Upstairs\r\n"
    "ORNCON_1*messages=Evacuate now|3,Gong|7\r\n"
    "ORNCON_1*inputs=Mic 1\r\n"
    "ORNCON_1*logic=Lights\r\n"
    "control=0x00000000 DOVRIXC \"ORNCST_1\" 0x56000000 40,40,74x57\r\n"
    "ORNCST_1*ExtensionCount=1\r\n"
    "ORNCST_1*key000=Select Zone,0,ORNCON_1.Hall\r\n"
    "ORNCST_1*key001=EVAC Messages to Zone,0,90,0,0,0,1,0,ORNCON_1.Lobby,Evacuate now|3\r\n"
    "ORNCST_1*key002=Protect\r\n"
    "ORNCST_1*keylabel000=Hall\r\n"
    "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule\r\n"
    "control=0x00000000 DOVRIXC \"ELKCST_2\" 0x56000000 240,40,74x57\r\n"
    "ELKCST_2*type=3\r\n"
    "ELKCST_2*key0120OptionState=2\r\n"
    "ELKCST_2*connection=ORNCON_1.DOVRIXCSTModule\r\n";

KEYPLAN Plan(const std::string& csv)
{
    return ReadKeyPlan(ReadDesignText(kDesign, "site.ds"), csv);
}

std::string Errors(const KEYPLAN& plan)
{
    return FormatPlanErrors("plan.csv", plan);
}

std::string Applied(const std::string& csv)
{
    const KEYPLAN plan = Plan(csv);
    EXPECT_TRUE(plan.errors.empty()) << Errors(plan);
    return ApplyKeyPlan(kDesign, plan);
}

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST(KeyPlan, TheReportsCsvGivesTheDesignBackByteForByte)
{
    for (const char* path : {"samples/sample.ds", "tests/data/allkeys.ds"}) {
        const std::string design = SourceFile(path);
        const DESIGNMODEL model = ReadDesignText(design, path);
        TEXTSINK csv;
        WriteCsv(model, &csv);
        const KEYPLAN plan = ReadKeyPlan(model, csv.Text());
        EXPECT_EQ(Errors(plan), "") << path;
        EXPECT_TRUE(plan.changes.empty()) << path << "\n" << FormatPlanDifference(plan);
        EXPECT_EQ(ApplyKeyPlan(design, plan), design) << path;
    }
}

TEST(KeyPlan, RowsBecomeRecordsOfTheCodecsGrammar)
{
    struct CASE {
        const char* row;     // Console,Key,Function,Destination,Message,Priority,Trigger,Active when locked
        const char* line;    // the design line it gives
    } const cases[] = {
        // A zone by its name, of the console's own controller.
        {"ORNCST_1,4,Select Zone,Lobby,,,,", "ORNCST_1*key003=Select Zone,0,ORNCON_1.Lobby"},
        // A new stop key is the catalogue's default, its priority then set.
        {"ORNCST_1,5,Stop,,,7,Switch,yes", "ORNCST_1*key004=Stop,1,7,1,91,91,"},
        {"ORNCST_1,3,Stop,,,7,0,no", "ORNCST_1*key002=Stop,0,7,0,91,91,"},  // a trigger type by its number
        {"ORNCST_1,6,Toggle All,,,,,", "ORNCST_1*key005=Toggle All,0"},
        {"ORNCST_1,7,On,,,30,,yes", "ORNCST_1*key006=On,30,1"},
        // A message by its name takes the list's NAME|NUMBER entry.
        {"ORNCST_1,8,Business Messages to Group,Upstairs,Gong,20,Trigger,yes",
         "ORNCST_1*key007=Business Messages to Group,0,20,2,1,0,ORNCON_1.Upstairs,Gong|7"},
        {"ORNCST_1,9,Alarm to Zone,Hall,Extern; input Mic 1,95,Push,no",
         "ORNCST_1*key008=Alarm to Zone,0,0,0,95,0,ORNCON_1.Hall,Mic 1"},
        {"ORNCST_1,*,Alarm to Selection,,Siren,,Switch,", "ORNCST_1*key009=Alarm to Selection,0,0,1,0,3,,"},
        {"ORNCST_1,0,Switch On,Lights,,,,", "ORNCST_1*key010=Switch On,Lights,0,0,0"},
        {"ORNCST_1,#,Indicator Test,,,,Toggle,yes", "ORNCST_1*key011=Indicator Test,1,1"},
        // An extension key, and a name the catalogue aliases.
        {"ORNCST_1,Ext 1 / key 2,Switch,Lights,,,,", "ORNCST_1*key016=Push,Lights,0,0,0"},
        // The wide key: a talk key with an unlocked and a locked prechime message.
        {"ORNCST_1,Wide key,Talk to Group,Upstairs,Gong; Evacuate now|3,60,Switch,yes",
         "ORNCST_1*key119=Talk to Group,0,1,1,60,1,0,1,0,0,1,0,0,0,0,0,ORNCON_1.Upstairs,Gong|7,Evacuate now|3"},
        // A function of the same family keeps the key's fields.
        {"ORNCST_1,2,EVAC Messages to Group,Upstairs,,,Trigger,",
         "ORNCST_1*key001=EVAC Messages to Group,0,90,2,0,0,1,0,ORNCON_1.Upstairs,Evacuate now|3"},
        {"ORNCST_1,1,Empty,,,,,", "ORNCST_1*key000=Empty"},
        {"ORNCST_1,NumericKey3,Select Group,Upstairs,,,,", "ORNCST_1*NumericKey3=Select Group,0,ORNCON_1.Upstairs"},
        // The board's PTT key and its lock switch.
        {"ELKCST_2,PTT,PTT to Zone,Hall,,70,,", "ELKCST_2*key123=PTT to Zone,0,0,0,70,0,0,0,0,0,ORNCON_1.Hall,"},
        {"ELKCST_2,Special 1 (key switch),Protect,,,,,", "ELKCST_2*key120=Protect"},
    };
    const std::string header = "Console,Key,Function,Destination,Message,Priority,Trigger,Active when locked\n";
    for (const CASE& c : cases) {
        const KEYPLAN plan = Plan(header + c.row + "\n");
        ASSERT_EQ(Errors(plan), "") << c.row;
        EXPECT_EQ(PlanDesignLines(plan), std::vector<std::string>{c.line}) << c.row;
    }
}

TEST(KeyPlan, EveryErrorIsListedWithItsLineAndNothingChanges)
{
    const char plan[] =
        "Console,Key,Function,Destination,Message,Priority,Trigger,Active when locked,Label\n"  // 1
        "ORNCST_9,1,Stop,,,,,,\n"                                                                 // 2
        "ORNCST_1,Ext 7 / key 1,Stop,,,,,,\n"                                                     // 3
        "ORNCST_1,4,Talk to Zone,Foyer,,,,,\n"                                                    // 4
        "ORNCST_1,5,EVAC Messages to Zone,Hall,Fire drill,,,,\n"                                  // 5
        "ORNCST_1,6,Alarm to Zone,Hall,Extern; input Mic 9,,,,\n"                                 // 6
        "ORNCST_1,7,Switch On,Doors,,,,,\n"                                                       // 7
        "ORNCST_1,8,Stop,,,70000,Sometimes,maybe,\n"                                              // 8
        "ORNCST_1,9,Select Zone,Hall,,,,,A label longer than thirty-one chars\n"                  // 9
        "ORNCST_1,9,Select Zone,Lobby,,,,,\n"                                                     // 10
        "ORNCST_1,ESC,Stop,,,,,,\n"                                                               // 11
        "ORNCST_1,Ext 2 / key 1,Stop,,,,,,\n"                                                     // 12
        "ORNCST_1,*,Protect,,,,,,\n"                                                              // 13
        "ORNCST_1,0,Indicator Test,,,,,,\n"                                                       // 14
        "ORNCST_1,#,Indicator Test,,,,,,\n"                                                       // 15
        "ORNCST_1,Keypad 13,Dance,,,,,,\n"                                                        // 16
        "ORNCST_1,DEL,Menu,,Gong,5,,,\n"                                                          // 17
        "ORNCST_1,Up arrow,Talk to Group,,,,,,\n"                                                 // 18
        "ELKCST_2,Special 1,Stop,,,,,,\n"                                                         // 19
        "ORNCST_1,Wide key,Talk to Zone,ELKCON_9.Hall,,,,,\n"                                     // 20
        "ORNCST_1,1,,,,,,,\"Line\nbreak\"\n"                                                      // 21
        "ORNCST_1,2,Increase,Volume,,5,,,\n";                                                    // 23
    const KEYPLAN result = Plan(plan);
    const std::string errors = Errors(result);
    const char* const expected[] = {
        "plan.csv(2): unknown console \"ORNCST_9\"",
        "plan.csv(3): unknown key \"Ext 7 / key 1\"",
        "plan.csv(4): ORNCST_1, \"4\": zone \"Foyer\" is not offered by ORNCON_1",
        "plan.csv(5): ORNCST_1, \"5\": message \"Fire drill\" is not offered by ORNCON_1",
        "plan.csv(6): ORNCST_1, \"6\": input channel \"Mic 9\" is not offered by ORNCON_1",
        "plan.csv(7): ORNCST_1, \"7\": logic variable \"Doors\" is not offered by ORNCON_1",
        "plan.csv(8): ORNCST_1, \"8\": priority \"70000\" is not a number from 0 to 65535",
        "plan.csv(8): ORNCST_1, \"8\": trigger type \"Sometimes\" is not one of Push, Switch, Trigger",
        "plan.csv(8): ORNCST_1, \"8\": active when locked is \"maybe\", not yes or no",
        "plan.csv(9): ORNCST_1, \"9\": the label has 36 characters, the device shows 31",
        "plan.csv(10): ORNCST_1, \"9\": the key is planned on line 9 already",
        "plan.csv(11): ORNCST_1, \"ESC\": the key does not take \"Stop\"",
        "plan.csv(12): ORNCST_1, \"Ext 2 / key 1\": the key does not take \"Stop\": Extension you are trying to "
        "configure does not exist",
        "plan.csv(13): ORNCST_1, \"*\": the key does not take \"Protect\": Protect key already configured",
        "plan.csv(14): ORNCST_1, \"0\": the key does not take \"Indicator Test\": Indicator Test key already "
        "configured",
        "plan.csv(15): ORNCST_1, \"#\": the key does not take \"Indicator Test\": Indicator Test key already "
        "configured",
        "plan.csv(16): ORNCST_1, \"Keypad 13\": function \"Dance\" is unknown",
        "plan.csv(17): ORNCST_1, \"DEL\": \"Menu\" carries no message",
        "plan.csv(17): ORNCST_1, \"DEL\": \"Menu\" has no priority",
        "plan.csv(18): ORNCST_1, \"Up arrow\": \"Talk to Group\" without a group",
        "plan.csv(19): ELKCST_2, \"Special 1\": the key does not take \"Stop\"",
        "plan.csv(20): ORNCST_1, \"Wide key\": zone \"ELKCON_9.Hall\" is not offered by ORNCON_1",
        "plan.csv(21): ORNCST_1, \"1\": the label holds a control character or a line break",
        "plan.csv(23): ORNCST_1, \"2\": \"Increase\" has no priority",
    };
    std::string all;
    for (const char* line : expected)
        all += std::string(line) + "\n";
    EXPECT_EQ(errors, all);
    EXPECT_TRUE(result.changes.empty());
}

TEST(KeyPlan, SpreadsheetsOfEveryLocaleAndCodePageAreRead)
{
    struct CASE {
        const char* what;
        std::string csv;
        const char* label;  // keylabel003 as the design stores it, Windows-1252
    } const cases[] = {
        {"semicolons, UTF-8 with its mark, CR LF", "\xEF\xBB\xBF" "Console;Key;Label\r\nORNCST_1;4;Gr\xC3\xBC\xC3\x9F" "e\r\n",
         "Gr\xFC\xDF" "e"},
        {"semicolons, UTF-8 without a mark, LF", "Console;Key;Label\nORNCST_1;4;K\xC3\xBC" "che \xE2\x82\xAC" "5\n",
         "K\xFC" "che \x80" "5"},
        {"commas, Windows-1252", "Console,Key,Label\nORNCST_1,4,Stra\xDF" "e\n", "Stra\xDF" "e"},
        {"quoted separators and quotes", "Console;Key;Label\nORNCST_1;4;\"Hall; \"\"east\"\", 2\"\n",
         "Hall; \"east\", 2"},
        {"columns in another order, a column of the spreadsheet's own", "Notes,Label,Id,Console\nx,Lift,3,ORNCST_1\n",
         "Lift"},
    };
    for (const CASE& c : cases) {
        const KEYPLAN plan = Plan(c.csv);
        ASSERT_EQ(Errors(plan), "") << c.what;
        EXPECT_EQ(PlanDesignLines(plan), std::vector<std::string>{std::string("ORNCST_1*keylabel003=") + c.label})
            << c.what;
    }
    // A character Windows-1252 lacks is an error on its line, not a "?".
    const KEYPLAN lacking = Plan("Console;Key;Label\nORNCST_1;4;Hall\nORNCST_1;5;\xE5\x8E\x85\n");
    EXPECT_EQ(Errors(lacking),
              "plan.csv(3): the character U+5385 (\"\xE5\x8E\x85\") is not in Windows-1252\n");
    const KEYPLAN quotes = Plan("Console,Key,Label\nORNCST_1,4,Ha\"ll\nORNCST_1,5,\"Lobby\"x\nORNCST_1,6,\"open\n");
    EXPECT_EQ(Errors(quotes), "plan.csv(2): a quote inside a field that does not begin with one\n"
                              "plan.csv(3): text after a closing quote\n"
                              "plan.csv(4): a quoted field is not closed\n");
    EXPECT_EQ(Errors(Plan("Label,Function\nx,Stop\n")),
              "plan.csv(1): the header names no \"Console\" column\n"
              "plan.csv(1): the header names neither a \"Key\" nor an \"Id\" column\n");
}

TEST(KeyPlan, ColumnsLeftOutKeepWhatTheKeyHas)
{
    // Only the priority: the EVAC key keeps its destination, message and the rest.
    EXPECT_EQ(PlanDesignLines(Plan("Console,Id,Priority\nORNCST_1,1,95\n")),
              std::vector<std::string>{
                  "ORNCST_1*key001=EVAC Messages to Zone,0,95,0,0,0,1,0,ORNCON_1.Lobby,Evacuate now|3"});
    // A row whose cells say what the key has changes nothing.
    const KEYPLAN same = Plan("Console,Key,Function,Destination,Label\nORNCST_1,1,Select Zone,ORNCON_1.Hall,Hall\n");
    EXPECT_EQ(Errors(same), "");
    EXPECT_TRUE(same.changes.empty());
    EXPECT_EQ(FormatPlanDifference(same), "The plan changes nothing\n");
}

TEST(KeyPlan, TheDifferenceAndTheDesignShowOnlyWhatChanges)
{
    const std::string csv = "Console,Key,Function,Destination,Label\n"
                            "ELKCST_2,2,Select Zone,Lobby,Lobby\n"
                            "ORNCST_1,1,Empty,,\n"
                            "ORNCST_1,3,Empty,,\n";
    const KEYPLAN plan = Plan(csv);
    EXPECT_EQ(FormatPlanDifference(plan),
              "ORNCST_1\n"
              "  \"1\" (key000): Select Zone,0,ORNCON_1.Hall \"Hall\" -> Empty \"\"\n"
              "  \"3\" (key002): Protect \"\" -> Empty \"\"\n"
              "ELKCST_2\n"
              "  \"2\" (key001): Empty \"\" -> Select Zone,0,ORNCON_1.Lobby \"Lobby\"\n"
              "3 keys change on 2 consoles\n");
    const std::string applied = Applied(csv);
    // Lines in place, in their own line ends; lines the design lacks after the console's last line.
    EXPECT_TRUE(Has(applied, "ORNCST_1*key000=Empty\r\nORNCST_1*key001=EVAC")) << applied;
    EXPECT_TRUE(Has(applied, "ORNCST_1*key002=Empty\r\nORNCST_1*keylabel000=\r\n")) << applied;
    EXPECT_TRUE(Has(applied, "ELKCST_2*connection=ORNCON_1.DOVRIXCSTModule\r\n"
                             "ELKCST_2*key001=Select Zone,0,ORNCON_1.Lobby\r\n"
                             "ELKCST_2*keylabel001=Lobby\r\n")) << applied;
    // Applying the plan's own result again changes nothing more.
    const KEYPLAN again = ReadKeyPlan(ReadDesignText(applied, "site.ds"), csv);
    EXPECT_TRUE(again.changes.empty()) << FormatPlanDifference(again);
}
