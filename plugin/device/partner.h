// Reading and writing host variables through the partner object's OnMessage.
#pragma once

#include "analyze.h"

enum { VARIABLE_NAME_SIZE = 128 };

// Asks the partner whether the variable exists, then reads it. False when the
// partner does not know the name; the result is then untouched.
bool ReadVariable(HOSTINFO* partner, const char* name, void* result, int type);
// Writes the variable; the partner resolves the name. Returns its answer.
LRESULT WriteVariable(HOSTINFO* partner, const char* name, const void* value, int type);
