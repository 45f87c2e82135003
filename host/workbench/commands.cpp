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
    &kFirmwareVerbs, &kConfigurationVerbs, &kKeyEditorVerbs, &kManagerVerbs, &kKeyboardVerbs, &kImportVerbs,
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

// The script being run: a dialog that a command opens runs the lines after
// that command itself, while it is open (RunNextScriptLine).
struct SCRIPTREADER {
    std::ifstream lines;
    const char* path;
    int number = 0;
    int failures = 0;
};

bool RunNextScriptLine(WORKBENCH* bench)
{
    SCRIPTREADER* script = bench->script;
    std::string line;
    if (!script || !std::getline(script->lines, line))
        return false;
    script->number++;
    SCRIPTCOMMAND command;
    std::string error;
    if (!ParseScriptLine(line, &command, &error)) {
        fprintf(stderr, "%s(%d): %s\n", script->path, script->number, error.c_str());
        script->failures++;
        return true;
    }
    const int number = script->number;
    if (!RunCommand(bench, command)) {
        fprintf(stderr, "%s(%d): command failed\n", script->path, number);
        script->failures++;
    }
    return true;
}

int RunScript(WORKBENCH* bench, const char* path)
{
    SCRIPTREADER script;
    script.lines.open(path, std::ios::binary);
    script.path = path;
    if (!script.lines) {
        fprintf(stderr, "workbench: cannot read the script %s\n", path);
        return 1;
    }
    SCRIPTREADER* outer = bench->script;
    bench->script = &script;
    while (RunNextScriptLine(bench)) {
    }
    bench->script = outer;
    return script.failures;
}
