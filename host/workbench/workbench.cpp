// The workbench's design: the plug-in, the design file, the host's timers
// and what the host does to objects itself (context menu, deletion).
#include "workbench.h"

#include <stdio.h>

#include "../../base/text.h"
#include "../../base/banned.h"

// The version of the projects this workbench writes: an older design is
// migrated once when it is read and saved as a current one.
const char kWorkbenchProjectVersion[] = "V 3.9.0";

namespace {

BOOL TickObject(HOSTINFO* obj, void*)
{
    obj->OnTimer(0, 0);
    return TRUE;
}

BOOL DeliverPollTimer(HOSTINFO* obj, void*)
{
    if (obj->m_hWnd && IsWindow(obj->m_hWnd))
        SendMessageA(obj->m_hWnd, WM_TIMER, TIMER_POLL, 0);
    return TRUE;
}

}  // namespace

void TickObjects()
{
    a_EnumHostinfo(TickObject, nullptr);
}

void Tick(int milliseconds)
{
    const int step = 100;
    for (int elapsed = step; elapsed <= milliseconds; elapsed += step) {
        a_AdvanceClock(step);
        a_EnumHostinfo(DeliverPollTimer, nullptr);
        if (elapsed % 250 < step)
            TickObjects();
    }
}

bool LoadPlugin(WORKBENCH* bench, const char* path)
{
    char controllers[MAX_PATH];
    HostFolderFile(kControllersDll, controllers, sizeof controllers);
    if (!LoadDevicePlugin(controllers)) {
        fprintf(stderr, "workbench: cannot load the controllers %s (error %lu)\n", controllers, GetLastError());
        return false;
    }
    bench->plugin = LoadDevicePlugin(path);
    if (!bench->plugin) {
        fprintf(stderr, "workbench: cannot load the plug-in %s (error %lu)\n", path, GetLastError());
        return false;
    }
    bench->callback = (PLUGINCALLBACK)(void*)GetProcAddress(bench->plugin, "fnCallback");
    if (!bench->callback) {
        fprintf(stderr, "workbench: %s does not export fnCallback\n", path);
        return false;
    }
    return true;
}

void NewDesign(WORKBENCH* bench)
{
    CloseWidgetPages(bench);
    if (bench->properties)
        ShowProperties(bench->properties, nullptr);
    if (bench->design)
        a_DestroyDesign(bench->design);
    if (bench->output)
        SetWindowTextA(bench->output, "");
    bench->design = a_CreateDesign(bench->surface, bench->output);
    a_SetHostProjectVersion(bench->design, kWorkbenchProjectVersion);
    a_SetDesignMode(bench->design, bench->designMode ? 1 : 0);
    bench->designPath.clear();
}

HMENU BuildContextMenu(HOSTINFO* obj)
{
    HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, kDeleteCommand, "Delete");
    if (obj->m_hWnd)
        SendMessageA(obj->m_hWnd, WM_HOST_CONTEXTMENU, 0, (LPARAM)menu);
    return menu;
}

void RunContextCommand(WORKBENCH* bench, HOSTINFO* obj, UINT command)
{
    if (command == kDeleteCommand)
        DeleteObject(bench, obj);
    else if (command != 0 && obj->m_hWnd)
        SendMessageA(obj->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, command);
}

void DeleteObject(WORKBENCH* bench, HOSTINFO* obj)
{
    if (a_GetSelection(bench->design) == obj) {
        a_SetSelection(bench->design, nullptr);
        if (bench->properties)
            ShowProperties(bench->properties, nullptr);
    }
    if (obj->m_hWnd && IsWindow(obj->m_hWnd))
        DestroyWindow(obj->m_hWnd);
}

HOSTINFO* FindWindowedObject(const std::string& name)
{
    HOSTINFO* obj = a_FindHostinfo(name.c_str());
    if (!obj || !obj->m_hWnd)
        fprintf(stderr, "workbench: no object %s\n", name.c_str());
    return obj && obj->m_hWnd ? obj : nullptr;
}

bool OpenDesign(WORKBENCH* bench, const char* path)
{
    NewDesign(bench);
    if (!a_LoadFile(bench->design, path)) {
        fprintf(stderr, "workbench: cannot read %s\n", path);
        return false;
    }
    bench->designPath = path;
    return true;
}

bool SaveDesign(WORKBENCH* bench, const char* path)
{
    if (!a_SaveFile(bench->design, path)) {
        fprintf(stderr, "workbench: cannot write %s\n", path);
        return false;
    }
    bench->designPath = path;
    return true;
}
