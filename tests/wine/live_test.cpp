// Consoles connected to simulated controllers: the connection keyword, the
// settings mirrored to the device, the live values it reports, the address
// on the bus and the fire-emergency monitoring.
#include <gtest/gtest.h>

#include "testhost.h"

namespace {

const char kOrnController[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";
const char kElkController[] = "control=0 ELKCON \"ELKCON_1\" 0x54000000 200,100,150x40";

std::string Console(const char* name, int address)
{
    return std::string("control=0 DOVRIXC \"") + name + "\" 0x54000000 0,0,20x20\n" + name +
           "*address=" + std::to_string(address);
}

// Loads "a\nb" as two design lines.
void LoadLines(TESTDESIGN& design, const std::string& text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    design.Load(lines);
}

// A variable as the controller serves it; -1 when it does not know it.
int Variable(const char* controller, const char* name)
{
    HOSTINFO* obj = a_FindHostinfo(controller);
    int value = -1;
    REQUEST read = {REQ_READ, 0, REQTYPE_INT, REQMODE_EDIT, &value, name, nullptr};
    return obj && obj->OnMessage(0, (LPARAM)&read) ? value : -1;
}

// The host's timer after a second has passed: every object polls.
void PollAfterASecond()
{
    a_AdvanceClock(1100);
    a_EnumHostinfo([](HOSTINFO* obj, void*) -> BOOL { return obj->OnTimer(0, 0), TRUE; }, nullptr);
}

class Live : public testing::Test {
protected:
    void SetUp() override
    {
        LoadLines(design, std::string(kOrnController) + "\n" + kElkController + "\n" + Console("ORNCST_1", 1));
    }
    std::string Get(const char* keyword, const char* object = "ORNCST_1") { return design.Get(object, keyword); }
    void Connect(const char* object = "ORNCST_1", const char* to = "ORNCON_1.DOVRIXCSTModule")
    {
        design.Edit(std::string(object) + "*connection=" + to);
    }

    TESTDESIGN design;
};

}  // namespace

TEST_F(Live, ConnectingSendsTheStoredSettings)
{
    design.Load({"ORNCST_1*Buzzer=1", "ORNCST_1*CANTermination=1", "ORNCST_1*FaultMask4=1", "ORNCST_1*ShowDate=0"});
    EXPECT_FALSE(design.Object("ORNCST_1")->m_wFlags & HOSTFLAG_EDITED);
    Connect();
    EXPECT_EQ(Get("connection"), "ORNCON_1.DOVRIXCSTModule");
    EXPECT_EQ(Variable("ORNCON_1", "ORNCST_1.Buzzer"), 1);
    EXPECT_EQ(Variable("ORNCON_1", "ORNCST_1.CANTermination"), 1);
    EXPECT_EQ(Variable("ORNCON_1", "ORNCST_1.FaultMask4"), 1);
    EXPECT_EQ(Variable("ORNCON_1", "ORNCST_1.ShowDate"), 0);
    EXPECT_TRUE(design.Object("ORNCST_1")->m_wFlags & HOSTFLAG_EDITED);
    EXPECT_FALSE(Variable("ORNCON_1", "ZEL4000.FreeAddresses") & (1 << 1));
    EXPECT_TRUE(Variable("ORNCON_1", "ZEL4000.FreeAddresses") & (1 << 2));
}

TEST_F(Live, MirroredSettingsFollowTheDeviceBothWays)
{
    Connect();
    design.Edit("ORNCST_1*Compressor=5");
    EXPECT_EQ(Variable("ORNCON_1", "ORNCST_1.Compressor"), 1);
    design.Edit("ORNCST_1*BgmMenuActive=1");
    EXPECT_EQ(Variable("ORNCON_1", "ORNCST_1.BGM_Menu"), 1);
    design.Edit("ORNCST_1*preChimeActive=1");
    EXPECT_EQ(Variable("ORNCON_1", "ORNCST_1.PreChimeAllowed"), 1);
    ASSERT_TRUE(SimulateDevice("ORNCST_1", "Compressor", 0));
    EXPECT_EQ(Get("Compressor"), "0");
    design.Edit("ORNCST_1*FaultMaskTest=1");
    EXPECT_EQ(Variable("ORNCON_1", "ORNCST_1.FaultMaskTest"), 1);
}

TEST_F(Live, TheControllerTriesTheNextAddresses)
{
    LoadLines(design, Console("ORNCST_8", 1) + "\n" + Console("ORNCST_9", 2));
    Connect("ORNCST_8");
    Connect("ORNCST_9");
    Connect("ORNCST_1");
    EXPECT_EQ(Get("address"), "3");  // accepted at the third address tried
    EXPECT_EQ(Get("connection"), "ORNCON_1.DOVRIXCSTModule");
}

TEST_F(Live, BadConnectionsLeaveTheConsoleUnconnected)
{
    for (const char* bad : {"ORNCON_1", "NOSUCH_1.DOVRIXCSTModule", "ORNCON_1.PORT9", "ORNCON_1.CST9",
                            "ORNCON_7.DOVRIXCSTModule", ""}) {
        Connect("ORNCST_1", bad);
        LRESULT answer = 1;
        EXPECT_EQ(design.Get("ORNCST_1", "connection", &answer), "No Connection") << bad;
        EXPECT_EQ(answer, 0) << bad;
    }
    const std::vector<std::string> output = design.Output();
    EXPECT_EQ(std::count(output.begin(), output.end(), "ORNCST_1: Error reading line connection"), 6);

    // A console of no known family is never connected.
    LoadLines(design, Console("DESK_1", 5));
    Connect("DESK_1");
    EXPECT_EQ(design.Get("DESK_1", "connection"), "No Connection");

    // A bus without a free address refuses every one.
    for (int address = 1; address <= 16; address++) {
        const std::string name = "ELKCST_" + std::to_string(20 + address);
        LoadLines(design, Console(name.c_str(), address));
        Connect(name.c_str(), "ELKCON_1.DOVRIXCSTModule");
    }
    Connect("ORNCST_1", "ELKCON_1.DOVRIXCSTModule");
    EXPECT_EQ(Get("connection"), "No Connection");
}

TEST_F(Live, AnOnlineConsoleKeepsItsIdentity)
{
    design.Load({"ORNCST_1*name=Desk", "ORNCST_1*priority=2"});
    Connect();
    SimulateDevice("ORNCST_1", "online", 1);
    PollAfterASecond();
    ASSERT_TRUE(design.Object("ORNCST_1")->m_wFlags & HOSTFLAG_ONLINE);
    design.Edit("ORNCST_1*connection=ELKCON_1.DOVRIXCSTModule");
    design.Edit("ORNCST_1*name=Other");
    design.Edit("ORNCST_1*priority=3");
    design.Edit("ORNCST_1*address=5");
    design.Edit("ORNCST_1*extensionTypes=1,1,0,0,0");
    EXPECT_EQ(Get("connection"), "ORNCON_1.DOVRIXCSTModule");
    EXPECT_EQ(Get("name"), "Desk");
    EXPECT_EQ(Get("priority"), "2");
    EXPECT_EQ(Get("address"), "1");
    EXPECT_EQ(Get("ExtensionCount"), "0");

    SimulateDevice("ORNCST_1", "online", 0);
    PollAfterASecond();
    EXPECT_FALSE(design.Object("ORNCST_1")->m_wFlags & HOSTFLAG_ONLINE);
    design.Edit("ORNCST_1*name=Other");
    EXPECT_EQ(Get("name"), "Other");
}

TEST_F(Live, ReportedValuesInTheirForms)
{
    EXPECT_EQ(Get("Runtime"), "");
    EXPECT_EQ(Get("slot"), "1");  // no partner: the last slot known, counted from 1
    Connect();
    SimulateDevice("ORNCST_1", "online", 1);

    EXPECT_EQ(Get("baudrate"), "125 KBit/s");
    SimulateDevice("ORNCON_1", "CAN.Baudrate", 62);
    EXPECT_EQ(Get("baudrate"), "62.5 KBit/s");

    EXPECT_EQ(Get("BootFirmware.Revision"), "1.0.5");
    for (auto [byte, value] : {std::pair{6, 3}, {7, 2}, {8, 1}, {9, 1}})
        SimulateDevice("ORNCST_1", ("FirmwareRevision" + std::to_string(byte)).c_str(), value);
    EXPECT_EQ(Get("Firmware.Revision"), "V1.2.3A");
    SimulateDevice("ORNCST_1", "FirmwareRevision5", 0);
    LRESULT answer = 0;
    EXPECT_EQ(design.Get("ORNCST_1", "Firmware.Revision", &answer), "");
    EXPECT_EQ(answer, 1);
    SimulateDevice("ORNCST_1", "FirmwareRevision1", 0);
    EXPECT_EQ(Get("BootFirmware.Revision"), "");

    EXPECT_EQ(Get("slot"), "1");
    a_AdvanceClock(3000);
    EXPECT_EQ(Get("Watchdog.Counter"), "3c");
    EXPECT_EQ(Get("Runtime"), "3");
    design.Edit("ORNCST_1*Watchdog.Clear=1");
    EXPECT_EQ(Get("Watchdog.Counter"), "0c");

    SimulateDevice("ORNCST_1", "Faults4", 7);
    SimulateDevice("ORNCST_1", "DeviceErrorsFlags8", 2);
    EXPECT_EQ(Get("Faults4"), "7");
    EXPECT_EQ(Get("StateFlags8"), "2");
    SimulateDevice("ORNCST_1", "FlashProgramPercent", 40);
    EXPECT_EQ(Get("Update.Percent"), "40%");
}

TEST_F(Live, UpdateStateTexts)
{
    Connect();
    const char* const texts[] = {"Idle State", "Sending Erase Command and Waiting for Positive Acknowledge...",
                                 "Initializing Firmware transfer...", "Uploading file in chunks...",
                                 "Firmware updated successfully.", "Error encountered while updating the Firmware."};
    for (int state = 0; state < 6; state++) {
        SimulateDevice("ORNCST_1", "FlashProgramState", state);
        EXPECT_EQ(Get("Update.State"), texts[state]);
    }
    SimulateDevice("ORNCST_1", "FlashProgramState", 9);
    char value[REQUEST_TEXT_SIZE] = "kept";
    REQUEST request = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, value, "Update.State", nullptr};
    EXPECT_EQ(design.Object("ORNCST_1")->OnMessage(0, (LPARAM)&request), 1);
    EXPECT_STREQ(value, "kept");
}

