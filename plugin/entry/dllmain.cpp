// Library start-up: everything the module needs is set up at process attach,
// in this order, and kept until the process ends.
#include <windows.h>
#include <commctrl.h>

#include "classes.h"
#include "module.h"
#include "../device/consolekeywords.h"

#include "../../base/guard.h"
#include "../../base/banned.h"

namespace {

BOOL AttachProcess(HINSTANCE instance)
{
    SetModuleInstance(instance);
    RegisterCanvasClass(instance);
    RegisterAllClasses(instance);
    LoadSmallConsoleImages();
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    BuildConsoleKeywordTable();
    CreateSharedTooltip();
    return TRUE;
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason != DLL_PROCESS_ATTACH)
        return TRUE;
    // A start-up that threw refuses the load rather than leaving a half-made module.
    return GuardedCall<BOOL>("DllMain", FALSE, [&] { return AttachProcess(instance); });
}
