#include "hostlists.h"

#include <string.h>

#include "pagetable.h"
#include "../device/connectionlist.h"
#include "../device/consoleproperties.h"
#include "../device/partner.h"

#include "analyze.h"
#include "../../base/text.h"
#include "../../base/banned.h"

const char kMessageList[] = "MM2Messages";
const char kZoneList[] = "Matrix.SystemZones";
const char kGroupList[] = "Matrix.SystemGroups";
const char kInputList[] = "Matrix.ListOfInputs";
const char kValueList[] = "TE.ListOfValues";
const char kConditionList[] = "Pagings.VCondition.List";

std::string ConnectedControllerName(CONSOLEPROPERTIES* console)
{
    const char* text = console ? FirstConnectionText(console) : nullptr;
    if (!text)
        return std::string();
    const char* dot = strchr(text, '.');
    return dot ? std::string(text, dot) : std::string(text);
}

bool ReadHostList(CONSOLEPROPERTIES* console, const char* name, std::string* list)
{
    list->clear();
    const std::string controllerName = ConnectedControllerName(console);
    HOSTINFO* controller = controllerName.empty() ? nullptr : a_FindHostinfo(controllerName.c_str());
    if (!controller)
        return false;
    // A request's text holds at most REQUEST_TEXT_SIZE bytes with its end.
    std::vector<char> text(REQUEST_TEXT_SIZE, '\0');
    if (!ReadVariable(controller, name, text.data(), REQTYPE_TEXT))
        return false;
    text.back() = '\0';
    list->assign(text.data());
    return true;
}

std::vector<std::string> HostListItems(CONSOLEPROPERTIES* console, const char* name)
{
    std::string list;
    if (!ReadHostList(console, name, &list))
        return std::vector<std::string>();
    return SplitItems(list.c_str());
}
