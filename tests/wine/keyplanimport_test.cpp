// The workbench's key-plan import window, driven as a user drives it: found
// when it is created, read, and answered with OK or Cancel.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "testhost.h"
#include "../../host/workbench/importplan.h"
#include "../../plugin/protocol.h"

namespace {

const std::vector<std::string> kSite = {
    "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40",
    "ORNCON_1*ports=DOVRIXCSTModule",
    "ORNCON_1*zones=Hall,Lobby",
    "ORNCON_1*messages=Evacuate now|3,Gong|7",
    "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20",
    "ORNCST_1*address=1",
    "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule",
    "ORNCST_1*key000=Select Zone,0,ORNCON_1.Hall",
    "ORNCST_1*keylabel000=Hall",
};

struct IMPORTDRIVE {
    std::function<void(HWND)> steps;
    HWND window = NULL;
    HHOOK hook = NULL;
};

IMPORTDRIVE*& Drive()
{
    static IMPORTDRIVE* drive = nullptr;
    return drive;
}

// A timer of the test's thread: the window is complete once it fires.
void CALLBACK RunSteps(HWND, UINT, UINT_PTR id, DWORD)
{
    KillTimer(NULL, id);
    IMPORTDRIVE* drive = Drive();
    if (!drive || !IsWindow(drive->window))
        return;
    drive->steps(drive->window);
    if (IsWindow(drive->window))  // steps that leave it open: Cancel
        SendMessageA(drive->window, WM_COMMAND, IDCANCEL, 0);
}

LRESULT CALLBACK FindImportWindow(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HCBT_CREATEWND && Drive() && !Drive()->window) {
        char className[64] = "";
        GetClassNameA((HWND)wParam, className, sizeof className);
        if (strcmp(className, kImportWindowClass) == 0) {
            Drive()->window = (HWND)wParam;
            SetTimer(NULL, 0, 1, RunSteps);
        }
    }
    return CallNextHookEx(Drive() ? Drive()->hook : NULL, code, wParam, lParam);
}

// Runs the window over the design with the steps; whether the plan was applied.
bool RunImport(TESTDESIGN& design, const std::string& plan, std::function<void(HWND)> steps)
{
    IMPORTDRIVE drive;
    drive.steps = steps;
    Drive() = &drive;
    drive.hook = SetWindowsHookExA(WH_CBT, FindImportWindow, NULL, GetCurrentThreadId());
    const bool applied = RunImportWindow(NULL, design.Root(), plan.c_str());
    UnhookWindowsHookEx(drive.hook);
    Drive() = nullptr;
    return applied;
}

std::string WritePlan(const std::string& text)
{
    const std::string path = TempFolder() + "\\plan.csv";
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

std::string Text(HWND window, int id)
{
    char text[256] = "";
    GetDlgItemTextA(window, id, text, sizeof text);
    return text;
}

std::string Title(HWND window)
{
    char text[256] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

// The list's rows, their cells joined by " | ".
std::vector<std::string> Rows(HWND window)
{
    HWND list = GetDlgItem(window, IDC_IMPORT_LIST);
    HWND header = (HWND)SendMessageA(list, LVM_GETHEADER, 0, 0);
    const int columns = (int)SendMessageA(header, HDM_GETITEMCOUNT, 0, 0);
    std::vector<std::string> rows;
    const int count = (int)SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    for (int row = 0; row < count; row++) {
        std::string line;
        for (int column = 0; column < columns; column++) {
            char cell[512] = "";
            LVITEMA item = {};
            item.iSubItem = column;
            item.pszText = cell;
            item.cchTextMax = sizeof cell;
            SendMessageA(list, LVM_GETITEMTEXTA, row, (LPARAM)&item);
            line += (column ? " | " : "") + std::string(cell);
        }
        rows.push_back(line);
    }
    return rows;
}

void Press(HWND window, int id)
{
    SendMessageA(window, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), (LPARAM)GetDlgItem(window, id));
}

}  // namespace

