#include "planfields.h"

#include <limits.h>

#include "../../plugin/keys/keycatalogue.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char* const kColumnNames[COLUMN_COUNT] = {
    "Controller", "Console", "Console name", "Key",   "Id",   "Function", "Destination",
    "Message",    "Priority", "Trigger",     "Active when locked", "Label", "Mark", "Line",
};

// Where a family keeps the priority, the trigger type and "active when
// locked": positions in its record, from 1 after the name; 0 where it has none.
struct FAMILYFIELDS {
    int family;
    int priority;
    int trigger;
    int locked;
};
const FAMILYFIELDS kFamilyFields[] = {
    {FAMILY_TALK, 4, 5, 3},  {FAMILY_PTT, 4, 5, 0},      {FAMILY_CHIME, 4, 3, 2},      {FAMILY_ALARM, 4, 3, 2},
    {FAMILY_STOP, 2, 3, 1},  {FAMILY_ON, 1, 0, 2},       {FAMILY_EVAC, 2, 3, 6},       {FAMILY_BUSINESS, 2, 3, 4},
    {FAMILY_ARITHMETIC, 0, 0, 6}, {FAMILY_INDICATOR, 0, 1, 2},
};

const char* const kTriggers[] = {"Push", "Switch", "Trigger"};
const char* const kIndicatorTriggers[] = {"Push", "Toggle"};

// The talk family's prechime switches (the message texts are text2 and
// text3) and the alarm family's tone.
enum { TALK_UNLOCKED_PRECHIME = 2, TALK_LOCKED_PRECHIME = 10, ALARM_TONE = 5 };

const char kPartJoint[] = "; ";
const char kInputPrefix[] = "input ";

FAMILYFIELDS FieldsOf(int family)
{
    for (const FAMILYFIELDS& fields : kFamilyFields)
        if (fields.family == family)
            return fields;
    return FAMILYFIELDS{family, 0, 0, 0};
}

std::vector<std::string> SplitParts(const std::string& text)
{
    std::vector<std::string> parts;
    size_t start = 0;
    while (start <= text.size()) {
        size_t joint = text.find(kPartJoint, start);
        if (joint == std::string::npos)
            joint = text.size();
        const std::string part = TrimBlanks(text.substr(start, joint - start));
        if (!part.empty())
            parts.push_back(part);
        start = joint + sizeof kPartJoint - 1;
    }
    return parts;
}

struct ROWBUILDER {
    const KEYCONTEXT& context;
    KEYSLOT* key;
    std::vector<std::string>* errors;

    std::string FunctionName() const { return KeyFunctionName(key->functionId); }

    void Error(const std::string& text) { errors->push_back(text); }

    std::string ControllerName() const { return context.console->Controller(); }

    bool SetText(char* field, const std::string& text, const char* what)
    {
        if (text.size() >= KEYTEXT_SIZE) {
            Error(FormatString("the %s has %zu characters, a key keeps %d", what, text.size(), KEYTEXT_SIZE - 1));
            return false;
        }
        CopyText(field, KEYTEXT_SIZE, text.c_str());
        return true;
    }

    // "Hall" of the console's controller as "ORNCON_1.Hall"; a name that
    // already names a controller of the design is kept as it is.
    std::string Qualified(const std::string& name) const
    {
        const std::string controller = ControllerName();
        if (name.empty() || controller.empty())
            return name;
        const size_t point = name.find('.');
        if (point != std::string::npos && (name.compare(0, point, controller) == 0 ||
                                           context.design->FindController(name.substr(0, point))))
            return name;
        return controller + "." + name;
    }

    void Destination(const std::string& cell)
    {
        const int family = KeyFamily(key->functionId);
        const bool variable = family == FAMILY_LOGICAL || family == FAMILY_ARITHMETIC;
        const std::string text = TrimBlanks(cell);
        if (!variable && family != FAMILY_SELECT && DestinationKind(key->functionId) == DEST_NONE) {
            if (!text.empty())
                Error("\"" + FunctionName() + "\" has no destination");
            return;
        }
        SetText(key->text1, variable ? text : Qualified(text), variable ? "variable" : "destination");
    }

