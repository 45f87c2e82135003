// The design report's reading and checks: a design with one problem of each
// kind, the bundled sample, hostile lines.
#include <gtest/gtest.h>

#include <stdio.h>

#include <fstream>
#include <sstream>
#include <string>

#include "../../tools/designreport/designcheck.h"
#include "../../tools/designreport/designmodel.h"
#include "../../tools/designreport/keyrows.h"
#include "sourcefile.h"
#include "temppath.h"

namespace {

std::string Console(const std::string& name)
{
    return "control=0x00000000 DOVRIXC \"" + name + "\" 0x56000000 40,40,74x57\r\n";
}

const char kController[] = "control=0x00000000 ORNCON \"ORNCON_1\" 0x54000000 40,150,150x40\r\n";

int Count(const PROBLEMLIST& problems, PROBLEMKIND kind)
{
    int count = 0;
    for (const PROBLEM& problem : problems.items)
        count += problem.kind == kind;
    return count;
}

}  // namespace

TEST(DesignReport, TheSamplesCheckClean)
{
    for (const char* sample : {"samples/sample.ds"}) {
        const DESIGNMODEL model = ReadDesignText(SourceFile(sample), sample);
        ASSERT_GT(model.consoles.size(), 0u) << sample;
        const PROBLEMLIST problems = CheckDesign(model);
        for (const PROBLEM& problem : problems.items)
            ADD_FAILURE() << FormatProblem(model.fileName, problem);
    }
}

TEST(DesignReport, ADesignWithOneProblemOfEachKindReportsEachOnce)
{
    const DESIGNMODEL model = ReadDesignText(SourceFile("tests/data/problems.ds"), "problems.ds");
    const PROBLEMLIST problems = CheckDesign(model);
    for (int kind = 0; kind < PROBLEMKIND_COUNT; kind++)
        EXPECT_EQ(Count(problems, (PROBLEMKIND)kind), 1) << ProblemKindText((PROBLEMKIND)kind);
    EXPECT_EQ(problems.items.size(), (size_t)PROBLEMKIND_COUNT);
    // Each at the line of the design file that holds it.
    const int lines[PROBLEMKIND_COUNT] = {34, 13, 14, 15, 21, 24, 17, 19, 20, 30, 32, 26, 22};
    for (const PROBLEM& problem : problems.items)
        EXPECT_EQ(problem.line, lines[problem.kind]) << FormatProblem("problems.ds", problem);
}

TEST(DesignReport, ProblemsNameTheFileLineKindAndKey)
{
    const DESIGNMODEL model = ReadDesignText(SourceFile("tests/data/problems.ds"), "problems.ds");
    const PROBLEMLIST problems = CheckDesign(model);
    ASSERT_FALSE(problems.items.empty());
    EXPECT_EQ(FormatProblem(model.fileName, problems.items[0]),
              "problems.ds(13): unknown destination: ORNCST_1: key000 (\"1\"): zone \"Roof\" is not offered by "
              "ORNCON_1");
}

TEST(DesignReport, ListsAreCheckedOnlyWhereTheDesignCarriesThem)
{
    const std::string design = std::string(kController) + Console("ORNCST_1") +
                               "ORNCST_1*key000=Select Zone,0,ORNCON_1.Anywhere\r\n"
                               "ORNCST_1*key001=EVAC Messages to Zone,0,90,0,0,0,1,0,ORNCON_1.Hall,Any|1\r\n"
                               "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule\r\n";
    EXPECT_TRUE(CheckDesign(ReadDesignText(design, "d.ds")).items.empty());
    // An empty list offers nothing.
    const PROBLEMLIST problems = CheckDesign(ReadDesignText("ORNCON_1*zones=\r\n" + design, "d.ds"));
    EXPECT_EQ(problems.items.size(), 1u);  // the controller line came before its control line
    const std::string listed = std::string(kController) + "ORNCON_1*zones=\r\n" + Console("ORNCST_1") +
                               "ORNCST_1*key000=Select Zone,0,ORNCON_1.Anywhere\r\n"
                               "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule\r\n";
    EXPECT_EQ(Count(CheckDesign(ReadDesignText(listed, "d.ds")), PROBLEM_DESTINATION), 1);
}

