#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "../../host/workbench/verbs.h"

namespace {

// The cells of a Markdown table row; "\|" is a bar inside a cell.
std::vector<std::string> Cells(const std::string& row)
{
    std::vector<std::string> cells;
    std::string cell;
    for (size_t i = 1; i < row.size(); i++) {
        if (row[i] == '\\' && i + 1 < row.size() && row[i + 1] == '|') {
            cell += '|';
            i++;
        } else if (row[i] == '|') {
            cells.push_back(cell);
            cell.clear();
        } else {
            cell += row[i];
        }
    }
    return cells;
}

// The commands of the README's script table, verb to arguments, from the
// code spans of its first column ("`press OBJ KEY`, `release OBJ KEY`").
std::map<std::string, std::string> ReadmeCommands()
{
    std::ifstream readme(std::string(DOVRIXC_SOURCE_DIR) + "/README.md");
    std::map<std::string, std::string> commands;
    std::string line;
    bool inSection = false;
    bool inTable = false;
    while (std::getline(readme, line)) {
        if (line.rfind("Headless, the workbench runs a script", 0) == 0)
            inSection = true;
        if (!inSection)
            continue;
        if (line.rfind("|", 0) != 0) {
            if (inTable)
                break;
            continue;
        }
        inTable = true;
        const std::vector<std::string> cells = Cells(line);
        if (cells.empty() || cells[0].find('`') == std::string::npos)
            continue;  // the header and its rule
        std::istringstream spans(cells[0]);
        std::string span;
        for (int i = 0; std::getline(spans, span, '`'); i++) {
            if (i % 2 == 0)
                continue;
            const size_t blank = span.find(' ');
            commands[span.substr(0, blank)] = blank == std::string::npos ? "" : span.substr(blank + 1);
        }
    }
    return commands;
}

}  // namespace

TEST(Verbs, EveryVerbHasOneRow)
{
    std::set<std::string> names;
    for (int verb = SCRIPT_NOTHING + 1; verb < SCRIPT_VERB_COUNT; verb++) {
        int rows = 0;
        for (const SCRIPTVERBROW& row : ScriptVerbs())
            rows += row.verb == verb;
        EXPECT_EQ(rows, 1) << "verb " << verb;
    }
    for (const SCRIPTVERBROW& row : ScriptVerbs()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_TRUE(ScriptPatternIsKnown(row.pattern)) << row.name << " " << row.pattern;
        EXPECT_NE(row.help[0], '\0') << row.name;
        EXPECT_EQ(FindScriptVerb(row.name), &row);
        EXPECT_EQ(ScriptVerbRow(row.verb), &row);
    }
    EXPECT_EQ(ScriptVerbs().count, (size_t)SCRIPT_VERB_COUNT - 1);
}

TEST(Verbs, TheReadmeTableListsTheSameCommands)
{
    const std::map<std::string, std::string> readme = ReadmeCommands();
    ASSERT_FALSE(readme.empty());
    for (const SCRIPTVERBROW& row : ScriptVerbs()) {
        auto found = readme.find(row.name);
        if (found == readme.end())
            ADD_FAILURE() << "the README's table lacks " << row.name;
        else
            EXPECT_EQ(found->second, row.pattern) << row.name;
    }
    for (const auto& command : readme)
        EXPECT_NE(FindScriptVerb(command.first), nullptr) << "the README names an unknown command " << command.first;
}

TEST(Verbs, HelpShowsEveryVerbWithItsArguments)
{
    const std::string help = ScriptHelp();
    std::istringstream lines(help);
    std::string line;
    for (const SCRIPTVERBROW& row : ScriptVerbs()) {
        ASSERT_TRUE(std::getline(lines, line)) << row.name;
        const std::string usage = row.pattern[0] ? std::string(row.name) + " " + row.pattern : row.name;
        EXPECT_EQ(line.rfind(usage + " ", 0), 0u) << line;
        EXPECT_NE(line.find(row.help), std::string::npos) << line;
    }
    EXPECT_FALSE(std::getline(lines, line));
}

TEST(Verbs, EveryVerbParsesFromItsOwnPattern)
{
    // A sample argument for each placeholder.
    const std::map<std::string, std::string> samples = {
        {"OBJ", "Site*Floor1*ORNCST_1"}, {"TARGET", "surface"}, {"KEYWORD", "name"}, {"WIDGET", "Toggle"},
        {"PACKAGE", "ORN.zip"}, {"PASSWORD", "secret"}, {"FILE", "out\\a b.png"}, {"ITEM", "Not Used"},
        {"TEXT", "Main hall"}, {"VALUE", "Reception desk"}, {"CODE", "13"}, {"MS", "500"}, {"N", "3"},
        {"DX", "-5"}, {"DY", "7"}, {"X", "300"}, {"KEY", "121"}, {"MODE", "2"}, {"[MODE2]", "1"},
        {"on|off", "on"}, {"add|remove", "add"}, {"N|side|buttons", "side"},
        {"configuration|supervision", "supervision"}, {"CONSOLE", "ORNCST_2"},
        {"FUNCTION", "EVAC"}, {"CONTROL", "1014"}, {"[KEY]", "5"}, {"[N|side|buttons]", "buttons"},
        {"TYPE", "ORN-15CST"}, {"FIELD", "count"}, {"CONTROLLER", "ELKCON_1"}, {"[WINDOW]", "ORNCST_3"},
        {"OBJ*KEYWORD=VALUE", "ORNCST_1*name=Desk"}, {"VARIABLE=VALUE", "Faults3=1"}, {"KEYNAME", "ctrl+c"},
        {"KEYS", "5 6 7"}, {"PLAN", "plan.csv"}, {"[check|show]", "check"}};
    for (const SCRIPTVERBROW& row : ScriptVerbs()) {
        std::string line = row.name;
        std::istringstream words(row.pattern);
        std::string word;
        while (words >> word) {
            ASSERT_EQ(samples.count(word), 1u) << word;
            line += " " + samples.at(word);
        }
        SCRIPTCOMMAND command;
        std::string error;
        EXPECT_TRUE(ParseScriptLine(line, &command, &error)) << line << ": " << error;
        EXPECT_EQ(command.verb, row.verb) << line;
        if (row.pattern[0]) {
            EXPECT_FALSE(ParseScriptLine(row.name, &command, &error)) << row.name;
            EXPECT_EQ(error.rfind(std::string(row.name) + " needs " + row.pattern, 0), 0u) << error;
        } else {
            EXPECT_FALSE(ParseScriptLine(line + " more", &command, &error)) << line;
            EXPECT_EQ(error, std::string(row.name) + " takes no arguments");
        }
    }
}
