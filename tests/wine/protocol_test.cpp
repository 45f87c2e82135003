// The numbers of the windows' protocol are the device's own, and no message
// handled in the plug-in's windows lets a failure out.
#include <gtest/gtest.h>

#include <stdexcept>

#include "testhost.h"
#include "../../plugin/protocol.h"
#include "../../base/window.h"

TEST(Protocol, MessagesKeepTheirNumbers)
{
    EXPECT_EQ(WM_HOST_MESSAGE, 0x8000u);
    EXPECT_EQ(WM_HOST_LOAD, 0x8001u);
    EXPECT_EQ(WM_HOST_SAVE, 0x8002u);
    EXPECT_EQ(WM_HOST_SAVETOLIST, 0x8003u);
    EXPECT_EQ(WM_HOST_LOADED, 0x8004u);
    EXPECT_EQ(WM_HOST_CHANGEADDRESS, 0x800Cu);
    EXPECT_EQ(WM_HOST_GETHOSTINFO, 0x8014u);
    EXPECT_EQ(WM_HOST_GETKEYWORDS, 0x8032u);
    EXPECT_EQ(WM_HOST_GETDISPLAYTEXT, 0x8034u);
    EXPECT_EQ(WM_HOST_CONTEXTMENU, 0x8036u);
    EXPECT_EQ(WM_HOST_CONTEXTCOMMAND, 0x8037u);

    EXPECT_EQ(CVM_SETPAGE, 1026u);
    EXPECT_EQ(CVM_HITTEST, 1034u);
    EXPECT_EQ(CVM_CONSOLECHANGED, 1036u);
    EXPECT_EQ(CVM_KEYCHANGED, 1037u);
    EXPECT_EQ(CVM_REFRESHLEDS, 1038u);
    EXPECT_EQ(CVM_SETEDITMODE, 1040u);
    EXPECT_EQ(CFM_REINITIALIZE, 1036u);
    EXPECT_EQ(CFM_SETOFFLINE, 0x410u);
    EXPECT_EQ(CFM_REFRESHLAMPS, 1041u);
    EXPECT_EQ(CFM_CONSOLERENAMED, 0x412u);
    EXPECT_EQ(CFM_SELECTCONSOLE, 1044u);
    EXPECT_EQ(CFM_SELECTBYNAME, 1045u);
    EXPECT_EQ(KPM_KEYEDITED, 1037u);
    EXPECT_EQ(KPM_BINDKEY, 1041u);
    EXPECT_EQ(RBM_SETSTATE, 0x8B0u);
    EXPECT_EQ(RBM_SETFACECOLOUR, 0x8B1u);
    EXPECT_EQ(RBM_SETTEXTCOLOUR, 0x8B2u);
    EXPECT_EQ(RBN_CHECKED, 0x203);
    EXPECT_EQ(LABELEDITOR_ENTER, 0x457);
}

TEST(Protocol, TimersAndChildrenKeepTheirIds)
{
    EXPECT_EQ(TIMER_POLL, 111u);
    EXPECT_EQ(TIMER_UPLOAD, 333u);
    EXPECT_EQ(IDC_ONLINEINDICATOR, 192);
    EXPECT_EQ(IDC_MANAGERVIEW, 1000);
    EXPECT_EQ(IDC_TABSTRIP, 1001);
    EXPECT_EQ(IDC_VIEWBUTTON, 1002);
    EXPECT_EQ(IDC_CONSOLEVIEW, 1003);
    EXPECT_EQ(IDC_CONSOLESELECTOR, 1006);
    EXPECT_EQ(IDC_PAGEBUTTON_CONSOLE, 2000);
    EXPECT_EQ(IDC_CONFIGURATION_UPDATE, 6063);
    EXPECT_EQ(IDC_VIEWTOOL_POINTER, 1);
    EXPECT_EQ(IDC_VIEWTOOL_ADDEXTENSION, 20);
    EXPECT_EQ(IDC_VIEWTOOL_REMOVEEXTENSION, 3);
    // The view sizes its parent's child 1001 as a tab strip: its own toolbar is another.
    EXPECT_NE(IDC_VIEW_TOOLBAR, IDC_TABSTRIP);
}

namespace {

const char kThrowingClass[] = "DovrixcTestThrowingWindow";

struct THROWINGSTATE {
    int created = 0;
};

LRESULT Throwing_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        if (reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams)
            throw std::runtime_error("creation failed");
        AttachWindowState(hwnd, new THROWINGSTATE)->created = 1;
        return 0;
    case WM_SETTEXT:
        throw std::runtime_error("message failed");
    case WM_GETTEXTLENGTH:  // the state's mark
        return WindowState<THROWINGSTATE>(hwnd)->created;
    case WM_DESTROY:
        FreeWindowState<THROWINGSTATE>(hwnd);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

TEST(WindowSkeleton, AFailureIsTracedAndAnsweredNotThrown)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = GuardedWindowProc<Throwing_Dispatch>;
    wc.hInstance = GetModuleHandleA(NULL);
    wc.lpszClassName = kThrowingClass;
    RegisterClassA(&wc);

    // A creation that fails makes no window.
    int fail = 1;
    EXPECT_EQ(CreateWindowExA(0, kThrowingClass, "", WS_POPUP, 0, 0, 10, 10, NULL, NULL, wc.hInstance, &fail), nullptr);

    HWND hwnd = CreateWindowExA(0, kThrowingClass, "", WS_POPUP, 0, 0, 10, 10, NULL, NULL, wc.hInstance, NULL);
    ASSERT_NE(hwnd, nullptr);
    EXPECT_EQ(SendMessageA(hwnd, WM_GETTEXTLENGTH, 0, 0), 1);  // the state is in the window
    // The default answer (the text is set), and the window lives on.
    EXPECT_EQ(SendMessageA(hwnd, WM_SETTEXT, 0, (LPARAM) "text"), TRUE);
    EXPECT_TRUE(IsWindow(hwnd));
    EXPECT_EQ(SendMessageA(hwnd, WM_GETTEXTLENGTH, 0, 0), 1);
    DestroyWindow(hwnd);
    EXPECT_EQ(WindowState<THROWINGSTATE>(hwnd), nullptr);
}
