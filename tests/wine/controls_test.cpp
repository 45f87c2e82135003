// The flat controls: the radio-button class, the password prompt, the
// painters' state rules, and the host's widgets bound to a console.
#include <gtest/gtest.h>

#include "testhost.h"

#include <commctrl.h>

#include "../../plugin/config/controldescriptor.h"
#include "../../plugin/controls/flatcontrols.h"
#include "../../plugin/controls/frames.h"
#include "../../plugin/controls/passwordprompt.h"
#include "../../plugin/controls/radiobutton.h"

namespace {

const char kParentClass[] = "RadioTestParent";

std::vector<std::pair<int, int>>& Notifications()
{
    static std::vector<std::pair<int, int>> notifications;
    return notifications;
}

LRESULT CALLBACK RecordingParent(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND)
        Notifications().push_back({LOWORD(wParam), HIWORD(wParam)});
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

HWND CreateParent()
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = RecordingParent;
    wc.hInstance = GetModuleHandleA(NULL);
    wc.lpszClassName = kParentClass;
    RegisterClassA(&wc);
    return CreateWindowExA(0, kParentClass, "", WS_OVERLAPPEDWINDOW, 0, 0, 300, 100, NULL, NULL, NULL, NULL);
}

std::vector<DWORD> Pixels(HWND window)
{
    SetFocus(NULL);  // a focus rectangle is not what is compared
    return WindowPixels(window);
}

void Click(HWND button, int x, int y, int releaseX, int releaseY)
{
    SendMessageA(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    SendMessageA(button, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(releaseX, releaseY));
    SendMessageA(button, WM_LBUTTONUP, 0, MAKELPARAM(releaseX, releaseY));
}

}  // namespace

TEST(RadioButton, ClicksCheckOneButtonOfTheGroup)
{
    Plugin();
    HWND parent = CreateParent();
    HWND buttons[3];
    for (int i = 0; i < 3; i++)
        buttons[i] = CreateWindowExA(0, "CSAUTORADIOBUTTON", i == 0 ? "Console" : "Ext", WS_CHILD | WS_VISIBLE | (i == 0 ? WS_GROUP : 0),
                                     i * 90, 0, 80, 24, parent, (HMENU)(INT_PTR)(100 + i), NULL, NULL);
    const std::vector<DWORD> normal = Pixels(buttons[1]);
    const std::vector<DWORD> firstNormal = Pixels(buttons[0]);
    Notifications().clear();

    Click(buttons[0], 10, 10, 10, 10);
    const std::vector<DWORD> checked = Pixels(buttons[0]);
    EXPECT_NE(checked, normal);
    Click(buttons[0], 10, 10, 10, 10);  // a checked button notifies again
    EXPECT_EQ(Notifications(), (std::vector<std::pair<int, int>>{{100, RBN_CHECKED}, {100, RBN_CHECKED}}));

    Click(buttons[1], 10, 10, 200, 10);  // released outside: nothing changes
    EXPECT_EQ(Notifications().size(), 2u);
    EXPECT_EQ(Pixels(buttons[0]), checked);
    EXPECT_EQ(Pixels(buttons[1]), normal);

    Click(buttons[2], 10, 10, 12, 12);  // the group's check moves
    EXPECT_EQ(Notifications().back(), (std::pair<int, int>{102, RBN_CHECKED}));
    EXPECT_EQ(Pixels(buttons[0]), firstNormal);
    EXPECT_NE(Pixels(buttons[2]), Pixels(buttons[1]));
    DestroyWindow(parent);
}

// A click unchecks every other button of its dialog group, also those that
// are disabled or hidden, and none of the next group.
TEST(RadioButton, AClickUnchecksDisabledAndHiddenMembersOfTheGroup)
{
    Plugin();
    HWND parent = CreateParent();
    HWND buttons[5];
    for (int i = 0; i < 5; i++)
        buttons[i] = CreateWindowExA(0, "CSAUTORADIOBUTTON", "Page", WS_CHILD | WS_VISIBLE | (i % 4 == 0 ? WS_GROUP : 0),
                                     i * 90, 0, 80, 24, parent, (HMENU)(INT_PTR)(200 + i), NULL, NULL);
    EnableWindow(buttons[2], FALSE);
    ShowWindow(buttons[3], SW_HIDE);
    std::vector<DWORD> normal[5];
    for (int i = 0; i < 5; i++)
        normal[i] = Pixels(buttons[i]);
    for (int i : {2, 3, 4}) {
        SendMessageA(buttons[i], RBM_SETSTATE, 1, 0);  // checked
        EXPECT_NE(Pixels(buttons[i]), normal[i]) << i;
    }

    Click(buttons[0], 10, 10, 10, 10);
    EXPECT_EQ(Pixels(buttons[2]), normal[2]);
    EXPECT_EQ(Pixels(buttons[3]), normal[3]);
    EXPECT_NE(Pixels(buttons[4]), normal[4]);  // another group
    DestroyWindow(parent);
}

