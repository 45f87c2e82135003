#include "designtext.h"

#include <ctype.h>
#include <limits.h>
#include <stdlib.h>
#include <string.h>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char kControlKeyword[] = "control";

bool IsControlKey(const std::string& key, std::string* parent)
{
    const size_t star = key.rfind('*');
    const std::string local = star == std::string::npos ? key : key.substr(star + 1);
    if (local != kControlKeyword)
        return false;
    *parent = star == std::string::npos ? std::string() : key.substr(0, star + 1);
    return true;
}

// A small cursor over the control line's value.
struct Scanner {
    const char* p;
    const char* end;

    void SkipBlanks()
    {
        while (p < end && (*p == ' ' || *p == '\t'))
            p++;
    }
    bool AtEnd() const { return p >= end; }

    bool Hex(uint32_t* value, bool allowPlainZero)
    {
        SkipBlanks();
        if (allowPlainZero && p < end && *p == '0' && (p + 1 == end || p[1] == ' ' || p[1] == '\t')) {
            p++;
            *value = 0;
            return true;
        }
        if (end - p < 3 || p[0] != '0' || (p[1] != 'x' && p[1] != 'X'))
            return false;
        p += 2;
        uint32_t result = 0;
        int digits = 0;
        while (p < end && isxdigit((unsigned char)*p)) {
            if (++digits > 8)
                return false;
            const char c = (char)tolower((unsigned char)*p++);
            result = result * 16 + (uint32_t)(c <= '9' ? c - '0' : c - 'a' + 10);
        }
        *value = result;
        return digits > 0 && (p == end || *p == ' ' || *p == '\t');
    }

    bool Word(std::string* word)
    {
        SkipBlanks();
        const char* start = p;
        while (p < end && (isalnum((unsigned char)*p) || *p == '_'))
            p++;
        word->assign(start, p);
        return !word->empty() && (p == end || *p == ' ' || *p == '\t');
    }

    // A double-quoted text in which \" stands for a quote; other backslashes
    // stand for themselves.
    bool Quoted(std::string* text)
    {
        SkipBlanks();
        if (p >= end || *p != '"')
            return false;
        p++;
        text->clear();
        while (p < end) {
            if (*p == '\\' && p + 1 < end && p[1] == '"') {
                text->push_back('"');
                p += 2;
            } else if (*p == '"') {
                p++;
                return true;
            } else {
                text->push_back(*p++);
            }
        }
        return false;
    }
};

bool ParseNumber(const char** text, const char* end, int* value)
{
    const char* p = *text;
    bool negative = false;
    if (p < end && (*p == '-' || *p == '+'))
        negative = *p++ == '-';
    if (p >= end || !isdigit((unsigned char)*p))
        return false;
    long long result = 0;
    while (p < end && isdigit((unsigned char)*p)) {
        result = result * 10 + (*p++ - '0');
        if (result > (long long)INT_MAX + 1)
            return false;
    }
    if (negative)
        result = -result;
    if (result < INT_MIN || result > INT_MAX)
        return false;
    *value = (int)result;
    *text = p;
    return true;
}

bool Expect(const char** text, const char* end, char c)
{
    if (*text >= end || **text != c)
        return false;
    (*text)++;
    return true;
}

bool CopyPart(const char* begin, size_t length, char* out, size_t size)
{
    return CopyTextN(out, size, begin, length);
}

}  // namespace

DESIGNLINE SplitDesignLine(const char* line, size_t length)
{
    DESIGNLINE result;
    while (length > 0 && (line[length - 1] == '\r' || line[length - 1] == '\n'))
        length--;
    if (length == 0)
        return result;

    const char* equals = static_cast<const char*>(memchr(line, '=', length));
    if (!equals || equals == line) {
        result.kind = DESIGNLINE_MALFORMED;
        return result;
    }
    const std::string key(line, equals);
    result.value.assign(equals + 1, line + length);

    if (IsControlKey(key, &result.object)) {
        result.kind = DESIGNLINE_CONTROL;
        return result;
    }
    const size_t star = key.rfind('*');
    if (star == std::string::npos) {
        result.kind = DESIGNLINE_HOST;
        result.keyword = key;
        return result;
    }
    if (star == 0 || star + 1 == key.size()) {
        result.kind = DESIGNLINE_MALFORMED;
        return result;
    }
    result.kind = DESIGNLINE_OBJECT;
    result.object = key.substr(0, star);
    result.keyword = key.substr(star + 1);
    return result;
}

bool ParseControlSpec(const std::string& value, CONTROLSPEC* spec, std::string* error)
{
    Scanner scan{value.data(), value.data() + value.size()};
    CONTROLSPEC parsed;
    if (!scan.Hex(&parsed.exStyle, true)) {
        *error = "extended style";
        return false;
    }
    if (!scan.Word(&parsed.className)) {
        *error = "class name";
        return false;
    }
    if (!scan.Quoted(&parsed.name) || parsed.name.empty()) {
        *error = "window name";
        return false;
    }
    if (!scan.Hex(&parsed.style, false)) {
        *error = "style";
        return false;
    }
    scan.SkipBlanks();
    const std::string rect(scan.p, scan.end);
    if (!ParseRectString(rect.c_str(), &parsed.x, &parsed.y, &parsed.cx, &parsed.cy)) {
        *error = "rectangle";
        return false;
    }
    *spec = parsed;
    return true;
}

std::string FormatRectString(int left, int top, int width, int height)
{
    char text[64];
    FormatText(text, sizeof text, "%d,%d,%dx%d", left, top, width, height);
    return text;
}

bool ParseRectString(const char* text, int* x, int* y, int* cx, int* cy)
{
    const char* p = text;
    const char* end = text + strlen(text);
    while (end > p && (end[-1] == ' ' || end[-1] == '\t'))
        end--;
    int values[4];
    if (!ParseNumber(&p, end, &values[0]) || !Expect(&p, end, ',') ||
        !ParseNumber(&p, end, &values[1]) || !Expect(&p, end, ',') ||
        !ParseNumber(&p, end, &values[2]) || !Expect(&p, end, 'x') ||
        !ParseNumber(&p, end, &values[3]) || p != end)
        return false;
    if (values[2] < 0 || values[3] < 0)
        return false;
    *x = values[0];
    *y = values[1];
    *cx = values[2];
    *cy = values[3];
    return true;
}

bool SplitKeyValue(const std::string& line, std::string* key, std::string* value)
{
    const size_t equals = line.find('=');
    if (equals == std::string::npos)
        return false;
    *key = line.substr(0, equals);
    *value = line.substr(equals + 1);
    return true;
}

bool CopyLineKey(const char* line, char* key, size_t size)
{
    const char* equals = strchr(line, '=');
    size_t length = equals ? (size_t)(equals - line) : strcspn(line, "\r\n");
    return CopyPart(line, length, key, size);
}

bool CopyLineValue(const char* line, char* value, size_t size)
{
    const char* equals = strchr(line, '=');
    if (!equals)
        return CopyText(value, size, "");
    const char* start = equals + 1;
    return CopyPart(start, strcspn(start, "\r\n"), value, size);
}

bool IsWritableObjectName(const std::string& parent, const std::string& local, std::string* why)
{
    if (local.find('"') != std::string::npos || parent.find('"') != std::string::npos)
        *why = "a double quote";
    else if (local.find('=') != std::string::npos || parent.find('=') != std::string::npos)
        *why = "\"=\"";
    else if (local.find('*') != std::string::npos)
        *why = "\"*\" outside its parent path";
    else if (!local.empty() && local.back() == '\\')
        *why = "a backslash at its end";
    else
        return true;
    return false;
}
