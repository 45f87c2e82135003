// Handlers of the settings the device holds as well, and the fire-emergency
// monitoring switch.
#include "consoleproperties.h"
#include "handlerkit.h"
#include "handlers.h"
#include "liveconsoles.h"
#include "partner.h"

#include "../../base/banned.h"

namespace {

const char kMonitoringVariable[] = "SystemMonitoringOnEmergency";
const char kMonitoringWarning[] =
    "A configured Monitoring consumes one of the available Program Channels.\n\n"
    "Please check Program Channel value on Topology/Zones Tab of\n"
    "the associated controller to avoid any Program Channel related\n"
    "configuration errors.";

// The device's variable of each mirrored setting, in the order of MIRROREDSETTING.
struct MIRROREDVARIABLE {
    const char* variable;
    uint8_t CONSOLESETTINGS::*field;
};
const MIRROREDVARIABLE kMirroredVariables[] = {
    {"PreChimeAllowed", &CONSOLESETTINGS::preChimeActive},
    {"ReportFaults", &CONSOLESETTINGS::reportFaults},
    {"Compressor", &CONSOLESETTINGS::compressor},
    {"ShowDate", &CONSOLESETTINGS::showDate},
    {"Buzzer", &CONSOLESETTINGS::buzzer},
    {"CANTermination", &CONSOLESETTINGS::canTermination},
    {"BGM_Menu", &CONSOLESETTINGS::bgmMenuActive},
    {"ShowLineMonitoring", &CONSOLESETTINGS::showLineMonitoring},
    {"ShowPowerManagementStates", &CONSOLESETTINGS::showPowerManagementStates},
};
static_assert(sizeof kMirroredVariables / sizeof kMirroredVariables[0] == MIRRORED_COUNT, "one variable per setting");

// Monitoring takes a program channel of the controller: warn unless another
// console monitors already or the controller has its local source set up.
void WarnAboutProgramChannel(CONSOLEPROPERTIES* c)
{
    bool channelTaken = AnotherConsoleMonitors(c, MONITORSEARCH_ANY_OTHER);
    uint8_t localSource = 0;
    if (c->m_pPartner && ReadVariable(c->m_pPartner, "ProgramLocalSorceConfig", &localSource, REQTYPE_BYTE) &&
        localSource)
        channelTaken = true;
    if (!channelTaken)
        MessageBoxA(NULL, kMonitoringWarning, "WARNING", MB_OK | MB_ICONWARNING);
}

}  // namespace

// Only consoles whose monitoring is on can answer yes, so only they are
// walked: a design that closes pays one step a console, not one a pair.
bool AnotherConsoleMonitors(const CONSOLEPROPERTIES* self, MONITORSEARCHRULE rule)
{
    HOSTINFO* root = a_FindRootHostinfo(const_cast<CONSOLEPROPERTIES*>(self));
    for (CONSOLEPROPERTIES* console : MonitoringConsoles()) {
        if (console == self || !console->m_settings.fireEmergencyMonitoring || a_FindRootHostinfo(console) != root)
            continue;
        if (!strstr(console->m_szName, "ELKCST_") && !strstr(console->m_szName, "ORNCST_"))
            continue;
        if (rule == MONITORSEARCH_SKIP_NAMES_WITH_OWN && strstr(console->m_szName, self->m_szName))
            continue;
        if (AsConsole(console))
            return true;
    }
    return false;
}

int FaultMaskHandler(REQUEST* r, CONSOLEPROPERTIES* c, int mask)
{
    if (mask < 1 || mask > FAULTMASK_COUNT)
        return 0;
    char variable[32];
    if (mask == FAULTMASK_TEST)
        CopyText(variable, "FaultMaskTest");
    else
        FormatText(variable, sizeof variable, "FaultMask%d", mask);
    return MirroredSetting(r, c, &c->m_settings.faultMask[mask], variable);
}

int MirroredSettingHandler(REQUEST* r, CONSOLEPROPERTIES* c, int setting)
{
    if (setting < 0 || setting >= MIRRORED_COUNT)
        return 0;
    const MIRROREDVARIABLE& mirrored = kMirroredVariables[setting];
    return MirroredSetting(r, c, &(c->m_settings.*mirrored.field), mirrored.variable);
}

// Device identification: live, but read and written as the mirrored settings are.
int FindHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return MirroredSetting(r, c, &c->m_settings.find, "Find");
}

void WriteMonitoring(CONSOLEPROPERTIES* c, uint8_t on)
{
    c->m_settings.fireEmergencyMonitoring = on;
    NoteMonitoring(c, on != 0);
    if (c->m_pPartner)
        WriteVariable(c->m_pPartner, kMonitoringVariable, &c->m_settings.fireEmergencyMonitoring, REQTYPE_FLAG);
}

int FireEmergencyMonitoringHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (r->operation == REQ_READ)
        return StoredToggle(r, &c->m_settings.fireEmergencyMonitoring);
    uint8_t on = 0;
    if (!StoredToggle(r, &on))
        return 0;
    if (on && r->mode != REQMODE_DESIGNFILE)
        WarnAboutProgramChannel(c);
    WriteMonitoring(c, on);
    return 1;
}
