// The add-consoles dialog through fnCallback code 1, driven as a user drives it.
#include <gtest/gtest.h>

#include <stdio.h>

#include <functional>
#include <string>
#include <vector>

#include "testhost.h"
#include "../../plugin/protocol.h"
#include "../../plugin/resources/resource.h"

namespace {

const char kOrnController[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";
const char kElkController[] = "control=0 ELKCON \"ELKCON_1\" 0x54000000 200,100,150x40";

std::string ConsoleLine(const std::string& name)
{
    return "control=0 DOVRIXC \"" + name + "\" 0x54000000 10,10,20x20";
}

// A console of the design connected to the controller at the address.
void AddConnected(TESTDESIGN& design, const std::string& name, int address, const char* controller = "ORNCON_1")
{
    design.Load({ConsoleLine(name), name + "*address=" + std::to_string(address)});
    design.Edit(name + "*connection=" + controller + ".DOVRIXCSTModule");
}

// Runs the dialog for the type over the design with the steps, in the
// dialog's own message loop once it shows, then Cancel if it is still open;
// its result.
INT_PTR RunDialog(TESTDESIGN& design, const char* type, std::function<void(HWND)> steps, bool* stillOpen = nullptr)
{
    HWND driven = NULL;
    bool leftOpen = false;
    INT_PTR result = 0;
    {
        DIALOGWATCH watch([&](HWND dialog) {
            if (driven || WindowCaption(dialog) != "Call Station Dialog")
                return;
            driven = dialog;
            steps(dialog);
            if (IsWindowVisible(dialog)) {
                leftOpen = true;
                SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
            }
        });
        result = PluginCallback()(1, design.Root(), (LPARAM)type);
    }
    if (stillOpen)
        *stillOpen = leftOpen;
    return result;
}

std::string Text(HWND dialog, int id)
{
    char text[256] = "";
    GetDlgItemTextA(dialog, id, text, sizeof text);
    return text;
}

void Set(HWND dialog, int id, const char* text)
{
    SetDlgItemTextA(dialog, id, text);
}

void Press(HWND dialog, int id)
{
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), (LPARAM)GetDlgItem(dialog, id));
}

void Choose(HWND dialog, int id, int index)
{
    SendDlgItemMessageA(dialog, id, CB_SETCURSEL, index, 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), (LPARAM)GetDlgItem(dialog, id));
}

std::vector<std::string> ListItems(HWND dialog, int id)
{
    std::vector<std::string> items;
    const LRESULT count = SendDlgItemMessageA(dialog, id, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; i++) {
        char item[128] = "";
        SendDlgItemMessageA(dialog, id, CB_GETLBTEXT, i, (LPARAM)item);
        items.push_back(item);
    }
    return items;
}

std::string NewDesignPath()
{
    char path[MAX_PATH] = "";
    a_MakeFullPathName("temp\\new.ds", path, sizeof path);
    return path;
}

bool Exists(const std::string& path)
{
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

int FreeAddresses(HOSTINFO* controller)
{
    int value = 0;
    REQUEST read = {REQ_READ, 0, REQTYPE_INT, REQMODE_EDIT, &value, "ZEL4000.FreeAddresses", nullptr};
    controller->OnMessage(0, (LPARAM)&read);
    return value;
}

}  // namespace

TEST(AddConsoles, TheDialogShowsItsTextsAndTheTargets)
{
    TESTDESIGN design;
    design.Load({kElkController, kOrnController});
    AddConnected(design, "ORNCST_1", 1);
    const INT_PTR result = RunDialog(design, "ORN-15CST", [&](HWND dialog) {
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_TARGETTEXT), "Choose your target, you want to connect to:");
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_NUMBERTEXT), "Choose number and start address of the new Paging Consoles:");
        EXPECT_EQ(Text(dialog, IDOK), "Ok");
        EXPECT_EQ(Text(dialog, IDCANCEL), "Cancel");
        LOGFONTA font = {};
        GetObjectA((HFONT)SendDlgItemMessageA(dialog, IDC_CALLSTATION_TARGETTEXT, WM_GETFONT, 0, 0), sizeof font, &font);
        EXPECT_GE(font.lfWeight, FW_BOLD);
        // Family A first, then B.
        EXPECT_EQ(ListItems(dialog, IDC_CALLSTATION_TARGET), (std::vector<std::string>{"ORNCON_1", "ELKCON_1"}));
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_TARGET), "ORNCON_1");
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_COUNT), "1");
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_START), "2");  // 1 is ORNCST_1's
        EXPECT_EQ(ListItems(dialog, IDC_CALLSTATION_EXTENSIONS),
                  (std::vector<std::string>{"none", "1", "2", "3", "4", "5"}));
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_EXTENSIONS), "none");
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDC_CALLSTATION_EXTENSIONS)));
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
        Choose(dialog, IDC_CALLSTATION_EXTENSIONS, 3);
        Choose(dialog, IDC_CALLSTATION_TARGET, 1);
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_START), "1");
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_EXTENSIONS), "none");  // reset with the target
        Press(dialog, IDCANCEL);
    });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(design.Object("ORNCST_2"), nullptr);
}

