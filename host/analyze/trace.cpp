// TRACE for developers, EDITTRACE for the user's output window.
#include <stdio.h>

#include "design.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

FILE*& TraceFile()
{
    static FILE* file = nullptr;
    return file;
}

}  // namespace

BOOL a_SetTraceFile(LPCSTR path)
{
    FILE*& file = TraceFile();
    if (file)
        fclose(file);
    file = path ? fopen(path, "ab") : nullptr;
    return !path || file != nullptr;
}

void TRACE(LPCSTR format, ...)
{
    char text[4096];
    va_list args;
    va_start(args, format);
    FormatTextV(text, sizeof text, format, args);
    va_end(args);
    OutputDebugStringA(text);
    if (FILE* file = TraceFile()) {
        fputs(text, file);
        fflush(file);
    }
}

void EDITTRACE(HOSTINFO* obj, LPCSTR format, ...)
{
    char text[4096];
    va_list args;
    va_start(args, format);
    FormatTextV(text, sizeof text, format, args);
    va_end(args);
    TRACE("EDITTRACE: %s\n", text);
    if (DESIGN* design = DesignOf(obj))
        design->AppendOutput(design->Attributed(text).c_str());
}
