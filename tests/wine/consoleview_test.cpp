// The console view through its window: hit tests, presses reaching the
// simulated controller, the key menus with the clipboard, extensions and
// their page buttons, LEDs on screen and the label editor.
#include <gtest/gtest.h>

#include <algorithm>

#include "testhost.h"
#include "viewmenus.h"

#include <commctrl.h>
#include "../../plugin/console/keygeometry.h"
#include "../../plugin/protocol.h"

namespace {


const char kController[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";
const char kSystemFaults[] = "System Faults,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,,,";

class ConsoleView : public testing::Test {
protected:
    void SetUp() override
    {
        design.Load({kController, "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20", "ORNCST_1*address=1",
                     "ORNCST_1*type=ZEL4010"});
        console = design.Object("ORNCST_1");
        ASSERT_NE(console, nullptr);
        frame = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1019, 800, NULL, NULL, NULL, NULL);
        view = CreateWindowExA(0, "DOVRIXCONSOLEVIEW", "", WS_CHILD | WS_VISIBLE, 18, 26, 505, 435, frame,
                               (HMENU)1003, NULL, console);
        ASSERT_NE(view, nullptr);
        Paint();
    }
    // Painting narrows the special keys to their five-frame strips.
    void Paint() { WindowPixels(view); }
    void TearDown() override { DestroyWindow(frame); }

    CONSOLEKEY Key(int id, int type = 0)
    {
        for (const CONSOLEKEY& key : ConsoleKeys(type))
            if (key.id == id)
                return key;
        ADD_FAILURE() << "no key " << id;
        return CONSOLEKEY{};
    }
    LPARAM At(int id, int type = 0, int dy = 3)
    {
        const CONSOLEKEY key = Key(id, type);
        return MAKELPARAM(key.left + 3, key.top + dy);
    }
    void Press(int id) { SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, At(id)); }
    void Release(int id) { SendMessageA(view, WM_LBUTTONUP, 0, At(id)); }
    std::string Leds() { return design.Get("ORNCST_1", "leds"); }
    void ConnectAndSwitchOn()
    {
        design.Edit("ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule");
        ASSERT_TRUE(SimulateDevice("ORNCST_1", "online", 1));
    }

    TESTDESIGN design;
    HOSTINFO* console = nullptr;
    HWND frame = NULL;
    HWND view = NULL;
};

// The view's menu at a key's point (as At() gives it).
MENURUN KeyMenu(HWND view, LPARAM at, const std::string& choice)
{
    return ViewMenuAt(view, (short)LOWORD(at), (short)HIWORD(at), choice);
}

void PutOnClipboard(HWND owner, const char* text)
{
    ASSERT_TRUE(OpenClipboard(owner));
    EmptyClipboard();
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 256);
    strcpy_s(static_cast<char*>(GlobalLock(block)), 256, text);
    GlobalUnlock(block);
    SetClipboardData(RegisterClipboardFormatA("CONSOLEKEY"), block);
    CloseClipboard();
}

}  // namespace

TEST_F(ConsoleView, PressesReachTheDeviceOnlyFromAConnectedConsole)
{
    SendMessageA(view, CVM_SETEDITMODE, 0, 0);
    Press(5);
    EXPECT_EQ(GetCapture(), view);
    Release(5);
    EXPECT_EQ(Leds(), std::string(128, '0'));  // no connection, no line

    ConnectAndSwitchOn();
    Press(5);
    EXPECT_EQ(Leds()[5], 'e');   // held: first LED fast, second lit
    Release(5);
    EXPECT_EQ(Leds()[5], '1');   // active: first LED slow
    Press(5);
    Release(5);
    EXPECT_EQ(Leds()[5], '0');   // pressed again: idle

    Press(7);
    Release(8);                  // let go over another key: no "up"
    EXPECT_EQ(Leds()[7], 'e');
    EXPECT_NE(GetCapture(), view);
    EXPECT_EQ(Leds()[8], '0');

    SendMessageA(view, CVM_SETEDITMODE, 0, 1);  // designing: clicks select
    Press(9);
    Release(9);
    EXPECT_EQ(Leds()[9], '0');
}

