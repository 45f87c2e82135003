// The LED states of a console face: one byte per key, its first LED's mode in
// bits 0-1 and its second LED's in bits 2-3 (off, slow blink, fast blink, on).
// Their text form is one hexadecimal digit per key, key 0 first.
#pragma once

#include <stdint.h>

#include <string>

enum { LEDSTATE_KEYS = 128 };

int LedModeOf(uint8_t state, bool secondary);
uint8_t WithLedMode(uint8_t state, bool secondary, int mode);

std::string FormatLedStates(const uint8_t states[LEDSTATE_KEYS]);
// Up to 128 digits; keys without a digit are off. Anything else is refused
// and leaves the states as they were.
bool ParseLedStates(const char* text, uint8_t states[LEDSTATE_KEYS]);
