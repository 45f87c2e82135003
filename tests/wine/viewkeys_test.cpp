// The keyboard on the console view: the focus key walks by the arrows (into
// an extension and back), Delete, Ctrl+C and Ctrl+V, F2 and Enter, the menu
// keys and Ctrl+A, all within the key menu's limits.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <windows.h>

#include "testhost.h"
#include "viewmenus.h"
#include "../../plugin/protocol.h"

namespace {

const char kTalk[] = "Talk to Selection,0,0,0,0,0,0,1,0,0,0,0,0,0,0,0,,,";

class ViewKeys : public testing::Test {
protected:
    void SetUp() override
    {
        design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20", "ORNCST_1*address=1",
                     "ORNCST_1*type=ZEL4010"});
        frame = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1019, 800, NULL, NULL, NULL, NULL);
        view = CreateWindowExA(0, "DOVRIXCONSOLEVIEW", "", WS_CHILD | WS_VISIBLE, 18, 26, 900, 435, frame,
                               (HMENU)1003, NULL, design.Object("ORNCST_1"));
        ASSERT_NE(view, nullptr);
        WindowPixels(view);
    }
    void TearDown() override
    {
        Hold(VK_CONTROL, false);
        DestroyWindow(frame);
    }

    void Click(int key)
    {
        for (int y = 0; y < 500; y += 6)
            for (int x = 0; x < 900; x += 10)
                if (ViewHitTest(view, x, y) == key) {
                    SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
                    SendMessageA(view, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
                    return;
                }
        ADD_FAILURE() << "no key " << key;
    }
    static void Hold(int key, bool down)
    {
        BYTE keys[256] = {};
        GetKeyboardState(keys);
        keys[key] = down ? 0x80 : 0;
        SetKeyboardState(keys);
    }
    void Stroke(UINT key, bool control = false)
    {
        Hold(VK_CONTROL, control);
        SendMessageA(view, WM_KEYDOWN, key, 0);
        Hold(VK_CONTROL, false);
    }
    std::string Record(int key)
    {
        char name[16];
        snprintf(name, sizeof name, "key%03d", key);
        return design.Get("ORNCST_1", name);
    }
    void SetKey(int key, const char* record)
    {
        char line[128];
        snprintf(line, sizeof line, "ORNCST_1*key%03d=%s", key, record);
        design.Edit(line);
    }

    TESTDESIGN design;
    HWND frame = NULL;
    HWND view = NULL;
};

}  // namespace

TEST_F(ViewKeys, AClickGivesTheViewTheFocus)
{
    SetFocus(frame);
    Click(5);
    EXPECT_EQ(GetFocus(), view);
    EXPECT_EQ(SendMessageA(view, WM_GETDLGCODE, 0, 0) & DLGC_WANTARROWS, DLGC_WANTARROWS);
}

TEST_F(ViewKeys, ArrowsWalkFromKey14IntoTheExtensionAndBack)
{
    SendMessageA(view, WM_COMMAND, IDC_VIEWTOOL_ADDEXTENSION, 0);
    WindowPixels(view);
    for (int key : {14, 31, 13})
        SetKey(key, kTalk);
    Click(14);
    Stroke(VK_RIGHT);
    Stroke(VK_DELETE);  // acts on the key the arrow reached
    EXPECT_EQ(Record(31), "Empty");
    EXPECT_EQ(Record(14), kTalk);
    Stroke(VK_LEFT);
    Stroke(VK_LEFT);
    Stroke(VK_DELETE);
    EXPECT_EQ(Record(13), "Empty");
    EXPECT_EQ(Record(14), kTalk);
}

TEST_F(ViewKeys, DeleteClearsTheSelectedKeysThatHaveAMenu)
{
    SetKey(5, kTalk);
    SetKey(6, kTalk);
    SetKey(116, kTalk);
    Click(5);
    Click(6);
    Click(116);
    Stroke(VK_DELETE);
    EXPECT_EQ(Record(5), "Empty");
    EXPECT_EQ(Record(6), "Empty");
    EXPECT_EQ(Record(116), kTalk);  // the menu key has no menu
}

TEST_F(ViewKeys, ControlCAndControlVCopyAndPasteOneKey)
{
    SetKey(5, kTalk);
    Click(5);
    Stroke('C', true);
    Click(8);
    Stroke('V', true);
    EXPECT_EQ(Record(8), kTalk);
    Click(116);
    Stroke('V', true);  // no menu, no paste
    EXPECT_EQ(Record(116), "Empty");
    Stroke('V');        // without Ctrl it is no paste
}

TEST_F(ViewKeys, ControlASelectsEveryKeyOfThePage)
{
    for (int key : {0, 7, 14})
        SetKey(key, kTalk);
    Stroke('A', true);
    Stroke(VK_DELETE);
    for (int key : {0, 7, 14})
        EXPECT_EQ(Record(key), "Empty") << key;
}

TEST_F(ViewKeys, F2AndEnterOpenTheLabelEditorButNotOfKey119)
{
    Click(5);
    Stroke(VK_F2);
    HWND editor = FindWindowExA(view, NULL, "EDIT", NULL);
    ASSERT_NE(editor, nullptr);
    DestroyWindow(editor);
    Stroke(VK_RETURN);
    editor = FindWindowExA(view, NULL, "EDIT", NULL);
    ASSERT_NE(editor, nullptr);
    DestroyWindow(editor);
    Click(119);
    Stroke(VK_F2);
    EXPECT_EQ(FindWindowExA(view, NULL, "EDIT", NULL), nullptr);
}

TEST_F(ViewKeys, TheMenuKeysOpenTheKeysMenuAtTheKey)
{
    SetKey(5, kTalk);
    Click(5);
    EXPECT_EQ(ViewMenuByKey(view, VK_APPS, false, "").items, (std::vector<std::string>{"Clear", "Copy", "Paste"}));
    ViewMenuByKey(view, VK_F10, true, "Clear");
    EXPECT_EQ(Record(5), "Empty");
    Click(116);
    EXPECT_FALSE(ViewMenuByKey(view, VK_APPS, false, "").opened);  // no menu for the menu key
}
