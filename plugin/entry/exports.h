// The plug-in's exported entries.
#pragma once

#include <stdio.h>
#include <windows.h>

#include "analyze.h"

#define DOVRIXC_EXPORT extern "C" __declspec(dllexport)

// 1: run the add-consoles dialog for host (param: the console type name);
// 13: the build string; anything else: 0.
DOVRIXC_EXPORT INT_PTR fnCallback(int code, HOSTINFO* host, LPARAM param);
// Opens "folder\relative", creating missing folders on the way.
DOVRIXC_EXPORT FILE* l_FileOpen(const char* folder, const char* relative, const char* mode);
// EnumChildWindows callback: repaints one child at once.
DOVRIXC_EXPORT BOOL CALLBACK EnumChildDrawBackground(HWND child, LPARAM param);
