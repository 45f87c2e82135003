// extractbench PACKAGE: unpacks a firmware package with the plug-in's own
// extraction, prints the milliseconds it took, and deletes what it wrote.
#include <stdio.h>
#include <windows.h>

#include "../../plugin/firmware/extraction.h"
#include "../../base/trace.h"

void Trace(const char*, ...) {}

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: extractbench PACKAGE\n");
        return 2;
    }
    static char firmware[FIRMWAREPATH_SIZE], database[FIRMWAREPATH_SIZE], font[FIRMWAREPATH_SIZE] = "None";
    std::vector<std::string> written;
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    const int ok = ExtractFirmwarePackage(argv[1], firmware, database, font, &written);
    QueryPerformanceCounter(&end);
    DeleteExtractedFiles(&written);
    if (!ok) {
        fprintf(stderr, "extractbench: %s did not unpack\n", argv[1]);
        return 1;
    }
    printf("%.1f\n", (double)(end.QuadPart - start.QuadPart) * 1000.0 / (double)frequency.QuadPart);
    return 0;
}
