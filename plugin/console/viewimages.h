// The pictures, key strips and LED bitmaps of the console view: decoded once,
// when the view's class is registered, and kept for the life of the module.
#pragma once

#include <windows.h>
#include <objidl.h>  // gdiplus.h needs PROPID
#include <gdiplus.h>

// Attach only.
void LoadConsoleViewImages(HINSTANCE instance);

// The image of a resource id, or null when it did not load.
Gdiplus::GpImage* ConsoleViewImage(int resourceId);
// Its size; {0, 0} when it did not load or cannot be read.
void ConsoleViewImageSize(int resourceId, int* width, int* height);