TEST_F(Live, MasterFaultFollowsFaultsAndTheirSwitches)
{
    Connect();
    SimulateDevice("ORNCST_1", "online", 1);
    EXPECT_EQ(Get("MasterFault"), "0");
    SimulateDevice("ORNCST_1", "Faults5", 1);  // reported only with FaultMask5 on
    EXPECT_EQ(Get("MasterFault"), "0");
    design.Edit("ORNCST_1*FaultMask5=1");
    EXPECT_EQ(Get("MasterFault"), "1");
    EXPECT_EQ(Variable("ORNCON_1", "System.Info.FaultLed"), 1);
}

TEST_F(Live, AddressesAreCheckedAgainstTheBus)
{
    LoadLines(design, Console("ORNCST_2", 2));
    Connect("ORNCST_2");
    Connect();
    MESSAGEBOXCATCHER boxes;
    design.Edit("ORNCST_1*address=0");
    design.Edit("ORNCST_1*address=17");
    design.Edit("ORNCST_1*address=2");
    design.Edit("ORNCST_1*address=abc");
    EXPECT_EQ(boxes.Texts(), (std::vector<std::string>{"Please enter a valid address!", "Please enter a valid address!",
                                                      "Address already occupied by other ZEL!"}));
    EXPECT_EQ(Get("address"), "1");
    design.Edit("ORNCST_1*address=16");
    EXPECT_EQ(Get("address"), "16");
    const int free = Variable("ORNCON_1", "ZEL4000.FreeAddresses");
    EXPECT_TRUE(free & (1 << 1));
    EXPECT_FALSE(free & (1 << 16));
}

