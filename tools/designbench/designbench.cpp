// Times loading, saving and closing a design of N consoles through the real
// DLLs, as a host does it: designbench N... prints "N load save close" in
// milliseconds, a line for each N.
#include <windows.h>
#include <objidl.h>
#include <gdiplus.h>

#include <stdio.h>
#include <stdlib.h>

#include <string>

#include "analyze_host.h"
#include "../../host/workbench/plugins.h"

namespace {

const char kSurfaceClass[] = "DesignBenchSurface";

// N consoles on a grid, every tenth with its fire-emergency monitoring on, so
// the monitoring check has consoles to find.
std::string DesignOf(int consoles)
{
    std::string design = "projectversion=V 4.0.0\r\n";
    char line[256];
    for (int i = 1; i <= consoles; i++) {
        snprintf(line, sizeof line, "control=0x00000000 DOVRIXC \"ORNCST_%d\" 0x54000000 %d,%d,20x20\r\n", i,
                 (i % 100) * 30, (i / 100) * 30);
        design += line;
        snprintf(line, sizeof line, "ORNCST_%d*FireEmergencyMonitoring=%d\r\n", i, i % 10 == 0 ? 1 : 0);
        design += line;
    }
    return design;
}

double Milliseconds(const LARGE_INTEGER& from, const LARGE_INTEGER& to)
{
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return (double)(to.QuadPart - from.QuadPart) * 1000.0 / (double)frequency.QuadPart;
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

    HWND surface = CreateWindowExA(0, kSurfaceClass, "surface", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 800, 600,
                                   NULL, NULL, GetModuleHandleA(NULL), NULL);
    HOSTINFO* root = a_CreateDesign(surface, NULL);
    LARGE_INTEGER start, loaded, written, closed;
    QueryPerformanceCounter(&start);
    const BOOL load = a_LoadFile(root, path.c_str());
    QueryPerformanceCounter(&loaded);
    const BOOL save = a_SaveFile(root, saved.c_str());
    QueryPerformanceCounter(&written);
    a_DestroyDesign(root);
    DestroyWindow(surface);
    QueryPerformanceCounter(&closed);
    DeleteFileA(path.c_str());
    DeleteFileA(saved.c_str());
    printf("%d %.1f %.1f %.1f\n", consoles, Milliseconds(start, loaded), Milliseconds(loaded, written),
           Milliseconds(written, closed));
    fflush(stdout);
    return load && save;
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
    WNDCLASSA wc = {};
    wc.lpfnWndProc = DefWindowProcA;
    wc.hInstance = GetModuleHandleA(NULL);
    wc.lpszClassName = kSurfaceClass;
    RegisterClassA(&wc);
    char folder[MAX_PATH] = "";
    a_MakeFullTempPathName("", folder, sizeof folder);
    int status = 0;
    for (int i = 1; i < argc; i++)
        if (!Measure(atoi(argv[i]), folder))
            status = 1;
    Gdiplus::GdiplusShutdown(gdiplus);
    return status;
}
