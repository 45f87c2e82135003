// The Windows build of the design report, run once as a user runs it.
#include <gtest/gtest.h>

#include <string>

#include "testhost.h"

TEST(DesignReportProgram, TheWindowsBuildReportsTheSampleAndChecksADesign)
{
    const std::string folder = TempFolder();
    const RUN sample = Program("designreport.exe \"" + SourcePath("samples\\sample.ds") + "\" --html \"" + folder +
                               "\\report.html\" --csv \"" + folder + "\\report.csv\" --labels \"" + folder +
                               "\\labels.svg\" --check --where Hall");
    EXPECT_EQ(sample.exitCode, 0u) << sample.out << sample.err;
    EXPECT_NE(sample.out.find("): ORNCST_1: key000 (\"1\"): Select Zone: ORNCON_1.Hall"), std::string::npos)
        << sample.out;
    EXPECT_NE(sample.out.find("0 problems"), std::string::npos) << sample.out;
    const std::string html = ReadFileBytes(folder + "\\report.html");
    EXPECT_EQ(html.compare(0, 15, "<!DOCTYPE html>"), 0);
    EXPECT_NE(html.find("Reception desk"), std::string::npos);
    const std::string csv = ReadFileBytes(folder + "\\report.csv");
    EXPECT_EQ(csv.compare(0, 11, "Controller,"), 0);
    EXPECT_NE(ReadFileBytes(folder + "\\labels.svg").find("</svg>"), std::string::npos);

    // A problem of each kind: exit status 1, one line each.
    const RUN problems = Program("designreport.exe \"" + SourcePath("tests\\data\\problems.ds") + "\" --check");
    EXPECT_EQ(problems.exitCode, 1u) << problems.err;
    EXPECT_NE(problems.out.find("13 problems"), std::string::npos) << problems.out;

    const RUN missing = Program("designreport.exe \"" + folder + "\\none.ds\"");
    EXPECT_EQ(missing.exitCode, 2u);
    EXPECT_NE(missing.err.find("cannot read"), std::string::npos);
}

TEST(KeyPlanProgram, TheWindowsBuildGivesTheSampleBackAndAppliesItsPlan)
{
    const std::string folder = TempFolder();
    const std::string sample = SourcePath("samples\\sample.ds");
    const RUN report = Program("designreport.exe \"" + sample + "\" --csv \"" + folder + "\\report.csv\"");
    ASSERT_EQ(report.exitCode, 0u) << report.err;
    // The report's CSV, unchanged, gives the design back byte for byte.
    const RUN same = Program("keyplan.exe \"" + sample + "\" \"" + folder + "\\report.csv\" --apply \"" + folder +
                             "\\same.ds\"");
    EXPECT_EQ(same.exitCode, 0u) << same.out << same.err;
    EXPECT_EQ(ReadFileBytes(folder + "\\same.ds"), ReadFileBytes(sample));

    // The sample plan (semicolons, UTF-8): the umlaut is saved in Windows-1252.
    const RUN plan = Program("keyplan.exe \"" + sample + "\" \"" + SourcePath("samples\\keyplan.csv") + "\" --apply \"" +
                             folder + "\\planned.ds\"");
    EXPECT_EQ(plan.exitCode, 0u) << plan.out << plan.err;
    EXPECT_NE(plan.out.find("5 keys change on 2 consoles"), std::string::npos) << plan.out;
    const std::string planned = ReadFileBytes(folder + "\\planned.ds");
    EXPECT_NE(planned.find("ELKCST_2*keylabel000=R\xE4umung Foyer\r\n"), std::string::npos);
    EXPECT_NE(planned.find("Site*Floor1*ELKCST_3*key115=Stop,0,0,0,91,91,\r\n"), std::string::npos);

    // A plan with an error writes nothing: exit status 1, the error with its line.
    const std::string bad = WriteScript("Console,Key,Function\r\nORNCST_1,ESC,Stop\r\n");
    const RUN refused = Program("keyplan.exe \"" + sample + "\" \"" + bad + "\" --apply \"" + folder + "\\bad.ds\"");
    EXPECT_EQ(refused.exitCode, 1u) << refused.err;
    EXPECT_NE(refused.out.find("(2): ORNCST_1, \"ESC\": the key does not take \"Stop\""), std::string::npos)
        << refused.out;
    EXPECT_EQ(GetFileAttributesA((folder + "\\bad.ds").c_str()), INVALID_FILE_ATTRIBUTES);
}
