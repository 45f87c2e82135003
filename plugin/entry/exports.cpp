#include "exports.h"

#include "../firmware/extraction.h"
#include "module.h"

#include "../../base/trace.h"
#include "../../base/banned.h"

INT_PTR fnCallback(int code, HOSTINFO* /*host*/, LPARAM /*param*/)
{
    switch (code) {
    case 1:
        // The add-consoles dialog is not built yet; -1 is a dialog's failure.
        Trace("fnCallback 1: the add-consoles dialog is not implemented yet\n");
        return -1;
    case 13:
        return (INT_PTR)BuildString();
    default:
        return 0;
    }
}

FILE* l_FileOpen(const char* folder, const char* relative, const char* mode)
{
    return OpenFileCreatingFolders(folder, relative, mode);
}

BOOL CALLBACK EnumChildDrawBackground(HWND child, LPARAM)
{
    InvalidateRect(child, NULL, TRUE);
    UpdateWindow(child);
    return TRUE;
}
