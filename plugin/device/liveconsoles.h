// The console objects this module made and that still live. Windows whose
// creation data claims to be a console check it here before using it, and the
// monitoring check walks only the consoles that monitor, so closing a design
// costs one step a console.
#pragma once

#include <unordered_set>

class CONSOLEPROPERTIES;

void AddLiveConsole(CONSOLEPROPERTIES* console);
void RemoveLiveConsole(CONSOLEPROPERTIES* console);
// The pointer is a console of this module that has not been destroyed.
bool IsLiveConsole(const void* pointer);
CONSOLEPROPERTIES* LiveConsole(void* pointer);

// Keeps the set of consoles with fire-emergency monitoring on in step with
// the console's setting.
void NoteMonitoring(CONSOLEPROPERTIES* console, bool on);
// The live consoles whose monitoring is on, in no particular order.
// Nothing may add or remove a console while the caller walks it.
const std::unordered_set<CONSOLEPROPERTIES*>& MonitoringConsoles();
