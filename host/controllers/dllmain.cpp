// Controllers.dll: the simulated system controllers, a device plug-in of the
// stand-in's world that a host loads beside DOVRIXC.dll.
#include "controller.h"
#include "simulation.h"

#include "../../base/banned.h"

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved)
{
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(instance);
        RegisterControllerClasses(instance);
    } else if (reason == DLL_PROCESS_DETACH && !reserved) {
        // Only on FreeLibrary: at process exit the heap may already be gone.
        FreeRetiredControllers();
    }
    return TRUE;
}
