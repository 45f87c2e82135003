// The console's keyword handlers, wired into the keyword table.
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
KEYWORDHANDLER FaultsMemberHandler(int n);      // Faults1 .. Faults10
KEYWORDHANDLER StateFlagsMemberHandler(int n);  // StateFlags1 .. StateFlags8

// Key slots (records of the key model).
KEYWORDHANDLER KeyMemberHandler(int key);          // key000 .. key127
KEYWORDHANDLER NumericKeyMemberHandler(int key);   // NumericKey0 .. NumericKey11
KEYWORDHANDLER OptionStateMemberHandler(int key);  // key0120OptionState .. key0122OptionState
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
KEYWORDHANDLER KeyLabelMemberHandler(int key);  // keylabel000 .. keylabel127

// Settings the device mirrors.
int PreChimeHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int ReportFaultsHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int CompressorHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int ShowDateHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int BuzzerHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int CanTerminationHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int FindHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int BgmMenuHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int ShowLineMonitoringHandler(REQUEST* r, CONSOLEPROPERTIES* c);
int ShowPowerManagementHandler(REQUEST* r, CONSOLEPROPERTIES* c);
KEYWORDHANDLER FaultMaskMemberHandler(int mask);  // 1 .. 10, 7 = FaultMaskTest
int FireEmergencyMonitoringHandler(REQUEST* r, CONSOLEPROPERTIES* c);

enum MONITORSEARCHRULE {
    MONITORSEARCH_ANY_OTHER,            // any console object but self
    MONITORSEARCH_SKIP_NAMES_WITH_OWN,  // also skip names that contain self's name
};
// Whether another console of the design has its fire-emergency monitoring on.
bool AnotherConsoleMonitors(const CONSOLEPROPERTIES* self, MONITORSEARCHRULE rule);

// Stores the monitoring switch and sends it to the partner, when there is one.
void WriteMonitoring(CONSOLEPROPERTIES* c, uint8_t on);
