// Headless, nobody can click a message box: each is printed as
// "messagebox: CAPTION: TEXT" and answered at once with its default button.
#include "workbench.h"

#include "messagebox.h"

#include <stdio.h>

#include "../../base/banned.h"

namespace {

HHOOK& Hook()
{
    static HHOOK hook = NULL;
    return hook;
}

LRESULT CALLBACK AnswerMessageBox(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HCBT_ACTIVATE) {
        HWND box = (HWND)wParam;
        if (IsMessageBox(box)) {
            char caption[256] = "", text[2048] = "";
            GetWindowTextA(box, caption, sizeof caption);
            GetDlgItemTextA(box, 0xFFFF, text, sizeof text);
            printf("messagebox: %s: %s\n", caption, text);
            fflush(stdout);
            const LRESULT defaultId = SendMessageA(box, DM_GETDEFID, 0, 0);
            const WORD button = HIWORD(defaultId) == DC_HASDEFID ? LOWORD(defaultId) : IDOK;
            PostMessageA(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
        }
    }
    return CallNextHookEx(Hook(), code, wParam, lParam);
}

}  // namespace

void AnswerMessageBoxes()
{
    if (!Hook())
        Hook() = SetWindowsHookExA(WH_CBT, AnswerMessageBox, NULL, GetCurrentThreadId());
}
