// LED state bytes and their text form.
#include "ledstates.h"

#include <string.h>

#include "../../base/banned.h"

namespace {

int HexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

}  // namespace

int LedModeOf(uint8_t state, bool secondary)
{
    return (state >> (secondary ? 2 : 0)) & 3;
}

uint8_t WithLedMode(uint8_t state, bool secondary, int mode)
{
    const int shift = secondary ? 2 : 0;
    return (uint8_t)((state & ~(3 << shift)) | ((mode & 3) << shift));
}

std::string FormatLedStates(const uint8_t states[LEDSTATE_KEYS])
{
    static const char kDigits[] = "0123456789abcdef";
    std::string text(LEDSTATE_KEYS, '0');
    for (int key = 0; key < LEDSTATE_KEYS; key++)
        text[(size_t)key] = kDigits[states[key] & 15];
    return text;
}

bool ParseLedStates(const char* text, uint8_t states[LEDSTATE_KEYS])
{
    uint8_t parsed[LEDSTATE_KEYS] = {};
    int key = 0;
    for (const char* p = text; *p; p++, key++) {
        const int value = HexValue(*p);
        if (value < 0 || key >= LEDSTATE_KEYS)
            return false;
        parsed[key] = (uint8_t)value;
    }
    memcpy(states, parsed, sizeof parsed);
    return true;
}
