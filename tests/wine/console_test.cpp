// A console object through the host's interfaces: design-file lines in and
// out, property requests, the property list and the poll.
#include <gtest/gtest.h>

#include "testhost.h"

#include <commctrl.h>

#include <algorithm>
#include <fstream>
#include "../../plugin/device/consoleproperties.h"

namespace {

const char kConsole[] = "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 40,40,20x20";

bool Contains(const std::vector<std::string>& lines, const std::string& line)
{
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

size_t IndexOf(const std::vector<std::string>& lines, const std::string& line)
{
    return (size_t)(std::find(lines.begin(), lines.end(), line) - lines.begin());
}

bool LoadedNotificationPending(HWND surface)
{
    MSG msg;
    return PeekMessageA(&msg, surface, WM_HOST_LOADED, WM_HOST_LOADED, PM_REMOVE) != 0;
}

LRESULT Lookup(HOSTINFO* obj, const char* name, const char* prefix = nullptr, int32_t* index = nullptr)
{
    REQUEST request = {REQ_LOOKUP, 0, REQTYPE_TEXT, REQMODE_EDIT, const_cast<char*>(name), prefix ? name : nullptr,
                       prefix};
    const LRESULT answer = SendMessageA(obj->m_hWnd, WM_HOST_MESSAGE, 0, (LPARAM)&request);
    if (index)
        *index = request.index;
    return answer;
}

// A controller port that answers the online question and counts it.
class FAKEPORT : public HOSTINFO {
public:
    BOOL OnIsAlive(WPARAM, LPARAM) override
    {
        questions++;
        return TRUE;
    }
    int questions = 0;
};

}  // namespace

TEST(Console, LoadsStoredSettingsAndReadsThemBack)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*name=Reception", "ORNCST_1*priority=7", "ORNCST_1*Buzzer=5",
                 "ORNCST_1*address=16", "ORNCST_1*type=ORN-CSK", "ORNCST_1*keylabel005=Fire"});
    EXPECT_EQ(design.Get("ORNCST_1", "name"), "Reception");
    EXPECT_EQ(design.Get("ORNCST_1", "priority"), "7");
    EXPECT_EQ(design.Get("ORNCST_1", "Buzzer"), "1");  // any non-zero number stores 1
    EXPECT_EQ(design.Get("ORNCST_1", "address"), "16");
    EXPECT_EQ(design.Get("ORNCST_1", "type"), "ORN-CSK");
    EXPECT_EQ(design.Get("ORNCST_1", "keylabel005"), "Fire");
    EXPECT_EQ(design.Get("ORNCST_1", "ShowDate"), "1");
    EXPECT_EQ(design.Get("ORNCST_1", "FaultMask10"), "1");
    EXPECT_TRUE(design.Output().empty());
    EXPECT_FALSE(design.Object("ORNCST_1")->m_wFlags & HOSTFLAG_EDITED);

    char friendly[300];
    design.Object("ORNCST_1")->OnGetUserfriendlyName(friendly, sizeof friendly);
    EXPECT_STREQ(friendly, "Reception (ORNCST_1)");
}

TEST(Console, BadLinesAreReportedAndChangeNothing)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*priority=3"});
    while (LoadedNotificationPending(design.Surface())) {
    }

    design.Load({"ORNCST_1*NoSuchKeyword=1", "ORNCST_1*faultmask1=0", "ORNCST_1*FaultMask7=0"});
    EXPECT_FALSE(LoadedNotificationPending(design.Surface()));
    EXPECT_TRUE(design.Output().empty());

    design.Load({"ORNCST_1*priority=abc", "ORNCST_1*priority=" + std::string(10000, '9'), "ORNCST_1*GetCSTPagingList=1",
                 "ORNCST_1*" + std::string(10000, 'k') + "=1"});
    EXPECT_EQ(design.Get("ORNCST_1", "priority"), "3");
    const std::vector<std::string> output = design.Output();
    EXPECT_TRUE(Contains(output, "ORNCST_1: Error reading line priority"));
    EXPECT_TRUE(Contains(output, "ORNCST_1: Error reading line GetCSTPagingList"));  // read only
    EXPECT_EQ(std::count(output.begin(), output.end(), "ORNCST_1: Error reading line priority"), 2);
}

