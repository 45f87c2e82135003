// The configuration window and its Supervision page through the real DLL:
// in this process for the window's make-up, through the workbench for what
// a user does with it.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include <windows.h>
#include <commctrl.h>

#include "testhost.h"
#include "../../plugin/protocol.h"

namespace {

HWND Open(TESTDESIGN& design, const char* name, const char* cls)
{
    SendMessageA(design.Object(name)->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);
    const std::string title = std::string(name) + " - Configuration";
    return FindWindowA(cls, title.c_str());
}

HWND NamedChild(HWND parent, const char* name)
{
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        char text[128] = "";
        GetWindowTextA(child, text, sizeof text);
        if (strcmp(text, name) == 0)
            return child;
    }
    return NULL;
}

std::string Title(HWND window)
{
    char title[256] = "";
    GetWindowTextA(window, title, sizeof title);
    return title;
}

std::string WidgetText(HWND widget)
{
    char text[256] = "";
    a_GetControlText(widget, text, sizeof text);
    return text;
}

}  // namespace

TEST(Configuration, KeypadBoardsOpenTheirOwnClassWithoutViewButton)
{
    TESTDESIGN design;
    design.Load({"control=0 DOVRIXC \"ELKCST_9\" 0x54000000 10,10,20x20", "ELKCST_9*type=ELK-CSK"});
    HWND window = Open(design, "ELKCST_9", "DOVRIXELKCSKCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(window, IDC_VIEWBUTTON)));
    EXPECT_EQ(WidgetText(NamedChild(window, "lbdgenfunandinfo")), "CSK FIRMWARE");
    EXPECT_EQ(design.Get("ELKCST_9", "key123"), "Empty");  // no PTT record for the boards
    DestroyWindow(design.Object("ELKCST_9")->m_hWnd);
    EXPECT_FALSE(IsWindow(window));
}

TEST(Configuration, ZelConsolesShowTheSlotAndFixDecadicSelect)
{
    TESTDESIGN design;
    design.Load({"control=0 DOVRIXC \"ORNCST_ZEL1\" 0x54000000 10,10,20x20", "ORNCST_ZEL1*type=ZEL4010"});
    HWND window = Open(design, "ORNCST_ZEL1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(WidgetText(NamedChild(window, "lbdgenfunandinfo")), "ZEL FIRMWARE");
    EXPECT_FALSE(IsWindowEnabled(NamedChild(window, "decadeselect")));
    EXPECT_EQ(WidgetText(NamedChild(window, "decadeSelectlabel")), "DECADIC SELECT");
    EXPECT_TRUE(IsWindowVisible(NamedChild(window, "slot")));
    EXPECT_FALSE(IsWindowVisible(NamedChild(window, "connection")));
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(window, IDC_VIEWBUTTON)));
    DestroyWindow(window);
}

TEST(Configuration, OpeningWritesThePttKeyByItsVariant)
{
    const struct {
        const char* stored;
        const char* expected;
    } cases[] = {
        {"Empty", "PTT to Selection,0,0,0,0,0,0,0,0,0,,"},
        {"PTT to Zone,0,1,0,60,1,0,0,0,0,ORNCON_1.Hall,", "PTT to Zone,0,1,0,60,1,0,0,0,0,ORNCON_1.Hall,"},
        {"PTT to Group,0,0,0,50,0,0,0,0,0,ORNCON_1.All,", "PTT to Group,0,0,0,50,0,0,0,0,0,ORNCON_1.All,"},
    };
    for (const auto& c : cases) {
        TESTDESIGN design;
        design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20", std::string("ORNCST_1*key123=") + c.stored});
        HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(design.Get("ORNCST_1", "key123"), c.expected) << c.stored;
        DestroyWindow(window);
    }
}

