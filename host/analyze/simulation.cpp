// The host's clock and the hooks through which a host application plays the
// devices behind its controllers.
#include "controller.h"
#include "design.h"

#include "../../base/banned.h"

namespace {

DWORD& ClockOffset()
{
    static DWORD offset = 0;
    return offset;
}

struct DEVICESEARCH {
    const char* console;
    CONTROLLER* controller;  // the one the console is connected to, else any that knows it
};

BOOL FindControllerOf(HOSTINFO* obj, void* context)
{
    DEVICESEARCH* search = static_cast<DEVICESEARCH*>(context);
    CONTROLLER* controller = AsController(obj);
    SIMDEVICE* device = controller ? controller->Device(search->console, false) : nullptr;
    if (!device)
        return TRUE;
    search->controller = controller;
    return !device->connected;
}

}  // namespace

DWORD a_GetTickCount()
{
    return GetTickCount() + ClockOffset();
}

void a_AdvanceClock(DWORD milliseconds)
{
    ClockOffset() += milliseconds;
}

BOOL a_SimulateDevice(LPCSTR object, LPCSTR variable, int value)
{
    if (!object || !variable)
        return FALSE;
    if (CONTROLLER* controller = AsController(a_FindHostinfo(object)))
        return controller->Simulate(variable, value);

    DEVICESEARCH search = {object, nullptr};
    a_EnumHostinfo(FindControllerOf, &search);
    if (!search.controller)
        return FALSE;
    SIMDEVICE* device = search.controller->Device(object, false);
    bool done = false;
    if (strcmp(variable, "online") == 0) {
        device->SwitchOn(value != 0, a_GetTickCount());
        done = true;
    } else {
        done = device->Write(variable, value, a_GetTickCount());
    }
    InvalidateRect(search.controller->m_hWnd, NULL, TRUE);
    return done;
}
