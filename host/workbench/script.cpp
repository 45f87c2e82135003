#include "script.h"

#include <sstream>

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

// Splits text at its last blank into what comes before and the last word.
bool LastWord(const std::string& text, std::string* head, std::string* last)
{
    const size_t split = text.find_last_of(" \t");
    if (split == std::string::npos)
        return false;
    *head = Trimmed(text.substr(0, split));
    *last = text.substr(split + 1);
    return !head->empty() && !last->empty();
}

bool OnOff(const std::string& word, int* value)
{
    if (word != "on" && word != "off")
        return false;
    *value = word == "on";
    return true;
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
        if (!LastWord(rest, &command->object, &command->text))
            return Fail(error, "get needs OBJECT KEYWORD");
        command->verb = SCRIPT_GET;
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
    if (verb == "online") {
        std::string state;
        if (!LastWord(rest, &command->object, &state) || !OnOff(state, &command->value))
            return Fail(error, "online needs OBJECT on|off");
        command->verb = SCRIPT_ONLINE;
        return true;
    }
    if (verb == "fault") {
        std::string head, state, number;
        if (!LastWord(rest, &head, &state) || !OnOff(state, &command->value) ||
            !LastWord(head, &command->object, &number) || !ParseInt(number.c_str(), &command->code) ||
            command->code < 1 || command->code > 10)
            return Fail(error, "fault needs OBJECT N on|off with N from 1 to 10");
        command->verb = SCRIPT_FAULT;
        return true;
    }
    if (verb == "device") {
        const size_t equals = rest.find('=');
        if (!LastWord(rest.substr(0, equals), &command->object, &command->text) || equals == std::string::npos ||
            !ParseInt(rest.substr(equals + 1).c_str(), &command->value))
            return Fail(error, "device needs OBJECT VARIABLE=NUMBER");
        command->verb = SCRIPT_DEVICE;
        return true;
    }
    const struct {
        const char* name;
        SCRIPTVERB verb;
    } objectVerbs[] = {{"list", SCRIPT_LIST}, {"tooltip", SCRIPT_TOOLTIP}, {"menu", SCRIPT_MENU},
                       {"open", SCRIPT_OPEN}, {"delete", SCRIPT_DELETE}, {"select", SCRIPT_SELECT},
                       {"widgets", SCRIPT_WIDGETS}, {"view", SCRIPT_VIEW}};
    for (const auto& objectVerb : objectVerbs) {
        if (verb != objectVerb.name)
            continue;
        if (rest.empty())
            return Fail(error, verb + " needs an object");
        command->verb = objectVerb.verb;
        command->object = rest;
        return true;
    }
    if (verb == "edit") {
        // OBJ and KEYWORD are words; the value is the rest of the line.
        const size_t first = rest.find_first_of(" \t");
        const std::string tail = first == std::string::npos ? std::string() : Trimmed(rest.substr(first));
        const size_t second = tail.find_first_of(" \t");
        if (first == std::string::npos || tail.empty())
            return Fail(error, "edit needs OBJECT KEYWORD VALUE");
        command->verb = SCRIPT_EDIT;
        command->object = rest.substr(0, first);
        command->text = tail.substr(0, second);
        command->typed = second == std::string::npos ? std::string() : Trimmed(tail.substr(second));
        return true;
    }
    if (verb == "firmware") {
        std::string head, object;
        if (!LastWord(rest, &head, &command->typed) || !LastWord(head, &command->object, &command->text))
            return Fail(error, "firmware needs OBJECT PACKAGE PASSWORD");
        command->verb = SCRIPT_FIRMWARE;
        return true;
    }
    if (verb == "click" || verb == "read") {
        if (!LastWord(rest, &command->object, &command->text))
            return Fail(error, verb + " needs OBJECT WIDGET");
        command->verb = verb == "click" ? SCRIPT_CLICK : SCRIPT_READ;
        return true;
    }
    if (verb == "press" || verb == "release") {
        std::string key;
        if (!LastWord(rest, &command->object, &key) || !ParseInt(key.c_str(), &command->key))
            return Fail(error, verb + " needs OBJECT KEY");
        command->verb = verb == "press" ? SCRIPT_PRESS : SCRIPT_RELEASE;
        return true;
    }
    if (verb == "rclick" || verb == "label") {
        // OBJ and KEY are words; the item or the text is the rest of the line.
        const size_t first = rest.find_first_of(" \t");
        const std::string tail = first == std::string::npos ? std::string() : Trimmed(rest.substr(first));
        const size_t second = tail.find_first_of(" \t");
        if (first == std::string::npos || !ParseInt(tail.substr(0, second).c_str(), &command->key) ||
            (verb == "rclick" && second == std::string::npos))
            return Fail(error, verb + (verb == "rclick" ? " needs OBJECT KEY ITEM" : " needs OBJECT KEY TEXT"));
        command->verb = verb == "rclick" ? SCRIPT_RCLICK : SCRIPT_LABEL;
        command->object = rest.substr(0, first);
        command->text = second == std::string::npos ? std::string() : Trimmed(tail.substr(second));
        return true;
    }
    if (verb == "extension" || verb == "page") {
        if (!LastWord(rest, &command->object, &command->text))
            return Fail(error, verb + (verb == "page" ? " needs OBJECT N|side|buttons" : " needs OBJECT add|remove"));
        int number = 0;
        const bool valid = verb == "extension" ? command->text == "add" || command->text == "remove"
                                               : command->text == "side" || command->text == "buttons" ||
                                                     ParseInt(command->text.c_str(), &number);
        if (!valid)
            return Fail(error, verb + (verb == "page" ? " needs OBJECT N|side|buttons" : " needs OBJECT add|remove"));
        command->verb = verb == "extension" ? SCRIPT_EXTENSION : SCRIPT_PAGE;
        command->code = number;
        return true;
    }
    if (verb == "scroll") {
        std::string position;
        if (!LastWord(rest, &command->object, &position) || !ParseInt(position.c_str(), &command->code) ||
            command->code < 0 || command->code > 0xFFFF)
            return Fail(error, "scroll needs OBJECT X");
        command->verb = SCRIPT_SCROLL;
        return true;
    }
    if (verb == "leds") {
        std::istringstream words(rest);
        std::string key, first, second, extra;
        words >> command->object >> key >> first >> second >> extra;
        if (!ParseInt(key.c_str(), &command->key) || !ParseInt(first.c_str(), &command->code) ||
            (!second.empty() && !ParseInt(second.c_str(), &command->value)) || !extra.empty() ||
            command->code < 0 || command->code > 3 || command->value < 0 || command->value > 3)
            return Fail(error, "leds needs OBJECT KEY MODE [MODE2] with modes from 0 to 3");
        command->verb = SCRIPT_LEDS;
        return true;
    }
    if (verb == "drag") {
        std::string head, dx, dy;
        if (!LastWord(rest, &head, &dy) || !LastWord(head, &command->object, &dx) ||
            !ParseInt(dx.c_str(), &command->code) || !ParseInt(dy.c_str(), &command->value))
            return Fail(error, "drag needs OBJECT DX DY");
        command->verb = SCRIPT_DRAG;
        return true;
    }
    if (verb == "design") {
        if (!OnOff(rest, &command->value))
            return Fail(error, "design needs on|off");
        command->verb = SCRIPT_DESIGN;
        return true;
    }
    if (verb == "shot") {
        const size_t blank = rest.find_first_of(" \t");
        if (blank == std::string::npos || Trimmed(rest.substr(blank)).empty())
            return Fail(error, "shot needs TARGET FILE");
        command->verb = SCRIPT_SHOT;
        command->object = rest.substr(0, blank);
        command->text = Trimmed(rest.substr(blank));
        return true;
    }
    if (verb == "tick") {
        if (!ParseInt(rest.c_str(), &command->code) || command->code < 0)
            return Fail(error, "tick needs milliseconds");
        command->verb = SCRIPT_TICK;
        return true;
    }
    if (verb == "trace" || verb == "alarms") {
        if (!rest.empty())
            return Fail(error, verb + " takes no arguments");
        command->verb = verb == "trace" ? SCRIPT_TRACE : SCRIPT_ALARMS;
        return true;
    }
    return Fail(error, "unknown command '" + verb + "'");
}
