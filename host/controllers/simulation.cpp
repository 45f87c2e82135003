// The entry through which a host application plays the devices behind its
// controllers: switching consoles on and off, raising faults, setting what a
// device reports.
#include "simulation.h"

#include "controller.h"

#include "../../base/banned.h"

namespace {

struct DEVICESEARCH {
    const char* console;
    CONTROLLER* controller;  // the one the console is connected to, else any that knows it
};

BOOL FindControllerOf(LPCSTR, void* value, void* context)
{
    DEVICESEARCH* search = static_cast<DEVICESEARCH*>(context);
    CONTROLLER* controller = AsController(static_cast<HOSTINFO*>(value));
    SIMDEVICE* device = controller ? controller->Device(search->console, false) : nullptr;
    if (!device)
        return TRUE;
    search->controller = controller;
    return !device->connected;
}

BOOL SimulateConsole(HOSTINFO* console, LPCSTR variable, int value)
{
    HOSTINFO* root = a_FindRootHostinfo(console);
    CHashTable* objects = root ? root->GetHostinfoTable() : nullptr;
    DEVICESEARCH search = {console->m_szName, nullptr};
    if (objects)
        objects->Enumerate(FindControllerOf, &search);
    if (!search.controller)
        return FALSE;
    SIMDEVICE* device = search.controller->Device(console->m_szName, false);
    bool done = false;
    if (strcmp(variable, "online") == 0) {
        device->SwitchOn(value != 0, GetTickCount());
        done = true;
    } else {
        done = device->Write(variable, value, GetTickCount());
    }
    InvalidateRect(search.controller->m_hWnd, NULL, TRUE);
    return done;
}

}  // namespace

extern "C" __declspec(dllexport) BOOL SimulateDevice(LPCSTR object, LPCSTR variable, int value)
{
    if (!object || !variable)
        return FALSE;
    try {
        HOSTINFO* obj = a_FindHostinfo(object);
        if (!obj)
            return FALSE;
        if (CONTROLLER* controller = AsController(obj))
            return controller->Simulate(variable, value);
        return SimulateConsole(obj, variable, value);
    } catch (...) {
        TRACE("SimulateDevice %s %s: failed\n", object, variable);
        return FALSE;
    }
}
