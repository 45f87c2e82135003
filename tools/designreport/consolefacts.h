// The consoles of a design by controller, and what the report says of each:
// name, type, address, connection, extensions, online at save. Platform-free.
#pragma once

#include <string>
#include <vector>

#include "designmodel.h"

struct CONSOLEGROUP {
    const CONTROLLERDESIGN* controller;  // null: the consoles of no controller of the design
    std::vector<const CONSOLEDESIGN*> consoles;
};
// The design's controllers in design order, each with its consoles in design
// order; a last group without controller when some console has none.
std::vector<CONSOLEGROUP> GroupConsoles(const DESIGNMODEL& model);

struct CONSOLEFACTS {
    std::string displayName;  // "name"; the object name when it has none
    std::string type;         // the model's name, or its number
    std::string address;
    std::string connection;   // "No Connection" without one
    std::string extensions;
    std::string online;       // "yes", "no", or "unknown" without the controller's line
};
CONSOLEFACTS FactsOf(const DESIGNMODEL& model, const CONSOLEDESIGN& console);