TEST_F(ConsoleView, KeyMenusGreyWhatCannotBeDoneAndPasteOnlyKeyRecords)
{
    design.Edit("ORNCST_1*key003=Talk to Zone,1,0,0,50,0,0,1,0,0,0,0,0,0,0,0,Zone 1,1-Tone,");
    MENURUN copy = KeyMenu(view, At(3), "Copy");
    ASSERT_TRUE(copy.opened);
    EXPECT_EQ(copy.items, (std::vector<std::string>{"Clear", "Copy", "Paste"}));
    EXPECT_EQ(KeyMenu(view, At(4), "Paste").items[0], "Clear (greyed)");
    EXPECT_EQ(design.Get("ORNCST_1", "key004"), design.Get("ORNCST_1", "key003"));

    EXPECT_FALSE(KeyMenu(view, At(KEY_ESC), "Clear").opened);

    // A record of an unknown function loads as any line does: the key empties.
    design.Edit("ORNCST_1*key006=Menu,2");
    PutOnClipboard(view, "not a key record");
    KeyMenu(view, At(6), "Paste");
    EXPECT_EQ(design.Get("ORNCST_1", "key006"), "Empty");

    design.Edit("ORNCST_1*type=ORN-15CST");
    Paint();
    PutOnClipboard(view, kSystemFaults);
    KeyMenu(view, At(3, 4), "Paste");
    EXPECT_EQ(design.Get("ORNCST_1", "key003").rfind("Talk to Zone", 0), 0u);  // refused, kept
    KeyMenu(view, At(KEY_DEL, 4), "Paste");
    EXPECT_EQ(design.Get("ORNCST_1", "key115").rfind("System Faults", 0), 0u);

    KeyMenu(view, At(3, 4), "Clear");
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Empty");
    // A cleared alarm key leaves the alarm matrix.
    design.Edit("ORNCST_1*key008=Alarm to Zone,0,1,0,90,7,ORNCON_1.Hall,Mic 3");
    ASSERT_EQ(a_GetAlarmSourceCount(design.Root()), 1);
    KeyMenu(view, At(8, 4), "Clear");
    EXPECT_EQ(a_GetAlarmSourceCount(design.Root()), 0);
    EXPECT_FALSE(KeyMenu(view, At(KEY_PTT, 4), "Clear").opened);
}

// In edit mode each click adds its key to the selection; the key menu makes
// its key the only selected one.
TEST_F(ConsoleView, ClicksAddKeysToTheSelection)
{
    SendMessageA(view, CVM_SETEDITMODE, 0, 1);
    const CONSOLEKEY key = Key(3);
    const auto frameRow = [&](const std::vector<DWORD>& pixels, int width) {
        const size_t row = (size_t)(key.top - 2) * (size_t)width;
        return std::vector<DWORD>(pixels.begin() + (long)row + key.left - 2,
                                  pixels.begin() + (long)row + key.left + key.frameWidth + 3);
    };
    const auto click = [&](int id) {
        SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, At(id));
        SendMessageA(view, WM_LBUTTONUP, 0, At(id));
        int width = 0;
        const std::vector<DWORD> pixels = WindowPixels(view, &width);
        return frameRow(pixels, width);
    };
    const std::vector<DWORD> unselected = click(4);
    EXPECT_NE(click(3), unselected);
    EXPECT_NE(click(4), unselected);  // key 3 stays framed
    KeyMenu(view, At(5), "Copy");
    int width = 0;
    const std::vector<DWORD> pixels = WindowPixels(view, &width);
    EXPECT_EQ(frameRow(pixels, width), unselected);
}

