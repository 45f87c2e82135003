#include "keyplan.h"

#include <string.h>

#include <map>

#include "../../host/analyze/designtext.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

struct NEWVALUE {
    std::string value;
    size_t console = 0;
    bool written = false;
};

// "OBJECT*keyword" of the design's lines to the value the plan gives them.
std::map<std::string, NEWVALUE> PlannedValues(const KEYPLAN& plan)
{
    std::map<std::string, NEWVALUE> values;
    for (const KEYCHANGE& change : plan.changes) {
        if (change.recordChanged)
            values[change.consoleName + "*" + change.keyword] = NEWVALUE{change.newRecord, change.console, false};
        if (change.labelChanged)
            values[change.consoleName + "*" + FormatString("keylabel%03d", change.slot)] =
                NEWVALUE{change.newLabel, change.console, false};
    }
    return values;
}

}  // namespace

std::vector<std::string> PlanDesignLines(const KEYPLAN& plan)
{
    std::vector<std::string> lines;
    for (const auto& value : PlannedValues(plan))
        lines.push_back(value.first + "=" + value.second.value);
    return lines;
}

std::string ApplyKeyPlan(const std::string& designText, const KEYPLAN& plan)
{
    std::map<std::string, NEWVALUE> values = PlannedValues(plan);
    // Where each console's last line ends, for the lines the design lacks.
    std::map<std::string, size_t> lastLineEnd;
    std::map<std::string, std::string> lineEnds;
    for (const KEYCHANGE& change : plan.changes)
        lastLineEnd[change.consoleName] = std::string::npos;

    std::string out;
    out.reserve(designText.size() + 256);
    size_t start = 0;
    while (start < designText.size()) {
        size_t end = designText.find('\n', start);
        const bool hasNewline = end != std::string::npos;
        if (!hasNewline)
            end = designText.size();
        size_t bodyEnd = end;
        while (bodyEnd > start && designText[bodyEnd - 1] == '\r')
            bodyEnd--;
        const size_t equals = designText.find('=', start);
        bool replaced = false;
        if (equals != std::string::npos && equals < bodyEnd) {
            const std::string key = designText.substr(start, equals - start);
            auto value = values.find(key);
            if (value != values.end()) {
                out.append(designText, start, equals + 1 - start);
                out += value->second.value;
                out.append(designText, bodyEnd, end + (hasNewline ? 1 : 0) - bodyEnd);
                value->second.written = true;
                replaced = true;
            }
            // The object a line belongs to: an object line's, a control line's own.
            const DESIGNLINE line = SplitDesignLine(designText.data() + start, bodyEnd - start);
            std::string object = line.kind == DESIGNLINE_OBJECT ? line.object : std::string();
            CONTROLSPEC spec;
            std::string why;
            if (line.kind == DESIGNLINE_CONTROL && ParseControlSpec(line.value, &spec, &why))
                object = line.object + spec.name;
            auto console = lastLineEnd.find(object);
            if (console != lastLineEnd.end()) {
                console->second = out.size() + (replaced ? 0 : end + (hasNewline ? 1 : 0) - start);
                lineEnds[object] = designText.substr(bodyEnd, end + (hasNewline ? 1 : 0) - bodyEnd);
            }
        }
        if (!replaced)
            out.append(designText, start, end + (hasNewline ? 1 : 0) - start);
        start = end + 1;
    }
    // Lines the design lacks go after the console's last line, in keyword order.
    std::map<size_t, std::string, std::greater<size_t>> inserts;
    for (const auto& value : values) {
        if (value.second.written)
            continue;
        const std::string object = value.first.substr(0, value.first.rfind('*'));
        auto at = lastLineEnd.find(object);
        if (at == lastLineEnd.end() || at->second == std::string::npos)
            continue;
        std::string ending = lineEnds[object];
        if (ending.empty())
            ending = "\r\n";
        std::string& text = inserts[at->second];
        text += value.first + "=" + value.second.value + ending;
    }
    for (const auto& insert : inserts) {
        size_t at = insert.first;
        // A last line without its line end gets one before the new lines.
        if (at == out.size() && !out.empty() && out.back() != '\n') {
            out += "\r\n";
            at = out.size();
        }
        out.insert(at, insert.second);
    }
    return out;
}
