// Feeds arbitrary bytes to the design-file line and widget attribute parsers
// and to the firmware entry-name rules. Besides not crashing,
// a control line that parses must format back into a line that parses to the
// same fields, and the bounded line halves must never overrun.
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <string>

#include "../host/analyze/designtext.h"
#include "../host/analyze/widgetattributes.h"
#include "../host/workbench/script.h"
#include "../plugin/firmware/archiverules.h"
#include "../plugin/device/designlines.h"
#include "../base/text.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

namespace {

std::string Quote(const std::string& name)
{
    std::string quoted = "\"";
    for (char c : name)
        quoted += c == '"' ? std::string("\\\"") : std::string(1, c);
    return quoted + "\"";
}

void CheckControlLine(const std::string& value)
{
    CONTROLSPEC spec;
    std::string error;
    if (!ParseControlSpec(value, &spec, &error))
        return;
    // A name ending in a backslash cannot be written back unambiguously.
    if (!spec.name.empty() && spec.name.back() == '\\')
        return;
    char styles[2][16];
    FormatText(styles[0], sizeof styles[0], "0x%08x", spec.exStyle);
    FormatText(styles[1], sizeof styles[1], "0x%08x", spec.style);
    const std::string again = std::string(styles[0]) + " " + spec.className + " " + Quote(spec.name) + " " +
                              styles[1] + " " + FormatRectString(spec.x, spec.y, spec.cx, spec.cy);
    CONTROLSPEC reparsed;
    if (!ParseControlSpec(again, &reparsed, &error) || reparsed.exStyle != spec.exStyle ||
        reparsed.className != spec.className || reparsed.name != spec.name || reparsed.style != spec.style ||
        reparsed.x != spec.x || reparsed.y != spec.y || reparsed.cx != spec.cx || reparsed.cy != spec.cy)
        abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const DESIGNLINE line = SplitDesignLine(text.data(), text.size());
    if (line.kind == DESIGNLINE_CONTROL)
        CheckControlLine(line.value);
    CheckControlLine(text);

    const std::string terminated = text.c_str();  // up to the first NUL, as C strings see it
    char key[64], value[64];
    CopyLineKey(terminated.c_str(), key, sizeof key);
    CopyLineValue(terminated.c_str(), value, sizeof value);
    if (strlen(key) >= sizeof key || strlen(value) >= sizeof value)
        abort();
    char faultKey[16];
    CopyText(faultKey, key);
    ShiftOldFaultMaskKey(faultKey, sizeof faultKey);
    IsOldProjectVersion(terminated.c_str());

    SCRIPTCOMMAND command;
    std::string error;
    ParseScriptLine(text, &command, &error);

    // A firmware entry name that passes is relative and never climbs out.
    if (IsSafeEntryName(text.data(), text.size(), &error) &&
        (text[0] == '/' || text[0] == '\\' || text.find(':') != std::string::npos || text == ".." ||
         text.rfind("../", 0) == 0 || text.rfind("..\\", 0) == 0 || text.find("/../") != std::string::npos ||
         text.find("\\..\\") != std::string::npos))
        abort();

    // A refused attribute leaves the widget as it was.
    WIDGETATTRIBUTES attributes;
    const WIDGETATTRIBUTES before = attributes;
    if (!ApplyWidgetAttribute(text, &attributes, &error) &&
        (attributes.function != before.function || attributes.textColour != before.textColour))
        abort();
    return 0;
}
