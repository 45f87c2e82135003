// workbench [--headless] [--plugin DLL] [--script FILE] [--save OUT] [--trace LOG] [DESIGN]
//
// Loads the plug-in, opens the design and either shows the workbench window
// or, headless, runs the script and saves. Exit code 0 when every step worked.
#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <string.h>

#include <objidl.h>  // gdiplus.h needs PROPID
#include <gdiplus.h>

#include "mainwindow.h"
#include "workbench.h"

#include "dialogwatch.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

struct OPTIONS {
    bool headless = false;
    const char* plugin = nullptr;
    const char* script = nullptr;
    const char* save = nullptr;
    const char* trace = nullptr;
    const char* design = nullptr;
};

void Usage()
{
    fprintf(stderr,
            "usage: workbench [--headless] [--plugin DLL] [--script FILE] [--save OUT] [--trace LOG] [DESIGN]\n");
}

bool ParseOptions(int argc, char** argv, OPTIONS* options)
{
    for (int i = 1; i < argc; i++) {
        const char* arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (strcmp(arg, "--headless") == 0)
            options->headless = true;
        else if (strcmp(arg, "--plugin") == 0 && hasValue)
            options->plugin = argv[++i];
        else if (strcmp(arg, "--script") == 0 && hasValue)
            options->script = argv[++i];
        else if (strcmp(arg, "--save") == 0 && hasValue)
            options->save = argv[++i];
        else if (strcmp(arg, "--trace") == 0 && hasValue)
            options->trace = argv[++i];
        else if (arg[0] != '-' && !options->design)
            options->design = arg;
        else
            return false;
    }
    return true;
}

// The plug-in beside the workbench, unless one is named.
void PluginPath(const OPTIONS& options, char* path, size_t size)
{
    if (options.plugin) {
        CopyText(path, size, options.plugin);
        return;
    }
    HostFolderFile("DOVRIXC.dll", path, size);
}

int Run(const OPTIONS& options)
{
    // A command the script language knows but the workbench cannot run is a fault of the build.
    if (!CheckVerbHandlers())
        return 2;
    WORKBENCH bench;
    char pluginPath[MAX_PATH];
    PluginPath(options, pluginPath, sizeof pluginPath);
    if (!LoadPlugin(&bench, pluginPath))
        return 2;
    HWND frame = CreateMainWindow(GetModuleHandleA(NULL), &bench);
    if (!frame) {
        fprintf(stderr, "workbench: cannot create the window\n");
        return 2;
    }
    const std::unique_ptr<DIALOGWATCH> dialogPictures = WatchDialogPictures(&bench);
    if (options.headless)
        AnswerMessageBoxes();
    int failures = 0;
    if (options.design && !OpenDesign(&bench, options.design))
        failures++;
    if (options.script)
        failures += RunScript(&bench, options.script);
    if (options.save && !SaveDesign(&bench, options.save))
        failures++;
    if (!options.headless)
        RunMainWindow(frame);
    CloseWidgetPages(&bench);
    if (IsWindow(frame))
        DestroyWindow(frame);
    a_DestroyDesign(bench.design);
    return failures ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv)
{
    // Lines end in "\n" alone, whatever reads them.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    OPTIONS options;
    if (!ParseOptions(argc, argv, &options)) {
        Usage();
        return 2;
    }
    if (options.trace && !a_SetTraceFile(options.trace))
        fprintf(stderr, "workbench: cannot write the trace file %s\n", options.trace);

    // GDI+ runs before the plug-in loads: it draws its images while attaching.
    ULONG_PTR gdiplus = 0;
    Gdiplus::GdiplusStartupInput startup;
    Gdiplus::GdiplusStartup(&gdiplus, &startup, NULL);
    const int result = Run(options);
    Gdiplus::GdiplusShutdown(gdiplus);
    a_SetTraceFile(NULL);
    return result;
}
