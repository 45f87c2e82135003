// The window classes of the plug-in and their registration at attach.
#pragma once

#include <windows.h>

// The window families whose module instance is kept for their windows.
enum WINDOWFAMILY {
    FAMILY_CONFIGURATIONDIALOG,
    FAMILY_KEYPADDIALOG,
    FAMILY_CONSOLEVIEW,
    FAMILY_MANAGERVIEW,
    FAMILY_KEYFUNCTIONVIEW,
    FAMILY_WORKSPACE,
    FAMILY_CONTROLPANEL,
    FAMILY_COUNT,
};

HINSTANCE FamilyInstance(WINDOWFAMILY family);

// "DOVRIXC", with the plain registration call.
ATOM RegisterCanvasClass(HINSTANCE instance);
// Every other class, in their fixed order; results are traced, not returned.
int RegisterAllClasses(HINSTANCE instance);