TEST(PasswordPrompt, EmptyStaysOpenAndSixteenCharactersAreTaken)
{
    PASSWORDREQUEST request = {};
    HWND dialog = CreateDialogParamA(Plugin(), MAKEINTRESOURCEA(IDD_PASSWORD), NULL, PasswordPromptProc, (LPARAM)&request);
    ASSERT_NE(dialog, nullptr);
    char title[64] = "";
    GetWindowTextA(dialog, title, sizeof title);
    EXPECT_STREQ(title, "Enter Password");
    EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_PASSWORD, EM_GETLIMITTEXT, 0, 0), 16);
    {
        MESSAGEBOXCATCHER boxes;
        SendMessageA(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Password field is empty. Please Enter the Password"});
    }
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
    EXPECT_STREQ(request.password, "");

    SetDlgItemTextA(dialog, IDC_PASSWORD, "0123456789abcdefXYZ");
    SendMessageA(dialog, WM_COMMAND, IDOK, 0);
    EXPECT_STREQ(request.password, "0123456789abcdef");
    DestroyWindow(dialog);
}

namespace {

// What a painter leaves in a bitmap of the window's client size.
template <typename PAINT>
std::vector<DWORD> Painted(HWND window, PAINT paint, int* width)
{
    RECT client;
    GetClientRect(window, &client);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = client.right;
    info.bmiHeader.biHeight = -client.bottom;  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HDC screen = GetDC(NULL);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, NULL, 0);
    HGDIOBJ old = SelectObject(memory, bitmap);
    paint(memory);
    GdiFlush();
    std::vector<DWORD> pixels(static_cast<const DWORD*>(bits),
                              static_cast<const DWORD*>(bits) + client.right * client.bottom);
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(NULL, screen);
    for (DWORD& pixel : pixels)
        pixel &= 0x00FFFFFF;
    *width = client.right;
    return pixels;
}

DWORD AsPixel(COLORREF colour)
{
    return (DWORD)(GetRValue(colour) << 16 | GetGValue(colour) << 8 | GetBValue(colour));
}

// The window as it stands on the screen, after it painted itself.
std::vector<DWORD> RepaintedPixels(HWND window)
{
    RedrawWindow(window, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW);
    int width = 0;
    HDC source = GetWindowDC(window);
    std::vector<DWORD> pixels = Painted(window, [&](HDC hdc) {
        RECT client;
        GetClientRect(window, &client);
        BitBlt(hdc, 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
    }, &width);
    ReleaseDC(window, source);
    return pixels;
}

}  // namespace

TEST(FlatControls, ComboPaintsAYellowFieldTheSelectionAndAnArrow)
{
    Plugin();
    HWND parent = CreateParent();
    HWND combo = CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, 10, 10, 160, 120, parent,
                                 NULL, NULL, NULL);
    ASSERT_NE(combo, nullptr);
    for (const char* item : {"ALARMS", "CHIMES"})
        SendMessageA(combo, CB_ADDSTRING, 0, (LPARAM)item);
    SetFocus(NULL);
    int width = 0;
    const std::vector<DWORD> empty = Painted(combo, [&](HDC hdc) { PaintFlatCombo(combo, hdc); }, &width);
    ASSERT_FALSE(empty.empty());
    const DWORD field = AsPixel(RGB(0xFF, 0xFF, 0xCE));
    EXPECT_EQ(empty[width + 1], field);
    EXPECT_EQ(empty[(empty.size() / width / 2) * width + width / 2], field);  // no selection: no text
    EXPECT_NE(empty[(empty.size() / width / 2) * width + width - 3], field);  // the arrow button

    SendMessageA(combo, CB_SETCURSEL, 0, 0);
    const std::vector<DWORD> chosen = Painted(combo, [&](HDC hdc) { PaintFlatCombo(combo, hdc); }, &width);
    EXPECT_NE(chosen, empty);
    EXPECT_EQ(chosen[width + 1], field);
    DestroyWindow(parent);
}

