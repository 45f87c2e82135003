#include "liveconsoles.h"

#include "../../base/banned.h"

namespace {

std::unordered_set<const void*>& Live()
{
    static std::unordered_set<const void*> consoles;
    return consoles;
}

std::unordered_set<CONSOLEPROPERTIES*>& Monitoring()
{
    static std::unordered_set<CONSOLEPROPERTIES*> consoles;
    return consoles;
}

}  // namespace

void AddLiveConsole(CONSOLEPROPERTIES* console)
{
    Live().insert(console);
}

void RemoveLiveConsole(CONSOLEPROPERTIES* console)
{
    Live().erase(console);
    Monitoring().erase(console);
}

bool IsLiveConsole(const void* pointer)
{
    return pointer && Live().count(pointer) != 0;
}

CONSOLEPROPERTIES* LiveConsole(void* pointer)
{
    return IsLiveConsole(pointer) ? static_cast<CONSOLEPROPERTIES*>(pointer) : nullptr;
}

void NoteMonitoring(CONSOLEPROPERTIES* console, bool on)
{
    if (!IsLiveConsole(console))
        return;
    if (on)
        Monitoring().insert(console);
    else
        Monitoring().erase(console);
}

const std::unordered_set<CONSOLEPROPERTIES*>& MonitoringConsoles()
{
    return Monitoring();
}
