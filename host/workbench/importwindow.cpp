// The key-plan import window: what the plan changes, console by console and
// key by key, or the plan's errors, with OK to apply it and Cancel.
#include "importplan.h"

#include <commctrl.h>

#include "../../plugin/protocol.h"

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

const char kImportWindowClass[] = "DovrixcKeyPlanImport";

namespace {

const char kCaption[] = "Import key plan";
const int kWidth = 1040;
const int kHeight = 460;
const int kMargin = 10;
const int kSummaryHeight = 20;
const int kButtonWidth = 88;
const int kButtonHeight = 26;

struct COLUMN {
    const char* title;
    int width;
};
const COLUMN kChangeColumns[] = {{"Console", 130}, {"Key", 120}, {"Before", 390}, {"After", 390}};
const COLUMN kErrorColumns[] = {{"Line", 60}, {"Error", 930}};

struct IMPORTSTATE {
    HOSTINFO* design = nullptr;
    KEYPLAN plan;
    bool* applied = nullptr;  // the caller's answer, when it waits for one
};

struct IMPORTSTART {
    HOSTINFO* design;
    const KEYPLAN* plan;
    bool* applied;
};

std::string KeyText(const std::string& record, const std::string& label)
{
    return label.empty() ? record : record + "  \"" + label + "\"";
}

HWND Child(HWND parent, const char* className, const char* text, DWORD style, int id)
{
    HWND child = CreateWindowExA(0, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                                 (HMENU)(INT_PTR)id, GetModuleHandleA(NULL), NULL);
    SendMessageA(child, WM_SETFONT, (WPARAM)GetStockObject(DEFAULT_GUI_FONT), FALSE);
    return child;
}

void AddColumns(HWND list, const COLUMN* columns, int count)
{
    for (int i = 0; i < count; i++) {
        LVCOLUMNA column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = const_cast<char*>(columns[i].title);
        column.cx = columns[i].width;
        SendMessageA(list, LVM_INSERTCOLUMNA, i, (LPARAM)&column);
    }
}

void AddRow(HWND list, const std::vector<std::string>& cells)
{
    LVITEMA item = {};
    item.mask = LVIF_TEXT;
    item.iItem = (int)SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    item.pszText = const_cast<char*>(cells[0].c_str());
    const int row = (int)SendMessageA(list, LVM_INSERTITEMA, 0, (LPARAM)&item);
    for (size_t i = 1; i < cells.size(); i++) {
        LVITEMA cell = {};
        cell.iSubItem = (int)i;
        cell.pszText = const_cast<char*>(cells[i].c_str());
        SendMessageA(list, LVM_SETITEMTEXTA, row, (LPARAM)&cell);
    }
}

void FillList(HWND list, const KEYPLAN& plan)
{
    if (!plan.errors.empty()) {
        AddColumns(list, kErrorColumns, sizeof kErrorColumns / sizeof kErrorColumns[0]);
        for (const PLANERROR& error : plan.errors)
            AddRow(list, {std::to_string(error.line), error.text});
        return;
    }
    AddColumns(list, kChangeColumns, sizeof kChangeColumns / sizeof kChangeColumns[0]);
    for (const KEYCHANGE& change : plan.changes)
        AddRow(list, {change.consoleName, change.caption + " (" + change.keyword + ")",
                      KeyText(change.oldRecord, change.oldLabel), KeyText(change.newRecord, change.newLabel)});
}

std::string Summary(const KEYPLAN& plan)
{
    if (!plan.errors.empty())
        return FormatString("%zu %s: nothing is changed", plan.errors.size(),
                            plan.errors.size() == 1 ? "error" : "errors");
    std::string text = FormatPlanDifference(plan);
    const size_t last = text.rfind('\n', text.size() - 2);
    text = last == std::string::npos ? text : text.substr(last + 1);
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

LRESULT Import_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    const IMPORTSTART* start = static_cast<const IMPORTSTART*>(create->lpCreateParams);
    IMPORTSTATE* state = AttachWindowState(hwnd, new IMPORTSTATE);
    state->design = start->design;
    state->plan = *start->plan;
    state->applied = start->applied;
    Child(hwnd, "STATIC", Summary(state->plan).c_str(), SS_LEFT, IDC_IMPORT_SUMMARY);
    HWND list = CreateWindowExA(WS_EX_CLIENTEDGE, WC_LISTVIEWA, "",
                                WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOSORTHEADER, 0,
                                0, 0, 0, hwnd, (HMENU)(INT_PTR)IDC_IMPORT_LIST, GetModuleHandleA(NULL), NULL);
    SendMessageA(list, WM_SETFONT, (WPARAM)GetStockObject(DEFAULT_GUI_FONT), FALSE);
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    FillList(list, state->plan);
    HWND ok = Child(hwnd, "BUTTON", "OK", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK);
    Child(hwnd, "BUTTON", "Cancel", WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL);
    EnableWindow(ok, state->plan.errors.empty() && !state->plan.changes.empty());
    return 0;
}

void Import_Layout(HWND hwnd)
{
    RECT client;
    GetClientRect(hwnd, &client);
    const int buttonTop = client.bottom - kMargin - kButtonHeight;
    MoveWindow(GetDlgItem(hwnd, IDC_IMPORT_SUMMARY), kMargin, kMargin, client.right - 2 * kMargin, kSummaryHeight,
               TRUE);
    const int listTop = kMargin + kSummaryHeight + 4;
    MoveWindow(GetDlgItem(hwnd, IDC_IMPORT_LIST), kMargin, listTop, client.right - 2 * kMargin,
               buttonTop - kMargin - listTop, TRUE);
    MoveWindow(GetDlgItem(hwnd, IDCANCEL), client.right - kMargin - kButtonWidth, buttonTop, kButtonWidth,
               kButtonHeight, TRUE);
    MoveWindow(GetDlgItem(hwnd, IDOK), client.right - 2 * (kMargin + kButtonWidth) + kMargin, buttonTop,
               kButtonWidth, kButtonHeight, TRUE);
}

// OK applies the plan once, when it has no error; either button closes the window.
void Import_Command(HWND hwnd, IMPORTSTATE* state, int id)
{
    if (id == IDOK) {
        if (!IsWindowEnabled(GetDlgItem(hwnd, IDOK)))
            return;
        ApplyPlanEdits(state->design, state->plan);
        if (state->applied)
            *state->applied = true;
    } else if (id != IDCANCEL) {
        return;
    }
    DestroyWindow(hwnd);
}

LRESULT ImportDispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return Import_Create(hwnd, reinterpret_cast<CREATESTRUCTA*>(lParam));
    IMPORTSTATE* state = WindowState<IMPORTSTATE>(hwnd);
    if (!state)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_SIZE:
        Import_Layout(hwnd);
        return 0;
    case WM_COMMAND:
        Import_Command(hwnd, state, LOWORD(wParam));
        return 0;
    case WM_CLOSE:
        DestroyWindow(hwnd);
        return 0;
    case WM_DESTROY:
        FreeWindowState<IMPORTSTATE>(hwnd);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

// Nothing thrown inside leaves the procedure (the workbench has no trace to
// tell of it): creation fails, anything else gets the default answer.
LRESULT CALLBACK ImportWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    try {
        return ImportDispatch(hwnd, message, wParam, lParam);
    } catch (...) {
        if (message == WM_NCCREATE)
            return FALSE;
        if (message == WM_CREATE)
            return -1;
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

bool RegisterImportClass()
{
    WNDCLASSA wc = {};
    if (GetClassInfoA(GetModuleHandleA(NULL), kImportWindowClass, &wc))
        return true;
    wc.lpfnWndProc = ImportWndProc;
    wc.hInstance = GetModuleHandleA(NULL);
    wc.hCursor = LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = (HBRUSH)(COLOR_BTNFACE + 1);
    wc.lpszClassName = kImportWindowClass;
    return RegisterClassA(&wc) != 0;
}

HWND CreateImportWindow(HWND owner, HOSTINFO* design, const KEYPLAN& plan, const char* planPath, bool* applied)
{
    if (!RegisterImportClass())
        return NULL;
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    const std::string title = std::string(kCaption) + " - " + PlanFileName(planPath);
    IMPORTSTART start = {design, &plan, applied};
    HWND window = CreateWindowExA(WS_EX_DLGMODALFRAME, kImportWindowClass, title.c_str(),
                                  WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, CW_USEDEFAULT, CW_USEDEFAULT,
                                  kWidth, kHeight, owner, NULL, GetModuleHandleA(NULL), &start);
    if (window) {
        Import_Layout(window);
        ShowWindow(window, SW_SHOWNORMAL);
        UpdateWindow(window);
    }
    return window;
}

}  // namespace

HWND OpenImportWindow(HWND owner, HOSTINFO* design, const char* planPath, bool* applied)
{
    KEYPLAN plan;
    std::string why;
    if (!ReadPlanForDesign(design, planPath, &plan, &why)) {
        MessageBoxA(owner, why.c_str(), kCaption, MB_OK | MB_ICONERROR);
        return NULL;
    }
    return CreateImportWindow(owner, design, plan, planPath, applied);
}

bool RunImportWindow(HWND owner, HOSTINFO* design, const char* planPath)
{
    bool applied = false;
    HWND window = OpenImportWindow(owner, design, planPath, &applied);
    if (!window)
        return false;
    const bool ownerEnabled = owner && IsWindowEnabled(owner);
    if (ownerEnabled)
        EnableWindow(owner, FALSE);
    MSG msg;
    while (IsWindow(window)) {
        const BOOL got = GetMessageA(&msg, NULL, 0, 0);
        if (got <= 0) {
            if (got == 0)
                PostQuitMessage((int)msg.wParam);  // the application's loop ends too
            DestroyWindow(window);
            break;
        }
        if (IsDialogMessageA(window, &msg))
            continue;
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    if (ownerEnabled) {
        EnableWindow(owner, TRUE);
        SetActiveWindow(owner);
    }
    return applied;
}