TEST(Configuration, OfflineUpdateOpensNothingAndSupervisionIsGrey)
{
    TESTDESIGN design;
    design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20", "ORNCST_1*type=ZEL4020"});
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    SendMessageA(GetDlgItem(window, IDC_CONFIGURATION_UPDATE), BM_CLICK, 0, 0);  // modal if it ran: it does not
    EXPECT_EQ(FindWindowA(NULL, "FIRMWARE UPDATE"), nullptr);
    HWND tabs = GetDlgItem(window, IDC_TABSTRIP);
    EXPECT_EQ(SendMessageA(tabs, TCM_GETITEMCOUNT, 0, 0), 2);
    TabCtrl_SetCurSel(tabs, TAB_SUPERVISION);
    NMHDR change = {tabs, IDC_TABSTRIP, TCN_SELCHANGE};
    SendMessageA(window, WM_NOTIFY, IDC_TABSTRIP, (LPARAM)&change);
    HWND page = NULL;
    for (HWND child = GetWindow(window, GW_CHILD); child && !page; child = GetWindow(child, GW_HWNDNEXT)) {
        char cls[32] = "";
        GetClassNameA(child, cls, sizeof cls);
        if (strcmp(cls, "#32770") == 0)
            page = child;
    }
    ASSERT_NE(page, nullptr);
    EXPECT_TRUE(IsWindowVisible(page));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(window, IDC_CONSOLEVIEW)));
    EXPECT_FALSE(IsWindowEnabled(NamedChild(page, "WatchDogClear")));
    EXPECT_TRUE(IsWindowEnabled(NamedChild(page, "ZELFaults1")));
    EXPECT_FALSE(IsWindowEnabled(NamedChild(page, "ZELFaults6")));  // type 1: no extension row
    EXPECT_NE(NamedChild(page, "TestFault10"), nullptr);
    SendMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");  // reopens on Supervision
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(TabCtrl_GetCurSel(GetDlgItem(window, IDC_TABSTRIP)), TAB_SUPERVISION);
    DestroyWindow(window);
}

namespace {

const char kOrnController[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";

std::string ConsoleLine(const char* name)
{
    return std::string("control=0 DOVRIXC \"") + name + "\" 0x54000000 10,10,20x20";
}

// Types into a column edit field and presses Enter, as a user does.
void TypeInto(HWND widget, const char* text)
{
    HWND editor = GetWindow(widget, GW_CHILD);
    ASSERT_NE(editor, nullptr);
    SetWindowTextA(editor, text);
    SendMessageA(editor, WM_KEYDOWN, VK_RETURN, 0);
}

std::string EditorText(HWND widget)
{
    char text[128] = "";
    GetWindowTextA(GetWindow(widget, GW_CHILD), text, sizeof text);
    return text;
}

// One tick of the window's 200 ms timer.
void Tick(HWND window)
{
    SendMessageA(window, WM_TIMER, TIMER_POLL, 0);
}

HWND SupervisionPage(HWND window)
{
    HWND tabs = GetDlgItem(window, IDC_TABSTRIP);
    TabCtrl_SetCurSel(tabs, TAB_SUPERVISION);
    NMHDR change = {tabs, IDC_TABSTRIP, TCN_SELCHANGE};
    SendMessageA(window, WM_NOTIFY, IDC_TABSTRIP, (LPARAM)&change);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        char cls[32] = "";
        GetClassNameA(child, cls, sizeof cls);
        if (strcmp(cls, "#32770") == 0)
            return child;
    }
    return NULL;
}

std::string ItemText(HWND page, int id)
{
    char text[64] = "";
    GetDlgItemTextA(page, id, text, sizeof text);
    return text;
}

int DroppedHeight(HWND combo)
{
    RECT dropped = {};
    SendMessageA(combo, CB_GETDROPPEDCONTROLRECT, 0, (LPARAM)&dropped);
    return dropped.bottom - dropped.top;
}

// The drop-down a combo box like the selector has when its window is given
// the height: the system takes its closed part off, so the selector is
// compared with one made alike rather than with the height itself.
int DroppedHeightWhenSized(HWND selector, int height)
{
    HWND probe = CreateWindowExA(WS_EX_NOPARENTNOTIFY, "COMBOBOX", "",
                                 WS_CHILD | WS_VSCROLL | WS_TABSTOP | CBS_HASSTRINGS | CBS_DROPDOWNLIST, 0, 3, 122, 41,
                                 GetParent(selector), NULL, NULL, NULL);
    SendMessageA(probe, WM_SETFONT, SendMessageA(selector, WM_GETFONT, 0, 0), FALSE);
    SetWindowPos(probe, NULL, 787, 3, 122, height, SWP_NOZORDER | SWP_NOACTIVATE);
    const int dropped = DroppedHeight(probe);
    DestroyWindow(probe);
    return dropped;
}

}  // namespace

