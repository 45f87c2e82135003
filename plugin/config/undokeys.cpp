// The configuration window's Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z: a keyboard hook
// of the window's thread sees them whichever child has the focus (the key
// pages' fields too) and hands them to the window as CFM_UNDO and CFM_REDO.
#include "configurationstate.h"

#include <string.h>

#include "../device/consoleproperties.h"
#include "../device/keyundo.h"
#include "../protocol.h"

#include "../../base/banned.h"

namespace {

bool IsConfigurationWindow(HWND window)
{
    char name[64] = "";
    if (!window || !GetClassNameA(window, name, sizeof name))
        return false;
    return strcmp(name, "DOVRIXZELCONFIGURATIONDIALOG") == 0 || strcmp(name, "DOVRIXELKCSKCONFIGURATIONDIALOG") == 0;
}

// The message a key stroke stands for, or 0.
UINT UndoMessageOf(WPARAM key)
{
    if (GetKeyState(VK_CONTROL) >= 0 || GetKeyState(VK_MENU) < 0)
        return 0;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    if (key == 'Z')
        return shift ? CFM_REDO : CFM_UNDO;
    if (key == 'Y' && !shift)
        return CFM_REDO;
    return 0;
}

// One hook per open window: the first that finds its stroke takes it, so the
// others never see it.
LRESULT CALLBACK UndoKeyHook(int code, WPARAM wParam, LPARAM lParam)
{
    const bool down = (lParam & 0x80000000) == 0;
    if (code == HC_ACTION && down) {
        const UINT message = UndoMessageOf(wParam);
        HWND focus = GetFocus();
        HWND window = focus ? GetAncestor(focus, GA_ROOT) : NULL;
        if (message && IsConfigurationWindow(window)) {
            SendMessageA(window, message, 0, 0);
            return 1;
        }
    }
    return CallNextHookEx(NULL, code, wParam, lParam);
}

}  // namespace

void StartUndo(HWND hwnd, CONFIGURATIONSTATE* state)
{
    StartKeyHistory(state->console);
    if (!state->undoKeys)
        state->undoKeys = SetWindowsHookExA(WH_KEYBOARD, UndoKeyHook, NULL, GetWindowThreadProcessId(hwnd, NULL));
}

void StopUndo(CONFIGURATIONSTATE* state)
{
    StopKeyHistory(state->console);
}

LRESULT RunUndo(HWND hwnd, CONFIGURATIONSTATE* state, bool redo)
{
    (void)hwnd;
    return (redo ? RedoKeyEdit(state->console) : UndoKeyEdit(state->console)) ? 1 : 0;
}
