// What the module keeps from attach to unload: set while attaching, read-only
// afterwards.
#pragma once

#include <windows.h>
#include <objidl.h>  // gdiplus.h needs PROPID
#include <gdiplus.h>

#include "../resources/resource.h"

enum {
    SMALLCONSOLE_ORN = IDR_SMALLCONSOLE_ORN,        // family-A console face
    SMALLCONSOLE_ELK = IDR_SMALLCONSOLE_ELK,        // family-B face, and any other model
    SMALLCONSOLE_148 = IDR_SMALLCONSOLE_148,
    SMALLCONSOLE_160 = IDR_SMALLCONSOLE_160,
    SMALLCONSOLE_KEYPAD = IDR_SMALLCONSOLE_KEYPAD,  // keypad boards (models 3 and 6)
};

HINSTANCE ModuleInstance();
HWND SharedTooltip();
// One of the five small-console images by resource id; null when it did not load.
Gdiplus::GpImage* SmallConsoleImage(int resourceId);
// "Mmm dd yyyy  hh:mm:ss\tBuild: n", alive as long as the module.
const char* BuildString();

// Attach only.
void SetModuleInstance(HINSTANCE instance);
void LoadSmallConsoleImages();
void CreateSharedTooltip();
