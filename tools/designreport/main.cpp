// designreport: a design's consoles documented, checked and printed as label
// strips. Exit status 0, 1 when --check finds a problem, 2 when the command
// line or a file fails.
#include <stdio.h>
#include <string.h>

#include <string>

#include "designcheck.h"
#include "designmodel.h"
#include "reportoptions.h"
#include "reports.h"

#include "../../base/trace.h"
#include "../../base/banned.h"

// The codec's developer trace has no reader here.
void Trace(const char*, ...) {}

namespace {

std::string BaseName(const std::string& path)
{
    const size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

template <class WRITE>
bool WriteFile(const std::string& path, WRITE write)
{
    FILE* file = fopen(path.c_str(), "wb");
    if (!file) {
        fprintf(stderr, "designreport: cannot write %s\n", path.c_str());
        return false;
    }
    bool failed;
    {
        TEXTSINK sink(file);
        write(&sink);
        sink.Flush();
        failed = sink.Failed();
    }
    failed = fclose(file) != 0 || failed;
    if (failed)
        fprintf(stderr, "designreport: writing %s failed\n", path.c_str());
    return !failed;
}

}  // namespace

int main(int argc, char** argv)
{
    REPORTOPTIONS options;
    std::string error;
    if (!ParseReportOptions(argc, argv, &options, &error)) {
        fprintf(stderr, "designreport: %s\n%s", error.c_str(), kReportUsage);
        return 2;
    }
    if (options.help) {
        fputs(kReportUsage, stdout);
        return 0;
    }
    DESIGNMODEL model;
    if (!ReadDesignFile(options.design.c_str(), BaseName(options.design), &model)) {
        fprintf(stderr, "designreport: cannot read %s\n", options.design.c_str());
        return 2;
    }
    const PROBLEMLIST problems = CheckDesign(model);
    if (!options.check) {
        // What could not be read is said in any case; the rest is the check's.
        for (const PROBLEM& problem : model.lineProblems.items)
            fprintf(stderr, "%s\n", FormatProblem(model.fileName, problem).c_str());
    }

    bool written = true;
    if (!options.html.empty())
        written &= WriteFile(options.html, [&](TEXTSINK* out) { WriteHtml(model, problems, out); });
    if (!options.csv.empty())
        written &= WriteFile(options.csv, [&](TEXTSINK* out) { WriteCsv(model, out); });
    if (!options.labels.empty())
        written &= WriteFile(options.labels,
                             [&](TEXTSINK* out) { WriteLabelStrips(model, options.labelSize, out); });
    if (options.where) {
        TEXTSINK out(stdout);
        const size_t found = WriteWhere(model, options.whereName, &out);
        out.Flush();
        printf("%zu keys address %s\n", found, options.whereName.c_str());
    }
    if (options.check) {
        for (const PROBLEM& problem : problems.items)
            printf("%s\n", FormatProblem(model.fileName, problem).c_str());
        if (problems.dropped)
            printf("and %zu more\n", problems.dropped);
        printf("%zu problems\n", problems.items.size() + problems.dropped);
    }
    fflush(stdout);
    if (!written)
        return 2;
    return options.check && (!problems.items.empty() || problems.dropped) ? 1 : 0;
}
