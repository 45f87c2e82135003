// "connection": the controller port a console is connected to. Connecting
// finds a free address on the controller's bus, makes the controller the
// partner and sends it the stored settings; reconnecting settles the
// fire-emergency monitoring between the old and the new controller.
#include <string>

#include "consoleproperties.h"
#include "designlines.h"
#include "handlerkit.h"
#include "handlers.h"

#include "../../base/banned.h"

namespace {

// "CONTROLLER.PORT", split at its first ".".
bool IsConsoleName(const char* name)
{
    return strstr(name, "ELKCST_") || strstr(name, "ORNCST_");
}

// Every stored setting, fed back as an edit so that its handler writes it
// through to the device, in the order the device expects them.
void ResendSettings(CONSOLEPROPERTIES* c)
{
    const CONSOLESETTINGS& s = c->m_settings;
    const struct {
        const char* keyword;
        int value;
    } settings[] = {
        {"CANTermination", s.canTermination},
        {"BgmMenuActive", s.bgmMenuActive},
        {"ShowLineMonitoring", s.showLineMonitoring},
        {"ShowPowerManagementStates", s.showPowerManagementStates},
        {"Buzzer", s.buzzer},
        {"ShowDate", s.showDate},
        {"Compressor", s.compressor},
        {"reportFaults", s.reportFaults},
        {"FaultMask1", s.faultMask[1]},
        {"FaultMask2", s.faultMask[2]},
        {"FaultMask3", s.faultMask[3]},
        {"FaultMask4", s.faultMask[4]},
        {"FaultMask5", s.faultMask[5]},
        {"FaultMask6", s.faultMask[6]},
        {"FaultMaskTest", s.faultMask[FAULTMASK_TEST]},
        {"FaultMask8", s.faultMask[8]},
        {"FaultMask9", s.faultMask[9]},
        {"FaultMask10", s.faultMask[10]},
    };
    for (const auto& setting : settings) {
        char line[64];
        FormatText(line, sizeof line, "%s=%d", setting.keyword, setting.value);
        c->LoadEdit(line);
    }
}

// Every key that carries a function, as "CONSOLE.keyNNN" with its record.
void SendKeyConfiguration(CONSOLEPROPERTIES* c)
{
    for (int key = 0; key < CONSOLE_KEY_COUNT; key++) {
        if (c->m_keys[key].functionId == 0)
            continue;
        char word[16];
        FormatText(word, sizeof word, "key%03d", key);
        WriteConsoleVariable(c, word, FormatKeyRecord(c->m_keys[key]).c_str(), REQTYPE_TEXT);
    }
}

// Leaves the old controller: the monitoring goes off first when the console
// will not be connected anywhere afterwards.
void Disconnect(CONSOLEPROPERTIES* c, bool staysConnected)
{
    const CONNECTIONTEXT old = SplitConnection(FirstConnectionText(c));
    if (HOSTINFO* controller = a_FindHostinfo(old.controller.c_str())) {
        if (!staysConnected && c->m_pPartner)
            WriteMonitoring(c, 0);
        char position[HOSTNAME_SIZE + 16];
        FormatText(position, sizeof position, "%s,%d", old.port.c_str(), c->m_settings.address);
        if (controller->OnDisconnectSource(c->m_szName, position))
            c->m_pPartner = nullptr;
    }
    EmptyConnections(c);
}

// Tries the console's address and the ones above it, up to 16.
bool Connect(CONSOLEPROPERTIES* c, const CONNECTIONTEXT& next, const char* text)
{
    HOSTINFO* controller = a_FindHostinfo(next.controller.c_str());
    if (!controller || !IsConsoleName(c->m_szName))
        return false;
    int address = c->m_settings.address;
    for (;; address++) {
        if (address > 16)
            return false;
        char position[HOSTNAME_SIZE + 32];
        FormatText(position, sizeof position, "%s,%d,%d", next.port.c_str(), address, c->m_model);
        if (controller->OnConnectSource(c->m_szName, position))
            break;
    }
    c->m_settings.address = address;
    AddConnection(c, text, controller);
    c->m_pPartner = controller;
    ResendSettings(c);
    SendKeyConfiguration(c);
    return true;
}

int ReadConnection(REQUEST* r, CONSOLEPROPERTIES* c)
{
    const CONNECTION* first = FirstConnection(c);
    if (!first) {
        AnswerText(r, "No Connection");
        return 0;
    }
    const CONNECTIONTEXT parts = SplitConnection(first->item.text);
    // By name: the entry's target may be an object the user has deleted since.
    HOSTINFO* target = a_FindHostinfo(parts.controller.c_str());
    if (!target)
        return 0;
    char* text = TextOf(r);
    if (!target->m_hWnd || !SendMessageA(target->m_hWnd, WM_HOST_GETDISPLAYTEXT, 0, (LPARAM)text))
        CopyText(text, REQUEST_TEXT_SIZE, target->m_szName);
    if (const char* dot = strchr(first->item.text, '.'))
        AppendText(text, REQUEST_TEXT_SIZE, dot);
    return 1;
}

}  // namespace

int ConnectionHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (IsRead(r, REQTYPE_TEXT))
        return ReadConnection(r, c);
    if (!IsWrite(r, REQTYPE_TEXT) || c->IsOnline())
        return 0;

    const std::string text = TextOf(r);
    const CONNECTIONTEXT next = SplitConnection(text.c_str());
    const uint8_t monitoring = c->m_settings.fireEmergencyMonitoring;
    std::string oldController;
    if (const char* current = FirstConnectionText(c)) {
        oldController = SplitConnection(current).controller;
        Disconnect(c, next.valid);
    }

    const bool connected = next.valid && Connect(c, next, text.c_str());
    if (connected && next.controller == oldController)
        WriteMonitoring(c, monitoring);
    else if (connected && !oldController.empty())
        WriteMonitoring(c, 0);
    else if (!connected)
        c->m_pPartner = nullptr;
    c->RefreshCanvas(true);
    return connected ? 1 : 0;
}