TEST_F(ConsoleView, SpecialKeysTakeTheirRoleFromTheMenu)
{
    MENURUN run = KeyMenu(view, At(121), "Key Switch");
    ASSERT_TRUE(run.opened);
    EXPECT_EQ(run.items, (std::vector<std::string>{"Not Used (checked)", "Alarm Button", "Key Switch", "Clear (greyed)",
                                                   "Copy", "Paste"}));
    HMENU menu = LoadMenuA(Plugin(), MAKEINTRESOURCEA(154));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(GetMenuItemCount(GetSubMenu(menu, 0)), 6);  // no separator
    DestroyMenu(menu);
    EXPECT_EQ(design.Get("ORNCST_1", "key0121OptionState"), "2");
    EXPECT_EQ(KeyMenu(view, At(121), "-").items[2], "Key Switch (checked)");
}

TEST_F(ConsoleView, NoMenuWhileTheConsoleRuns)
{
    ConnectAndSwitchOn();
    a_AdvanceClock(1100);
    console->OnTimer(0, 0);
    ASSERT_NE(console->m_wFlags & HOSTFLAG_ONLINE, 0);
    EXPECT_FALSE(KeyMenu(view, At(3), "Clear").opened);
}

TEST_F(ConsoleView, ExtensionsStopAtTheirLimitsWithTheirMessages)
{
    MESSAGEBOXCATCHER boxes;
    for (int i = 0; i < 6; i++)
        SendMessageA(view, WM_COMMAND, 20, 0);
    EXPECT_EQ(design.Get("ORNCST_1", "ExtensionCount"), "5");
    EXPECT_EQ(design.Get("ORNCST_1", "extensionTypes"), "1,1,1,1,1");
    // Five strips side by side, the fifth at x 311 * 4 + 467: its keys 95 to
    // 114 from (1750, 153); where a sixth would stand there is nothing.
    EXPECT_EQ(ViewHitTest(view, 1750 + 1, 153 + 1), 95);
    EXPECT_EQ(ViewHitTest(view, 1750 + 64 + 1, 153 + 48 + 1), 100);
    EXPECT_EQ(ViewHitTest(view, 1750 + 192 + 1, 153 + 192 + 1), 114);
    EXPECT_EQ(ViewHitTest(view, 1750 + 311 + 1, 153 + 1), -1);
    EXPECT_EQ(ViewHitTest(view, 1750 + 311 + 192 + 1, 153 + 192 + 1), -1);
    for (int i = 0; i < 6; i++)
        SendMessageA(view, WM_COMMAND, 3, 0);
    EXPECT_EQ(design.Get("ORNCST_1", "ExtensionCount"), "0");
    EXPECT_EQ(boxes.Texts(), (std::vector<std::string>{"Maximum number of extensions reached!",
                                                       "No extension available for deletion!"}));
    EXPECT_NE(console->m_wFlags & HOSTFLAG_EDITED, 0);
}

