// What Controllers.dll, the simulated system controllers, offers a host
// application beside its window classes "ORNCON" and "ELKCON".
#pragma once

#include <windows.h>

// "SimulateDevice": object names a controller, whose variable is set
// ("CAN.Baudrate" for "ORNCON_1.CAN.Baudrate", or a controller-wide name such
// as "online"), or a console known to a controller, whose device variable is
// set ("Faults3", "FirmwareRevision5"; "online" switches the device on or
// off). FALSE when nothing took it.
typedef BOOL (*SIMULATEDEVICE)(LPCSTR object, LPCSTR variable, int value);
inline constexpr char kSimulateDeviceEntry[] = "SimulateDevice";
