// The console view's behaviour at its edges: hit tests at written-out key
// positions of every face (the board of type 6 too), the label editor's
// Escape, a capture lost without a release, the special keys' roles,
// scrolling to the ends and by the thumb, a changed board console back on
// page 0, and LED marks drawn only when their frame changes.
#include <gtest/gtest.h>

#include "testhost.h"
#include "viewmenus.h"

#include "../../plugin/device/consoleproperties.h"
#include "../../plugin/protocol.h"

namespace {

const char kController[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";

// A key's place on the view and its frame size once painted.
struct PLACE {
    int id, left, top, width, height;
};

// The board (types 3 and 6): key origin (38, 38).
const PLACE kBoard[24] = {
    {0, 269, 140, 31, 18},   {1, 333, 140, 31, 18},   {2, 397, 140, 31, 18},   {3, 269, 188, 31, 18},
    {4, 333, 188, 31, 18},   {5, 397, 188, 31, 18},   {6, 269, 236, 31, 18},   {7, 333, 236, 31, 18},
    {8, 397, 236, 31, 18},   {9, 269, 284, 31, 18},   {10, 333, 284, 31, 18},  {11, 397, 284, 31, 18},
    {12, 269, 332, 31, 18},  {13, 333, 332, 31, 18},  {14, 397, 332, 31, 18},  {117, 109, 236, 31, 18},
    {116, 173, 236, 31, 18}, {118, 109, 284, 31, 18}, {115, 173, 284, 31, 18}, {119, 108, 332, 95, 38},
    {120, 269, 64, 46, 46},  {121, 326, 64, 46, 46},  {122, 382, 64, 46, 46},  {123, 38, 34, 31, 18},
};

// The front of type 0: key origin (32, 50).
const PLACE kFront[24] = {
    {0, 263, 152, 31, 18},   {1, 327, 152, 31, 18},   {2, 391, 152, 31, 18},   {3, 263, 200, 31, 18},
    {4, 327, 200, 31, 18},   {5, 391, 200, 31, 18},   {6, 263, 248, 31, 18},   {7, 327, 248, 31, 18},
    {8, 391, 248, 31, 18},   {9, 263, 296, 31, 18},   {10, 327, 296, 31, 18},  {11, 391, 296, 31, 18},
    {12, 263, 344, 31, 18},  {13, 327, 344, 31, 18},  {14, 391, 344, 31, 18},  {117, 103, 248, 31, 18},
    {116, 167, 248, 31, 18}, {118, 103, 296, 31, 18}, {115, 167, 296, 31, 18}, {119, 102, 344, 95, 38},
    {120, 263, 76, 46, 46},  {121, 320, 76, 46, 46},  {122, 376, 76, 46, 46},  {123, 32, 25, 31, 18},
};

class ViewBehaviour : public testing::Test {
protected:
    void SetUp() override
    {
        design.Load({kController, "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20", "ORNCST_1*address=1",
                     "ORNCST_1*type=ZEL4010"});
        console = design.Object("ORNCST_1");
        ASSERT_NE(console, nullptr);
        frame = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1019, 800, NULL, NULL, NULL, NULL);
        view = Open(console);
        ASSERT_NE(view, nullptr);
    }
    void TearDown() override
    {
        a_HoldClock(FALSE);
        DestroyWindow(frame);
    }
    HWND Open(HOSTINFO* obj)
    {
        HWND opened = CreateWindowExA(0, "DOVRIXCONSOLEVIEW", "", WS_CHILD | WS_VISIBLE, 18, 26, 505, 435, frame,
                                      (HMENU)1003, NULL, obj);
        if (opened)
            WindowPixels(opened);  // painting narrows the special keys to their five frames
        return opened;
    }
    void ExpectKeysAt(const PLACE (&places)[24], int dy119 = 0, int dySpecial = 0)
    {
        for (const PLACE& p : places) {
            SCOPED_TRACE(p.id);
            const int top = p.top + (p.id >= 120 && p.id <= 122 ? dySpecial : 0);
            const int height = p.id == 119 ? p.height + dy119 : p.height;
            EXPECT_EQ(ViewHitTest(view, p.left, top), p.id);
            EXPECT_EQ(ViewHitTest(view, p.left + p.width - 1, top + height - 1), p.id);
            EXPECT_NE(ViewHitTest(view, p.left + p.width, top), p.id);
            EXPECT_NE(ViewHitTest(view, p.left, top + height), p.id);
            EXPECT_NE(ViewHitTest(view, p.left - 1, top), p.id);
            EXPECT_NE(ViewHitTest(view, p.left, top - 1), p.id);
        }
    }
    std::string Leds() { return design.Get("ORNCST_1", "leds"); }

    TESTDESIGN design;
    HOSTINFO* console = nullptr;
    HWND frame = NULL;
    HWND view = NULL;
};

}  // namespace

