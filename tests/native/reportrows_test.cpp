// The design report's rows and outputs: keys as the device prints them,
// fields by family, HTML, CSV, label strips, "where", the command line, and
// the page in a real browser.
#include <gtest/gtest.h>

#include <algorithm>

#include <stdio.h>
#include <stdlib.h>

#include <fstream>
#include <sstream>
#include <string>

#include "../../tools/designreport/consolefacts.h"
#include "../../tools/designreport/designcheck.h"
#include "../../tools/designreport/keyrows.h"
#include "../../tools/designreport/labelfit.h"
#include "../../tools/designreport/reportoptions.h"
#include "../../tools/designreport/reports.h"
#include "sourcefile.h"
#include "temppath.h"

namespace {

DESIGNMODEL Problems()
{
    return ReadDesignText(SourceFile("tests/data/problems.ds"), "problems.ds");
}

KEYROW RowOf(const char* record, int slot = 0)
{
    CONSOLEDESIGN console;
    KEYLINE line;
    line.slot = slot;
    line.record.text = record;
    line.record.line = 7;
    return MakeKeyRow(console, line, false);
}

size_t Occurrences(const std::string& text, const std::string& what)
{
    size_t count = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        count++;
    return count;
}

}  // namespace

TEST(ReportRows, KeysAreNamedAsTheDevicePrintsThem)
{
    const char* const keypad[] = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "*", "0", "#"};
    for (int id = 0; id < 12; id++)
        EXPECT_EQ(KeyCaption(id), keypad[id]);
    EXPECT_EQ(KeyCaption(115), "DEL");
    EXPECT_EQ(KeyCaption(116), "ESC");
    EXPECT_EQ(KeyCaption(123), "PTT");
    // Extension 2 holds keys 35 to 54: its seventh key is 41.
    EXPECT_EQ(KeyCaption(41), "Ext 2 / key 7");
    EXPECT_EQ(KeyCaption(15), "Ext 1 / key 1");
    EXPECT_EQ(KeyCaption(114), "Ext 5 / key 20");
    EXPECT_EQ(KeyCaption(125), "Slot 125");
    EXPECT_EQ(NumericKeyCaption(11), "Numeric #");
    EXPECT_EQ(NumericKeyCaption(12), "Numeric 12");
    EXPECT_EQ(NumericKeyCaption(-1), "Numeric -1");
}

