#include "configurationrules.h"

#include <string.h>

#include "../../base/banned.h"

const char* SharedConsoleFamily(const char* mine, const char* other)
{
    if (strstr(mine, "ELKCST_") && strstr(other, "ELKCST_"))
        return "ELKCST_";
    if (strstr(mine, "ORNCST_") && strstr(other, "ORNCST_"))
        return "ORNCST_";
    return nullptr;
}

bool IsZelConsole(const char* name)
{
    return strstr(name, "ZEL") != nullptr;
}

const char* FirmwareHeader(const char* name, int type)
{
    if (IsZelConsole(name))
        return "ZEL FIRMWARE";
    return type == 3 || type == 6 ? "CSK FIRMWARE" : "CST FIRMWARE";
}

int SelectorDropHeight(int count)
{
    return count > 0 ? count * 80 : 20;
}

std::string PttKeyLine(const KEYSLOT& key, const char* const names[3])
{
    const int variant = key.functionId % 10;
    // The PTT family's fields, formatted from the key's own cells.
    KEYSLOT ptt = key;
    ptt.functionId = 150;
    ptt.variant = 0;
    const std::string record = FormatKeyRecord(ptt);
    const size_t comma = record.find(',');
    const std::string fields = comma == std::string::npos ? std::string() : record.substr(comma);
    const char* name = variant >= 0 && variant <= 2 && names[variant] ? names[variant] : "";
    return std::string("key123=") + name + fields;
}
