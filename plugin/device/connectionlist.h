// The console's connection list: a string list of CONNECTION items made with
// the framework's allocator, so that the framework can empty it.
#pragma once

#include "analyze.h"

// The first connection of obj, or null when the list is empty.
const CONNECTION* FirstConnection(const HOSTINFO* obj);
// Its text, or null.
const char* FirstConnectionText(const HOSTINFO* obj);
// Appends "OBJECT.PORT" and the object it reaches (null when not known yet).
bool AddConnection(HOSTINFO* obj, const char* text, HOSTINFO* target);
void EmptyConnections(HOSTINFO* obj);
