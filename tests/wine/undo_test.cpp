// Undo and redo in the configuration window: every kind of key change taken
// back and done again restores the saved design exactly.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <windows.h>
#include <commctrl.h>

#include "testhost.h"
#include "viewmenus.h"
#include "../../plugin/protocol.h"
#include "../../plugin/resources/resource.h"

namespace {

const char kController[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";
const char kConsole[] = "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20";

std::vector<std::string> Design()
{
    return {kController, "ORNCON_1*ports=DOVRIXCSTModule", "ORNCON_1*messages=Evacuate now|3,Gong|7", kConsole,
            "ORNCST_1*address=1", "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule"};
}

HWND OpenConfiguration(TESTDESIGN& design)
{
    SendMessageA(design.Object("ORNCST_1")->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);
    return FindWindowA(NULL, "ORNCST_1 - Configuration");
}

void Tick(HWND window)
{
    SendMessageA(window, WM_TIMER, TIMER_POLL, 0);
}

HWND ConsoleView(HWND window)
{
    return GetDlgItem(window, IDC_CONSOLEVIEW);
}

bool KeyPoint(HWND view, int key, POINT* point)
{
    for (int y = 0; y < 900; y += 9)
        for (int x = 0; x < 700; x += 15)
            if (ViewHitTest(view, x, y) == key) {
                *point = POINT{x, y};
                return true;
            }
    return false;
}

void SelectKey(HWND window, int key)
{
    POINT at;
    ASSERT_TRUE(KeyPoint(ConsoleView(window), key, &at)) << key;
    SendMessageA(ConsoleView(window), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageA(ConsoleView(window), WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    Tick(window);
    Tick(window);
}

void MenuCommand(HWND window, int key, const char* item)
{
    POINT at;
    ASSERT_TRUE(KeyPoint(ConsoleView(window), key, &at)) << key;
    ViewMenuAt(ConsoleView(window), at.x, at.y, item);
}

bool Undo(HWND window)
{
    return SendMessageA(window, CFM_UNDO, 0, 0) == 1;
}

bool Redo(HWND window)
{
    return SendMessageA(window, CFM_REDO, 0, 0) == 1;
}

class KeyUndo : public testing::Test {
protected:
    void SetUp() override
    {
        design.Load(Design());
        window = OpenConfiguration(design);
        ASSERT_NE(window, nullptr);
    }
    void TearDown() override { DestroyWindow(window); }

    // The change is one step: undo brings back the saved design of before,
    // redo the one of after.
    void ExpectOneStep(const char* what, void (*change)(KeyUndo*))
    {
        SCOPED_TRACE(what);
        const std::vector<std::string> before = design.SavedLines();
        change(this);
        const std::vector<std::string> after = design.SavedLines();
        ASSERT_NE(before, after);
        design.Object("ORNCST_1")->m_wFlags &= ~HOSTFLAG_EDITED;
        ASSERT_TRUE(Undo(window));
        EXPECT_NE(design.Object("ORNCST_1")->m_wFlags & HOSTFLAG_EDITED, 0);  // the design changed
        EXPECT_EQ(design.SavedLines(), before);
        ASSERT_TRUE(Redo(window));
        EXPECT_EQ(design.SavedLines(), after);
        EXPECT_FALSE(Redo(window));
    }

public:
    TESTDESIGN design;
    HWND window = NULL;
};

}  // namespace

TEST_F(KeyUndo, EveryKindOfChangeIsOneStepBackAndForth)
{
    EXPECT_FALSE(Undo(window));  // nothing yet
    ExpectOneStep("a function set on a key", [](KeyUndo* t) { t->design.Edit("ORNCST_1*key005=Talk to Selection"); });
    SelectKey(window, 5);
    ExpectOneStep("a list of the page", [](KeyUndo* t) {
        HWND page = GetDlgItem(t->window, IDC_KEYPAGE);
        HWND combo = GetDlgItem(page, 1015);
        SendMessageA(combo, CB_SETCURSEL, 1, 0);
        SendMessageA(page, WM_COMMAND, MAKEWPARAM(1015, CBN_SELCHANGE), (LPARAM)combo);
    });
    ExpectOneStep("a spin held for ten steps", [](KeyUndo* t) {
        HWND page = GetDlgItem(t->window, IDC_KEYPAGE);
        for (int step = 1; step <= 10; step++)
            SetDlgItemInt(page, 1065, 60 + step, FALSE);
    });
    ExpectOneStep("a label", [](KeyUndo* t) { t->design.Edit("ORNCST_1*keylabel005=Hall"); });
    ExpectOneStep("a role", [](KeyUndo* t) { t->design.Edit("ORNCST_1*key0120OptionState=1"); });
    ExpectOneStep("a clear", [](KeyUndo* t) { MenuCommand(t->window, 5, "Clear"); });
    ExpectOneStep("an extension added", [](KeyUndo* t) {
        SendMessageA(ConsoleView(t->window), WM_COMMAND, IDC_VIEWTOOL_ADDEXTENSION, 0);
    });
    ExpectOneStep("an extension removed", [](KeyUndo* t) {
        SendMessageA(ConsoleView(t->window), WM_COMMAND, IDC_VIEWTOOL_REMOVEEXTENSION, 0);
    });
}

TEST_F(KeyUndo, StepsGoBackInOrderAndANewChangeDropsTheRedo)
{
    const std::vector<std::string> start = design.SavedLines();
    design.Edit("ORNCST_1*key003=Talk to Selection");
    design.Edit("ORNCST_1*key004=Talk to Selection");
    const std::vector<std::string> two = design.SavedLines();
    EXPECT_TRUE(Undo(window));
    EXPECT_TRUE(Undo(window));
    EXPECT_EQ(design.SavedLines(), start);
    EXPECT_FALSE(Undo(window));
    EXPECT_TRUE(Redo(window));
    EXPECT_TRUE(Redo(window));
    EXPECT_EQ(design.SavedLines(), two);
    EXPECT_TRUE(Undo(window));
    design.Edit("ORNCST_1*key007=Talk to Selection");
    EXPECT_FALSE(Redo(window));
}

TEST_F(KeyUndo, AReloadedDesignAndAnOnlineConsoleUndoNothing)
{
    design.Edit("ORNCST_1*key003=Talk to Selection");
    design.Load({"ORNCST_1*key009=Talk to Selection"});
    EXPECT_FALSE(Undo(window));
    design.Edit("ORNCST_1*key003=Talk to Selection,0,1");
    design.Object("ORNCST_1")->m_wFlags |= 2;  // online
    EXPECT_FALSE(Undo(window));
    design.Object("ORNCST_1")->m_wFlags &= ~2;
    EXPECT_TRUE(Undo(window));
}

TEST_F(KeyUndo, RemovingAnExtensionSaysWhatStaysBehind)
{
    SendMessageA(ConsoleView(window), WM_COMMAND, IDC_VIEWTOOL_ADDEXTENSION, 0);
    design.Edit("ORNCST_1*key015=Talk to Selection");
    design.Edit("ORNCST_1*key020=Talk to Selection");
    SendMessageA(ConsoleView(window), WM_COMMAND, IDC_VIEWTOOL_REMOVEEXTENSION, 0);
    const std::vector<std::string> output = design.Output();
    ASSERT_FALSE(output.empty());
    EXPECT_NE(output.back().find("Extension 1 removed; its 2 configured keys stay in the design"), std::string::npos)
        << output.back();
    EXPECT_EQ(design.Get("ORNCST_1", "ExtensionCount"), "0");
    EXPECT_TRUE(Undo(window));
    EXPECT_EQ(design.Get("ORNCST_1", "ExtensionCount"), "1");
}

TEST_F(KeyUndo, DeletingSeveralKeysIsOneStep)
{
    design.Edit("ORNCST_1*key003=Talk to Selection");
    design.Edit("ORNCST_1*key004=Talk to Selection");
    const std::vector<std::string> before = design.SavedLines();
    SelectKey(window, 3);
    SelectKey(window, 4);
    SendMessageA(ConsoleView(window), WM_KEYDOWN, VK_DELETE, 0);
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Empty");
    EXPECT_EQ(design.Get("ORNCST_1", "key004"), "Empty");
    EXPECT_TRUE(Undo(window));
    EXPECT_EQ(design.SavedLines(), before);
}

// The strokes as the keyboard types them, through the thread's input queue.
void Type(const std::vector<WORD>& held, WORD key)
{
    std::vector<INPUT> inputs;
    for (WORD modifier : held) {
        INPUT down = {};
        down.type = INPUT_KEYBOARD;
        down.ki.wVk = modifier;
        inputs.push_back(down);
    }
    INPUT stroke = {};
    stroke.type = INPUT_KEYBOARD;
    stroke.ki.wVk = key;
    inputs.push_back(stroke);
    stroke.ki.dwFlags = KEYEVENTF_KEYUP;
    inputs.push_back(stroke);
    for (auto modifier = held.rbegin(); modifier != held.rend(); ++modifier) {
        INPUT up = {};
        up.type = INPUT_KEYBOARD;
        up.ki.wVk = *modifier;
        up.ki.dwFlags = KEYEVENTF_KEYUP;
        inputs.push_back(up);
    }
    SendInput((UINT)inputs.size(), inputs.data(), sizeof(INPUT));
    MSG message;
    while (PeekMessageA(&message, NULL, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

TEST_F(KeyUndo, ControlZYAndShiftZReachTheWindowFromItsChildren)
{
    const std::vector<std::string> before = design.SavedLines();
    design.Edit("ORNCST_1*key003=Talk to Selection");
    const std::vector<std::string> after = design.SavedLines();
    ShowWindow(window, SW_SHOW);
    SetForegroundWindow(window);
    SetFocus(ConsoleView(window));
    if (GetFocus() != ConsoleView(window))
        GTEST_SKIP() << "the display gives the window no keyboard focus";
    Type({VK_CONTROL}, 'Z');
    EXPECT_EQ(design.SavedLines(), before);
    Type({VK_CONTROL}, 'Y');
    EXPECT_EQ(design.SavedLines(), after);
    Type({VK_CONTROL}, 'Z');
    Type({VK_CONTROL, VK_SHIFT}, 'Z');
    EXPECT_EQ(design.SavedLines(), after);
}

TEST_F(KeyUndo, UndoingAPastedAlarmKeyTakesBackItsAnnouncement)
{
    auto sources = [this]() {
        std::vector<std::string> found;
        char source[256];
        for (int i = 0; i < a_GetAlarmSourceCount(design.Root()); i++)
            if (a_GetAlarmSource(design.Root(), i, source, sizeof source))
                found.push_back(source);
        return found;
    };
    ASSERT_TRUE(OpenClipboard(window));
    EmptyClipboard();
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 256);
    strcpy_s(static_cast<char*>(GlobalLock(block)), 256, "Alarm to Zone,0,1,0,90,7,ORNCON_1.Hall,");
    GlobalUnlock(block);
    SetClipboardData(RegisterClipboardFormatA("CONSOLEKEY"), block);
    CloseClipboard();
    MenuCommand(window, 6, "Paste");
    EXPECT_EQ(sources(), std::vector<std::string>{"ORNCST_1.key6"});
    EXPECT_TRUE(Undo(window));
    EXPECT_EQ(sources(), std::vector<std::string>{});
    EXPECT_TRUE(Redo(window));
    EXPECT_EQ(sources(), std::vector<std::string>{"ORNCST_1.key6"});
}

TEST_F(KeyUndo, APastedBlockIsOneStep)
{
    design.Edit("ORNCST_1*key003=Talk to Selection");
    design.Edit("ORNCST_1*key004=Talk to Selection,0,1");
    const std::vector<std::string> before = design.SavedLines();
    SelectKey(window, 3);
    SelectKey(window, 4);
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    SendMessageA(ConsoleView(window), WM_KEYDOWN, 'C', 0);
    SelectKey(window, 9);
    SendMessageA(ConsoleView(window), WM_KEYDOWN, 'V', 0);
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
    EXPECT_EQ(design.Get("ORNCST_1", "key009"), design.Get("ORNCST_1", "key003"));
    EXPECT_EQ(design.Get("ORNCST_1", "key010"), design.Get("ORNCST_1", "key004"));
    EXPECT_TRUE(Undo(window));
    EXPECT_EQ(design.SavedLines(), before);
}

TEST_F(KeyUndo, WhatAPageForcesWhenItOpensIsNoStep)
{
    const std::vector<std::string> before = design.SavedLines();
    design.Edit("ORNCST_1*key005=Chime to Zone");
    SelectKey(window, 5);  // the chime page sets its fixed field
    EXPECT_TRUE(Undo(window));
    EXPECT_EQ(design.SavedLines(), before);
    EXPECT_FALSE(Undo(window));
}
