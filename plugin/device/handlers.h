// The console's keyword handlers, wired into the keyword table. A family's
// handler takes the member number (keywordfamilies.h makes the members).
#pragma once

#include "keywordtable.h"
#include "consolesettings.h"

// Identity and placement.
int TypeHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int AddressHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int PriorityHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int NameHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int HostRectHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int LayerHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int OnlineHandler(REQUEST* r, CONSOLEPROPERTIES* c);

// The controller port ("CONTROLLER.PORT").
int ConnectionHandler(REQUEST* r, CONSOLEPROPERTIES* c);

// Values the device reports.
int BootFirmwareHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int FirmwareHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int RuntimeHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int StateHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int OperatingModeHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int UpdatePercentHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int UpdateStateHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int MasterFaultHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int BaudrateFreezeHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int BaudrateHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int SlotHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int WatchdogClearHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int WatchdogCounterHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int FaultsHandler(REQUEST* r, CONSOLEPROPERTIES* c, int n);      // Faults1 .. Faults10
int StateFlagsHandler(REQUEST* r, CONSOLEPROPERTIES* c, int n);  // StateFlags1 .. StateFlags8

// Key slots (records of the key model).
int KeyHandler(REQUEST* r, CONSOLEPROPERTIES* c, int key);          // key000 .. key127
int NumericKeyHandler(REQUEST* r, CONSOLEPROPERTIES* c, int key);   // NumericKey0 .. NumericKey11
int OptionStateHandler(REQUEST* r, CONSOLEPROPERTIES* c, int key);  // key0120OptionState .. key0122OptionState
int PagingListHandler(REQUEST* r, CONSOLEPROPERTIES* c);

// Extensions.
int ExtensionTypesHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int ExtensionCountHandler(REQUEST* r, CONSOLEPROPERTIES* c);

// Stored switches and texts.
int PttActiveHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int GeneratePilotHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int DecadicSelectionHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int EmergencyKeysHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int LedsHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int ConfigurationHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int InputChannelListHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int KeyLabelHandler(REQUEST* r, CONSOLEPROPERTIES* c, int key);  // keylabel000 .. keylabel127

// Settings the device mirrors: a family of their own, and the fault masks.
enum MIRROREDSETTING {
    MIRRORED_PRECHIME,                // preChimeActive
    MIRRORED_REPORTFAULTS,            // reportFaults
    MIRRORED_COMPRESSOR,              // Compressor
    MIRRORED_SHOWDATE,                // ShowDate
    MIRRORED_BUZZER,                  // Buzzer
    MIRRORED_CANTERMINATION,          // CANTermination
    MIRRORED_BGMMENU,                 // BgmMenuActive
    MIRRORED_SHOWLINEMONITORING,      // ShowLineMonitoring
    MIRRORED_SHOWPOWERMANAGEMENT,     // ShowPowerManagementStates
    MIRRORED_COUNT,
};
int MirroredSettingHandler(REQUEST* r, CONSOLEPROPERTIES* c, int setting);
int FaultMaskHandler(REQUEST* r, CONSOLEPROPERTIES* c, int mask);  // 1 .. 10, 7 = FaultMaskTest
int FindHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int FireEmergencyMonitoringHandler(REQUEST* r, CONSOLEPROPERTIES* c);

enum MONITORSEARCHRULE {
    MONITORSEARCH_ANY_OTHER,            // any console object but self
    MONITORSEARCH_SKIP_NAMES_WITH_OWN,  // also skip names that contain self's name
};
// Whether another console of the design has its fire-emergency monitoring on.
bool AnotherConsoleMonitors(const CONSOLEPROPERTIES* self, MONITORSEARCHRULE rule);

// Stores the monitoring switch and sends it to the partner, when there is one.
void WriteMonitoring(CONSOLEPROPERTIES* c, uint8_t on);