TEST_F(ConsoleView, PageButtonsShowOneExtensionAtATime)
{
    design.Edit("ORNCST_1*ExtensionCount=3");
    SendMessageA(view, CVM_SETPAGE, 0, 1);
    char text[32] = "";
    HWND third = GetDlgItem(view, 2003);
    ASSERT_NE(third, nullptr);
    GetWindowTextA(third, text, sizeof text);
    EXPECT_STREQ(text, "Extension 3");
    RECT r;
    GetWindowRect(third, &r);
    MapWindowPoints(NULL, view, (POINT*)&r, 2);
    EXPECT_EQ(r.top, 90);
    EXPECT_EQ(GetDlgItem(view, 2004), nullptr);
    EXPECT_EQ(SendMessageA(GetDlgItem(view, IDC_PAGEBUTTON_CONSOLE), BM_GETCHECK, 0, 0), BST_CHECKED);

    SendMessageA(view, WM_COMMAND, 2003, (LPARAM)third);
    EXPECT_EQ(SendMessageA(third, BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageA(GetDlgItem(view, IDC_PAGEBUTTON_CONSOLE), BM_GETCHECK, 0, 0), BST_UNCHECKED);
    bool slotKeys = true;
    int found = 0;
    // Keys are 31 by 18: a grid of 30 by 17 meets every one.
    for (int x = 0; x < 505; x += 30)
        for (int y = 0; y < 435; y += 17)
            if (int id = ViewHitTest(view, x, y); id >= 0) {
                found++;
                slotKeys = slotKeys && id >= 55 && id <= 74;
            }
    EXPECT_GE(found, 20);
    EXPECT_TRUE(slotKeys);

    SendMessageA(view, WM_COMMAND, 2009, 0);  // no such page: the page stays
    EXPECT_EQ(ViewHitTest(view, 81 + 39 + 1, 62 + 91 + 1), 55);
    design.Edit("ORNCST_1*type=ORN-15CST");   // a changed console keeps the chosen page
    EXPECT_EQ(ViewHitTest(view, 81 + 39 + 1, 62 + 91 + 1), 55);
    design.Edit("ORNCST_1*ExtensionCount=2"); // unless its extension went
    EXPECT_EQ(ViewHitTest(view, 81 + 39 + 1, 62 + 91 + 1), -1);
    EXPECT_EQ(ViewHitTest(view, 63 + 32 + 231 + 1, 50 + 102 + 1), 0);
}

TEST_F(ConsoleView, LitLedsShowOnScreen)
{
    const int x = 32 + 221 + 2, y = 50 + 105 + 2;  // key 0's first LED
    int width = 0;
    std::vector<DWORD> off = WindowPixels(view, &width);
    design.Edit("ORNCST_1*leds=3");
    std::vector<DWORD> on = WindowPixels(view, &width);
    ASSERT_FALSE(on.empty());
    EXPECT_NE(off[(size_t)y * width + x], on[(size_t)y * width + x]);
    EXPECT_EQ(on[(size_t)y * width + x] & 0xFFFFFF, 0x73D973u);
}

TEST_F(ConsoleView, LabelEditorStoresOnEnterAndDropsOnFocusLoss)
{
    const CONSOLEKEY key = Key(4);
    const LPARAM box = MAKELPARAM(key.left + 2, key.top + 31);
    SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, box);
    HWND editor = GetDlgItem(view, IDC_LABELEDITOR);
    ASSERT_NE(editor, nullptr);
    SetWindowTextA(editor, std::string(1024, 'x').c_str());
    SendMessageA(editor, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_FALSE(IsWindow(editor));
    EXPECT_EQ(design.Get("ORNCST_1", "keylabel004"), std::string(31, 'x'));

    SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, box);
    editor = GetDlgItem(view, IDC_LABELEDITOR);
    ASSERT_NE(editor, nullptr);
    SetWindowTextA(editor, "Lobby");
    SendMessageA(editor, WM_KILLFOCUS, 0, 0);
    EXPECT_FALSE(IsWindow(editor));
    EXPECT_EQ(design.Get("ORNCST_1", "keylabel004"), std::string(31, 'x'));

    const CONSOLEKEY wide = Key(KEY_WIDE);
    SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(wide.left - 10, wide.top - 175));  // its box is read-only
    EXPECT_EQ(GetDlgItem(view, IDC_LABELEDITOR), nullptr);
}

namespace {

}  // namespace

TEST_F(ConsoleView, TooltipsNameTheKeyItsFunctionAndItsPins)
{
    design.Edit("ORNCST_1*key003=Talk to Zone,1,0,0,50,0,0,1,0,0,0,0,0,0,0,0,Zone 1,1-Tone,");
    SendMessageA(view, WM_MOUSEMOVE, 0, At(3));
    EXPECT_EQ(TooltipText(view), " ID:\t\t 3\n Function:\t Talk to Zone");
    design.Edit("ORNCST_1*DecadicSelectionActive=1");
    SendMessageA(view, WM_MOUSEMOVE, 0, At(4));
    EXPECT_EQ(TooltipText(view), " ID:\t\t 4\n Function:\t Numeric key");

    design.Edit("ORNCST_1*type=ELK-CSK");
    Paint();
    SendMessageA(view, WM_MOUSEMOVE, 0, At(KEY_WIDE, 3));
    EXPECT_EQ(TooltipText(view),
              " ID:\t\t 119\n Function:\t Empty\n Button:\t\t CN17/8\n Primary LED:\t CN12/6\n Secondary LED:\t CN12/5");
}

