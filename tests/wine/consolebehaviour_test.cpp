// A console object against a controller the test plays: the stored settings
// re-sent in their order on connecting, the poll's 1001 ms throttle on the
// host's clock, and an address change refused when the controller's
// free-address map cannot be read.
#include <gtest/gtest.h>

#include "testhost.h"

#include <algorithm>
#include <stdlib.h>

#include "../../base/text.h"

#include "../../plugin/device/consoleproperties.h"

namespace {

const char kConsole[] = "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 40,40,20x20";
const char kPartnerClass[] = "ConsoleBehaviourPartner";

// The controller's window: counts the address moves it is asked for and takes them.
int g_moves = 0;

LRESULT CALLBACK PartnerWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_HOST_CHANGEADDRESS) {
        g_moves++;
        return 1;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

HWND PartnerWindow()
{
    static bool registered = false;
    if (!registered) {
        WNDCLASSA wc = {};
        wc.lpfnWndProc = PartnerWindowProc;
        wc.hInstance = GetModuleHandleA(NULL);
        wc.lpszClassName = kPartnerClass;
        registered = RegisterClassA(&wc) != 0;
    }
    return CreateWindowExA(0, kPartnerClass, "", WS_POPUP, 0, 0, 10, 10, NULL, NULL, NULL, NULL);
}

// A controller that takes every console, records every variable written to
// it in order, answers whether the device is alive, and serves its
// free-address map only when told to.
class PARTNER : public HOSTINFO {
public:
    BOOL OnConnectSource(LPCSTR, LPCSTR) override { return TRUE; }
    BOOL OnDisconnectSource(LPCSTR, LPCSTR) override { return TRUE; }
    BOOL OnIsAlive(WPARAM, LPARAM) override
    {
        questions++;
        return TRUE;
    }
    LRESULT OnMessage(WPARAM, LPARAM lParam) override
    {
        REQUEST* r = reinterpret_cast<REQUEST*>(lParam);
        const std::string name = r->name ? r->name : "";
        if (name == "ZEL4000.FreeAddresses") {
            if (!serveFreeAddresses)
                return 0;
            if (r->operation == REQ_LOOKUP)
                r->index = 1;
            if (r->operation == REQ_READ && r->type == REQTYPE_INT)
                *static_cast<int*>(r->value) = freeAddresses;
            return 1;
        }
        if (r->operation == REQ_WRITE) {
            int value = -1;
            if (r->type == REQTYPE_BYTE || r->type == REQTYPE_FLAG)
                value = *static_cast<const uint8_t*>(r->value);
            else if (r->type == REQTYPE_INT)
                value = *static_cast<const int*>(r->value);
            else if (r->type == REQTYPE_TEXT)
                value = atoi(static_cast<const char*>(r->value));
            written.push_back(name + "=" + std::to_string(value));
        }
        return 1;
    }
    std::vector<std::string> written;
    int questions = 0;
    bool serveFreeAddresses = false;
    int freeAddresses = 0;
};

class ConsoleBehaviour : public testing::Test {
protected:
    void SetUp() override
    {
        window = PartnerWindow();
        CopyText(partner.m_szName, "ORNCON_9");
        partner.m_pHost = design.Root();
        partner.m_hWnd = window;
        a_AddHostinfo(design.Root(), &partner);
        a_HostinfoCreated(design.Root(), &partner);
        g_moves = 0;
    }
    void TearDown() override
    {
        a_HoldClock(FALSE);
        design.Load({"ORNCST_1*connection="});
        a_HostinfoDestroyed(design.Root(), &partner);
        a_RemoveHostinfo(design.Root(), &partner);
        DestroyWindow(window);
    }
    void Connect() { design.Edit("ORNCST_1*connection=ORNCON_9.CST1"); }

    TESTDESIGN design;
    PARTNER partner;
    HWND window = NULL;
};

}  // namespace

