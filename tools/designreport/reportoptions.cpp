#include "reportoptions.h"

#include <string.h>

#include "../../base/banned.h"

const char kReportUsage[] =
    "usage: designreport DESIGN.ds [--html FILE] [--csv FILE] [--labels FILE.svg] [--label-size WxH]\n"
    "                    [--check] [--where NAME]\n"
    "  --html FILE       one self-contained page: controllers, consoles, their keys and pictures\n"
    "  --csv FILE        one row per configured key (RFC 4180)\n"
    "  --labels FILE     label strips at real size, with cut marks (SVG in millimetres)\n"
    "  --label-size WxH  an ordinary key's label window in mm (default 15x4)\n"
    "  --check           lists the design's problems by line; exit status 1 when there is any\n"
    "  --where NAME      every key that addresses the zone, group or message NAME\n";

bool ParseReportOptions(int argc, const char* const* argv, REPORTOPTIONS* options, std::string* error)
{
    for (int i = 1; i < argc; i++) {
        const char* arg = argv[i];
        std::string* value = nullptr;
        if (strcmp(arg, "--html") == 0)
            value = &options->html;
        else if (strcmp(arg, "--csv") == 0)
            value = &options->csv;
        else if (strcmp(arg, "--labels") == 0)
            value = &options->labels;
        else if (strcmp(arg, "--where") == 0)
            value = &options->whereName;
        if (value || strcmp(arg, "--label-size") == 0) {
            if (i + 1 >= argc || !argv[i + 1][0]) {
                *error = std::string(arg) + " needs a value";
                return false;
            }
            const char* next = argv[++i];
            if (value) {
                *value = next;
                options->where = options->where || value == &options->whereName;
            } else if (!ParseLabelSize(next, &options->labelSize)) {
                *error = std::string("--label-size takes WxH in millimetres, 1 to 200 each: ") + next;
                return false;
            }
        } else if (strcmp(arg, "--check") == 0) {
            options->check = true;
        } else if (strcmp(arg, "--help") == 0 || strcmp(arg, "-h") == 0) {
            options->help = true;
        } else if (arg[0] == '-' && arg[1]) {
            *error = std::string("unknown option ") + arg;
            return false;
        } else if (options->design.empty()) {
            options->design = arg;
        } else {
            *error = std::string("a second design: ") + arg;
            return false;
        }
    }
    if (!options->help && options->design.empty()) {
        *error = "no design file";
        return false;
    }
    return true;
}