// The fields of a key's row by family; a null field is not looked at.
TEST(ReportRows, FieldsByFamily)
{
    struct ROW {
        const char* record;
        const char *function, *destination, *priority, *trigger, *locked, *message;
        int mark;  // -1: not looked at
    };
    const ROW rows[] = {
        {"Alarm to Zone,0,1,0,90,1,ORNCON_1.Hall,", "Alarm to Zone", "ORNCON_1.Hall", "90", "Push", "yes", "DIN Alarm",
         MARK_ALARM},
        {"EVAC Messages to Zone,1,60,2,3,4,1,5,ORNCON_1.Hall,Evacuate|4", nullptr, nullptr, "60", "Trigger", "yes",
         "Evacuate|4", MARK_EVAC},
        {"Business Messages to Group,0,30,1,1,0,ORNCON_1.Shop,Closing|7", nullptr, "ORNCON_1.Shop", "30", "Switch",
         "yes", nullptr, MARK_NONE},
        {"PTT to Zone,1,2,3,4,5,6,7,8,9,ORNCON_1.Hall,Pre|1", nullptr, "ORNCON_1.Hall", nullptr, nullptr, nullptr,
         nullptr, -1},
        {"Talk to Zone,0,1,1,50,2,0,1,0,0,0,0,0,0,0,0,ORNCON_1.Hall,Gong|12,", nullptr, nullptr, "50", "Trigger", "yes",
         "Gong|12", -1},
        {"Chime to Zone,1,1,2,80,3,4,5,ORNCON_1.Hall,Chime 2", nullptr, "ORNCON_1.Hall", "80", "Trigger", "yes", "", -1},
        {"Stop,1,20,2,15,91,kept", nullptr, nullptr, "20", "Trigger", "yes", nullptr, -1},
        {"Stop,0,20,2,15,91,", nullptr, nullptr, nullptr, nullptr, "no", nullptr, -1},
        {"Stop,0,0,3,0,0,", nullptr, nullptr, nullptr, "3", nullptr, nullptr, -1},
        {"On,40,0", nullptr, nullptr, "40", nullptr, "no", nullptr, -1},
        {"Indicator Test,1,0", nullptr, nullptr, nullptr, "Toggle", nullptr, nullptr, -1},
        {"Indicator Test,5,0", nullptr, nullptr, nullptr, "5", nullptr, nullptr, -1},
        {"Switch,Door,0,0,1", "Push", "Door", nullptr, nullptr, nullptr, nullptr, -1},
        {"Selekt Zone,0,ORNCON_1.Hall", "Empty", nullptr, nullptr, nullptr, nullptr, nullptr, -1},
        // Families without numbers show none.
        {"Menu,7", nullptr, nullptr, "", "", "", nullptr, -1},
        {"Toggle All,0", nullptr, nullptr, "", "", "", nullptr, -1},
        {"Protect", nullptr, nullptr, "", "", "", nullptr, -1},
        {"System Faults", nullptr, nullptr, "", "", "", nullptr, -1},
        {"Select Zone,0,ORNCON_1.Hall", nullptr, nullptr, "", "", "", nullptr, -1},
    };
    for (const ROW& row : rows) {
        SCOPED_TRACE(row.record);
        const KEYROW key = RowOf(row.record);
        const std::pair<const char*, const std::string*> fields[] = {
            {row.function, &key.function}, {row.destination, &key.destination}, {row.priority, &key.priority},
            {row.trigger, &key.trigger},   {row.locked, &key.locked},           {row.message, &key.message},
        };
        for (const auto& field : fields) {
            if (field.first) {
                EXPECT_EQ(*field.second, field.first);
            }
        }
        if (row.mark >= 0) {
            EXPECT_EQ(key.mark, row.mark);
        }
    }
    // The name as written stays beside the function it names.
    EXPECT_EQ(RowOf("Switch,Door,0,0,1").recordName, "Switch");
    EXPECT_EQ(RowOf("Selekt Zone,0,ORNCON_1.Hall").recordName, "Selekt Zone");
}

TEST(ReportRows, TheOldestTalkKeysPrechimeIsNoMessage)
{
    std::vector<std::string> messages;
    KEYROW talk = RowOf("Talk to Selection,0,0,0,50,0,0,1,");
    EXPECT_FALSE(CarriesMessage(talk.key, &messages));
    EXPECT_EQ(talk.message, "1-Tone");
}

TEST(ReportOutputs, CsvHasAHeaderAndQuotesAsRfc4180)
{
    EXPECT_EQ(CsvField("plain"), "plain");
    EXPECT_EQ(CsvField("a, \"b\""), "\"a, \"\"b\"\"\"");
    EXPECT_EQ(CsvField("two\r\nlines"), "\"two\r\nlines\"");
    TEXTSINK out;
    WriteCsv(Problems(), &out);
    const std::string& csv = out.Text();
    EXPECT_EQ(csv.compare(0, 40, "Controller,Console,Console name,Key,Id,F"), 0);
    // The header and one row per configured key: 13 of the first console, 1 of the second.
    EXPECT_EQ(Occurrences(csv, "\r\n"), 15u);
    EXPECT_NE(csv.find("ORNCON_1,ORNCST_1,Reception & desk,1,0,Select Zone,ORNCON_1.Roof,,,,,"
                       "A label far longer than the window,,13\r\n"),
              std::string::npos);
    EXPECT_NE(csv.find(",Ext 1 / key 6,20,"), std::string::npos);
}