TEST_F(ConsoleBehaviour, ConnectingReSendsTheStoredSettingsInTheirOrder)
{
    design.Load({kConsole, "ORNCST_1*address=1", "ORNCST_1*CANTermination=1", "ORNCST_1*Buzzer=1",
                 "ORNCST_1*FaultMask4=1", "ORNCST_1*FaultMask9=0", "ORNCST_1*FaultMaskTest=1",
                 "ORNCST_1*reportFaults=1", "ORNCST_1*ShowDate=0"});
    Connect();
    ASSERT_EQ(design.Get("ORNCST_1", "connection"), "ORNCON_9.CST1");
    const std::vector<std::string> expected = {
        "ORNCST_1.CANTermination=1",  "ORNCST_1.BGM_Menu=0",      "ORNCST_1.ShowLineMonitoring=0",
        "ORNCST_1.ShowPowerManagementStates=0", "ORNCST_1.Buzzer=1", "ORNCST_1.ShowDate=0",
        "ORNCST_1.Compressor=0",      "ORNCST_1.ReportFaults=1",  "ORNCST_1.FaultMask1=1",
        "ORNCST_1.FaultMask2=1",      "ORNCST_1.FaultMask3=1",    "ORNCST_1.FaultMask4=1",
        "ORNCST_1.FaultMask5=0",      "ORNCST_1.FaultMask6=0",    "ORNCST_1.FaultMaskTest=1",
        "ORNCST_1.FaultMask8=1",      "ORNCST_1.FaultMask9=0",    "ORNCST_1.FaultMask10=1",
    };
    // The settings among everything else the connection writes.
    std::vector<std::string> settings;
    for (const std::string& line : partner.written)
        for (const std::string& want : expected)
            if (line.substr(0, line.find('=')) == want.substr(0, want.find('=')))
                settings.push_back(line);
    EXPECT_EQ(settings, expected);
    // Re-sent as edits: the object is marked.
    EXPECT_TRUE(design.Object("ORNCST_1")->m_wFlags & HOSTFLAG_EDITED);
}

TEST_F(ConsoleBehaviour, ThePollWaitsForMoreThanASecond)
{
    design.Load({kConsole, "ORNCST_1*address=1"});
    Connect();
    HOSTINFO* console = design.Object("ORNCST_1");
    ASSERT_EQ(static_cast<CONSOLEPROPERTIES*>(console)->m_pPartner, &partner);
    a_HoldClock(TRUE);
    a_AdvanceClock(5000);
    console->OnTimer(0, 0);
    ASSERT_EQ(partner.questions, 1);
    EXPECT_TRUE(console->m_wFlags & HOSTFLAG_ONLINE);
    a_AdvanceClock(1000);
    console->OnTimer(0, 0);
    EXPECT_EQ(partner.questions, 1);  // 1000 ms is not enough
    a_AdvanceClock(1);
    console->OnTimer(0, 0);
    EXPECT_EQ(partner.questions, 2);  // 1001 ms is
    a_AdvanceClock(500);
    console->OnTimer(0, 0);
    a_AdvanceClock(500);
    console->OnTimer(0, 0);
    EXPECT_EQ(partner.questions, 2);
    a_AdvanceClock(1);
    console->OnTimer(0, 0);
    EXPECT_EQ(partner.questions, 3);
}

TEST_F(ConsoleBehaviour, AnUnreadableFreeAddressMapRefusesTheAddress)
{
    design.Load({kConsole, "ORNCST_1*address=1"});
    Connect();
    ASSERT_EQ(design.Get("ORNCST_1", "address"), "1");

    design.Edit("ORNCST_1*address=5");
    EXPECT_EQ(design.Get("ORNCST_1", "address"), "1");
    EXPECT_EQ(g_moves, 0);
    const std::vector<std::string> output = design.Output();
    // The plug-in's text, prefixed by the host with the object that reported it.
    EXPECT_EQ(std::count(output.begin(), output.end(), "ORNCST_1: Error reading line address"), 1);

    // Readable, with address 5 free (bit 5): the controller is asked to move it.
    partner.serveFreeAddresses = true;
    partner.freeAddresses = 1 << 5;
    design.Edit("ORNCST_1*address=5");
    EXPECT_EQ(design.Get("ORNCST_1", "address"), "5");
    EXPECT_EQ(g_moves, 1);
    // Readable, with address 6 taken: refused with its message.
    {
        MESSAGEBOXCATCHER boxes;
        design.Edit("ORNCST_1*address=6");
        EXPECT_EQ(boxes.Texts(), (std::vector<std::string>{"Address already occupied by other ZEL!"}));
    }
    EXPECT_EQ(design.Get("ORNCST_1", "address"), "5");
    EXPECT_EQ(g_moves, 1);
}

TEST(ConsoleProjectVersion, OnlyOldProjectsShiftTheirFaultMasks)
{
    struct ROW {
        const char* version;  // null: the design has no "projectversion"
        bool old;
    };
    const ROW rows[] = {
        {"V 2.7.9", true}, {"V 1.7.0", true},  {"V 2.8.0", false}, {"V 3.0.0", false},
        {"V 3.7.0", false}, {"V 2.9.1", false}, {"", false},        {nullptr, false},
    };
    for (const ROW& row : rows) {
        SCOPED_TRACE(row.version ? row.version : "(none)");
        TESTDESIGN design;
        if (row.version)
            a_SetVariable(design.Root(), "projectversion", row.version);
        design.Load({kConsole, "ORNCST_1*FaultMask7=0"});
        // An old project's FaultMask7 is today's FaultMask8 (1 when new).
        EXPECT_EQ(design.Get("ORNCST_1", "FaultMask8"), row.old ? "0" : "1");
    }
}
