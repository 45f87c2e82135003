// Times loading, saving and closing a design of N consoles through the real
// DLLs, as a host does it. designbench [--runs R] N... measures every N once
// a round, R rounds (default 1), so the sizes take turns with whatever else
// the machine does. Each measurement prints, in milliseconds:
//   run N load save close
//   phases N reading-lines creating-windows handing-lines bookkeeping total
//   apart N read-only bare-windows keyword-lookups bare-destroyed
// "phases" is where the load spent its time (the host's own clock); "apart"
// times, on their own, reading the file's lines and nothing else, creating N
// bare windows of the canvas's style, asking a console for the keyword of
// every object line, as loading does once a line, and destroying the bare
// windows one by one, as closing does.
#include <windows.h>
#include <objidl.h>
#include <gdiplus.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "analyze_host.h"
#include "../../host/workbench/plugins.h"

namespace {

const char kSurfaceClass[] = "DesignBenchSurface";
const char kBareClass[] = "DesignBenchBare";
const DWORD kCanvasStyle = 0x54000000;
const char kObjectKeyword[] = "FireEmergencyMonitoring";
// The size an "ORNCST" canvas takes for its face: bare windows of that size
// overlap their neighbours on the grid as the canvases do.
const int kFaceWidth = 74, kFaceHeight = 57;

// N consoles on a grid, every tenth with its fire-emergency monitoring on, so
// the monitoring check has consoles to find.
std::string DesignOf(int consoles)
{
    std::string design = "projectversion=V 4.0.0\r\n";
    char line[256];
    for (int i = 1; i <= consoles; i++) {
        snprintf(line, sizeof line, "control=0x00000000 DOVRIXC \"ORNCST_%d\" 0x%08lx %d,%d,20x20\r\n", i,
                 (unsigned long)kCanvasStyle, (i % 100) * 30, (i / 100) * 30);
        design += line;
        snprintf(line, sizeof line, "ORNCST_%d*%s=%d\r\n", i, kObjectKeyword, i % 10 == 0 ? 1 : 0);
        design += line;
    }
    return design;
}

double Now()
{
    LARGE_INTEGER frequency, now;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return (double)now.QuadPart * 1000.0 / (double)frequency.QuadPart;
}

HWND CreateSurface()
{
    return CreateWindowExA(0, kSurfaceClass, "surface", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 800, 600, NULL,
                           NULL, GetModuleHandleA(NULL), NULL);
}

// N windows of the canvas's style and size that do nothing, made and then destroyed
// one by one: what the windows alone cost a load and a close.
void BareWindows(int count, double* made, double* destroyed)
{
    HWND surface = CreateSurface();
    std::vector<HWND> windows;
    windows.reserve((size_t)count);
    const double start = Now();
    for (int i = 1; i <= count; i++)
        windows.push_back(CreateWindowExA(0, kBareClass, "", kCanvasStyle, (i % 100) * 30, (i / 100) * 30,
                                          kFaceWidth, kFaceHeight, surface, NULL, GetModuleHandleA(NULL), NULL));
    *made = Now() - start;
    const double destroying = Now();
    for (HWND window : windows)
        DestroyWindow(window);
    *destroyed = Now() - destroying;
    DestroyWindow(surface);
}

// The console's keyword lookup, once for every object line of the design.
double KeywordLookups(HOSTINFO* console, int lines)
{
    if (!console)
        return -1;
    const double start = Now();
    for (int i = 0; i < lines; i++) {
        REQUEST request = {REQ_LOOKUP, 0, REQTYPE_TEXT, REQMODE_DESIGNFILE, nullptr, kObjectKeyword, nullptr};
        console->OnMessage(0, (LPARAM)&request);
    }
    return Now() - start;
}

bool Measure(int consoles, const std::string& folder)
{
    const std::string path = folder + "design.ds", saved = folder + "saved.ds";
    FILE* file = fopen(path.c_str(), "wb");
    if (!file)
        return false;
    const std::string design = DesignOf(consoles);
    fwrite(design.data(), 1, design.size(), file);
    fclose(file);

    HWND surface = CreateSurface();
    HOSTINFO* root = a_CreateDesign(surface, NULL);
    const double start = Now();
    const BOOL load = a_LoadFile(root, path.c_str());
    const double loaded = Now();
    const BOOL save = a_SaveFile(root, saved.c_str());
    const double written = Now();
    LOADPHASES phases = {};
    a_GetLoadPhases(root, &phases);
    const double lookups = KeywordLookups(a_FindHostinfo("ORNCST_1"), phases.objectLines);
    const double closing = Now();
    a_DestroyDesign(root);
    DestroyWindow(surface);
    const double closed = Now();

    const double reading = Now();
    const int lines = a_ReadDesignLines(path.c_str());
    const double read = Now() - reading;
    double bare = 0, bareDestroyed = 0;
    BareWindows(consoles, &bare, &bareDestroyed);
    DeleteFileA(path.c_str());
    DeleteFileA(saved.c_str());
    printf("run %d %.1f %.1f %.1f\n", consoles, loaded - start, written - loaded, closed - closing);
    printf("phases %d %.1f %.1f %.1f %.1f %.1f\n", consoles, phases.readingLines, phases.creatingWindows,
           phases.handingLines, phases.bookkeeping, phases.total);
    printf("apart %d %.1f %.1f %.1f %.1f\n", consoles, read, bare, lookups, bareDestroyed);
    fflush(stdout);
    return load && save && lines == phases.lines;
}

void RegisterClasses()
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = DefWindowProcA;
    wc.hInstance = GetModuleHandleA(NULL);
    wc.lpszClassName = kSurfaceClass;
    RegisterClassA(&wc);
    wc.lpszClassName = kBareClass;
    RegisterClassA(&wc);
}

}  // namespace

int main(int argc, char** argv)
{
    ULONG_PTR gdiplus = 0;
    Gdiplus::GdiplusStartupInput startup;
    Gdiplus::GdiplusStartup(&gdiplus, &startup, NULL);
    if (!LoadDevicePlugin(kControllersDll) || !LoadDevicePlugin("DOVRIXC.dll")) {
        fprintf(stderr, "designbench: the plug-ins do not load\n");
        return 1;
    }
    RegisterClasses();
    char folder[MAX_PATH] = "";
    a_MakeFullTempPathName("", folder, sizeof folder);
    int rounds = 1, first = 1;
    if (argc > 2 && strcmp(argv[1], "--runs") == 0) {
        rounds = atoi(argv[2]);
        first = 3;
    }
    int status = 0;
    for (int round = 0; round < rounds; round++)
        for (int i = first; i < argc; i++)
            if (!Measure(atoi(argv[i]), folder))
                status = 1;
    Gdiplus::GdiplusShutdown(gdiplus);
    return status;
}
