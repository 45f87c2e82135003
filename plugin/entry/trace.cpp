// The plug-in's Trace() goes to the host's TRACE.
#include "analyze.h"

#include "../../base/trace.h"
#include "../../base/banned.h"

void Trace(const char* format, ...)
{
    char text[4096];
    va_list args;
    va_start(args, format);
    FormatTextV(text, sizeof text, format, args);
    va_end(args);
    TRACE("%s", text);
}
