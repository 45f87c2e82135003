// The console object's keyword table, shared by every console of the module.
#pragma once

#include "keywordtable.h"

// Builds the table once, while the library attaches.
void BuildConsoleKeywordTable();
const KEYWORDTABLE& ConsoleKeywords();
