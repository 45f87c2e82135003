#include "keyplan.h"

#include "../designreport/reporttext.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

std::string Quoted(const std::string& text)
{
    return "\"" + text + "\"";
}

}  // namespace

std::string FormatPlanDifference(const KEYPLAN& plan)
{
    std::string text;
    size_t consoles = 0;
    for (size_t i = 0; i < plan.changes.size(); i++) {
        const KEYCHANGE& change = plan.changes[i];
        if (i == 0 || change.console != plan.changes[i - 1].console) {
            text += change.consoleName + "\n";
            consoles++;
        }
        text += "  " + Quoted(change.caption) + " (" + change.keyword + "): " + change.oldRecord + " " +
                Quoted(change.oldLabel) + " -> " + change.newRecord + " " + Quoted(change.newLabel) + "\n";
    }
    if (plan.changes.empty())
        return "The plan changes nothing\n";
    text += FormatString("%zu %s on %zu %s\n", plan.changes.size(), plan.changes.size() == 1 ? "key changes" : "keys change",
                         consoles, consoles == 1 ? "console" : "consoles");
    return text;
}

std::string FormatPlanErrors(const std::string& planName, const KEYPLAN& plan)
{
    std::string text;
    for (const PLANERROR& error : plan.errors)
        text += FormatString("%s(%d): %s\n", planName.c_str(), error.line, error.text.c_str());
    return text;
}