TEST(ReportOutputs, HtmlEscapesEveryTextOfTheDesign)
{
    EXPECT_EQ(EscapeMarkup("<script>&\"'"), "&lt;script&gt;&amp;&quot;&#39;");
    EXPECT_EQ(EscapeMarkup("a\x01" "b\x85\xE9"), "ab\xE2\x80\xA6\xC3\xA9");
    const DESIGNMODEL model = Problems();
    TEXTSINK out;
    WriteHtml(model, CheckDesign(model), &out);
    const std::string& html = out.Text();
    EXPECT_EQ(html.find("<script"), std::string::npos);
    EXPECT_NE(html.find("&lt;script&gt;alert(1)&lt;/script&gt;"), std::string::npos);
    EXPECT_NE(html.find("Reception &amp; desk"), std::string::npos);
    EXPECT_EQ(Occurrences(html, "<svg"), 3u);
    EXPECT_EQ(Occurrences(html, "<section class=\"console\""), 3u);
    EXPECT_EQ(Occurrences(html, "<tr class=\"alarm\">"), 1u);
    EXPECT_EQ(Occurrences(html, "<tr class=\"evac\">"), 1u);
    EXPECT_NE(html.find("13 problems"), std::string::npos);
    EXPECT_EQ(html.find("http"), html.find("http://www.w3.org/2000/svg"));  // nothing from the network
}

TEST(ReportOutputs, LabelStripsAreAtRealSizeWithCutMarks)
{
    TEXTSINK out;
    LABELSIZE size;
    EXPECT_EQ(size.width, 15.0);
    EXPECT_EQ(size.height, 4.0);
    WriteLabelStrips(Problems(), size, &out);
    const std::string& svg = out.Text();
    EXPECT_NE(svg.find("width=\"15\" height=\"4\""), std::string::npos);  // an ordinary window
    // Two window sizes, the keypad's and the wide key's, each with eight cut marks.
    EXPECT_EQ(Occurrences(svg, "class=\"window\""), 2u);
    EXPECT_EQ(Occurrences(svg, "<g class=\"cut\">"), 2u);
    EXPECT_EQ(Occurrences(svg, "<line "), 16u);
    // Console faces have 20 label windows: 15 keypad, 4 navigation, the wide key.
    EXPECT_EQ(Occurrences(svg, "<use "), 60u);
    EXPECT_EQ(svg.find("<script"), std::string::npos);
    EXPECT_NE(svg.find("mm\" height=\""), std::string::npos);
}

TEST(ReportOutputs, LabelsShrinkAndAreCutOnlyWithAMark)
{
    const FITTEDTEXT small = FitText("Hall", 15, 2.8, 1.2);
    EXPECT_EQ(small.text, "Hall");
    EXPECT_EQ(small.fontSize, 2.8);
    const FITTEDTEXT shrunk = FitText("Evacuation ground", 15, 2.8, 1.2);
    EXPECT_EQ(shrunk.text, "Evacuation ground");
    EXPECT_LT(shrunk.fontSize, 2.8);
    EXPECT_LE(TextWidth(shrunk.text, shrunk.fontSize), 15.0001);
    const std::string longest(31, 'W');
    const FITTEDTEXT cut = FitText(longest, 15, 2.8, 1.2);
    EXPECT_TRUE(cut.cut);
    EXPECT_EQ(cut.fontSize, 1.2);
    EXPECT_EQ(cut.text.back(), kCutMark[0]);
    EXPECT_LE(TextWidth(cut.text, cut.fontSize), 15.0);
}

TEST(ReportOutputs, LabelSizeOption)
{
    LABELSIZE size;
    EXPECT_TRUE(ParseLabelSize("20x5.5", &size));
    EXPECT_EQ(size.width, 20.0);
    EXPECT_EQ(size.height, 5.5);
    for (const char* bad : {"", "20", "20x", "x5", "0x5", "20x500", "20x5mm", "abc"})
        EXPECT_FALSE(ParseLabelSize(bad, &size)) << bad;
}

