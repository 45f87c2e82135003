// The device canvas through its window: face, tooltip, the host's messages,
// the context menu and the destruction sequence.
#include <gtest/gtest.h>

#include "testhost.h"

#include <commctrl.h>

#include "../../base/text.h"

BOOL CALLBACK FindTooltip(HWND window, LPARAM found);

namespace {

// A controller that accepts every console and records what consoles tell it.
class RECORDER : public HOSTINFO {
public:
    BOOL OnConnectSource(LPCSTR, LPCSTR) override { return TRUE; }
    BOOL OnDisconnectSource(LPCSTR source, LPCSTR params) override
    {
        disconnected.push_back(std::string(source) + " " + params);
        return TRUE;
    }
    LRESULT OnMessage(WPARAM, LPARAM lParam) override
    {
        REQUEST* r = reinterpret_cast<REQUEST*>(lParam);
        if (r->operation == REQ_WRITE && r->type == REQTYPE_FLAG && r->name &&
            strcmp(r->name, "SystemMonitoringOnEmergency") == 0)
            monitoring.push_back(*static_cast<uint8_t*>(r->value));
        return 0;
    }
    std::vector<std::string> disconnected;
    std::vector<int> monitoring;
};

void AddRecorder(TESTDESIGN& design, RECORDER* recorder, const char* name)
{
    CopyText(recorder->m_szName, name);
    recorder->m_pHost = design.Root();
    recorder->m_hWnd = design.Surface();
    a_AddHostinfo(design.Root(), recorder);
    a_HostinfoCreated(design.Root(), recorder);
}

void RemoveRecorder(TESTDESIGN& design, RECORDER* recorder)
{
    a_HostinfoDestroyed(design.Root(), recorder);
    a_RemoveHostinfo(design.Root(), recorder);
}

// The pixels of the address field at the top of the face.
std::vector<DWORD> AddressField(HWND canvas)
{
    int width = 0;
    const std::vector<DWORD> pixels = WindowPixels(canvas, &width);
    return std::vector<DWORD>(pixels.begin() + 2 * width, pixels.begin() + 13 * width);
}

HWND SharedTooltip()
{
    HWND found = NULL;
    EnumThreadWindows(GetCurrentThreadId(), FindTooltip, (LPARAM)&found);
    return found;
}

std::string TipOf(HWND canvas)
{
    wchar_t wide[8192] = L"";
    TTTOOLINFOW tool = {};
    tool.cbSize = sizeof tool;
    tool.hwnd = canvas;
    tool.uId = (UINT_PTR)canvas;
    tool.lpszText = wide;
    SendMessageW(SharedTooltip(), TTM_GETTEXTW, sizeof wide / sizeof wide[0], (LPARAM)&tool);
    char text[8192] = "";
    WideCharToMultiByte(CP_ACP, 0, wide, -1, text, sizeof text, NULL, NULL);
    return text;
}

}  // namespace

BOOL CALLBACK FindTooltip(HWND window, LPARAM found)
{
    char className[32] = "";
    GetClassNameA(window, className, sizeof className);
    if (strcmp(className, TOOLTIPS_CLASSA) != 0)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

TEST(Canvas, ModelAndSizeFollowTheName)
{
    TESTDESIGN design;
    design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20",
                 "control=0 DOVRIXC \"ELKCST_2\" 0x54000000 100,10,20x20",
                 "Site*control=0 DOVRIXC \"ORNCST_3\" 0x54000000 200,10,20x20"});
    EXPECT_EQ(design.Get("ORNCST_1", "type"), "ORN-15CST");
    EXPECT_EQ(design.Get("ELKCST_2", "type"), "ELK-15CST");
    EXPECT_EQ(design.Get("Site*ORNCST_3", "type"), "ELK-15CST");
    HOSTINFO* console = design.Object("ORNCST_1");
    EXPECT_EQ(console->m_rect.right - console->m_rect.left, 74);  // the face image's size, not the host's 20x20
    EXPECT_EQ(console->m_rect.bottom - console->m_rect.top, 57);
    RECT client;
    GetClientRect(design.Object("ELKCST_2")->m_hWnd, &client);
    EXPECT_EQ(client.right, 74);
    EXPECT_EQ(client.bottom, 57);
    EXPECT_EQ(console->m_nHostField500, 500);
    char display[REQUEST_TEXT_SIZE] = "";
    EXPECT_EQ(SendMessageA(console->m_hWnd, WM_HOST_GETDISPLAYTEXT, 0, (LPARAM)display), (LRESULT)display);
    EXPECT_STREQ(display, "Untitled (ORNCST_1)");
    EXPECT_EQ((HOSTINFO*)SendMessageA(console->m_hWnd, WM_HOST_GETHOSTINFO, 0, 0), console);
}

// The faces' sizes, from the PNG header of each "SMALLCONSOLE" resource.
TEST(Canvas, FacesHaveTheSizesOfTheSmallConsoleTable)
{
    const struct {
        int id, width, height;
    } faces[] = {{103, 54, 55}, {106, 74, 57}, {148, 5, 5}, {160, 5, 5}, {188, 74, 59}, {194, 74, 57}};
    for (const auto& face : faces) {
        HRSRC resource = FindResourceA(Plugin(), MAKEINTRESOURCEA(face.id), "SMALLCONSOLE");
        ASSERT_NE(resource, nullptr) << face.id;
        ASSERT_GE(SizeofResource(Plugin(), resource), 24u);
        const unsigned char* png = static_cast<const unsigned char*>(LockResource(LoadResource(Plugin(), resource)));
        const auto bigEndian = [png](int at) { return (png[at] << 24) | (png[at + 1] << 16) | (png[at + 2] << 8) | png[at + 3]; };
        EXPECT_EQ(bigEndian(16), face.width) << face.id;
        EXPECT_EQ(bigEndian(20), face.height) << face.id;
    }
}

