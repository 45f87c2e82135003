#include "consolefacts.h"
#include "consolepicture.h"
#include "designcheck.h"
#include "keyrows.h"
#include "reports.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// Inline, so the page needs nothing beside itself; it prints in black on white.
const char kStyle[] =
    "body{font-family:Arial,Helvetica,sans-serif;font-size:13px;color:#222;margin:16px;}"
    "h1{font-size:22px;margin:0 0 4px;}h2{font-size:17px;margin:22px 0 6px;border-bottom:2px solid #444;}"
    "h3{font-size:15px;margin:16px 0 4px;}"
    "table{border-collapse:collapse;margin:6px 0 10px;}"
    "th,td{border:1px solid #999;padding:2px 6px;text-align:left;vertical-align:top;}"
    "th{background:#e8e8e8;}"
    "tr.alarm td{background:#fbe3e3;}tr.evac td{background:#fdebd3;}"
    ".badge{font-size:10px;font-weight:bold;padding:0 4px;margin-left:4px;border:1px solid #444;}"
    ".alarm .badge{background:#e06666;}.evac .badge{background:#f0a040;}"
    ".problems li{margin:2px 0;}.clean{color:#1a7a1a;}"
    ".facts{margin:2px 0 6px;color:#444;}"
    "svg.picture{max-width:100%;height:auto;display:block;margin:4px 0;}"
    "@media print{body{margin:0;font-size:10px;}section.console{break-inside:avoid;}"
    "h2{break-after:avoid;}tr{break-inside:avoid;}}";

void Cell(std::string* out, const std::string& text)
{
    *out += "<td>";
    AppendMarkup(out, text);
    *out += "</td>";
}

void PieceCell(MARKUPPIECE* piece, const std::string& text)
{
    piece->Put("<td>");
    piece->Markup(text);
    piece->Put("</td>");
}

void Head(std::string* out, const char* const* names, size_t count)
{
    *out += "<tr>";
    for (size_t i = 0; i < count; i++) {
        *out += "<th>";
        *out += names[i];
        *out += "</th>";
    }
    *out += "</tr>\n";
}

void ProblemList(const DESIGNMODEL& model, const PROBLEMLIST& problems, std::string* out)
{
    *out += "<h2>Check</h2>\n";
    if (problems.items.empty()) {
        *out += "<p class=\"clean\">No problems found.</p>\n";
        return;
    }
    *out += FormatString("<p>%zu problems:</p>\n<ul class=\"problems\">\n", problems.items.size() + problems.dropped);
    for (const PROBLEM& problem : problems.items) {
        *out += "<li>";
        AppendMarkup(out, FormatProblem(model.fileName, problem));
        *out += "</li>\n";
    }
    if (problems.dropped)
        *out += FormatString("<li>and %zu more</li>\n", problems.dropped);
    *out += "</ul>\n";
}

void ConsoleTable(const DESIGNMODEL& model, const CONSOLEGROUP& group, std::string* out)
{
    static const char* const kColumns[] = {"Name", "Object", "Type", "Address", "Connection", "Extensions",
                                           "Online at save"};
    *out += "<table class=\"consoles\">\n";
    Head(out, kColumns, sizeof kColumns / sizeof kColumns[0]);
    for (const CONSOLEDESIGN* console : group.consoles) {
        const CONSOLEFACTS facts = FactsOf(model, *console);
        *out += FormatString("<tr><td><a href=\"#console-%zu\">", (size_t)(console - model.consoles.data()));
        AppendMarkup(out, facts.displayName);
        *out += "</a></td>";
        Cell(out, console->name);
        Cell(out, facts.type);
        Cell(out, facts.address);
        Cell(out, facts.connection);
        Cell(out, facts.extensions);
        Cell(out, facts.online);
        *out += "</tr>\n";
    }
    *out += "</table>\n";
}