// Small designs on one controller and one console: the problems each gives,
// as kind@line.
TEST(DesignReport, SmallDesignsGiveTheirProblems)
{
    struct ROW {
        const char* name;
        std::string lines;  // after the controller and the console ORNCST_1
        std::vector<std::string> problems;
    };
    const std::string connected = "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule\r\n";
    const std::string destination = ProblemKindText(PROBLEM_DESTINATION), none = ProblemKindText(PROBLEM_NO_DESTINATION);
    const std::string hidden = ProblemKindText(PROBLEM_HIDDEN_KEY), typo = ProblemKindText(PROBLEM_UNKNOWN_FUNCTION);
    const ROW rows[] = {
        {"a zone of another controller is not offered",
         "ORNCON_1*zones=Hall\r\nORNCST_1*key000=Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,ELKCON_1.Hall,,\r\n" +
             connected,
         {destination + "@4"}},
        // The default wide key talks to the selection: it has no destination by design.
        {"selection keys need no destination",
         "ORNCST_1*key119=Talk to Selection,0,0,0,50,0,0,1,\r\nORNCST_1*key002=Alarm to Selection,0,0,2,90,1,,\r\n"
         "ORNCST_1*key003=Select Group,0,\r\n" + connected,
         {none + "@5"}},
        // Extension slot s holds keys 20 s + 15 to 20 s + 34.
        {"keys beyond the extensions are hidden",
         "ORNCST_1*ExtensionCount=1\r\nORNCST_1*key034=Toggle All,0\r\nORNCST_1*key035=Toggle All,0\r\n"
         "ORNCST_1*key114=Toggle All,0\r\nORNCST_1*key124=Toggle All,0\r\nORNCST_1*key115=Toggle All,0\r\n" + connected,
         {hidden + "@5", hidden + "@6", hidden + "@7"}},
        {"a key cleared later is not configured", "ORNCST_1*key040=Toggle All,0\r\nORNCST_1*key040=Empty\r\n" + connected,
         {}},
        {"addresses are shared only on one controller",
         "control=0x00000000 ORNCON \"ORNCON_2\" 0x54000000 40,150,150x40\r\nORNCST_1*address=2\r\n" +
             Console("ORNCST_2") + "ORNCST_2*address=2\r\n" + connected +
             "ORNCST_2*connection=ORNCON_2.DOVRIXCSTModule\r\n",
         {}},
        {"an unknown function is a typo but empty is not",
         "ORNCST_1*key000=empty\r\nORNCST_1*key001=\r\nORNCST_1*key002=switch,Door,0,0,1\r\n"
         "ORNCST_1*key003=Talk to everyone,0\r\n" + connected,
         {typo + "@6"}},
        {"a label of 31 characters fits",
         "ORNCST_1*keylabel005=" + std::string(31, 'x') + "\r\nORNCST_1*keylabel006=" + std::string(32, 'x') +
             "\r\n" + connected,
         {std::string(ProblemKindText(PROBLEM_LONG_LABEL)) + "@4"}},
    };
    for (const ROW& row : rows) {
        SCOPED_TRACE(row.name);
        const DESIGNMODEL model = ReadDesignText(std::string(kController) + Console("ORNCST_1") + row.lines, "d.ds");
        std::vector<std::string> problems;
        for (const PROBLEM& problem : CheckDesign(model).items)
            problems.push_back(std::string(ProblemKindText(problem.kind)) + "@" + std::to_string(problem.line));
        EXPECT_EQ(problems, row.problems);
    }
    EXPECT_TRUE(ReadDesignText(std::string(kController) + Console("ORNCST_1") + rows[3].lines, "d.ds")
                    .consoles[0]
                    .keys.empty());
}

TEST(DesignReport, AConnectionToAControllerTheDesignLacksIsNone)
{
    const std::string design = Console("ORNCST_1") + "ORNCST_1*connection=ORNCON_7.DOVRIXCSTModule\r\n" +
                               Console("ORNCST_2") + "ORNCST_2*connection=nothing\r\n" + Console("ORNCST_3") +
                               "ORNCST_3*connection=\r\n";
    const PROBLEMLIST problems = CheckDesign(ReadDesignText(design, "d.ds"));
    ASSERT_EQ(problems.items.size(), 3u);
    EXPECT_EQ(Count(problems, PROBLEM_NO_CONNECTION), 3);
    // An empty connection line is no connection at all, not a port of no controller.
    EXPECT_EQ(problems.items[2].line, 6);
    EXPECT_NE(FormatProblem("d.ds", problems.items[2]).find("is not connected to a controller"), std::string::npos)
        << FormatProblem("d.ds", problems.items[2]);
}

