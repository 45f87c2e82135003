#include "designcheck.h"

#include <string.h>

#include <algorithm>
#include <map>

#include "keyrows.h"
#include "../../plugin/device/designlines.h"
#include "../../plugin/keys/keycatalogue.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

struct KEYCHECK {
    const DESIGNMODEL& model;
    const CONSOLEDESIGN& console;
    const CONTROLLERDESIGN* controller;  // the console's, when the design has it
    PROBLEMLIST* problems;

    void Report(const KEYROW& row, PROBLEMKIND kind, const std::string& text) const
    {
        problems->Add(row.line, kind, console.name,
                      KeyKeyword(row) + " (\"" + KeyRowCaption(console, row.slot, row.numeric) + "\"): " + text);
    }

    // The controller's list of a kind, when the design carries it.
    const OFFERLIST* Offered(OFFERKIND kind) const
    {
        return controller && controller->offers[kind].present ? &controller->offers[kind] : nullptr;
    }

    void Destination(const KEYROW& row) const
    {
        const DESTKIND kind = DestinationKind(row.key.functionId);
        if (kind == DEST_NONE)
            return;
        const char* what = kind == DEST_ZONE ? "zone" : "group";
        if (!row.key.text1[0]) {
            Report(row, PROBLEM_NO_DESTINATION,
                   FormatString("%s without a %s", KeyFunctionName(row.key.functionId), what));
            return;
        }
        const OFFERLIST* list = Offered(kind == DEST_ZONE ? OFFER_ZONES : OFFER_GROUPS);
        if (!list)
            return;
        std::string owner, name;
        SplitDestination(row.key.text1, &owner, &name);
        if (owner != controller->name)
            Report(row, PROBLEM_DESTINATION,
                   FormatString("%s %s is not one of %s", what, row.key.text1, controller->name.c_str()));
        else if (!list->Has(name))
            Report(row, PROBLEM_DESTINATION,
                   FormatString("%s \"%s\" is not offered by %s", what, name.c_str(), controller->name.c_str()));
    }

    void Messages(const KEYROW& row) const
    {
        const OFFERLIST* list = Offered(OFFER_MESSAGES);
        const char* messages[2];
        const int count = list ? KeyMessages(row.key, messages) : 0;
        for (int i = 0; i < count; i++)
            if (!list->Has(messages[i]))
                Report(row, PROBLEM_MESSAGE, FormatString("message \"%s\" is not offered by %s", messages[i],
                                                          controller->name.c_str()));
    }

    void Input(const KEYROW& row) const
    {
        const std::string input = InputChannel(row.key);
        const OFFERLIST* list = Offered(OFFER_INPUTS);
        if (!input.empty() && list && !list->Has(input))
            Report(row, PROBLEM_INPUT, FormatString("input channel \"%s\" is not offered by %s", input.c_str(),
                                                    controller->name.c_str()));
    }

    void Logic(const KEYROW& row) const
    {
        const std::string variable = LogicVariable(row.key);
        const OFFERLIST* list = Offered(OFFER_LOGIC);
        if (!variable.empty() && list && !list->Has(variable))
            Report(row, PROBLEM_LOGIC, FormatString("logic variable \"%s\" is not offered by %s", variable.c_str(),
                                                    controller->name.c_str()));
    }

    void Function(const KEYROW& row, const KEYLINE& line) const
    {
        if (row.key.functionId != KF_EMPTY)
            return;
        const std::string recordName = line.record.text.substr(0, line.record.text.find(','));
        if (!recordName.empty() && strcasecmp_ascii(recordName, "Empty") != 0)
            Report(row, PROBLEM_UNKNOWN_FUNCTION,
                   FormatString("function \"%s\" is unknown, the key reads as \"Empty\"", recordName.c_str()));
    }

    void Place(const KEYROW& row) const
    {
        if (row.numeric)
            return;
        int extension = 0;
        const KEYPLACE place = KeyPlace(row.slot, &extension);
        if (place == PLACE_NONE)
            Report(row, PROBLEM_HIDDEN_KEY, "configured, but no console has this key; it is still sent");
        else if (place == PLACE_EXTENSION && extension >= console.extensions)
            Report(row, PROBLEM_HIDDEN_KEY,
                   FormatString("on extension %d, the console has %d; hidden but still sent", extension + 1,
                                console.extensions));
    }

