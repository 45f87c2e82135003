#include "module.h"

#include <commctrl.h>

#include "imageloader.h"

#include "../../base/banned.h"

#ifndef DOVRIXC_BUILD_NUMBER
#define DOVRIXC_BUILD_NUMBER "0"
#endif

namespace {

const int kSmallConsoleIds[] = {SMALLCONSOLE_ORN, SMALLCONSOLE_ELK, SMALLCONSOLE_148, SMALLCONSOLE_160,
                                SMALLCONSOLE_KEYPAD};
const int kSmallConsoleCount = sizeof kSmallConsoleIds / sizeof kSmallConsoleIds[0];

struct MODULESTATE {
    HINSTANCE instance;
    HWND tooltip;
    Gdiplus::GpImage* smallConsoles[kSmallConsoleCount];
};

MODULESTATE g_module;

const char kBuildString[] = __DATE__ "  " __TIME__ "\tBuild: " DOVRIXC_BUILD_NUMBER;

}  // namespace

HINSTANCE ModuleInstance()
{
    return g_module.instance;
}

HWND SharedTooltip()
{
    return g_module.tooltip;
}

Gdiplus::GpImage* SmallConsoleImage(int resourceId)
{
    for (int i = 0; i < kSmallConsoleCount; i++)
        if (kSmallConsoleIds[i] == resourceId)
            return g_module.smallConsoles[i];
    return nullptr;
}

const char* BuildString()
{
    return kBuildString;
}

void SetModuleInstance(HINSTANCE instance)
{
    g_module.instance = instance;
}

void LoadSmallConsoleImages()
{
    for (int i = 0; i < kSmallConsoleCount; i++)
        g_module.smallConsoles[i] = LoadResourceImage(g_module.instance, kSmallConsoleIds[i], "SMALLCONSOLE");
}

void CreateSharedTooltip()
{
    g_module.tooltip = CreateWindowExA(0, TOOLTIPS_CLASSA, "", TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                       CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, NULL, NULL, g_module.instance,
                                       NULL);
    // Multi-line tips wrap only at their own line breaks.
    SendMessageA(g_module.tooltip, TTM_SETMAXTIPWIDTH, 0, 32767);
}
