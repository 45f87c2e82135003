#include "script.h"

#include <limits.h>

#include <vector>

#include "verbs.h"
#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// How an argument is read from its word (or, last in a pattern, from the rest of the line).
enum ARGKIND {
    ARG_WORD,        // one word, as it is
    ARG_REST,        // the rest of the line, not empty
    ARG_REST_EMPTY,  // the rest of the line, possibly empty
    ARG_NUMBER,      // a whole number from least to most
    ARG_SWITCH,      // on (1) or off (0)
    ARG_CHOICE,      // one of the name's alternatives; an upper-case one stands for a number
    ARG_DESIGNLINE,  // OBJ*KEYWORD=VALUE: the whole line, and the object it names
    ARG_ASSIGNMENT,  // NAME=NUMBER
};

struct PLACEHOLDER {
    const char* name;  // as patterns write it; "[NAME]" is optional
    ARGKIND kind;
    std::string SCRIPTCOMMAND::*text;  // where the word goes, if anywhere
    int SCRIPTCOMMAND::*number;        // where the number goes, if anywhere
    int least;
    int most;
};

const PLACEHOLDER kPlaceholders[] = {
    {"OBJ", ARG_WORD, &SCRIPTCOMMAND::object, nullptr, 0, 0},
    {"TARGET", ARG_WORD, &SCRIPTCOMMAND::object, nullptr, 0, 0},
    {"KEYWORD", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"WIDGET", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"PACKAGE", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"PASSWORD", ARG_WORD, &SCRIPTCOMMAND::typed, nullptr, 0, 0},
    {"FILE", ARG_REST, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"ITEM", ARG_REST, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"TEXT", ARG_REST_EMPTY, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"VALUE", ARG_REST_EMPTY, &SCRIPTCOMMAND::typed, nullptr, 0, 0},
    {"CODE", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::code, INT_MIN, INT_MAX},
    {"MS", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::code, 0, INT_MAX},
    {"N", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::code, 1, 10},  // a console's fault words
    {"DX", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::code, INT_MIN, INT_MAX},
    {"DY", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::value, INT_MIN, INT_MAX},
    {"X", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::code, 0, 0xFFFF},  // a scroll position is 16 bits
    {"KEY", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::key, INT_MIN, INT_MAX},
    {"MODE", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::code, 0, 3},
    {"[MODE2]", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::value, 0, 3},
    {"on|off", ARG_SWITCH, nullptr, &SCRIPTCOMMAND::value, 0, 0},
    {"add|remove", ARG_CHOICE, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"configuration|supervision", ARG_CHOICE, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"CONSOLE", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"TYPE", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"FIELD", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"CONTROLLER", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"[WINDOW]", ARG_WORD, &SCRIPTCOMMAND::typed, nullptr, 0, 0},
    {"N|side|buttons", ARG_CHOICE, &SCRIPTCOMMAND::text, &SCRIPTCOMMAND::code, INT_MIN, INT_MAX},
    {"FUNCTION", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"CONTROL", ARG_NUMBER, nullptr, &SCRIPTCOMMAND::code, 1, 0xFFFF},  // a dialog control's id
    {"[KEY]", ARG_NUMBER, &SCRIPTCOMMAND::text, &SCRIPTCOMMAND::key, 0, 127},
    {"[N|side|buttons]", ARG_CHOICE, &SCRIPTCOMMAND::text, &SCRIPTCOMMAND::code, INT_MIN, INT_MAX},
    {"OBJ*KEYWORD=VALUE", ARG_DESIGNLINE, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"KEYNAME", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"KEYS", ARG_REST, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"PLAN", ARG_WORD, &SCRIPTCOMMAND::text, nullptr, 0, 0},
    {"[check|show]", ARG_CHOICE, &SCRIPTCOMMAND::typed, nullptr, 0, 0},
    {"VARIABLE=VALUE", ARG_ASSIGNMENT, &SCRIPTCOMMAND::text, &SCRIPTCOMMAND::value, INT_MIN, INT_MAX},
};

const char kBlanks[] = " \t";

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

