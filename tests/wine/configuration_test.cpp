// The configuration window and its Supervision page through the real DLL:
// in this process for the window's make-up, through the workbench for what
// a user does with it.
#include <gtest/gtest.h>

#include <fstream>

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
