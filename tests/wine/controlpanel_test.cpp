// The control panel through its window: opened and closed by the canvas,
// its pages, scroll range and page buttons, presses reaching the simulated
// controller, its tooltip, its host controls, and its end with the design.
#include <gtest/gtest.h>

#include "testhost.h"
#include "viewmenus.h"

#include <commctrl.h>

#include "../../plugin/console/keygeometry.h"
#include "../../plugin/device/consoleproperties.h"
#include "../../plugin/protocol.h"

namespace {

const char kController[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";

class ControlPanel : public testing::Test {
protected:
    void SetUp() override
    {
        design.Load({kController, "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 30,20,20x20", "ORNCST_1*address=1",
                     "ORNCST_1*type=ORN-15CST"});
        console = design.Object("ORNCST_1");
        ASSERT_NE(console, nullptr);
    }
    void TearDown() override
    {
        if (panel && IsWindow(panel))
            DestroyWindow(panel);
    }
    HWND Toggle() { return (HWND)SendMessageA(console->m_hWnd, DCM_CONTROLPANEL, 0, 0); }
    void Open()
    {
        panel = Toggle();
        ASSERT_NE(panel, nullptr);
        WindowPixels(panel);  // painting narrows the special keys to their five frames
    }
    // A key of the 15-key front (type 4): key origin (32, 50).
    LPARAM At(int id, int dx = 0)
    {
        for (const CONSOLEKEY& key : ConsoleKeys(4))
            if (key.id == id)
                return MAKELPARAM(key.left + dx + 3, key.top + 3);
        ADD_FAILURE() << "no key " << id;
        return 0;
    }
    SIZE WindowSize()
    {
        RECT r;
        GetWindowRect(panel, &r);
        return SIZE{r.right - r.left, r.bottom - r.top};
    }
    RECT ChildRect(HWND child)
    {
        RECT r;
        GetWindowRect(child, &r);
        MapWindowPoints(NULL, panel, (POINT*)&r, 2);
        return r;
    }
    std::string Leds() { return design.Get("ORNCST_1", "leds"); }
    CONSOLEPROPERTIES* Console() { return static_cast<CONSOLEPROPERTIES*>(console); }

    TESTDESIGN design;
    HOSTINFO* console = nullptr;
    HWND panel = NULL;
};

std::string ClassOf(HWND window)
{
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

std::string TextOf(HWND window)
{
    char text[64] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

struct WINDOWSEARCH {
    const char* className;
    HWND owner;  // null: any
    int count;
    HWND found;
};

BOOL CALLBACK FindWindows(HWND window, LPARAM context)
{
    WINDOWSEARCH* search = reinterpret_cast<WINDOWSEARCH*>(context);
    if (ClassOf(window) == search->className && (!search->owner || GetWindow(window, GW_OWNER) == search->owner)) {
        search->count++;
        search->found = window;
    }
    return TRUE;
}

WINDOWSEARCH SearchThread(const char* className, HWND owner = NULL)
{
    WINDOWSEARCH search = {className, owner, 0, NULL};
    EnumThreadWindows(GetCurrentThreadId(), FindWindows, (LPARAM)&search);
    return search;
}

int PanelsOfThread()
{
    return SearchThread("DOVRIXCONTROLPANEL").count;
}

}  // namespace

TEST_F(ControlPanel, OpensAtTheCanvasAndTheSecondRequestClosesIt)
{
    Open();
    EXPECT_EQ(ClassOf(panel), "DOVRIXCONTROLPANEL");
    EXPECT_EQ(TextOf(panel), "ZEL Control Panel");
    EXPECT_TRUE(GetWindowLongA(panel, GWL_EXSTYLE) & WS_EX_TOOLWINDOW);
    EXPECT_EQ((DWORD)GetWindowLongA(panel, GWL_STYLE) & 0x10C80000u, 0x10C80000u);
    EXPECT_FALSE(GetWindowLongA(panel, GWL_STYLE) & WS_CHILD);
    EXPECT_TRUE(IsWindowVisible(panel));
    RECT canvas, at;
    GetWindowRect(console->m_hWnd, &canvas);
    GetWindowRect(panel, &at);
    EXPECT_EQ(at.left, canvas.left);
    EXPECT_EQ(at.top, canvas.top);
    EXPECT_EQ(WindowSize().cx, 525);  // page 0, from 50 x 50
    EXPECT_EQ(WindowSize().cy, 455);

    EXPECT_EQ(Toggle(), nullptr);
    EXPECT_FALSE(IsWindow(panel));
    EXPECT_EQ(PanelsOfThread(), 0);
    Open();  // and once more
    EXPECT_TRUE(IsWindow(panel));

    // Closed by its own close button, it opens again on the next request.
    SendMessageA(panel, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(panel));
    Open();
    EXPECT_TRUE(IsWindow(panel));
}

TEST_F(ControlPanel, ScrollRangeOnlyWithExtensions)
{
    Open();
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    if (GetScrollInfo(panel, SB_HORZ, &info)) {
        EXPECT_EQ(info.nMax, 0);
    }
    EXPECT_EQ(ViewHitTest(panel, 263 + 1, 152 + 1), 0);
    EXPECT_EQ(ViewHitTest(panel, 506 + 1, 153 + 1), -1);
    Toggle();

    design.Edit("ORNCST_1*ExtensionCount=2");
    Open();
    info = SCROLLINFO{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ASSERT_TRUE(GetScrollInfo(panel, SB_HORZ, &info));
    EXPECT_EQ(info.nMin, 0);
    EXPECT_EQ(info.nMax, 311 * 2 + 523);
    EXPECT_EQ(info.nPage, 525u);
    EXPECT_EQ(info.nPos, 0);
    // Slot s at position p: x = 311 p + 485 - 18 + 39, y = 62 + 91.
    EXPECT_EQ(ViewHitTest(panel, 506 + 1, 153 + 1), 15);
    EXPECT_EQ(ViewHitTest(panel, 817 + 1, 153 + 1), 35);
    SendMessageA(panel, WM_HSCROLL, SB_RIGHT, 0);
    EXPECT_EQ(ViewHitTest(panel, 506 - 500 + 1, 153 + 1), 15);
    SendMessageA(panel, WM_HSCROLL, SB_LINELEFT, 0);
    EXPECT_EQ(ViewHitTest(panel, 506 - 490 + 1, 153 + 1), 15);
}

TEST_F(ControlPanel, FollowsTheExtensionsTheViewAdds)
{
    Open();
    HWND frame = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1019, 800, NULL, NULL, NULL, NULL);
    HWND view = CreateWindowExA(0, "DOVRIXCONSOLEVIEW", "", WS_CHILD | WS_VISIBLE, 18, 26, 505, 435, frame,
                                (HMENU)1003, NULL, console);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(ViewHitTest(panel, 506 + 1, 153 + 1), -1);
    SendMessageA(view, WM_COMMAND, IDC_VIEWTOOL_ADDEXTENSION, 0);
    EXPECT_EQ(ViewHitTest(panel, 506 + 1, 153 + 1), 15);
    SendMessageA(view, WM_COMMAND, IDC_VIEWTOOL_REMOVEEXTENSION, 0);
    EXPECT_EQ(ViewHitTest(panel, 506 + 1, 153 + 1), -1);
    DestroyWindow(frame);
    EXPECT_TRUE(IsWindow(panel));  // the view's end is not the panel's
}

TEST_F(ControlPanel, PageButtonsOfSlotsTwoAndFour)
{
    CONSOLEPROPERTIES* c = Console();
    c->m_settings.extensionSlots[1] = 1;
    c->m_settings.extensionSlots[3] = 1;
    c->m_settings.extensionCount = 2;
    Open();
    SendMessageA(panel, CVM_SETPAGE, 0, 1);
    EXPECT_EQ(WindowSize().cx, 575);
    EXPECT_EQ(WindowSize().cy, 455);
    const struct {
        int id;
        const char* text;
        int y;
        DWORD style;
    } expected[] = {{2000, "Console", 0, 0x54010009}, {2002, "Extension 2", 30, 0x50001009},
                    {2004, "Extension 4", 60, 0x50001009}};
    for (const auto& e : expected) {
        SCOPED_TRACE(e.id);
        HWND button = GetDlgItem(panel, e.id);
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(ClassOf(button), "Button");
        EXPECT_EQ(TextOf(button), e.text);
        const RECT r = ChildRect(button);
        EXPECT_EQ(r.left, 0);
        EXPECT_EQ(r.top, e.y);
        EXPECT_EQ(r.right - r.left, 75);
        EXPECT_EQ(r.bottom - r.top, 30);
        EXPECT_EQ((DWORD)GetWindowLongA(button, GWL_STYLE) & ~(DWORD)WS_VISIBLE, e.style & ~(DWORD)WS_VISIBLE);
        EXPECT_TRUE(GetWindowLongA(button, GWL_EXSTYLE) & WS_EX_TRANSPARENT);
    }
    EXPECT_EQ(GetDlgItem(panel, 2001), nullptr);
    EXPECT_EQ(GetDlgItem(panel, 2003), nullptr);
    // The console's keys 63 pixels right of the buttons.
    EXPECT_EQ(ViewHitTest(panel, 263 + 63 + 1, 152 + 1), 0);
    EXPECT_EQ(ViewHitTest(panel, 263 + 1, 152 + 1), -1);

    // Slot 3 alone where the console stood: keys 75 to 94, the first at (120, 153).
    SendMessageA(panel, WM_COMMAND, 2004, (LPARAM)GetDlgItem(panel, 2004));
    EXPECT_EQ(ViewHitTest(panel, 121, 154), 75);
    EXPECT_EQ(SendMessageA(GetDlgItem(panel, 2004), BM_GETCHECK, 0, 0), BST_CHECKED);

    // Page 2: the extensions alone, at their places beside the console's room.
    SendMessageA(panel, CVM_SETPAGE, 0, 2);
    EXPECT_EQ(WindowSize().cx, 311 * 2 + 525);
    EXPECT_EQ(WindowSize().cy, 455);
    EXPECT_EQ(GetDlgItem(panel, 2000), nullptr);
    EXPECT_EQ(ViewHitTest(panel, 263 + 1, 152 + 1), -1);
    EXPECT_EQ(ViewHitTest(panel, 506 + 1, 153 + 1), 35);
    EXPECT_EQ(ViewHitTest(panel, 817 + 1, 153 + 1), 75);
}

TEST_F(ControlPanel, PressesReachTheControllerAndLightTheKey)
{
    Open();
    SendMessageA(panel, WM_LBUTTONDOWN, MK_LBUTTON, At(5));
    EXPECT_EQ(GetCapture(), panel);
    SendMessageA(panel, WM_LBUTTONUP, 0, At(5));
    EXPECT_EQ(Leds(), std::string(128, '0'));  // no connection, no line
    Toggle();

    design.Edit("ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule");
    ASSERT_TRUE(SimulateDevice("ORNCST_1", "online", 1));
    Open();  // operating from the start: no mode to set
    SendMessageA(panel, WM_LBUTTONDOWN, MK_LBUTTON, At(5));
    EXPECT_EQ(Leds()[5], 'e');  // held: first LED fast, second lit
    // Key 5's second LED, lit: (32 + 221 + 128, 50 + 113 + 48), its right frame.
    int width = 0;
    std::vector<DWORD> pixels = WindowPixels(panel, &width);
    ASSERT_FALSE(pixels.empty());
    EXPECT_EQ(pixels[(size_t)(211 + 2) * width + 381 + 2] & 0xFFFFFF, 0xD9D973u);
    SendMessageA(panel, WM_LBUTTONUP, 0, At(5));
    EXPECT_EQ(Leds()[5], '1');  // released: first LED slow
    EXPECT_NE(GetCapture(), panel);
    pixels = WindowPixels(panel, &width);
    EXPECT_NE(pixels[(size_t)(211 + 2) * width + 381 + 2] & 0xFFFFFF, 0xD9D973u);

    SendMessageA(panel, WM_LBUTTONDOWN, MK_LBUTTON, At(7));
    SendMessageA(panel, WM_LBUTTONUP, 0, At(8));  // let go over another key: no "up"
    EXPECT_EQ(Leds()[7], 'e');
    EXPECT_EQ(Leds()[8], '0');
}

TEST_F(ControlPanel, TheTipNamesTheKeysLabelIdAndFunction)
{
    design.Edit("ORNCST_1*key000=Select Zone,0,ORNCON_1.Hall");
    design.Edit("ORNCST_1*keylabel000=Hall");
    Open();
    SendMessageA(panel, WM_MOUSEMOVE, 0, At(0));
    EXPECT_EQ(TooltipText(panel), "Key 'Hall' (0)\nSelect Zone");
    // A key without a label of its own is named as it is marked.
    SendMessageA(panel, WM_MOUSEMOVE, 0, At(KEY_ESC));
    EXPECT_EQ(TooltipText(panel), "Key 'ESC' (116)\nEmpty");
    // The tip is set when the cursor enters another key only (a label set
    // behind the console's back shows from the next entry on).
    strcpy_s(Console()->m_settings.keyLabels[KEY_ESC], sizeof Console()->m_settings.keyLabels[KEY_ESC], "Escape");
    SendMessageA(panel, WM_MOUSEMOVE, 0, At(KEY_ESC, 5));
    EXPECT_EQ(TooltipText(panel), "Key 'ESC' (116)\nEmpty");
    SendMessageA(panel, WM_MOUSEMOVE, 0, At(0));
    SendMessageA(panel, WM_MOUSEMOVE, 0, At(KEY_ESC));
    EXPECT_EQ(TooltipText(panel), "Key 'Escape' (116)\nEmpty");
    // A label edited in the design names the key at once.
    design.Edit("ORNCST_1*keylabel116=Exit");
    SendMessageA(panel, WM_MOUSEMOVE, 0, At(KEY_ESC, 1));
    EXPECT_EQ(TooltipText(panel), "Key 'Exit' (116)\nEmpty");
}

// A board has no front of its own: the panel shows the 15-key front its
// picture is, with that front's keys in the grey of the fronts.
TEST_F(ControlPanel, ABoardConsoleShowsTheFrontOfItsPicture)
{
    design.Edit("ORNCST_1*type=ELK-CSK");
    Open();
    EXPECT_EQ(ViewHitTest(panel, 263 + 1, 152 + 1), 0);
    EXPECT_EQ(ViewHitTest(panel, 263 + 6 + 1, 152 - 12 - 1), -1);  // where the board puts key 0
    int width = 0;
    const std::vector<DWORD> pixels = WindowPixels(panel, &width);
    ASSERT_FALSE(pixels.empty());
    EXPECT_EQ(pixels[(size_t)152 * width + 263] & 0xFFFFFF, 0xBFBFBFu);  // a key's corner shows its fill
}

namespace {

// The panel's page 2 of a console of the type with one extension: the strip's
// 301 x 331 pixels from where its picture stands.
std::vector<DWORD> ExtensionStrip(const char* type)
{
    TESTDESIGN design;
    design.Load({kController, "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 30,20,20x20", "ORNCST_1*address=1",
                 std::string("ORNCST_1*type=") + type, "ORNCST_1*ExtensionCount=1"});
    HOSTINFO* console = design.Object("ORNCST_1");
    HWND panel = console ? (HWND)SendMessageA(console->m_hWnd, DCM_CONTROLPANEL, 0, 0) : NULL;
    if (!panel)
        return {};
    SendMessageA(panel, CVM_SETPAGE, 0, 2);
    int width = 0;
    const std::vector<DWORD> pixels = WindowPixels(panel, &width);
    DestroyWindow(panel);
    // A board shows the 15-key front (type 4), and its strip stands where that front's does.
    const int model = static_cast<CONSOLEPROPERTIES*>(console)->m_model;
    int x = 0, y = 0;
    ExtensionStripOrigin(model == 3 || model == 6 ? 4 : model, 0, &x, &y);
    std::vector<DWORD> strip;
    const int height = (int)pixels.size() / (width ? width : 1);
    for (int row = y; row < y + 331 && row < height; row++)
        for (int column = x; column < x + 301 && column < width; column++)
            strip.push_back(pixels[(size_t)row * width + column]);
    return strip;
}

}  // namespace

// A board's extensions are the plain strip with the plain keys (pictures 102
// and 107), as a type-1 console's are, not the 15-key fronts' 202 and 197.
TEST(ControlPanelBoards, TheBoardsExtensionsAreThePlainStrip)
{
    const std::vector<DWORD> plain = ExtensionStrip("ZEL4020");
    const std::vector<DWORD> front = ExtensionStrip("ORN-15CST");
    ASSERT_EQ(plain.size(), 301u * 331u);
    ASSERT_EQ(front.size(), plain.size());
    ASSERT_NE(plain, front);  // the two strips can be told apart
    for (const char* board : {"ELK-CSK", "ORN-CSK"}) {
        const std::vector<DWORD> strip = ExtensionStrip(board);
        EXPECT_TRUE(strip == plain) << board;
    }
}

TEST_F(ControlPanel, ItsHostControlsShowTheOnlineStateAndTheName)
{
    Open();
    HWND online = a_FindHwnd(console->m_pHost, "online");
    HWND name = a_FindHwnd(console->m_pHost, "name");
    ASSERT_NE(online, nullptr);
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(GetParent(online), panel);
    EXPECT_EQ(GetParent(name), panel);
    RECT r = ChildRect(online);
    EXPECT_EQ(r.left, 179);
    EXPECT_EQ(r.top, 142);
    EXPECT_EQ(r.right - r.left, 11);
    r = ChildRect(name);
    EXPECT_EQ(r.left, 72);
    EXPECT_EQ(r.top, 142);
    EXPECT_EQ(r.right - r.left, 100);
    EXPECT_EQ(r.bottom - r.top, 15);
    EXPECT_TRUE(IsWindowVisible(name));
    // No label boxes: a click below a key is no one's.
    EXPECT_EQ(ViewHitTest(panel, 263 + 3, 152 + 28), -1);
}

TEST(ControlPanelLife, ClosingTheDesignLeavesNothingBehind)
{
    HWND panel = NULL;
    HWND tip = NULL;
    HWND name = NULL;
    {
        TESTDESIGN design;
        design.Load({kController, "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20", "ORNCST_1*type=ORN-15CST",
                     "ORNCST_1*ExtensionCount=1"});
        HOSTINFO* console = design.Object("ORNCST_1");
        ASSERT_NE(console, nullptr);
        panel = (HWND)SendMessageA(console->m_hWnd, DCM_CONTROLPANEL, 0, 0);
        ASSERT_NE(panel, nullptr);
        name = a_FindHwnd(console->m_pHost, "name");
        SendMessageA(panel, WM_MOUSEMOVE, 0, MAKELPARAM(263 + 3, 152 + 3));
        tip = SearchThread("tooltips_class32", panel).found;
        EXPECT_NE(tip, nullptr);
    }
    EXPECT_FALSE(IsWindow(panel));
    EXPECT_FALSE(name && IsWindow(name));
    EXPECT_FALSE(tip && IsWindow(tip));
    EXPECT_EQ(PanelsOfThread(), 0);
}

TEST(ControlPanelLife, TheWorkbenchOpensPressesPagesPicturesAndClosesIt)
{
    const std::string folder = TempFolder();
    const std::string script = WriteScript(
        "tick 1100\n"
        "panel ORNCST_1\n"
        "press panel:ORNCST_1 5\n"
        "get ORNCST_1 leds\n"
        "shot panel:ORNCST_1 " + folder + "\\panel.png\n"
        "release panel:ORNCST_1 5\n"
        "get ORNCST_1 leds\n"
        "page panel:ORNCST_1 1\n"
        "page panel:ORNCST_1 3\n"
        "page panel:ORNCST_1 2\n"
        "panel ORNCST_1\n"
        "press panel:ORNCST_1 5\n");
    const RUN run = Workbench("\"" + SourcePath("samples/sample.ds") + "\" --script \"" + script + "\"");
    EXPECT_NE(run.exitCode, 0u);  // page 3, and a press on the closed panel
    EXPECT_NE(run.out.find("panel: ORNCST_1 open\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("leds=00000e"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("leds=000001"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("panel: ORNCST_1 closed\n"), std::string::npos) << run.out;
    EXPECT_NE(run.err.find("the control panel has pages 0 to 2"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("ORNCST_1 has no control panel open"), std::string::npos) << run.err;
    EXPECT_EQ(ReadFileBytes(folder + "\\panel.png").substr(1, 3), "PNG");
}
