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