TEST(AddConsoles, TwelveConsolesJoinTheControllerAtFreeAddresses)
{
    TESTDESIGN design;
    design.Load({kOrnController, "ORNCON_1*zones=Hall,Canteen,Lobby"});
    AddConnected(design, "ORNCST_1", 1);
    const INT_PTR result = RunDialog(design, "ORN-15CST", [&](HWND dialog) {
        Set(dialog, IDC_CALLSTATION_COUNT, "12");
        Choose(dialog, IDC_CALLSTATION_EXTENSIONS, 2);
        Press(dialog, IDOK);
    });
    ASSERT_EQ(result, IDOK);
    for (int address = 2; address <= 13; address++) {
        const std::string name = "ORNCST_" + std::to_string(address);
        ASSERT_NE(design.Object(name.c_str()), nullptr) << name;
        EXPECT_EQ(design.Get(name.c_str(), "address"), std::to_string(address));
        EXPECT_EQ(design.Get(name.c_str(), "connection"), "ORNCON_1.DOVRIXCSTModule") << name;
        EXPECT_EQ(design.Get(name.c_str(), "type"), "ORN-15CST");
        EXPECT_EQ(design.Get(name.c_str(), "ExtensionCount"), "2");
        EXPECT_EQ(design.Get(name.c_str(), "key117"), "On,40,0");
        EXPECT_EQ(design.Get(name.c_str(), "key118"), "Stop,0,0,0,91,91,");
        // (read back in the key's current record form)
        EXPECT_EQ(design.Get(name.c_str(), "key119").rfind("Talk to Selection,0,", 0), 0u);
        EXPECT_EQ(design.Get(name.c_str(), "key115"), "Toggle All,0");
        EXPECT_EQ(design.Get(name.c_str(), "key116"), "Menu,0");
        EXPECT_EQ(design.Get(name.c_str(), "key000"), "Select Zone,0,ORNCON_1.Hall");
        EXPECT_EQ(design.Get(name.c_str(), "key002"), "Select Zone,0,ORNCON_1.Lobby");
    }
    EXPECT_EQ(design.Object("ORNCST_14"), nullptr);
    // Two columns: the eleventh console stands at x 150.
    EXPECT_EQ(design.Object("ORNCST_2")->m_rect.left, 0);
    EXPECT_EQ(design.Object("ORNCST_2")->m_rect.top, 20);
    EXPECT_EQ(design.Object("ORNCST_11")->m_rect.top, 551);
    EXPECT_EQ(design.Object("ORNCST_12")->m_rect.left, 150);
    EXPECT_EQ(design.Object("ORNCST_12")->m_rect.top, 20);
    EXPECT_EQ(FreeAddresses(design.Object("ORNCON_1")), 0x1C000);  // 14 to 16 left
    EXPECT_FALSE(Exists(NewDesignPath()));
    EXPECT_TRUE(a_IsModified(design.Root()));

    // The design saves and reloads as it is.
    std::string raw;
    const std::vector<std::string> saved = design.SavedLines(&raw);
    const std::string file = TempFolder() + "\\added.ds";
    {
        HANDLE out = CreateFileA(file.c_str(), GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, 0, NULL);
        DWORD written = 0;
        WriteFile(out, raw.data(), (DWORD)raw.size(), &written, NULL);
        CloseHandle(out);
    }
    TESTDESIGN again;
    ASSERT_TRUE(a_LoadFile(again.Root(), file.c_str()));
    EXPECT_EQ(again.SavedLines(), saved);
}

TEST(AddConsoles, WithoutExtensionsEachConsoleGetsFifteenZoneKeysAtMost)
{
    TESTDESIGN design;
    std::string zones = "ORNCON_1*zones=";
    for (int i = 1; i <= 20; i++)
        zones += (i > 1 ? "," : "") + std::string("Z") + std::to_string(i);
    design.Load({kOrnController, zones});
    ASSERT_EQ(RunDialog(design, "ORN-15CST", [&](HWND dialog) { Press(dialog, IDOK); }), IDOK);
    EXPECT_EQ(design.Get("ORNCST_1", "key014"), "Select Zone,0,ORNCON_1.Z15");
    EXPECT_EQ(design.Get("ORNCST_1", "key015"), "Empty");
    EXPECT_EQ(design.Get("ORNCST_1", "ExtensionCount"), "0");
}

