// The configuration window's "Supervision" page: nine fault rows with lamps
// and mask toggles, the combined lamp, CLEAR for the watchdog and TEST.
#pragma once

#include <windows.h>

class CONSOLEPROPERTIES;

// Creates the page (hidden) as a child of the configuration window.
HWND CreateDiagnosticsPage(HWND parent, CONSOLEPROPERTIES* console);
