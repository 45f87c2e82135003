// The verbs that drive the simulated devices and the host's clock. The
// simulation's entry points are called from here (and the clock's steps
// from workbench.cpp) only: the menu's device commands come here too.
#include "workbench.h"

#include <stdio.h>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

bool Simulate(const SCRIPTCOMMAND& command, const char* variable, int value)
{
    if (!SimulateDevice(command.object.c_str(), variable, value)) {
        fprintf(stderr, "workbench: no simulated %s of %s\n", variable, command.object.c_str());
        return false;
    }
    return true;
}

bool Online(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    return Simulate(command, "online", command.value);
}

bool Fault(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    char variable[16];
    FormatText(variable, sizeof variable, "Faults%d", command.code);
    return Simulate(command, variable, command.value);
}

bool Device(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    return Simulate(command, command.text.c_str(), command.value);
}

bool AdvanceTime(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    Tick(command.code);
    return true;
}

ULONGLONG ProcessCpuMilliseconds()
{
    FILETIME created, exited, kernel, user;
    if (!GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user))
        return 0;
    const ULONGLONG k = ((ULONGLONG)kernel.dwHighDateTime << 32) | kernel.dwLowDateTime;
    const ULONGLONG u = ((ULONGLONG)user.dwHighDateTime << 32) | user.dwLowDateTime;
    return (k + u) / 10000;
}

// Real time, as a user leaves the workbench alone: what the windows do by
// themselves (blinking, polling) runs. The CPU time spent meanwhile is what
// the open windows cost while only watched, start-up left out.
bool Idle(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    const ULONGLONG before = ProcessCpuMilliseconds();
    PumpMessagesFor((DWORD)command.code);
    printf("idle %d ms: cpu %llu ms\n", command.code, ProcessCpuMilliseconds() - before);
    return true;
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_ONLINE, Online},
    {SCRIPT_FAULT, Fault},
    {SCRIPT_DEVICE, Device},
    {SCRIPT_TICK, AdvanceTime},
    {SCRIPT_IDLE, Idle},
};

}  // namespace

const VERBHANDLERS kSimulationVerbs = HandlerTable(kHandlers);
