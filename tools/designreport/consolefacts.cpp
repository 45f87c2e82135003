#include "consolefacts.h"

#include "../../plugin/device/consolesettings.h"

#include "../../base/text.h"
#include "../../base/banned.h"

std::vector<CONSOLEGROUP> GroupConsoles(const DESIGNMODEL& model)
{
    std::vector<CONSOLEGROUP> groups;
    groups.reserve(model.controllers.size() + 1);
    for (const CONTROLLERDESIGN& controller : model.controllers)
        groups.push_back(CONSOLEGROUP{&controller, {}});
    CONSOLEGROUP loose = {nullptr, {}};
    for (const CONSOLEDESIGN& console : model.consoles) {
        auto found = model.controllerIndex.find(console.Controller());
        if (found == model.controllerIndex.end())
            loose.consoles.push_back(&console);
        else
            groups[found->second].consoles.push_back(&console);
    }
    if (!loose.consoles.empty())
        groups.push_back(std::move(loose));
    return groups;
}

CONSOLEFACTS FactsOf(const DESIGNMODEL& model, const CONSOLEDESIGN& console)
{
    CONSOLEFACTS facts;
    facts.displayName = console.displayName.text.empty() ? console.name : console.displayName.text;
    const char* modelText = ModelText(console.model);
    facts.type = modelText[0] ? modelText : FormatString("%d", console.model);
    facts.address = console.address.line ? FormatString("%d", console.addressNumber) : "none";
    facts.connection = console.hasConnection && !console.connection.text.empty() ? console.connection.text
                                                                                 : "No Connection";
    facts.extensions = FormatString("%d", console.extensions);
    facts.online = "unknown";
    if (const CONTROLLERDESIGN* controller = model.FindController(console.Controller())) {
        auto state = controller->onlineAtSave.find(console.name);
        facts.online = state != controller->onlineAtSave.end() && state->second ? "yes" : "no";
    }
    return facts;
}
