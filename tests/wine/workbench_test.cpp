// The workbench as users and scripts drive it: a separate process.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include <objidl.h>  // gdiplus.h needs PROPID
#include <gdiplus.h>

#include "testhost.h"
#include "../../host/workbench/saveprompt.h"
#include "../../host/workbench/verbs.h"
#include "../../host/workbench/workbench.h"

namespace {

// Pixels of a picture file within a rectangle that pass a test.
template <class TEST_PIXEL>
int CountPixels(const std::string& path, RECT area, TEST_PIXEL test)
{
    wchar_t wide[MAX_PATH];
    MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, wide, MAX_PATH);
    Gdiplus::Bitmap picture(wide);
    if (picture.GetLastStatus() != Gdiplus::Ok)
        return -1;
    area.right = std::min<LONG>(area.right, (LONG)picture.GetWidth());
    area.bottom = std::min<LONG>(area.bottom, (LONG)picture.GetHeight());
    int count = 0;
    for (LONG y = area.top; y < area.bottom; y++)
        for (LONG x = area.left; x < area.right; x++) {
            Gdiplus::Color colour;
            picture.GetPixel(x, y, &colour);
            count += test(colour.GetR(), colour.GetG(), colour.GetB()) ? 1 : 0;
        }
    return count;
}

}  // namespace