    // A message by its name or as "NAME|NUMBER"; a bare name is looked up in
    // the controller's list.
    bool Message(const std::string& name, std::string* entry)
    {
        if (name.find('|') != std::string::npos) {
            *entry = name;
            return true;
        }
        const CONTROLLERDESIGN* controller = context.controller;
        if (!controller || !controller->offers[OFFER_MESSAGES].present) {
            Error(FormatString("message \"%s\" needs its number (\"%s|NUMBER\"): %s has no message list", name.c_str(),
                               name.c_str(), controller ? controller->name.c_str() : "the console's controller"));
            return false;
        }
        for (const std::string& offered : controller->offers[OFFER_MESSAGES].names) {
            const size_t bar = offered.rfind('|');
            if (bar != std::string::npos && offered.compare(0, bar, name) == 0 && bar == name.size()) {
                *entry = offered;
                return true;
            }
        }
        Error(FormatString("message \"%s\" is not offered by %s", name.c_str(), controller->name.c_str()));
        return false;
    }

    static bool IsPrechimeTone(const std::string& text)
    {
        for (const auto& tone : PrechimeTable(false))
            if (tone.second == text)
                return true;
        return false;
    }

    void TalkMessages(const std::vector<std::string>& parts)
    {
        if (parts.size() > 2) {
            Error("a talk key has two messages at most, unlocked and locked");
            return;
        }
        char* texts[2] = {key->text2, key->text3};
        const int switches[2] = {TALK_UNLOCKED_PRECHIME, TALK_LOCKED_PRECHIME};
        for (size_t i = 0; i < 2; i++) {
            std::string entry;
            if (i < parts.size() && !IsPrechimeTone(parts[i]) && !Message(parts[i], &entry))
                continue;
            if (i < parts.size() && entry.empty())
                entry = parts[i];  // an older key's prechime tone
            if (SetText(texts[i], entry, "message"))
                SetKeyFieldNumber(key, switches[i], entry.empty() ? 0 : 1);
        }
    }

    void AlarmMessage(const std::vector<std::string>& parts)
    {
        std::string input;
        int tone = -1;
        for (const std::string& part : parts) {
            if (part.compare(0, sizeof kInputPrefix - 1, kInputPrefix) == 0) {
                input = TrimBlanks(part.substr(sizeof kInputPrefix - 1));
                continue;
            }
            int code = -1;
            for (const auto& known : AlarmToneTable(false))
                if (SameLetters(known.second, part))
                    code = known.first;
            int number = 0;
            if (code < 0 && part.compare(0, 5, "tone ") == 0 && ParseInt(part.c_str() + 5, &number) && number >= 0 &&
                number <= 0xFFFF)
                code = number;
            if (code < 0)
                Error("alarm tone \"" + part + "\" is unknown");
            else
                tone = code;
        }
        if (tone >= 0)
            SetKeyFieldNumber(key, ALARM_TONE, tone);
        if (!input.empty() && KeyFieldNumber(*key, ALARM_TONE) != 0)
            Error("an input channel (\"" + input + "\") goes only with the tone \"Extern\"");
        SetText(key->text2, input, "input channel");
    }

    void MessageCell(const std::string& cell)
    {
        const std::vector<std::string> parts = SplitParts(cell);
        switch (KeyFamily(key->functionId)) {
        case FAMILY_EVAC:
        case FAMILY_BUSINESS: {
            std::string entry;
            if (parts.size() > 1)
                Error("\"" + FunctionName() + "\" carries one message");
            else if (parts.empty() || Message(parts[0], &entry))
                SetText(key->text2, entry, "message");
            return;
        }
        case FAMILY_TALK:
            TalkMessages(parts);
            return;
        case FAMILY_ALARM:
            AlarmMessage(parts);
            return;
        default:
            if (!parts.empty())
                Error("\"" + FunctionName() + "\" carries no message");
            return;
        }
    }

    void Number(int position, const std::string& cell, const char* what)
    {
        const std::string text = TrimBlanks(cell);
        if (text.empty())
            return;
        if (!position) {
            Error("\"" + FunctionName() + "\" has no " + what);
            return;
        }
        const int most = KeyFieldKind(key->functionId, position) == KEYFIELD_U8 ? 0xFF : 0xFFFF;
        int value = 0;
        if (!ParseInt(text.c_str(), &value) || value < 0 || value > most) {
            Error(FormatString("%s \"%s\" is not a number from 0 to %d", what, text.c_str(), most));
            return;
        }
        SetKeyFieldNumber(key, position, value);
    }