TEST_F(Live, MonitoringWarnsUnlessAChannelIsTakenAlready)
{
    Connect();
    {
        MESSAGEBOXCATCHER boxes;
        design.Load({"ORNCST_1*FireEmergencyMonitoring=1"});  // from the design file: no warning
        EXPECT_TRUE(boxes.Texts().empty());
        design.Edit("ORNCST_1*FireEmergencyMonitoring=1");
        ASSERT_EQ(boxes.Texts().size(), 1u);
        EXPECT_EQ(boxes.Texts()[0].rfind("A configured Monitoring consumes one of the available Program Channels.", 0),
                  0u);
    }
    EXPECT_EQ(Variable("ORNCON_1", "SystemMonitoringOnEmergency"), 1);

    LoadLines(design, Console("ORNCST_2", 2));
    Connect("ORNCST_2");
    {
        MESSAGEBOXCATCHER boxes;
        design.Edit("ORNCST_2*FireEmergencyMonitoring=1");  // ORNCST_1 monitors already
        EXPECT_TRUE(boxes.Texts().empty());
    }
    LoadLines(design, Console("ELKCST_3", 3));
    Connect("ELKCST_3", "ELKCON_1.DOVRIXCSTModule");
    design.Edit("ORNCST_1*FireEmergencyMonitoring=0");
    design.Edit("ORNCST_2*FireEmergencyMonitoring=0");
    SimulateDevice("ELKCON_1", "ProgramLocalSorceConfig", 1);
    {
        MESSAGEBOXCATCHER boxes;
        design.Edit("ELKCST_3*FireEmergencyMonitoring=1");  // the controller has its local source
        EXPECT_TRUE(boxes.Texts().empty());
    }
}

