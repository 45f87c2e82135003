#include "portlist.h"

#include <string.h>

#include "../../base/text.h"
#include "../../base/banned.h"

// "PORT,ADDRESS[,MODEL]"
bool ParsePortPosition(const char* params, std::string* port, int* address, int* model)
{
    const char* comma = params ? strchr(params, ',') : nullptr;
    if (!comma)
        return false;
    port->assign(params, comma);
    int parsedModel = 0;
    char rest[64];
    if (!CopyText(rest, comma + 1))
        return false;
    char* second = strchr(rest, ',');
    if (second) {
        *second = '\0';
        if (!ParseInt(second + 1, &parsedModel))
            return false;
    }
    if (!ParseInt(rest, address))
        return false;
    if (model)
        *model = parsedModel;
    return true;
}

std::string JoinPorts(const std::vector<std::string>& ports)
{
    std::string text;
    for (const std::string& port : ports)
        text += (text.empty() ? "" : ",") + port;
    return text;
}

bool SplitPorts(const std::string& text, std::vector<std::string>* ports)
{
    std::vector<std::string> parsed;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find(',', start);
        if (end == std::string::npos)
            end = text.size();
        const std::string port = text.substr(start, end - start);
        // A console port carries "CST" in its name, and names contain no "." or ",".
        if (port.find("CST") == std::string::npos || port.find('.') != std::string::npos)
            return false;
        parsed.push_back(port);
        start = end + 1;
    }
    *ports = parsed;
    return true;
}


std::string JoinZones(const std::vector<std::string>& zones)
{
    return JoinPorts(zones);
}

bool SplitZones(const std::string& text, std::vector<std::string>* zones)
{
    std::vector<std::string> parsed;
    size_t start = 0;
    while (!text.empty() && start <= text.size()) {
        size_t end = text.find(',', start);
        if (end == std::string::npos)
            end = text.size();
        const std::string zone = text.substr(start, end - start);
        if (zone.empty() || zone.find_first_of(".\r\n") != std::string::npos)
            return false;
        parsed.push_back(zone);
        start = end + 1;
    }
    *zones = parsed;
    return true;
}