    static int strcasecmp_ascii(const std::string& a, const char* b)
    {
        const size_t length = strlen(b);
        if (a.size() != length)
            return 1;
        for (size_t i = 0; i < length; i++) {
            char x = a[i], y = b[i];
            if (x >= 'A' && x <= 'Z')
                x = (char)(x - 'A' + 'a');
            if (y >= 'A' && y <= 'Z')
                y = (char)(y - 'A' + 'a');
            if (x != y)
                return 1;
        }
        return 0;
    }
};

void CheckKeys(const DESIGNMODEL& model, const CONSOLEDESIGN& console, PROBLEMLIST* problems)
{
    const KEYCHECK check = {model, console, model.FindController(console.Controller()), problems};
    int protects = 0, indicatorTests = 0;
    // The checks read the keys' records; a key's texts are made only for a problem found.
    ForEachKeyLine(console, [&](const KEYLINE& line, bool numeric) {
        const KEYROW row = KeyOfRow(line, numeric);
        check.Function(row, line);
        check.Place(row);
        check.Destination(row);
        check.Messages(row);
        check.Input(row);
        check.Logic(row);
        if (row.key.functionId == KF_PROTECT && ++protects == 2)
            check.Report(row, PROBLEM_SECOND_PROTECT, "a second \"Protect\" key");
        if (row.key.functionId == KF_INDICATOR_TEST && ++indicatorTests == 2)
            check.Report(row, PROBLEM_SECOND_INDICATOR_TEST, "a second \"Indicator Test\" key");
    });
}

void CheckLabels(const CONSOLEDESIGN& console, PROBLEMLIST* problems)
{
    for (const KEYLINE& label : console.labels)
        if (label.record.length > REPORT_LABEL_LENGTH)
            problems->Add(label.record.line, PROBLEM_LONG_LABEL, console.name,
                          FormatString("keylabel%03d (\"%s\"): the label has %zu characters, the device shows %d",
                                       label.slot, KeyCaption(label.slot).c_str(), label.record.length,
                                       REPORT_LABEL_LENGTH));
}

void CheckConnection(const DESIGNMODEL& model, const CONSOLEDESIGN& console, PROBLEMLIST* problems)
{
    if (!console.hasConnection || console.connection.text.empty()) {
        problems->Add(console.hasConnection ? console.connection.line : console.controlLine, PROBLEM_NO_CONNECTION,
                      console.name, "the console is not connected to a controller");
        return;
    }
    const CONNECTIONTEXT connection = SplitConnection(console.connection.text.c_str());
    if (!connection.valid)
        problems->Add(console.connection.line, PROBLEM_NO_CONNECTION, console.name,
                      "connection \"" + console.connection.text + "\" is not a controller's console port");
    else if (!model.FindController(connection.controller))
        problems->Add(console.connection.line, PROBLEM_NO_CONNECTION, console.name,
                      "connected to " + connection.controller + ", which the design does not have");
}

// Two consoles of one controller at one address: the second is reported.
void CheckAddresses(const DESIGNMODEL& model, PROBLEMLIST* problems)
{
    std::map<std::pair<std::string, int>, const CONSOLEDESIGN*> taken;
    for (const CONSOLEDESIGN& console : model.consoles) {
        const std::string controller = console.Controller();
        if (controller.empty() || !console.address.line)
            continue;
        auto placed = taken.emplace(std::make_pair(controller, console.addressNumber), &console);
        if (!placed.second)
            problems->Add(console.address.line, PROBLEM_ADDRESS_TAKEN, console.name,
                          FormatString("address %d of %s is taken by %s", console.addressNumber, controller.c_str(),
                                       placed.first->second->name.c_str()));
    }
}

}  // namespace

PROBLEMLIST CheckDesign(const DESIGNMODEL& model)
{
    PROBLEMLIST problems = model.lineProblems;
    for (const CONSOLEDESIGN& console : model.consoles) {
        CheckConnection(model, console, &problems);
        CheckKeys(model, console, &problems);
        CheckLabels(console, &problems);
    }
    CheckAddresses(model, &problems);
    std::stable_sort(problems.items.begin(), problems.items.end(),
                     [](const PROBLEM& a, const PROBLEM& b) { return a.line < b.line; });
    return problems;
}

std::string FormatProblem(const std::string& fileName, const PROBLEM& problem)
{
    std::string text = FormatString("%s(%d): %s: ", fileName.c_str(), problem.line, ProblemKindText(problem.kind));
    if (!problem.object.empty())
        text += problem.object + ": ";
    return text + problem.text;
}
