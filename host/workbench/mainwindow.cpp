#include "mainwindow.h"

#include <commctrl.h>
#include <commdlg.h>

#include "importplan.h"
#include "saveprompt.h"

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const char kFrameClass[] = "DovrixcWorkbench";
const UINT_PTR kHostTimer = 1;
const UINT kHostTimerPeriod = 250;
const int kOutputHeight = 140;
const int kPropertiesWidth = 320;

enum {
    IDM_NEW = 99,
    IDM_OPEN = 100,
    IDM_SAVE,
    IDM_SAVEAS,
    IDM_EXIT,
    IDM_DESIGNMODE,
    IDM_DEVICE_ON,
    IDM_DEVICE_OFF,
    IDM_DEVICE_CLEARFAULTS,
    IDM_DEVICE_CONFIGURATION,
    IDM_DEVICE_CONSOLEVIEW,
    IDM_DEVICE_CONTROLPANEL,
    IDM_ABOUT,
    IDM_IMPORTPLAN,
    IDM_DEVICE_FAULT = 200,  // + fault word 1 .. 10
    IDM_ADDCONSOLES = 300,   // + the console type's index
};

struct FRAME {
    WORKBENCH* bench;
    HWND status;
    int ticks;  // host timer ticks, for the slower property refresh
};

HMENU BuildMenu()
{
    HMENU file = CreatePopupMenu();
    AppendMenuA(file, MF_STRING, IDM_NEW, "&New");
    AppendMenuA(file, MF_STRING, IDM_OPEN, "&Open...");
    AppendMenuA(file, MF_STRING, IDM_SAVE, "&Save");
    AppendMenuA(file, MF_STRING, IDM_SAVEAS, "Save &As...");
    AppendMenuA(file, MF_SEPARATOR, 0, NULL);
    AppendMenuA(file, MF_STRING, IDM_IMPORTPLAN, "&Import key plan...");
    AppendMenuA(file, MF_SEPARATOR, 0, NULL);
    AppendMenuA(file, MF_STRING, IDM_EXIT, "E&xit");
    HMENU view = CreatePopupMenu();
    AppendMenuA(view, MF_STRING | MF_CHECKED, IDM_DESIGNMODE, "&Design mode");
    HMENU faults = CreatePopupMenu();
    for (int word = 1; word <= 10; word++) {
        char item[32];
        FormatText(item, sizeof item, "Fault word &%d", word);
        AppendMenuA(faults, MF_STRING, IDM_DEVICE_FAULT + word, item);
    }
    HMENU device = CreatePopupMenu();
    AppendMenuA(device, MF_STRING, IDM_DEVICE_ON, "Switch &on");
    AppendMenuA(device, MF_STRING, IDM_DEVICE_OFF, "Switch o&ff");
    AppendMenuA(device, MF_SEPARATOR, 0, NULL);
    AppendMenuA(device, MF_POPUP, (UINT_PTR)faults, "&Raise fault");
    AppendMenuA(device, MF_STRING, IDM_DEVICE_CLEARFAULTS, "&Clear faults");
    AppendMenuA(device, MF_SEPARATOR, 0, NULL);
    AppendMenuA(device, MF_STRING, IDM_DEVICE_CONFIGURATION, "Open &configuration");
    AppendMenuA(device, MF_STRING, IDM_DEVICE_CONSOLEVIEW, "Console &view");
    AppendMenuA(device, MF_STRING, IDM_DEVICE_CONTROLPANEL, "Control &panel");
    AppendMenuA(device, MF_SEPARATOR, 0, NULL);
    HMENU types = CreatePopupMenu();
    for (int i = 0; i < 4; i++)
        AppendMenuA(types, MF_STRING, IDM_ADDCONSOLES + i, kAddConsoleTypes[i]);
    AppendMenuA(device, MF_POPUP, (UINT_PTR)types, "&Add consoles...");
    HMENU help = CreatePopupMenu();
    AppendMenuA(help, MF_STRING, IDM_ABOUT, "&About...");
    HMENU bar = CreateMenu();
    AppendMenuA(bar, MF_POPUP, (UINT_PTR)file, "&File");
    AppendMenuA(bar, MF_POPUP, (UINT_PTR)view, "&View");
    AppendMenuA(bar, MF_POPUP, (UINT_PTR)device, "&Device");
    AppendMenuA(bar, MF_POPUP, (UINT_PTR)help, "&Help");
    return bar;
}

void Frame_UpdateStatus(FRAME* frame)
{
    WORKBENCH* bench = frame->bench;
    char text[MAX_PATH + 64];
    FormatText(text, sizeof text, "%s%s", bench->designPath.empty() ? "(new design)" : bench->designPath.c_str(),
               a_IsModified(bench->design) ? "  (changed)" : "");
    SendMessageA(frame->status, SB_SETTEXTA, 0, (LPARAM)text);
}

