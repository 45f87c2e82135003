// Feeds arbitrary bytes to the parsers of a console's values as a design
// file or a device hands them over: the "hostrect" position, the object name
// split at its parent path, the model from the name, the "leds" text, the
// keyword lookup, the names the host accepts, the "layer" list, the
// "extensionTypes" values and the connection text. Besides not crashing:
// positions are pulled back without overflow, a name splits into parts that
// join back to it, the LED text is a fixed point after one round, a keyword
// found is the keyword asked for, every name the host accepts is written into
// a control line that parses back to the same name, a layer list joined back
// splits into the same layers, and a connection splits at its first dot.
#include <limits.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "../host/analyze/designtext.h"
#include "../plugin/console/ledstates.h"
#include "../plugin/device/canvastext.h"
#include "../plugin/device/consolesettings.h"
#include "../plugin/device/designlines.h"
#include "../plugin/device/keywordtable.h"
#include "../base/text.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

namespace {

const KEYWORDTABLE& Keywords()
{
    static KEYWORDTABLE table = [] {
        KEYWORDTABLE t;
        for (const char* keyword : {"", "address", "connection", "hostrect", "layer", "leds", "name", "priority",
                                    "extensionTypes", "FaultMask1", "FaultMaskTest", "key000", "key0120OptionState",
                                    "Watchdog.Clear", "Update.State"})
            t.Add(keyword, nullptr, 0, 0);
        t.Finish();
        return t;
    }();
    return table;
}

void CheckPosition(const char* text)
{
    int x = 0, y = 0;
    if (!ParsePosition(text, &x, &y))
        return;
    for (int extent : {0, 1, 40, INT_MAX, INT_MIN})
        for (int limit : {0, 1024, INT_MAX, INT_MIN}) {
            const int pulled = PullBackInside(x, extent, limit);
            const long long highest = (long long)limit - extent;
            if (pulled > x || ((long long)x <= highest && pulled != x) ||
                ((long long)x > highest && highest >= INT_MIN && pulled != highest))
                abort();
        }
    const long long sum = (long long)x + y;
    const int saturated = AddSaturated(x, y);
    if (sum >= INT_MIN && sum <= INT_MAX && saturated != sum)
        abort();
}

void CheckName(const char* name)
{
    char prefix[128];
    const char* local = SplitObjectName(name, prefix, sizeof prefix);
    if (strlen(prefix) < sizeof prefix - 1 && std::string(prefix) + local != name)
        abort();
    const int model = ModelFromObjectName(name);
    if (model != MODEL_ORN_15CST && model != MODEL_ELK_15CST)
        abort();

    // What the host accepts, the console's control line carries back whole.
    std::string why;
    if (!local[0] || !IsWritableObjectName(prefix, local, &why))
        return;
    const std::string line = std::string("0x00000000 DOVRIXC \"") + local + "\" 0x54000000 0,0,20x20";
    CONTROLSPEC spec;
    std::string error;
    if (!ParseControlSpec(line, &spec, &error) || spec.name != local)
        abort();
}

void CheckLeds(const char* text)
{
    uint8_t states[LEDSTATE_KEYS] = {};
    if (!ParseLedStates(text, states))
        return;
    const std::string once = FormatLedStates(states);
    uint8_t again[LEDSTATE_KEYS] = {};
    if (!ParseLedStates(once.c_str(), again) || memcmp(states, again, sizeof states) != 0 ||
        FormatLedStates(again) != once)
        abort();
}

void CheckKeyword(const char* text)
{
    const uint16_t index = Keywords().Lookup(text);
    if (index != 0 && Keywords().Entry(index).keyword != text)
        abort();
}

void CheckLists(const char* text)
{
    // Layers: joined back and split again, the same names.
    const std::vector<std::string> layers = SplitLayerList(text, 128);
    std::string joined;
    for (const std::string& layer : layers) {
        if (layer.empty() || layer.size() > 127 || layer.find(',') != std::string::npos)
            abort();
        joined += (joined.empty() ? "" : ",") + layer;
    }
    if (SplitLayerList(joined.c_str(), 128) != layers)
        abort();

    const int used = CountExtensionTypes(text, 5);
    if (used < 0 || used > 5)
        abort();

    const CONNECTIONTEXT connection = SplitConnection(text);
    if (connection.valid && (connection.port.find("CST") == std::string::npos ||
                             (connection.controller.find("ORNCON_") == std::string::npos &&
                              connection.controller.find("ELKCON_") == std::string::npos)))
        abort();
    if (strchr(text, '.') && connection.controller + "." + connection.port != text)
        abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const char* terminated = text.c_str();  // up to the first NUL, as the handlers see it
    CheckPosition(terminated);
    CheckName(terminated);
    CheckLeds(terminated);
    CheckKeyword(terminated);
    CheckLists(terminated);
    return 0;
}