TEST_F(ConsoleView, KeysShowTheFillOfTheirConsole)
{
    // A blank key's rounded corner lets the fill through: grey on the fronts,
    // the board's green on the boards.
    const std::pair<const char*, int> types[] = {{"ZEL4010", 0}, {"ORN-15CST", 4}, {"ELK-15CST", 5}, {"ELK-CSK", 3}};
    for (const auto& type : types) {
        SCOPED_TRACE(type.first);
        design.Edit(std::string("ORNCST_1*type=") + type.first);
        int width = 0;
        const std::vector<DWORD> pixels = WindowPixels(view, &width);
        const CONSOLEKEY key = Key(14, type.second);
        EXPECT_EQ(pixels[(size_t)key.top * width + key.left] & 0xFFFFFF, type.second == 3 ? 0x339966u : 0xBFBFBFu);
    }
}

TEST_F(ConsoleView, ScrollingMovesThePictureAndItsHeader)
{
    design.Load({"control=0 DOVRIXC \"ORNCST_ZEL2\" 0x54000000 40,0,20x20", "ORNCST_ZEL2*type=ZEL4010",
                 "ORNCST_ZEL2*ExtensionCount=1"});
    HOSTINFO* zel = design.Object("ORNCST_ZEL2");
    ASSERT_NE(zel, nullptr);
    HWND other = CreateWindowExA(0, "DOVRIXCONSOLEVIEW", "", WS_CHILD | WS_VISIBLE, 18, 26, 505, 435, frame, NULL, NULL,
                                 zel);
    ASSERT_NE(other, nullptr);
    HWND name = a_FindHwnd(zel, "name");
    ASSERT_NE(name, nullptr);
    EXPECT_TRUE(GetWindowLongA(name, GWL_STYLE) & WS_VISIBLE);
    EXPECT_TRUE(IsWindowEnabled(name));
    SendMessageA(other, CVM_SETEDITMODE, 0, 0);
    EXPECT_FALSE(IsWindowEnabled(name));
    EXPECT_FALSE(GetWindowLongA(FindWindowExA(other, NULL, "STATIC", "StatLabel"), GWL_STYLE) & WS_VISIBLE);

    RECT before, after;
    GetWindowRect(name, &before);
    const POINT key = {263, 152};  // key 0 of the front
    EXPECT_EQ(ViewHitTest(other, key.x + 1, key.y + 1), 0);
    SendMessageA(other, WM_HSCROLL, SB_LINERIGHT, 0);
    SendMessageA(other, WM_HSCROLL, SB_LINERIGHT, 0);
    GetWindowRect(name, &after);
    EXPECT_EQ(after.left, before.left - 20);
    EXPECT_EQ(ViewHitTest(other, key.x - 20 + 1, key.y + 1), 0);
    SendMessageA(other, WM_HSCROLL, SB_LEFT, 0);
    GetWindowRect(name, &after);
    EXPECT_EQ(after.left, before.left);
    // The positions as asked, not clamped to the range: left of 0, the thumb's
    // given position, and 500 at the right end.
    SendMessageA(other, WM_HSCROLL, SB_LINELEFT, 0);
    GetWindowRect(name, &after);
    EXPECT_EQ(after.left, before.left + 10);
    SendMessageA(other, WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 37), 0);
    GetWindowRect(name, &after);
    EXPECT_EQ(after.left, before.left - 37);
    SendMessageA(other, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 45), 0);
    GetWindowRect(name, &after);
    EXPECT_EQ(after.left, before.left - 45);
    SendMessageA(other, WM_HSCROLL, SB_RIGHT, 0);
    GetWindowRect(name, &after);
    EXPECT_EQ(after.left, before.left - 500);
    SendMessageA(other, WM_HSCROLL, SB_LEFT, 0);

    design.Edit("ORNCST_ZEL2*type=ELK-CSK");
    EXPECT_TRUE(GetWindowLongA(FindWindowExA(other, NULL, "STATIC", "StatLabel"), GWL_STYLE) & WS_VISIBLE);
    DestroyWindow(other);

    // Without "ZEL" in its name a console shows none of the four.
    HWND plainName = a_FindHwnd(console, "name");
    ASSERT_NE(plainName, nullptr);
    EXPECT_FALSE(GetWindowLongA(plainName, GWL_STYLE) & WS_VISIBLE);
}