TEST(Configuration, InvalidOrOccupiedAddressesAreReportedAndTheStoredOneShown)
{
    TESTDESIGN design;
    design.Load({kOrnController, ConsoleLine("ORNCST_1"), "ORNCST_1*address=1", ConsoleLine("ORNCST_2"),
                 "ORNCST_2*address=2"});
    design.Edit("ORNCST_2*connection=ORNCON_1.DOVRIXCSTModule");
    design.Edit("ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule");
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    HWND address = NamedChild(window, "address");
    ASSERT_NE(address, nullptr);
    EXPECT_EQ(WidgetText(address), "1");
    {
        MESSAGEBOXCATCHER boxes;
        TypeInto(address, "17");
        EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Please enter a valid address!"});
        EXPECT_EQ(boxes.Captions(), std::vector<std::string>{"DOVRIXC"});
        EXPECT_EQ(WidgetText(address), "1");
        EXPECT_EQ(EditorText(address), "1");
    }
    {
        MESSAGEBOXCATCHER boxes;
        TypeInto(address, "2");
        EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Address already occupied by other ZEL!"});
        EXPECT_EQ(boxes.Captions(), std::vector<std::string>{"DOVRIXC"});
        EXPECT_EQ(WidgetText(address), "1");
        EXPECT_EQ(EditorText(address), "1");
    }
    EXPECT_EQ(design.Get("ORNCST_1", "address"), "1");
    TypeInto(address, "3");  // a free one is taken without a word
    EXPECT_EQ(design.Get("ORNCST_1", "address"), "3");
    EXPECT_EQ(EditorText(address), "3");
    DestroyWindow(window);
}

TEST(Configuration, RenameWhileOnlineIsRefusedSilently)
{
    TESTDESIGN design;
    design.Load({ConsoleLine("ORNCST_1"), "ORNCST_1*name=Lobby"});
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    HWND name = NamedChild(window, "name");
    ASSERT_NE(name, nullptr);
    design.Object("ORNCST_1")->m_wFlags |= HOSTFLAG_ONLINE;
    TypeInto(name, "Renamed");  // no box: an unexpected one fails the test
    EXPECT_EQ(design.Get("ORNCST_1", "name"), "Lobby");
    EXPECT_EQ(WidgetText(name), "Lobby");
    EXPECT_EQ(EditorText(name), "Lobby");
    design.Object("ORNCST_1")->m_wFlags &= ~HOSTFLAG_ONLINE;
    TypeInto(name, "Renamed");
    EXPECT_EQ(design.Get("ORNCST_1", "name"), "Renamed");
    DestroyWindow(window);
}

TEST(Configuration, GoingOnlineGreysMonitoringAndEmergencyKeysWithinOneTick)
{
    TESTDESIGN design;
    design.Load({ConsoleLine("ORNCST_1")});
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    HWND monitoring = NamedChild(window, "lcdFireEmergencyMonitoring");
    HWND emergency = NamedChild(window, "EmergencyCSTKeys");
    HWND powerManagement = NamedChild(window, "lcdpowerman");
    ASSERT_TRUE(monitoring && emergency && powerManagement);
    EXPECT_TRUE(IsWindowEnabled(monitoring));
    EXPECT_TRUE(IsWindowEnabled(emergency));
    design.Object("ORNCST_1")->m_wFlags |= HOSTFLAG_ONLINE;
    Tick(window);
    EXPECT_FALSE(IsWindowEnabled(monitoring));
    EXPECT_FALSE(IsWindowEnabled(emergency));
    EXPECT_TRUE(IsWindowEnabled(powerManagement));  // not one of the two
    design.Object("ORNCST_1")->m_wFlags &= ~HOSTFLAG_ONLINE;
    Tick(window);
    EXPECT_TRUE(IsWindowEnabled(monitoring));
    EXPECT_TRUE(IsWindowEnabled(emergency));
    DestroyWindow(window);
}

