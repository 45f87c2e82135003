// Handlers of the values the device reports: firmware revisions, run time,
// state, faults, state flags, bus and slot, watchdog, firmware-update progress.
// Each is read through the partner; without one most answer nothing.
#include "consoleproperties.h"
#include "handlerkit.h"
#include "handlers.h"
#include "partner.h"

#include "../../base/banned.h"

namespace {

const char* const kUpdateStateTexts[] = {
    "Idle State",
    "Sending Erase Command and Waiting for Positive Acknowledge...",
    "Initializing Firmware transfer...",
    "Uploading file in chunks...",
    "Firmware updated successfully.",
    "Error encountered while updating the Firmware.",
};

// A byte of the device: the byte itself for type 2, "%d" for type 11.
int LiveByte(REQUEST* r, CONSOLEPROPERTIES* c, const char* word)
{
    uint8_t value = 0;
    if (!IsRead(r, REQTYPE_BYTE) && !IsRead(r, REQTYPE_TEXT))
        return 0;
    if (!ReadConsoleVariable(c, word, &value, REQTYPE_BYTE))
        return 0;
    if (r->type == REQTYPE_BYTE) {
        *static_cast<uint8_t*>(r->value) = value;
        return 1;
    }
    return AnswerText(r, "%d", value);
}

// An integer of the device: the value for type 5, "%d" for type 11.
int LiveInt(REQUEST* r, CONSOLEPROPERTIES* c, const char* word, const char* format)
{
    int value = 0;
    if (!IsRead(r, REQTYPE_INT) && !IsRead(r, REQTYPE_TEXT))
        return 0;
    if (!ReadConsoleVariable(c, word, &value, REQTYPE_INT))
        return 0;
    if (r->type == REQTYPE_INT) {
        *static_cast<int*>(r->value) = value;
        return 1;
    }
    return AnswerText(r, format, value);
}

bool ReadRevisionBytes(CONSOLEPROPERTIES* c, int first, int count, uint8_t* bytes)
{
    for (int i = 0; i < count; i++) {
        char word[32];
        FormatText(word, sizeof word, "FirmwareRevision%d", first + i);
        if (!ReadConsoleVariable(c, word, &bytes[i], REQTYPE_BYTE))
            return false;
    }
    return true;
}

// The controller's name and the port, from "CONTROLLER.PORT".
bool ConnectionParts(CONSOLEPROPERTIES* c, char* controller, size_t controllerSize, char* port, size_t portSize)
{
    const char* text = FirstConnectionText(c);
    if (!text)
        return false;
    const char* dot = strchr(text, '.');
    if (!dot)
        return false;
    CopyTextN(controller, controllerSize, text, (size_t)(dot - text));
    CopyText(port, portSize, dot + 1);
    return true;
}

}  // namespace

int FaultsHandler(REQUEST* r, CONSOLEPROPERTIES* c, int n)
{
    char word[16];
    FormatText(word, sizeof word, "Faults%d", n);
    return n >= 1 ? LiveByte(r, c, word) : 0;
}

int StateFlagsHandler(REQUEST* r, CONSOLEPROPERTIES* c, int n)
{
    char word[32];
    FormatText(word, sizeof word, "DeviceErrorsFlags%d", n);
    return n >= 1 ? LiveByte(r, c, word) : 0;
}

// Boot firmware: byte 1 says whether it is there, bytes 4, 3, 2 are its version.
int BootFirmwareHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    uint8_t bytes[4];
    if (!IsRead(r, REQTYPE_TEXT) || !ReadRevisionBytes(c, 1, 1, bytes))
        return 0;
    if (!bytes[0])
        return 1;
    if (!ReadRevisionBytes(c, 2, 3, bytes + 1))
        return 0;
    return AnswerText(r, "%d.%d.%d", bytes[3], bytes[2], bytes[1]);
}

// Firmware: byte 5 says whether it is there, bytes 8, 7, 6 are its version
// and byte 9 marks a variant with "A".
int FirmwareHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    uint8_t bytes[5];
    if (!IsRead(r, REQTYPE_TEXT) || !ReadRevisionBytes(c, 5, 1, bytes))
        return 0;
    if (!bytes[0])
        return 1;
    if (!ReadRevisionBytes(c, 6, 4, bytes + 1))
        return 0;
    return AnswerText(r, bytes[4] ? "V%d.%d.%dA" : "V%d.%d.%d", bytes[3], bytes[2], bytes[1]);
}

int RuntimeHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return LiveInt(r, c, "Runtime", "%d");
}

int StateHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return LiveByte(r, c, "State");
}

int OperatingModeHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return LiveByte(r, c, "OperatingMode");
}

int UpdatePercentHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return LiveInt(r, c, "FlashProgramPercent", "%d%%");
}

int UpdateStateHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (!IsRead(r, REQTYPE_TEXT))
        return LiveByte(r, c, "FlashProgramState");
    uint8_t state = 0;
    if (!ReadConsoleVariable(c, "FlashProgramState", &state, REQTYPE_BYTE))
        return 0;
    // A state without a text leaves the caller's buffer as it was.
    if (state < sizeof kUpdateStateTexts / sizeof kUpdateStateTexts[0])
        AnswerText(r, "%s", kUpdateStateTexts[state]);
    return 1;
}

int MasterFaultHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (!IsRead(r, REQTYPE_BYTE) && !IsRead(r, REQTYPE_INT) && !IsRead(r, REQTYPE_TEXT))
        return 0;
    uint8_t fault = 0;
    if (!ReadConsoleVariable(c, "MasterFault", &fault, REQTYPE_BYTE))
        return 0;
    c->m_masterFault = fault;
    if (r->type == REQTYPE_BYTE)
        *static_cast<uint8_t*>(r->value) = fault;
    else if (r->type == REQTYPE_INT)
        *static_cast<int*>(r->value) = fault;
    else
        AnswerText(r, "%d", fault);
    return 1;
}

int BaudrateFreezeHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    return LiveByte(r, c, "BaudrateFreeze");
}

// The controller's bus speed in kbit/s; 62 stands for 62.5.
int BaudrateHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    char controller[HOSTNAME_SIZE], port[HOSTNAME_SIZE];
    if (!IsRead(r, REQTYPE_TEXT) || !c->m_pPartner ||
        !ConnectionParts(c, controller, sizeof controller, port, sizeof port))
        return 0;
    char name[VARIABLE_NAME_SIZE];
    int speed = 0;
    FormatText(name, sizeof name, "%s.CAN.Baudrate", controller);
    if (!ReadVariable(c->m_pPartner, name, &speed, REQTYPE_INT))
        return 0;
    if (speed == 62)
        return AnswerText(r, "%.1f KBit/s", 62.5);
    return AnswerText(r, "%.0f KBit/s", (double)speed);
}

// The port's slot, counted from 1 on screen; without a partner the last one read.
int SlotHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (!IsRead(r, REQTYPE_TEXT))
        return 0;
    char controller[HOSTNAME_SIZE], port[HOSTNAME_SIZE];
    if (c->m_pPartner && ConnectionParts(c, controller, sizeof controller, port, sizeof port)) {
        char name[VARIABLE_NAME_SIZE];
        int slot = 0;
        FormatText(name, sizeof name, "%s.Slot", port);
        if (ReadVariable(c->m_pPartner, name, &slot, REQTYPE_INT))
            c->m_slot = slot;
    }
    return AnswerText(r, "%d", c->m_slot + 1);
}

int WatchdogClearHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    int value = 0;
    if (IsWrite(r, REQTYPE_INT))
        value = *static_cast<const int*>(r->value);
    else if (!IsWrite(r, REQTYPE_TEXT) || !ScanLeadingInt(TextOf(r), &value))
        return 0;
    return (int)WriteConsoleVariable(c, "WatchdogClear", &value, REQTYPE_INT);
}

int WatchdogCounterHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (!IsRead(r, REQTYPE_TEXT))
        return LiveByte(r, c, "WatchdogCounter");
    uint8_t counter = 0;
    if (!ReadConsoleVariable(c, "WatchdogCounter", &counter, REQTYPE_BYTE))
        return 0;
    return AnswerText(r, "%uc", (unsigned)counter);
}