// The header's widgets are bound to the console: the name field shows its name.
TEST_F(ConsoleView, TheHeaderShowsTheConsolesName)
{
    design.Edit("ORNCST_1*name=Reception");
    HWND other = CreateWindowExA(0, "DOVRIXCONSOLEVIEW", "", WS_CHILD | WS_VISIBLE, 18, 26, 505, 435, frame, NULL, NULL,
                                 console);
    ASSERT_NE(other, nullptr);
    HWND name = NULL;
    for (HWND child = GetWindow(other, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        char className[32] = "";
        GetClassNameA(child, className, sizeof className);
        if (strcmp(className, "BEDIT") == 0)
            name = child;
    }
    ASSERT_NE(name, nullptr);
    HOSTINFO* widget = reinterpret_cast<HOSTINFO*>(SendMessageA(name, WM_HOST_GETHOSTINFO, 0, 0));
    EXPECT_NE(widget, nullptr);
    EXPECT_EQ(widget, reinterpret_cast<HOSTINFO*>(GetWindowLongPtrA(name, GWLP_USERDATA)));
    char text[256] = "";
    ASSERT_TRUE(a_GetControlText(name, text, sizeof text));
    EXPECT_STREQ(text, "Reception");
    DestroyWindow(other);
}

TEST_F(ConsoleView, ToolbarStandsWithTheViewAndItsButtonsReachIt)
{
    HWND toolbar = GetDlgItem(view, IDC_VIEW_TOOLBAR);
    ASSERT_NE(toolbar, nullptr);
    EXPECT_EQ(GetParent(toolbar), view);
    RECT r;
    GetWindowRect(toolbar, &r);
    MapWindowPoints(NULL, view, (POINT*)&r, 2);
    EXPECT_EQ(r.left, 0);
    EXPECT_EQ(r.top, 0);
    EXPECT_EQ(SendMessageA(toolbar, TB_BUTTONCOUNT, 0, 0), 3);
    // A click on the second button adds an extension.
    RECT button;
    ASSERT_TRUE(SendMessageA(toolbar, TB_GETITEMRECT, 1, (LPARAM)&button));
    const LPARAM middle = MAKELPARAM((button.left + button.right) / 2, (button.top + button.bottom) / 2);
    SendMessageA(toolbar, WM_LBUTTONDOWN, MK_LBUTTON, middle);
    SendMessageA(toolbar, WM_LBUTTONUP, 0, middle);
    EXPECT_EQ(design.Get("ORNCST_1", "ExtensionCount"), "1");

    // Beside the page buttons it stands right of their column.
    SendMessageA(view, CVM_SETPAGE, 0, 1);
    RECT console;
    GetWindowRect(GetDlgItem(view, IDC_PAGEBUTTON_CONSOLE), &console);
    GetWindowRect(toolbar, &r);
    EXPECT_GE(r.left, console.right);
    SendMessageA(view, CVM_SETPAGE, 0, 0);
    GetWindowRect(toolbar, &r);
    MapWindowPoints(NULL, view, (POINT*)&r, 2);
    EXPECT_EQ(r.left, 0);
}
