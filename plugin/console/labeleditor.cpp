// The in-place editor of a key's label: an edit control over the label box,
// stored on Enter, dropped on Escape or when it loses the focus.
#include "viewstate.h"

#include <commctrl.h>

#include "consoleview.h"
#include "../device/consoleproperties.h"
#include "../entry/module.h"
#include "../protocol.h"

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const UINT_PTR kEditorSubclass = 0x1AB;
const char kClosing[] = "DOVRIXC.LabelEditor.Closing";

// Destroying the focused editor takes its focus away again: close once.
void CloseEditor(HWND editor)
{
    if (GetPropA(editor, kClosing))
        return;
    SetPropA(editor, kClosing, (HANDLE)1);
    DestroyWindow(editor);
}

LRESULT Editor_Dispatch(HWND editor, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR)
{
    switch (message) {
    case WM_KILLFOCUS:
        CloseEditor(editor);
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
        if (wParam == VK_RETURN) {
            const int id = GetDlgCtrlID(editor);
            SendMessageA(GetParent(editor), WM_COMMAND, MAKEWPARAM(id, LABELEDITOR_ENTER),
                         (LPARAM)(LOWORD((UINT_PTR)editor)));
            CloseEditor(editor);
            return 0;
        }
        if (wParam == VK_ESCAPE) {
            CloseEditor(editor);
            return 0;
        }
        break;
    case WM_CHAR:
        if (wParam == '\r' || wParam == 27)
            return 0;  // handled at the key press; no beep
        break;
    case WM_NCDESTROY:
        RemoveWindowSubclass(editor, GuardedSubclassProc<Editor_Dispatch>, kEditorSubclass);
        RemovePropA(editor, kClosing);
        break;
    default:
        break;
    }
    return DefSubclassProc(editor, message, wParam, lParam);
}

}  // namespace

void OpenLabelEditor(HWND hwnd, CONSOLEVIEW* view, const CONSOLEKEYLABEL& label)
{
    CloseLabelEditor(view);
    if (label.key < 0 || label.key >= CONSOLE_KEY_COUNT)
        return;
    view->editedKey = label.key;
    const char* current = view->console->m_settings.keyLabels[label.key];
    const int x = (int)label.x + 3 - view->scrollPosition;
    HWND editor = CreateWindowExA(0, "EDIT", current, 0x50810080, x, (int)label.y, (int)label.width - 3,
                                  (int)label.height, hwnd, (HMENU)(INT_PTR)IDC_LABELEDITOR,
                                  ModuleInstance(), NULL);
    if (!editor)
        return;
    view->editor = editor;
    if (HFONT font = a_GetFont("Arial,8"))
        SendMessageA(editor, WM_SETFONT, (WPARAM)font, FALSE);
    SendMessageA(editor, EM_SETSEL, 0, -1);
    SetWindowSubclass(editor, GuardedSubclassProc<Editor_Dispatch>, kEditorSubclass, 0);
    SetFocus(editor);
}

void CloseLabelEditor(CONSOLEVIEW* view)
{
    if (view->editor && IsWindow(view->editor))
        SendMessageA(view->editor, WM_KILLFOCUS, 0, 0);
    view->editor = NULL;
}

// Enter in the editor: at most 31 characters become the key's label.
void StoreEditedLabel(CONSOLEVIEW* view, HWND editor)
{
    if (view->editedKey < 0 || view->editedKey >= CONSOLE_KEY_COUNT || !editor)
        return;
    char text[KEYLABEL_SIZE] = "";
    GetWindowTextA(editor, text, sizeof text);
    char line[32 + KEYLABEL_SIZE];
    FormatText(line, sizeof line, "keylabel%03d=%s", view->editedKey, text);
    view->console->LoadEdit(line);  // the console tells the view
}
