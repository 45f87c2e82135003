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

void Field(std::string* out, const std::string& text, bool last = false)
{
    *out += CsvField(text);
    *out += last ? "\r\n" : ",";
}

}  // namespace

void WriteCsv(const DESIGNMODEL& model, TEXTSINK* out)
{
    out->Buffer() += kHeader;
    for (const CONSOLEGROUP& group : GroupConsoles(model)) {
        const std::string controller = group.controller ? group.controller->name : std::string();
        for (const CONSOLEDESIGN* console : group.consoles) {
            const CONSOLEFACTS facts = FactsOf(model, *console);
            std::string& text = out->Buffer();
            for (const KEYROW& row : KeyRows(*console)) {
                Field(&text, controller);
                Field(&text, console->name);
                Field(&text, facts.displayName);
                Field(&text, row.caption);
                Field(&text, row.numeric ? KeyKeyword(row) : std::to_string(row.slot));
                Field(&text, row.function);
                Field(&text, row.destination);
                Field(&text, row.message);
                Field(&text, row.priority);
                Field(&text, row.trigger);
                Field(&text, row.locked);
                Field(&text, row.label);
                Field(&text, MarkText(row.mark));
                Field(&text, std::to_string(row.line), true);
            }
            out->Spill();
        }
    }
}