TEST(AddConsoles, KeypadsOfferNoExtensions)
{
    TESTDESIGN design;
    design.Load({kElkController});
    const INT_PTR result = RunDialog(design, "ELK-CSK", [&](HWND dialog) {
        EXPECT_EQ(ListItems(dialog, IDC_CALLSTATION_EXTENSIONS), std::vector<std::string>{"none"});
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_CALLSTATION_EXTENSIONS)));
        Press(dialog, IDOK);
    });
    ASSERT_EQ(result, IDOK);
    EXPECT_EQ(design.Get("ELKCST_1", "type"), "ELK-CSK");
    EXPECT_EQ(design.Get("ELKCST_1", "ExtensionCount"), "0");
}

TEST(AddConsoles, BadNumbersAreRefusedAndTheDialogStaysOpen)
{
    TESTDESIGN design;
    design.Load({kOrnController});
    AddConnected(design, "ORNCST_3", 3);
    MESSAGEBOXCATCHER catcher;
    bool stillOpen = false;
    const INT_PTR result = RunDialog(
        design, "ORN-15CST",
        [&](HWND dialog) {
            const struct {
                const char* count;
                const char* start;
            } tries[] = {{"0", "1"}, {"x", "1"}, {"", "1"}, {"1", "0"}, {"1", "17"}, {"1", "abc"}, {"2", "3"}};
            for (const auto& attempt : tries) {
                Set(dialog, IDC_CALLSTATION_COUNT, attempt.count);
                Set(dialog, IDC_CALLSTATION_START, attempt.start);
                Press(dialog, IDOK);
                EXPECT_TRUE(IsWindowVisible(dialog)) << attempt.count << " " << attempt.start;
            }
        },
        &stillOpen);
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_TRUE(stillOpen);
    EXPECT_EQ(catcher.Texts(), (std::vector<std::string>{
                                   "Invalid Number of Devices specified!", "Invalid Number of Devices specified!",
                                   "Invalid Number of Devices specified!", "Invalid Startaddress !",
                                   "Invalid Startaddress !", "Invalid Startaddress !", "Address 3 Already In Use!"}));
    for (const std::string& caption : catcher.Captions())
        EXPECT_EQ(caption, "Error");
    EXPECT_EQ(design.Object("ORNCST_1"), nullptr);
    EXPECT_EQ(design.Object("ORNCST_4"), nullptr);
}

TEST(AddConsoles, TooManyConsolesLeavesWhatTheAddressesAllow)
{
    TESTDESIGN design;
    design.Load({kOrnController});
    MESSAGEBOXCATCHER catcher;
    const INT_PTR result = RunDialog(design, "ORN-15CST", [&](HWND dialog) {
        Set(dialog, IDC_CALLSTATION_COUNT, "12");
        Set(dialog, IDC_CALLSTATION_START, "10");
        Press(dialog, IDOK);
        EXPECT_TRUE(IsWindowVisible(dialog));
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_COUNT), "7");
        EXPECT_FALSE(Exists(NewDesignPath()));  // nothing is left for the host to load
        Press(dialog, IDOK);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(catcher.Texts(), std::vector<std::string>{"Too many consoles selected!"});
    EXPECT_EQ(catcher.Captions(), std::vector<std::string>{"Attention!"});
    EXPECT_EQ(design.Object("ORNCST_9"), nullptr);
    for (int address = 10; address <= 16; address++)
        EXPECT_NE(design.Object(("ORNCST_" + std::to_string(address)).c_str()), nullptr) << address;
    EXPECT_FALSE(Exists(NewDesignPath()));
}

// The file of new consoles never outlives the dialog: not after "Too many
// consoles selected!" and Cancel, nor one a crashed run left behind.
TEST(AddConsoles, TheNewDesignFileGoesWheneverTheDialogCloses)
{
    TESTDESIGN design;
    design.Load({kOrnController});
    {
        MESSAGEBOXCATCHER catcher;
        const INT_PTR result = RunDialog(design, "ORN-15CST", [&](HWND dialog) {
            Set(dialog, IDC_CALLSTATION_COUNT, "12");
            Set(dialog, IDC_CALLSTATION_START, "10");
            Press(dialog, IDOK);
            Press(dialog, IDCANCEL);
        });
        EXPECT_EQ(result, IDCANCEL);
        EXPECT_EQ(catcher.Texts(), std::vector<std::string>{"Too many consoles selected!"});
    }
    EXPECT_FALSE(Exists(NewDesignPath()));
    FILE* stale = fopen(NewDesignPath().c_str(), "wb");
    ASSERT_NE(stale, nullptr);
    fclose(stale);
    EXPECT_EQ(RunDialog(design, "ORN-15CST", [&](HWND dialog) { Press(dialog, IDCANCEL); }), IDCANCEL);
    EXPECT_FALSE(Exists(NewDesignPath()));
    EXPECT_EQ(design.Object("ORNCST_1"), nullptr);
}

