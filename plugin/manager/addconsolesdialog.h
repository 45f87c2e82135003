// The add-consoles dialog ("Call Station Dialog"): several consoles of one
// type added to a controller at free addresses in one step, by generating
// design text and having the host load it.
#pragma once

#include <windows.h>

#include "analyze.h"

// Runs the dialog modally over the design of host; type: the console type
// name ("ORN-15CST", "ORN-CSK", "ELK-15CST", "ELK-CSK"). Returns the
// dialog's result: IDOK when consoles were added, IDCANCEL, or -1.
INT_PTR RunAddConsolesDialog(HOSTINFO* host, const char* type);
