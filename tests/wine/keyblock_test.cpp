// Several keys on the clipboard: copied from one console view, pasted with
// their offsets onto another; keys that cannot land are skipped and named in
// the output pane; a single "CONSOLEKEY" from elsewhere still pastes one key.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <windows.h>

#include "testhost.h"
#include "viewmenus.h"
#include "../../plugin/protocol.h"

namespace {

const char kTalk[] = "Talk to Selection,0,0,0,0,0,0,1,0,0,0,0,0,0,0,0,,,";
const char kChime[] = "Chime to Zone,0,1,2,80,3,0,0,,,";

class KeyBlocks : public testing::Test {
protected:
    void SetUp() override
    {
        design.Load({"control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20", "ORNCST_1*address=1",
                     "ORNCST_1*type=ZEL4010", "control=0 DOVRIXC \"ORNCST_2\" 0x54000000 60,0,20x20",
                     "ORNCST_2*address=2", "ORNCST_2*type=ZEL4010"});
        frame = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1019, 900, NULL, NULL, NULL, NULL);
        first = View("ORNCST_1", 0);
        second = View("ORNCST_2", 450);
    }
    void TearDown() override
    {
        Hold(false);
        DestroyWindow(frame);
    }
    HWND View(const char* name, int y)
    {
        HWND view = CreateWindowExA(0, "DOVRIXCONSOLEVIEW", "", WS_CHILD | WS_VISIBLE, 0, y, 900, 435, frame, NULL,
                                    NULL, design.Object(name));
        EXPECT_NE(view, nullptr);
        WindowPixels(view);
        return view;
    }
    static void Hold(bool control)
    {
        BYTE keys[256] = {};
        GetKeyboardState(keys);
        keys[VK_CONTROL] = control ? 0x80 : 0;
        SetKeyboardState(keys);
    }
    static void Control(HWND view, char key)
    {
        Hold(true);
        SendMessageA(view, WM_KEYDOWN, (WPARAM)key, 0);
        Hold(false);
    }
    static void Click(HWND view, int key)
    {
        for (int y = 0; y < 435; y += 6)
            for (int x = 0; x < 900; x += 10)
                if (ViewHitTest(view, x, y) == key) {
                    SendMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
                    SendMessageA(view, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
                    return;
                }
        ADD_FAILURE() << "no key " << key;
    }
    std::string Record(const char* console, int key)
    {
        char name[16];
        snprintf(name, sizeof name, "key%03d", key);
        return design.Get(console, name);
    }
    void Set(const char* line) { design.Edit(line); }

    TESTDESIGN design;
    HWND frame = NULL;
    HWND first = NULL;
    HWND second = NULL;
};

std::string ClipboardKey(HWND owner)
{
    std::string text;
    if (!OpenClipboard(owner))
        return text;
    if (HGLOBAL block = GetClipboardData(RegisterClipboardFormatA("CONSOLEKEY"))) {
        text = static_cast<const char*>(GlobalLock(block));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

}  // namespace

TEST_F(KeyBlocks, ThreeKeysPastedTwoKeysFurtherOnAnotherConsole)
{
    Set("ORNCST_1*key003=Talk to Selection");
    Set("ORNCST_1*key004=Talk to Selection,0,1");
    Set("ORNCST_1*key005=Talk to Selection,0,0,1");
    Set("ORNCST_1*keylabel004=Hall");
    Click(first, 3);
    Click(first, 4);
    Click(first, 5);
    Control(first, 'C');
    EXPECT_EQ(ClipboardKey(first), Record("ORNCST_1", 3));  // other programs paste the first key
    Click(second, 5);
    Control(second, 'V');
    EXPECT_EQ(Record("ORNCST_2", 5), Record("ORNCST_1", 3));
    EXPECT_EQ(Record("ORNCST_2", 6), Record("ORNCST_1", 4));
    EXPECT_EQ(Record("ORNCST_2", 7), Record("ORNCST_1", 5));
    EXPECT_EQ(design.Get("ORNCST_2", "keylabel006"), "Hall");
    EXPECT_EQ(Record("ORNCST_2", 3), "Empty");
}

TEST_F(KeyBlocks, ABlockOverlappingTheMenuKeySkipsItAndSaysSo)
{
    Set("ORNCST_1*key003=Talk to Selection");
    Set("ORNCST_1*key004=Talk to Selection");
    Click(first, 3);
    Click(first, 4);
    Control(first, 'C');
    Click(second, 115);
    Control(second, 'V');
    EXPECT_EQ(Record("ORNCST_2", 115), Record("ORNCST_1", 3));
    EXPECT_EQ(Record("ORNCST_2", 116), "Empty");
    const std::vector<std::string> output = design.Output();
    ASSERT_FALSE(output.empty());
    EXPECT_NE(output.back().find("Pasted 1 of 2 keys; skipped key 116: no key menu"), std::string::npos) << output.back();
}

TEST_F(KeyBlocks, ProtectAndIndicatorTestKeysAreLeftOutOfACopy)
{
    Set("ORNCST_1*key003=Talk to Selection");
    Set("ORNCST_1*key004=Indicator Test,0,0");
    Set("ORNCST_1*key005=Talk to Selection,0,1");
    Click(first, 3);
    Click(first, 4);
    Click(first, 5);
    Control(first, 'C');
    Click(second, 3);
    Control(second, 'V');
    EXPECT_EQ(Record("ORNCST_2", 3), Record("ORNCST_1", 3));
    EXPECT_EQ(Record("ORNCST_2", 4), "Empty");
    EXPECT_EQ(Record("ORNCST_2", 5), Record("ORNCST_1", 5));
}

TEST_F(KeyBlocks, ASingleConsoleKeyFromElsewherePastesOneKey)
{
    ASSERT_TRUE(OpenClipboard(frame));
    EmptyClipboard();
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 256);
    strcpy_s(static_cast<char*>(GlobalLock(block)), 256, kChime);
    GlobalUnlock(block);
    SetClipboardData(RegisterClipboardFormatA("CONSOLEKEY"), block);
    CloseClipboard();
    Click(second, 8);
    Control(second, 'V');
    EXPECT_EQ(Record("ORNCST_2", 8).substr(0, 13), "Chime to Zone");
    EXPECT_EQ(Record("ORNCST_2", 9), "Empty");
}
