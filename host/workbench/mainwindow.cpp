#include "mainwindow.h"

#include <commctrl.h>
#include <commdlg.h>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char kFrameClass[] = "DovrixcWorkbench";
const char kSurfaceClass[] = "DovrixcDesignSurface";
const UINT_PTR kHostTimer = 1;
const UINT kHostTimerPeriod = 250;
const int kOutputHeight = 140;

enum {
    IDM_OPEN = 100,
    IDM_SAVE,
    IDM_SAVEAS,
    IDM_EXIT,
    IDM_ABOUT,
};

struct FRAME {
    WORKBENCH* bench;
    HWND status;
};

FRAME* FrameOf(HWND hwnd)
{
    return reinterpret_cast<FRAME*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
}

HMENU BuildMenu()
{
    HMENU file = CreatePopupMenu();
    AppendMenuA(file, MF_STRING, IDM_OPEN, "&Open...\tCtrl+O");
    AppendMenuA(file, MF_STRING, IDM_SAVE, "&Save\tCtrl+S");
    AppendMenuA(file, MF_STRING, IDM_SAVEAS, "Save &As...");
    AppendMenuA(file, MF_SEPARATOR, 0, NULL);
    AppendMenuA(file, MF_STRING, IDM_EXIT, "E&xit");
    HMENU help = CreatePopupMenu();
    AppendMenuA(help, MF_STRING, IDM_ABOUT, "&About...");
    HMENU bar = CreateMenu();
    AppendMenuA(bar, MF_POPUP, (UINT_PTR)file, "&File");
    AppendMenuA(bar, MF_POPUP, (UINT_PTR)help, "&Help");
    return bar;
}

void Frame_UpdateStatus(HWND hwnd, FRAME* frame)
{
    WORKBENCH* bench = frame->bench;
    char text[MAX_PATH + 32];
    FormatText(text, sizeof text, "%s%s", bench->designPath.empty() ? "(new design)" : bench->designPath.c_str(),
               a_IsModified(bench->design) ? "  (changed)" : "");
    SendMessageA(frame->status, SB_SETTEXTA, 0, (LPARAM)text);
    (void)hwnd;
}

LRESULT Frame_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    FRAME* frame = new FRAME{static_cast<WORKBENCH*>(create->lpCreateParams), NULL};
    SetWindowLongPtrA(hwnd, GWLP_USERDATA, (LONG_PTR)frame);
    WORKBENCH* bench = frame->bench;
    bench->surface = CreateWindowExA(WS_EX_CLIENTEDGE, kSurfaceClass, "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                                     0, 0, 0, 0, hwnd, NULL, create->hInstance, NULL);
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
    const int outputTop = client.bottom - statusHeight - kOutputHeight;
    MoveWindow(frame->bench->surface, 0, 0, client.right, outputTop > 0 ? outputTop : 0, TRUE);
    MoveWindow(frame->bench->output, 0, outputTop, client.right, kOutputHeight, TRUE);
}

bool AskForFile(HWND hwnd, bool save, char* path, DWORD size)
{
    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = hwnd;
    ofn.lpstrFilter = "Design files (*.ds)\0*.ds\0All files\0*.*\0";
    ofn.lpstrFile = path;
    ofn.nMaxFile = size;
    ofn.lpstrDefExt = "ds";
    ofn.Flags = save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST;
    return save ? GetSaveFileNameA(&ofn) != 0 : GetOpenFileNameA(&ofn) != 0;
}

void Frame_Command(HWND hwnd, FRAME* frame, int id)
{
    WORKBENCH* bench = frame->bench;
    char path[MAX_PATH] = "";
    switch (id) {
    case IDM_OPEN:
        if (AskForFile(hwnd, false, path, sizeof path))
            OpenDesign(bench, path);
        break;
    case IDM_SAVE:
        if (!bench->designPath.empty()) {
            SaveDesign(bench, bench->designPath.c_str());
            break;
        }
        // A new design has no file yet: ask for one.
        [[fallthrough]];
    case IDM_SAVEAS:
        if (AskForFile(hwnd, true, path, sizeof path))
            SaveDesign(bench, path);
        break;
    case IDM_EXIT:
        DestroyWindow(hwnd);
        break;
    case IDM_ABOUT: {
        const INT_PTR build = bench->callback ? bench->callback(13, bench->design, 0) : 0;
        char text[512];
        FormatText(text, sizeof text, "DOVRIXC workbench\n\nPlug-in build: %s", build ? (const char*)build : "?");
        MessageBoxA(hwnd, text, "About", MB_OK | MB_ICONINFORMATION);
        break;
    }
    }
    Frame_UpdateStatus(hwnd, frame);
}

LRESULT CALLBACK FrameWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return Frame_Create(hwnd, reinterpret_cast<CREATESTRUCTA*>(lParam));
    FRAME* frame = FrameOf(hwnd);
    if (!frame)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_SIZE:
        Frame_Layout(hwnd, frame);
        return 0;
    case WM_COMMAND:
        Frame_Command(hwnd, frame, LOWORD(wParam));
        return 0;
    case WM_TIMER:
        TickObjects();
        Frame_UpdateStatus(hwnd, frame);
        return 0;
    case WM_DESTROY:
        KillTimer(hwnd, kHostTimer);
        SetWindowLongPtrA(hwnd, GWLP_USERDATA, 0);
        delete frame;
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

bool RegisterClasses(HINSTANCE instance)
{
    WNDCLASSEXA frame = {};
    frame.cbSize = sizeof frame;
    frame.lpfnWndProc = FrameWndProc;
    frame.hInstance = instance;
    frame.hCursor = LoadCursor(NULL, IDC_ARROW);
    frame.hbrBackground = (HBRUSH)(COLOR_BTNFACE + 1);
    frame.lpszClassName = kFrameClass;
    WNDCLASSEXA surface = {};
    surface.cbSize = sizeof surface;
    surface.lpfnWndProc = DefWindowProcA;
    surface.hInstance = instance;
    surface.hCursor = LoadCursor(NULL, IDC_ARROW);
    surface.hbrBackground = (HBRUSH)GetStockObject(WHITE_BRUSH);
    surface.lpszClassName = kSurfaceClass;
    return RegisterClassExA(&frame) && RegisterClassExA(&surface);
}

}  // namespace

HWND CreateMainWindow(HINSTANCE instance, WORKBENCH* bench)
{
    if (!RegisterClasses(instance))
        return NULL;
    HWND frame = CreateWindowExA(0, kFrameClass, "DOVRIXC Workbench", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                 CW_USEDEFAULT, 900, 640, NULL, BuildMenu(), instance, bench);
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