TEST(DesignReport, MalformedLinesAreReportedAndTheReadingGoesOn)
{
    const std::string design = "no equals here\r\n" + std::string(kController) + "=value\r\n" +
                               "control=garbage\r\n" + "GHOST_1*key000=Protect\r\n" + Console("ORNCST_1") +
                               "ORNCST_1*name=" + std::string(10000, 'n') + "\r\n" +
                               "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule\r\n";
    const DESIGNMODEL model = ReadDesignText(design, "d.ds");
    ASSERT_EQ(model.lineProblems.items.size(), 4u);
    EXPECT_EQ(model.lineProblems.items[0].line, 1);
    EXPECT_EQ(model.lineProblems.items[1].line, 3);
    EXPECT_EQ(model.lineProblems.items[2].line, 4);
    EXPECT_EQ(model.lineProblems.items[3].line, 5);
    ASSERT_EQ(model.consoles.size(), 1u);
    // A 10 kB value is kept cut, with its length.
    EXPECT_EQ(model.consoles[0].displayName.length, 10000u);
    EXPECT_LE(model.consoles[0].displayName.text.size(), (size_t)REPORT_KEPT_TEXT);
    EXPECT_TRUE(model.consoles[0].hasConnection);
}

TEST(DesignReport, AnOverlongLineIsRefusedUnreadAndTheNextIsRead)
{
    const std::string design = std::string(kController) + Console("ORNCST_1") + "ORNCST_1*key000=" +
                               std::string(REPORT_LINE_LIMIT + 10, 'x') + "\r\nORNCST_1*key001=Protect\r\n";
    const DESIGNMODEL model = ReadDesignText(design, "d.ds");
    ASSERT_EQ(model.lineProblems.items.size(), 1u);
    EXPECT_EQ(model.lineProblems.items[0].line, 3);
    ASSERT_EQ(model.consoles[0].keys.size(), 1u);
    EXPECT_EQ(model.consoles[0].keys[0].record.line, 4);
}

TEST(DesignReport, ProblemsBeyondTheLimitAreCountedOnly)
{
    std::string design;
    for (int i = 0; i < REPORT_PROBLEM_LIMIT + 5; i++)
        design += "x\n";
    const DESIGNMODEL model = ReadDesignText(design, "d.ds");
    EXPECT_EQ(model.lineProblems.items.size(), (size_t)REPORT_PROBLEM_LIMIT);
    EXPECT_EQ(model.lineProblems.dropped, 5u);
}

TEST(DesignReport, AFileIsReadInChunksAsTheTextIs)
{
    std::string design = std::string(kController) + Console("ORNCST_1");
    for (int round = 0; round < 400; round++)
        for (int key = 0; key < 128; key++)
            design += "ORNCST_1*key" + std::to_string(1000 + key).substr(1) + "=Select Zone,0,ORNCON_1.Hall\r\n";
    design += "ORNCST_1*key000=" + std::string(REPORT_LINE_LIMIT * 2, 'y') + "\r\nlast line without equals";
    const std::string path = TempPath("designreport_chunks.ds");
    {
        std::ofstream file(path, std::ios::binary);
        file << design;
    }
    DESIGNMODEL fromFile;
    ASSERT_TRUE(ReadDesignFile(path.c_str(), "d.ds", &fromFile));
    const DESIGNMODEL fromText = ReadDesignText(design, "d.ds");
    EXPECT_EQ(fromFile.lines, fromText.lines);
    ASSERT_EQ(fromFile.lineProblems.items.size(), 2u);
    ASSERT_EQ(fromText.lineProblems.items.size(), 2u);
    for (size_t i = 0; i < 2; i++)
        EXPECT_EQ(fromFile.lineProblems.items[i].line, fromText.lineProblems.items[i].line);
    ASSERT_EQ(fromFile.consoles[0].keys.size(), 128u);
    ASSERT_EQ(fromText.consoles[0].keys.size(), 128u);
    EXPECT_EQ(fromFile.consoles[0].keys.back().record.line, fromText.consoles[0].keys.back().record.line);
    remove(path.c_str());
    DESIGNMODEL missing;
    EXPECT_FALSE(ReadDesignFile((path + ".missing").c_str(), "d.ds", &missing));
}

