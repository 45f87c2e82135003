// The design report's command line. Platform-free.
#pragma once

#include <string>

#include "reports.h"

struct REPORTOPTIONS {
    std::string design;
    std::string html, csv, labels;
    LABELSIZE labelSize;
    bool check = false;
    bool where = false;
    std::string whereName;
    bool help = false;
};

// False with error set for an unknown option, a missing value or design, a
// bad label size.
bool ParseReportOptions(int argc, const char* const* argv, REPORTOPTIONS* options, std::string* error);
extern const char kReportUsage[];
