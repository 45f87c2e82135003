#include "archiverules.h"

#include <ctype.h>
#include <string.h>
#include <strings.h>

#include "../../base/banned.h"

namespace {

bool IsSeparator(char c)
{
    return c == '\\' || c == '/';
}

// CON, PRN, AUX, NUL, COM1-9, LPT1-9, whatever follows a dot.
bool IsDeviceName(const std::string& component)
{
    const std::string stem = component.substr(0, component.find('.'));
    static const char* const devices[] = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    for (const char* device : devices)
        if (strcasecmp(stem.c_str(), device) == 0)
            return true;
    if (stem.size() == 4 && (strncasecmp(stem.c_str(), "COM", 3) == 0 || strncasecmp(stem.c_str(), "LPT", 3) == 0) &&
        stem[3] >= '1' && stem[3] <= '9')
        return true;
    return false;
}

bool Refuse(std::string* reason, const char* why)
{
    if (reason)
        *reason = why;
    return false;
}

}  // namespace

FIRMWAREROLE ClassifyFirmwareEntry(const char* name)
{
    if (strstr(name, "ZEL4k_DB_"))
        return ROLE_DATABASE;
    if (strstr(name, "ZEL4k_FONT_"))
        return ROLE_FONT;
    return ROLE_FIRMWARE;
}

const char* FirmwareFolderOf(int deviceType)
{
    return deviceType == 4 || deviceType == 6 ? "Firmware\\SOLVAN\\" : "Firmware\\TX4400\\";
}

bool IsSafeEntryName(const char* name, size_t length, std::string* reason)
{
    if (!name || length == 0)
        return Refuse(reason, "empty name");
    if (length >= ENTRYNAME_SIZE)
        return Refuse(reason, "name longer than its buffer");
    if (memchr(name, '\0', length))
        return Refuse(reason, "name with a NUL byte");
    if (IsSeparator(name[0]))
        return Refuse(reason, "absolute name");
    for (size_t i = 0; i < length; i++) {
        if (name[i] == ':')
            return Refuse(reason, "drive letter or stream name");
        if ((unsigned char)name[i] < 0x20)
            return Refuse(reason, "control character in the name");
    }
    size_t start = 0;
    while (start <= length) {
        size_t end = start;
        while (end < length && !IsSeparator(name[end]))
            end++;
        const std::string component(name + start, end - start);
        if (component == "..")
            return Refuse(reason, "\"..\" component");
        if (!component.empty() && component != "." &&
            (component.back() == '.' || component.back() == ' '))
            return Refuse(reason, "component Windows would change");
        if (IsDeviceName(component))
            return Refuse(reason, "DOS device name");
        start = end + 1;
    }
    return true;
}

bool WithinExtractionLimits(uint32_t entries, uint64_t totalBytes)
{
    return entries <= kMaxEntries && totalBytes <= kMaxTotalBytes;
}