TEST(DesignReport, AFileWithAHugeLineIsReadInBoundedMemory)
{
    // 32 MB of one line, read in chunks: refused unread, the next line is read.
    const std::string path = TempPath("designreport_huge.ds");
    const std::string chunk(1 << 20, 'z');
    {
        std::ofstream file(path, std::ios::binary);
        file << kController << "ORNCON_1*zones=";
        for (int i = 0; i < 32; i++)
            file << chunk;
        file << "\r\n" << Console("ORNCST_1");
    }
    DESIGNMODEL model;
    ASSERT_TRUE(ReadDesignFile(path.c_str(), "d.ds", &model));
    remove(path.c_str());
    ASSERT_EQ(model.lineProblems.items.size(), 1u);
    EXPECT_EQ(model.lineProblems.items[0].line, 2);
    EXPECT_EQ(model.lineProblems.items[0].text, "Line too long (33554448 characters), not read");
    EXPECT_EQ(model.consoles.size(), 1u);
    EXPECT_FALSE(model.controllers[0].offers[OFFER_ZONES].present);
}

TEST(DesignReport, TheControllersListsAndOnlineStates)
{
    const DESIGNMODEL model = ReadDesignText(SourceFile("tests/data/problems.ds"), "problems.ds");
    const CONTROLLERDESIGN* controller = model.FindController("ORNCON_1");
    ASSERT_NE(controller, nullptr);
    EXPECT_EQ(controller->offers[OFFER_ZONES].names, (std::vector<std::string>{"Hall", "Lobby", "Car park"}));
    EXPECT_EQ(controller->offers[OFFER_MESSAGES].names, (std::vector<std::string>{"Evacuate now|3", "Gong|7"}));
    EXPECT_TRUE(controller->offers[OFFER_LOGIC].Has("Lights"));
    EXPECT_TRUE(controller->onlineAtSave.at("ORNCST_1"));
    EXPECT_EQ(std::string(OfferKeyword(OFFER_INPUTS)), "inputs");
}

TEST(DesignReport, ListsDropEmptyNamesAndCountsStayInRange)
{
    const std::string design = std::string(kController) + "ORNCON_1*zones=Hall,,Lobby,\r\n" + Console("ORNCST_1") +
                               "ORNCST_1*ExtensionCount=-1\r\n" + Console("ORNCST_2") + "ORNCST_2*ExtensionCount=9\r\n";
    const DESIGNMODEL model = ReadDesignText(design, "d.ds");
    EXPECT_EQ(model.controllers[0].offers[OFFER_ZONES].names, (std::vector<std::string>{"Hall", "Lobby"}));
    EXPECT_EQ(model.consoles[0].extensions, 0);
    EXPECT_EQ(model.consoles[1].extensions, 5);
    EXPECT_EQ(std::string(OfferKeyword(OFFER_COUNT)), "");
    EXPECT_EQ(std::string(ProblemKindText(PROBLEM_LINE)), "line");
}

TEST(DesignReport, AFileEndingOneByteAfterAChunkIsReadWhole)
{
    // The reader takes 64 KiB at a time: the last byte is a chunk of its own.
    std::string design = std::string(kController) + Console("ORNCST_1");
    while (design.size() < 65536 - 60)
        design += "ORNCST_1*key000=Protect\r\n";
    const std::string name = "ORNCST_1*name=";
    design += name + std::string(65536 - 2 - name.size() - design.size(), 'n') + "\r\n" + "x";
    ASSERT_EQ(design.size(), 65537u);
    const std::string path = TempPath("designreport_edge.ds");
    {
        std::ofstream file(path, std::ios::binary);
        file << design;
    }
    DESIGNMODEL model;
    ASSERT_TRUE(ReadDesignFile(path.c_str(), "d.ds", &model));
    remove(path.c_str());
    EXPECT_EQ(model.lines, ReadDesignText(design, "d.ds").lines);
    ASSERT_EQ(model.lineProblems.items.size(), 1u);
    EXPECT_EQ(model.lineProblems.items[0].text, "Malformed line: x");
}
