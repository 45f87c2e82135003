#include "updatedialog.h"

#include <commctrl.h>
#include <io.h>

#include <string>
#include <vector>

#include "archiverules.h"
#include "extraction.h"
#include "../controls/flatcontrols.h"
#include "../controls/passwordprompt.h"
#include "../device/consoleproperties.h"
#include "../device/partner.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const UINT kUploadPeriod = 200;
const COLORREF kAlertText = RGB(0xFF, 0, 0);

struct UPDATEDIALOG {
    CONSOLEPROPERTIES* console;
    char firmware[FIRMWAREPATH_SIZE];
    char database[FIRMWAREPATH_SIZE];
    char font[FIRMWAREPATH_SIZE];
    PASSWORDREQUEST password;
    std::vector<std::string> extracted;
    bool uploading;
};

// The module whose resources made the dialog holds its prompt and strings too.
HINSTANCE ModuleOf(HWND dialog)
{
    return reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(dialog, GWLP_HINSTANCE));
}

// A request to the console object, through the host's interface.
LRESULT AskConsole(HOSTINFO* console, REQUEST* request)
{
    return console->OnMessage(0, (LPARAM)request);
}

// "CST_*.ZIP" of the console family's folder, in the file system's order, the last selected.
void ListPackages(HWND dialog, const CONSOLEPROPERTIES* console)
{
    char folder[MAX_PATH];
    a_MakeFullPathName(FirmwareFolderOf(console->m_model), folder, sizeof folder);
    SetDlgItemTextA(dialog, IDC_FIRMWARE_FOLDER, folder);
    HWND list = GetDlgItem(dialog, IDC_FIRMWARE_LIST);
    char pattern[MAX_PATH + 16];
    FormatText(pattern, sizeof pattern, "%sCST_*.ZIP", folder);
    _finddata_t found;
    const intptr_t search = _findfirst(pattern, &found);
    for (int more = search != -1 ? 0 : -1; more == 0; more = _findnext(search, &found))
        SendMessageA(list, CB_ADDSTRING, 0, (LPARAM)found.name);
    if (search != -1)
        _findclose(search);
    const LRESULT count = SendMessageA(list, CB_GETCOUNT, 0, 0);
    if (count > 0) {
        SendMessageA(list, CB_SETCURSEL, (WPARAM)(count - 1), 0);
        return;
    }
    char none[64] = "";
    LoadStringA(ModuleOf(dialog), IDS_NO_FIRMWARE, none, sizeof none);
    SendMessageA(list, CB_ADDSTRING, 0, (LPARAM)none);
    SendMessageA(list, CB_SETCURSEL, 0, 0);
    EnableWindow(GetDlgItem(dialog, IDC_FIRMWARE_START), FALSE);
}

void Update_Init(HWND dialog, CONSOLEPROPERTIES* console)
{
    UPDATEDIALOG* state = new UPDATEDIALOG();
    state->console = console;
    CopyText(state->font, "None");
    AttachDialogState(dialog, state);
    HWND progress = GetDlgItem(dialog, IDC_FIRMWARE_PROGRESS);
    SendMessageA(progress, PBM_SETRANGE, 0, MAKELPARAM(0, 100));
    SendMessageA(progress, PBM_SETBKCOLOR, 0, (LPARAM)RGB(0xD4, 0xD0, 0xC8));
    SendDlgItemMessageA(dialog, IDC_FIRMWARE_WARNING, STM_SETICON, (WPARAM)LoadIcon(NULL, IDI_WARNING), 0);
    HFONT bold = a_GetFont("ms sans serif,8,bold");
    SendDlgItemMessageA(dialog, IDC_FIRMWARE_STATE, WM_SETFONT, (WPARAM)bold, FALSE);
    SendDlgItemMessageA(dialog, IDC_FIRMWARE_NOTICE, WM_SETFONT, (WPARAM)bold, FALSE);
    ListPackages(dialog, console);
}