TEST_F(Live, ReconnectingSettlesTheMonitoring)
{
    Connect();
    design.Load({"ORNCST_1*FireEmergencyMonitoring=1"});
    Connect();  // the same controller again: the setting is written again
    EXPECT_EQ(Variable("ORNCON_1", "SystemMonitoringOnEmergency"), 1);
    EXPECT_EQ(Get("FireEmergencyMonitoring"), "1");

    Connect("ORNCST_1", "ELKCON_1.DOVRIXCSTModule");  // another controller: off
    EXPECT_EQ(Get("FireEmergencyMonitoring"), "0");
    EXPECT_EQ(Variable("ELKCON_1", "SystemMonitoringOnEmergency"), 0);
    EXPECT_TRUE(Variable("ORNCON_1", "ZEL4000.FreeAddresses") & (1 << 1));  // left the old bus

    {
        MESSAGEBOXCATCHER warning;
        design.Edit("ORNCST_1*FireEmergencyMonitoring=1");
    }
    Connect("ORNCST_1", "nowhere");  // leaving for no controller switches it off first
    EXPECT_EQ(Variable("ELKCON_1", "SystemMonitoringOnEmergency"), 0);
    EXPECT_EQ(Get("connection"), "No Connection");
}

TEST_F(Live, NumbersOutsideTheirRangeAreRefused)
{
    design.Load({"ORNCST_1*priority=7", "ORNCST_1*ExtensionCount=2"});
    design.Load({"ORNCST_1*priority=99999999999", "ORNCST_1*priority=x", "ORNCST_1*ExtensionCount=6",
                 "ORNCST_1*ExtensionCount=-1", "ORNCST_1*Buzzer=", "ORNCST_1*FaultMask3=yes", "ORNCST_1*leds=12g4"});
    EXPECT_EQ(Get("priority"), "7");
    EXPECT_EQ(Get("ExtensionCount"), "2");
    EXPECT_EQ(design.Output().size(), 7u);
}

// "priority" takes any decimal number into its 16-bit field and reads the
// field back.
TEST_F(Live, PriorityKeepsAnyNumberInSixteenBits)
{
    design.Load({"ORNCST_1*priority=-1"});
    EXPECT_EQ(Get("priority"), "-1");
    design.Load({"ORNCST_1*priority=65543"});
    EXPECT_EQ(Get("priority"), "7");
    design.Load({"ORNCST_1*priority=40000"});
    EXPECT_EQ(Get("priority"), "-25536");
    design.Load({"ORNCST_1*priority=12 dB"});
    EXPECT_EQ(Get("priority"), "12");
    EXPECT_TRUE(design.Output().empty());
}

// The connection names its controller: once that is deleted the read answers 0.
TEST_F(Live, TheConnectionOfADeletedControllerReadsAsNone)
{
    Connect("ORNCST_1", "ORNCON_1.DOVRIXCSTModule");
    LRESULT answer = 0;
    design.Get("ORNCST_1", "connection", &answer);
    EXPECT_EQ(answer, 1);
    HOSTINFO* controller = design.Object("ORNCON_1");
    ASSERT_NE(controller, nullptr);
    DestroyWindow(controller->m_hWnd);
    ASSERT_EQ(design.Object("ORNCON_1"), nullptr);
    design.Get("ORNCST_1", "connection", &answer);
    EXPECT_EQ(answer, 0);
}

TEST_F(Live, SavedKeywordsInTableOrder)
{
    std::vector<std::string> expected = {
        "BgmMenuActive", "Buzzer", "CANTermination", "Compressor", "DecadicSelectionActive", "EmergencyCSTKeys",
        "ExtensionCount", "FaultMask1", "FaultMask10", "FaultMask2", "FaultMask3", "FaultMask4", "FaultMask5",
        "FaultMask6", "FaultMask8", "FaultMask9", "FaultMaskTest", "FireEmergencyMonitoring", "NumericKey0",
        "NumericKey1", "NumericKey10", "NumericKey11"};
    char name[32];
    for (int key = 2; key <= 9; key++) {
        snprintf(name, sizeof name, "NumericKey%d", key);
        expected.push_back(name);
    }
    for (const char* keyword : {"PTTActive", "ShowDate", "ShowLineMonitoring", "ShowPowerManagementStates", "address",
                                "generatePilot"})
        expected.push_back(keyword);
    for (int key = 0; key < 128; key++) {
        snprintf(name, sizeof name, "key%03d", key);
        expected.push_back(name);
        if (key == 12)
            for (const char* option : {"key0120OptionState", "key0121OptionState", "key0122OptionState"})
                expected.push_back(option);
    }
    for (int key = 0; key < 128; key++) {
        snprintf(name, sizeof name, "keylabel%03d", key);
        expected.push_back(name);
    }
    for (const char* keyword : {"layer", "name", "preChimeActive", "priority", "reportFaults", "type"})
        expected.push_back(keyword);

    std::vector<std::string> saved;
    for (const std::string& line : design.SavedLines()) {
        const size_t star = line.find('*'), equals = line.find('=');
        if (line.rfind("ORNCST_1*", 0) == 0 && equals != std::string::npos && line.find("connection") == std::string::npos)
            saved.push_back(line.substr(star + 1, equals - star - 1));
    }
    EXPECT_EQ(saved, expected);
}
