#include "text.h"

#include <ctype.h>
#include <errno.h>
#include <limits.h>
#include <stdlib.h>

#include "banned.h"

bool FormatTextV(char* buf, size_t size, const char* format, va_list args)
{
    if (!buf || size == 0)
        return false;
    int written = vsnprintf(buf, size, format, args);
    if (written < 0) {
        buf[0] = '\0';
        return false;
    }
    buf[size - 1] = '\0';
    return (size_t)written < size;
}

bool FormatText(char* buf, size_t size, const char* format, ...)
{
    va_list args;
    va_start(args, format);
    bool fitted = FormatTextV(buf, size, format, args);
    va_end(args);
    return fitted;
}

std::string FormatString(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    va_list measure;
    va_copy(measure, args);
    const int length = vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    std::string text;
    if (length > 0) {
        text.resize((size_t)length + 1);
        vsnprintf(&text[0], text.size(), format, args);
        text.resize((size_t)length);
    }
    va_end(args);
    return text;
}

bool CopyTextN(char* dst, size_t size, const char* src, size_t count)
{
    if (!dst || size == 0)
        return false;
    if (!src)
        src = "";
    size_t length = strnlen(src, count);
    bool fitted = length < size;  // the count-limited text fits whole
    if (!fitted)
        length = size - 1;
    memcpy(dst, src, length);
    dst[length] = '\0';
    return fitted;
}

bool CopyText(char* dst, size_t size, const char* src)
{
    return CopyTextN(dst, size, src, (size_t)-1);
}

bool AppendText(char* dst, size_t size, const char* src)
{
    if (!dst || size == 0)
        return false;
    size_t used = strnlen(dst, size);
    if (used >= size)
        return false;
    return CopyText(dst + used, size - used, src);
}

bool ScanLeadingInt(const char* text, int* value)
{
    if (!text)
        return false;
    char* end = nullptr;
    errno = 0;
    const long parsed = strtol(text, &end, 10);
    if (end == text || errno == ERANGE || parsed < INT_MIN || parsed > INT_MAX)
        return false;
    *value = (int)parsed;
    return true;
}

bool ParseInt(const char* text, int* value)
{
    if (!text)
        return false;
    while (isspace((unsigned char)*text))
        text++;
    if (*text == '\0')
        return false;
    char* end = nullptr;
    errno = 0;
    long parsed = strtol(text, &end, 10);
    if (end == text || errno == ERANGE || parsed < INT_MIN || parsed > INT_MAX)
        return false;
    while (isspace((unsigned char)*end))
        end++;
    if (*end != '\0')
        return false;
    *value = (int)parsed;
    return true;
}
