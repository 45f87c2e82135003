// The plug-in's developer trace. Platform-free code calls Trace(); the DLL
// sends it to the host's TRACE, native tests collect it.
#pragma once

#include "text.h"

void Trace(const char* format, ...) TEXT_PRINTF(1, 2);
