// Analyze.dll's start and end: the run's temporary folder lives as long as
// the process that loaded the framework.
#include <windows.h>

#include "runfolder.h"

#include "../../base/banned.h"

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(instance);
        CreateRunFolder();
    } else if (reason == DLL_PROCESS_DETACH) {
        // Only the file system is touched, so this is safe at process exit too.
        RemoveRunFolder();
    }
    return TRUE;
}
