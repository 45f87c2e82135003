// Every keyword of a console object, in the order the table is built; the
// lookup works on the sorted table.
#include "consolekeywords.h"

#include "handlers.h"

#include "../../base/text.h"
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

void AddNumbered(KEYWORDTABLE& table, const char* format, int first, int last, uint32_t flags,
                 KEYWORDHANDLER (*member)(int) = nullptr)
{
    for (int n = first; n <= last; n++) {
        char keyword[32];
        FormatText(keyword, sizeof keyword, format, n);
        table.Add(keyword, member ? member(n) : nullptr, 0, flags);
    }
}

void AddKeySlots(KEYWORDTABLE& table)
{
    for (int key = 0; key < 128; key++) {
        if (key >= 120 && key <= 122) {
            char option[32];
            FormatText(option, sizeof option, "key0%dOptionState", key);
            table.Add(option, OptionStateMemberHandler(key), 0, S);
        }
        char keyword[16];
        FormatText(keyword, sizeof keyword, "key%03d", key);
        table.Add(keyword, KeyMemberHandler(key), 0, S);
    }
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
    t.Add("preChimeActive", PreChimeHandler, 0, SL);
    t.Add("reportFaults", ReportFaultsHandler, 0, SL);
    t.Add("Compressor", CompressorHandler, 0, SL);
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
    AddNumbered(t, "Faults%d", 1, 10, L, FaultsMemberHandler);
    AddNumbered(t, "FaultMask%d", 1, 6, SL, FaultMaskMemberHandler);
    t.Add("FaultMaskTest", FaultMaskMemberHandler(7), 0, SL);
    AddNumbered(t, "FaultMask%d", 8, 10, SL, FaultMaskMemberHandler);
    t.Add("MasterFault", MasterFaultHandler, 0, L);
    t.Add("PTTActive", PttActiveHandler, 0, S);
    AddNumbered(t, "StateFlags%d", 1, 8, L, StateFlagsMemberHandler);
    t.Add("ShowDate", ShowDateHandler, 0, SL);
    AddKeySlots(t);
    t.Add("online", OnlineHandler, 0, 0);
    t.Add("configuration", ConfigurationHandler, 0, 0);
    t.Add("generatePilot", GeneratePilotHandler, 0, SL);
    t.Add("getInputChannelList", InputChannelListHandler, 0, 0);
    AddNumbered(t, "keylabel%03d", 0, 127, S, KeyLabelMemberHandler);
    t.Add("Buzzer", BuzzerHandler, 0, SL);
    t.Add("Watchdog.Clear", WatchdogClearHandler, 0, 0);
    t.Add("Watchdog.Counter", WatchdogCounterHandler, 0, 0);
    t.Add("CANTermination", CanTerminationHandler, 0, SL);
    t.Add("Find", FindHandler, 0, L);
    t.Add("BgmMenuActive", BgmMenuHandler, 0, SL);
    t.Add("ShowLineMonitoring", ShowLineMonitoringHandler, 0, SL);
    t.Add("ShowPowerManagementStates", ShowPowerManagementHandler, 0, SL);
    t.Add("DecadicSelectionActive", DecadicSelectionHandler, 0, SL);
    AddNumbered(t, "NumericKey%d", 0, 11, S, NumericKeyMemberHandler);
    t.Add("GetCSTPagingList", PagingListHandler, 0, 0);
    t.Add("FireEmergencyMonitoring", FireEmergencyMonitoringHandler, 0, S);
    t.Add("EmergencyCSTKeys", EmergencyKeysHandler, 0, S);
    t.Finish();
}

const KEYWORDTABLE& ConsoleKeywords()
{
    return Table();
}