const PLACEHOLDER* FindPlaceholder(const std::string& name)
{
    for (const PLACEHOLDER& placeholder : kPlaceholders)
        if (name == placeholder.name)
            return &placeholder;
    return nullptr;
}

bool Optional(const PLACEHOLDER& placeholder)
{
    return placeholder.name[0] == '[';
}

bool TakesRest(const PLACEHOLDER& placeholder)
{
    return placeholder.kind == ARG_REST || placeholder.kind == ARG_REST_EMPTY;
}

// The pattern's placeholders; false when it names one that does not exist.
bool PatternSlots(const char* pattern, std::vector<const PLACEHOLDER*>* slots)
{
    const std::string text = pattern;
    size_t at = text.find_first_not_of(kBlanks);
    while (at != std::string::npos) {
        const size_t end = text.find_first_of(kBlanks, at);
        const PLACEHOLDER* placeholder = FindPlaceholder(text.substr(at, end - at));
        if (!placeholder)
            return false;
        slots->push_back(placeholder);
        at = end == std::string::npos ? end : text.find_first_not_of(kBlanks, end);
    }
    return true;
}

// Splits text at its first blank into the first word and what follows it.
void FirstWord(const std::string& text, std::string* first, std::string* rest)
{
    const size_t split = text.find_first_of(kBlanks);
    *first = text.substr(0, split);
    *rest = split == std::string::npos ? std::string() : Trimmed(text.substr(split));
}

// Splits text at its last blank into what comes before and the last word.
bool LastWord(const std::string& text, std::string* head, std::string* last)
{
    const size_t split = text.find_last_of(kBlanks);
    if (split == std::string::npos)
        return false;
    *head = Trimmed(text.substr(0, split));
    *last = text.substr(split + 1);
    return !head->empty() && !last->empty();
}

// One text per slot (empty for an optional one left out). A pattern that ends
// in the rest of the line takes words from the left; one with an optional
// argument takes as many words as are given; any other takes words from the
// right and leaves the first argument (the object) all that comes before, blanks
// and all.
bool SplitArguments(const std::string& rest, const std::vector<const PLACEHOLDER*>& slots,
                    std::vector<std::string>* texts)
{
    const size_t count = slots.size();
    texts->assign(count, std::string());
    if (count == 0)
        return rest.empty();
    if (TakesRest(*slots.back())) {
        std::string remaining = rest;
        for (size_t i = 0; i + 1 < count; i++) {
            const std::string before = remaining;
            FirstWord(before, &(*texts)[i], &remaining);
            if ((*texts)[i].empty())
                return false;
        }
        texts->back() = remaining;
        return slots.back()->kind == ARG_REST_EMPTY || !remaining.empty();
    }
    size_t required = 0;
    for (const PLACEHOLDER* slot : slots)
        required += Optional(*slot) ? 0 : 1;
    if (required < count) {
        std::string remaining = rest;
        size_t given = 0;
        for (; given < count && !remaining.empty(); given++) {
            const std::string before = remaining;
            FirstWord(before, &(*texts)[given], &remaining);
        }
        return remaining.empty() && given >= required;
    }
    std::string head = rest;
    for (size_t i = count - 1; i > 0; i--) {
        const std::string before = head;
        if (!LastWord(before, &head, &(*texts)[i]))
            return false;
    }
    (*texts)[0] = head;
    return !head.empty();
}

// An upper-case alternative of a choice stands for a number.
bool ReadChoice(const PLACEHOLDER& placeholder, const std::string& word, SCRIPTCOMMAND* command)
{
    std::string alternatives = placeholder.name;
    if (Optional(placeholder))
        alternatives = alternatives.substr(1, alternatives.size() - 2);
    size_t at = 0;
    while (at <= alternatives.size()) {
        const size_t bar = alternatives.find('|', at);
        const std::string alternative = alternatives.substr(at, bar - at);
        const bool numeric = !alternative.empty() && alternative[0] >= 'A' && alternative[0] <= 'Z';
        int number = 0;
        if (numeric ? ParseInt(word.c_str(), &number) : alternative == word) {
            if (placeholder.number)
                command->*placeholder.number = number;
            return true;
        }
        if (bar == std::string::npos)
            break;
        at = bar + 1;
    }
    return false;
}

