// "firmware OBJ PACKAGE PASSWORD": runs the console's firmware update as a
// user would: UPDATE in the configuration window, the package chosen, START
// UPDATE, the password typed; each state text is printed as it changes, and
// CLOSE is pressed when the dialog is idle again.
#include "workbench.h"

#include "dialogwatch.h"

#include "../../plugin/resources/resource.h"

#include <stdio.h>

#include "../../base/banned.h"

namespace {

const UINT_PTR kWatchTimer = 0x7E57;

struct FIRMWARERUN {
    std::string package;
    std::string password;
    HWND dialog = NULL;
    bool started = false;
    int idleTicks = 0;
    std::string shown;
};

// Watches and timer procedures take no context: the one run there can be.
FIRMWARERUN* g_run = nullptr;

void CALLBACK Watch(HWND dialog, UINT, UINT_PTR, DWORD)
{
    char text[512] = "";
    GetDlgItemTextA(dialog, IDC_FIRMWARE_STATE, text, sizeof text);
    if (text[0] && g_run->shown != text) {
        printf("%s\n", text);
        fflush(stdout);
        g_run->shown = text;
    }
    // Idle again: the dialog takes input and START UPDATE is enabled.
    const bool idle = IsWindowEnabled(dialog) && IsWindowEnabled(GetDlgItem(dialog, IDC_FIRMWARE_START));
    g_run->idleTicks = idle ? g_run->idleTicks + 1 : 0;
    if (g_run->started && g_run->idleTicks > 2) {
        KillTimer(dialog, kWatchTimer);
        PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    }
}

// Each dialog once it shows: the update dialog gets its package and START
// UPDATE, the password prompt its password.
void DriveDialogs(HWND window)
{
    const std::string title = WindowCaption(window);
    if (title == "FIRMWARE UPDATE" && !g_run->dialog) {
        g_run->dialog = window;
        if (SendDlgItemMessageA(window, IDC_FIRMWARE_LIST, CB_SELECTSTRING, (WPARAM)-1,
                                (LPARAM)g_run->package.c_str()) == CB_ERR) {
            fprintf(stderr, "workbench: no package %s\n", g_run->package.c_str());
            PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
        } else {
            SetTimer(window, kWatchTimer, 50, Watch);
            PostMessageA(window, WM_COMMAND, MAKEWPARAM(IDC_FIRMWARE_START, BN_CLICKED),
                         (LPARAM)GetDlgItem(window, IDC_FIRMWARE_START));
            g_run->started = true;
        }
    } else if (title == "Enter Password") {
        SetDlgItemTextA(window, IDC_PASSWORD, g_run->password.c_str());
        PostMessageA(window, WM_COMMAND, IDOK, 0);
    }
}

}  // namespace

bool RunFirmwareUpdate(WORKBENCH* bench, HOSTINFO* console, const std::string& package, const std::string& password)
{
    SendMessageA(console->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);  // "Configuration"
    HWND configuration = FindConfigurationWindow(console);
    if (!configuration)
        return false;
    FIRMWARERUN run;
    run.package = package;
    run.password = password;
    g_run = &run;
    {
        DIALOGWATCH watch(DriveDialogs);
        SendMessageA(configuration, WM_COMMAND, MAKEWPARAM(IDC_CONFIGURATION_UPDATE, BN_CLICKED),
                     (LPARAM)GetDlgItem(configuration, IDC_CONFIGURATION_UPDATE));
    }
    g_run = nullptr;
    (void)bench;
    if (!run.dialog)
        fprintf(stderr, "workbench: %s is not online: UPDATE opens nothing\n", console->m_szName);
    return run.dialog && run.started;
}

namespace {

bool Firmware(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = FindWindowedObject(command.object);
    return obj && RunFirmwareUpdate(bench, obj, command.text, command.typed);
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_FIRMWARE, Firmware},
};

}  // namespace

const VERBHANDLERS kFirmwareVerbs = HandlerTable(kHandlers);
