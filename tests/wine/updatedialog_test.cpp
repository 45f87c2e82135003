// The firmware update dialog with a simulated controller: the start sequence,
// the password prompt opened once, buttons locked while uploading, clean-up.
#include <gtest/gtest.h>

#include "testhost.h"

#include "zip.h"

#include "../../plugin/device/consoleproperties.h"
#include "../../plugin/firmware/updatedialog.h"
#include "../../plugin/resources/resource.h"

namespace {

// At the first prompt, START is pressed again, then the password is typed.
struct PROMPTDRIVER {
    HWND dialog = NULL;
    int prompts = 0;
};

void DrivePrompt(HWND prompt, PROMPTDRIVER* driver)
{
    if (WindowCaption(prompt) != "Enter Password")
        return;
    if (++driver->prompts == 1)
        SendMessageA(driver->dialog, WM_COMMAND, MAKEWPARAM(IDC_FIRMWARE_START, BN_CLICKED), 0);
    SetDlgItemTextA(prompt, IDC_PASSWORD, "ZEL4000");
    PostMessageA(prompt, WM_COMMAND, IDOK, 0);
}

std::string StateText(HWND dialog)
{
    char text[256] = "";
    GetDlgItemTextA(dialog, IDC_FIRMWARE_STATE, text, sizeof text);
    return text;
}

// The package in the console family's folder beside the test.
std::string WritePackage()
{
    char module[MAX_PATH];
    GetModuleFileNameA(NULL, module, sizeof module);
    std::string folder(module, strrchr(module, '\\') + 1);
    folder += "Firmware";
    CreateDirectoryA(folder.c_str(), NULL);
    folder += "\\SOLVAN";
    CreateDirectoryA(folder.c_str(), NULL);
    const std::string path = folder + "\\CST_DIALOGTEST.ZIP";
    zipFile zip = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    for (const char* name : {"CST_FW_DIALOG.bin", "ZEL4k_DB_DIALOG.dat"}) {
        zip_fileinfo info = {};
        zipOpenNewFileInZip64(zip, name, &info, NULL, 0, NULL, 0, NULL, Z_DEFLATED, Z_DEFAULT_COMPRESSION, 0);
        zipWriteInFileInZip(zip, name, (unsigned)strlen(name));
        zipCloseFileInZip(zip);
    }
    zipClose(zip, NULL);
    return path;
}

}  // namespace

TEST(UpdateDialog, UploadsOnceThePromptIsAnsweredAndCleansUp)
{
    WritePackage();
    TESTDESIGN design;
    design.Load({"control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40",
                 "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20", "ORNCST_1*address=1"});
    design.Edit("ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule");
    HOSTINFO* console = design.Object("ORNCST_1");

    HWND dialog = CreateDialogParamA(Plugin(), MAKEINTRESOURCEA(IDD_FIRMWAREUPDATE), NULL, FirmwareUpdateDialogProc,
                                     (LPARAM) static_cast<CONSOLEPROPERTIES*>(console));
    ASSERT_NE(dialog, nullptr);
    ASSERT_NE(SendDlgItemMessageA(dialog, IDC_FIRMWARE_LIST, CB_SELECTSTRING, (WPARAM)-1, (LPARAM) "CST_DIALOGTEST.ZIP"),
              CB_ERR);
    PROMPTDRIVER driver;
    driver.dialog = dialog;
    {
        DIALOGWATCH watch([&driver](HWND prompt) { DrivePrompt(prompt, &driver); });
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDC_FIRMWARE_START, BN_CLICKED), 0);
    }
    EXPECT_EQ(driver.prompts, 1);  // the second press opened no second prompt

    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_FIRMWARE_START)));
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDCANCEL)));  // no closing while it uploads
    const DWORD start = GetTickCount();
    MSG msg;
    while (StateText(dialog) != "Firmware update successfully completed" && GetTickCount() - start < 15000) {
        while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
            DispatchMessageA(&msg);
        Sleep(20);
    }
    EXPECT_EQ(StateText(dialog), "Firmware update successfully completed");
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDCANCEL)));
    char temp[MAX_PATH];
    GetTempPathA(sizeof temp, temp);
    EXPECT_EQ(GetFileAttributesA((std::string(temp) + "CST_FW_DIALOG.bin").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(design.Get("ORNCST_1", "Firmware.Revision"), "V3.4.3");
    DestroyWindow(dialog);
}
