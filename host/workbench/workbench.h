// The workbench: a host application for the plug-in. It loads the plug-in
// with LoadLibrary as the real host does, keeps one design, and runs commands
// on it, from a script or from its window.
#pragma once

#include <windows.h>

#include <string>

#include "analyze.h"
#include "script.h"

// The poll timer of device objects' windows (the canvas's fault LED).
const UINT_PTR kDevicePollTimer = 111;

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

// A report list view with the property list's two columns, and one of its cells.
HWND CreatePropertyList(HWND parent);
void ListCell(HWND list, int row, int column, char* text, int size);

// Headless: message boxes are printed and answered with their default button.
void AnswerMessageBoxes();

// The host's timers for time that did not pass: the clock moves on in steps
// of 100 ms, each step delivering the device objects' poll timer (111) and,
// every 250 ms, the host's own timer (OnTimer of every object).
void Tick(int milliseconds);
void TickObjects();

// Writes a window's client area with its children as a PNG (the window is
// shown for it).
bool SaveScreenshot(HWND window, const char* path);
