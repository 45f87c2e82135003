// The window classes of the plug-in and their registration at attach.
#pragma once

#include <windows.h>

// "DOVRIXC", with the plain registration call.
ATOM RegisterCanvasClass(HINSTANCE instance);
// Every other class, in their fixed order; results are traced, not returned.
int RegisterAllClasses(HINSTANCE instance);
