// Every text of the plug-in's dialogs and pages fits its control: each static
// text, button, check box and group caption is measured with the control's
// own font (the one WM_GETFONT answers) as the system draws it, and no text
// control stands on a group's frame line or past its dialog's edge.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <windows.h>
#include <commctrl.h>

#include "testhost.h"
#include "../../plugin/device/consoleproperties.h"
#include "../../plugin/firmware/updatedialog.h"
#include "../../plugin/protocol.h"
#include "../../plugin/resources/resource.h"

namespace {

INT_PTR CALLBACK PlainDialog(HWND, UINT message, WPARAM, LPARAM)
{
    return message == WM_INITDIALOG ? TRUE : FALSE;
}

BOOL CALLBACK CollectDialog(HMODULE, LPCSTR, LPSTR name, LONG_PTR found)
{
    if (IS_INTRESOURCE(name))
        reinterpret_cast<std::vector<int>*>(found)->push_back((int)(INT_PTR)name);
    return TRUE;
}

std::vector<int> PluginDialogs()
{
    std::vector<int> dialogs;
    EnumResourceNamesA(Plugin(), (LPCSTR)RT_DIALOG, CollectDialog, (LONG_PTR)&dialogs);
    return dialogs;
}

std::string ClassOf(HWND window)
{
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

std::string TextOf(HWND window)
{
    char text[512] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

// How the system draws a control's text, and the room it has for it; false
// for a control that draws no text of its own (pictures, lines, edits, lists).
struct ROOM {
    RECT rect;      // in the control's client co-ordinates
    UINT format;    // DrawText's: one line, or broken at words
    bool group;     // a group box: its caption is one line over the frame
};

int HalfDigit(HDC hdc)
{
    SIZE digit = {};
    GetTextExtentPoint32A(hdc, "0", 1, &digit);
    return digit.cx / 2;
}

bool RoomOf(HWND control, HDC hdc, ROOM* room)
{
    const std::string kind = ClassOf(control);
    const LONG style = GetWindowLongA(control, GWL_STYLE);
    GetClientRect(control, &room->rect);
    room->group = false;
    if (_stricmp(kind.c_str(), "Static") == 0) {
        const LONG type = style & SS_TYPEMASK;
        const UINT prefix = (style & SS_NOPREFIX) ? DT_NOPREFIX : 0;
        if (type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT)
            room->format = DT_WORDBREAK | prefix;
        else if (type == SS_SIMPLE || type == SS_LEFTNOWORDWRAP)
            room->format = DT_SINGLELINE | prefix;
        else
            return false;
        return true;
    }
    if (_stricmp(kind.c_str(), "Button") != 0)
        return false;
    const UINT lines = (style & BS_MULTILINE) ? DT_WORDBREAK : DT_SINGLELINE;
    switch (style & BS_TYPEMASK) {
    case BS_GROUPBOX:
        room->group = true;
        room->format = DT_SINGLELINE;
        InflateRect(&room->rect, -8, 0);  // the frame and the caption's margin
        return true;
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        // The box (12 pixels and its edge) and half a digit before the text.
        room->rect.left += 13 + HalfDigit(hdc);
        room->format = lines;
        return true;
    default:
        InflateRect(&room->rect, -3, -2);  // a push button's edges
        room->format = lines | DT_CENTER;
        return true;
    }
}

// The problem of one control's text, empty when it fits.
std::string Misfit(HWND control)
{
    const std::string text = TextOf(control);
    if (text.empty())
        return std::string();
    HDC hdc = GetDC(control);
    HFONT font = (HFONT)SendMessageA(control, WM_GETFONT, 0, 0);
    HGDIOBJ old = SelectObject(hdc, font ? (HGDIOBJ)font : GetStockObject(SYSTEM_FONT));
    ROOM room;
    std::string problem;
    if (RoomOf(control, hdc, &room)) {
        const int width = room.rect.right - room.rect.left;
        const int height = room.rect.bottom - room.rect.top;
        RECT needed = {0, 0, width, 0};
        DrawTextA(hdc, text.c_str(), -1, &needed, room.format | DT_CALCRECT);
        const int neededWidth = needed.right - needed.left;
        const int neededHeight = needed.bottom - needed.top;
        if (neededWidth > width || (!room.group && neededHeight > height))
            problem = "needs " + std::to_string(neededWidth) + "x" + std::to_string(neededHeight) + ", has " +
                      std::to_string(width) + "x" + std::to_string(height);
    }
    SelectObject(hdc, old);
    ReleaseDC(control, hdc);
    return problem;
}

RECT RectIn(HWND control, HWND parent)
{
    RECT rect;
    GetWindowRect(control, &rect);
    MapWindowPoints(NULL, parent, (POINT*)&rect, 2);
    return rect;
}

bool Crosses(const RECT& a, const RECT& b)
{
    RECT both;
    return IntersectRect(&both, &a, &b) != FALSE;
}

// A group box's four frame lines, the top one through its caption's middle.
std::vector<RECT> FrameLines(HWND group, HWND parent)
{
    const RECT box = RectIn(group, parent);
    HDC hdc = GetDC(group);
    HFONT font = (HFONT)SendMessageA(group, WM_GETFONT, 0, 0);
    HGDIOBJ old = SelectObject(hdc, font ? (HGDIOBJ)font : GetStockObject(SYSTEM_FONT));
    TEXTMETRICA metrics = {};
    GetTextMetricsA(hdc, &metrics);
    SelectObject(hdc, old);
    ReleaseDC(group, hdc);
    const int top = box.top + metrics.tmHeight / 2;
    return {RECT{box.left, top, box.right, top + 1}, RECT{box.left, box.bottom - 1, box.right, box.bottom},
            RECT{box.left, top, box.left + 1, box.bottom}, RECT{box.right - 1, top, box.right, box.bottom}};
}

bool StandsOnFrame(const RECT& control, HWND group, HWND parent)
{
    for (const RECT& line : FrameLines(group, parent))
        if (Crosses(control, line))
            return true;
    return false;
}

bool IsGroup(HWND control)
{
    return _stricmp(ClassOf(control).c_str(), "Button") == 0 &&
           (GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

// Shown by its own style: the dialogs are measured on a hidden parent.
bool Shown(HWND control)
{
    return (GetWindowLongA(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

bool HasText(HWND control)
{
    ROOM room;
    HDC hdc = GetDC(control);
    const bool text = !TextOf(control).empty() && RoomOf(control, hdc, &room);
    ReleaseDC(control, hdc);
    return text;
}

// Every problem of a dialog's own children: "dialog 167 control 1016
// "Locked Behavior (Active When Locked)": ...".
int CheckDialog(HWND dialog, const std::string& name, std::vector<std::string>* problems)
{
    int measured = 0;
    RECT client;
    GetClientRect(dialog, &client);
    std::vector<HWND> children, groups;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (Shown(child)) {
            children.push_back(child);
            if (IsGroup(child))
                groups.push_back(child);
        }
    for (HWND child : children) {
        if (!HasText(child))
            continue;
        measured++;
        const std::string where =
            name + " control " + std::to_string(GetDlgCtrlID(child)) + " \"" + TextOf(child) + "\": ";
        const std::string misfit = Misfit(child);
        if (!misfit.empty())
            problems->push_back(where + "its text does not fit (" + misfit + ")");
        const RECT at = RectIn(child, dialog);
        RECT inside;
        if (!IntersectRect(&inside, &at, &client) || !EqualRect(&inside, &at))
            problems->push_back(where + "stands past the dialog's edge");
        if (IsGroup(child))
            continue;
        for (HWND group : groups)
            if (StandsOnFrame(at, group, dialog))
                problems->push_back(where + "stands on the frame of group \"" + TextOf(group) + "\"");
    }
    return measured;
}

int CheckWindowTree(HWND window, const std::string& name, std::vector<std::string>* problems)
{
    int measured = CheckDialog(window, name, problems);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (Shown(child) && GetWindow(child, GW_CHILD))
            measured += CheckWindowTree(
                child, name + " > " + ClassOf(child) + " " + std::to_string(GetDlgCtrlID(child)), problems);
    return measured;
}

std::string Joined(const std::vector<std::string>& lines)
{
    std::string all;
    for (const std::string& line : lines)
        all += line + "\n";
    return all;
}

// A modal dialog as it runs: found when it is made, measured from a timer of
// the test's thread inside its own loop (its procedure has set its fonts and
// texts by then), then cancelled.
struct MODALWALK {
    HHOOK hook = NULL;
    HWND dialog = NULL;
    int measured = 0;
    std::vector<std::string> problems;
};
MODALWALK* g_walk = nullptr;

void CALLBACK MeasureModal(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(NULL, timer);
    if (!g_walk || !g_walk->dialog || !IsWindow(g_walk->dialog))
        return;
    char caption[128] = "";
    GetWindowTextA(g_walk->dialog, caption, sizeof caption);
    g_walk->measured += CheckDialog(g_walk->dialog, std::string("running dialog \"") + caption + "\"", &g_walk->problems);
    PostMessageA(g_walk->dialog, WM_COMMAND, IDCANCEL, 0);
}

LRESULT CALLBACK FindModal(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HCBT_CREATEWND && g_walk && !g_walk->dialog) {
        const CBT_CREATEWNDA* created = reinterpret_cast<const CBT_CREATEWNDA*>(lParam);
        if (!(created->lpcs->style & WS_CHILD)) {
            g_walk->dialog = (HWND)wParam;
            SetTimer(NULL, 0, 1, MeasureModal);
        }
    }
    return CallNextHookEx(g_walk ? g_walk->hook : NULL, code, wParam, lParam);
}

// Runs what opens the modal dialog; what its measuring found.
MODALWALK WalkModal(void (*open)(void*), void* context)
{
    MODALWALK walk;
    g_walk = &walk;
    walk.hook = SetWindowsHookExA(WH_CBT, FindModal, NULL, GetCurrentThreadId());
    open(context);
    UnhookWindowsHookEx(walk.hook);
    g_walk = nullptr;
    return walk;
}

}  // namespace

// Every dialog resource of the plug-in, laid out by the dialog manager in its
// own font: the key pages, the pickers, the Supervision pages, the add-consoles,
// firmware update and password dialogs.
TEST(TextFit, EveryDialogOfThePlugin)
{
    INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    const std::vector<int> dialogs = PluginDialogs();
    ASSERT_GE(dialogs.size(), 27u);  // twenty key pages, two pickers, two Supervision pages, three dialogs
    HWND parent = CreateWindowExA(0, "STATIC", "parent", WS_POPUP, 0, 0, 1000, 800, NULL, NULL, NULL, NULL);
    std::vector<std::string> problems;
    int measured = 0;
    for (int id : dialogs) {
        HWND dialog = CreateDialogParamA(Plugin(), MAKEINTRESOURCEA(id), parent, PlainDialog, 0);
        if (!dialog) {
            problems.push_back("dialog " + std::to_string(id) + " cannot be made");
            continue;
        }
        ShowWindow(dialog, SW_SHOWNA);
        char caption[128] = "";
        GetWindowTextA(dialog, caption, sizeof caption);
        measured += CheckDialog(
            dialog, "dialog " + std::to_string(id) + (*caption ? std::string(" \"") + caption + "\"" : ""), &problems);
        DestroyWindow(dialog);
    }
    DestroyWindow(parent);
    EXPECT_GE(measured, 140);  // every label, check box, button and group caption of them
    EXPECT_TRUE(problems.empty()) << Joined(problems);
}

// The configuration window as it runs, on both tabs, for the classic console
// (whose Supervision page reads the type-0 texts) and a 15-key front: the
// texts the window sets itself fit as well.
TEST(TextFit, TheConfigurationWindowOnBothTabs)
{
    for (const char* type : {"ZEL4010", "ZEL4020", "ORN-CSK"}) {
        SCOPED_TRACE(type);
        TESTDESIGN design;
        design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20", std::string("ORNCST_1*type=") + type,
                     "ORNCST_1*key002=Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,,,"});
        SendMessageA(design.Object("ORNCST_1")->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);
        HWND window = FindWindowA(NULL, "ORNCST_1 - Configuration");
        ASSERT_NE(window, nullptr);
        std::vector<std::string> problems;
        EXPECT_GT(CheckWindowTree(window, std::string("configuration window (") + type + ")", &problems), 0);
        HWND tabs = GetDlgItem(window, IDC_TABSTRIP);
        TabCtrl_SetCurSel(tabs, TAB_SUPERVISION);
        NMHDR change = {tabs, IDC_TABSTRIP, TCN_SELCHANGE};
        SendMessageA(window, WM_NOTIFY, IDC_TABSTRIP, (LPARAM)&change);
        EXPECT_GT(CheckWindowTree(window, std::string("Supervision (") + type + ")", &problems), 10);
        DestroyWindow(window);
        EXPECT_TRUE(problems.empty()) << Joined(problems);
    }
}

// The dialogs that set fonts or texts of their own as they open: the
// add-consoles dialog (its two bold headings), the firmware update (its bold
// state and notice) and the two pickers.
TEST(TextFit, TheDialogsAsTheyRun)
{
    TESTDESIGN design;
    design.Load({"control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40", "ORNCON_1*ports=DOVRIXCSTModule",
                 "ORNCON_1*zones=Hall,Lobby", "ORNCON_1*logic=TE.Lights",
                 "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20", "ORNCST_1*address=1",
                 "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule",
                 "ORNCST_1*key002=Select Zone,0,ORNCON_1.Hall", "ORNCST_1*key003=Switch On,TE.Lights,0,0,0"});
    std::vector<std::string> problems;
    MODALWALK added = WalkModal(
        [](void* root) { PluginCallback()(1, static_cast<HOSTINFO*>(root), (LPARAM) "ORN-15CST"); }, design.Root());
    EXPECT_GT(added.measured, 5);
    problems.insert(problems.end(), added.problems.begin(), added.problems.end());

    HWND update = CreateDialogParamA(Plugin(), MAKEINTRESOURCEA(IDD_FIRMWAREUPDATE), NULL, FirmwareUpdateDialogProc,
                                     (LPARAM) static_cast<CONSOLEPROPERTIES*>(design.Object("ORNCST_1")));
    ASSERT_NE(update, nullptr);
    ShowWindow(update, SW_SHOWNA);
    EXPECT_GT(CheckDialog(update, "firmware update", &problems), 5);
    DestroyWindow(update);

    SendMessageA(design.Object("ORNCST_1")->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);
    HWND window = FindWindowA(NULL, "ORNCST_1 - Configuration");
    ASSERT_NE(window, nullptr);
    for (int key : {2, 3}) {
        static_cast<CONSOLEPROPERTIES*>(design.Object("ORNCST_1"))->SelectKeyForEditor(key);
        SendMessageA(window, WM_TIMER, TIMER_POLL, 0);
        SendMessageA(window, WM_TIMER, TIMER_POLL, 0);
        HWND browse = GetDlgItem(GetDlgItem(window, IDC_KEYPAGE), IDC_KEY_BROWSE);
        ASSERT_NE(browse, nullptr) << key;
        MODALWALK picker = WalkModal([](void* button) { SendMessageA(static_cast<HWND>(button), BM_CLICK, 0, 0); },
                                     browse);
        EXPECT_GT(picker.measured, 1) << key;
        problems.insert(problems.end(), picker.problems.begin(), picker.problems.end());
    }
    DestroyWindow(window);
    EXPECT_TRUE(problems.empty()) << Joined(problems);
}
