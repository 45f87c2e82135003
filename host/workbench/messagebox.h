// Telling a message box from other dialogs, for the hooks that answer them.
#pragma once

#include <windows.h>
#include <string.h>

// A message box is a dialog with its text in control 0xFFFF and no edit field.
inline bool IsMessageBox(HWND window)
{
    char className[16] = "";
    GetClassNameA(window, className, sizeof className);
    return strcmp(className, "#32770") == 0 && GetDlgItem(window, 0xFFFF) && !FindWindowExA(window, NULL, "Edit", NULL);
}