LRESULT Frame_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    FRAME* frame = new FRAME{static_cast<WORKBENCH*>(create->lpCreateParams), NULL, 0};
    AttachWindowState(hwnd, frame);
    WORKBENCH* bench = frame->bench;
    bench->frame = hwnd;
    bench->surface = CreateWindowExA(WS_EX_CLIENTEDGE, kSurfaceClass, "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                                     0, 0, 0, hwnd, NULL, create->hInstance, bench);
    bench->properties = CreatePropertyList(hwnd, bench);
    bench->output = CreateWindowExA(WS_EX_CLIENTEDGE, "EDIT", "",
                                    WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                                    0, 0, 0, 0, hwnd, NULL, create->hInstance, NULL);
    SendMessageA(bench->output, WM_SETFONT, (WPARAM)GetStockObject(ANSI_FIXED_FONT), FALSE);
    frame->status = CreateWindowExA(0, STATUSCLASSNAMEA, "", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, hwnd, NULL,
                                    create->hInstance, NULL);
    SetTimer(hwnd, kHostTimer, kHostTimerPeriod, NULL);
    return 0;
}

void Frame_Layout(HWND hwnd, FRAME* frame)
{
    RECT client;
    GetClientRect(hwnd, &client);
    SendMessageA(frame->status, WM_SIZE, 0, 0);
    RECT status;
    GetWindowRect(frame->status, &status);
    const int statusHeight = status.bottom - status.top;
    int outputTop = client.bottom - statusHeight - kOutputHeight;
    if (outputTop < 0)
        outputTop = 0;
    int surfaceWidth = client.right - kPropertiesWidth;
    if (surfaceWidth < 0)
        surfaceWidth = 0;
    MoveWindow(frame->bench->surface, 0, 0, surfaceWidth, outputTop, TRUE);
    MoveWindow(frame->bench->properties, surfaceWidth, 0, client.right - surfaceWidth, outputTop, TRUE);
    MoveWindow(frame->bench->output, 0, outputTop, client.right, kOutputHeight, TRUE);
}

const char kDesignFilter[] = "Design files (*.ds)\0*.ds\0All files\0*.*\0";
const char kPlanFilter[] = "Key plans (*.csv)\0*.csv\0All files\0*.*\0";

bool AskForFile(HWND hwnd, bool save, char* path, DWORD size, const char* filter = kDesignFilter)
{
    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = hwnd;
    ofn.lpstrFilter = filter;
    ofn.lpstrFile = path;
    ofn.nMaxFile = size;
    ofn.lpstrDefExt = filter == kPlanFilter ? "csv" : "ds";
    ofn.Flags = save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST;
    return save ? GetSaveFileNameA(&ofn) != 0 : GetOpenFileNameA(&ofn) != 0;
}

// File > Save: to the design's file, or to one the user picks for a new design.
bool SaveToFile(HWND hwnd, WORKBENCH* bench, bool askForName)
{
    if (!askForName && !bench->designPath.empty())
        return SaveDesign(bench, bench->designPath.c_str());
    char path[MAX_PATH] = "";
    return AskForFile(hwnd, true, path, sizeof path) && SaveDesign(bench, path);
}

bool SaveBeforeDropping(HWND hwnd, WORKBENCH* bench)
{
    return SaveToFile(hwnd, bench, false);
}

// The simulated device of the selected console.
void Frame_Device(HWND hwnd, WORKBENCH* bench, int id)
{
    HOSTINFO* console = a_GetSelection(bench->design);
    if (!console) {
        MessageBoxA(hwnd, "Select a console on the design surface first.", "Workbench", MB_OK | MB_ICONINFORMATION);
        return;
    }
    bool ok = true;
    if (id == IDM_DEVICE_ON || id == IDM_DEVICE_OFF) {
        ok = SimulateDevice(console->m_szName, "online", id == IDM_DEVICE_ON) != FALSE;
    } else if (id == IDM_DEVICE_CLEARFAULTS) {
        for (int word = 1; word <= 10 && ok; word++)
            ok = SimulateDevice(console->m_szName, ("Faults" + std::to_string(word)).c_str(), 0) != FALSE;
    } else if (id == IDM_DEVICE_CONFIGURATION) {
        SendMessageA(console->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);
    } else if (id == IDM_DEVICE_CONSOLEVIEW) {
        OpenConsoleView(bench, console->m_szName);
    } else if (id == IDM_DEVICE_CONTROLPANEL) {
        ToggleControlPanel(bench, console->m_szName);
    } else {
        const int word = id - IDM_DEVICE_FAULT;
        ok = SimulateDevice(console->m_szName, ("Faults" + std::to_string(word)).c_str(), 1) != FALSE;
    }
    if (!ok)
        EDITTRACE(bench->design, "%s has no simulated device: connect it to a controller first", console->m_szName);
}

