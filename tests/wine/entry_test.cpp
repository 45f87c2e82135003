// The library's start-up, its exported entries and its window classes.
#include <gtest/gtest.h>

#include <regex>

#include "testhost.h"

namespace {

BOOL CALLBACK CountVisible(HWND hwnd, LPARAM counter)
{
    if (IsWindowVisible(hwnd))
        ++*reinterpret_cast<int*>(counter);
    return TRUE;
}

int CountThreadWindows()
{
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountVisible, (LPARAM)&count);
    return count;
}

}  // namespace

TEST(Entry, ExportsItsHelpers)
{
    ASSERT_NE(Plugin(), nullptr);
    for (const char* name : {"fnCallback", "l_FileOpen", "EnumChildDrawBackground"})
        EXPECT_NE(GetProcAddress(Plugin(), name), nullptr) << name;
}

TEST(Entry, BuildStringIsOneConstantText)
{
    const char* first = (const char*)PluginCallback()(13, nullptr, 0);
    const char* second = (const char*)PluginCallback()(13, nullptr, 0);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, second);
    EXPECT_TRUE(std::regex_match(first, std::regex("[A-Z][a-z]{2} [ 1-3][0-9] [0-9]{4}  [0-2][0-9]:[0-5][0-9]:[0-5][0-9]\tBuild: [0-9]+")))
        << first;
}

TEST(Entry, OtherCallbackCodesAnswerZeroAndOpenNothing)
{
    TESTDESIGN design;
    const int before = CountThreadWindows();
    EXPECT_EQ(PluginCallback()(0, design.Root(), 0), 0);
    EXPECT_EQ(PluginCallback()(2, design.Root(), 0), 0);
    EXPECT_EQ(CountThreadWindows(), before);
}

TEST(Entry, RegistersEveryClassWithItsStyle)
{
    Plugin();
    const struct {
        const char* name;
        UINT style;
        int windowBytes;
        bool nullBrush;
    } classes[] = {
        {"DOVRIXC", 0x400B, 4, true},
        {"DOVRIXZELCONFIGURATIONDIALOG", 0x24803, 0, true},
        {"DOVRIXELKCSKCONFIGURATIONDIALOG", 0x24803, 0, true},
        {"DOVRIXCONSOLEVIEW", 0x24803, 0, true},
        {"CSAUTORADIOBUTTON", 0x4003, 0, false},
        {"DOVRIXKVTVIEW", 0x4803, 0, true},
        {"DOVRIXKEYFUNCTIONVIEW", 0x4803, 0, false},
        {"KEYFUNCTIONVIEWWORKSPACE", 0x480B, 0, false},
        {"DOVRIXCONTROLPANEL", 0x24803, 0, true},
    };
    for (const auto& expected : classes) {
        WNDCLASSEXA info = {};
        info.cbSize = sizeof info;
        ASSERT_TRUE(GetClassInfoExA(NULL, expected.name, &info)) << expected.name;
        EXPECT_EQ(info.style, expected.style) << expected.name;
        EXPECT_EQ(info.cbWndExtra, expected.windowBytes) << expected.name;
        EXPECT_EQ(info.cbClsExtra, 0) << expected.name;
        EXPECT_EQ(info.hIcon, nullptr) << expected.name;
        EXPECT_EQ(info.hCursor, LoadCursor(NULL, IDC_ARROW)) << expected.name;
        if (expected.nullBrush) {
            EXPECT_EQ(info.hbrBackground, GetStockObject(NULL_BRUSH)) << expected.name;
        }
    }
    WNDCLASSEXA keyFunctionView = {};
    keyFunctionView.cbSize = sizeof keyFunctionView;
    GetClassInfoExA(NULL, "DOVRIXKEYFUNCTIONVIEW", &keyFunctionView);
    EXPECT_EQ(keyFunctionView.hbrBackground, (HBRUSH)a_GetObject(HOSTOBJECT_BACKGROUNDBRUSH));
}

TEST(FileOpen, CreatesMissingFoldersOnTheWay)
{
    FILEOPEN open = (FILEOPEN)(void*)GetProcAddress(Plugin(), "l_FileOpen");
    const std::string folder = TempFolder();
    FILE* file = open(folder.c_str(), "b\\c\\d.txt", "wb");
    ASSERT_NE(file, nullptr);
    fputs("x", file);
    fclose(file);
    EXPECT_NE(GetFileAttributesA((folder + "\\b\\c\\d.txt").c_str()), INVALID_FILE_ATTRIBUTES);

    // A slash before a later backslash is never used as a cut.
    EXPECT_EQ(open(folder.c_str(), "e/f\\g.txt", "wb"), nullptr);
    EXPECT_EQ(GetFileAttributesA((folder + "\\e").c_str()), INVALID_FILE_ATTRIBUTES);

    const std::string tooLong(5000, 'x');
    EXPECT_EQ(open(folder.c_str(), tooLong.c_str(), "wb"), nullptr);
}

TEST(Entry, EnumChildDrawBackgroundGoesOn)
{
    typedef BOOL(CALLBACK * ENUMCHILD)(HWND, LPARAM);
    ENUMCHILD draw = (ENUMCHILD)(void*)GetProcAddress(Plugin(), "EnumChildDrawBackground");
    TESTDESIGN design;
    EXPECT_TRUE(draw(design.Surface(), 0));
}