    void Trigger(int position, const std::string& cell)
    {
        const std::string text = TrimBlanks(cell);
        if (text.empty() || !position) {
            Number(position, cell, "trigger type");
            return;
        }
        const bool indicator = KeyFamily(key->functionId) == FAMILY_INDICATOR;
        const char* const* names = indicator ? kIndicatorTriggers : kTriggers;
        const int count = indicator ? 2 : 3;
        for (int i = 0; i < count; i++) {
            if (SameLetters(text, names[i])) {
                SetKeyFieldNumber(key, position, i);
                return;
            }
        }
        int value = 0;
        if (ParseInt(text.c_str(), &value) && value >= 0 && value <= 0xFF) {
            SetKeyFieldNumber(key, position, value);
            return;
        }
        std::string known;
        for (int i = 0; i < count; i++)
            known += std::string(i ? ", " : "") + names[i];
        Error("trigger type \"" + text + "\" is not one of " + known);
    }

    void Locked(int position, const std::string& cell)
    {
        const std::string text = TrimBlanks(cell);
        if (text.empty())
            return;
        if (!position) {
            Error("\"" + FunctionName() + "\" has no \"active when locked\"");
            return;
        }
        if (SameLetters(text, "yes") || text == "1")
            SetKeyFieldNumber(key, position, 1);
        else if (SameLetters(text, "no") || text == "0")
            SetKeyFieldNumber(key, position, 0);
        else
            Error("active when locked is \"" + text + "\", not yes or no");
    }
};

void CheckLabel(bool numeric, const std::string& label, std::vector<std::string>* errors)
{
    if (label.empty())
        return;
    if (numeric) {
        errors->push_back("a numeric key has no label");
        return;
    }
    for (char c : label) {
        if ((unsigned char)c < 0x20 || c == 0x7F) {
            errors->push_back("the label holds a control character or a line break");
            return;
        }
    }
    if (label.size() > REPORT_LABEL_LENGTH)
        errors->push_back(FormatString("the label has %zu characters, the device shows %d", label.size(),
                                       REPORT_LABEL_LENGTH));
}

// A new key of the function: the record a new key of its family gets, or the
// bare name, as a drop makes it; a key of the same family keeps its fields.
KEYSLOT NewKey(const KEYSLOT& current, int32_t id)
{
    KEYSLOT key = EmptyKeySlot();
    const int family = KeyFamily(id);
    if (id != KF_EMPTY && family == KeyFamily(current.functionId)) {
        key = current;
    } else {
        const char* record = DefaultKeyRecord(id);
        if (!record && family >= 0)
            record = DefaultKeyRecord((family + 1) * 10);
        ParseKeyRecord(record ? record : KeyFunctionName(id), &key);
    }
    key.functionId = id;
    key.variant = (uint8_t)(id % 10);
    return key;
}

}  // namespace

std::string TrimBlanks(const std::string& text)
{
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos)
        return std::string();
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool SameLetters(const std::string& a, const std::string& b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); i++) {
        char x = a[i], y = b[i];
        if (x >= 'A' && x <= 'Z')
            x = (char)(x - 'A' + 'a');
        if (y >= 'A' && y <= 'Z')
            y = (char)(y - 'A' + 'a');
        if (x != y)
            return false;
    }
    return true;
}

int PlanColumn(const std::string& header)
{
    const std::string name = TrimBlanks(header);
    for (int i = 0; i < COLUMN_COUNT; i++)
        if (SameLetters(name, kColumnNames[i]))
            return i;
    return -1;
}

const char* PlanColumnName(PLANCOLUMN column)
{
    return column >= 0 && column < COLUMN_COUNT ? kColumnNames[column] : "";
}

