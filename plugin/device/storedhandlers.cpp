// Handlers of settings the design file keeps and the device does not mirror:
// extensions, switches, texts and key labels.
#include "consoleproperties.h"
#include "designlines.h"
#include "handlerkit.h"
#include "handlers.h"
#include "../console/consoleview.h"
#include "../console/ledstates.h"

#include "../../base/banned.h"

namespace {

void SetExtensionCount(CONSOLEPROPERTIES* c, int count)
{
    c->m_settings.extensionCount = count;
    for (int slot = 0; slot < CONSOLE_EXTENSION_SLOTS; slot++)
        c->m_settings.extensionSlots[slot] = slot < count ? 1 : 0;
}

}  // namespace

// Five slots read as "1,0,0,0,0"; a write keeps only how many are not 0.
int ExtensionTypesHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (IsRead(r, REQTYPE_TEXT)) {
        const uint8_t* slots = c->m_settings.extensionSlots;
        return AnswerText(r, "%d,%d,%d,%d,%d", slots[0], slots[1], slots[2], slots[3], slots[4]);
    }
    if (!IsWrite(r, REQTYPE_TEXT) || c->IsOnline())
        return 0;
    ZeroMemory(c->m_settings.extensionSlots, sizeof c->m_settings.extensionSlots);
    const int used = CountExtensionTypes(TextOf(r), CONSOLE_EXTENSION_SLOTS);
    char line[64];
    FormatText(line, sizeof line, "ExtensionCount=%d", used);
    return (int)c->LoadEdit(line);
}

int ExtensionCountHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (IsRead(r, REQTYPE_INT)) {
        *static_cast<int*>(r->value) = c->m_settings.extensionCount;
        return 1;
    }
    if (IsRead(r, REQTYPE_TEXT))
        return AnswerText(r, "%d", c->m_settings.extensionCount);
    int count = 0;
    if (!IsWrite(r, REQTYPE_TEXT) || !ScanLeadingInt(TextOf(r), &count) || count < 0 ||
        count > CONSOLE_EXTENSION_SLOTS)
        return 0;
    SetExtensionCount(c, count);
    c->RefreshCanvas(true);
    c->NotifyConsoleView(CVM_CONSOLECHANGED, 0, 0);
    return 1;
}

int PttActiveHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return StoredToggle(r, &c->m_settings.pttActive);
}

int GeneratePilotHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return StoredToggle(r, &c->m_settings.generatePilot);
}

int DecadicSelectionHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    const int answer = StoredToggle(r, &c->m_settings.decadicSelectionActive);
    if (answer && r->operation == REQ_WRITE)
        c->NotifyConsoleView(CVM_KEYCHANGED, 0, -1);  // the numeric keys change their look
    return answer;
}

int EmergencyKeysHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return StoredText(r, c->m_settings.emergencyCstKeys, sizeof c->m_settings.emergencyCstKeys);
}

// The LED states of the console face: one hexadecimal digit per key, as the
// device reports them. An open console view shows them at once.
int LedsHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (IsRead(r, REQTYPE_TEXT))
        return AnswerText(r, "%s", FormatLedStates(c->m_ledStates).c_str());
    if (!IsWrite(r, REQTYPE_TEXT) || !ParseLedStates(TextOf(r), c->m_ledStates))
        return 0;
    c->NotifyConsoleView(CVM_REFRESHLEDS, 0, 0);
    return 1;
}

int ConfigurationHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return StoredText(r, c->m_settings.configuration, sizeof c->m_settings.configuration);
}

int InputChannelListHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return StoredText(r, c->m_settings.inputChannels, sizeof c->m_settings.inputChannels);
}

int KeyLabelHandler(REQUEST* r, CONSOLEPROPERTIES* c, int key)
{
    const int answer = StoredText(r, c->m_settings.keyLabels[key], KEYLABEL_SIZE);
    if (answer && r->operation == REQ_WRITE)
        c->NotifyConsoleView(CVM_KEYCHANGED, 0, key);
    return answer;
}