TEST_F(ViewBehaviour, HitTestsMeetEveryKeyOfEveryFaceAtItsPlace)
{
    ExpectKeysAt(kFront);
    design.Edit("ORNCST_1*type=ORN-15CST");
    WindowPixels(view);
    // Type 4: the wide key is 29 high and the special keys stand at y 22.
    ExpectKeysAt(kFront, -9, -4);
    design.Edit("ORNCST_1*type=ELK-15CST");
    WindowPixels(view);
    ExpectKeysAt(kFront, -9, -4);
    for (const char* board : {"ELK-CSK", "ORN-CSK"}) {
        SCOPED_TRACE(board);
        design.Edit(std::string("ORNCST_1*type=") + board);
        WindowPixels(view);
        ExpectKeysAt(kBoard);
    }
    EXPECT_EQ(ViewHitTest(view, 2, 430), -1);

    // Extension strips side by side: slot s at position p starts at
    // x = 311 p + 467 + 39, y = 62 + 91 on a front.
    design.Edit("ORNCST_1*type=ZEL4010");
    design.Edit("ORNCST_1*ExtensionCount=2");
    EXPECT_EQ(ViewHitTest(view, 506, 153), 15);
    EXPECT_EQ(ViewHitTest(view, 506 + 192 + 30, 153 + 192 + 17), 34);
    EXPECT_EQ(ViewHitTest(view, 817, 153), 35);
    EXPECT_EQ(ViewHitTest(view, 817 + 64, 153 + 48), 40);
    EXPECT_EQ(ViewHitTest(view, 1009, 345), 54);
    EXPECT_EQ(ViewHitTest(view, 1009 + 31, 345), -1);
}

TEST_F(ViewBehaviour, TheBoardOfTypeSixIsDrawnInItsGreen)
{
    design.Edit("ORNCST_1*type=ORN-CSK");
    EXPECT_EQ(design.Get("ORNCST_1", "type"), "ORN-CSK");
    int width = 0;
    const std::vector<DWORD> pixels = WindowPixels(view, &width);
    ASSERT_FALSE(pixels.empty());
    // A blank key's corner lets the board's fill through.
    for (const PLACE& p : kBoard) {
        if (p.id > 14)
            continue;
        EXPECT_EQ(pixels[(size_t)p.top * width + p.left] & 0xFFFFFF, 0x339966u) << p.id;
    }
    EXPECT_EQ(ViewHitTest(view, 397 + 3, 332 + 3), 14);
    EXPECT_EQ(ViewHitTest(view, 38 + 3, 34 + 3), 123);
}

TEST_F(ViewBehaviour, EscapeClosesTheLabelEditorWithoutStoring)
{
    design.Edit("ORNCST_1*keylabel004=Lobby");
    // Key 4's label box: (32 + 285, 74 + 150), 54 x 14.
    SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(320, 230));
    HWND editor = GetDlgItem(view, IDC_LABELEDITOR);
    ASSERT_NE(editor, nullptr);
    char text[64] = "";
    GetWindowTextA(editor, text, sizeof text);
    EXPECT_STREQ(text, "Lobby");
    SetWindowTextA(editor, "Hall");
    SendMessageA(editor, WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_FALSE(IsWindow(editor));
    EXPECT_EQ(design.Get("ORNCST_1", "keylabel004"), "Lobby");
    EXPECT_EQ(GetDlgItem(view, IDC_LABELEDITOR), nullptr);
}

TEST_F(ViewBehaviour, CaptureLostWithoutAReleaseSendsNoUp)
{
    design.Edit("ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule");
    ASSERT_TRUE(SimulateDevice("ORNCST_1", "online", 1));
    SendMessageA(view, CVM_SETEDITMODE, 0, 0);
    const LPARAM key5 = MAKELPARAM(391 + 3, 200 + 3);
    SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, key5);
    ASSERT_EQ(GetCapture(), view);
    EXPECT_EQ(Leds()[5], 'e');  // held
    ReleaseCapture();
    EXPECT_NE(GetCapture(), view);
    EXPECT_EQ(Leds()[5], 'e');  // no "up" reached the device
    SendMessageA(view, WM_LBUTTONUP, 0, key5);
    EXPECT_EQ(Leds()[5], 'e');  // and a later release is no one's

}

