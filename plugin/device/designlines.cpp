#include "designlines.h"

#include <limits.h>
#include <stdio.h>
#include <string.h>

#include "../../base/text.h"
#include "../../base/banned.h"

const char* SplitObjectName(const char* fullName, char* prefix, size_t prefixSize)
{
    const char* star = strrchr(fullName, '*');
    if (!star) {
        CopyText(prefix, prefixSize, "");
        return fullName;
    }
    CopyTextN(prefix, prefixSize, fullName, (size_t)(star - fullName) + 1);
    return star + 1;
}

bool ShiftOldFaultMaskKey(char* key, size_t size)
{
    int number = 0;
    if (sscanf(key, "FaultMask%d", &number) != 1 || number <= 6 || number >= 10)
        return false;
    return FormatText(key, size, "FaultMask%d", number + 1);
}

bool IsOldProjectVersion(const char* version)
{
    if (!version || !version[0])
        return false;
    int major = 0, minor = 0, patch = 0;
    sscanf(version, "V %d.%d.%d", &major, &minor, &patch);
    // Both conditions on their own numbers: V 2.9.0 is not old, V 0.7.0 is.
    return major < 3 && minor < 8;
}

namespace {

// Past the decimal number that ScanLeadingInt read at text.
const char* SkipNumber(const char* text)
{
    while (*text == ' ' || *text == '\t')
        text++;
    if (*text == '+' || *text == '-')
        text++;
    while (*text >= '0' && *text <= '9')
        text++;
    return text;
}

}  // namespace

bool ParsePosition(const char* text, int* x, int* y)
{
    if (!text || !ScanLeadingInt(text, x))
        return false;
    const char* comma = SkipNumber(text);
    return *comma == ',' && ScanLeadingInt(comma + 1, y);
}

int PullBackInside(int position, int extent, int limit)
{
    const long long highest = (long long)limit - extent;
    if ((long long)position <= highest)
        return position;
    if (highest < INT_MIN)
        return INT_MIN;
    return (int)highest;
}

int AddSaturated(int a, int b)
{
    const long long sum = (long long)a + b;
    return sum > INT_MAX ? INT_MAX : sum < INT_MIN ? INT_MIN : (int)sum;
}

int CountExtensionTypes(const char* text, int count)
{
    int used = 0;
    const char* p = text;
    for (int slot = 0; p && slot < count; slot++) {
        int value = 0;
        if (!ScanLeadingInt(p, &value))
            break;
        if (value != 0)
            used++;
        p = strchr(p, ',');
        if (p)
            p++;
    }
    return used;
}

std::vector<std::string> SplitLayerList(const char* text, size_t nameSize)
{
    std::vector<std::string> layers;
    const char* start = text ? text : "";
    while (*start) {
        const size_t length = strcspn(start, ",");
        const size_t kept = nameSize > 0 && length > nameSize - 1 ? nameSize - 1 : length;
        if (kept > 0)
            layers.emplace_back(start, kept);
        start += length;
        if (*start == ',')
            start++;
    }
    return layers;
}

CONNECTIONTEXT SplitConnection(const char* text)
{
    CONNECTIONTEXT parts;
    const char* dot = text ? strchr(text, '.') : nullptr;
    if (!dot)
        return parts;
    parts.controller.assign(text, dot);
    parts.port = dot + 1;
    parts.valid = (parts.controller.find("ELKCON_") != std::string::npos ||
                   parts.controller.find("ORNCON_") != std::string::npos) &&
                  parts.port.find("CST") != std::string::npos;
    return parts;
}