TEST(AddConsoles, AFullControllerOffersNoneAndNoOk)
{
    TESTDESIGN design;
    design.Load({kOrnController});
    for (int address = 1; address <= 16; address++)
        AddConnected(design, "ORNCST_" + std::to_string(address), address);
    ASSERT_EQ(FreeAddresses(design.Object("ORNCON_1")), 0);
    const INT_PTR result = RunDialog(design, "ORN-15CST", [&](HWND dialog) {
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_COUNT), "None available");
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_START), "None available");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
    });
    EXPECT_EQ(result, IDCANCEL);
}

TEST(AddConsoles, WithoutControllersThereIsNoConnection)
{
    TESTDESIGN design;
    const INT_PTR result = RunDialog(design, "ELK-15CST", [&](HWND dialog) {
        EXPECT_EQ(ListItems(dialog, IDC_CALLSTATION_TARGET), std::vector<std::string>{"no connection available"});
        EXPECT_EQ(Text(dialog, IDC_CALLSTATION_START), "None available");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
    });
    EXPECT_EQ(result, IDCANCEL);
}

TEST(AddConsoles, AFileThatCannotBeWrittenIsReportedAndNothingLoads)
{
    TESTDESIGN design;
    design.Load({kOrnController});
    const std::string path = NewDesignPath();
    ASSERT_FALSE(Exists(path));
    const std::string folder = path.substr(0, path.rfind('\\'));
    CreateDirectoryA(folder.c_str(), NULL);
    ASSERT_TRUE(CreateDirectoryA(path.c_str(), NULL));  // a folder where the file should go
    MESSAGEBOXCATCHER catcher;
    bool stillOpen = false;
    const INT_PTR result = RunDialog(design, "ORN-15CST", [&](HWND dialog) { Press(dialog, IDOK); }, &stillOpen);
    RemoveDirectoryA(path.c_str());
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_TRUE(stillOpen);
    ASSERT_EQ(catcher.Texts().size(), 1u);
    EXPECT_EQ(catcher.Texts()[0].rfind("Cannot write ", 0), 0u) << catcher.Texts()[0];
    EXPECT_EQ(catcher.Captions()[0], "Error");
    EXPECT_EQ(design.Object("ORNCST_1"), nullptr);
}

TEST(AddConsoles, AConsoleOfTheDesignIsNotRewrittenByANewOneOfItsName)
{
    TESTDESIGN design;
    design.Load({kOrnController, kElkController, ConsoleLine("ORNCST_1"), "ORNCST_1*type=ORN-CSK",
                 "ORNCST_1*name=Kept"});
    design.Edit("ORNCST_1*connection=ELKCON_1.DOVRIXCSTModule");
    ASSERT_EQ(RunDialog(design, "ORN-15CST", [&](HWND dialog) {
                  Set(dialog, IDC_CALLSTATION_COUNT, "2");
                  Press(dialog, IDOK);
              }),
              IDOK);
    EXPECT_EQ(design.Get("ORNCST_1", "type"), "ORN-CSK");
    EXPECT_EQ(design.Get("ORNCST_1", "name"), "Kept");
    EXPECT_EQ(design.Get("ORNCST_1", "connection"), "ELKCON_1.DOVRIXCSTModule");
    EXPECT_EQ(design.Get("ORNCST_1", "key117"), "Empty");
    EXPECT_EQ(design.Get("ORNCST_2", "type"), "ORN-15CST");
    bool reported = false;
    for (const std::string& line : design.Output())
        reported = reported || line.find("Object exists already: ORNCST_1") != std::string::npos;
    EXPECT_TRUE(reported);
}

TEST(AddConsoles, AnUnknownTypeOpensNothing)
{
    TESTDESIGN design;
    design.Load({kOrnController});
    bool opened = false;
    EXPECT_EQ(RunDialog(design, "ZEL4010", [&](HWND) { opened = true; }), -1);
    EXPECT_EQ(PluginCallback()(1, design.Root(), 0), -1);
    EXPECT_FALSE(opened);
}
