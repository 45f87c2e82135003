// The property list: a report list view the selected object fills itself
// (OnSaveToListCtrl); a value is edited in place and written back as an edit
// of the object (OnLoad with mode 0). Only the object's listed keywords
// (WM_HOST_GETKEYWORDS) can be edited.
#include "workbench.h"

#include <commctrl.h>

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const UINT_PTR kEditorSubclass = 1;

struct LISTSTATE {
    WORKBENCH* bench;
    HOSTINFO* shown;   // the object whose rows the list holds
    HWND editor;       // the in-place editor, while a value is edited
    int editedRow;
};

bool IsListedKeyword(HOSTINFO* obj, const char* keyword)
{
    const char* const* names = (const char* const*)SendMessageA(obj->m_hWnd, WM_HOST_GETKEYWORDS, 0, 0);
    for (; names && *names; names++)
        if (strcmp(*names, keyword) == 0)
            return true;
    return false;
}

void CommitEdit(HWND list, LISTSTATE* state, bool keep)
{
    HWND editor = state->editor;
    if (!editor)
        return;
    state->editor = NULL;
    if (keep && state->shown) {
        char keyword[256] = "", value[1024] = "";
        ListCell(list, state->editedRow, 0, keyword, sizeof keyword);
        GetWindowTextA(editor, value, sizeof value);
        const std::string line = std::string(state->shown->m_szName) + "*" + keyword + "=" + value;
        a_LoadLine(state->bench->design, line.c_str(), REQMODE_EDIT);
    }
    DestroyWindow(editor);
    ShowProperties(list, state->shown);
}

LRESULT CALLBACK EditorProc(HWND editor, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR listData)
{
    HWND list = (HWND)listData;
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
        if (wParam == VK_RETURN || wParam == VK_ESCAPE) {
            CommitEdit(list, WindowState<LISTSTATE>(list), wParam == VK_RETURN);
            return 0;
        }
        break;
    case WM_KILLFOCUS:
        if (WindowState<LISTSTATE>(list) && WindowState<LISTSTATE>(list)->editor == editor)
            CommitEdit(list, WindowState<LISTSTATE>(list), false);
        break;
    case WM_NCDESTROY:
        RemoveWindowSubclass(editor, EditorProc, kEditorSubclass);
        break;
    }
    return DefSubclassProc(editor, message, wParam, lParam);
}

}  // namespace

HWND CreatePropertyList(HWND parent, WORKBENCH* bench)
{
    HWND list = CreateWindowExA(WS_EX_CLIENTEDGE, WC_LISTVIEWA, "",
                                WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS, 0, 0, 300, 300,
                                parent, NULL, GetModuleHandleA(NULL), NULL);
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    LVCOLUMNA column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = 160;
    column.pszText = const_cast<char*>("Property");
    SendMessageA(list, LVM_INSERTCOLUMNA, 0, (LPARAM)&column);
    column.cx = 134;
    column.pszText = const_cast<char*>("Value");
    SendMessageA(list, LVM_INSERTCOLUMNA, 1, (LPARAM)&column);
    AttachWindowState(list, new LISTSTATE{bench, nullptr, NULL, -1});
    return list;
}

void DestroyPropertyList(HWND list)
{
    FreeWindowState<LISTSTATE>(list);
    DestroyWindow(list);
}

void ListCell(HWND list, int row, int column, char* text, int size)
{
    LVITEMA cell = {};
    cell.iSubItem = column;
    cell.pszText = text;
    cell.cchTextMax = size;
    SendMessageA(list, LVM_GETITEMTEXTA, (WPARAM)row, (LPARAM)&cell);
}

void ShowProperties(HWND list, HOSTINFO* obj)
{
    if (LISTSTATE* state = WindowState<LISTSTATE>(list))
        state->shown = obj;
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LVM_DELETEALLITEMS, 0, 0);
    if (obj && obj->m_hWnd)
        SendMessageA(obj->m_hWnd, WM_HOST_SAVETOLIST, 0, (LPARAM)list);
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, NULL, TRUE);
}

void RefreshPropertyValues(HWND list)
{
    LISTSTATE* state = WindowState<LISTSTATE>(list);
    if (!state || !state->shown || state->editor)
        return;
    const int rows = (int)SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    for (int row = 0; row < rows; row++) {
        char keyword[256] = "", shown[1024] = "";
        char value[REQUEST_TEXT_SIZE] = "";
        ListCell(list, row, 0, keyword, sizeof keyword);
        ListCell(list, row, 1, shown, sizeof shown);
        REQUEST read = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, value, keyword, nullptr};
        SendMessageA(state->shown->m_hWnd, WM_HOST_MESSAGE, 0, (LPARAM)&read);
        if (strcmp(value, shown) != 0) {
            LVITEMA cell = {};
            cell.iSubItem = 1;
            cell.pszText = value;
            SendMessageA(list, LVM_SETITEMTEXTA, (WPARAM)row, (LPARAM)&cell);
        }
    }
}

bool BeginPropertyEdit(HWND list, int row)
{
    LISTSTATE* state = WindowState<LISTSTATE>(list);
    if (!state || !state->shown || row < 0 || state->editor)
        return false;
    char keyword[256] = "", value[1024] = "";
    ListCell(list, row, 0, keyword, sizeof keyword);
    ListCell(list, row, 1, value, sizeof value);
    if (!IsListedKeyword(state->shown, keyword))
        return false;
    RECT cell = {};
    cell.top = 1;
    cell.left = LVIR_LABEL;
    SendMessageA(list, LVM_GETSUBITEMRECT, (WPARAM)row, (LPARAM)&cell);
    state->editedRow = row;
    state->editor = CreateWindowExA(0, "EDIT", value, WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, cell.left,
                                    cell.top, cell.right - cell.left, cell.bottom - cell.top, list, NULL,
                                    GetModuleHandleA(NULL), NULL);
    SendMessageA(state->editor, WM_SETFONT, SendMessageA(list, WM_GETFONT, 0, 0), FALSE);
    SetWindowSubclass(state->editor, EditorProc, kEditorSubclass, (DWORD_PTR)list);
    SendMessageA(state->editor, EM_SETSEL, 0, -1);
    SetFocus(state->editor);
    return true;
}

int FindPropertyRow(HWND list, const char* keyword)
{
    const int rows = (int)SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    for (int row = 0; row < rows; row++) {
        char shown[256] = "";
        ListCell(list, row, 0, shown, sizeof shown);
        if (strcmp(shown, keyword) == 0)
            return row;
    }
    return -1;
}

HWND PropertyEditor(HWND list)
{
    LISTSTATE* state = WindowState<LISTSTATE>(list);
    return state ? state->editor : NULL;
}