void EnableButtons(HWND dialog, BOOL enable)
{
    EnableWindow(GetDlgItem(dialog, IDC_FIRMWARE_START), enable);
    EnableWindow(GetDlgItem(dialog, IDCANCEL), enable);
}

void CleanUp(HWND dialog, UPDATEDIALOG* state)
{
    KillTimer(dialog, TIMER_UPLOAD);
    DeleteExtractedFiles(&state->extracted);
    state->uploading = false;
    EnableButtons(dialog, TRUE);
}

// 1 (IDOK) with the password typed, 2 when cancelled, 0 when a prompt is open
// already: the upload then goes on with the password typed before.
INT_PTR AskPassword(HWND dialog, UPDATEDIALOG* state)
{
    if (FindWindowA(NULL, "Enter Password"))
        return 0;
    HOSTINFO* controller = state->console->m_pPartner;
    if (controller) {
        char name[VARIABLE_NAME_SIZE], answer[REQUEST_TEXT_SIZE] = "";
        FormatText(name, sizeof name, "%s.passwdValidationResponse", controller->m_szName);
        ReadVariable(controller, name, answer, REQTYPE_TEXT);
    }
    state->password.controller = controller;
    state->password.type = REQTYPE_INT;
    return PromptForPassword(ModuleOf(dialog), dialog, &state->password);
}

void Update_Start(HWND dialog, UPDATEDIALOG* state)
{
    if (AskPassword(dialog, state) == IDCANCEL)
        return;
    char folder[MAX_PATH] = "", entry[MAX_PATH] = "", package[MAX_PATH * 2];
    GetDlgItemTextA(dialog, IDC_FIRMWARE_FOLDER, folder, sizeof folder);
    GetDlgItemTextA(dialog, IDC_FIRMWARE_LIST, entry, sizeof entry);
    FormatText(package, sizeof package, "%s%s", folder, entry);
    state->firmware[0] = state->database[0] = '\0';
    CopyText(state->font, "None");
    if (!ExtractFirmwarePackage(package, state->firmware, state->database, state->font, &state->extracted)) {
        MessageBoxA(dialog, "Firmware file is corrupt!", "DOVRIXC", MB_OK | MB_ICONERROR);
        CleanUp(dialog, state);
        return;
    }
    HOSTINFO* controller = state->console->m_pPartner;
    if (!controller) {
        CleanUp(dialog, state);
        return;
    }
    char request[4 * FIRMWAREPATH_SIZE + 64];
    FormatText(request, sizeof request, "%d|%s|%s|%s|%s", state->console->m_nConsoleNumber, state->firmware,
               state->database, state->font, state->password.password);
    WriteVariable(controller, "ZEL4000.FirmwareUpdate", request, REQTYPE_TEXT);
    SecureZeroMemory(request, sizeof request);
    EnableButtons(dialog, FALSE);
    state->uploading = true;
    SetTimer(dialog, TIMER_UPLOAD, kUploadPeriod, NULL);
    ShowWindow(GetDlgItem(dialog, IDC_FIRMWARE_PROGRESS), SW_SHOW);
}

// The text of one file's upload, from the console's "Update.State" and "Update.Percent".
void FileText(UPDATEDIALOG* state, int file, char* text, size_t size, int* percent)
{
    uint8_t fileState = 0;
    REQUEST readState = {REQ_READ, 0, REQTYPE_BYTE, REQMODE_EDIT, &fileState, "Update.State", nullptr};
    AskConsole(state->console, &readState);
    REQUEST readPercent = {REQ_READ, 0, REQTYPE_INT, REQMODE_EDIT, percent, "Update.Percent", nullptr};
    AskConsole(state->console, &readPercent);
    switch (fileState) {
    case 0: FormatText(text, size, "File-%d: Idle State (%d%%)", file, *percent); break;
    case 1: FormatText(text, size, "File-%d: Sending Erase Command and Waiting for Positive Acknowledge...(%d%%)", file, *percent); break;
    case 2: FormatText(text, size, "File-%d: Initializing Firmware transfer...(%d%%)", file, *percent); break;
    case 3: FormatText(text, size, "File-%d: Uploading File in chunks...(%d%%)", file, *percent); break;
    // Copied as they stand: their "%d" and the doubled parenthesis show on screen.
    case 4: CopyText(text, size, "File-%d: Uploaded successfully.(100%))"); break;
    case 5: CopyText(text, size, "File-%d: Error encountered while Uploading.(100%)"); break;
    case 6: FormatText(text, size, "File-%d: Checking the version of installed fonts (%d%%)", file, *percent); break;
    default: CopyText(text, size, ""); break;
    }
}

