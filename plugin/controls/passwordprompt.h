// The password prompt (dialog 204) before a firmware upload.
#pragma once

#include <windows.h>

#include "../resources/resource.h"

enum { PASSWORD_LENGTH = 16 };

class HOSTINFO;

// The caller's record: the password typed, when the prompt ends with OK;
// the controller asked and the value type it takes (5) come with it.
struct PASSWORDREQUEST {
    char password[PASSWORD_LENGTH + 1];
    HOSTINFO* controller;
    int type;
};

INT_PTR CALLBACK PasswordPromptProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
// Runs the prompt modally; IDOK with the password in the record, or IDCANCEL.
INT_PTR PromptForPassword(HINSTANCE module, HWND owner, PASSWORDREQUEST* request);