TEST(Console, LongNameIsCutAndBinaryBytesAreKeptAsText)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*name=" + std::string(300, 'n')});
    EXPECT_EQ(design.Get("ORNCST_1", "name"), std::string(128, 'n'));
    design.Load({std::string("ORNCST_1*name=\x01\xff\x7f")});
    EXPECT_EQ(design.Get("ORNCST_1", "name"), "\x01\xff\x7f");
}

TEST(Console, IdentityIsLockedWhileOnline)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*name=Desk", "ORNCST_1*priority=1"});
    design.Object("ORNCST_1")->m_wFlags |= HOSTFLAG_ONLINE;
    design.Edit("ORNCST_1*name=Other");
    design.Edit("ORNCST_1*priority=9");
    design.Edit("ORNCST_1*Buzzer=1");  // mirrored settings are not locked
    EXPECT_EQ(design.Get("ORNCST_1", "name"), "Desk");
    EXPECT_EQ(design.Get("ORNCST_1", "priority"), "1");
    EXPECT_EQ(design.Get("ORNCST_1", "Buzzer"), "1");
    EXPECT_EQ(design.Output(), (std::vector<std::string>{"ORNCST_1: Error reading line name", "ORNCST_1: Error reading line priority"}));
}

TEST(Console, EditsMarkTheObjectAndNotifyTheHost)
{
    TESTDESIGN design;
    design.Load({kConsole});
    while (LoadedNotificationPending(design.Surface())) {
    }
    design.Edit("ORNCST_1*CANTermination=1");
    EXPECT_TRUE(design.Object("ORNCST_1")->m_wFlags & HOSTFLAG_EDITED);
    EXPECT_TRUE(LoadedNotificationPending(design.Surface()));
}

TEST(Console, AddressOutsideTheBusIsRefusedWithAMessage)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*address=4"});
    MESSAGEBOXCATCHER boxes;
    design.Edit("ORNCST_1*address=0");
    design.Edit("ORNCST_1*address=17");
    EXPECT_EQ(boxes.Texts(),
              (std::vector<std::string>{"Please enter a valid address!", "Please enter a valid address!"}));
    EXPECT_EQ(design.Get("ORNCST_1", "address"), "4");
    design.Edit("ORNCST_1*address=16");
    EXPECT_EQ(design.Get("ORNCST_1", "address"), "16");
}

TEST(Console, ExtensionTypesKeepOnlyTheirCount)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*extensionTypes=2,0,7,x,1"});
    EXPECT_EQ(design.Get("ORNCST_1", "ExtensionCount"), "2");
    EXPECT_EQ(design.Get("ORNCST_1", "extensionTypes"), "1,1,0,0,0");
}

TEST(Console, OldProjectsShiftTheirLastFaultMasks)
{
    {
        TESTDESIGN old;
        a_SetVariable(old.Root(), "projectversion", "V 2.7.9");
        old.Load({kConsole, "ORNCST_1*FaultMask7=0", "ORNCST_1*FaultMask8=0", "ORNCST_1*FaultMaskTest=1"});
        EXPECT_EQ(old.Get("ORNCST_1", "FaultMask8"), "0");
        EXPECT_EQ(old.Get("ORNCST_1", "FaultMask9"), "0");
        EXPECT_EQ(old.Get("ORNCST_1", "FaultMaskTest"), "1");
        EXPECT_EQ(old.Get("ORNCST_1", "FaultMask10"), "1");
    }

    TESTDESIGN current;
    a_SetVariable(current.Root(), "projectversion", "V 2.8.0");
    current.Load({kConsole, "ORNCST_1*FaultMask8=0"});
    EXPECT_EQ(current.Get("ORNCST_1", "FaultMask8"), "0");
    EXPECT_EQ(current.Get("ORNCST_1", "FaultMask9"), "1");
}

TEST(Console, LookupAnswersWhetherTheKeywordExists)
{
    TESTDESIGN design;
    design.Load({kConsole});
    HOSTINFO* console = design.Object("ORNCST_1");
    int32_t index = 0;
    EXPECT_EQ(Lookup(console, "FaultMaskTest", nullptr, &index), 1);
    EXPECT_NE(index, 0);
    EXPECT_EQ(Lookup(console, "State", "Update", &index), 1);  // "Update" "." "State"
    EXPECT_EQ(Lookup(console, "FaultMask7", nullptr, &index), 0);
    EXPECT_EQ(index, 0);
    EXPECT_EQ(Lookup(console, "faultmask1"), 0);
    EXPECT_EQ(Lookup(console, " "), 0);
    EXPECT_EQ(Lookup(console, "control"), 0);
}

