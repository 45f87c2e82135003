// The workbench's verbs, a row each: the one list that the parser, the
// dispatcher and "help" read and the README's table is checked against.
// Platform-free: the handlers are bound to the verbs on the Windows side.
#pragma once

#include <stddef.h>

#include <string>

#include "script.h"

struct SCRIPTVERBROW {
    SCRIPTVERB verb;
    const char* name;
    const char* pattern;  // the arguments: placeholders of script.cpp, blank-separated; "" for none
    const char* help;
};

struct SCRIPTVERBLIST {
    const SCRIPTVERBROW* first;
    size_t count;
    const SCRIPTVERBROW* begin() const { return first; }
    const SCRIPTVERBROW* end() const { return first + count; }
};

SCRIPTVERBLIST ScriptVerbs();
// The row of a verb by its name or its id; null when there is none.
const SCRIPTVERBROW* FindScriptVerb(const std::string& name);
const SCRIPTVERBROW* ScriptVerbRow(SCRIPTVERB verb);
// What "help" prints: every verb with its arguments and what it does, a line each.
std::string ScriptHelp();
