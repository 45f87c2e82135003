// The workbench: a host application for the plug-in. It loads the plug-in
// with LoadLibrary as the real host does, keeps one design, and runs commands
// on it, from a script or from its window.
#pragma once

#include <windows.h>

#include <string>

#include "analyze.h"
#include "script.h"

typedef INT_PTR (*PLUGINCALLBACK)(int code, HOSTINFO* host, LPARAM param);

struct WORKBENCH {
    HMODULE plugin = NULL;
    PLUGINCALLBACK callback = nullptr;
    HOSTINFO* design = nullptr;
    HWND surface = NULL;      // parent of the objects' windows
    HWND output = NULL;       // the output pane (an edit control)
    std::string designPath;   // the file the design was read from or saved to
};

// Loads the plug-in DLL and finds its fnCallback. False with a message on stderr.
bool LoadPlugin(WORKBENCH* bench, const char* path);
// Starts a new empty design on bench->surface / bench->output, dropping the old one.
void NewDesign(WORKBENCH* bench);
bool OpenDesign(WORKBENCH* bench, const char* path);
bool SaveDesign(WORKBENCH* bench, const char* path);
// Runs one parsed command; prints results on stdout and errors on stderr.
bool RunCommand(WORKBENCH* bench, const SCRIPTCOMMAND& command);
// Runs a script file; returns the number of lines that failed.
int RunScript(WORKBENCH* bench, const char* path);

// Writes a window's client area with its children as a PNG (the window is
// shown for it).
bool SaveScreenshot(HWND window, const char* path);
