// GDI+ font families with a fallback: a face the plug-in asks for may be a
// raster font (GDI+ draws only outline fonts) or missing on the system.
#pragma once

#include <windows.h>
#include <objidl.h>  // gdiplus.h needs PROPID
#include <gdiplus.h>

#include <memory>

// The family named, else the generic sans-serif family, else the first
// installed family. Null only on a system without any outline font.
std::unique_ptr<Gdiplus::FontFamily> OutlineFontFamily(const wchar_t* name);