// Only one console of a design monitors: another one's toggle is grey until
// the first lets go, while the monitoring console can always switch it off.
TEST(Configuration, AnotherConsolesMonitoringGreysTheToggle)
{
    TESTDESIGN design;
    design.Load({ConsoleLine("ORNCST_1"), ConsoleLine("ORNCST_2"), "ORNCST_2*FireEmergencyMonitoring=1"});
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    HWND monitoring = NamedChild(window, "lcdFireEmergencyMonitoring");
    ASSERT_NE(monitoring, nullptr);
    Tick(window);
    EXPECT_FALSE(IsWindowEnabled(monitoring));
    EXPECT_TRUE(IsWindowEnabled(NamedChild(window, "EmergencyCSTKeys")));
    design.Edit("ORNCST_2*FireEmergencyMonitoring=0");
    Tick(window);
    EXPECT_TRUE(IsWindowEnabled(monitoring));
    DestroyWindow(window);

    HWND own = Open(design, "ORNCST_2", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(own, nullptr);
    {
        MESSAGEBOXCATCHER warning;  // switching it on warns of the program channel it takes
        design.Edit("ORNCST_2*FireEmergencyMonitoring=1");
    }
    Tick(own);
    EXPECT_TRUE(IsWindowEnabled(NamedChild(own, "lcdFireEmergencyMonitoring")));
    DestroyWindow(own);
}

TEST(Configuration, SupervisionRelabelsForTypeZeroAndBack)
{
    TESTDESIGN design;
    design.Load({ConsoleLine("ORNCST_1"), "ORNCST_1*type=ZEL4010"});
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    HWND page = SupervisionPage(window);
    ASSERT_NE(page, nullptr);
    SendMessageA(page, CFM_REINITIALIZE, 0, 0);
    EXPECT_EQ(ItemText(page, 1028), "ERROR DETECTION");
    EXPECT_EQ(ItemText(page, 1043), "DETECT");
    EXPECT_EQ(ItemText(page, 40008), "SLOT POSITION");
    EXPECT_EQ(ItemText(page, 40009), " COLLECTED ERROR STATE: ZEL DEVICE");
    EXPECT_EQ(ItemText(page, 1094), "ALARM BUTTON");
    EXPECT_TRUE(IsWindowEnabled(NamedChild(page, "ZELFaults6")));  // type 0 has the extension row
    design.Edit("ORNCST_1*type=ZEL4020");
    SendMessageA(page, CFM_REINITIALIZE, 0, 0);
    EXPECT_EQ(ItemText(page, 1028), "FAULT MONITORING");
    EXPECT_EQ(ItemText(page, 1043), "NOTIFICATION");
    EXPECT_EQ(ItemText(page, 40008), "INPUT NUMBER");
    EXPECT_EQ(ItemText(page, 40009), "COMBINED FAULT STATE");
    EXPECT_FALSE(IsWindowEnabled(NamedChild(page, "ZELFaults6")));
    DestroyWindow(window);
}

TEST(Configuration, SelectorDropsDown20PixelsWhenItListsNoConsole)
{
    TESTDESIGN design;
    design.Load({ConsoleLine("DESK_1"), ConsoleLine("ELKCST_2"), ConsoleLine("ORNCST_3")});
    HWND window = Open(design, "DESK_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    HWND selector = GetDlgItem(window, IDC_CONSOLESELECTOR);
    EXPECT_EQ(SendMessageA(selector, CB_GETCOUNT, 0, 0), 0);
    ASSERT_NE(DroppedHeightWhenSized(selector, 20), DroppedHeightWhenSized(selector, 80));
    EXPECT_EQ(DroppedHeight(selector), DroppedHeightWhenSized(selector, 20));
    DestroyWindow(window);

    window = Open(design, "ORNCST_3", "DOVRIXZELCONFIGURATIONDIALOG");  // itself alone in its family
    ASSERT_NE(window, nullptr);
    selector = GetDlgItem(window, IDC_CONSOLESELECTOR);
    EXPECT_EQ(SendMessageA(selector, CB_GETCOUNT, 0, 0), 1);
    EXPECT_EQ(DroppedHeight(selector), DroppedHeightWhenSized(selector, 80));
    DestroyWindow(window);
}

TEST(Configuration, TypeSixIsAKeypadBoardWithTheCskFirmwareHeader)
{
    TESTDESIGN design;
    design.Load({ConsoleLine("ORNCST_6"), "ORNCST_6*type=ORN-CSK"});
    HWND window = Open(design, "ORNCST_6", "DOVRIXELKCSKCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(WidgetText(NamedChild(window, "lbdgenfunandinfo")), "CSK FIRMWARE");
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(window, IDC_VIEWBUTTON)));
    HWND page = SupervisionPage(window);
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(ItemText(page, 1094), "PTT/ALARM BUTTON");
    DestroyWindow(window);
}

BOOL CALLBACK NoteInvalidChild(HWND child, LPARAM invalid)
{
    if (GetUpdateRect(child, NULL, FALSE)) {
        char name[64] = "";
        GetClassNameA(child, name, sizeof name);
        reinterpret_cast<std::vector<std::string>*>(invalid)->push_back(name);
    }
    return TRUE;
}

// The window watched while nothing happens: a 200 ms tick that finds every
// value as it was shown leaves every child valid, online and offline alike.
TEST(Configuration, TicksThatFindNothingChangedRepaintNothing)
{
    TESTDESIGN design;
    design.Load({ConsoleLine("ORNCST_1")});
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    for (bool online : {false, true}) {
        if (online)
            design.Object("ORNCST_1")->m_wFlags |= HOSTFLAG_ONLINE;
        Tick(window);  // what changed is shown
        RedrawWindow(window, NULL, NULL, RDW_UPDATENOW | RDW_ALLCHILDREN);
        for (int tick = 0; tick < 5; ++tick)
            Tick(window);
        std::vector<std::string> invalid;
        EnumChildWindows(window, NoteInvalidChild, (LPARAM)&invalid);
        EXPECT_TRUE(invalid.empty()) << (online ? "online: " : "offline: ") << invalid.size() << " children to repaint, "
                                     << (invalid.empty() ? "" : invalid.front());
    }
    DestroyWindow(window);
}

namespace {

void ChooseInSelector(HWND window, const char* console)
{
    HWND selector = GetDlgItem(window, IDC_CONSOLESELECTOR);
    SendMessageA(selector, CB_SETCURSEL, SendMessageA(selector, CB_FINDSTRINGEXACT, (WPARAM)-1, (LPARAM)console), 0);
    SendMessageA(window, WM_COMMAND, MAKEWPARAM(IDC_CONSOLESELECTOR, CBN_SELCHANGE), (LPARAM)selector);
}

void ShowConfigurationTab(HWND window)
{
    HWND tabs = GetDlgItem(window, IDC_TABSTRIP);
    TabCtrl_SetCurSel(tabs, TAB_CONFIGURATION);
    NMHDR change = {tabs, IDC_TABSTRIP, TCN_SELCHANGE};
    SendMessageA(window, WM_NOTIFY, IDC_TABSTRIP, (LPARAM)&change);
}

}  // namespace

// Another console chosen while Supervision shows: the page stays alone, no
// CONNECTION or SLOT pair and no console view over it; back on the first
// tab the chosen console's pair shows.
TEST(Configuration, ChoosingAConsoleOnSupervisionLeavesThePageAlone)
{
    TESTDESIGN design;
    design.Load({ConsoleLine("ORNCST_1"), ConsoleLine("ORNCST_2"), ConsoleLine("ORNCST_ZEL3"), "ORNCST_ZEL3*type=ZEL4010"});
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    Tick(window);
    HWND page = SupervisionPage(window);
    ASSERT_NE(page, nullptr);
    for (const char* chosen : {"ORNCST_2", "ORNCST_ZEL3", "ORNCST_1"}) {
        ChooseInSelector(window, chosen);
        ASSERT_EQ(Title(window), std::string(chosen) + " - Configuration");
        for (const char* widget : {"connection", "connectionlabel", "slot", "slotlabel", "name", "Find"})
            EXPECT_FALSE(IsWindowVisible(NamedChild(window, widget))) << chosen << ": " << widget;
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(window, IDC_CONSOLEVIEW))) << chosen;
        EXPECT_TRUE(IsWindowVisible(page)) << chosen;
        EXPECT_EQ(TabCtrl_GetCurSel(GetDlgItem(window, IDC_TABSTRIP)), TAB_SUPERVISION);
    }
    ChooseInSelector(window, "ORNCST_ZEL3");
    ShowConfigurationTab(window);
    EXPECT_TRUE(IsWindowVisible(NamedChild(window, "slot")));
    EXPECT_FALSE(IsWindowVisible(NamedChild(window, "connection")));
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(window, IDC_CONSOLEVIEW)));
    DestroyWindow(window);
}

