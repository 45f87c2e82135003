#include "handlerkit.h"

#include "consoleproperties.h"
#include "partner.h"

#include "../../base/banned.h"

int AnswerText(REQUEST* r, const char* format, ...)
{
    va_list args;
    va_start(args, format);
    FormatTextV(TextOf(r), REQUEST_TEXT_SIZE, format, args);
    va_end(args);
    return 1;
}

int StoredToggle(REQUEST* r, uint8_t* stored)
{
    if (IsRead(r, REQTYPE_INT)) {
        *static_cast<int*>(r->value) = *stored;
        return 1;
    }
    if (IsRead(r, REQTYPE_TEXT))
        return AnswerText(r, "%d", *stored);
    if (IsWrite(r, REQTYPE_INT)) {
        *stored = *static_cast<const int*>(r->value) != 0;
        return 1;
    }
    int value = 0;
    if (IsWrite(r, REQTYPE_TEXT) && ScanLeadingInt(TextOf(r), &value)) {
        *stored = value != 0;
        return 1;
    }
    return 0;
}

int StoredText(REQUEST* r, char* field, size_t size)
{
    if (IsRead(r, REQTYPE_TEXT)) {
        CopyText(TextOf(r), size < (size_t)REQUEST_TEXT_SIZE ? size : (size_t)REQUEST_TEXT_SIZE, field);
        return 1;
    }
    if (IsWrite(r, REQTYPE_TEXT)) {
        CopyText(field, size, TextOf(r));
        return 1;
    }
    return 0;
}

bool ReadConsoleVariable(CONSOLEPROPERTIES* console, const char* word, void* value, int type)
{
    char name[VARIABLE_NAME_SIZE];
    if (!console->m_pPartner || !FormatText(name, sizeof name, "%s.%s", console->m_szName, word))
        return false;
    return ReadVariable(console->m_pPartner, name, value, type);
}

intptr_t WriteConsoleVariable(CONSOLEPROPERTIES* console, const char* word, const void* value, int type)
{
    char name[VARIABLE_NAME_SIZE];
    if (!console->m_pPartner || !FormatText(name, sizeof name, "%s.%s", console->m_szName, word))
        return 0;
    return WriteVariable(console->m_pPartner, name, value, type);
}

int MirroredSetting(REQUEST* r, CONSOLEPROPERTIES* console, uint8_t* stored, const char* variable)
{
    if (IsRead(r, REQTYPE_INT) || IsRead(r, REQTYPE_TEXT)) {
        uint8_t device = 0;
        if (ReadConsoleVariable(console, variable, &device, REQTYPE_BYTE))
            *stored = device;
        return StoredToggle(r, stored);
    }
    if (!IsWrite(r, REQTYPE_INT) && !IsWrite(r, REQTYPE_TEXT))
        return 0;
    if (!StoredToggle(r, stored))
        return 0;
    WriteConsoleVariable(console, variable, stored, REQTYPE_BYTE);
    return 1;
}