TEST_F(ViewBehaviour, SpecialKeysAreAlarmButtonsOrNotUsed)
{
    // Key 120 of the front: (263, 76).
    MENURUN alarm = ViewMenuAt(view, 263 + 5, 76 + 5, "Alarm Button");
    ASSERT_TRUE(alarm.opened);
    EXPECT_EQ(alarm.items, (std::vector<std::string>{"Not Used (checked)", "Alarm Button", "Key Switch",
                                                     "Clear (greyed)", "Copy", "Paste"}));
    EXPECT_EQ(design.Get("ORNCST_1", "key0120OptionState"), "1");
    int width = 0;
    const std::vector<DWORD> asAlarm = WindowPixels(view, &width);

    MENURUN unused = ViewMenuAt(view, 263 + 5, 76 + 5, "Not Used");
    EXPECT_EQ(unused.items[1], "Alarm Button (checked)");
    EXPECT_EQ(design.Get("ORNCST_1", "key0120OptionState"), "0");
    const std::vector<DWORD> asUnused = WindowPixels(view, &width);
    // An alarm button shows its frame; an unused key the empty one.
    bool differs = false;
    for (int y = 76; y < 76 + 46; y++)
        for (int x = 263; x < 263 + 46; x++)
            differs = differs || asAlarm[(size_t)y * width + x] != asUnused[(size_t)y * width + x];
    EXPECT_TRUE(differs);
    EXPECT_EQ(ViewMenuAt(view, 263 + 5, 76 + 5, "-").items[0], "Not Used (checked)");
    // The other special keys keep their own roles.
    EXPECT_EQ(design.Get("ORNCST_1", "key0121OptionState"), "0");
    ViewMenuAt(view, 376 + 5, 76 + 5, "Alarm Button");
    EXPECT_EQ(design.Get("ORNCST_1", "key0122OptionState"), "1");
    EXPECT_EQ(design.Get("ORNCST_1", "key0120OptionState"), "0");
}

TEST_F(ViewBehaviour, ScrollingToTheRightEndAndByTheThumb)
{
    design.Load({"control=0 DOVRIXC \"ORNCST_ZEL3\" 0x54000000 40,0,20x20", "ORNCST_ZEL3*type=ZEL4010",
                 "ORNCST_ZEL3*ExtensionCount=3"});
    HOSTINFO* zel = design.Object("ORNCST_ZEL3");
    ASSERT_NE(zel, nullptr);
    HWND other = Open(zel);
    ASSERT_NE(other, nullptr);
    HWND name = a_FindHwnd(zel, "name");
    ASSERT_NE(name, nullptr);
    RECT start, r;
    GetWindowRect(name, &start);
    const auto shifted = [&]() {
        GetWindowRect(name, &r);
        return (int)(start.left - r.left);
    };
    // Key 0 of the front stands at (263, 152).
    SendMessageA(other, WM_HSCROLL, SB_RIGHT, 0);
    EXPECT_EQ(shifted(), 500);
    EXPECT_EQ(GetScrollPos(other, SB_HORZ), 500);
    EXPECT_EQ(ViewHitTest(other, 506 - 500 + 1, 153 + 1), 15);  // the first strip's first key
    SendMessageA(other, WM_HSCROLL, SB_LINELEFT, 0);
    EXPECT_EQ(shifted(), 490);
    SendMessageA(other, WM_HSCROLL, SB_PAGELEFT, 0);
    EXPECT_EQ(shifted(), 480);
    SendMessageA(other, WM_HSCROLL, SB_PAGERIGHT, 0);
    EXPECT_EQ(shifted(), 490);
    SendMessageA(other, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 123), 0);
    EXPECT_EQ(shifted(), 123);
    EXPECT_EQ(GetScrollPos(other, SB_HORZ), 123);
    EXPECT_EQ(ViewHitTest(other, 263 - 123 + 1, 153), 0);
    SendMessageA(other, WM_HSCROLL, SB_LEFT, 0);
    EXPECT_EQ(shifted(), 0);
    EXPECT_EQ(ViewHitTest(other, 263 + 1, 153), 0);
    DestroyWindow(other);
}

