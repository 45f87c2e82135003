#include "plugins.h"

#include "analyze_host.h"
#include "../controllers/simulation.h"

#include "../../base/text.h"
#include "../../base/banned.h"

const char kControllersDll[] = "Controllers.dll";

void HostFolderFile(const char* name, char* path, size_t size)
{
    char module[MAX_PATH] = "";
    GetModuleFileNameA(NULL, module, sizeof module);
    char* slash = strrchr(module, '\\');
    if (slash)
        slash[1] = '\0';
    FormatText(path, size, "%s%s", slash ? module : "", name);
}

HMODULE LoadDevicePlugin(const char* path)
{
    HMODULE module = LoadLibraryA(path);
    // A plug-in that never asks the time has nothing to redirect.
    if (module)
        a_UseHostClock(module);
    return module;
}

BOOL SimulateDevice(LPCSTR object, LPCSTR variable, int value)
{
    HMODULE controllers = GetModuleHandleA(kControllersDll);
    SIMULATEDEVICE simulate =
        controllers ? (SIMULATEDEVICE)(void*)GetProcAddress(controllers, kSimulateDeviceEntry) : nullptr;
    return simulate ? simulate(object, variable, value) : FALSE;
}