// Every keyword a console knows, family by family, as the device names them.
std::vector<std::string> AllKeywords()
{
    std::vector<std::string> names = {"type", "connection", "address", "baudrate", "baudratefreeze", "slot",
                                      "preChimeActive", "reportFaults", "Compressor", "priority", "extensionTypes",
                                      "hostrect", "layer", "leds", "name", "BootFirmware.Revision",
                                      "Firmware.Revision", "Runtime", "State", "OperatingMode", "ExtensionCount",
                                      "Update.Percent", "Update.State", "FaultMaskTest", "MasterFault", "PTTActive",
                                      "ShowDate", "online", "configuration", "generatePilot", "getInputChannelList",
                                      "Buzzer", "Watchdog.Clear", "Watchdog.Counter", "CANTermination", "Find",
                                      "BgmMenuActive", "ShowLineMonitoring", "ShowPowerManagementStates",
                                      "DecadicSelectionActive", "GetCSTPagingList", "FireEmergencyMonitoring",
                                      "EmergencyCSTKeys", "key0120OptionState", "key0121OptionState",
                                      "key0122OptionState"};
    char name[32];
    for (int n = 1; n <= 10; n++) {
        snprintf(name, sizeof name, "Faults%d", n);
        names.push_back(name);
        if (n != 7) {
            snprintf(name, sizeof name, "FaultMask%d", n);
            names.push_back(name);
        }
    }
    for (int n = 1; n <= 8; n++) {
        snprintf(name, sizeof name, "StateFlags%d", n);
        names.push_back(name);
    }
    for (int n = 0; n < 128; n++) {
        snprintf(name, sizeof name, "key%03d", n);
        names.push_back(name);
        snprintf(name, sizeof name, "keylabel%03d", n);
        names.push_back(name);
    }
    for (int n = 0; n < 12; n++) {
        snprintf(name, sizeof name, "NumericKey%d", n);
        names.push_back(name);
    }
    return names;
}

TEST(Console, KnowsAllItsKeywords)
{
    TESTDESIGN design;
    design.Load({kConsole});
    const std::vector<std::string> names = AllKeywords();
    EXPECT_EQ(names.size(), 341u);
    std::vector<int32_t> indexes;
    for (const std::string& name : names) {
        int32_t index = 0;
        EXPECT_EQ(Lookup(design.Object("ORNCST_1"), name.c_str(), nullptr, &index), 1) << name;
        indexes.push_back(index);
    }
    std::sort(indexes.begin(), indexes.end());
    EXPECT_EQ(std::unique(indexes.begin(), indexes.end()), indexes.end());
    EXPECT_EQ(indexes.front(), 1);
    EXPECT_EQ(indexes.back(), 341);
}

TEST(Console, SavesControlPropertyAndConnectionLines)
{
    TESTDESIGN design;
    design.Load({"Site*Floor1*control=0x00000000 DOVRIXC \"Desk\" 0x56000000 10,20,48x56", "Site*Floor1*Desk*name=A",
                 kConsole});
    std::string raw;
    const std::vector<std::string> lines = design.SavedLines(&raw);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines[0], "Site*Floor1*control=0x00000000 DOVRIXC \"Desk\" 0x56000000 10,20,74x57");
    EXPECT_TRUE(Contains(lines, "Site*Floor1*Desk*name=A"));
    EXPECT_LT(IndexOf(lines, "Site*Floor1*Desk*FaultMask1=1"), IndexOf(lines, "Site*Floor1*Desk*FaultMask10=1"));
    EXPECT_LT(IndexOf(lines, "Site*Floor1*Desk*FaultMask10=1"), IndexOf(lines, "Site*Floor1*Desk*FaultMask2=1"));
    EXPECT_TRUE(Contains(lines, "control=0x00000000 DOVRIXC \"ORNCST_1\" 0x56000000 40,40,74x57"));
    // Pass 1 comes after every object's pass 0.
    EXPECT_EQ(lines[lines.size() - 2], "Site*Floor1*Desk*connection=");
    EXPECT_EQ(lines.back(), "ORNCST_1*connection=");
    EXPECT_EQ(raw.substr(raw.size() - 2), "\r\n");
    EXPECT_FALSE(Contains(lines, "Site*Floor1*Desk*Find=0"));  // listed only
}