void Frame_Command(HWND hwnd, FRAME* frame, int id)
{
    WORKBENCH* bench = frame->bench;
    char path[MAX_PATH] = "";
    switch (id) {
    case IDM_NEW:
        if (ConfirmDropDesign(hwnd, bench, SaveBeforeDropping))
            NewDesign(bench);
        break;
    case IDM_OPEN:
        if (ConfirmDropDesign(hwnd, bench, SaveBeforeDropping) && AskForFile(hwnd, false, path, sizeof path)) {
            ShowProperties(bench->properties, nullptr);
            OpenDesign(bench, path);
        }
        break;
    case IDM_SAVE:
    case IDM_SAVEAS:
        SaveToFile(hwnd, bench, id == IDM_SAVEAS);
        break;
    case IDM_IMPORTPLAN:
        if (AskForFile(hwnd, false, path, sizeof path, kPlanFilter) && RunImportWindow(hwnd, bench->design, path))
            RefreshPropertyValues(bench->properties);
        break;
    case IDM_EXIT:
        if (ConfirmDropDesign(hwnd, bench, SaveBeforeDropping))
            DestroyWindow(hwnd);
        return;
    case IDM_DESIGNMODE: {
        const bool designing = !(GetMenuState(GetMenu(hwnd), IDM_DESIGNMODE, MF_BYCOMMAND) & MF_CHECKED);
        CheckMenuItem(GetMenu(hwnd), IDM_DESIGNMODE, designing ? MF_CHECKED : MF_UNCHECKED);
        bench->designMode = designing;
        a_SetDesignMode(bench->design, designing ? 1 : 0);
        SetConsoleViewsEditMode(bench, designing);
        break;
    }
    case IDM_ABOUT: {
        const INT_PTR build = bench->callback ? bench->callback(13, bench->design, 0) : 0;
        char text[512];
        FormatText(text, sizeof text, "DOVRIXC workbench\n\nPlug-in build: %s", build ? (const char*)build : "?");
        MessageBoxA(hwnd, text, "About", MB_OK | MB_ICONINFORMATION);
        break;
    }
    default:
        if (id >= IDM_ADDCONSOLES && id < IDM_ADDCONSOLES + 4)
            AddConsoles(bench, kAddConsoleTypes[id - IDM_ADDCONSOLES]);
        else if (id >= IDM_DEVICE_ON)
            Frame_Device(hwnd, bench, id);
        break;
    }
    Frame_UpdateStatus(frame);
}

LRESULT Frame_Notify(FRAME* frame, const NMHDR* header)
{
    if (header->hwndFrom == frame->bench->properties && header->code == NM_DBLCLK)
        BeginPropertyEdit(frame->bench->properties, reinterpret_cast<const NMITEMACTIVATE*>(header)->iItem);
    return 0;
}

void Frame_Timer(FRAME* frame)
{
    TickObjects();
    if (++frame->ticks % 4 == 0)
        RefreshPropertyValues(frame->bench->properties);
    Frame_UpdateStatus(frame);
}

LRESULT CALLBACK FrameWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return Frame_Create(hwnd, reinterpret_cast<CREATESTRUCTA*>(lParam));
    FRAME* frame = WindowState<FRAME>(hwnd);
    if (!frame)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_SIZE:
        Frame_Layout(hwnd, frame);
        return 0;
    case WM_COMMAND:
        Frame_Command(hwnd, frame, LOWORD(wParam));
        return 0;
    case WM_NOTIFY:
        return Frame_Notify(frame, reinterpret_cast<NMHDR*>(lParam));
    case WM_TIMER:
        Frame_Timer(frame);
        return 0;
    case WM_CLOSE:
        if (ConfirmDropDesign(hwnd, frame->bench, SaveBeforeDropping))
            DestroyWindow(hwnd);
        return 0;
    case WM_DESTROY:
        KillTimer(hwnd, kHostTimer);
        DestroyPropertyList(frame->bench->properties);
        frame->bench->properties = NULL;
        FreeWindowState<FRAME>(hwnd);
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

bool RegisterFrameClass(HINSTANCE instance)
{
    WNDCLASSEXA frame = {};
    frame.cbSize = sizeof frame;
    frame.lpfnWndProc = FrameWndProc;
    frame.hInstance = instance;
    frame.hCursor = LoadCursor(NULL, IDC_ARROW);
    frame.hbrBackground = (HBRUSH)(COLOR_BTNFACE + 1);
    frame.lpszClassName = kFrameClass;
    return RegisterClassExA(&frame) != 0;
}

}  // namespace

HWND CreateMainWindow(HINSTANCE instance, WORKBENCH* bench)
{
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    if (!RegisterFrameClass(instance) || !RegisterSurfaceClass(instance))
        return NULL;
    HWND frame = CreateWindowExA(0, kFrameClass, "DOVRIXC Workbench", WS_OVERLAPPEDWINDOW, 0, 0, 1100, 700, NULL,
                                 BuildMenu(), instance, bench);
    if (frame) {
        SendMessageA(frame, WM_SIZE, 0, 0);
        NewDesign(bench);
    }
    return frame;
}

int RunMainWindow(HWND frame)
{
    ShowWindow(frame, SW_SHOWNORMAL);
    UpdateWindow(frame);
    MSG msg;
    while (GetMessageA(&msg, NULL, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    return (int)msg.wParam;
}