// A type-0 console's page reads the type-0 texts however it comes to show:
// reopened directly on Supervision, or its type changed while it shows.
TEST(Configuration, TypeZeroTextsWheneverItsPageShows)
{
    TESTDESIGN design;
    design.Load({ConsoleLine("ORNCST_1"), "ORNCST_1*type=ZEL4010"});
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    ASSERT_NE(SupervisionPage(window), nullptr);
    SendMessageA(window, WM_CLOSE, 0, 0);
    window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");  // reopens on Supervision
    ASSERT_NE(window, nullptr);
    HWND page = FindWindowExA(window, NULL, "#32770", NULL);
    ASSERT_NE(page, nullptr);
    ASSERT_TRUE(IsWindowVisible(page));
    EXPECT_EQ(ItemText(page, 1028), "ERROR DETECTION");
    EXPECT_EQ(ItemText(page, 1043), "DETECT");
    EXPECT_EQ(ItemText(page, 40008), "SLOT POSITION");
    EXPECT_EQ(ItemText(page, 40009), " COLLECTED ERROR STATE: ZEL DEVICE");
    design.Edit("ORNCST_1*type=ZEL4020");
    Tick(window);
    EXPECT_EQ(ItemText(page, 1028), "FAULT MONITORING");
    EXPECT_EQ(ItemText(page, 40009), "COMBINED FAULT STATE");
    design.Edit("ORNCST_1*type=ZEL4010");
    Tick(window);
    EXPECT_EQ(ItemText(page, 1028), "ERROR DETECTION");
    DestroyWindow(window);
}