TEST(FlatControls, SubclassedSpinPaintsItselfAndStillCounts)
{
    Plugin();
    HWND parent = CreateParent();
    ShowWindow(parent, SW_SHOWNOACTIVATE);
    HWND plain = CreateWindowExA(0, UPDOWN_CLASSA, "", WS_CHILD | WS_VISIBLE, 10, 10, 17, 24, parent, NULL, NULL, NULL);
    HWND flat = CreateWindowExA(0, UPDOWN_CLASSA, "", WS_CHILD | WS_VISIBLE, 40, 10, 17, 24, parent, NULL, NULL, NULL);
    ASSERT_NE(plain, nullptr);
    ASSERT_NE(flat, nullptr);
    EXPECT_TRUE(SubclassSpin(flat));
    EXPECT_NE(RepaintedPixels(flat), RepaintedPixels(plain));

    SendMessageA(flat, UDM_SETRANGE32, 0, 9);
    SendMessageA(flat, UDM_SETPOS32, 0, 4);
    EXPECT_EQ(SendMessageA(flat, UDM_GETPOS32, 0, 0), 4);
    DestroyWindow(flat);  // takes its subclass with it
    EXPECT_FALSE(IsWindow(flat));
    DestroyWindow(parent);
}

TEST(FlatControls, StateRules)
{
    EXPECT_EQ(ButtonPartState(false, true, true, true), PART_DISABLED);
    EXPECT_EQ(ButtonPartState(true, true, false, false), PART_SPIN_DISABLED);
    EXPECT_EQ(ButtonPartState(false, false, true, true), PART_PRESSED);
    EXPECT_EQ(ButtonPartState(true, false, true, false), PART_SPIN);
    EXPECT_EQ(ButtonPartState(false, false, false, true), PART_NORMAL);
    EXPECT_TRUE(IsDateTimePickerClass("SysDateTimePick32"));
    EXPECT_TRUE(IsDateTimePickerClass("SysDate"));
    EXPECT_FALSE(IsDateTimePickerClass("SysDateTimePick32X"));
    EXPECT_FALSE(IsDateTimePickerClass("#32770"));
}

namespace {

class Widgets : public testing::Test {
protected:
    void SetUp() override
    {
        design.Load({"control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40",
                     "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20", "ORNCST_1*address=1"});
        design.Edit("ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule");
        page = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 400, 300, NULL, NULL, NULL, NULL);
    }
    void TearDown() override
    {
        DestroyWindow(page);
        a_CleanHostinfo(&owner);
    }
    HWND Widget(const char* line, std::vector<std::string> attributes)
    {
        char text[256];
        snprintf(text, sizeof text, "%s", line);
        HWND widget = a_CreateControl(1, &owner, page, text);
        HOSTINFO* properties = widget ? (HOSTINFO*)GetWindowLongPtrA(widget, GWLP_USERDATA) : nullptr;
        for (const std::string& attribute : attributes)
            if (properties)
                properties->OnLoad(0, (LPARAM)attribute.c_str());
        return widget;
    }
    int Device(const char* name)
    {
        int value = -1;
        REQUEST read = {REQ_READ, 0, REQTYPE_INT, REQMODE_EDIT, &value, name, nullptr};
        design.Object("ORNCON_1")->OnMessage(0, (LPARAM)&read);
        return value;
    }
    std::string Text(HWND widget)
    {
        char text[256] = "";
        a_GetControlText(widget, text, sizeof text);
        return text;
    }

    TESTDESIGN design;
    HOSTINFO owner;
    HWND page = NULL;
};

