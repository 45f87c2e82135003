#include "workbench.h"

#include <stdio.h>

#include <commctrl.h>

#include <fstream>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

BOOL TickObject(HOSTINFO* obj, void*)
{
    obj->OnTimer(0, 0);
    return TRUE;
}

BOOL DeliverPollTimer(HOSTINFO* obj, void*)
{
    if (obj->m_hWnd && IsWindow(obj->m_hWnd))
        SendMessageA(obj->m_hWnd, WM_TIMER, kDevicePollTimer, 0);
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

HWND CreatePropertyList(HWND parent)
{
    HWND list = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | LVS_REPORT | LVS_SINGLESEL, 0, 0, 300, 300, parent,
                                NULL, GetModuleHandleA(NULL), NULL);
    LVCOLUMNA column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = 180;
    column.pszText = const_cast<char*>("Property");
    SendMessageA(list, LVM_INSERTCOLUMNA, 0, (LPARAM)&column);
    column.pszText = const_cast<char*>("Value");
    SendMessageA(list, LVM_INSERTCOLUMNA, 1, (LPARAM)&column);
    return list;
}

void ListCell(HWND list, int row, int column, char* text, int size)
{
    LVITEMA cell = {};
    cell.iSubItem = column;
    cell.pszText = text;
    cell.cchTextMax = size;
    SendMessageA(list, LVM_GETITEMTEXTA, (WPARAM)row, (LPARAM)&cell);
}

bool LoadPlugin(WORKBENCH* bench, const char* path)
{
    bench->plugin = LoadLibraryA(path);
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
    if (bench->design)
        a_DestroyDesign(bench->design);
    if (bench->output)
        SetWindowTextA(bench->output, "");
    bench->design = a_CreateDesign(bench->surface, bench->output);
    bench->designPath.clear();
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

namespace {

bool SetProperty(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    if (!a_FindHostinfo(command.object.c_str())) {
        fprintf(stderr, "workbench: no object %s\n", command.object.c_str());
        return false;
    }
    return a_LoadLine(bench->design, command.text.c_str(), REQMODE_EDIT) != FALSE;
}

bool GetProperty(const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = a_FindHostinfo(command.object.c_str());
    if (!obj) {
        fprintf(stderr, "workbench: no object %s\n", command.object.c_str());
        return false;
    }
    static char value[4096];
    ZeroMemory(value, sizeof value);
    REQUEST request = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, value, command.text.c_str(), nullptr};
    const LRESULT answer = obj->m_hWnd ? SendMessageA(obj->m_hWnd, WM_HOST_MESSAGE, 0, (LPARAM)&request)
                                       : obj->OnMessage(0, (LPARAM)&request);
    if (!answer) {
        fprintf(stderr, "workbench: %s gives no value for %s\n", command.object.c_str(), command.text.c_str());
        return false;
    }
    printf("%s=%s\n", command.text.c_str(), value);
    return true;
}

bool CallPlugin(WORKBENCH* bench, int code)
{
    const INT_PTR answer = bench->callback(code, bench->design, 0);
    if (code == 13)
        printf("%s\n", answer ? (const char*)answer : "");
    else
        printf("%lld\n", (long long)answer);
    return true;
}

bool Simulate(const SCRIPTCOMMAND& command, const char* variable, int value)
{
    if (!a_SimulateDevice(command.object.c_str(), variable, value)) {
        fprintf(stderr, "workbench: no simulated %s of %s\n", variable, command.object.c_str());
        return false;
    }
    return true;
}

bool SimulateFault(const SCRIPTCOMMAND& command)
{
    char variable[16];
    FormatText(variable, sizeof variable, "Faults%d", command.code);
    return Simulate(command, variable, command.value);
}

// The rows the object puts into a property list, as "KEYWORD=VALUE".
bool PrintPropertyList(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    HOSTINFO* obj = a_FindHostinfo(command.object.c_str());
    if (!obj || !obj->m_hWnd) {
        fprintf(stderr, "workbench: no object %s\n", command.object.c_str());
        return false;
    }
    HWND list = CreatePropertyList(bench->surface);
    SendMessageA(obj->m_hWnd, WM_HOST_SAVETOLIST, 0, (LPARAM)list);
    const int rows = (int)SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    for (int row = 0; row < rows; row++) {
        char keyword[256] = "", value[4096] = "";
        ListCell(list, row, 0, keyword, sizeof keyword);
        ListCell(list, row, 1, value, sizeof value);
        printf("%s=%s\n", keyword, value);
    }
    DestroyWindow(list);
    return true;
}

bool PrintTrace(WORKBENCH* bench)
{
    char line[4096];
    const int count = a_GetOutputLineCount(bench->design);
    for (int i = 0; i < count; i++)
        if (a_GetOutputLine(bench->design, i, line, sizeof line))
            printf("%s\n", line);
    return true;
}

bool PrintAlarmSources(WORKBENCH* bench)
{
    char source[256];
    const int count = a_GetAlarmSourceCount(bench->design);
    for (int i = 0; i < count; i++)
        if (a_GetAlarmSource(bench->design, i, source, sizeof source))
            printf("%s\n", source);
    return true;
}

}  // namespace

bool RunCommand(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    bool ok = true;
    switch (command.verb) {
    case SCRIPT_NOTHING:
        break;
    case SCRIPT_SET:
        ok = SetProperty(bench, command);
        break;
    case SCRIPT_GET:
        ok = GetProperty(command);
        break;
    case SCRIPT_SAVE:
        ok = SaveDesign(bench, command.text.c_str());
        break;
    case SCRIPT_CALLBACK:
        ok = CallPlugin(bench, command.code);
        break;
    case SCRIPT_TRACE:
        ok = PrintTrace(bench);
        break;
    case SCRIPT_SCREENSHOT:
        ok = SaveScreenshot(GetAncestor(bench->surface, GA_ROOT), command.text.c_str());
        break;
    case SCRIPT_ONLINE:
        ok = Simulate(command, "online", command.value);
        break;
    case SCRIPT_FAULT:
        ok = SimulateFault(command);
        break;
    case SCRIPT_DEVICE:
        ok = Simulate(command, command.text.c_str(), command.value);
        break;
    case SCRIPT_LIST:
        ok = PrintPropertyList(bench, command);
        break;
    case SCRIPT_TICK:
        Tick(command.code);
        break;
    case SCRIPT_ALARMS:
        ok = PrintAlarmSources(bench);
        break;
    }
    fflush(stdout);
    return ok;
}

int RunScript(WORKBENCH* bench, const char* path)
{
    std::ifstream script(path, std::ios::binary);
    if (!script) {
        fprintf(stderr, "workbench: cannot read the script %s\n", path);
        return 1;
    }
    int failures = 0;
    int number = 0;
    std::string line;
    while (std::getline(script, line)) {
        number++;
        SCRIPTCOMMAND command;
        std::string error;
        if (!ParseScriptLine(line, &command, &error)) {
            fprintf(stderr, "%s(%d): %s\n", path, number, error.c_str());
            failures++;
            continue;
        }
        if (!RunCommand(bench, command)) {
            fprintf(stderr, "%s(%d): command failed\n", path, number);
            failures++;
        }
    }
    return failures;
}
