#include "script.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

std::string Trimmed(const std::string& text)
{
    const char* blanks = " \t\r\n";
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return std::string();
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool Fail(std::string* error, const std::string& message)
{
    *error = message;
    return false;
}

}  // namespace

bool ParseScriptLine(const std::string& rawLine, SCRIPTCOMMAND* command, std::string* error)
{
    const std::string line = Trimmed(rawLine);
    *command = SCRIPTCOMMAND();
    if (line.empty() || line[0] == '#')
        return true;
    const size_t blank = line.find_first_of(" \t");
    const std::string verb = line.substr(0, blank);
    const std::string rest = blank == std::string::npos ? std::string() : Trimmed(line.substr(blank));

    if (verb == "set") {
        const size_t equals = rest.find('=');
        const size_t star = rest.rfind('*', equals);
        if (equals == std::string::npos || star == std::string::npos || star == 0 || star + 1 == equals)
            return Fail(error, "set needs OBJECT*KEYWORD=VALUE");
        command->verb = SCRIPT_SET;
        command->object = rest.substr(0, star);
        command->text = rest;
        return true;
    }
    if (verb == "get") {
        const size_t split = rest.find_last_of(" \t");
        if (split == std::string::npos)
            return Fail(error, "get needs OBJECT KEYWORD");
        command->verb = SCRIPT_GET;
        command->object = Trimmed(rest.substr(0, split));
        command->text = rest.substr(split + 1);
        return true;
    }
    if (verb == "save" || verb == "screenshot") {
        if (rest.empty())
            return Fail(error, verb + " needs a file name");
        command->verb = verb == "save" ? SCRIPT_SAVE : SCRIPT_SCREENSHOT;
        command->text = rest;
        return true;
    }
    if (verb == "callback") {
        if (!ParseInt(rest.c_str(), &command->code))
            return Fail(error, "callback needs a number");
        command->verb = SCRIPT_CALLBACK;
        return true;
    }
    if (verb == "trace") {
        if (!rest.empty())
            return Fail(error, "trace takes no arguments");
        command->verb = SCRIPT_TRACE;
        return true;
    }
    return Fail(error, "unknown command '" + verb + "'");
}