// The boards have no find toggle and no pilot tone: neither widget, nor the
// "PILOT TONE" label alone, shows on opening or after a visit to Supervision.
TEST(Configuration, BoardsShowNoFindAndNoPilotTone)
{
    for (const char* type : {"ELK-CSK", "ORN-CSK"}) {
        TESTDESIGN design;
        design.Load({ConsoleLine("ELKCST_9"), std::string("ELKCST_9*type=") + type});
        HWND window = Open(design, "ELKCST_9", "DOVRIXELKCSKCONFIGURATIONDIALOG");
        ASSERT_NE(window, nullptr);
        for (int visit = 0; visit < 2; visit++) {
            Tick(window);
            for (const char* widget : {"Find", "pilottone", "pilottonelabel"})
                EXPECT_FALSE(IsWindowVisible(NamedChild(window, widget))) << type << " visit " << visit << ": " << widget;
            EXPECT_TRUE(IsWindowVisible(NamedChild(window, "compressor"))) << type;
            ASSERT_NE(SupervisionPage(window), nullptr);
            ShowConfigurationTab(window);
        }
        DestroyWindow(window);
    }
}

// ---- Message boxes over the window ----------------------------------------------------

namespace {

const char kBoxCaption[] = "Paint check";

struct BOXWATCH {
    DWORD thread = 0;
    HWND box = NULL;
    int ticks = 0;            // timer ticks since the box was found
    std::vector<DWORD> pixels;  // the box's client area as the screen shows it
    int width = 0;
    volatile LONG done = 0;
};

BOXWATCH*& Watch()
{
    static BOXWATCH* watch = nullptr;
    return watch;
}

BOOL CALLBACK FindPaintCheck(HWND window, LPARAM found)
{
    char caption[64] = "";
    GetWindowTextA(window, caption, sizeof caption);
    if (strcmp(caption, kBoxCaption) == 0 && IsWindowVisible(window)) {
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    return TRUE;
}

// A timer of the test's thread, run by the box's own loop: once the box has
// been up for a second its pixels are taken from the screen and it is closed.
void CALLBACK CaptureBox(HWND, UINT, UINT_PTR timer, DWORD)
{
    BOXWATCH* watch = Watch();
    if (!watch->box)
        EnumThreadWindows(watch->thread, FindPaintCheck, (LPARAM)&watch->box);
    if (!watch->box || ++watch->ticks < 10)
        return;
    KillTimer(NULL, timer);
    watch->pixels = ScreenPixels(watch->box, &watch->width);
    PostMessageA(watch->box, WM_COMMAND, IDOK, 0);
}

// Should the box's loop never come to the timer (a window that never stops
// asking to be painted starves it), the box is closed from outside.
DWORD WINAPI CloseBoxLate(void* parameter)
{
    BOXWATCH* watch = static_cast<BOXWATCH*>(parameter);
    for (int waited = 0; waited < 100 && !watch->done; waited++)
        Sleep(100);
    if (!watch->done) {
        HWND box = NULL;
        EnumThreadWindows(watch->thread, FindPaintCheck, (LPARAM)&box);
        if (box)
            PostMessageA(box, WM_COMMAND, IDOK, 0);
    }
    return 0;
}

// Shows a message box owned by the window and returns what the screen showed of it.
BOXWATCH ShowAndCaptureMessageBox(HWND owner, const char* text)
{
    BOXWATCH watch;
    watch.thread = GetCurrentThreadId();
    Watch() = &watch;
    HANDLE closer = CreateThread(NULL, 0, CloseBoxLate, &watch, 0, NULL);
    const UINT_PTR timer = SetTimer(NULL, 0, 100, CaptureBox);
    {
        MESSAGEBOXCATCHER catcher(MESSAGEBOX_LEFT_OPEN);
        MessageBoxA(owner, text, kBoxCaption, MB_OK | MB_ICONEXCLAMATION);
    }
    KillTimer(NULL, timer);
    InterlockedExchange(&watch.done, 1);
    WaitForSingleObject(closer, INFINITE);
    CloseHandle(closer);
    Watch() = nullptr;
    return watch;
}

// Dark pixels where the text stands: the box painted its face and its words.
int DarkPixels(const std::vector<DWORD>& pixels)
{
    int dark = 0;
    for (DWORD pixel : pixels) {
        const int r = (pixel >> 16) & 0xFF, g = (pixel >> 8) & 0xFF, b = pixel & 0xFF;
        if (r + g + b < 120)
            dark++;
    }
    return dark;
}

}  // namespace

// A message box over an open configuration window paints itself: its face
// in the dialog colour, its text in dark letters on it, as the screen shows it.
TEST(Configuration, AMessageBoxOverTheWindowPaintsItsText)
{
    TESTDESIGN design;
    design.Load({kOrnController, ConsoleLine("ORNCST_1"), "ORNCST_1*address=1"});
    HWND window = Open(design, "ORNCST_1", "DOVRIXZELCONFIGURATIONDIALOG");
    ASSERT_NE(window, nullptr);
    Tick(window);
    const BOXWATCH watch =
        ShowAndCaptureMessageBox(window, "Indicator Test key already configured. WWWWWWWWWWWWWWWWWWWWWWWWWWWW");
    ASSERT_FALSE(watch.pixels.empty()) << "the box's loop never ran its timers";
    const size_t all = watch.pixels.size();
    const int dark = DarkPixels(watch.pixels);
    EXPECT_GT(dark, 40) << "no text on the box";
    EXPECT_LT((size_t)dark, all / 2) << dark << " of " << all << " pixels dark: the box is black";
    DestroyWindow(window);
}
