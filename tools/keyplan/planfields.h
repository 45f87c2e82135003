// One row of a key plan made into a key: its cells read as the design
// report writes them, each into its field of the key record. Platform-free.
#pragma once

#include <string>
#include <vector>

#include "../designreport/designmodel.h"
#include "../designreport/keyrows.h"

// The plan's columns, by the design report's header names.
enum PLANCOLUMN {
    COLUMN_CONTROLLER,
    COLUMN_CONSOLE,
    COLUMN_CONSOLE_NAME,
    COLUMN_KEY,
    COLUMN_ID,
    COLUMN_FUNCTION,
    COLUMN_DESTINATION,
    COLUMN_MESSAGE,
    COLUMN_PRIORITY,
    COLUMN_TRIGGER,
    COLUMN_LOCKED,
    COLUMN_LABEL,
    COLUMN_MARK,  // written by the report, read by no one
    COLUMN_LINE,
    COLUMN_COUNT,
};
// The column of a header name (blanks and letter case aside); -1 for none.
int PlanColumn(const std::string& header);
const char* PlanColumnName(PLANCOLUMN column);

// A row's cells by column: null where the plan has no such column (or the row
// ends before it); the key keeps what it has there.
struct KEYREQUEST {
    const std::string* cells[COLUMN_COUNT] = {};
};

// What a key looks up its names in: the console and its controller's lists.
struct KEYCONTEXT {
    const DESIGNMODEL* design = nullptr;
    const CONSOLEDESIGN* console = nullptr;
    const CONTROLLERDESIGN* controller = nullptr;  // the console's, when the design has it
};

// The key after the row: starts from what the key has (current), a new
// function from the record a new key of it gets. A cell equal to what the
// design report shows for the key leaves that field as it is. Problems go to
// errors, a sentence each; answers whether the function changed.
bool BuildPlannedKey(const KEYCONTEXT& context, const KEYROW& current, const KEYREQUEST& request, KEYSLOT* key,
                     std::string* label, std::vector<std::string>* errors);

// The checks the design report's --check makes of one key, for a key the plan
// changes: destination, messages, input channel, logic variable.
void CheckPlannedKey(const KEYCONTEXT& context, const KEYSLOT& key, std::vector<std::string>* errors);

std::string TrimBlanks(const std::string& text);
bool SameLetters(const std::string& a, const std::string& b);  // ASCII letter case aside
