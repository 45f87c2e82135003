// Every keyword of a console object: the single keywords and the families of
// keywordfamilies.h. The lookup works on the sorted table, so the families are
// added whole where their first member stands.
#include "consolekeywords.h"

#include "handlers.h"
#include "keywordfamilies.h"

#include "../../base/banned.h"

namespace {

const uint32_t S = KEYWORD_SAVED;
const uint32_t L = KEYWORD_LISTED;
const uint32_t SL = KEYWORD_SAVED | KEYWORD_LISTED;

KEYWORDTABLE& Table()
{
    static KEYWORDTABLE table;
    return table;
}

int SentinelHandler(REQUEST*, CONSOLEPROPERTIES*)
{
    return 0;
}

}  // namespace

void BuildConsoleKeywordTable()
{
    KEYWORDTABLE& t = Table();
    t.Add(" ", SentinelHandler, 0, 0);
    t.Add("type", TypeHandler, 0, SL);
    t.Add("connection", ConnectionHandler, 0, L);
    t.Add("address", AddressHandler, 0, SL);
    t.Add("baudrate", BaudrateHandler, 0, L);
    t.Add("baudratefreeze", BaudrateFreezeHandler, 0, L);
    t.Add("slot", SlotHandler, 0, L);
    AddKeywordFamily(t, KEYWORDFAMILY_MIRRORED);
    t.Add("priority", PriorityHandler, 0, SL);
    t.Add("extensionTypes", ExtensionTypesHandler, 0, 0);
    t.Add("hostrect", HostRectHandler, 0, 0);
    t.Add("layer", LayerHandler, 0, S);
    t.Add("leds", LedsHandler, 0, 0);
    t.Add("name", NameHandler, 0, SL);
    t.Add("BootFirmware.Revision", BootFirmwareHandler, 0, L);
    t.Add("Firmware.Revision", FirmwareHandler, 0, L);
    t.Add("Runtime", RuntimeHandler, 0, L);
    t.Add("State", StateHandler, 0, L);
    t.Add("OperatingMode", OperatingModeHandler, 0, L);
    t.Add("ExtensionCount", ExtensionCountHandler, 0, SL);
    t.Add("Update.Percent", UpdatePercentHandler, 0, L);
    t.Add("Update.State", UpdateStateHandler, 0, L);
    AddKeywordFamily(t, KEYWORDFAMILY_FAULTS);
    AddKeywordFamily(t, KEYWORDFAMILY_FAULTMASKS);
    t.Add("MasterFault", MasterFaultHandler, 0, L);
    t.Add("PTTActive", PttActiveHandler, 0, S);
    AddKeywordFamily(t, KEYWORDFAMILY_STATEFLAGS);
    AddKeywordFamily(t, KEYWORDFAMILY_KEYS);
    AddKeywordFamily(t, KEYWORDFAMILY_OPTIONSTATES);
    t.Add("online", OnlineHandler, 0, 0);
    t.Add("configuration", ConfigurationHandler, 0, 0);
    t.Add("generatePilot", GeneratePilotHandler, 0, SL);
    t.Add("getInputChannelList", InputChannelListHandler, 0, 0);
    AddKeywordFamily(t, KEYWORDFAMILY_KEYLABELS);
    t.Add("Watchdog.Clear", WatchdogClearHandler, 0, 0);
    t.Add("Watchdog.Counter", WatchdogCounterHandler, 0, 0);
    t.Add("Find", FindHandler, 0, L);
    t.Add("DecadicSelectionActive", DecadicSelectionHandler, 0, SL);
    AddKeywordFamily(t, KEYWORDFAMILY_NUMERICKEYS);
    t.Add("GetCSTPagingList", PagingListHandler, 0, 0);
    t.Add("FireEmergencyMonitoring", FireEmergencyMonitoringHandler, 0, S);
    t.Add("EmergencyCSTKeys", EmergencyKeysHandler, 0, S);
    t.Finish();
}

const KEYWORDTABLE& ConsoleKeywords()
{
    return Table();
}
