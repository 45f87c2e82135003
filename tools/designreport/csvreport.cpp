#include "consolefacts.h"
#include "keyrows.h"
#include "reports.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char kHeader[] = "Controller,Console,Console name,Key,Id,Function,Destination,Message,Priority,Trigger,"
                       "Active when locked,Label,Mark,Line\r\n";

const char* MarkText(KEYMARK mark)
{
    return mark == MARK_ALARM ? "alarm" : mark == MARK_EVAC ? "EVAC" : "";
}

void Field(std::string* out, const std::string& text)
{
    AppendCsvField(out, text);
    out->push_back(',');
}

}  // namespace

void WriteCsv(const DESIGNMODEL& model, TEXTSINK* out)
{
    out->Buffer() += kHeader;
    std::string prefix;  // the fields every row of a console starts with
    KEYROW row;          // each key's in turn
    for (const CONSOLEGROUP& group : GroupConsoles(model)) {
        const std::string controller = group.controller ? group.controller->name : std::string();
        for (const CONSOLEDESIGN* console : group.consoles) {
            const CONSOLEFACTS facts = FactsOf(model, *console);
            prefix.clear();
            Field(&prefix, controller);
            Field(&prefix, console->name);
            Field(&prefix, facts.displayName);
            std::string& text = out->Buffer();
            ForEachKeyLine(*console, [&](const KEYLINE& line, bool numeric) {
                RefillKeyRow(*console, line, numeric, &row);
                text += prefix;
                Field(&text, row.caption);
                if (row.numeric) {
                    Field(&text, KeyKeyword(row));
                } else {
                    AppendInteger(&text, row.slot);
                    text.push_back(',');
                }
                Field(&text, row.function);
                Field(&text, row.destination);
                Field(&text, row.message);
                Field(&text, row.priority);
                Field(&text, row.trigger);
                Field(&text, row.locked);
                Field(&text, row.label);
                text += MarkText(row.mark);  // plain words
                text.push_back(',');
                AppendInteger(&text, row.line);
                text += "\r\n";
            });
            out->Spill();
        }
    }
}
