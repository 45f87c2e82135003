// Feeds arbitrary bytes to the design report as a design file: nothing may
// crash, every output is written, and no text of the design becomes markup.
#include <stdint.h>
#include <stdlib.h>

#include <string>

#include "../tools/designreport/designcheck.h"
#include "../tools/designreport/designmodel.h"
#include "../tools/designreport/reports.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

namespace {

// The outputs write no element of that name; one in them came from the design.
void CheckNoScript(const std::string& text)
{
    if (text.find("<script") != std::string::npos || text.find("<SCRIPT") != std::string::npos)
        abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const DESIGNMODEL model = ReadDesignText(text, "fuzz.ds");
    const PROBLEMLIST problems = CheckDesign(model);
    for (const PROBLEM& problem : problems.items)
        if (problem.line < 1 || problem.line > model.lines)
            abort();
    TEXTSINK html, csv, labels, where;
    WriteHtml(model, problems, &html);
    WriteCsv(model, &csv);
    WriteLabelStrips(model, LABELSIZE(), &labels);
    WriteWhere(model, "Hall", &where);
    CheckNoScript(html.Text());
    CheckNoScript(labels.Text());
    return 0;
}