TEST(ReportOutputs, WhereFindsZonesGroupsAndMessages)
{
    const DESIGNMODEL model = ReadDesignText(SourceFile("samples/sample.ds"), "sample.ds");
    TEXTSINK out;
    EXPECT_EQ(WriteWhere(model, "Hall", &out), 1u);
    // The line is where the sample holds ORNCST_1's key000 (the sample grows).
    const std::string sample = SourceFile("samples/sample.ds");
    const size_t at = sample.find("ORNCST_1*key000=");
    ASSERT_NE(at, std::string::npos);
    const long line = 1 + std::count(sample.begin(), sample.begin() + (long)at, '\n');
    EXPECT_EQ(out.Text(), "sample.ds(" + std::to_string(line) + "): ORNCST_1: key000 (\"1\"): Select Zone: ORNCON_1.Hall\n");
    TEXTSINK message;
    EXPECT_EQ(WriteWhere(model, "Evacuate now", &message), 1u);
    TEXTSINK full;
    EXPECT_EQ(WriteWhere(model, "ELKCON_1.Lobby", &full), 1u);
    TEXTSINK none;
    EXPECT_EQ(WriteWhere(model, "Car park", &none), 0u);
    EXPECT_TRUE(none.Text().empty());
}

TEST(ReportOutputs, CommandLine)
{
    REPORTOPTIONS options;
    std::string error;
    const char* const good[] = {"designreport", "d.ds", "--html", "r.html", "--check", "--where", "Hall",
                                "--labels", "l.svg", "--label-size", "12x3", "--csv", "r.csv"};
    ASSERT_TRUE(ParseReportOptions(13, good, &options, &error)) << error;
    EXPECT_EQ(options.design, "d.ds");
    EXPECT_EQ(options.html, "r.html");
    EXPECT_EQ(options.csv, "r.csv");
    EXPECT_EQ(options.labels, "l.svg");
    EXPECT_TRUE(options.check);
    EXPECT_TRUE(options.where);
    EXPECT_EQ(options.whereName, "Hall");
    EXPECT_EQ(options.labelSize.width, 12.0);
    const char* const missing[] = {"designreport", "d.ds", "--html"};
    EXPECT_FALSE(ParseReportOptions(3, missing, &options, &error));
    const char* const unknown[] = {"designreport", "d.ds", "--pdf"};
    REPORTOPTIONS fresh;
    EXPECT_FALSE(ParseReportOptions(3, unknown, &fresh, &error));
    EXPECT_EQ(error, "unknown option --pdf");
    const char* const none[] = {"designreport"};
    REPORTOPTIONS empty;
    EXPECT_FALSE(ParseReportOptions(1, none, &empty, &error));
}

// The page as a real browser reads it: headless Chromium, when the machine
// has it (scripts/test and scripts/demo install it).
TEST(ReportOutputs, ChromiumShowsThePageAndItsLabelsAsText)
{
    const char* browser = nullptr;
    for (const char* candidate : {"/usr/bin/chromium", "/usr/bin/chromium-browser"})
        if (FILE* file = fopen(candidate, "rb")) {
            fclose(file);
            browser = candidate;
            break;
        }
    if (!browser)
        GTEST_SKIP() << "no chromium";
    const DESIGNMODEL model = Problems();
    const std::string page = TempPath("designreport_page.html"), dom = TempPath("designreport_dom.html"),
                      picture = TempPath("designreport_page.png");
    {
        TEXTSINK out;
        WriteHtml(model, CheckDesign(model), &out);
        std::ofstream(page, std::ios::binary) << out.Text();
    }
    remove(picture.c_str());
    // A profile of its own: another test process may run a browser at the same time.
    const std::string profile = TempPath("chromium");
    const std::string flags = std::string(browser) + " --headless --no-sandbox --disable-gpu --hide-scrollbars "
                                                     "--window-size=1000,800 --user-data-dir=" + profile + " ";
    const int dumped = system((flags + "--dump-dom file://" + page + " >" + dom + " 2>/dev/null").c_str());
    const int shot = system((flags + "--screenshot=" + picture + " file://" + page + " >/dev/null 2>&1").c_str());
    system(("rm -rf " + profile).c_str());
    ASSERT_EQ(dumped, 0);
    ASSERT_EQ(shot, 0);
    std::ifstream read(dom, std::ios::binary);
    std::stringstream text;
    text << read.rdbuf();
    // The label is text of a cell, no element; the three pictures are SVG.
    EXPECT_NE(text.str().find("&lt;script&gt;alert(1)&lt;/script&gt;"), std::string::npos);
    EXPECT_EQ(text.str().find("<script"), std::string::npos);
    EXPECT_EQ(Occurrences(text.str(), "<svg"), 3u);
    std::ifstream png(picture, std::ios::binary);
    char magic[8] = {};
    png.read(magic, sizeof magic);
    EXPECT_EQ(std::string(magic + 1, 3), "PNG");
    for (const std::string& file : {page, dom, picture})
        remove(file.c_str());
}