TEST(Workbench, SampleDesignRoundTripsByteForByte)
{
    const std::string sample = SourcePath("samples/sample.ds");
    const std::string saved = TempFolder() + "\\saved.ds";
    const RUN run = Workbench("\"" + sample + "\" --save \"" + saved + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    const std::string original = ReadFileBytes(sample);
    ASSERT_FALSE(original.empty());
    EXPECT_EQ(ReadFileBytes(saved), original);
}

TEST(Workbench, KeysOfEveryFamilyRoundTrip)
{
    const std::string design = SourcePath("tests/data/allkeys.ds");
    const std::string saved = TempFolder() + "\\saved.ds";
    const std::string script = WriteScript("alarms\nget ORNCST_1 key002\n");
    const RUN run = Workbench("\"" + design + "\" --script \"" + script + "\" --save \"" + saved + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    EXPECT_EQ(ReadFileBytes(saved), ReadFileBytes(design));
    EXPECT_EQ(run.out, "ORNCST_1.key8\n"
                       "key002=Talk to Zone,1,2,1,50,2,0,1,4,5,1,6,7,300,1,9,ORNCON_1.Hall,Gong|12,Bell|13\n");
}

TEST(Workbench, ScriptReadsWritesAndReports)
{
    const std::string script = WriteScript(
        "get ORNCST_1 name\n"
        "set Site*Floor1*ELKCST_3*priority=4\n"
        "get Site*Floor1*ELKCST_3 priority\n"
        "set ORNCST_1*priority=abc\n"
        "frobnicate\n"
        "get ORNCST_1 hostrect\n"
        "callback 13\n"
        "callback 2\n"
        "trace\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_NE(run.exitCode, 0u);
    EXPECT_NE(run.out.find("name=Reception desk\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("priority=4\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("\tBuild: "), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("\n0\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Error reading line priority\n"), std::string::npos) << run.out;
    EXPECT_NE(run.err.find("(5): unknown command 'frobnicate'"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("gives no value for hostrect"), std::string::npos) << run.err;
}

// The workbench refuses to start when a command has no handler, or two.
TEST(Workbench, HelpListsEveryCommandAndEachHasAHandler)
{
    const std::string script = WriteScript("help\n");
    const RUN run = Workbench("--script \"" + script + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, ScriptHelp());
    for (const SCRIPTVERBROW& row : ScriptVerbs())
        EXPECT_NE(run.out.find(std::string(row.name) + " "), std::string::npos) << row.name;
}

TEST(Workbench, BrokenDesignLinesAreReportedWithTheirNumbers)
{
    const std::string design = WriteScript(
        "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20\r\n"
        "this line has no equals sign\r\n"
        "control=0 NOSUCHCLASS \"X_1\" 0x54000000 0,0,20x20\r\n"
        "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20\r\n"
        "NOBODY_9*name=x\r\n"
        "control=0 DOVRIXC \"ORNCST_2\" 0x54000000 0,0,20by20\r\n");
    const std::string script = WriteScript("trace\n");
    const RUN run = Workbench("\"" + design + "\" --script \"" + script + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    EXPECT_NE(run.out.find("(2): Malformed line:"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("(3): Unknown window class NOSUCHCLASS"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("(4): Object exists already: ORNCST_1"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("(5): Unknown object NOBODY_9"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("(6): Malformed control line, bad rectangle"), std::string::npos) << run.out;
}

TEST(Workbench, ConsolesGoOnlineAndReportTheirFaults)
{
    const std::string script = WriteScript(
        "get ORNCST_1 online\n"
        "tick 1100\n"
        "get ORNCST_1 online\n"
        "get ORNCST_1 MasterFault\n"
        "list ORNCST_1\n"
        "fault ORNCST_1 3 off\n"
        "get ORNCST_1 MasterFault\n"
        "device ORNCON_1 CAN.Baudrate=62\n"
        "get ORNCST_1 baudrate\n"
        "set ORNCST_4*address=2\n"
        "set ORNCST_4*address=1\n"
        "online NOBODY_1 on\n"
        "fault ORNCST_1 11 on\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_NE(run.exitCode, 0u);
    const size_t online = run.out.find("online=1\nMasterFault=1\n");
    EXPECT_NE(online, std::string::npos) << run.out;
    EXPECT_EQ(run.out.find("online=0\n"), 0u) << run.out;
    EXPECT_NE(run.out.find("Firmware.Revision=V3.4.2\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Faults3=1\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("MasterFault=0\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("baudrate=62.5 KBit/s\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("messagebox: DOVRIXC: Address already occupied by other ZEL!\n"), std::string::npos)
        << run.out;
    EXPECT_NE(run.err.find("no simulated online of NOBODY_1"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("(13): fault needs OBJ N on|off with N from 1 to 10"), std::string::npos) << run.err;
}

TEST(Workbench, PicturesTooltipsMenusAndDeletion)
{
    const std::string folder = TempFolder();
    const std::string script = WriteScript(
        "shot surface " + folder + "\\surface.png\n"
        "shot ORNCST_1 " + folder + "\\canvas.png\n"
        "tooltip ORNCST_4\n"
        "menu ORNCST_1\n"
        "open ORNCST_1\n"
        "shot config:ORNCST_1 " + folder + "\\config.png\n"
        "shot config:ORNCST_4 " + folder + "\\none.png\n"
        "delete ORNCON_1\n"
        "tick 1100\n"
        "delete ORNCST_4\n"
        "get ORNCST_4 name\n"
        "trace\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    for (const char* picture : {"surface.png", "canvas.png", "config.png"})
        EXPECT_EQ(ReadFileBytes(folder + "\\" + picture).substr(1, 3), "PNG") << picture;
    EXPECT_NE(run.out.find("Objectname: \tORNCST_4\nAddress: \t4 (0x04)\nType: \t\tORN-15CST\nName: \t\tBack office\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("Delete\n-\nConfiguration\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("ORNCON_1 was deleted; its consoles lost their connection: ORNCST_1, ORNCST_4\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.err.find("nothing to picture for config:ORNCST_4"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("no object ORNCST_4"), std::string::npos) << run.err;
}

TEST(Workbench, ObjectsMoveOnlyWhileTheDesignIsEdited)
{
    const std::string saved = TempFolder() + "\\moved.ds";
    const std::string script = WriteScript("drag ORNCST_1 30 20\n"
                                           "drag ORNCON_1 5 5\n"
                                           "design off\n"
                                           "drag ELKCST_2 50 50\n"
                                           "save " + saved + "\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    const std::string design = ReadFileBytes(saved);
    EXPECT_NE(design.find("control=0x00000000 DOVRIXC \"ORNCST_1\" 0x56000000 70,60,74x57\r\n"), std::string::npos);
    EXPECT_NE(design.find("control=0x00000000 ORNCON \"ORNCON_1\" 0x54000000 45,155,150x40\r\n"), std::string::npos);
    EXPECT_NE(design.find("control=0x00000000 DOVRIXC \"ELKCST_2\" 0x56000000 240,40,74x57\r\n"), std::string::npos);
}

TEST(Workbench, WidgetPageDrivesTheConsole)
{
    const std::string folder = TempFolder();
    const std::string script = WriteScript("widgets ORNCST_1\n"
                                           "read ORNCST_1 buzzer\n"
                                           "click ORNCST_1 buzzer\n"
                                           "read ORNCST_1 buzzer\n"
                                           "get ORNCST_1 Buzzer\n"
                                           "read ORNCST_1 firmware\n"
                                           "read ORNCST_1 slotlabel\n"
                                           "click ORNCST_1 nosuch\n"
                                           "shot page:ORNCST_1 " + folder + "\\page.png\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_NE(run.out.find("buzzer=1\nbuzzer=0\nBuzzer=0\nfirmware=V3.4.2\nslotlabel=SLOT\n"), std::string::npos)
        << run.out;
    EXPECT_NE(run.err.find("no widget nosuch of ORNCST_1"), std::string::npos) << run.err;
    EXPECT_EQ(ReadFileBytes(folder + "\\page.png").substr(1, 3), "PNG");
}

TEST(Workbench, PropertyListEditsAreWrittenOrReported)
{
    const std::string script = WriteScript("edit ELKCST_2 name Security desk 2\n"
                                           "get ELKCST_2 name\n"
                                           "edit ELKCST_2 priority lots\n"
                                           "get ELKCST_2 priority\n"
                                           "edit ELKCST_2 layer Floor1\n"
                                           "trace\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_NE(run.out.find("name=Security desk 2\npriority=10\nELKCST_2: Error reading line priority\n"), std::string::npos)
        << run.out;
    EXPECT_NE(run.err.find("ELKCST_2 has no editable row layer"), std::string::npos) << run.err;
}

TEST(Workbench, FirmwareUpdateRunsToItsEnd)
{
    char temp[MAX_PATH];
    GetTempPathA(sizeof temp, temp);
    const std::string script = WriteScript("tick 1100\n"
                                           "firmware ORNCST_1 CST_GOOD.ZIP ZEL4000\n"
                                           "get ORNCST_1 Firmware.Revision\n"
                                           "firmware ORNCST_1 CST_TRAVERSAL.ZIP ZEL4000\n"
                                           "firmware ORNCST_1 CST_NOFONT.ZIP wrong\n"
                                           "firmware ORNCST_1 CST_NODB.ZIP ZEL4000\n"
                                           "firmware ORNCST_1 CST_CORRUPT.ZIP ZEL4000\n"
                                           "firmware ORNCST_4 CST_GOOD.ZIP ZEL4000\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    const size_t success = run.out.find("Firmware update successfully completed\n");
    EXPECT_NE(run.out.find("Uploading files to device\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("File-3: "), std::string::npos) << run.out;
    ASSERT_NE(success, std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Firmware.Revision=V3.4.3\n", success), std::string::npos) << run.out;
    const std::string corrupt = "messagebox: DOVRIXC: Firmware file is corrupt!\n";
    size_t corrupts = 0;
    for (size_t at = run.out.find(corrupt); at != std::string::npos; at = run.out.find(corrupt, at + 1))
        corrupts++;
    EXPECT_EQ(corrupts, 3u) << run.out;  // traversal, no database, truncated
    EXPECT_NE(run.out.find("Firmware update failed!\n"), std::string::npos) << run.out;  // the wrong password
    EXPECT_NE(run.err.find("ORNCST_4 is not online"), std::string::npos) << run.err;
    // Nothing is left behind, and nothing was written outside the temporary folder.
    for (const char* leftover : {"firmware\\CST_FW_3.5.0.bin", "CST_FW_3.5.0.bin", "ZEL4k_DB_12.dat",
                                 "fonts\\ZEL4k_FONT_2.fnt", "..\\..\\EVIL.bin", "..\\EVIL.bin"})
        EXPECT_EQ(GetFileAttributesA((std::string(temp) + leftover).c_str()), INVALID_FILE_ATTRIBUTES) << leftover;
}

TEST(Workbench, ConsoleViewPressesLabelsAndExtensions)
{
    const std::string folder = TempFolder();
    const std::string script = WriteScript(
        "view ORNCST_1\n"
        "design off\n"
        "press ORNCST_1 5\n"
        "get ORNCST_1 leds\n"
        "shot view:ORNCST_1 " + folder + "\\pressed.png\n"
        "release ORNCST_1 5\n"
        "get ORNCST_1 leds\n"
        "design on\n"
        "label ORNCST_1 16 Fire exit\n"
        "get ORNCST_1 keylabel016\n"
        "view ORNCST_4\n"
        "rclick ORNCST_4 121 Alarm Button\n"
        "get ORNCST_4 key0121OptionState\n"
        "rclick ORNCST_4 116 Clear\n"
        "extension ORNCST_4 add\n"
        "extension ORNCST_4 remove\n"
        "extension ORNCST_4 remove\n"
        "press ORNCST_4 200\n"
        "save " + folder + "\\saved.ds\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_EQ(run.exitCode, 1u) << run.err;  // the key that is not there
    EXPECT_NE(run.err.find("the console view shows no key 200"), std::string::npos) << run.err;
    EXPECT_NE(run.out.find("leds=00000e"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("leds=000001"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("keylabel016=Fire exit\n"), std::string::npos) << run.out;  // an extension key (ORNCST_1 has one)
    EXPECT_NE(run.out.find("menu: Not Used (checked)\nmenu: Alarm Button\nmenu: Key Switch\n"
                           "menu: Clear (greyed)\nmenu: Copy\nmenu: Paste\nkey0121OptionState=1\nmenu: none\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("messagebox: DOVRIXC: No extension available for deletion!"), std::string::npos) << run.out;
    EXPECT_EQ(ReadFileBytes(folder + "\\pressed.png").substr(1, 3), "PNG");
    const std::string saved = ReadFileBytes(folder + "\\saved.ds");
    EXPECT_NE(saved.find("ORNCST_1*keylabel016=Fire exit\r\n"), std::string::npos);
    EXPECT_NE(saved.find("ORNCST_4*key0121OptionState=1\r\n"), std::string::npos);
}

// A design of an older project is migrated once: saved in the workbench's own
// version, it opens and saves again unchanged.
TEST(Workbench, AnOldProjectIsSavedInTheCurrentVersionOnce)
{
    const std::string folder = TempFolder();
    const std::string old = folder + "\\old.ds", first = folder + "\\first.ds", second = folder + "\\second.ds";
    std::ofstream(old, std::ios::binary) << "projectversion=V 2.7.9\r\n"
                                            "control=0x00000000 DOVRIXC \"ORNCST_1\" 0x54000000 40,40,74x57\r\n"
                                            "ORNCST_1*FaultMask7=1\r\nORNCST_1*FaultMask8=0\r\nORNCST_1*FaultMask9=1\r\n";
    const std::string script = WriteScript("get ORNCST_1 FaultMask8\nget ORNCST_1 FaultMask9\nget ORNCST_1 FaultMask10\n");
    const RUN migrated = Workbench("\"" + old + "\" --script \"" + script + "\" --save \"" + first + "\"");
    EXPECT_EQ(migrated.exitCode, 0u) << migrated.err;
    EXPECT_EQ(migrated.out, "FaultMask8=1\nFaultMask9=0\nFaultMask10=1\n");
    const RUN reopened = Workbench("\"" + first + "\" --script \"" + script + "\" --save \"" + second + "\"");
    EXPECT_EQ(reopened.exitCode, 0u) << reopened.err;
    EXPECT_EQ(reopened.out, migrated.out);
    const std::string saved = ReadFileBytes(first);
    EXPECT_EQ(saved.substr(0, saved.find('\n') + 1), "projectversion=V 3.9.0\r\n");
    EXPECT_EQ(ReadFileBytes(second), saved);
}

namespace {

int g_saves = 0;
bool g_saveWorks = true;

bool CountSave(HWND, WORKBENCH*)
{
    g_saves++;
    return g_saveWorks;
}

}  // namespace

// Dropping a changed design asks first; Yes saves, No drops, Cancel keeps it.
TEST(Workbench, AChangedDesignIsNotDroppedWithoutAsking)
{
    TESTDESIGN design;
    design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20"});
    WORKBENCH bench;
    bench.design = design.Root();
    g_saves = 0;
    {
        MESSAGEBOXCATCHER none;
        EXPECT_TRUE(ConfirmDropDesign(NULL, &bench, CountSave));  // unchanged: nothing to ask
        EXPECT_TRUE(none.Texts().empty());
    }
    design.Edit("ORNCST_1*Buzzer=1");
    {
        MESSAGEBOXCATCHER cancel(IDCANCEL);
        EXPECT_FALSE(ConfirmDropDesign(NULL, &bench, CountSave));
        EXPECT_EQ(cancel.Texts(), std::vector<std::string>{"Save changes to Untitled?"});
    }
    EXPECT_EQ(g_saves, 0);
    bench.designPath = "C:\\plant\\hall.ds";
    {
        MESSAGEBOXCATCHER no(IDNO);
        EXPECT_TRUE(ConfirmDropDesign(NULL, &bench, CountSave));
        EXPECT_EQ(no.Texts(), std::vector<std::string>{"Save changes to hall.ds?"});
    }
    EXPECT_EQ(g_saves, 0);
    {
        MESSAGEBOXCATCHER yes(IDYES);
        EXPECT_TRUE(ConfirmDropDesign(NULL, &bench, CountSave));
        g_saveWorks = false;
        EXPECT_FALSE(ConfirmDropDesign(NULL, &bench, CountSave));  // the save failed: keep the design
        g_saveWorks = true;
        EXPECT_EQ(yes.Texts().size(), 2u);
    }
    EXPECT_EQ(g_saves, 2);
}

TEST(Workbench, ConfigurationWindowColumnLampsAndSelector)
{
    // ELKCST_2 of the sample monitors, which greys the others' toggle: it lets go first.
    const std::string script = WriteScript(
        "set ELKCST_2*FireEmergencyMonitoring=0\n"
        "open ORNCST_4\n"
        "column ORNCST_4\n"
        "tab ORNCST_4 supervision\n"
        "lamps ORNCST_4\n"
        "click config:ORNCST_4 ZELFaults1\n"
        "get ORNCST_4 FaultMask8\n"
        "close ORNCST_4\n"
        "tick 1100\n"
        "open ORNCST_1\n"
        "tick 400\n"
        "column ORNCST_1\n"
        "tab ORNCST_1 supervision\n"
        "lamps ORNCST_1\n"
        "choose ORNCST_1 ORNCST_4\n"
        "tab ORNCST_4 configuration\n"
        "close ORNCST_4\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    // Offline: the monitoring toggle can be switched, every lamp is grey.
    EXPECT_NE(run.out.find("lcdFireEmergencyMonitoring=0\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("grey grey grey grey grey grey grey grey grey grey\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("FaultMask8=0\n"), std::string::npos) << run.out;  // the default mask was 1
    // Online: monitoring and the emergency key set are greyed.
    EXPECT_NE(run.out.find("lcdFireEmergencyMonitoring=0 greyed\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("EmergencyCSTKeys="), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("connection=ORNCON_1.DOVRIXCSTModule\n"), std::string::npos) << run.out;
}

TEST(Workbench, SupervisionPictureShowsLabelsLampsAndIndicator)
{
    const std::string folder = TempFolder();
    const std::string picture = folder + "\\supervision.png";
    const std::string script = WriteScript("tick 1100\n"
                                           "open ORNCST_1\n"
                                           "tab ORNCST_1 supervision\n"
                                           "shot config:ORNCST_1 " + picture + "\n"
                                           "close ORNCST_1\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    ASSERT_EQ(run.exitCode, 0u) << run.err;
    // The page stands at 50,100 with 500 x 500: its row labels (black
    // text left of the mask toggles at 326), its lamps (ORNCST_1 is online
    // with a power-supply fault: green and red), and the online indicator
    // at the window's top right.
    const RECT page = {50, 100, 550, 600}, labels = {50, 180, 50 + 320, 600};
    EXPECT_GT(CountPixels(picture, labels, [](int r, int g, int b) { return r < 60 && g < 60 && b < 60; }), 200);
    EXPECT_GT(CountPixels(picture, page, [](int r, int g, int b) { return g > 120 && r < g - 40 && b < g - 40; }), 40);
    EXPECT_GT(CountPixels(picture, page, [](int r, int g, int b) { return r > 150 && g < r - 60 && b < r - 60; }), 10);
    const RECT indicator = {1002 - 75, 3, 1002 - 75 + 52, 44};
    EXPECT_GT(CountPixels(picture, indicator, [](int r, int g, int b) { return r < 90 && g < 90 && b < 90; }), 100);
}

// The key editor headless: functions dragged from the tree, pages printed
// and set as a user sets them, a picker answered, refusals reported.
TEST(Workbench, KeyEditorAssignsKeysThroughTheTreeAndThePages)
{
    const std::string saved = TempFolder() + "\\saved.ds";
    const std::string script = WriteScript(
        "open ELKCST_2\n"
        "page ELKCST_2\n"
        "drop ELKCST_2 Talk 5\n"
        "pick ELKCST_2 1014 ELKCON_1.Workshop\n"
        "pick ELKCST_2 1017 Gong\n"
        "pick ELKCST_2 1066 60\n"
        "get ELKCST_2 key005\n"
        "drop ELKCST_2 Alarm 7\n"
        "pick ELKCST_2 1022 Siren\n"
        "page ELKCST_2\n"
        "drop ELKCST_2 Lock 116\n"
        "select ELKCST_2 0\n"
        "page ELKCST_2\n"
        "pick ELKCST_2 1096 -\n"
        "pick ELKCST_2 2000 No such message\n"
        "close ELKCST_2\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\" --save \"" +
                              saved + "\"");
    EXPECT_NE(run.exitCode, 0u);  // the message the list does not offer
    EXPECT_NE(run.err.find("control 2000 offers no No such message"), std::string::npos) << run.err;
    EXPECT_EQ(run.out.find("page=182\n"), 0u) << run.out;
    EXPECT_NE(run.out.find("key005=Talk to Zone,0,1,0,60,0,0,1,0,0,0,0,0,0,0,0,ELKCON_1.Workshop,Gong|7,\n"),
              std::string::npos) << run.out;
    EXPECT_NE(run.out.find("page=185\n1008=Current Slection\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("1022=Siren\n1023= greyed\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("refused\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("page=163\n1008=ELKCON_1.Lobby\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("2000=Evacuate now\n"), std::string::npos) << run.out;
    const std::string design = ReadFileBytes(saved);
    EXPECT_NE(design.find("ELKCST_2*key005=Talk to Zone,0,1,0,60,0,0,1,0,0,0,0,0,0,0,0,ELKCON_1.Workshop,Gong|7,\r\n"),
              std::string::npos);
    EXPECT_NE(design.find("ELKCST_2*key007=Alarm to Selection,0,0,0,0,3,,\r\n"), std::string::npos);
    EXPECT_NE(design.find("ELKCST_2*key116=Empty\r\n"), std::string::npos);
}

// The keyboard verbs: keys clicked into the selection, copied as a block and
// pasted further on, the arrows and Delete, undo and redo.
TEST(Workbench, KeyStrokesUndoAndRedo)
{
    const std::string folder = TempFolder();
    const std::string script = WriteScript(
        "online ORNCST_1 off\n"  // an online console is not edited
        "open ORNCST_1\n"
        "undo ORNCST_1\n"
        "selectkeys ORNCST_1 0 1\n"
        "key ORNCST_1 ctrl+c\n"
        "selectkeys ORNCST_1 7\n"
        "key ORNCST_1 ctrl+v\n"
        "get ORNCST_1 key007\n"
        "get ORNCST_1 key008\n"
        "undo ORNCST_1\n"
        "get ORNCST_1 key008\n"
        "key ORNCST_1 ctrl+y\n"
        "get ORNCST_1 key008\n"
        "key ORNCST_1 right\n"
        "key ORNCST_1 delete\n"
        "get ORNCST_1 key008\n"
        "key ORNCST_1 ctrl+z\n"
        "get ORNCST_1 key008\n"
        "redo ORNCST_1\n"
        "redo ORNCST_1\n"
        "drop ORNCST_1 Talk 5\n"
        "get ORNCST_1 key005\n"
        "undo ORNCST_1\n"
        "get ORNCST_1 key005\n"
        "key ORNCST_1 hyper+q\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_EQ(run.exitCode, 1u) << run.err;  // the stroke that does not exist
    EXPECT_NE(run.err.find("no key stroke hyper+q"), std::string::npos) << run.err;
    EXPECT_NE(run.out.find("ORNCST_1: nothing to undo\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("key007=Select Zone,0,ORNCON_1.Hall\nkey008=Select Zone,0,ORNCON_1.Canteen\n"
                           "key008=Empty\nkey008=Select Zone,0,ORNCON_1.Canteen\nkey008=Empty\n"
                           "key008=Select Zone,0,ORNCON_1.Canteen\nORNCST_1: nothing to redo\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("key005=Talk to Selection,"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("key005=Empty\n"), std::string::npos) << run.out;  // the drop taken back
}
