#include "passwordprompt.h"

#include "flatcontrols.h"

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

void EnableButtons(HWND dialog, BOOL enable)
{
    EnableWindow(GetDlgItem(dialog, IDOK), enable);
    EnableWindow(GetDlgItem(dialog, IDCANCEL), enable);
}

void Prompt_Init(HWND dialog, PASSWORDREQUEST* request)
{
    AttachDialogState(dialog, request);  // the caller's: not freed here
    SendDlgItemMessageA(dialog, IDC_PASSWORD, EM_LIMITTEXT, PASSWORD_LENGTH, 0);
    SetFocus(GetDlgItem(dialog, IDC_PASSWORD));
}

void Prompt_Ok(HWND dialog)
{
    PASSWORDREQUEST* request = DialogState<PASSWORDREQUEST>(dialog);
    EnableButtons(dialog, FALSE);
    char password[PASSWORD_LENGTH + 1] = "";
    GetDlgItemTextA(dialog, IDC_PASSWORD, password, sizeof password);
    if (password[0] && request) {
        CopyText(request->password, password);
        SecureZeroMemory(password, sizeof password);
        EndDialog(dialog, IDOK);
        return;
    }
    MessageBoxA(dialog, "Password field is empty. Please Enter the Password", "Error", MB_OK | MB_ICONERROR);
    SetFocus(GetDlgItem(dialog, IDC_PASSWORD));
    EnableButtons(dialog, TRUE);
}

INT_PTR Prompt_Dispatch(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    INT_PTR flat = 0;
    if (FlatDialogMessage(message, wParam, lParam, &flat))
        return flat;
    switch (message) {
    case WM_INITDIALOG:
        Prompt_Init(dialog, reinterpret_cast<PASSWORDREQUEST*>(lParam));
        return FALSE;  // the focus is set
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK)
            Prompt_Ok(dialog);
        else if (LOWORD(wParam) == IDCANCEL)
            EndDialog(dialog, IDCANCEL);
        return TRUE;
    default:
        return FALSE;
    }
}

}  // namespace

INT_PTR CALLBACK PasswordPromptProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedDialogProc<Prompt_Dispatch>(dialog, message, wParam, lParam);
}

INT_PTR PromptForPassword(HINSTANCE module, HWND owner, PASSWORDREQUEST* request)
{
    return DialogBoxParamA(module, MAKEINTRESOURCEA(IDD_PASSWORD), owner, PasswordPromptProc, (LPARAM)request);
}
