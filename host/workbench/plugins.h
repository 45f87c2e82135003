// How a host application of the stand-in loads device plug-ins: with
// LoadLibrary, as the real host does, and then handing each the host's clock.
// Shared by the workbench and the tests.
#pragma once

#include <windows.h>

// The simulated controllers' DLL, beside the host program.
extern const char kControllersDll[];

// "FOLDER\\name" in the folder of the host program.
void HostFolderFile(const char* name, char* path, size_t size);
// Loads a device plug-in; null (GetLastError tells why) when it does not load.
HMODULE LoadDevicePlugin(const char* path);
// Sets a variable of a simulated device or controller through the loaded
// controllers' entry; FALSE when the controllers are not loaded or refuse it.
BOOL SimulateDevice(LPCSTR object, LPCSTR variable, int value);
