#include "widgetattributes.h"

#include <ctype.h>
#include <string.h>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char* const kClasses[] = {"", "BSTATIC", "BEDIT", "BTRISTATEBUTTON", "BBUTTON", "LED"};

std::string TrimmedBlanks(const std::string& text)
{
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return std::string();
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool ParseNumber(const std::string& text, int minimum, int* number)
{
    int parsed = 0;
    if (!ParseInt(text.c_str(), &parsed) || parsed < minimum)
        return false;
    *number = parsed;
    return true;
}

}  // namespace

WIDGETKIND WidgetKindOf(const std::string& keyword)
{
    for (int kind = WIDGET_STATIC; kind <= WIDGET_LED; kind++)
        if (keyword == kClasses[kind])
            return (WIDGETKIND)kind;
    return WIDGET_NONE;
}

const char* WidgetClassOf(WIDGETKIND kind)
{
    return kClasses[kind];
}

bool ParseColour(const std::string& raw, uint32_t* colour)
{
    const std::string text = TrimmedBlanks(raw);
    if (text == "0") {
        *colour = 0;
        return true;
    }
    if (text.size() < 3 || text.size() > 10 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X'))
        return false;
    uint32_t value = 0;
    for (size_t i = 2; i < text.size(); i++) {
        const char c = (char)tolower((unsigned char)text[i]);
        if (!isxdigit((unsigned char)c))
            return false;
        value = value * 16 + (uint32_t)(c <= '9' ? c - '0' : c - 'a' + 10);
    }
    *colour = value & 0x00FFFFFF;
    return true;
}

bool ApplyWidgetAttribute(const std::string& attribute, WIDGETATTRIBUTES* a, std::string* error)
{
    const size_t equals = attribute.find('=');
    if (equals == std::string::npos) {
        *error = "no \"=\" in \"" + attribute + "\"";
        return false;
    }
    const std::string keyword = attribute.substr(0, equals);
    const std::string value = attribute.substr(equals + 1);
    WIDGETATTRIBUTES changed = *a;
    bool ok = true;
    if (keyword == "function") {
        changed.function = value;
    } else if (keyword == "fmt") {
        changed.fmt = value;
    } else if (keyword == "caption") {
        changed.caption = value;
    } else if (keyword == "bitmap") {
        changed.bitmap = value;
    } else if (keyword == "textcolor") {
        ok = ParseColour(value, &changed.textColour);
    } else if (keyword == "textcolorwhenpressed") {
        ok = ParseColour(value, &changed.pressedTextColour);
    } else if (keyword == "backgroundcolor") {
        ok = ParseColour(value, &changed.backgroundColour);
    } else if (keyword == "alignment") {
        ok = value == "left" || value == "center";
        changed.alignLeft = value == "left";
    } else if (keyword == "datatype") {
        changed.textValue = value == "s" || value == "string";
        ok = changed.textValue || value == "i" || value == "int";
    } else if (keyword == "font") {
        const size_t comma = value.rfind(',');
        ok = comma != std::string::npos && comma > 0 &&
             ParseNumber(TrimmedBlanks(value.substr(comma + 1)), 1, &changed.fontPoints);
        if (ok)
            changed.fontFace = TrimmedBlanks(value.substr(0, comma));
    } else if (keyword == "interval") {
        ok = ParseNumber(value, 0, &changed.interval);
    } else if (keyword == "click") {
        const size_t inner = value.find('=');
        ok = inner != std::string::npos && inner > 0;
        if (ok) {
            changed.clickVariable = value.substr(0, inner);
            changed.clickValue = value.substr(inner + 1);
        }
    } else if (keyword == "value") {
        ok = ParseNumber(value, INT32_MIN, &changed.value);
        changed.hasValue = ok;
    } else if (keyword == "connection") {
        changed.connection = value;
    } else {
        *error = "unknown attribute \"" + keyword + "\"";
        return false;
    }
    if (!ok) {
        *error = "bad value in \"" + attribute + "\"";
        return false;
    }
    *a = changed;
    return true;
}