void Update_Poll(HWND dialog, UPDATEDIALOG* state)
{
    uint8_t overall = 0;
    HOSTINFO* controller = state->console->m_pPartner;
    if (!controller || !ReadVariable(controller, "ZEL4000.FirmwareUpdateState", &overall, REQTYPE_BYTE))
        return;
    char text[256] = "";
    int percent = 0;
    switch (overall) {
    case 0: CopyText(text, "Idle State"); break;
    case 1: CopyText(text, "Uploading files to device"); break;
    case 2: case 3: case 4: FileText(state, overall - 1, text, sizeof text, &percent); break;
    case 5: CopyText(text, "Firmware update successfully completed"); percent = 100; break;
    case 6: CopyText(text, "Firmware update failed!"); percent = 100; break;
    default: break;  // no text, no progress
    }
    SetDlgItemTextA(dialog, IDC_FIRMWARE_STATE, text);
    SendDlgItemMessageA(dialog, IDC_FIRMWARE_PROGRESS, PBM_SETPOS, (WPARAM)percent, 0);
    if (overall == 5 || overall == 6)
        CleanUp(dialog, state);
}

// The state text and the notice are red on the dialog's flat colours.
void Update_AlertColour(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int id = GetDlgCtrlID((HWND)lParam);
    if (message == WM_CTLCOLORSTATIC && (id == IDC_FIRMWARE_STATE || id == IDC_FIRMWARE_NOTICE))
        SetTextColor((HDC)wParam, kAlertText);
}

void Update_Destroy(HWND dialog, UPDATEDIALOG* state)
{
    KillTimer(dialog, TIMER_UPLOAD);
    DeleteExtractedFiles(&state->extracted);
    SecureZeroMemory(&state->password, sizeof state->password);
    FreeDialogState<UPDATEDIALOG>(dialog);
}

INT_PTR Update_Dispatch(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        Update_Init(dialog, reinterpret_cast<CONSOLEPROPERTIES*>(lParam));
        return TRUE;
    }
    UPDATEDIALOG* state = DialogState<UPDATEDIALOG>(dialog);
    if (!state)
        return FALSE;
    INT_PTR flat = 0;
    if (FlatDialogMessage(message, wParam, lParam, &flat)) {
        Update_AlertColour(message, wParam, lParam);
        return flat;
    }
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == IDC_FIRMWARE_START && HIWORD(wParam) == BN_CLICKED)
            Update_Start(dialog, state);
        else if (LOWORD(wParam) == IDCANCEL && !state->uploading)
            EndDialog(dialog, 1);  // CLOSE; impossible while an upload runs
        return TRUE;
    case WM_TIMER:
        if (wParam == TIMER_UPLOAD)
            Update_Poll(dialog, state);
        return TRUE;
    case WM_DESTROY:
        Update_Destroy(dialog, state);
        return TRUE;
    default:
        return FALSE;
    }
}

}  // namespace

INT_PTR CALLBACK FirmwareUpdateDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedDialogProc<Update_Dispatch>(dialog, message, wParam, lParam);
}

INT_PTR RunFirmwareUpdate(HINSTANCE module, HWND owner, CONSOLEPROPERTIES* console)
{
    return DialogBoxParamA(module, MAKEINTRESOURCEA(IDD_FIRMWAREUPDATE), owner, FirmwareUpdateDialogProc,
                           (LPARAM)console);
}
