#pragma once

#include <windows.h>
#include <objidl.h>  // gdiplus.h needs PROPID
#include <gdiplus.h>

// A GDI+ image from a resource of the given type ("SMALLCONSOLE", "KEY", ...),
// or null. The caller owns the image.
Gdiplus::GpImage* LoadResourceImage(HINSTANCE instance, int resourceId, const char* type);