void KeyTable(const std::vector<KEYROW>& rows, std::string* out)
{
    static const char* const kColumns[] = {"Key", "Id", "Function", "Destination / variable", "Message",
                                           "Priority", "Trigger", "Active when locked", "Label"};
    if (rows.empty()) {
        *out += "<p>No key is configured.</p>\n";
        return;
    }
    *out += "<table class=\"keys\">\n";
    Head(out, kColumns, sizeof kColumns / sizeof kColumns[0]);
    for (const KEYROW& row : rows) {
        MARKUPPIECE piece(out);
        if (row.mark == MARK_ALARM)
            piece.Put("<tr class=\"alarm\">");
        else if (row.mark == MARK_EVAC)
            piece.Put("<tr class=\"evac\">");
        else
            piece.Put("<tr>");
        PieceCell(&piece, row.caption);
        PieceCell(&piece, row.numeric ? KeyKeyword(row) : std::to_string(row.slot));
        piece.Put("<td>");
        piece.Markup(row.function);
        if (row.mark == MARK_ALARM)
            piece.Put("<span class=\"badge\">ALARM</span>");
        else if (row.mark == MARK_EVAC)
            piece.Put("<span class=\"badge\">EVAC</span>");
        piece.Put("</td>");
        PieceCell(&piece, row.destination);
        PieceCell(&piece, row.message);
        PieceCell(&piece, row.priority);
        PieceCell(&piece, row.trigger);
        PieceCell(&piece, row.locked);
        PieceCell(&piece, row.label);
        piece.Put("</tr>\n");
    }
    *out += "</table>\n";
}

void ConsoleSection(const DESIGNMODEL& model, const CONSOLEDESIGN& console, std::vector<KEYROW>* keptRows,
                    PICTUREGEOMETRY* geometry, std::string* out)
{
    const CONSOLEFACTS facts = FactsOf(model, console);
    FillKeyRows(console, keptRows);
    const std::vector<KEYROW>& rows = *keptRows;
    *out += FormatString("<section class=\"console\" id=\"console-%zu\">\n<h3>", (size_t)(&console - model.consoles.data()));
    AppendMarkup(out, facts.displayName + " (" + console.name + ")");
    *out += "</h3>\n<p class=\"facts\">";
    AppendMarkup(out, "Type " + facts.type + ", address " + facts.address + ", connection " + facts.connection +
                          ", extensions: " + facts.extensions + ", online at save: " + facts.online);
    *out += "</p>\n";
    AppendConsolePicture(console, rows, geometry, out);
    KeyTable(rows, out);
    *out += "</section>\n";
}

}  // namespace

void WriteHtml(const DESIGNMODEL& model, const PROBLEMLIST& problems, TEXTSINK* out)
{
    size_t keys = 0;
    for (const CONSOLEDESIGN& console : model.consoles)
        keys += console.keys.size() + console.numericKeyRecords.size();
    std::string& head = out->Buffer();
    head += "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>Design report: ";
    AppendMarkup(&head, model.fileName);
    head += "</title>\n<style>";
    head += kStyle;
    head += "</style>\n</head>\n<body>\n<h1>Design report: ";
    AppendMarkup(&head, model.fileName);
    head += FormatString("</h1>\n<p>%zu controllers, %zu consoles, %zu configured keys.</p>\n",
                         model.controllers.size(), model.consoles.size(), keys);
    ProblemList(model, problems, &head);
    out->Spill();

    std::vector<KEYROW> rows;  // each console's in turn
    PICTUREGEOMETRY geometry;
    for (const CONSOLEGROUP& group : GroupConsoles(model)) {
        std::string& text = out->Buffer();
        text += "<h2>";
        if (group.controller)
            AppendMarkup(&text, "Controller " + group.controller->name + " (" + group.controller->className + ")");
        else
            text += "Consoles without a controller of the design";
        text += "</h2>\n";
        if (group.consoles.empty()) {
            text += "<p>No console is connected.</p>\n";
            continue;
        }
        ConsoleTable(model, group, &text);
        for (const CONSOLEDESIGN* console : group.consoles) {
            ConsoleSection(model, *console, &rows, &geometry, &out->Buffer());
            out->Spill();
        }
    }
    out->Buffer() += "</body>\n</html>\n";
}
