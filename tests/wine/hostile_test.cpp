// Designs written by an attacker or a careless user: names that cannot be
// saved, windows named on design lines, positions at the edge of int, long
// values, reports that say where, and what the host leaves in the system's
// temporary folder.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "testhost.h"
#include "../../base/text.h"

namespace {

const char kConsole[] = "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 40,40,20x20";

bool Contains(const std::vector<std::string>& lines, const std::string& line)
{
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

std::string SystemTemp()
{
    char folder[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    return folder;
}

// What the system's temporary folder holds, but the test's own folders and
// this test process's run folder.
std::set<std::string> SystemTempNames()
{
    char own[32];
    snprintf(own, sizeof own, "AnalyzeRun-%lu-", GetCurrentProcessId());
    std::set<std::string> names;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA((SystemTemp() + "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return names;
    do {
        const std::string name = found.cFileName;
        if (name != "." && name != ".." && name.rfind("dovrixc-test-", 0) != 0 && name.rfind(own, 0) != 0)
            names.insert(name);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return names;
}

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

}  // namespace

TEST(HostileDesign, NamesThatCannotBeSavedAreRefusedWithTheirLineAndTheRestLoads)
{
    const std::string design = WriteScript("control=0 DOVRIXC \"ORNCST_\\\"Q\" 0x54000000 0,0,20x20\r\n"
                                           "ORNCST_\"Q*name=quoted\r\n"
                                           "control=0 DOVRIXC \"ORNCST_=E\" 0x54000000 30,0,20x20\r\n"
                                           "ORNCST_=E*name=equals\r\n"
                                           "control=0 DOVRIXC \"ORNCST_2\\\" 0x54000000 60,0,20x20\r\n"
                                           "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 90,0,20x20\r\n"
                                           "ORNCST_1*name=kept\r\n");
    const std::string saved = TempFolder() + "\\saved.ds";
    const std::string script = WriteScript("trace\nget ORNCST_1 name\n");
    const RUN run = Workbench("\"" + design + "\" --script \"" + script + "\" --save \"" + saved + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    EXPECT_NE(run.out.find("script.txt(1): Object name cannot be saved, it holds a double quote: ORNCST_\"Q\n"),
              std::string::npos) << run.out;
    EXPECT_NE(run.out.find("script.txt(2): Line of a refused object: ORNCST_\"Q\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("script.txt(3): Object name cannot be saved, it holds \"=\": ORNCST_=E\n"),
              std::string::npos) << run.out;
    EXPECT_NE(run.out.find("script.txt(4): Line of a refused object: ORNCST_=E\n"), std::string::npos) << run.out;
    // A name ending in a backslash would escape its closing quote.
    EXPECT_NE(run.out.find("script.txt(5): Malformed control line, bad window name"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("name=kept\n"), std::string::npos) << run.out;
    // None of the refused objects' lines became a host variable.
    for (const std::string& line : Lines(ReadFileBytes(saved)))
        EXPECT_EQ(line.find("ORNCST_=E"), std::string::npos) << line;
}

TEST(HostileDesign, EveryAcceptedNameSurvivesSaveAndLoad)
{
    const std::string design = WriteScript("control=0 DOVRIXC \"ORNCST_a\\b c\xe9\" 0x54000000 0,0,20x20\r\n"
                                           "ORNCST_a\\b c\xe9*name=backslash, blank, e acute\r\n"
                                           "Site*Floor 1*control=0 DOVRIXC \"ELKCST_\\\\x\\y\" 0x54000000 30,0,20x20\r\n"
                                           "Site*Floor 1*ELKCST_\\\\x\\y*priority=7\r\n");
    const std::string first = TempFolder() + "\\first.ds";
    const std::string second = TempFolder() + "\\second.ds";
    RUN run = Workbench("\"" + design + "\" --save \"" + first + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    run = Workbench("\"" + first + "\" --save \"" + second + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    const std::string saved = ReadFileBytes(first);
    EXPECT_NE(saved.find("control=0x00000000 DOVRIXC \"ORNCST_a\\b c\xe9\" "), std::string::npos) << saved;
    EXPECT_NE(saved.find("ORNCST_a\\b c\xe9*name=backslash, blank, e acute\r\n"), std::string::npos) << saved;
    EXPECT_NE(saved.find("Site*Floor 1*control=0x00000000 DOVRIXC \"ELKCST_\\\\x\\y\" "), std::string::npos) << saved;
    EXPECT_NE(saved.find("Site*Floor 1*ELKCST_\\\\x\\y*priority=7\r\n"), std::string::npos) << saved;
    EXPECT_EQ(ReadFileBytes(second), saved);
}

TEST(HostileDesign, ReportsSayTheFileTheLineAndTheObject)
{
    const std::string design = WriteScript("projectversion=V 4.0.0\r\n"
                                           "control=0 DOVRIXC \"ORNCST_4\" 0x54000000 0,0,20x20\r\n"
                                           "ORNCST_4*connection=NOSUCH_1.DOVRIXCSTModule\r\n");
    const RUN run = Workbench("\"" + design + "\" --script \"" + WriteScript("trace\n") + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    EXPECT_NE(run.out.find("script.txt(3): ORNCST_4: Error reading line connection\n"), std::string::npos) << run.out;
}

TEST(HostileDesign, ALayerListAsLongAsALineAllowsRoundTrips)
{
    TESTDESIGN design;
    design.Load({kConsole});
    std::string layers;
    for (int i = 0; layers.size() < 3000; i++)
        layers += (i ? "," : "") + std::string("Layer ") + std::to_string(i);
    design.Load({"ORNCST_1*layer=" + layers});
    EXPECT_EQ(design.Get("ORNCST_1", "layer"), layers);
    EXPECT_TRUE(Contains(design.SavedLines(), "ORNCST_1*layer=" + layers));
    EXPECT_TRUE(design.Output().empty());
}

TEST(HostileDesign, AShortenedNameIsReported)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*name=" + std::string(200, 'n')});
    EXPECT_EQ(design.Get("ORNCST_1", "name"), std::string(128, 'n'));
    EXPECT_TRUE(Contains(design.Output(), "ORNCST_1: name shortened to 128 of its 200 characters"));
}

TEST(HostileDesign, WindowsThatNeedAConsoleAreRefusedOnADesignLine)
{
    TESTDESIGN design;
    design.Load({"control=0 DOVRIXZELCONFIGURATIONDIALOG \"X\" 0x54000000 0,0,20x20",
                 "control=0 DOVRIXCONSOLEVIEW \"Y\" 0x54000000 0,0,20x20",
                 "control=0 DOVRIXCONTROLPANEL \"Z\" 0x54000000 0,0,20x20", kConsole});
    EXPECT_EQ(design.Object("X"), nullptr);
    EXPECT_EQ(design.Object("Y"), nullptr);
    EXPECT_EQ(design.Object("Z"), nullptr);
    EXPECT_EQ(design.Output().size(), 3u);
    // The canvas class keeps taking the host's creation record.
    HOSTINFO* console = design.Object("ORNCST_1");
    ASSERT_NE(console, nullptr);

    // Created by name with the plug-in's instance, as a host could: anything
    // but a live console of the plug-in's own is refused at WM_CREATE.
    HOSTCREATE record = {};
    record.host = design.Root();
    CopyText(record.name, "ORNCST_9");
    for (const char* name :
         {"DOVRIXZELCONFIGURATIONDIALOG", "DOVRIXELKCSKCONFIGURATIONDIALOG", "DOVRIXCONSOLEVIEW", "DOVRIXCONTROLPANEL"}) {
        for (void* data : {(void*)&record, (void*)design.Root(), (void*)nullptr}) {
            HWND window = CreateWindowExA(0, name, "X", WS_POPUP, 0, 0, 20, 20, NULL, NULL, Plugin(), data);
            EXPECT_EQ(window, (HWND)NULL) << name;
            if (window)
                DestroyWindow(window);
        }
        HWND window = CreateWindowExA(0, name, "X", WS_POPUP, 0, 0, 20, 20, NULL, NULL, Plugin(), console);
        EXPECT_NE(window, (HWND)NULL) << name;
        DestroyWindow(window);
    }
}

TEST(HostileDesign, PositionsAtTheEdgeOfIntDoNotOverflow)
{
    TESTDESIGN design;
    design.Load({kConsole});
    HWND canvas = design.Object("ORNCST_1")->m_hWnd;
    design.Edit("ORNCST_1*hostrect=2147483647,2147483647");
    RECT client, placed;
    GetClientRect(canvas, &client);
    GetWindowRect(canvas, &placed);
    MapWindowPoints(NULL, GetParent(canvas), reinterpret_cast<POINT*>(&placed), 2);
    EXPECT_EQ(placed.left, GetSystemMetrics(SM_CXVIRTUALSCREEN) - client.right);
    EXPECT_EQ(placed.top, GetSystemMetrics(SM_CYVIRTUALSCREEN) - client.bottom);
    EXPECT_TRUE(design.Output().empty());

    design.Edit("ORNCST_1*hostrect=99999999999,0");
    design.Edit("ORNCST_1*hostrect=-2147483648,-2147483648");
    EXPECT_EQ(design.Output(), std::vector<std::string>{"ORNCST_1: Error reading line hostrect"});

    // A creation position at the edge of int keeps its rectangle ordered.
    design.Load({"control=0 DOVRIXC \"ORNCST_2\" 0x54000000 2147483647,2147483647,20x20"});
    if (HOSTINFO* edge = design.Object("ORNCST_2")) {
        EXPECT_GE(edge->m_rect.right, edge->m_rect.left);
        EXPECT_GE(edge->m_rect.bottom, edge->m_rect.top);
    }
}

TEST(HostTemporaryFolder, IsTheRunsOwnBelowTheSystemsFolder)
{
    char folder[MAX_PATH] = "";
    a_MakeFullTempPathName("", folder, sizeof folder);
    const std::string temp = SystemTemp();
    ASSERT_EQ(std::string(folder).rfind(temp, 0), 0u) << folder;
    EXPECT_NE(std::string(folder), temp);
    EXPECT_NE(std::string(folder).find("AnalyzeRun-"), std::string::npos) << folder;
    const DWORD attributes = GetFileAttributesA(folder);
    ASSERT_NE(attributes, INVALID_FILE_ATTRIBUTES);
    EXPECT_TRUE(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

TEST(HostTemporaryFolder, NothingStaysInTheSystemsFolderAfterTheHostExits)
{
    // A run that crashed left its folder: the next start removes it.
    const std::string stale = SystemTemp() + "AnalyzeRun-999999-0";
    CreateDirectoryA(stale.c_str(), NULL);
    CreateDirectoryA((stale + "\\firmware").c_str(), NULL);
    CloseHandle(CreateFileA((stale + "\\firmware\\left.bin").c_str(), GENERIC_WRITE, 0, NULL, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, NULL));
    std::set<std::string> before = SystemTempNames();
    before.erase("AnalyzeRun-999999-0");

    const std::string script = WriteScript("tick 1100\n"
                                           "firmware ORNCST_1 CST_GOOD.ZIP ZEL4000\n"
                                           "firmware ORNCST_1 CST_CORRUPT.ZIP ZEL4000\n"
                                           "firmware ORNCST_1 CST_NOFONT.ZIP wrong\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_NE(run.out.find("Firmware update successfully completed\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Firmware file is corrupt!"), std::string::npos) << run.out;
    EXPECT_EQ(GetFileAttributesA(stale.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(SystemTempNames(), before);
}
