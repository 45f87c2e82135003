// The workbench's commands, from a script or typed: each verb goes to the
// handler that its file of verbs binds to it.
#include "workbench.h"

#include <stdio.h>

#include <fstream>

#include "verbs.h"
#include "../../base/banned.h"

namespace {

const VERBHANDLERS* const kHandlerTables[] = {
    &kInspectVerbs, &kInputVerbs, &kSimulationVerbs, &kPictureVerbs, &kConsoleViewVerbs, &kPanelVerbs,
    &kFirmwareVerbs, &kConfigurationVerbs, &kKeyEditorVerbs, &kKeyboardVerbs,
};

// The handlers bound to the verb; the one found is handed back.
int CountHandlers(SCRIPTVERB verb, VERBHANDLER* handler)
{
    int count = 0;
    for (const VERBHANDLERS* table : kHandlerTables)
        for (size_t i = 0; i < table->count; i++)
            if (table->rows[i].verb == verb) {
                *handler = table->rows[i].handler;
                count++;
            }
    return count;
}

}  // namespace

bool CheckVerbHandlers()
{
    bool complete = true;
    for (const SCRIPTVERBROW& row : ScriptVerbs()) {
        VERBHANDLER handler = nullptr;
        const int count = CountHandlers(row.verb, &handler);
        if (count != 1 || !handler) {
            fprintf(stderr, "workbench: the command %s has %d handlers\n", row.name, count);
            complete = false;
        }
    }
    return complete;
}

bool RunCommand(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    if (command.verb == SCRIPT_NOTHING)
        return true;
    VERBHANDLER handler = nullptr;
    CountHandlers(command.verb, &handler);
    const bool ok = handler && handler(bench, command);
    fflush(stdout);
    return ok;
}

int RunScript(WORKBENCH* bench, const char* path)
{
    std::ifstream script(path, std::ios::binary);
    if (!script) {
        fprintf(stderr, "workbench: cannot read the script %s\n", path);
        return 1;
    }
    int failures = 0;
    int number = 0;
    std::string line;
    while (std::getline(script, line)) {
        number++;
        SCRIPTCOMMAND command;
        std::string error;
        if (!ParseScriptLine(line, &command, &error)) {
            fprintf(stderr, "%s(%d): %s\n", path, number, error.c_str());
            failures++;
            continue;
        }
        if (!RunCommand(bench, command)) {
            fprintf(stderr, "%s(%d): command failed\n", path, number);
            failures++;
        }
    }
    return failures;
}