// The thumb track takes the position the message gives, as a drag would.
TEST_F(ViewBehaviour, ScrollingByTheThumbTrack)
{
    design.Load({"control=0 DOVRIXC \"ORNCST_ZEL4\" 0x54000000 40,0,20x20", "ORNCST_ZEL4*type=ZEL4010",
                 "ORNCST_ZEL4*ExtensionCount=3"});
    HOSTINFO* zel = design.Object("ORNCST_ZEL4");
    ASSERT_NE(zel, nullptr);
    HWND other = Open(zel);
    ASSERT_NE(other, nullptr);
    SendMessageA(other, WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 77), 0);
    EXPECT_EQ(GetScrollPos(other, SB_HORZ), 77);
    EXPECT_EQ(ViewHitTest(other, 263 - 77 + 1, 153), 0);
    DestroyWindow(other);
}

TEST_F(ViewBehaviour, AChangedBoardConsoleShowsPageZero)
{
    for (const char* board : {"ELK-CSK", "ORN-CSK"}) {
        SCOPED_TRACE(board);
        design.Edit("ORNCST_1*type=ZEL4010");
        design.Edit("ORNCST_1*ExtensionCount=3");
        SendMessageA(view, CVM_SETPAGE, 0, 1);
        ASSERT_NE(GetDlgItem(view, 2003), nullptr);
        SendMessageA(view, WM_COMMAND, 2003, (LPARAM)GetDlgItem(view, 2003));
        // Slot 2 alone, at the first position: key 55 at (81 + 39, 62 + 91).
        ASSERT_EQ(ViewHitTest(view, 121, 154), 55);

        design.Edit(std::string("ORNCST_1*type=") + board);
        // Page 0: the board's keys, and the strips beside it from slot 0 on
        // (x = 485 - 32 + 20 + 39, y = 62 - 32 + 20 + 91).
        EXPECT_EQ(ViewHitTest(view, 269 + 1, 140 + 1), 0);
        EXPECT_EQ(ViewHitTest(view, 512 + 1, 141 + 1), 15);
        EXPECT_EQ(ViewHitTest(view, 121, 154), -1);

        // The same when the host only says that the console changed.
        design.Edit("ORNCST_1*type=ZEL4010");
        SendMessageA(view, CVM_SETPAGE, 0, 1);
        SendMessageA(view, WM_COMMAND, 2003, (LPARAM)GetDlgItem(view, 2003));
        ASSERT_EQ(ViewHitTest(view, 121, 154), 55);
        static_cast<CONSOLEPROPERTIES*>(console)->m_model = strcmp(board, "ELK-CSK") == 0 ? 3 : 6;
        SendMessageA(view, CVM_CONSOLECHANGED, 0, 0);
        EXPECT_EQ(ViewHitTest(view, 269 + 1, 140 + 1), 0);
        EXPECT_EQ(ViewHitTest(view, 512 + 1, 141 + 1), 15);
        EXPECT_EQ(ViewHitTest(view, 121, 154), -1);
    }
}

TEST_F(ViewBehaviour, AnLedIsRedrawnOnlyWhenItsFrameChanges)
{
    ShowWindow(frame, SW_SHOWNOACTIVATE);
    UpdateWindow(frame);
    UpdateWindow(view);
    a_HoldClock(TRUE);
    a_AdvanceClock(1500 - a_GetTickCount() % 1500);  // blink phase 0
    design.Edit("ORNCST_1*leds=1");                   // key 0's first LED blinks slowly
    SendMessageA(view, WM_TIMER, TIMER_POLL, 0);
    UpdateWindow(view);

    // Key 0's first LED: (32 + 221, 50 + 105), 5 x 5 per frame.
    const RECT led = {253, 155, 258, 160};
    HDC dc = GetDC(view);
    HBRUSH magenta = CreateSolidBrush(RGB(255, 0, 255));
    FillRect(dc, &led, magenta);
    DeleteObject(magenta);
    ASSERT_EQ(GetPixel(dc, 255, 157), RGB(255, 0, 255));

    a_AdvanceClock(500);  // phase 2: still off, nothing drawn
    SendMessageA(view, WM_TIMER, TIMER_POLL, 0);
    EXPECT_EQ(GetPixel(dc, 255, 157), RGB(255, 0, 255));

    a_AdvanceClock(250);  // phase 3: lit, drawn
    SendMessageA(view, WM_TIMER, TIMER_POLL, 0);
    EXPECT_EQ(GetPixel(dc, 255, 157), RGB(0x73, 0xD9, 0x73));
    ReleaseDC(view, dc);
}