bool BuildPlannedKey(const KEYCONTEXT& context, const KEYROW& current, const KEYREQUEST& request, KEYSLOT* key,
                     std::string* label, std::vector<std::string>* errors)
{
    *key = current.key;
    *label = current.label;
    bool changed = false;
    if (const std::string* cell = request.cells[COLUMN_FUNCTION]) {
        const std::string name = TrimBlanks(*cell);
        const int32_t id = KeyFunctionId(name.c_str());
        if (!name.empty() && id == KF_EMPTY && !SameLetters(name, "Empty")) {
            errors->push_back("function \"" + name + "\" is unknown");
            return false;
        }
        if (!name.empty() && !SameLetters(name, current.function)) {
            *key = NewKey(current.key, id);
            changed = true;
        }
    }
    // A cell as the report shows the key leaves its field alone; a new
    // function takes every cell that says something.
    auto given = [&](PLANCOLUMN column, const std::string& shown) -> const std::string* {
        const std::string* cell = request.cells[column];
        if (!cell)
            return nullptr;
        if (changed ? TrimBlanks(*cell).empty() : *cell == shown || TrimBlanks(*cell) == shown)
            return nullptr;
        return cell;
    };
    ROWBUILDER row{context, key, errors};
    const FAMILYFIELDS fields = FieldsOf(KeyFamily(key->functionId));
    if (const std::string* cell = given(COLUMN_DESTINATION, current.destination))
        row.Destination(*cell);
    if (const std::string* cell = given(COLUMN_MESSAGE, current.message))
        row.MessageCell(*cell);
    if (const std::string* cell = given(COLUMN_PRIORITY, current.priority))
        row.Number(fields.priority, *cell, "priority");
    if (const std::string* cell = given(COLUMN_TRIGGER, current.trigger))
        row.Trigger(fields.trigger, *cell);
    if (const std::string* cell = given(COLUMN_LOCKED, current.locked))
        row.Locked(fields.locked, *cell);
    if (const std::string* cell = request.cells[COLUMN_LABEL]) {
        if (*cell != current.label) {
            CheckLabel(current.numeric, *cell, errors);
            *label = *cell;
        }
    }
    return changed;
}

void CheckPlannedKey(const KEYCONTEXT& context, const KEYSLOT& key, std::vector<std::string>* errors)
{
    const CONTROLLERDESIGN* controller = context.controller;
    auto offered = [&](OFFERKIND kind) -> const OFFERLIST* {
        return controller && controller->offers[kind].present ? &controller->offers[kind] : nullptr;
    };
    const char* function = KeyFunctionName(key.functionId);
    const DESTKIND kind = DestinationKind(key.functionId);
    if (kind != DEST_NONE) {
        const char* what = kind == DEST_ZONE ? "zone" : "group";
        if (!key.text1[0]) {
            errors->push_back(FormatString("\"%s\" without a %s", function, what));
        } else if (const OFFERLIST* list = offered(kind == DEST_ZONE ? OFFER_ZONES : OFFER_GROUPS)) {
            std::string owner, name;
            SplitDestination(key.text1, &owner, &name);
            if (owner != controller->name)
                errors->push_back(FormatString("%s %s is not one of %s", what, key.text1, controller->name.c_str()));
            else if (!list->Has(name))
                errors->push_back(
                    FormatString("%s \"%s\" is not offered by %s", what, name.c_str(), controller->name.c_str()));
        }
    }
    std::vector<std::string> messages;
    if (const OFFERLIST* list = offered(OFFER_MESSAGES)) {
        if (CarriesMessage(key, &messages))
            for (const std::string& message : messages)
                if (!list->Has(message))
                    errors->push_back(FormatString("message \"%s\" is not offered by %s", message.c_str(),
                                                   controller->name.c_str()));
    }
    const std::string input = InputChannel(key);
    if (const OFFERLIST* list = offered(OFFER_INPUTS))
        if (!input.empty() && !list->Has(input))
            errors->push_back(FormatString("input channel \"%s\" is not offered by %s", input.c_str(),
                                           controller->name.c_str()));
    const std::string variable = LogicVariable(key);
    if (const OFFERLIST* list = offered(OFFER_LOGIC))
        if (!variable.empty() && !list->Has(variable))
            errors->push_back(FormatString("logic variable \"%s\" is not offered by %s", variable.c_str(),
                                           controller->name.c_str()));
}