void ClickWidget(HWND widget)
{
    SendMessageA(widget, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    SendMessageA(widget, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
}

}  // namespace

TEST_F(Widgets, ToggleFlipsTheBoundVariableAndBack)
{
    HWND buzzer = Widget("0 BTRISTATEBUTTON \"buzzer\" 0x54000000 10,10,90x16",
                         {"caption=", "bitmap=.\\Controls\\_ZELButton.bmp", "function=Buzzer", "connection=ORNCST_1"});
    ASSERT_NE(buzzer, nullptr);
    EXPECT_EQ(a_FindHwnd(&owner, "buzzer"), buzzer);
    EXPECT_EQ(Text(buzzer), "0");
    ClickWidget(buzzer);
    EXPECT_EQ(Device("ORNCST_1.Buzzer"), 1);
    EXPECT_EQ(Text(buzzer), "1");
    ClickWidget(buzzer);
    EXPECT_EQ(Device("ORNCST_1.Buzzer"), 0);
}

TEST_F(Widgets, ButtonClickReachesTheDevice)
{
    SimulateDevice("ORNCST_1", "online", 1);
    a_AdvanceClock(5000);
    HWND counter = Widget("0 BSTATIC \"watchdog\" 0x54000000 10,40,60x16",
                          {"datatype=s", "function=Watchdog.Counter", "connection=ORNCST_1"});
    EXPECT_EQ(Text(counter), "5c");
    HWND clear = Widget("0 BBUTTON \"WatchDogClear\" 0x54000000 80,40,118x22",
                        {"caption=CLEAR", "bitmap=.\\Controls\\PUSHBUTTON_118_22.bmp", "textcolorwhenpressed= 0x0",
                         "click=Watchdog.Clear=1", "connection=ORNCST_1"});
    ClickWidget(clear);
    SendMessageA(counter, WM_TIMER, 1, 0);
    EXPECT_EQ(Text(counter), "0c");
    EXPECT_EQ(Text(clear), "CLEAR");
}

TEST_F(Widgets, EditFieldWritesBackAndLabelsHideByColour)
{
    HWND name = Widget("0x00000200 BEDIT \"name\" 0x54000000 10,70,100x18",
                       {"textcolor=0", "backgroundcolor=0x00c8ffff", "datatype=s", "function=name", "connection=ORNCST_1"});
    EXPECT_EQ(Text(name), "Untitled");
    HWND editor = GetWindow(name, GW_CHILD);
    SetWindowTextA(editor, "Lobby");
    SendMessageA(editor, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_EQ(design.Get("ORNCST_1", "name"), "Lobby");

    HWND label = Widget("0 BSTATIC \"slotlabel\" 0x54000000 10,100,90x16",
                        {"textcolor=0", "backgroundcolor=0xc8d0d4", "fmt=SLOT", "alignment=left"});
    const std::vector<DWORD> shown = Pixels(label);
    ((HOSTINFO*)GetWindowLongPtrA(label, GWLP_USERDATA))->OnLoad(0, (LPARAM) "textcolor=0xc8d0d4");
    const std::vector<DWORD> hidden = Pixels(label);
    EXPECT_NE(shown, hidden);
    EXPECT_TRUE(std::all_of(hidden.begin(), hidden.end(), [&](DWORD p) { return p == hidden[0]; }));
    EXPECT_EQ(Text(label), "SLOT");
}

TEST_F(Widgets, BindingAPageConnectsEveryWidgetButTheHostsOwn)
{
    HWND name = Widget("0 BSTATIC \"name\" 0x54000000 10,10,90x16", {"datatype=s", "function=name"});
    HWND firmware = Widget("0 BSTATIC \"firmware\" 0x54000000 10,30,90x16",
                           {"datatype=s", "function=Firmware.Revision"});
    HWND frame = Widget("0 BSTATIC \"frame\" 0x54000000 10,50,90x16", {"datatype=s", "function=name"});
    ASSERT_NE(name, nullptr);
    ASSERT_NE(firmware, nullptr);
    ASSERT_NE(frame, nullptr);
    reinterpret_cast<HOSTINFO*>(GetWindowLongPtrA(frame, GWLP_USERDATA))->m_wKind = 1;  // kind 1 stays unbound
    EXPECT_EQ(Text(name), "");

    BindPage(&owner, "ORNCST_1");
    EXPECT_EQ(Text(name), "Untitled");
    EXPECT_EQ(Text(firmware), "V3.4.2");
    EXPECT_EQ(Text(frame), "");  // shows the same keyword, but was left alone

    HOSTINFO empty;
    BindPage(&empty, "ORNCST_1");  // a page without widgets
    BindPage(nullptr, "ORNCST_1");
}

TEST_F(Widgets, BadLinesAndAttributesAreRefused)
{
    EXPECT_EQ(Widget("0 BLISTBOX \"x\" 0x54000000 1,1,10x10", {}), nullptr);
    EXPECT_EQ(Widget("0 BSTATIC \"x\" 0x54000000 1,1", {}), nullptr);
    EXPECT_EQ(Widget("0 BSTATIC 0x54000000 1,1,10x10", {}), nullptr);
    HWND label = Widget("0 BSTATIC \"label\" 0x54000000 1,1,90x16",
                        {"fmt=KEPT", "textcolor=blue", "nonsense=1", "fmt", "connection=ORNCST_1"});
    EXPECT_EQ(Text(label), "KEPT");
    EXPECT_EQ(a_FindHwnd(&owner, "nosuch"), nullptr);
    HWND value = Widget("0 BSTATIC \"firmware\" 0x54000000 1,20,90x16",
                        {"datatype=s", "function=Firmware.Revision", "connection=ORNCST_1"});
    EXPECT_EQ(Text(value), "V3.4.2");
    ((HOSTINFO*)GetWindowLongPtrA(value, GWLP_USERDATA))->OnLoad(0, (LPARAM) "connection=");
    EXPECT_EQ(Text(value), "V3.4.2");  // unbound: keeps what it showed, reads no more
}
