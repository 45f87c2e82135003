// The lists a console's controller offers the editor: recorded messages,
// zones, groups, audio inputs, logic and arithmetic variables.
#pragma once

#include <string>
#include <vector>

class CONSOLEPROPERTIES;

// The list names the controller serves them by.
extern const char kMessageList[];      // "MM2Messages": "NAME|NUMBER" entries
extern const char kZoneList[];         // "Matrix.SystemZones"
extern const char kGroupList[];        // "Matrix.SystemGroups"
extern const char kInputList[];        // "Matrix.ListOfInputs"
extern const char kValueList[];        // "TE.ListOfValues"
extern const char kConditionList[];    // "Pagings.VCondition.List"

// The controller object's name of the console's connection ("ORNCON_1"); empty without one.
std::string ConnectedControllerName(CONSOLEPROPERTIES* console);
// A list of the connected controller as one text of comma-separated items;
// false when the console has no controller or the controller has no such
// list (the caller then shows nothing).
bool ReadHostList(CONSOLEPROPERTIES* console, const char* name, std::string* list);
// The same, as items.
std::vector<std::string> HostListItems(CONSOLEPROPERTIES* console, const char* name);