TEST(Canvas, FaceShowsAddressAndOnlineState)
{
    TESTDESIGN design;
    design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20", "ORNCST_1*address=10"});
    HOSTINFO* console = design.Object("ORNCST_1");
    const std::vector<DWORD> ten = AddressField(console->m_hWnd);
    design.Edit("ORNCST_1*address=11");
    const std::vector<DWORD> eleven = AddressField(console->m_hWnd);
    EXPECT_NE(ten, eleven);
    design.Edit("ORNCST_1*address=10");
    EXPECT_EQ(AddressField(console->m_hWnd), ten);

    int width = 0;
    const DWORD offline = WindowPixels(console->m_hWnd, &width)[3 * width + 6];  // inside the display window
    console->m_wFlags |= HOSTFLAG_ONLINE;
    const DWORD online = WindowPixels(console->m_hWnd, &width)[3 * width + 6];
    EXPECT_NE(online, offline);
}

TEST(Canvas, TooltipIsRebuiltOnlyWhileHidden)
{
    TESTDESIGN design;
    design.Load({"control=0 DOVRIXC \"ELKCST_2\" 0x54000000 10,10,20x20", "ELKCST_2*address=10",
                 "ELKCST_2*name=Lobby", "ELKCST_2*ExtensionCount=2"});
    HWND canvas = design.Object("ELKCST_2")->m_hWnd;
    ShowWindow(SharedTooltip(), SW_HIDE);
    SendMessageA(canvas, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(TipOf(canvas), "Objectname: \tELKCST_2\nAddress: \t10 (0x0a)\nType: \t\tELK-15CST, 2 ELK-20CSE\nName: \t\tLobby");

    ShowWindow(SharedTooltip(), SW_SHOWNA);  // the tip is showing
    design.Edit("ELKCST_2*name=Hall");
    SendMessageA(canvas, WM_MOUSEMOVE, 0, MAKELPARAM(6, 6));
    EXPECT_NE(TipOf(canvas).find("Name: \t\tLobby"), std::string::npos);
    ShowWindow(SharedTooltip(), SW_HIDE);
    SendMessageA(canvas, WM_MOUSEMOVE, 0, MAKELPARAM(7, 7));
    EXPECT_NE(TipOf(canvas).find("Name: \t\tHall"), std::string::npos);
}

TEST(Canvas, ContextMenuOpensTheConfiguration)
{
    TESTDESIGN design;
    design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20"});
    HWND canvas = design.Object("ORNCST_1")->m_hWnd;
    HMENU menu = CreatePopupMenu();
    SendMessageA(canvas, WM_HOST_CONTEXTMENU, 0, (LPARAM)menu);
    ASSERT_EQ(GetMenuItemCount(menu), 2);
    EXPECT_EQ(GetMenuState(menu, 0, MF_BYPOSITION) & MF_SEPARATOR, (UINT)MF_SEPARATOR);
    char item[64] = "";
    GetMenuStringA(menu, 1, item, sizeof item, MF_BYPOSITION);
    EXPECT_STREQ(item, "Configuration");
    EXPECT_EQ(GetMenuItemID(menu, 1), 1u);
    DestroyMenu(menu);

    SendMessageA(canvas, WM_HOST_CONTEXTCOMMAND, 0, 1);
    HWND configuration = FindWindowA("DOVRIXZELCONFIGURATIONDIALOG", "ORNCST_1 - Configuration");
    ASSERT_NE(configuration, nullptr);
    EXPECT_TRUE(IsWindowVisible(configuration));
    EXPECT_TRUE(GetWindowLongA(configuration, GWL_EXSTYLE) & WS_EX_TOOLWINDOW);
    RECT rect;
    GetWindowRect(configuration, &rect);
    EXPECT_EQ(rect.right - rect.left, 1008);
    SendMessageA(canvas, WM_HOST_CONTEXTCOMMAND, 0, 1);  // open again: the same window
    EXPECT_EQ(FindWindowA("DOVRIXZELCONFIGURATIONDIALOG", "ORNCST_1 - Configuration"), configuration);
    DestroyWindow(canvas);
    EXPECT_FALSE(IsWindow(configuration));
}

TEST(Canvas, DestructionLeavesTheControllerAndSettlesMonitoring)
{
    TESTDESIGN design;
    RECORDER controller;
    AddRecorder(design, &controller, "ORNCON_9");
    design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20", "ORNCST_1*address=3",
                 "control=0 DOVRIXC \"ORNCST_2\" 0x54000000 80,10,20x20", "ORNCST_2*address=4",
                 "ORNCST_1*FireEmergencyMonitoring=1", "ORNCST_2*FireEmergencyMonitoring=1",
                 "ORNCST_1*connection=ORNCON_9.CST1", "ORNCST_2*connection=ORNCON_9.CST1"});
    controller.monitoring.clear();

    DestroyWindow(design.Object("ORNCST_1")->m_hWnd);  // ORNCST_2 still monitors
    EXPECT_EQ(controller.disconnected, std::vector<std::string>{"ORNCST_1 CST1,3"});
    EXPECT_TRUE(controller.monitoring.empty());
    EXPECT_EQ(design.Object("ORNCST_1"), nullptr);

    DestroyWindow(design.Object("ORNCST_2")->m_hWnd);  // nobody monitors any more
    EXPECT_EQ(controller.disconnected.back(), "ORNCST_2 CST1,4");
    EXPECT_EQ(controller.monitoring, std::vector<int>{0});
    RemoveRecorder(design, &controller);
}