TEST(Console, ListsItsListedKeywordsInTableOrder)
{
    TESTDESIGN design;
    design.Load({kConsole});
    HOSTINFO* console = design.Object("ORNCST_1");
    const char* const* names = (const char* const*)SendMessageA(console->m_hWnd, WM_HOST_GETKEYWORDS, 0, 0);
    std::vector<std::string> listed;
    for (; *names; names++)
        listed.push_back(*names);
    EXPECT_TRUE(std::is_sorted(listed.begin(), listed.end()));
    EXPECT_TRUE(Contains(listed, "FaultMaskTest"));
    EXPECT_TRUE(Contains(listed, "type"));
    EXPECT_FALSE(Contains(listed, "layer"));
    EXPECT_FALSE(Contains(listed, "keylabel000"));

    HWND list = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | LVS_REPORT, 0, 0, 300, 300, design.Surface(), NULL,
                                NULL, NULL);
    LVCOLUMNA column = {};
    column.mask = LVCF_TEXT;
    column.pszText = const_cast<char*>("Keyword");
    SendMessageA(list, LVM_INSERTCOLUMNA, 0, (LPARAM)&column);
    SendMessageA(list, LVM_INSERTCOLUMNA, 1, (LPARAM)&column);
    SendMessageA(console->m_hWnd, WM_HOST_SAVETOLIST, 0, (LPARAM)list);
    ASSERT_EQ((size_t)SendMessageA(list, LVM_GETITEMCOUNT, 0, 0), listed.size());
    char keyword[64] = "", value[64] = "";
    LVITEMA cell = {};
    cell.cchTextMax = sizeof keyword;
    cell.pszText = keyword;
    SendMessageA(list, LVM_GETITEMTEXTA, 0, (LPARAM)&cell);
    cell.iSubItem = 1;
    cell.pszText = value;
    cell.cchTextMax = sizeof value;
    SendMessageA(list, LVM_GETITEMTEXTA, 0, (LPARAM)&cell);
    EXPECT_EQ(keyword, listed[0]);
    EXPECT_EQ(std::string(value), design.Get("ORNCST_1", keyword));
    DestroyWindow(list);
}

TEST(Console, TimerPollsAtMostOnceASecond)
{
    TESTDESIGN design;
    design.Load({kConsole});
    HOSTINFO* console = design.Object("ORNCST_1");
    FAKEPORT port;
    port.m_hWnd = design.Surface();
    AddConnection(console, "ORNCON_1.CST1", &port);
    static_cast<CONSOLEPROPERTIES*>(console)->m_pPartner = &port;

    console->OnTimer(0, 0);
    console->OnTimer(0, 0);
    EXPECT_EQ(port.questions, 1);
    EXPECT_TRUE(console->m_wFlags & HOSTFLAG_ONLINE);
    static_cast<CONSOLEPROPERTIES*>(console)->m_pPartner = nullptr;
}

// Connecting while the design loads re-sends the settings as edits; the
// user has changed nothing, so the loaded design is not marked changed.
TEST(Console, AFreshlyOpenedDesignIsUnchanged)
{
    const std::string path = TempFolder() + "\\connected.ds";
    {
        std::ofstream file(path, std::ios::binary);
        file << "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40\r\n" << kConsole << "\r\n"
             << "ORNCST_1*Buzzer=1\r\nORNCST_1*connection=ORNCON_1.DOVRIXCSTModule\r\n";
    }
    TESTDESIGN design;
    ASSERT_TRUE(a_LoadFile(design.Root(), path.c_str()));
    LRESULT connected = 0;
    design.Get("ORNCST_1", "connection", &connected);
    EXPECT_EQ(connected, 1);
    EXPECT_FALSE(a_IsModified(design.Root()));
    EXPECT_FALSE(design.Object("ORNCST_1")->m_wFlags & HOSTFLAG_EDITED);

    design.Edit("ORNCST_1*Buzzer=0");
    EXPECT_TRUE(a_IsModified(design.Root()));
}

// A value longer than the line buffer is handed on cut to it, not refused.
TEST(Console, AVeryLongValueKeepsWhatFits)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*name=" + std::string(5000, 'n')});
    EXPECT_EQ(design.Get("ORNCST_1", "name"), std::string(128, 'n'));
    // Not refused; the host says what was kept, so a save writes no surprise.
    const std::vector<std::string> output = design.Output();
    ASSERT_EQ(output.size(), 1u);
    EXPECT_NE(output[0].find("name shortened to 128 of its 5000 characters"), std::string::npos) << output[0];
}