TEST(ReportOutputs, TheCheckListOfTheDesignWithOneProblemOfEachKind)
{
    const DESIGNMODEL model = Problems();
    std::string listing;
    for (const PROBLEM& problem : CheckDesign(model).items)
        listing += FormatProblem(model.fileName, problem) + "\n";
    EXPECT_EQ(listing,
              "problems.ds(13): unknown destination: ORNCST_1: key000 (\"1\"): zone \"Roof\" is not offered by ORNCON_1\n"
              "problems.ds(14): unknown message: ORNCST_1: key001 (\"2\"): message \"Fire drill|9\" is not offered by "
              "ORNCON_1\n"
              "problems.ds(15): unknown input: ORNCST_1: key002 (\"3\"): input channel \"Mic 9\" is not offered by "
              "ORNCON_1\n"
              "problems.ds(17): second Protect key: ORNCST_1: key004 (\"5\"): a second \"Protect\" key\n"
              "problems.ds(19): second Indicator Test key: ORNCST_1: key006 (\"7\"): a second \"Indicator Test\" key\n"
              "problems.ds(20): no destination: ORNCST_1: key007 (\"8\"): Talk to Zone without a zone\n"
              "problems.ds(21): unknown logic variable: ORNCST_1: key008 (\"9\"): logic variable \"Lamps\" is not "
              "offered by ORNCON_1\n"
              "problems.ds(22): unknown function: ORNCST_1: key009 (\"*\"): function \"Selekt Zone\" is unknown, the "
              "key reads as \"Empty\"\n"
              "problems.ds(24): hidden key: ORNCST_1: key020 (\"Ext 1 / key 6\"): on extension 1, the console has 0; "
              "hidden but still sent\n"
              "problems.ds(26): label too long: ORNCST_1: keylabel000 (\"1\"): the label has 34 characters, the "
              "device shows 31\n"
              "problems.ds(30): address taken: ORNCST_2: address 1 of ORNCON_1 is taken by ORNCST_1\n"
              "problems.ds(32): no connection: ORNCST_3: the console is not connected to a controller\n"
              "problems.ds(34): line: Malformed line: this line has no equals sign\n");
}

TEST(ReportRows, TheSpecialKeysSayTheirRole)
{
    const std::string design = "control=0x00000000 DOVRIXC \"ORNCST_1\" 0x56000000 40,40,74x57\r\n"
                               "ORNCST_1*key0120OptionState=1\r\nORNCST_1*key0121OptionState=2\r\n"
                               "ORNCST_1*key0122OptionState=3\r\n"
                               "ORNCST_1*key120=Alarm to Selection,0,0,2,90,1,,\r\nORNCST_1*key121=Protect\r\n"
                               "ORNCST_1*key122=System Faults\r\n";
    const DESIGNMODEL model = ReadDesignText(design, "d.ds");
    const std::vector<KEYROW> rows = KeyRows(model.consoles[0]);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].caption, "Special 1 (alarm button)");
    EXPECT_EQ(rows[1].caption, "Special 2 (key switch)");
    EXPECT_EQ(rows[2].caption, "Special 3 (not used)");  // 3 is no role: the key keeps "not used"
    EXPECT_EQ(FactsOf(model, model.consoles[0]).connection, "No Connection");
    EXPECT_EQ(FactsOf(model, model.consoles[0]).online, "unknown");
    EXPECT_EQ(FactsOf(model, model.consoles[0]).address, "none");
}