TEST(KeyPlanImport, TheWindowShowsTheDifferenceAndOkAppliesItAsEdits)
{
    TESTDESIGN design;
    design.Load(kSite);
    ASSERT_FALSE(a_IsModified(design.Root()));
    // Semicolons and UTF-8, as a spreadsheet of a German locale saves them.
    const std::string plan = WritePlan("Console;Key;Function;Destination;Message;Label\r\n"
                                       "ORNCST_1;1;Select Zone;Hall;;Halle\r\n"
                                       "ORNCST_1;4;EVAC Messages to Zone;Lobby;Evacuate now;R\xC3\xA4umung\r\n");
    std::string title, summary;
    std::vector<std::string> rows;
    bool okEnabled = false;
    const bool applied = RunImport(design, plan, [&](HWND window) {
        title = Title(window);
        summary = Text(window, IDC_IMPORT_SUMMARY);
        rows = Rows(window);
        okEnabled = IsWindowEnabled(GetDlgItem(window, IDOK)) != FALSE;
        Press(window, IDOK);
    });
    EXPECT_TRUE(applied);
    EXPECT_EQ(title, "Import key plan - plan.csv");
    EXPECT_EQ(summary, "2 keys change on 1 console");
    EXPECT_TRUE(okEnabled);
    EXPECT_EQ(rows, (std::vector<std::string>{
                        "ORNCST_1 | 1 (key000) | Select Zone,0,ORNCON_1.Hall  \"Hall\" | "
                        "Select Zone,0,ORNCON_1.Hall  \"Halle\"",
                        "ORNCST_1 | 4 (key003) | Empty | "
                        "EVAC Messages to Zone,0,0,0,0,0,0,0,ORNCON_1.Lobby,Evacuate now|3  \"R\xE4umung\"",
                    }));
    // Applied as edits: the objects have them, and the design counts as changed.
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "EVAC Messages to Zone,0,0,0,0,0,0,0,ORNCON_1.Lobby,Evacuate now|3");
    EXPECT_EQ(design.Get("ORNCST_1", "keylabel003"), "R\xE4umung");
    EXPECT_EQ(design.Get("ORNCST_1", "keylabel000"), "Halle");
    EXPECT_TRUE(a_IsModified(design.Root()));
}

TEST(KeyPlanImport, APlanWithErrorsListsThemAndChangesNothing)
{
    TESTDESIGN design;
    design.Load(kSite);
    design.Edit("ORNCST_1*Buzzer=1");  // changed before: reading the design for the plan keeps that
    const std::string plan = WritePlan("Console,Key,Function,Destination,Label\n"
                                       "ORNCST_1,4,Select Zone,Car park,\n"
                                       "ORNCST_7,5,Stop,,\n"
                                       "ORNCST_1,ESC,Stop,,\n");
    std::string summary;
    std::vector<std::string> rows;
    bool okEnabled = true;
    const bool applied = RunImport(design, plan, [&](HWND window) {
        summary = Text(window, IDC_IMPORT_SUMMARY);
        rows = Rows(window);
        okEnabled = IsWindowEnabled(GetDlgItem(window, IDOK)) != FALSE;
        Press(window, IDOK);  // greyed: nothing happens
        EXPECT_TRUE(IsWindow(window));
        Press(window, IDCANCEL);
    });
    EXPECT_FALSE(applied);
    EXPECT_EQ(summary, "3 errors: nothing is changed");
    EXPECT_FALSE(okEnabled);
    EXPECT_EQ(rows, (std::vector<std::string>{
                        "2 | ORNCST_1, \"4\": zone \"Car park\" is not offered by ORNCON_1",
                        "3 | unknown console \"ORNCST_7\"",
                        "4 | ORNCST_1, \"ESC\": the key does not take \"Stop\"",
                    }));
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Empty");
    EXPECT_TRUE(a_IsModified(design.Root()));
}

TEST(KeyPlanImport, APlanThatCannotBeReadIsSaidInAMessageBox)
{
    TESTDESIGN design;
    design.Load(kSite);
    MESSAGEBOXCATCHER boxes;
    const std::string missing = TempFolder() + "\\missing.csv";
    bool opened = false;
    EXPECT_FALSE(RunImport(design, missing, [&](HWND) { opened = true; }));
    EXPECT_FALSE(opened);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Cannot read the key plan " + missing});
    EXPECT_EQ(boxes.Captions(), std::vector<std::string>{"Import key plan"});
    EXPECT_FALSE(a_IsModified(design.Root()));
}
