#include "designlines.h"

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