TEST(ReportRows, KeyKeywordsHaveThreeDigits)
{
    EXPECT_EQ(KeyKeyword(RowOf("Protect", 119)), "key119");
    EXPECT_EQ(KeyKeyword(RowOf("Protect", 7)), "key007");
}

TEST(ReportOutputs, NumbersAndMarkup)
{
    EXPECT_EQ(Number(12), "12");
    EXPECT_EQ(Number(1.09), "1.09");
    EXPECT_EQ(Number(2.5), "2.5");
    EXPECT_EQ(Number(-3.25), "-3.25");
    EXPECT_EQ(Number(-0.001), "0");
    // Windows-1252 has no character at 0x81, 0x8D, 0x8F, 0x90 and 0x9D.
    EXPECT_EQ(EscapeMarkup("\x81\x8D\x8F\x90\x9D"), "");
    EXPECT_EQ(EscapeMarkup("\x80\x9F\xA0"), "\xE2\x82\xAC\xC5\xB8\xC2\xA0");
    EXPECT_EQ(EscapeMarkup("a\tb"), "a b");
}

TEST(ReportOutputs, ThePageHasEveryColumnAndThePicturesTheirMarks)
{
    const DESIGNMODEL model = Problems();
    TEXTSINK out;
    WriteHtml(model, CheckDesign(model), &out);
    const std::string& html = out.Text();
    for (const char* column : {"<th>Name</th>", "<th>Key</th>", "<th>Online at save</th>", "<th>Label</th>"})
        EXPECT_NE(html.find(column), std::string::npos) << column;
    EXPECT_EQ(Occurrences(html, "fill=\"#e06666\""), 1u);  // the alarm key
    EXPECT_EQ(Occurrences(html, "fill=\"#f0a040\""), 1u);  // the EVAC key
    EXPECT_NE(html.find(">Up</text>"), std::string::npos);
    EXPECT_NE(html.find("extensions: 0, online at save: yes"), std::string::npos);
}

TEST(ReportOutputs, CutMarksStandOutsideTheWindowsCorners)
{
    TEXTSINK out;
    WriteLabelStrips(Problems(), LABELSIZE(), &out);
    EXPECT_NE(out.Text().find("<rect class=\"window\" width=\"15\" height=\"4\"/><g class=\"cut\"><line x1=\"-2\" "
                              "y1=\"0\" x2=\"-0.5\" y2=\"0\"/><line x1=\"0\" y1=\"-2\" x2=\"0\" y2=\"-0.5\"/>"),
              std::string::npos);
}

TEST(ReportOutputs, MoreOptions)
{
    LABELSIZE size;
    EXPECT_TRUE(ParseLabelSize("20X5", &size));
    EXPECT_TRUE(ParseLabelSize("1x1", &size));
    EXPECT_FALSE(ParseLabelSize("0.9x5", &size));
    EXPECT_FALSE(ParseLabelSize("5x0.9", &size));
    EXPECT_EQ(Number(1e300), "0");
    const char* const shortWhere[] = {"designreport", "d.ds", "--where", "X"};
    REPORTOPTIONS where;
    std::string whereError;
    ASSERT_TRUE(ParseReportOptions(4, shortWhere, &where, &whereError)) << whereError;
    EXPECT_EQ(where.whereName, "X");
    REPORTOPTIONS options;
    std::string error;
    const char* const html[] = {"designreport", "d.ds", "--html", "r.html"};
    ASSERT_TRUE(ParseReportOptions(4, html, &options, &error));
    EXPECT_FALSE(options.where);
    EXPECT_FALSE(options.check);
    EXPECT_EQ(std::string(kReportUsage).compare(0, 57, "usage: designreport DESIGN.ds [--html FILE] [--csv FILE] "), 0);
    const FITTEDTEXT nothing = FitText("abc", 0.1, 2.8, 1.2);
    EXPECT_TRUE(nothing.cut);
    EXPECT_EQ(nothing.text, kCutMark);
    EXPECT_NEAR(TextWidth("Hall", 1), 1.722, 1e-9);
}
