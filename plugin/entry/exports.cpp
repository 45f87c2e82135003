#include "exports.h"

#include "../firmware/extraction.h"
#include "../manager/addconsolesdialog.h"
#include "module.h"

#include "../../base/guard.h"
#include "../../base/trace.h"
#include "../../base/banned.h"

namespace {

INT_PTR Callback(int code, HOSTINFO* host, LPARAM param)
{
    switch (code) {
    case 1:
        return RunAddConsolesDialog(host, reinterpret_cast<const char*>(param));
    case 13:
        return (INT_PTR)BuildString();
    default:
        return 0;
    }
}

}  // namespace

INT_PTR fnCallback(int code, HOSTINFO* host, LPARAM param)
{
    return GuardedCall<INT_PTR>("fnCallback", 0, [&] { return Callback(code, host, param); });
}

FILE* l_FileOpen(const char* folder, const char* relative, const char* mode)
{
    return GuardedCall<FILE*>("l_FileOpen", nullptr, [&] { return OpenFileCreatingFolders(folder, relative, mode); });
}

BOOL CALLBACK EnumChildDrawBackground(HWND child, LPARAM)
{
    // Repainting calls the child's own (guarded) procedure; TRUE goes on with the next child.
    return GuardedCall<BOOL>("EnumChildDrawBackground", TRUE, [&] {
        InvalidateRect(child, NULL, TRUE);
        UpdateWindow(child);
        return TRUE;
    });
}
