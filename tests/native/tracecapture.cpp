#include "tracecapture.h"

#include "../../base/trace.h"

std::vector<std::string>& TraceLines()
{
    static std::vector<std::string> lines;
    return lines;
}

void Trace(const char* format, ...)
{
    char text[4096];
    va_list args;
    va_start(args, format);
    FormatTextV(text, sizeof text, format, args);
    va_end(args);
    TraceLines().push_back(text);
}