bool ReadNumber(const PLACEHOLDER& placeholder, const std::string& word, int* number)
{
    return ParseInt(word.c_str(), number) && *number >= placeholder.least && *number <= placeholder.most;
}

// Stores one argument; false when its text does not fit the placeholder.
bool ReadArgument(const PLACEHOLDER& placeholder, const std::string& text, SCRIPTCOMMAND* command)
{
    if (placeholder.text)
        command->*placeholder.text = text;
    if (text.empty() && Optional(placeholder))
        return true;
    switch (placeholder.kind) {
    case ARG_WORD:
    case ARG_REST:
    case ARG_REST_EMPTY:
        return true;
    case ARG_NUMBER:
        return text.empty() ? Optional(placeholder) : ReadNumber(placeholder, text, &(command->*placeholder.number));
    case ARG_SWITCH:
        command->*placeholder.number = text == "on";
        return text == "on" || text == "off";
    case ARG_CHOICE:
        return ReadChoice(placeholder, text, command);
    case ARG_DESIGNLINE: {
        const size_t equals = text.find('=');
        const size_t star = text.rfind('*', equals);
        if (equals == std::string::npos || star == std::string::npos || star == 0 || star + 1 == equals)
            return false;
        command->object = text.substr(0, star);
        return true;
    }
    case ARG_ASSIGNMENT: {
        const size_t equals = text.find('=');
        if (equals == std::string::npos || equals == 0)
            return false;
        command->*placeholder.text = text.substr(0, equals);
        return ReadNumber(placeholder, text.substr(equals + 1), &(command->*placeholder.number));
    }
    }
    return false;
}

// "VERB needs PATTERN", with the ranges of its numbers.
std::string Usage(const SCRIPTVERBROW& row, const std::vector<const PLACEHOLDER*>& slots)
{
    if (slots.empty())
        return std::string(row.name) + " takes no arguments";
    std::string usage = std::string(row.name) + " needs " + row.pattern;
    const char* joint = " with ";
    for (const PLACEHOLDER* slot : slots) {
        if (slot->kind != ARG_NUMBER || (slot->least == INT_MIN && slot->most == INT_MAX))
            continue;
        std::string name = slot->name;
        if (Optional(*slot))
            name = name.substr(1, name.size() - 2);
        usage += joint + name;
        usage += slot->most == INT_MAX
                     ? " at least " + std::to_string(slot->least)
                     : " from " + std::to_string(slot->least) + " to " + std::to_string(slot->most);
        joint = " and ";
    }
    return usage;
}

}  // namespace

bool ParseScriptLine(const std::string& rawLine, SCRIPTCOMMAND* command, std::string* error)
{
    const std::string line = Trimmed(rawLine);
    *command = SCRIPTCOMMAND();
    if (line.empty() || line[0] == '#')
        return true;
    const size_t blank = line.find_first_of(kBlanks);
    const std::string verb = line.substr(0, blank);
    const std::string rest = blank == std::string::npos ? std::string() : Trimmed(line.substr(blank));

    const SCRIPTVERBROW* row = FindScriptVerb(verb);
    if (!row)
        return Fail(error, "unknown command '" + verb + "'");
    std::vector<const PLACEHOLDER*> slots;
    if (!PatternSlots(row->pattern, &slots))
        return Fail(error, verb + " has an argument the workbench does not know");
    std::vector<std::string> texts;
    bool read = SplitArguments(rest, slots, &texts);
    for (size_t i = 0; read && i < slots.size(); i++)
        read = ReadArgument(*slots[i], texts[i], command);
    if (!read) {
        *command = SCRIPTCOMMAND();
        return Fail(error, Usage(*row, slots));
    }
    command->verb = row->verb;
    return true;
}

bool ScriptPatternIsKnown(const char* pattern)
{
    std::vector<const PLACEHOLDER*> slots;
    return PatternSlots(pattern, &slots);
}
