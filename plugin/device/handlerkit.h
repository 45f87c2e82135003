// Building blocks of keyword handlers: request tests, text answers and the
// stored-value patterns that most keywords share.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "analyze_request.h"
#include "../../base/text.h"

class CONSOLEPROPERTIES;

inline bool IsRead(const REQUEST* r, int type)
{
    return r->operation == REQ_READ && r->type == type && r->value;
}
inline bool IsWrite(const REQUEST* r, int type)
{
    return r->operation == REQ_WRITE && r->type == type && r->value;
}
inline char* TextOf(REQUEST* r) { return static_cast<char*>(r->value); }

// Formats the answer of a text read into the caller's buffer; answers 1.
int AnswerText(REQUEST* r, const char* format, ...) TEXT_PRINTF(2, 3);

// A stored 0/1 switch: reads as int (type 5) or "%d", writes from an int or
// from "%d" (any non-zero number stores 1).
int StoredToggle(REQUEST* r, uint8_t* stored);
// A stored text of a fixed field: reads it, writes it cut to the field.
int StoredText(REQUEST* r, char* field, size_t size);

// Reading and writing the console's own device variables ("%s.<word>" of its
// object name) through the partner; false without a partner or when the
// partner does not know the variable.
bool ReadConsoleVariable(CONSOLEPROPERTIES* console, const char* word, void* value, int type);
intptr_t WriteConsoleVariable(CONSOLEPROPERTIES* console, const char* word, const void* value, int type);

// A setting the device holds as well ("%s.<variable>" of the console): a read
// first takes the device's value when a partner is set, a write stores the
// setting and sends it on.
int MirroredSetting(REQUEST* r, CONSOLEPROPERTIES* console, uint8_t* stored, const char* variable);
