#include "managerrules.h"

#include "../../base/banned.h"

const char kConsoleModuleName[] = "DOVRIXCSTModule";

namespace {

// The object's own name, after its parent path.
std::string LocalName(const std::string& name)
{
    const size_t star = name.rfind('*');
    return star == std::string::npos ? name : name.substr(star + 1);
}

bool StartsWith(const std::string& text, const char* prefix)
{
    return text.compare(0, std::char_traits<char>::length(prefix), prefix) == 0;
}

}  // namespace

bool IsControllerName(const std::string& name)
{
    const std::string local = LocalName(name);
    return (StartsWith(local, "ORNCON_") || StartsWith(local, "ELKCON_")) && local.find('.') == std::string::npos;
}

bool IsConsoleObjectName(const std::string& name)
{
    const std::string local = LocalName(name);
    return StartsWith(local, "ORNCST_") || StartsWith(local, "ELKCST_");
}

char FamilyOf(const std::string& name)
{
    const std::string local = LocalName(name);
    if (StartsWith(local, "ORNCON_") || StartsWith(local, "ORNCST_"))
        return 'A';
    if (StartsWith(local, "ELKCON_") || StartsWith(local, "ELKCST_"))
        return 'B';
    return 0;
}

std::string ControllerItemText(const std::string& controller, const std::string& port)
{
    return "Controller (" + controller + ")." + port;
}

bool SplitDropText(const std::string& text, DROPTEXT* drop)
{
    const size_t dot = text.rfind('.');
    const size_t open = text.find('(');
    const size_t close = text.find(')');
    if (dot == std::string::npos || open == std::string::npos || close == std::string::npos || close < open)
        return false;
    drop->port = text.substr(dot);
    drop->controller = text.substr(open + 1, close - open - 1);
    return true;
}

bool DropReachesPartnersFamily(const DROPTEXT& drop, const std::string& partner)
{
    return IsControllerName(drop.controller) && FamilyOf(drop.controller) != 0 &&
           FamilyOf(drop.controller) == FamilyOf(partner);
}
